#!/usr/bin/env python3
"""The page Systems of Linear Equations on the screen: its controls, its texts, its sizes."""

import unittest

from form_check import check_form, check_texts
from gui_case import desktop, to_pixels
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


class SystemFormTest(SystemCase):
    def check_page(self, size):
        rows = desktop().forms["system_rows"]
        form = laid_out(self.forms["system"], rows, size)
        page = self.wait_for_page(
            lambda page: page.window.client[2:] == to_pixels(size, self.dpi), f"{size}")
        check_form(self, page.window, form, size, self.dpi)

    def test_forms_in_both_languages_at_each_resolution(self):
        for dpi in (96, 120, 144, 192):
            for language in ("en", "de"):
                with self.subTest(language=language, dpi=dpi):
                    self.start_with(language, dpi)
                    page = self.open_page()
                    self.check_page(self.forms["system_size"])
                    check_texts(self, self.program, page.window, dpi)
                    self.close_page()

    def test_a_page_that_is_resized_is_laid_out_anew(self):
        self.check_sizes(self.check_page)

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
