#!/usr/bin/env python3
"""What the page Algebraic Equations solves, by mouse and by the keyboard alone, and how it is
stopped."""

import unittest

from coefficient_case import LABELS_WIDTH, ROW_HEIGHT
from equation_case import ENDLESS, EquationCase
from gui_case import MAIN_TITLE

# x^2 - 2, and what is answered for x^2 + 1, by language.
ROOTS = "x1 = -1.414213562   [1]\r\nx2 = 1.414213562   [1]\r\n"
EXACT_ROOTS = ("x1 = -sqrt(2) \u2248 -1.414213562   [1]\r\n"
               "x2 = sqrt(2) \u2248 1.414213562   [1]\r\n")
NO_ROOTS = "TextAlgEquationNoRealSolutions"


class EquationRunTest(EquationCase):
    def test_by_mouse_in_both_languages(self):
        for language in ("en", "de"):
            with self.subTest(language):
                self.start_with(language)
                self.open_page_by_mouse()
                # The last coefficient is still in its editor when Solve is clicked.
                self.type_coefficients("1", "", "-2")
                self.solve()
                self.wait_for_output(self.localized(ROOTS))
                self.select("result type", 1)
                self.solve()
                self.wait_for_output(self.localized(EXACT_ROOTS))
                self.type_coefficients("1", "0", "1")
                self.solve()
                self.wait_for_output(self.texts[NO_ROOTS])
                self.select("result type", 0)
                self.select("mode", 1)
                self.click(self.page()["multiplicity"])
                self.wait_for_page(lambda page: not page["multiplicity"].checked, "no check")
                self.solve()
                self.wait_for_output("x1 = -i\r\nx2 = i\r\n")
                self.assertEqual("1", self.click_cell(0))
                self.click(self.page()["clear"])
                self.wait_for_page(lambda page: page.output == "" and page.editor is None,
                                   "an empty page")
                self.assertEqual("", self.click_cell(0))
                self.close_page()

    def test_by_the_keyboard_alone_in_both_languages(self):
        for language in ("en", "de"):
            with self.subTest(language):
                self.start_with(language)
                self.open_page()
                # Degree, mode, result type, precision, multiplicity, grid.
                self.display.press("Home", "shift+End", "3", *["Tab"] * 5)
                self.wait_for_page(lambda page: page["grid"].focused, "the grid")
                # a3 to a0, then the output and Solve.
                self.display.press("1", "Down", "minus", "6", "Down", "1", "1", "Down", "minus",
                                   "6")
                self.wait_for_editor("-6")
                self.display.press("Tab", "Tab", "Return")
                self.wait_for_output("x1 = 1   [1]\r\nx2 = 2   [1]\r\nx3 = 3   [1]\r\n")
                self.assertTrue(self.page()["solve"].focused)
                # Back to the check box and to the type of the result.
                self.display.press(*["shift+Tab"] * 3, "space", *["shift+Tab"] * 2, "Down",
                                   *["Tab"] * 5, "space")
                self.wait_for_output("x1 = 1\r\nx2 = 2\r\nx3 = 3\r\n")
                self.display.press("Tab", "Return")
                self.wait_for_page(lambda page: page.output == "", "an empty page")
                self.display.press("Tab", "Return")
                self.program.wait_until_hidden(self.title)

    def test_another_degree_keeps_the_coefficients(self):
        self.start_with()
        self.open_page()
        self.type_coefficients("1", "-3", "2")
        field = self.page().field("degree")
        self.click(field)
        self.display.press("Up", "Up")
        self.wait_for_page(lambda page: "a4*x^4" in page["text"].text, "degree 4")
        self.assertEqual("", self.click_cell(0))
        self.display.press("Down", "Down")
        self.wait_for_editor("1")
        self.display.press("Down")
        self.wait_for_editor("-3")
        self.click(field)
        self.display.press("Down", "Down")
        self.wait_for_page(lambda page: "a4*x^4" not in page["text"].text, "degree 2")
        self.solve()
        self.wait_for_output("x1 = 1   [1]\r\nx2 = 2   [1]\r\n")

    def test_the_highest_degree_by_scrolling(self):
        self.start_with()
        self.open_page()
        self.set_number("degree", 10)
        # x^10 - 1024. The last rows come into view by themselves.
        self.type_coefficients("1", *[""] * 9, "-1024")
        self.solve()
        self.wait_for_output("x1 = -2   [1]\r\nx2 = 2   [1]\r\n")
        # By the scroll bar: its arrow at the lower end shows the last row.
        grid = self.page()["grid"]
        x, y, width, height = grid.client
        self.display.press("Escape")
        for _ in range(12):
            self.display.click(grid.rect[0] + grid.rect[2] - 8, y + height - 8)
        last = (height - ROW_HEIGHT) // ROW_HEIGHT - 1
        self.assertEqual("-1024", self.click_cell(last))

    def test_the_column_of_labels_is_resized_by_the_mouse(self):
        self.start_with()
        self.open_page()
        left, top, _, _ = self.page()["grid"].client
        y = top + ROW_HEIGHT // 2
        before = self.display.pixels_of(self.page()["grid"].rect).pixels
        self.display.drag((left + LABELS_WIDTH, y), (left + LABELS_WIDTH + 50, y))
        self.program.wait_for(
            lambda: self.display.pixels_of(self.page()["grid"].rect).pixels != before,
            "another grid")
        # Where a cell was, there is a label now.
        self.display.click(left + LABELS_WIDTH + 30, top + ROW_HEIGHT + ROW_HEIGHT // 2)
        self.display.click(left + LABELS_WIDTH + 70, top + 2 * ROW_HEIGHT + ROW_HEIGHT // 2)
        page = self.wait_for_page(lambda page: page.editor is not None, "an editor")
        editor, = [control for control in page["grid"].children if control.visible]
        self.assertGreaterEqual(editor.rect[0], left + LABELS_WIDTH + 50)
        self.assertGreaterEqual(editor.rect[1], top + 2 * ROW_HEIGHT - 2)

    def test_what_is_wrong_with_a_coefficient_is_told_and_kept(self):
        for language in ("en", "de"):
            with self.subTest(language):
                self.start_with(language)
                self.open_page()
                error = self.texts["TextErrError"]
                for text, entry in (("i", "TextErrCoefficientReal"),
                                    ("2*", "TextErrErrorEvaluatingCoefficient")):
                    self.type_coefficients("1", text, "3")
                    self.solve()
                    start = self.texts[entry].replace("%s", "a1", 1).split("%s")[0]
                    box = self.program.wait_for_window(error, "#32770")
                    self.assertTrue(any(control.text.startswith(start) for control in box.walk()))
                    self.leave_message(self.program, error)
                    self.assertEqual("", self.wait_until_idle().output)
                    self.assertEqual("1", self.click_cell(0))
                    self.display.press("Down")
                    self.wait_for_editor(text)
                    self.display.press("Escape")
                self.close_page()

    def start_endless_run(self):
        self.type_coefficients("1", ENDLESS, "1")
        self.solve()
        self.wait_for_page(lambda page: page["solve"].text == self.texts["TextBtnStop"],
                           "a run that is busy")

    def test_stop_by_mouse_and_by_keyboard(self):
        for language in ("en", "de"):
            with self.subTest(language):
                self.start_with(language)
                page = self.open_page()
                self.start_endless_run()
                self.assert_busy()
                self.assertEqual(100, self.program.probe.answers(page.window))
                self.click(page["solve"])
                self.assertEqual("", self.wait_until_idle().output)
                self.assert_no_message()
                self.solve()
                self.wait_for_page(lambda page: not page["clear"].enabled, "a run that is busy")
                self.display.press("space")
                self.assertEqual("", self.wait_until_idle().output)
                self.assertTrue(self.page()["solve"].focused)
                self.assert_no_message()

    def test_closing_the_page_stops_its_run(self):
        self.start_with()
        self.open_page()
        for close in (self.close_page, lambda: self.display.press("alt+F4")):
            self.start_endless_run()
            close()
            self.program.wait_until_hidden(self.title)
            page = self.wait_until_idle()
            self.assert_no_message()
            self.assertEqual("", page.output)
            main = self.program.find(title=MAIN_TITLE)
            self.assertTrue(main.enabled)
            # It was disabled when the page was hidden, and the window manager gave it no keyboard.
            self.display.activate(main)
            self.open_page()
        self.close_page()
        self.close_program(self.program)


if __name__ == "__main__":
    unittest.main()
