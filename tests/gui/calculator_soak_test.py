#!/usr/bin/env python3
"""Two thousand random key presses and formulas in one run of the program, which holds no more at
their end than when it had warmed up. TALLYMERE_SEED chooses other ones."""

import os
import random
import unittest

from calculator_case import CLEAR_ALL, TYPES, CalculatorCase, calculator_settings
from program import MESSAGE_BOX_CLASS

SEED = int(os.environ.get("TALLYMERE_SEED", "20250202"))
PRESSES = 2000
WARM_UP = 400  # presses until every kind of window and message was there
CLICKS = 25  # presses between two looks at the program
VARIABLES_KEY = "var"
LARGEST_GROWTH = 2 << 20  # bytes, of what the system gives the process in large pieces

FORMULAS = ["sin(1)", "2^0.5", "1/7", "(1+2", "1/0", "7**2", "fact(30)", "sqrt(-1)", "a+b", "ans",
            "12345678901234567890*98765432109876543210", "1e400000*1e400000", "))", "i*i", "gcd(12;18)",
            "0xFFFF", "0y101+0t17", "3.5.5", "trunc(pi*100)", "", "unknown(2)", "exp(ln(2)*3)"]


class SoakTest(CalculatorCase):
    def settle(self):
        """Closes what messages there are, and stops what is calculating, until the page is idle. A
        click into the field that did not have the keyboard is handled behind all keys and clicks
        before it, so that nothing comes of them later."""
        title = self.texts["TextErrError"]
        name = "result" if self.last_field == "formula" else "formula"

        def settled():
            page = self.page()
            field = getattr(page, name)
            if page.is_busy:
                self.click(page.keys[CLEAR_ALL])
            elif self.program.find(MESSAGE_BOX_CLASS, title):
                self.display.press("Return")
            elif not field.focused:
                self.click(field)
            elif page.window.enabled:
                return page
            return None
        page = self.program.wait_for(settled, "the page to be idle")
        self.last_field = name
        return page

    def press_some_keys(self, page):
        keys = [key for key in page.keys if key.text != VARIABLES_KEY]
        # Whichever keys are met, the presses are random.
        self.display.click_all([self.random.choice(keys).middle() for _ in range(CLICKS)],
                               milliseconds=10)

    def type_some_formula(self, page):
        self.click(page.formula)
        self.last_field = "formula"
        if self.random.randrange(3):
            self.display.press("ctrl+Home", "ctrl+shift+End", "Delete")
        self.display.type_text(self.random.choice(FORMULAS))
        self.display.press("Return")

    def change_some_setting(self, page):
        slider, positions = self.random.choice([(page.type_slider, len(TYPES)),
                                                (page.angle_slider, 3)])
        if slider.visible:
            self.click(slider)
            self.display.press("Home", *["Right"] * self.random.randrange(positions))
        if page.case_key.visible:
            self.click(page.case_key)

    def open_variables_and_close_them(self, page):
        self.click(page.key(VARIABLES_KEY))
        dialog = self.program.wait_for_window(self.texts["TextVarCalculatorVariables"])
        self.display.press("Down", "Tab", *self.random.sample("abcdef", 3), "Tab", "1")
        self.display.press("alt+F4")
        self.program.wait_until_hidden(dialog.text)
        self.display.activate(self.page().window)

    def soak(self, presses):
        done = 0
        while done < presses:
            page = self.settle()
            action = self.random.choices(
                [self.press_some_keys, self.type_some_formula, self.change_some_setting,
                 self.open_variables_and_close_them], [14, 4, 2, 1])[0]
            action(page)
            done += CLICKS if action == self.press_some_keys else 1
        self.settle()
        self.assertEqual([self.window.process], self.program.probe.processes())

    def counts(self):
        """What the program holds in a state that is the same each time."""
        page = self.settle()
        self.press_keys(CLEAR_ALL)
        self.focus_formula()
        self.last_field = "formula"
        self.wait_for_page_where(lambda shown: shown.result.text == "" == shown.formula.text,
                                 "an empty calculator")
        return self.program.probe.counts(page.window.process)

    def test_holds_no_more_after_two_thousand_presses(self):
        print(f"TALLYMERE_SEED={SEED}", flush=True)
        self.random = random.Random(SEED)
        page = self.start_calculator(
            settings=calculator_settings(variables=[("a", "2"), ("b", "a"), ("c", "1/3")]))
        self.assertEqual("", page.formula.text)
        self.last_field = "formula"
        self.soak(WARM_UP)
        before = self.counts()
        self.soak(PRESSES)
        after = self.counts()
        print(f"before {before}\nafter  {after}", flush=True)
        for count in ("handles", "gdi", "windows"):
            self.assertLessEqual(after[count], before[count], f"{count} with seed {SEED}")
        self.assertLess(after["committed"] - before["committed"], LARGEST_GROWTH)
        self.calculate_on_fresh_page()

    def calculate_on_fresh_page(self):
        self.choose_type("real")
        self.calculate("2*21", "42")
        self.end_program()


if __name__ == "__main__":
    unittest.main()
