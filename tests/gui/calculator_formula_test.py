#!/usr/bin/env python3
"""How a formula gets into its field on the calculator page: keys, typing, pasting."""

import unittest

from calculator_case import (BACKSPACE, BRACKET_FORMULA, CLEAR_ALL, CLEAR_FORMULA, CalculatorCase,
                             calculator_settings)
from help_pages import keypad

LONGEST = "1+" * 44330 + "1"  # 88,661 characters


class CalculatorFormulaTest(CalculatorCase):
    def type_at(self, keys, text):
        """Moves the caret or the selection with keys and types or clicks then."""
        self.display.press(*keys.split())
        self.display.type_text(text)

    def test_the_first_key_after_a_result_clears_and_typing_keeps(self):
        self.start_calculator()
        self.press_keys("1", "+", "1", "=")
        self.wait_for_result("2")
        self.press_keys("5")
        self.wait_for_formula("5")
        self.press_keys("6")
        self.wait_for_formula("56")
        self.press_keys("=")
        self.wait_for_result("56")
        # A click into the field says that the formula is to be kept.
        self.focus_formula()
        self.type_at("End", "+1")
        self.press_keys("2")
        self.wait_for_formula("56+12")
        self.press_keys("=")
        self.wait_for_result("68")
        # What is typed after a click on a key goes into the field, as that key would.
        self.type_at("9", "*7")
        self.wait_for_formula("9*7")
        self.display.press("BackSpace", "8")
        self.press_return()
        page = self.wait_for_result("72")
        self.assertEqual("9*8", page.formula.text)
        # After Return the keyboard is in the field still.
        self.assertTrue(page.formula.focused)
        self.display.type_text("+1")
        self.wait_for_formula("9*8+1")
        self.press_return()
        self.wait_for_result("73")
        self.press_keys("sin")
        self.wait_for_formula("sin(")

    def test_keys_insert_at_the_caret_and_over_the_selection(self):
        self.start_calculator("de", settings=calculator_settings(angle="deg"))
        self.type_formula("12345")
        self.display.press("Home", "Right", "Right")
        self.press_keys("+")
        page = self.wait_for_formula("12+345")
        self.assertEqual([3, 3], page.formula.selection)
        self.focus_formula()
        self.display.press("Home", "Right", "Right", "Right", "shift+Right", "shift+Right")
        self.press_keys("sind")
        page = self.wait_for_formula("12+sind(5")
        self.assertEqual([8, 8], page.formula.selection)
        self.press_keys(".", "mod", ";", "π", "e±")
        self.wait_for_formula("12+sind(, mod ; πe5")
        # These do not look where the caret is.
        self.press_keys(BACKSPACE, BRACKET_FORMULA)
        self.wait_for_formula("(12+sind(, mod ; πe)")
        self.press_keys(BACKSPACE)
        self.wait_for_formula("(12+sind(, mod ; πe")
        self.press_keys(CLEAR_FORMULA)
        self.wait_for_formula("")
        self.press_keys(BACKSPACE, BRACKET_FORMULA)
        self.wait_for_formula("()")
        self.choose_angle("gon")
        self.press_keys(CLEAR_FORMULA, "acosg", "1", "=")
        page = self.wait_for_result("0")
        self.assertEqual("acosg(1)", page.formula.text)
        self.press_keys(CLEAR_ALL)
        page = self.wait_for_formula("")
        self.assertEqual("", page.result.text)
        self.assertFalse(page.has_valid_result)

    def test_clearing_the_formula_keeps_the_result(self):
        self.start_calculator()
        self.press_keys("6", "*", "7", "=")
        self.wait_for_result("42")
        self.press_keys(CLEAR_FORMULA)
        page = self.wait_for_stale_result()
        self.assertEqual(["", "42"], [page.formula.text, page.result.text])
        self.press_keys("ans", "=")
        self.wait_for_result("42")
        # Here the first key after a result clears the formula before.
        self.press_keys(BRACKET_FORMULA)
        self.wait_for_formula("()")

    def test_every_key_that_inserts(self):
        for number_type in ("uint", "cplx"):
            with self.subTest(number_type):
                page = self.start_calculator(
                    settings=calculator_settings(number_type=number_type))
                special = {"CA", "←", "CF", "(..)", "=", "var", "ans", "F↔S", ""}
                captions = [key.text for key in page.keys if key.text not in special]
                self.press_keys(*captions)
                texts = {key.caption: key.inserted for key in keypad() if key.kind == number_type}
                self.wait_for_formula("".join(texts[caption] for caption in captions))
                self.program.close()

    def test_the_result_can_be_copied_and_not_changed(self):
        self.start_calculator()
        page = self.evaluate("2^100")
        result = page.result.text
        self.program.probe.put_on_clipboard("7")
        self.click(page.result)
        self.display.press("Home", "Delete", "BackSpace", "5", "ctrl+v", "shift+End", "ctrl+x",
                           "Delete", "Return", "ctrl+Return", "shift+Insert", "shift+Delete",
                           "ctrl+z", "Home", "shift+End", "ctrl+c")
        self.press_keys("+")
        page = self.wait_for_formula("+")
        self.assertEqual(result, page.result.text)
        self.focus_formula()
        self.type_at("Home ctrl+v End", "1")
        self.wait_for_formula(result + "+1")
        self.press_return()
        self.wait_for_valid_result()
        self.program.probe.put_on_clipboard("23")
        self.display.press("shift+Insert")
        self.wait_for_formula(result + "+123")
        self.wait_for_stale_result()
        # From the keypad as well.
        self.press_keys(CLEAR_FORMULA, "*")
        self.display.press("shift+Insert")
        self.wait_for_formula("*23")
        self.press_keys("/")
        self.display.press("ctrl+v")
        self.wait_for_formula("*23/23")

    def test_line_breaks_in_a_formula(self):
        self.start_calculator()
        self.evaluate("1")
        self.paste_formula("1+\r\n2")
        self.wait_for_formula("1+\r\n2")
        self.press_return()
        page = self.wait_for_result("3")
        self.assertEqual("1+\r\n2", page.formula.text)
        self.display.press("End", "ctrl+Return", "asterisk", "5")
        page = self.wait_for_formula("1+\r\n2\r\n*5")
        self.assertFalse(page.has_valid_result)
        self.press_return()
        self.wait_for_result("11")
        self.display.press("ctrl+Return")
        self.wait_for_formula("1+\r\n2\r\n*5\r\n")
        self.wait_for_stale_result()

    def test_long_formulas_break_at_any_character(self):
        self.start_calculator()
        text = "9" * 20 + " + " + "9" * 30
        self.paste_formula(text)
        self.wait_for_formula(text)
        self.display.press("ctrl+Home", "End")
        # The blanks do not end the first line, but its width does.
        page = self.wait_for_page_where(lambda page: page.formula.selection != [0, 0], "its end")
        self.assertIn(page.formula.selection[0], range(25, 45))

    def test_pasted_characters_that_no_formula_has(self):
        self.start_calculator("de")
        self.evaluate("6*7")
        for text, error in (("1\x01+2", ("TextFormulaSyntaxError", 2)),
                            ("2+\ud800", ("TextFormulaSyntaxError", 3)),
                            ("\udc00", ("TextFormulaSyntaxError", 1))):
            with self.subTest(ascii(text)):
                self.paste_formula(text)
                self.wait_for_formula(text)
                self.display.press("Return")
                self.expect_message(self.formula_error(*error))
                page = self.wait_until_idle()
                self.assertEqual([text, "42"], [page.formula.text, page.result.text])
                self.assertFalse(page.has_valid_result)

    def test_the_longest_formula_and_longer_ones(self):
        self.start_calculator()
        self.paste_formula(LONGEST)
        self.wait_for_page_where(lambda page: page.formula.text == LONGEST, "the longest formula")
        self.press_return()
        self.wait_for_result("44331")
        # From here on a key is heard again.
        self.assertEqual(["4.4331e+4", "44331"], self.results_by_keys("F↔S", 2))
        for longer in ("+", "+1"):
            self.focus_formula()
            self.display.press("ctrl+End")
            self.display.type_text(longer)
            self.wait_for_stale_result()
            self.display.press("Return")
            self.expect_message(self.texts["TextErrStringBufferOverflow"])
            page = self.wait_until_idle()
            self.assertEqual("44331", page.result.text)
        self.assertEqual(LONGEST + "++1", page.formula.text)
        self.press_keys(CLEAR_FORMULA, "ans", "=")
        self.wait_for_result("44331")


if __name__ == "__main__":
    unittest.main()
