"""What tests of the page Algebraic Equations share: the page, its controls, its grid, its runs."""

from dataclasses import dataclass

from gui_case import MAIN_TITLE, GuiCase, desktop, to_pixels
from program import MESSAGE_BOX_CLASS, Window

EQUATIONS = 202  # its menu item
# Of the grid as it is made, in logical units.
LABELS_WIDTH = 40
ROW_HEIGHT = 21
# As a coefficient it keeps a run busy for longer than any test.
ENDLESS = "1e999999999999 mod 7"


@dataclass
class EquationPage:
    """The page as it was when the program was asked; its controls by their names in
    form_tables."""
    window: Window

    def __getitem__(self, name):
        return self.window.children[desktop().forms["equation_rows"][name]]

    @property
    def output(self):
        return self["output"].text

    @property
    def editor(self):
        """The text that is being edited in the grid; None when nothing is."""
        return next((control.text for control in self["grid"].children
                     if control.visible and control.class_name.lower() == "edit"), None)

    def field(self, name):
        """The edit control of a numeric one."""
        edit, = [control for control in self[name].children
                 if control.class_name.lower() == "edit"]
        return edit


class EquationCase(GuiCase):
    def start_with(self, language="en", dpi=96):
        """Starts the program for somebody who has met About before."""
        self.dpi = dpi
        self.program = self.start_again(language, dpi)
        return self.program

    @property
    def title(self):
        return self.texts["TextAlgSolveAlgebraicEquations"]

    def open_page(self):
        """Chooses the menu item of the page by the keyboard."""
        self.choose_menu(self.program, EQUATIONS)
        self.program.wait_for_window(self.title)
        return self.page()

    def close_page(self):
        """Closes the page by its button: behind a message the keyboard may be elsewhere."""
        self.click(self.page()["close"])
        self.program.wait_until_hidden(self.title)

    def page(self):
        """The page, on the screen or not."""
        window, = [window for window in self.program.probe.windows() if window.text == self.title]
        return EquationPage(window)

    def wait_for_page(self, condition, what):
        return self.program.wait_for_where(self.page, condition, what)

    def wait_for_editor(self, text):
        self.wait_for_page(lambda page: page.editor == text, f"the editor with {text!r}")

    def click_cell(self, row):
        """Clicks the cell of a row that is in view; 0 is the first one below the headers."""
        left, top, _, _ = self.page()["grid"].client
        x, y = to_pixels([LABELS_WIDTH + 30, ROW_HEIGHT * (row + 1) + ROW_HEIGHT // 2], self.dpi)
        self.display.click(left + x, top + y)
        return self.wait_for_page(lambda page: page.editor is not None, "an editor").editor

    def type_coefficients(self, *texts):
        """Types all of an equation, from its first cell down. The last text stays in its editor."""
        self.click_cell(0)
        for index, text in enumerate(texts):
            self.display.press(*["Down"] * (index > 0), "Home", "shift+End", "Delete")
            if text:
                self.display.type_text(text)
            self.wait_for_editor(text)

    def set_number(self, name, number):
        """Types into a numeric control and presses Return."""
        self.click(self.page().field(name))
        self.display.press("Home", "shift+End", *str(number), "Return")
        self.wait_for_page(lambda page: page.field(name).text == str(number), f"{name} {number}")

    def select(self, name, row):
        """Chooses an item of a list by the mouse on the list and the keyboard in it."""
        self.click(self.page()[name])
        self.display.press(*["Home" if row == 0 else "End"], "Return")
        self.wait_for_page(lambda page: page[name].row == row, f"item {row} of {name}")

    def is_idle(self, page):
        """Whether the run is over and all windows can be reached again."""
        return page["solve"].text == self.texts["TextAlgSolve"] and page["clear"].enabled and all(
            window.enabled for window in self.program.probe.windows() if window.visible)

    def solve(self):
        """Clicks Solve."""
        self.click(self.page()["solve"])

    def wait_until_idle(self):
        return self.wait_for_page(self.is_idle, "the end of the run")

    def wait_for_output(self, output):
        return self.wait_for_page(lambda page: page.output == output and self.is_idle(page),
                                  f"the output {output!r}")

    def assert_no_message(self):
        self.assertIsNone(self.program.find(MESSAGE_BOX_CLASS))

    def assert_busy(self):
        page = self.page()
        self.assertEqual(self.texts["TextBtnStop"], page["solve"].text)
        self.assertFalse(page["clear"].enabled)
        enabled = {window.text for window in self.program.probe.windows()
                   if window.visible and window.enabled}
        self.assertEqual({self.title}, enabled)
        self.assertFalse(self.program.find(title=MAIN_TITLE).enabled)
