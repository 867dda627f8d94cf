#!/usr/bin/env python3
"""Long calculations: Stop, what can be reached meanwhile, and what comes after."""

import unittest

from calculator_case import (CLEAR_ALL, EVALUATE, STALE, VALID, VARIABLES, CalculatorCase,
                             calculator_settings, console_results)
from gui_case import MAIN_TITLE
from program import DIALOG_CLASS

# Some seconds with 10,000 digits.
SECONDS_LONG = "fact(1000000)-fact(1000000)+" * 3 + "42"
# Longer than any test.
REAL = "+".join(f"fact({number})" for number in range(1000000, 1000100))
UINT = "powmod(3; 10^19000+7; 10^19000+9)"

BLACK = (0, 0, 0)


def enabled_keys(page):
    return {key.text for key in page.keys if key.enabled}


class CalculatorRunTest(CalculatorCase):
    def dialogs(self):
        return {window.text: window for window in self.program.probe.windows()
                if window.class_name == DIALOG_CLASS}

    def start_run(self, formula):
        """The page once Stop is shown."""
        self.paste_formula(formula)
        self.wait_for_formula(formula)
        self.display.press("Return")
        return self.wait_for_page_where(
            lambda page: page.keys[CLEAR_ALL].text == "Stop" and not page.key("=").enabled, "Stop")

    def stop_run(self):
        self.display.click_all([self.page().keys[CLEAR_ALL].middle()])
        page = self.wait_until_idle()
        self.assert_no_message()
        return page

    def assert_busy(self, page):
        self.assertEqual("Stop", page.keys[CLEAR_ALL].text)
        self.assertEqual([CLEAR_ALL], [i for i, key in enumerate(page.keys) if key.enabled])
        for control in (page.type_slider, page.precision, page.precision_field, page.angle_slider,
                        page.number_base, page.base_list, page.case_key):
            self.assertFalse(control.enabled)
        self.assertTrue(page.formula.enabled)
        enabled = {text for text, window in self.dialogs().items() if window.enabled}
        self.assertEqual({self.page_title()}, enabled)

    def test_stop_in_real_and_what_can_be_reached_meanwhile(self):
        self.start_calculator("de", settings=calculator_settings(precision=10000))
        before = self.evaluate("3*4")
        self.press_keys(VARIABLES)
        variables = self.program.wait_for_window(self.texts["TextVarCalculatorVariables"])
        self.display.move(variables, 50, 50)
        self.display.activate(before.window)
        self.program.wait_for_window(self.page_title())

        page = self.start_run(REAL)
        self.assert_busy(page)
        # The old result stays, grey.
        self.assertEqual("12", page.result.text)
        self.assertFalse(page.has_valid_result)
        for window in (page.window, self.dialogs()[MAIN_TITLE]):
            self.assertEqual(100, self.program.probe.answers(window))
        self.display.move(page.window, 300, 200)
        moved = self.wait_for_page_where(lambda page: page.window.rect[:2] != before.window.rect[:2],
                                         "the page to be moved")
        self.display.resize(moved.window, 700, 600)
        page = self.wait_for_page_where(lambda page: page.window.client[2:] == [700, 600],
                                        "the page to be larger")
        self.assertEqual(680, page.formula.rect[2])
        # It paints itself as it is now.
        self.wait_until_painted([key for key in page.keys if key.text])
        formula = page.formula.client
        self.wait_for_pixels(formula, lambda pixels: BLACK in pixels.colours(formula),
                             "the formula to be painted")
        self.wait_for_colour_of_result(STALE)
        for window in (page.window, self.dialogs()[MAIN_TITLE]):
            self.assertEqual(100, self.program.probe.answers(window))
        # Nothing else does anything, by mouse or keyboard.
        self.display.click_all([page.keys[key].middle() for key in (3, 9, EVALUATE)])
        self.focus_formula()
        self.display.press("ctrl+End", "Return")
        self.display.type_text("+1")
        page = self.wait_for_formula(REAL + "+1")
        self.assert_busy(page)

        page = self.stop_run()
        self.assertEqual([REAL + "+1", "12"], [page.formula.text, page.result.text])
        self.assertFalse(page.has_valid_result)
        self.assertEqual(enabled_keys(before), enabled_keys(page) | {"F↔S"})
        self.assertTrue(all(window.enabled for window in self.dialogs().values()))
        self.choose_precision(20)
        expected, = console_results("12/7", digits=20, decimal="comma", thousands="point",
                                    language="de")
        self.assertEqual(expected, self.result_of("ans/7"))

    def keeps_formula_after_two_clicks_on_stop(self):
        page = self.start_run(UINT)
        self.assert_busy(page)
        self.display.click_twice(*page.keys[CLEAR_ALL].middle())
        # What is typed then arrives behind the clicks.
        self.focus_formula()
        self.display.press("ctrl+End", "space")
        self.wait_for_page_where(lambda page: page.formula.text in (UINT + " ", " "), "the blank")
        self.wait_until_idle()
        self.assert_no_message()
        return self.page().formula.text == UINT + " "

    def test_stop_in_uint_and_a_second_click_that_comes_late(self):
        self.start_calculator(settings=calculator_settings(number_type="uint"))
        # On a busy machine the second click can come so late that it is one on CA, but hardly
        # each time.
        self.assertTrue(any(self.keeps_formula_after_two_clicks_on_stop() for _ in range(5)))
        self.assertEqual("8", self.result_of("powmod(3; 10; 11)+7"))

    def test_short_runs_leave_the_keys_as_they_are(self):
        self.start_calculator()
        page = self.evaluate("1+1")
        captions = [key.text for key in page.keys]
        for digit, result in zip("3456789", ("5", "9", "14", "20", "27", "35", "44")):
            self.display.type_text(f"+{digit}")
            self.wait_for_stale_result()
            self.press_return()
            page = self.wait_for_result(result)
            self.assertEqual(captions, [key.text for key in page.keys])

    def test_page_closed_while_it_calculates(self):
        self.start_calculator("de", settings=calculator_settings(precision=10000))
        self.press_keys(VARIABLES)
        self.program.wait_for_window(self.texts["TextVarCalculatorVariables"])
        self.display.activate(self.page().window)
        self.program.wait_for_window(self.page_title())
        self.calculate("6*7", "42")
        self.start_run(REAL)
        self.display.press("alt+F4")
        self.program.wait_until_hidden(self.page_title())

        # It is stopped, and tells nothing at its end.
        page = self.wait_until_idle()
        self.assert_no_message()
        self.assertEqual({MAIN_TITLE}, self.program.visible_windows())
        self.assertTrue(all(window.enabled for window in self.dialogs().values()))
        self.assertEqual([REAL, "42"], [page.formula.text, page.result.text])
        self.display.activate(self.dialogs()[MAIN_TITLE])
        self.open_calculator()
        self.wait_for_colour_of_result(STALE)
        self.assertEqual("43", self.result_of("ans+1"))

    def test_a_result_counts_until_its_formula_runs_once_more(self):
        self.start_calculator("de", settings=calculator_settings(precision=10000))
        self.start_run(SECONDS_LONG)
        self.wait_for_result("42")
        self.wait_for_colour_of_result(VALID)
        # From here on a key is heard again.
        self.assertEqual(["4,2e+1", "42"], self.results_by_keys("F↔S", 2))
        # Once more without a change: what is shown does not count any more.
        self.focus_formula()
        self.display.press("Return")
        self.wait_for_page_where(lambda page: page.keys[CLEAR_ALL].text == "Stop", "Stop")
        self.wait_for_colour_of_result(STALE)
        self.stop_run()
        self.assertEqual("43", self.result_of("ans+1"))


if __name__ == "__main__":
    unittest.main()
