#!/usr/bin/env python3
"""How a page calculates, and how it is stopped or closed meanwhile."""

import decimal
import unittest

from gui_case import MAIN_TITLE
from pages_case import PagesCase
from program import MENU_CLASS

# The first digits of the factorials of one and of two million.
FACTORIALS_START = ["next = 8.26393168833124006237664610317266629113534797896",
                    "next = 3.77682105769141033440950264124334720013056492"]


def sum_of_roots():
    """Of 3, 2 and 1, with the digits of the page."""
    with decimal.localcontext(decimal.Context(prec=100, rounding=decimal.ROUND_HALF_UP)):
        return f"sum = {sum(decimal.Decimal(number).sqrt() for number in (3, 2, 1))}"


class PagesRunTest(PagesCase):
    def test_everything_else_is_out_of_reach_during_a_run(self):
        self.start_again()
        self.open_options(self.program)
        self.open_page(self.ROOTS)
        self.start_endless_run(self.ROOTS)
        self.assert_busy(self.ROOTS)

        main = self.dialogs()[MAIN_TITLE]
        x, y, _, _ = main.client
        self.display.click(x + 30, y - 10)
        self.click(self.options(self.program).control("button", self.texts["TextBtnCancel"]))
        self.click(self.page(self.ROOTS).other_button)
        # What is typed now arrives behind the clicks.
        self.type_input(self.ROOTS, "3")
        self.assertIsNone(self.program.find(MENU_CLASS))
        self.assertIsNotNone(self.options(self.program))
        self.assert_busy(self.ROOTS)

        self.click(self.page(self.ROOTS).start_button)
        page = self.wait_until_idle(self.ROOTS)
        self.assert_no_message()
        self.assertEqual("started", page.lines[0])
        self.assertEqual({"so far"}, {line.split(" = ")[0] for line in page.lines[1:]})

        self.click(page.start_button)
        self.wait_for_lines(self.ROOTS, len(page.lines) + 2)
        self.assertEqual([*page.lines, "started", sum_of_roots()], self.page(self.ROOTS).lines)
        self.wait_until_idle(self.ROOTS)
        self.click(self.options(self.program).control("button", self.texts["TextBtnCancel"]))
        self.program.wait_until_hidden(self.texts["TextOptOptions"])

    def test_the_page_answers_and_can_be_moved_during_a_run(self):
        self.start_again()
        self.open_page(self.ROOTS)
        self.start_endless_run(self.ROOTS)
        for title in (self.ROOTS, MAIN_TITLE):
            self.assertEqual(100, self.program.probe.answers(self.dialogs()[title]))
        self.assert_busy(self.ROOTS)

        window = self.page(self.ROOTS).window
        self.display.move(window, 300, 200)
        self.program.wait_for(lambda: self.page(self.ROOTS).window.rect != window.rect,
                              "the page to be moved")
        self.wait_for_lines(self.ROOTS, len(self.page(self.ROOTS).lines) + 2)
        self.assert_busy(self.ROOTS)

    def starts_nothing_by_two_clicks_on_stop(self):
        self.start_endless_run(self.ROOTS)
        started = self.page(self.ROOTS).lines.count("started")
        self.display.click_twice(*self.page(self.ROOTS).start_button.middle())
        # What is typed now arrives behind the clicks.
        self.type_input(self.ROOTS, "3")
        is_late = self.page(self.ROOTS).lines.count("started") > started
        if is_late:
            self.click(self.page(self.ROOTS).start_button)
        self.wait_until_idle(self.ROOTS)
        self.assert_no_message()
        return not is_late

    def test_a_second_click_on_stop_starts_nothing_and_swallows_no_error(self):
        self.start_again()
        self.open_page(self.ROOTS)
        # On a busy machine the second click can come so late that it is one on Start, but hardly
        # each time.
        self.assertTrue(any(self.starts_nothing_by_two_clicks_on_stop() for _ in range(5)))

        self.bring_to_front(MAIN_TITLE)
        self.open_options(self.program)
        self.toggle(self.program, "Automatic selection", False)
        self.press_ok(self.program)
        self.wait_for_message(self.program, self.texts["TextErrError"],
                              self.texts["TextErrDecimalThousandsSeparatorSame"])

    def test_a_run_that_the_arithmetic_stops(self):
        self.start_again()
        self.open_page(self.FACTORIALS)
        for _ in range(2):
            self.start_endless_run(self.FACTORIALS)
            self.assert_busy(self.FACTORIALS)
            self.click(self.page(self.FACTORIALS).start_button)
            page = self.wait_until_idle(self.FACTORIALS)
            self.assert_no_message()
            self.assertEqual("started", page.lines[0])
            self.assertEqual({"next"}, {line.split(" = ")[0] for line in page.lines[1:]})
            self.click(page.other_button)
            self.program.wait_for(lambda: not self.page(self.FACTORIALS).lines, "no lines")

    def test_each_page_calculates_with_its_own_digits(self):
        self.start_again()
        self.open_page(self.ROOTS)
        self.open_page(self.FACTORIALS)
        for runs in (1, 2):
            self.bring_to_front(self.ROOTS)
            self.start_run(self.ROOTS, "3")
            self.wait_for_lines(self.ROOTS, 2 * runs)
            page = self.wait_until_idle(self.ROOTS)
            self.assertEqual(sum_of_roots(), page.lines[-1])

            self.bring_to_front(self.FACTORIALS)
            self.start_run(self.FACTORIALS, "2")
            self.wait_for_lines(self.FACTORIALS, 4 * runs)
            page = self.wait_until_idle(self.FACTORIALS)
            for line, digits in zip(page.lines[-3:-1], FACTORIALS_START):
                self.assertEqual(digits, line[:len(digits)])

    def test_closing_a_page_stops_its_run(self):
        # The worker of the one polls the request to stop itself, the other leaves that to the
        # arithmetic.
        self.start_again()
        for title in (self.ROOTS, self.FACTORIALS):
            self.open_page(title)
            self.start_endless_run(title)
            self.display.press("alt+F4")
            self.program.wait_until_hidden(title)
            page = self.wait_until_idle(title)
            self.assertTrue(self.dialogs()[MAIN_TITLE].in_foreground)
            self.assert_no_message()
            self.assertFalse(any(line.startswith(("sum", "done")) for line in page.lines))
            self.open_page(title)
            self.assertEqual(page.lines, self.page(title).lines)

    def test_a_worker_that_reads_the_page_ends_the_run_by_itself(self):
        self.start_again()
        self.open_page(self.FACTORIALS)
        self.start_endless_run(self.FACTORIALS)
        self.program.probe.write(self.page(self.FACTORIALS).input, "1")
        page = self.wait_until_idle(self.FACTORIALS)
        self.assert_no_message()
        self.assertEqual("done", page.lines[-1])


if __name__ == "__main__":
    unittest.main()
