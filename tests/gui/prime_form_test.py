#!/usr/bin/env python3
"""The prime pages on the screen: their controls, their texts, their sizes."""

import unittest

from form_check import check_form, check_texts
from gui_case import to_pixels
from prime_case import FORMS, PAGES, PRIME_FACTORS, PRIME_NUMBERS, PrimeCase, desktop

# The client areas as they are made, and what the output leaves of the height, in logical units.
SIZES = {PRIME_NUMBERS: [650, 368], PRIME_FACTORS: [562, 316]}
OUTPUT_ROOM = {PRIME_NUMBERS: 223, PRIME_FACTORS: 183}


def laid_out(item, form, rows, size):
    """The form with the places that its controls have in a client area."""
    width, height = size
    places = {index: list(row["place"]) for index, row in enumerate(form)}
    places[rows["number"]][2] = width - 62
    places[rows["output"]][2:] = [width - 32, height - OUTPUT_ROOM[item]]
    for name in ("start", "stop", "close"):
        places[rows[name]][1] = height - 33
    places[rows["close"]][0] = width - 100
    return [{**row, "place": places[index]} for index, row in enumerate(form)]


class PrimeFormTest(PrimeCase):
    def texts_of(self, item, rows):
        """What the rows show that have no text of their own in the table."""
        texts = {rows["digits"]: "", rows["base"]: ""}
        if item == PRIME_NUMBERS:
            texts[rows["exact"]] = self.texts["TextPrimesExactMaxDecimalDigits"] % (38, 39)
            texts[rows["probabilistic"]] = \
                self.texts["TextPrimesProbabilisticMaxDecimalDigits"] % 1253
        return texts

    def check_page(self, item, size, dpi):
        rows = desktop().forms[f"{FORMS[item]}_rows"]
        form = laid_out(item, self.forms[FORMS[item]], rows, size)
        window = self.wait_for_page(
            item, lambda page: page.window.client[2:] == to_pixels(size, dpi), f"{size}").window
        check_form(self, window, form, size, dpi, self.texts_of(item, rows))

    def test_forms_in_both_languages_at_each_resolution(self):
        for dpi in (96, 120, 144, 192):
            for language in ("en", "de"):
                with self.subTest(language=language, dpi=dpi):
                    self.start_with(language, dpi)
                    for item in PAGES:
                        page = self.open_page(item)
                        self.check_page(item, SIZES[item], dpi)
                        check_texts(self, self.program, page.window, dpi)
                        self.close_page(item)

    def test_a_page_that_is_resized_is_laid_out_anew(self):
        self.start_with()
        for item in PAGES:
            page = self.open_page(item)
            self.display.resize(page.window, 900, 600)
            self.check_page(item, [900, 600], 96)
            self.close_page(item)

    def test_a_page_comes_back_as_it_was_left(self):
        self.start_with()
        for item in PAGES:
            self.open_page(item)
            self.type_into(item, "number", "12")
            self.close_page(item)
            self.assertEqual("12", self.open_page(item)["number"].text)
            self.click(self.page(item)["close"])
            self.program.wait_until_hidden(self.title(item))

    def test_the_count_of_digits_follows_the_number(self):
        self.start_with()
        for item in PAGES:
            self.open_page(item)
            self.assertEqual("0 ", self.page(item).digits)
            self.type_into(item, "number", "1,234 ff")
            self.wait_for_page(item, lambda page: page.digits == "6 ", "6 digits")
            self.display.press("BackSpace")
            self.wait_for_page(item, lambda page: page.digits == "5 ", "5 digits")
            self.paste_into(item, "number", "9" * 10000)
            self.wait_for_page(item, lambda page: page.digits == "10000 ", "10000 digits")
            self.close_page(item)


if __name__ == "__main__":
    unittest.main()
