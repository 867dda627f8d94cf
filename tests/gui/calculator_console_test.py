#!/usr/bin/env python3
"""Results in the window are those of the console: random formulas of all number types, at several
precisions, in all bases and in all forms. TALLYMERE_SEED chooses other formulas."""

import os
import random
import unittest

from calculator_case import CalculatorCase, calculator_settings, console_results

SEED = int(os.environ.get("TALLYMERE_SEED", "20250202"))

# What a row of settings is: the number type, what else the console is told, and how many formulas
# there are. Rows of one run of the program follow each other by its controls.
PLAIN = [
    ("real", {"digits": 10}, 60),
    ("real", {"digits": 1}, 25),
    ("real", {"digits": 1000}, 25),
    ("cplx", {"digits": 20}, 60),
    ("cplx", {"digits": 200}, 25),
    ("rat", {"digits": 12}, 75),
    ("uint", {"base": 10}, 60),
    ("uint", {"base": 16}, 40),
    ("uint", {"base": 8}, 40),
]
GROUPED = [
    ("real", {"digits": 50}, 50),
    ("uint", {"base": 2}, 40),
]
EVERY_FORM = 4  # the forms are compared for one formula of so many
PENDING = "?"  # what the result field shows until a result is written


class Formulas:
    """Random formulas of a number type; some of them fail."""

    FUNCTIONS = {
        "real": ["sin", "cos", "atan", "exp", "sqrt", "cbrt", "sinh", "abs", "trunc", "ln"],
        "cplx": ["sin", "cos", "exp", "sqrt", "cbrt", "tanh", "abs", "arg", "ln", "atan"],
        "rat": ["abs", "trunc", "frac", "round"],
        "uint": ["sqrt", "log2"],
    }

    def __init__(self, number_type):
        self.type = number_type
        self.random = random.Random(f"{SEED} {number_type}")

    def integer(self, digits=25):
        return str(self.random.randrange(10 ** self.random.randint(1, digits)))

    def operand(self):
        kind = self.random.randrange(6)
        if self.type == "uint":
            return [self.integer, lambda: hex(int(self.integer())),
                    lambda: "0y" + bin(int(self.integer(12)))[2:]][kind % 3]()
        if kind < 2 or self.type == "rat":
            return self.integer(12)
        if kind == 2 and self.type == "cplx":
            return f"({self.integer(3)}-{self.integer(3)}.5*i)"
        if kind == 3:
            return self.random.choice(["pi", "e" if self.type == "real" else "2*i"])
        return f"{self.integer(4)}.{self.integer(6)}e{self.random.randint(-30, 30)}"

    def formula(self, depth=2):
        if depth == 0:
            return self.operand()
        kind = self.random.randrange(8)
        if kind == 0:
            return f"{self.random.choice(self.FUNCTIONS[self.type])}({self.formula(depth - 1)})"
        if kind == 1:
            return f"({self.formula(depth - 1)})^{self.random.randint(0, 9)}"
        operator = self.random.choice("+-*/" if self.type != "uint" else "++*/")
        return f"({self.formula(depth - 1)}{operator}{self.formula(depth - 1)})"


