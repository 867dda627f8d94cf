"""What tests of the page Algebraic Equations share: the page and its runs."""

from coefficient_case import CoefficientCase
from gui_case import MAIN_TITLE

# As a coefficient it keeps a run busy for longer than any test.
ENDLESS = "npr(1e12;1e11)"


class EquationCase(CoefficientCase):
    item = 202
    form = "equation"
    title_text = "TextAlgSolveAlgebraicEquations"

    def type_coefficients(self, *texts):
        """Types all of an equation, from its first cell down. The last text stays in its editor."""
        self.click_cell(0)
        for index, text in enumerate(texts):
            self.retype(text, *["Down"] * (index > 0))

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

    def assert_busy(self):
        page = self.page()
        self.assertEqual(self.texts["TextBtnStop"], page["solve"].text)
        self.assertFalse(page["clear"].enabled)
        enabled = {window.text for window in self.program.probe.windows()
                   if window.visible and window.enabled}
        self.assertEqual({self.title}, enabled)
        self.assertFalse(self.program.find(title=MAIN_TITLE).enabled)
