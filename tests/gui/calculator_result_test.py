#!/usr/bin/env python3
"""Results on the calculator page, in all number types and forms, typed and clicked."""

import unittest

from calculator_case import (ANS, BACKSPACE, CLEAR_ALL, STALE, SWITCH_NOTATION, TYPES, VALID,
                             CalculatorCase, calculator_settings, console_results)

FORMULAS = {
    "uint": ["2^64-1", "7/2", "ncr(10; 3)"],
    "rat": ["1/3+1/6", "-2^(-3)", "6/4*2"],
    "real": ["1/8", "2^0.5", "1e-20/3"],
    "cplx": ["sqrtc(-2; 0)", "(1+2i)*(3-i)", "(2+i)/(1-3i)"],
}

# The forms in the order in which a key leads to them, from automatic back to it.
FORMS = [
    ("real", "12.5", "F↔S", ["scientific", "auto"]),
    ("real", "1000", "F↔S", ["fixed", "auto"]),
    ("cplx", "2.5-4i", "F↔S", ["scientific", "auto"]),
    ("cplx", "3000+0.001i", "F↔S", ["fixed", "scientific", "auto"]),
    ("uint", "123456", "F↔S", ["scientific", "auto"]),
    ("rat", "6", "F↔S", ["scientific", "auto"]),
    ("rat", "-22/7", "F↔S", ["fixed", "scientific", "auto"]),
    ("rat", "-22/7", "R↔M", ["mixed", "auto"]),
]
SEPARATORS = {"en": {"decimal": "point", "thousands": "comma"},
              "de": {"decimal": "comma", "thousands": "point"}}


