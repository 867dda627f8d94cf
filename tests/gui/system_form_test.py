#!/usr/bin/env python3
"""The page Systems of Linear Equations on the screen: its controls, its texts, its sizes."""

import unittest

from coefficient_case import CoefficientFormCase
from system_case import SystemCase


def laid_out(form, rows, size):
    """The form with the places that its controls have in a client area."""
    width, height = size
    half = (height - 142) // 2
    places = {index: list(row["place"]) for index, row in enumerate(form)}
    places[rows["hint"]][2] = width - 20
    places[rows["grid"]][2:] = [width - 20, half - 5]
    places[rows["output"]] = [10, 102 + half, width - 20, half - 5]
    for name in ("solve", "clear", "load", "save as", "close"):
        places[rows[name]][1] = height - 33
    places[rows["close"]][0] = width - 85
    return [{**row, "place": places[index]} for index, row in enumerate(form)]


class SystemFormTest(CoefficientFormCase, SystemCase):
    laid_out = staticmethod(laid_out)

    def test_forms_in_both_languages_at_each_resolution(self):
        self.check_forms()

    def test_a_page_that_is_resized_is_laid_out_anew(self):
        self.check_sizes()

    def test_the_number_type_decides_about_the_precision(self):
        self.check_precision_by_type()

    def test_a_page_comes_back_as_it_was_left(self):
        self.start_with()
        self.open_page_by_mouse()
        self.type_system(("1", "1", "2"), ("1", "-1", "0"))
        self.solve()
        self.wait_for_output("x1 = 1\r\nx2 = 1\r\n")
        self.close_page()
        self.assertEqual("x1 = 1\r\nx2 = 1\r\n", self.open_page().output)
        self.expect_cells(["1", "1", "2"], ["1", "-1", "0"])


if __name__ == "__main__":
    unittest.main()
