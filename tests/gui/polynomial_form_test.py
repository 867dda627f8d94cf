#!/usr/bin/env python3
"""The page Polynomial Calculation on the screen: its controls, its texts, its sizes."""

import unittest

from coefficient_case import CoefficientFormCase
from polynomial_case import MOST_DEGREE, PolynomialCase

UPPER_ROW = ("plus", "minus", "power", "result to 0", "clear 0", "clear all")
LOWER_ROW = ("times", "divide", "result to 1", "clear 1", "close")


def laid_out(form, rows, size):
    """The form with the places that its controls have in a client area."""
    width, height = size
    half = (height - 175) // 2
    places = {index: list(row["place"]) for index, row in enumerate(form)}
    places[rows["hint"]][2] = width - 20
    places[rows["grid"]][2:] = [width - 20, half - 5]
    places[rows["output"]] = [10, 105 + half, width - 20, half - 5]
    for names, room in ((UPPER_ROW, 63), (LOWER_ROW, 33)):
        for name in names:
            places[rows[name]][1] = height - room
    places[rows["close"]][0] = width - 85
    return [{**row, "place": places[index]} for index, row in enumerate(form)]


class PolynomialFormTest(CoefficientFormCase, PolynomialCase):
    laid_out = staticmethod(laid_out)

    def texts_of(self, page, rows):
        """The hint says which coefficients are meant, and some buttons name a polynomial."""
        captions = {
            rows[f"{name} {polynomial}"]: self.texts[text].replace("%s", f"P{polynomial}")
            for name, text in (("result to", "TextPolyResult"), ("clear", "TextPolyClear"))
            for polynomial in (0, 1)}
        return {rows["hint"]: page["hint"].text, **captions}

    def show_longest_texts(self):
        self.set_number("degree", MOST_DEGREE)
        return self.wait_for_page(lambda page: "a20" in page["hint"].text, "a20")

    def test_forms_in_both_languages_at_each_resolution(self):
        self.check_forms()

    def test_a_page_that_is_resized_is_laid_out_anew(self):
        self.check_sizes()

    def test_the_number_type_decides_about_the_precision(self):
        self.check_precision_by_type()

    def test_more_polynomials_than_two_are_not_divided(self):
        self.start_with()
        self.open_page()
        for count, takes_two in ((3, False), (12, False), (2, True)):
            self.set_number("count", count)
            page = self.wait_for_page(
                lambda page, takes_two=takes_two: page["power"].enabled == takes_two,
                f"the buttons for {count} polynomials")
            self.assertEqual(takes_two, page["divide"].enabled)
            for name in ("plus", "minus", "times"):
                self.assertTrue(page[name].enabled)


if __name__ == "__main__":
    unittest.main()