class ConsoleTest(CalculatorCase):
    def console(self, formulas, row, form="auto"):
        number_type, more, _ = row
        return console_results(*formulas, flags=self.flags, type=number_type, form=form,
                               decimal="point", thousands="apostrophe", **more)

    def working_formulas(self, row):
        """As many formulas as there are to be, none of which fails, each with what the console
        says. The last ones begin with the result before."""
        number_type, _, count = row
        formulas = Formulas(number_type)
        candidates = [formulas.formula() for _ in range(2 * count)] + ["7/3", "ans*4", "ans+ans"]
        results = list(zip(candidates, self.console(candidates, row)))
        working = [pair for pair in results if not pair[1].startswith("error")]
        self.assertEqual(results[-3:], working[-3:])
        self.assertLessEqual(count, len(working), f"seed {SEED}")
        return working[:count - 3] + working[-3:]

    def shown(self, page):
        """What the console would say to the result that the page shows."""
        mark = "\t[ ]" if self.program.probe.window(page.bracket_mark).visible else ""
        return self.text(page.result) + mark

    def text(self, control):
        return self.program.probe.window(control).text

    def wait_for_written_result(self, page, what):
        self.program.wait_for(lambda: self.text(page.result) != PENDING, f"the result of {what!r}")

    def result_of_written(self, page, formula):
        """Puts a formula into its field, and its result, for which Return is pressed. For a moment
        after a run that took so long that Stop was shown, Return does nothing: it is pressed again,
        but only when it has been handled, as the formula may name the result before."""
        self.program.probe.write(page.formula, formula)
        self.program.probe.write(page.result, PENDING)

        def is_heard():
            self.display.press("ctrl+End", "Return", "ctrl+Home")
            # The caret tells that Return was handled.
            self.program.wait_for(
                lambda: self.program.probe.window(page.formula).selection == [0, 0], "Return")
            is_busy = not self.program.probe.window(page.type_slider).enabled
            return is_busy or self.text(page.result) != PENDING
        self.program.wait_for(is_heard, f"Return to be heard for {formula!r}")
        self.wait_for_written_result(page, formula)
        return self.shown(page)

    def compare_forms(self, page, formula, forms):
        """By F↔S, through all forms that do not look like the one before, back to the first."""
        automatic, fixed, scientific = forms
        for expected in [*(form for form in (fixed, scientific) if form != automatic), automatic]:
            self.program.probe.write(page.result, PENDING)
            self.press_keys("F↔S")
            self.wait_for_written_result(page, formula)
            self.assertEqual(expected, self.shown(page), f"{formula} with seed {SEED}")

    def compare_mixed(self, page, formula, mixed, automatic):
        for expected in (mixed, automatic):
            self.program.probe.write(page.result, PENDING)
            self.press_keys("R↔M")
            self.wait_for_written_result(page, formula)
            self.assertEqual(expected, self.shown(page), f"{formula} with seed {SEED}")

    def choose(self, row):
        number_type, more, _ = row
        self.choose_type(number_type)
        if "digits" in more:
            self.choose_precision(more["digits"])
        else:
            self.choose_base(more["base"])

    def compare(self, row):
        number_type, more, count = row
        results = self.working_formulas(row)
        with_forms = [formula for formula, result in results[::EVERY_FORM]
                      if more.get("base", 10) == 10 and result != "0" and "ans" not in formula]
        forms = {form: dict(zip(with_forms, self.console(with_forms, row, form)))
                 for form in ("fixed", "scientific", "mixed")
                 if with_forms and (form != "mixed" or number_type == "rat")}
        self.choose(row)
        self.focus_formula()
        page = self.page()
        for formula, expected in results:
            self.assertEqual(expected, self.result_of_written(page, formula),
                             f"{formula} with seed {SEED}")
            if formula in with_forms:
                # Integers have no fixed notation of their own.
                fixed = forms["fixed"][formula]
                if number_type == "rat" and "/" not in expected:
                    fixed = expected
                self.compare_forms(page, formula,
                                   (expected, fixed, forms["scientific"][formula]))
                if number_type == "rat" and forms["mixed"][formula] != expected:
                    self.compare_mixed(page, formula, forms["mixed"][formula], expected)
                self.focus_formula()
        return count

    def compare_all(self, rows, flags, **settings):
        self.flags = flags
        self.start_calculator(settings=calculator_settings(decimal="point",
                                                           thousands="apostrophe", **settings))
        compared = 0
        for row in rows:
            with self.subTest(row=row):
                compared += self.compare(row)
        return compared

    def test_results_are_those_of_the_console(self):
        print(f"TALLYMERE_SEED={SEED}", flush=True)
        self.assertEqual(410, self.compare_all(PLAIN, ["lower-hex"], lower_case=1))
        self.program.close()
        self.assertEqual(90, self.compare_all(GROUPED, ["group"], grouping=(1, 0, 0)))


if __name__ == "__main__":
    unittest.main()
