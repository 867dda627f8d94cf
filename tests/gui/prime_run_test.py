#!/usr/bin/env python3
"""What the prime pages calculate, by mouse and by the keyboard alone, and how they are stopped."""

import unittest

from gui_case import MAIN_TITLE
from prime_case import PAGES, PRIME_FACTORS, PRIME_NUMBERS, PrimeCase

# 1,250 digits, and even.
LONG_COMPOSITE = "1" + "0" * 1248 + "2"

# For runs that last longer than any test: the start and the interval. Those that write little begin
# with numbers that take time, so that their text can be read again and again.
ENDLESS = {PRIME_NUMBERS: "2147483647", PRIME_FACTORS: "1000000"}
SLOW_START = {PRIME_NUMBERS: "1" + "0" * 37, PRIME_FACTORS: "1" + "0" * 37}

# What the pages answer, by language.
TEN = {"en": "Prime numbers from 1 to 10:\r\n{ 2, 3, 5, 7 }\r\nNumber of prime numbers: 4\r\n",
       "de": "Primzahlen von 1 bis 10:\r\n{ 2, 3, 5, 7 }\r\nAnzahl der Primzahlen: 4\r\n"}
DIVISORS = {"en": "D 12 = { 1, 2, 3, 4, 6, 12 }  [6]\r\n",
            "de": "T 12 = { 1, 2, 3, 4, 6, 12 }  [6]\r\n"}


def grouped(digits, length, separator):
    """Digits with a separator between groups of that length."""
    first = len(digits) % length or length
    return separator.join([digits[:first], *(digits[at:at + length]
                                             for at in range(first, len(digits), length))])


