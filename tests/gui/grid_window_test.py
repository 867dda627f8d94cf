#!/usr/bin/env python3
"""A grid under real keys and clicks, and pictures of it for the eye.

The pictures lie in build/screenshots/, as grid-*.png.
"""

import unittest

from gui_case import GuiCase, to_pixels

PAGE = "Grids"
MENU_ITEM = 204
GRID = "simplegridctl"
# Of a new grid, in logical units.
HEADER = 50
WIDTH = 80
HEIGHT = 21
# Pixels that the line around a cell and the edge of a header take, at every resolution.
LINES = 3
WHITE = (255, 255, 255)


class GridWindowTest(GuiCase):
    def last_window(self):
        return "About Tallymere"

    def open_page(self, dpi=96):
        self.dpi = dpi
        self.program = self.start_again(dpi=dpi)
        self.choose_menu(self.program, MENU_ITEM)
        self.program.wait_for_window(PAGE)

    def page(self):
        return self.program.find(title=PAGE)

    def grids(self):
        return [control for control in self.page().children
                if control.class_name.lower() == GRID]

    def editor(self, grid=0):
        """The text that is being edited; None when nothing is."""
        return next((control.text for control in self.grids()[grid].children if control.visible),
                    None)

    def notes(self):
        """What the grids have told: code, column, row, text of the cell."""
        output = next(control for control in self.page().children
                      if control.class_name.lower() == "edit")
        return [line.split(" ", 3) for line in output.text.split("\r\n")[:-1]]

    def click_cell(self, column, row, grid=0):
        """Clicks the middle of a cell of the upper grid that is not scrolled; 0 are the headers."""
        left, top, _, _ = self.grids()[grid].client
        x, = to_pixels([HEADER + WIDTH * column - WIDTH // 2 if column else HEADER // 2], self.dpi)
        y, = to_pixels([HEIGHT * row + HEIGHT // 2], self.dpi)
        self.display.click(left + x, top + y)

    def wait_for_editor(self, text, grid=0):
        self.program.wait_for(lambda: self.editor(grid) == text, f"the editor with {text!r}")

    def focused(self):
        control = self.page().focused_control()
        return control and (control.class_name.lower(), control.text)

    def wait_for_focus(self, expected):
        self.program.wait_for(lambda: self.focused() == expected, expected)

    def take(self, name):
        """Takes it once the grid has painted itself: when two pictures are the same."""
        before = None
        while True:
            path = self.display.picture(f"grid-{name}-{self.dpi}", self.page())
            picture = path.read_bytes()
            if picture == before:
                return path
            before = picture

    def test_typing_fills_cells(self):
        self.open_page()
        self.click_cell(1, 1)
        self.wait_for_editor("sqrt(2)/3")
        self.display.press("Down")
        self.wait_for_editor("a text that is longer than its cell")
        self.display.press("Down")
        self.wait_for_editor("")
        self.display.type_text("12+x")
        self.wait_for_editor("12+x")
        self.display.press("Return")
        self.program.wait_for(lambda: ["5", "0", "2", "12+x"] in self.notes(), "the new text")
        # On the cell a character opens the editor anew, and is in it once.
        self.display.type_text("7")
        self.wait_for_editor("7")
        self.display.press("Escape")
        self.wait_for_editor(None)
        self.display.press("Up")
        self.wait_for_editor("a text that is longer than its cell")
        self.display.press("Down")
        self.wait_for_editor("12+x")
        # Keys without a character leave the cell as it is.
        self.display.press("Return", "Shift_L", "Control_L", "Alt_L", "Alt_L", "Escape", "ctrl+c")
        self.display.press("Up", "Down")
        self.wait_for_editor("12+x")

    def test_right_and_left_walk_over_cells(self):
        self.open_page()
        self.click_cell(1, 1)
        self.wait_for_editor("sqrt(2)/3")
        self.display.press("Right")
        self.wait_for_editor("-12345.678")
        self.display.press("Left", "Home", "Left")
        self.wait_for_editor("sqrt(2)/3")
        self.display.press("Escape", "End")
        self.program.wait_for(lambda: ["4", "25", "0", ""] in self.notes(), "the last column")
        self.display.press("Escape", "Home")
        self.wait_for_editor("sqrt(2)/3")

    def test_tab_walks_through_the_page(self):
        self.open_page()
        self.click_cell(1, 1)
        self.wait_for_editor("sqrt(2)/3")
        self.display.press("End", "5", "Tab")
        self.wait_for_focus((GRID, "Title of the grid"))
        self.assertIn(["5", "0", "0", "sqrt(2)/35"], self.notes())
        self.display.press("Tab")
        self.wait_for_focus(("button", "Behind"))
        self.display.press("shift+Tab", "shift+Tab")
        self.wait_for_focus((GRID, ""))
        self.display.press("shift+Tab")
        self.wait_for_focus(("button", "Before"))

    def test_another_control_ends_the_editor(self):
        self.open_page()
        self.click_cell(2, 3)
        self.wait_for_editor("")
        self.display.type_text("4")
        self.wait_for_editor("4")
        self.click(self.page().control("button", "Behind"))
        self.wait_for_focus(("button", "Behind"))
        self.assertIn(["5", "1", "2", "4"], self.notes())
        self.assertIsNone(self.editor())

    def inside(self, column, row, width=WIDTH):
        """What lies within the lines around a cell of the upper grid, as a place of the screen."""
        client_left, client_top, _, _ = self.grids()[0].client
        left = HEADER + width * (column - 1) if column else 0
        right = HEADER + width * column
        left, right, top, bottom = to_pixels([left, right, HEIGHT * row, HEIGHT * (row + 1)],
                                             self.dpi)
        return (client_left + left + LINES, client_top + top + LINES,
                right - left - 2 * LINES, bottom - top - 2 * LINES)

    def look(self):
        """The pixels of the upper grid as it is now; the picture for the eye is taken before."""
        return self.display.pixels_of(self.grids()[0].client)

    def background(self, pixels, column, row):
        """The colour of the upper left corner, where no text comes."""
        left, top, _, _ = self.inside(column, row)
        colours = pixels.colours((left, top, 2, 2))
        self.assertEqual(1, len(colours))
        return colours.pop()

    def has_text(self, pixels, rect):
        return len(pixels.colours(rect)) > 1

    def check_start(self):
        start = self.look()
        for header in ((1, 0), (2, 0), (3, 0), (0, 1), (0, 2), (0, 3)):
            self.assertTrue(self.has_text(start, self.inside(*header)), header)
        self.assertFalse(self.has_text(start, self.inside(0, 0)))
        face = self.background(start, 0, 0)
        for row in (1, 2, 3):
            for column in (1, 2, 3):
                self.assertEqual(WHITE, self.background(start, column, row))
                self.assertEqual(column < 3 and row < 3,
                                 self.has_text(start, self.inside(column, row)), (column, row))
            self.assertEqual(face, self.background(start, 0, row))
        self.assertNotEqual(WHITE, face)
        return start

    def check_cursor(self):
        cursor = self.look()
        selected = self.background(cursor, 2, 2)
        self.assertGreater(selected[2], selected[0], "blue, as the system's selection")
        # The text in it is white.
        self.assertIn(WHITE, cursor.colours(self.inside(2, 2)))
        for column, row in ((1, 2), (3, 2), (2, 1), (2, 3)):
            self.assertEqual(WHITE, self.background(cursor, column, row))

    def check_editor(self):
        editor = self.look()
        left, top, width, height = self.inside(2, 2)
        middle = (left + width // 2, top + height // 2, 2, 2)
        self.assertEqual({WHITE}, editor.colours(middle), "an edit control lies on the cell")
        self.assertTrue(self.has_text(editor, (left, top, width // 2, height)),
                        "its text stands on the left, and that of the cell on the right")

    def letter_of_first_column(self, width):
        """The middle of its header, where the letter stands."""
        left, top, full_width, height = self.inside(1, 0, width)
        half, = to_pixels([8], self.dpi)
        return left + full_width // 2 - half, top, 2 * half, height

    def check_resized(self):
        resized = self.look()
        self.assertFalse(self.has_text(resized, self.letter_of_first_column(WIDTH)))
        self.assertTrue(self.has_text(resized, self.letter_of_first_column(2 * WIDTH)))

    def check_scrolled(self, start):
        scrolled = self.look()
        left, top, width, height = self.inside(0, 3)
        below, = to_pixels([HEIGHT], self.dpi)
        for y in (top, top + below):
            number = (left, y, width, height)
            self.assertTrue(self.has_text(scrolled, number))
            self.assertNotEqual(start.part(number), scrolled.part(number), "another row")

    def test_pictures_at_all_resolutions(self):
        for dpi in (96, 120, 144, 192):
            with self.subTest(dpi=dpi):
                self.open_page(dpi)
                self.take("start")
                start = self.check_start()
                self.assertTrue(self.has_text(start, self.letter_of_first_column(WIDTH)))
                self.click_cell(2, 2)
                self.wait_for_editor("right")
                self.take("editor")
                self.check_editor()
                self.display.press("Return")
                self.wait_for_editor(None)
                self.take("cursor")
                self.check_cursor()
                left, top, _, _ = self.grids()[0].client
                edge, middle, end = to_pixels([HEADER + WIDTH, HEIGHT // 2, HEADER + 2 * WIDTH], dpi)
                self.display.drag((left + edge, top + middle), (left + end, top + middle))
                self.take("resized")
                self.check_resized()
                # In the editor, End belongs to its text.
                self.display.press("Next", "Next", "Escape", "End")
                self.program.wait_for(lambda: self.notes()[-1][:2] == ["4", "25"],
                                      "the last column")
                self.take("scrolled")
                self.check_scrolled(start)


if __name__ == "__main__":
    unittest.main()
