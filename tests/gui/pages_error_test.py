#!/usr/bin/env python3
"""How the errors of a run reach the user."""

import unittest

from gui_case import MAIN_TITLE
from pages_case import ENDLESS, PagesCase

TEXTS = {
    "en": {"title": "Error", "input": 'Invalid input "{}" !', "division": "Division by 0!",
           "calculation": "Error in mathematical calculation!"},
    "de": {"title": "Fehler", "input": 'Ungültige Eingabe "{}" !', "division": "Division durch 0!",
           "calculation": "Fehler bei mathematischer Berechnung!"},
}


class PagesErrorTest(PagesCase):
    def take_message(self, title, text, busy):
        """Waits for the box of an error, and closes it; meanwhile the page is busy or is not."""
        self.wait_for_message(self.program, self.messages["title"], text)
        self.assertEqual(self.texts["TextBtnStop" if busy else "TextBtnStart"],
                         self.page(title).start_button.text)
        self.assertEqual(not busy, self.dialogs()[MAIN_TITLE].enabled)
        self.leave_message(self.program, self.messages["title"])
        self.wait_until_idle(title)

    def test_each_error_is_told_once_and_the_first_of_several(self):
        for language, self.messages in TEXTS.items():
            with self.subTest(language):
                self.start_again(language)
                page = self.open_page(self.ROOTS)
                for text in ("abc", "2.5", ""):
                    self.start_run(self.ROOTS, text)
                    self.take_message(self.ROOTS, self.messages["input"].format(text), False)
                self.assertEqual([], self.page(self.ROOTS).lines)

                self.start_run(self.ROOTS, "-1")
                self.take_message(self.ROOTS, self.messages["calculation"], True)
                self.click(page.other_button)
                self.take_message(self.ROOTS, self.messages["division"], True)
                self.assertEqual(["started"] * 2, self.page(self.ROOTS).lines)

                self.start_run(self.ROOTS, "1")
                self.wait_for_lines(self.ROOTS, 4)
                self.wait_until_idle(self.ROOTS)
                self.assert_no_message()

    def test_an_error_that_the_worker_finds_in_an_edit(self):
        self.messages = TEXTS["en"]
        self.start_again()
        page = self.open_page(self.FACTORIALS)
        self.start_endless_run(self.FACTORIALS)
        self.click(page.input)
        self.display.press("End", "x")
        self.take_message(self.FACTORIALS, self.messages["input"].format(ENDLESS + "x"), True)


if __name__ == "__main__":
    unittest.main()