class PrimeRunTest(PrimeCase):
    def wait_for_output(self, item, output):
        self.wait_for_page(item, lambda page: page.output == output and page.is_idle(),
                           f"the output {output!r}")

    def test_by_mouse_in_both_languages(self):
        for language in ("en", "de"):
            with self.subTest(language):
                self.start_with(language)
                self.choose_menu_by_mouse(self.program, PRIME_FACTORS)
                self.program.wait_for_window(self.title(PRIME_FACTORS))
                self.type_into(PRIME_FACTORS, "number", "360")
                self.start_run(PRIME_FACTORS)
                self.wait_for_output(PRIME_FACTORS, "360 = 2^3 * 3^2 * 5\r\n")
                self.choose(PRIME_FACTORS, "divisors")
                self.choose(PRIME_FACTORS, "show count")
                self.type_into(PRIME_FACTORS, "number", "12")
                self.start_run(PRIME_FACTORS)
                self.wait_for_output(PRIME_FACTORS, DIVISORS[language])
                self.close_page(PRIME_FACTORS)

                self.choose_menu_by_mouse(self.program, PRIME_NUMBERS)
                self.program.wait_for_window(self.title(PRIME_NUMBERS))
                self.type_into(PRIME_NUMBERS, "number", "1")
                self.type_into(PRIME_NUMBERS, "interval", "10")
                for method in ("exact", "probabilistic"):
                    self.choose(PRIME_NUMBERS, method)
                    self.start_run(PRIME_NUMBERS)
                    self.wait_for_output(PRIME_NUMBERS, TEN[language])
                    self.choose(PRIME_NUMBERS, "next prime")
                    self.start_run(PRIME_NUMBERS)
                    self.wait_for_output(PRIME_NUMBERS,
                                         self.texts["TextPrimesNextPrimeNumber2"] + "\r\n2")
                    self.choose(PRIME_NUMBERS, "test")
                    self.start_run(PRIME_NUMBERS)
                    self.wait_for_output(PRIME_NUMBERS,
                                         f"1{self.texts['TextPrimesPrimeNumber2']}\r\n")
                    self.choose(PRIME_NUMBERS, "interval mode")

    def test_by_the_keyboard_alone_in_both_languages(self):
        for language in ("en", "de"):
            with self.subTest(language):
                self.start_with(language)
                # Number, base, mode, interval, output, Start.
                self.open_page(PRIME_FACTORS)
                self.display.press("3", "6", "0", *["Tab"] * 5, "Return")
                self.wait_for_output(PRIME_FACTORS, "360 = 2^3 * 3^2 * 5\r\n")
                self.assertTrue(self.page(PRIME_FACTORS)["start"].focused)
                # Back to the mode; with Divisors there is one more stop. The base at the end.
                self.display.press(*["shift+Tab"] * 3, "Down", "Tab", "space",
                                   *["shift+Tab"] * 3, "ctrl+a", "1", "2", *["Tab"] * 6, "space")
                self.wait_for_output(PRIME_FACTORS, DIVISORS[language])
                self.display.press(*["shift+Tab"] * 5, "F4", "End", "Return")
                self.wait_for_page(PRIME_FACTORS, lambda page: page["number"].text == "C",
                                   "the number in the new base")
                # Under Wine a drop list with the focus swallows Alt+F4.
                self.display.press("Tab", "alt+F4")
                self.program.wait_until_hidden(self.title(PRIME_FACTORS))

                # Number, base, mode, interval, method, output, Start.
                self.open_page(PRIME_NUMBERS)
                self.display.press("1", *["Tab"] * 3, "ctrl+a", "1", "0", *["Tab"] * 3, "Return")
                self.wait_for_output(PRIME_NUMBERS, TEN[language])
                self.display.press(*["shift+Tab"] * 2, "Down", *["shift+Tab"] * 2, "Down", "Down",
                                   *["Tab"] * 4, "Return")
                self.wait_for_output(PRIME_NUMBERS, f"1{self.texts['TextPrimesPrimeNumber2']}\r\n")
                # Stop is disabled, so that Close comes behind Start.
                self.display.press("Tab", "Return")
                self.program.wait_until_hidden(self.title(PRIME_NUMBERS))

    def test_groups_of_digits_in_both_bases(self):
        for grouping in (0, 1):
            with self.subTest(grouping=grouping):
                self.start_with(grouping=grouping)
                comma = "," * grouping
                self.open_page(PRIME_FACTORS)
                self.type_into(PRIME_FACTORS, "number", "4014")
                self.start_run(PRIME_FACTORS)
                self.wait_for_output(PRIME_FACTORS, f"4{comma}014 = 2 * 3^2 * 223\r\n")
                self.choose_base(PRIME_FACTORS, 16)
                self.type_into(PRIME_FACTORS, "number", "20002")
                self.start_run(PRIME_FACTORS)
                self.wait_for_output(PRIME_FACTORS, f"2{comma}0002 = 2 * 1{comma}0001\r\n")
                # The multiplicity is written in the same base.
                self.type_into(PRIME_FACTORS, "number", "10000")
                self.start_run(PRIME_FACTORS)
                self.wait_for_output(PRIME_FACTORS, f"1{comma}0000 = 2^10\r\n")
                self.assertEqual(f"1{comma}0000", self.page(PRIME_FACTORS)["number"].text)
                self.close_page(PRIME_FACTORS)

                self.open_page(PRIME_NUMBERS)
                self.type_into(PRIME_NUMBERS, "number", "65537")
                self.choose(PRIME_NUMBERS, "test")
                self.start_run(PRIME_NUMBERS)
                self.wait_for_output(PRIME_NUMBERS, f"65{comma}537 is a prime number.\r\n")
                self.choose_base(PRIME_NUMBERS, 16)
                self.start_run(PRIME_NUMBERS)
                self.wait_for_output(PRIME_NUMBERS, f"1{comma}0001 is a prime number.\r\n")

    def test_a_long_number_is_pasted_with_its_separators(self):
        self.start_with(grouping=1)
        self.open_page(PRIME_NUMBERS)
        self.choose(PRIME_NUMBERS, "probabilistic")
        self.choose(PRIME_NUMBERS, "test")
        text = grouped(LONG_COMPOSITE, 3, ",")
        self.paste_into(PRIME_NUMBERS, "number", text)
        self.wait_for_page(PRIME_NUMBERS, lambda page: page.digits == "1250 ", "1250 digits")
        self.start_run(PRIME_NUMBERS)
        self.wait_for_output(PRIME_NUMBERS, f"{text} is not a prime number.\r\n")

    def test_what_cannot_be_read_is_told_and_kept(self):
        self.start_with()
        for item in PAGES:
            self.open_page(item)
            for number in ("0", "12x", "9" * 40):
                self.type_into(item, "number", number)
                self.start_run(item)
                self.wait_for_message(self.program, "Error", f'Invalid input "{number}" !')
                self.leave_message(self.program, "Error")
                self.assertEqual(number, self.page(item)["number"].text)
                self.assertTrue(self.page(item).is_idle())
            # Behind a message the keyboard may be in another window.
            self.click(self.page(item)["close"])
            self.program.wait_until_hidden(self.title(item))

    def start_endless_run(self, item, start=None):
        self.type_into(item, "number", start or SLOW_START[item])
        self.type_into(item, "interval", ENDLESS[item])
        self.start_run(item)
        return self.wait_for_page(item, lambda page: page.output and page["stop"].enabled,
                                  "a run with some output")

    def assert_busy(self, item):
        page = self.page(item)
        self.assertFalse(page["start"].enabled)
        self.assertTrue(page["stop"].enabled)
        self.assertFalse(page["base"].enabled)
        enabled = {window.text for window in self.program.probe.windows()
                   if window.visible and window.enabled}
        self.assertEqual({self.title(item)}, enabled)

    def test_stop_by_mouse_and_by_keyboard(self):
        self.start_with()
        for item in PAGES:
            self.open_page(item)
            self.start_endless_run(item)
            self.assert_busy(item)
            self.click(self.page(item)["stop"])
            page = self.wait_until_idle(item)
            self.assert_no_message()
            self.assertNotEqual("", page.output)
            self.start_endless_run(item)
            # The focus is on Stop, since Start is disabled.
            self.assertTrue(self.page(item)["stop"].focused)
            self.display.press("space")
            self.wait_until_idle(item)
            self.assertTrue(self.page(item)["start"].focused)
            self.assert_no_message()
            self.close_page(item)

    def test_closing_a_page_stops_its_run(self):
        self.start_with()
        for item in PAGES:
            self.open_page(item)
            self.start_endless_run(item)
            self.close_page(item)
            page = self.wait_until_idle(item)
            self.assert_no_message()
            output = page.output
            self.assertNotEqual("", output)
            menu = self.program.find(title=MAIN_TITLE)
            self.assertTrue(menu.enabled)
            # It was activated while it was disabled; a window manager that was quicker than the end
            # of the run has given the keyboard to nobody.
            self.click(menu)
            self.assertEqual(output, self.open_page(item).output)
            self.close_page(item)

    def test_a_page_answers_while_its_output_is_filled(self):
        self.start_with()
        for item in PAGES:
            self.open_page(item)
            page = self.start_endless_run(item, "1")
            self.assertEqual(100, self.program.probe.answers(page.window))
            # The text is too long by now to be read each time.
            stop = page["stop"]
            self.assertTrue(self.program.probe.window(stop).enabled)
            self.click(stop)
            self.program.wait_for(lambda stop=stop: not self.program.probe.window(stop).enabled,
                                  "the end of the run")
            self.display.press("alt+F4")
            self.program.wait_until_hidden(self.title(item))


if __name__ == "__main__":
    unittest.main()
