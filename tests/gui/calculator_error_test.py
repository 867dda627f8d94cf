#!/usr/bin/env python3
"""What the calculator says of formulas that it cannot evaluate, and what stays after that."""

import unittest

from calculator_case import CalculatorCase, calculator_settings

# Formulas by number type, the name of the text shown and the place that it names.
ERRORS = {
    "real": [
        ("2+*3", "TextFormulaSyntaxError", 3),
        ("1+2)", "TextFormulaLeftParenthesisMissingRight", 4),
        ("2+", "TextFormulaUnexpectedEndFormula", None),
        ("1/0", "TextFormulaOverflow", 4),
        ("(" * 60 + "1", "TextFormulaFormulaComplicatedBecauseMany", None),
        ("sin(1;2)", "TextFormulaNumberParametersFunctionWrong", 1),
        ("2+i", "TextFormulaFunctionNumberRequiresComplex", 3),
        ("1e9999999999999999999999", "TextFormulaNumberAnInvalidFormat", 1),
        ("1+powmod(2;3;5)", "TextFormulaFunctionAvailableSetNumber", 3),
        ("1+foo", "TextFormulaVariableFunctionDefined", 3),
        ("2*bad", "TextFormulaVariableCouldEvaluated", 3),
    ],
    "uint": [
        ("3-4", "TextFormulaOverflow", 4),
        ("0.5", "TextFormulaNumberAnInvalidFormat", 1),
    ],
    "cplx": [("powmod(2;3;5)", "TextFormulaFunctionAvailableSetNumber", 1)],
    # What is no fraction is tried as a real number, and it is the second error that is shown.
    "rat": [("1/3+i", "TextFormulaFunctionNumberRequiresComplex", 5),
            ("sqrt(-2)", "TextFormulaOverflow", 8)],
}


class CalculatorErrorTest(CalculatorCase):
    def test_every_error_of_a_formula(self):
        for language in ("de", "en"):
            self.start_calculator(language, settings=calculator_settings(
                variables=[("bad", "2*"), ("good", "21")]))
            self.assertEqual("42", self.result_of("2*good"))
            for number_type, errors in ERRORS.items():
                if self.page().type != number_type:
                    self.choose_type(number_type)
                for formula, name, position in errors:
                    with self.subTest(formula, language=language, type=number_type):
                        formula = formula.replace(".", "," if language == "de" else ".")
                        self.enter(formula)
                        self.expect_message(self.formula_error(name, position))
                        page = self.wait_until_idle()
                        missing = formula.count("(") - formula.count(")")
                        self.assertEqual(formula + ")" * max(missing, 0), page.formula.text)
                        self.assertEqual("42", page.result.text)
                        self.assertFalse(page.has_valid_result)
                        self.assertFalse(page.bracket_mark.visible)
                        self.assertEqual(number_type, page.type)
                        self.assertTrue(page.key("ans").enabled)
            # The last result is there still.
            self.assertEqual("43", self.result_of("ans+1"))
            self.program.close()


if __name__ == "__main__":
    unittest.main()
