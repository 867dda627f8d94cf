#!/usr/bin/env python3
"""The page Algebraic Equations on the screen: its controls, its texts, its sizes."""

import unittest

from coefficient_case import CoefficientFormCase
from equation_case import EquationCase

LIST_CLASS = "ComboLBox"  # of the rows of a drop list


def laid_out(form, rows, size):
    """The form with the places that its controls have in a client area."""
    width, height = size
    extra = 0 if height < 420 else min(height - 400, 125)
    places = {index: list(row["place"]) for index, row in enumerate(form)}
    places[rows["text"]][2] = width - 210
    places[rows["grid"]][2:] = [width - 210, 105 + extra]
    places[rows["output"]] = [10, 166 + extra, width - 20, height - extra - 213]
    for name in ("solve", "clear", "close"):
        places[rows[name]][1] = height - 33
    places[rows["close"]][0] = width - 85
    return [{**row, "place": places[index]} for index, row in enumerate(form)]


class EquationFormTest(CoefficientFormCase, EquationCase):
    laid_out = staticmethod(laid_out)

    def texts_of(self, page, rows):
        """The text says which equation is meant; the lists show what is chosen."""
        return {rows["text"]: page["text"].text, rows["mode"]: self.texts["TextAlgReal"],
                rows["result type"]: self.texts["TextAlgApproximation"]}

    def show_longest_texts(self):
        self.set_number("degree", 10)
        return self.wait_for_page(lambda page: "a10" in page["text"].text, "a10")

    def test_forms_in_both_languages_at_each_resolution(self):
        self.check_forms()

    def test_a_page_that_is_resized_is_laid_out_anew(self):
        self.check_sizes()

    def test_drop_lists_open_with_all_their_items(self):
        for dpi in (96, 192):
            with self.subTest(dpi=dpi):
                self.start_with("en", dpi)
                self.open_page()
                for name in ("mode", "result type"):
                    control = self.page()[name]
                    self.click(control)
                    rows = self.program.wait_for(lambda: self.program.find(LIST_CLASS),
                                                 "the list to drop down")
                    # Two rows, each about as high as the text of the closed list.
                    self.assertGreater(rows.rect[3], 1.2 * control.rect[3])
                    self.display.press("End", "Return")
                    self.program.wait_until_hidden(None, LIST_CLASS)
                    self.wait_for_page(lambda page, name=name: page[name].row == 1, "the last row")

    def test_a_page_comes_back_as_it_was_left(self):
        self.start_with()
        self.open_page()
        self.type_coefficients("1", "2", "-8")
        self.solve()
        result = "x1 = -4   [1]\r\nx2 = 2   [1]\r\n"
        self.wait_for_output(result)
        self.close_page()
        self.assertEqual(result, self.open_page().output)
        self.assertEqual("1", self.click_cell(0))
        self.display.press("Down", "Down")
        self.wait_for_editor("-8")


if __name__ == "__main__":
    unittest.main()
