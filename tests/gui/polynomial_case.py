"""What tests of the page Polynomial Calculation share: the page, its grid, its buttons."""

from coefficient_case import CoefficientCase

MOST_DEGREE = 20


class PolynomialCase(CoefficientCase):
    item = 204
    form = "polynomial"
    title_text = "TextPolyPolynomialCalculation"

    def type_polynomial(self, row, *texts):
        """Types coefficients into a row, from its first visible cell on. The last text stays in its
        editor."""
        self.click_cell(row)
        for index, text in enumerate(texts):
            # From the end of a text the key leads into the next cell.
            self.retype(text, *["Right"] * (index > 0))

    def press_button(self, name):
        """Clicks a button."""
        self.click(self.page()[name])

    def row_of_cells(self, row, count):
        """The texts of the first visible cells of a row, which are clicked one after the other."""
        return [self.click_cell(row, column) for column in range(count)]

    def can_take_result(self, page):
        enabled = {page["result to 0"].enabled, page["result to 1"].enabled}
        self.assertEqual(1, len(enabled))
        return enabled.pop()