class CalculatorResultTest(CalculatorCase):
    def test_two_times_the_sine_of_one_typed_by_somebody_new(self):
        for language, separators in SEPARATORS.items():
            with self.subTest(language):
                self.program = self.start(language)
                about = self.program.wait_for_window(
                    self.texts["TextAboutAbout"].replace("%s", "Tallymere"))
                self.click(about.control("button", "OK"))
                self.program.wait_until_hidden(about.text)
                self.open_calculator()
                # Without a click the keyboard is in the formula.
                self.wait_for_page_where(lambda page: page.formula.focused, "the keyboard")
                self.display.type_text("2*sin(1)")
                self.display.press("Return")
                expected, = console_results("2*sin(1)", language=language, **separators)
                page = self.wait_for_result(expected)
                self.assertEqual("2*sin(1)", page.formula.text)
                self.program.close()

    def test_two_times_the_sine_of_one_typed_and_clicked(self):
        for language, separators in SEPARATORS.items():
            self.start_calculator(language)
            for digits in (10, 50, 1000, 10000):
                with self.subTest(language=language, digits=digits):
                    expected, = console_results("2*sin(1)", digits=digits, language=language,
                                                **separators)
                    self.assertIn(len(expected), (digits, digits + 1))
                    self.choose_precision(digits)
                    self.assertEqual(expected, self.result_of("2*sin(1)"))
                    self.press_keys(CLEAR_ALL)
                    self.wait_for_page_where(lambda page: not page.result.text, "an empty result")
                    self.press_keys("2", "*", "sin", "1", "=")
                    page = self.wait_for_result(expected)
                    self.assertEqual("2*sin(1)", page.formula.text)
            self.end_program()
            self.assert_setting("decimal_precision = 10000")

    def test_formulas_of_each_number_type(self):
        self.start_calculator()
        for number_type in TYPES:
            expected = console_results(*FORMULAS[number_type], type=number_type)
            self.choose_type(number_type)
            for formula, line in zip(FORMULAS[number_type], expected):
                with self.subTest(formula, type=number_type):
                    page = self.evaluate(formula)
                    mark = "\t[ ]" if page.bracket_mark.visible else ""
                    self.assertEqual(line, page.result.text + mark)
                    self.assertEqual(formula == "7/2", page.bracket_mark.visible)
                    self.assertEqual(number_type, page.type)
        self.choose_type("uint")
        self.assertTrue(self.evaluate("7/2").bracket_mark.visible)
        self.press_keys(CLEAR_ALL)
        self.wait_for_page_where(lambda page: not page.bracket_mark.visible, "no bracket mark")

    def test_what_is_no_fraction_becomes_real(self):
        self.start_calculator("de", settings=calculator_settings(number_type="rat"))
        self.enter("1/0")
        self.expect_message(self.formula_error("TextFormulaOverflow", 4))
        page = self.wait_until_idle()
        self.assertEqual("rat", page.type)
        self.assertFalse(page.angle_slider.visible)
        page = self.evaluate("sqrt(2)")
        self.assertEqual("1,414213562", page.result.text)
        self.assertEqual("real", page.type)
        self.assertTrue(page.angle_slider.visible)
        self.assertTrue(page.key("sinh").enabled)
        self.assertEqual("0,3333333333", self.result_of("1/3"))
        self.end_program()
        self.assert_setting("number_type = real")

    def test_bases_and_letters(self):
        self.start_calculator(settings=calculator_settings(number_type="uint"))
        page = self.evaluate("3735928559")
        self.assertEqual("10", page.digits)
        self.assertTrue(page.keys[SWITCH_NOTATION].enabled)
        self.choose_base(16)
        page = self.wait_for_result("0xDEADBEEF")
        self.assertEqual("8", page.digits)
        self.assertFalse(page.keys[SWITCH_NOTATION].enabled)
        self.click(page.case_key)
        page = self.wait_for_result("0xdeadbeef")
        self.assertEqual(list("abc"), [key.text for key in page.keys[32:35]])
        self.choose_base(2)
        page = self.wait_for_result("0y11011110101011011011111011101111")
        self.assertEqual("32", page.digits)
        self.choose_base(8)
        page = self.wait_for_result("0t33653337357")
        self.assertEqual("11", page.digits)
        self.press_keys("hex", "a", "f", "+", "oct", "7", "+", "bin", "1", "=")
        page = self.wait_for_result("0t267")
        self.assertEqual("0xaf+0t7+0y1", page.formula.text)
        self.choose_base(10)
        page = self.wait_for_result("183")
        self.assertTrue(page.keys[SWITCH_NOTATION].enabled)
        # Another type has no base, and this one remembers its own.
        self.choose_base(16)
        self.wait_for_result("0xb7")
        self.choose_type("real")
        self.assertEqual("255", self.result_of("255"))
        self.choose_type("uint")
        self.assertEqual("0xff", self.result_of("255"))
        self.end_program()
        self.assert_setting("output_number_base = 16")
        self.assert_setting("use_lower_case_hex = 1")

    def test_forms_of_a_result(self):
        self.start_calculator("de", settings=calculator_settings(precision=3))
        for number_type, formula, key, forms in FORMS:
            with self.subTest(formula, type=number_type, key=key):
                if self.page().type != number_type:
                    self.choose_type(number_type)
                expected = {form: console_results(formula, digits=3, type=number_type, form=form,
                                                  language="de")[0]
                            for form in ("auto", *forms)}
                typed = formula.replace(".", ",")
                self.assertEqual(expected["auto"].replace(".", ","), self.result_of(typed))
                self.assertEqual([expected[form].replace(".", ",") for form in forms],
                                 self.results_by_keys(key, len(forms)))
        # From one key to the other.
        self.evaluate("22/7")
        self.assertEqual(["3+1/7", "3,14", "3+1/7", "22/7"],
                         [self.results_by_keys(key, 1)[0] for key in
                          ("R↔M", "F↔S", "R↔M", "R↔M")])
        # An integer has no mixed form. What the next key does tells that this one was pressed.
        self.evaluate("6")
        self.assertEqual(["6e+0"], self.results_by_keys("F↔S", 1))
        self.display.click_all([self.page().key(caption).middle() for caption in
                                ("R↔M", "F↔S", "R↔M", "R↔M", "F↔S")])
        self.wait_for_result("6e+0")

    def test_number_that_is_too_long_for_fixed_point(self):
        self.start_calculator("de")
        self.assertEqual("1e+100000", self.result_of("1e100000"))
        self.press_keys("F↔S")
        self.wait_for_result("<Zahl ist zu lang für die Festkomma-Notation>")
        self.press_keys("F↔S")
        self.wait_for_result("1e+100000")

    def test_chains_of_ans(self):
        page = self.start_calculator(settings=calculator_settings(precision=3))
        self.assertFalse(page.keys[ANS].enabled)
        self.press_keys("1", "/", "3", "=")
        page = self.wait_for_result("0.333")
        self.assertTrue(page.keys[ANS].enabled)
        # What is shown counts, and not what was calculated.
        for result in ("0.999", "3", "9"):
            self.press_keys("ans", "*", "3", "=")
            page = self.wait_for_result(result)
            self.assertEqual("ans*3", page.formula.text)
        self.assertEqual("90", self.result_of("10*ans"))
        self.press_keys("F↔S")
        self.wait_for_result("9e+1")
        self.assertEqual("91", self.result_of("ans+1"))
        self.press_keys(CLEAR_ALL)
        page = self.wait_for_page_where(lambda page: not page.result.text, "an empty result")
        self.assertFalse(page.keys[ANS].enabled)
        self.assertEqual("", page.formula.text)

    def test_missing_parentheses_are_added(self):
        self.start_calculator()
        for formula, whole, result in (("(1+2", "(1+2)", "3"), ("abs((1-(3", "abs((1-(3)))", "2"),
                                       ("(4)", "(4)", "4")):
            page = self.evaluate(formula)
            self.assertEqual([whole, result], [page.formula.text, page.result.text])
        self.press_keys("²√x", "(", "9", "=")
        page = self.wait_for_result("3")
        self.assertEqual("sqrt((9))", page.formula.text)

    def test_german_separators_and_groups(self):
        self.start_calculator("de", settings=calculator_settings(precision=20, grouping=(1, 0, 0)))
        self.assertEqual("2.469.135,25", self.result_of("1.234.567,625*2"))
        self.press_keys("1", ".", "5", "*", "3", "=")
        page = self.wait_for_result("4,5")
        self.assertEqual("1,5*3", page.formula.text)
        self.choose_type("uint")
        page = self.evaluate("2^40")
        self.assertEqual(["1.099.511.627.776", "13"], [page.result.text, page.digits])
        self.choose_base(16)
        self.assertEqual("11", self.wait_for_result("0x100.0000.0000").digits)

    def test_stale_results_are_grey(self):
        self.start_calculator()
        self.evaluate("7*6")
        self.wait_for_colour_of_result(VALID)
        self.display.type_text("1")
        page = self.wait_for_stale_result()
        self.assertEqual("42", page.result.text)
        self.assertFalse(page.key("F↔S").enabled)
        self.wait_for_colour_of_result(STALE)
        # Every change of the settings makes a result stale that the formula would not have now.
        for change in (lambda: self.choose_precision(11), lambda: self.choose_type("cplx"),
                       lambda: self.press_keys(BACKSPACE)):
            self.evaluate("7*6")
            self.wait_for_colour_of_result(VALID)
            change()
            self.wait_for_stale_result()
            self.wait_for_colour_of_result(STALE)
        # Another unit does not.
        self.evaluate("7*6")
        self.assertTrue(self.choose_angle("gon").has_valid_result)


if __name__ == "__main__":
    unittest.main()
