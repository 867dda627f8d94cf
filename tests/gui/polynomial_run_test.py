#!/usr/bin/env python3
"""What the page Polynomial Calculation calculates, by mouse and by the keyboard alone."""

import unittest

from polynomial_case import MOST_DEGREE, PolynomialCase

RATIONAL, REAL, COMPLEX = range(3)  # rows of the list of number types


class PolynomialRunTest(PolynomialCase):
    def expect_result(self, head, *lines):
        """Waits for a result, whose line of polynomials is `head`."""
        self.wait_for_output(self.localized("\r\n".join([head, "", *lines, ""])))
        self.assertTrue(self.can_take_result(self.page()))

    def test_by_mouse_in_both_languages(self):
        for language in ("en", "de"):
            with self.subTest(language):
                self.start_with(language)
                page = self.open_page_by_mouse()
                self.assertFalse(self.can_take_result(page))
                self.type_polynomial(0, "1", "3", "2")
                # The last coefficient is still in its editor when the button is clicked.
                self.type_polynomial(1, "", "1", "-1/2")
                self.press_button("plus")
                self.expect_result("P0(x) + P1(x) = b2*x^2 + b1*x + b0",
                                   "b2 = 1", "b1 = 4", "b0 = 1.5")
                self.press_button("minus")
                self.expect_result("P0(x) - P1(x) = b2*x^2 + b1*x + b0",
                                   "b2 = 1", "b1 = 2", "b0 = 2.5")
                self.press_button("divide")
                self.expect_result(
                    f"P0(x) / P1(x) = b1*x + b0    {self.texts['TextPolyRemainder']}    r0",
                    "b1 = 1", "b0 = 3.5", "", "r0 = 3.75")
                self.press_button("times")
                self.expect_result("P0(x) * P1(x) = b3*x^3 + b2*x^2 + b1*x + b0",
                                   "b3 = 1", "b2 = 2.5", "b1 = 0.5", "b0 = -1")
                self.press_button("result to 1")
                page = self.wait_for_page(lambda page: page.field("degree").text == "3",
                                          "a higher degree")
                self.assertIn("a3*x^3", page["hint"].text)
                self.assertEqual([self.localized(text) for text in ("1", "2.5", "0.5", "-1")],
                                 self.row_of_cells(1, 4))
                self.assertEqual(["", "1", "3", "2"], self.row_of_cells(0, 4))
                self.press_button("clear 1")
                self.assertEqual([""] * 4, self.row_of_cells(1, 4))
                self.type_polynomial(1, "", "", "", "2")
                self.press_button("power")
                self.expect_result("P0(x) ^ 2 = b4*x^4 + b3*x^3 + b2*x^2 + b1*x + b0",
                                   "b4 = 1", "b3 = 6", "b2 = 13", "b1 = 12", "b0 = 4")
                self.press_button("result to 0")
                self.wait_for_page(lambda page: page.field("degree").text == "4", "degree 4")
                self.assertEqual(["1", "6", "13", "12", "4"], self.row_of_cells(0, 5))
                self.press_button("clear 0")
                self.assertEqual([""] * 5, self.row_of_cells(0, 5))
                self.type_polynomial(0, "5")
                self.press_button("clear all")
                for row in (0, 1):
                    self.assertEqual([""] * 5, self.row_of_cells(row, 5))
                self.assertIn("P0(x) ^ 2", self.page().output)
                self.close_page()

    def test_by_the_keyboard_alone_in_both_languages(self):
        for language in ("en", "de"):
            with self.subTest(language):
                self.start_with(language)
                self.open_page()
                # Count 3, the degree as it is, fractions; the precision is passed over.
                self.display.press("Home", "shift+End", "3", "Tab", "Tab", "Up", "Tab")
                page = self.wait_for_page(lambda page: page["grid"].focused, "the grid")
                self.assertEqual(RATIONAL, page.chosen("type").row)
                self.display.press("1", "slash", "2", "Right", "Right", "minus", "1", "Down",
                                   "3", "Down", "1", "slash", "3")
                self.wait_for_editor("1/3")
                # Output, plus, minus. The result buttons cannot be used yet.
                self.display.press("Tab", "Tab", "Tab", "Return")
                self.expect_result("P0(x) - P1(x) - P2(x) = b2*x^2 + b1*x + b0",
                                   "b2 = 1/2", "b1 = 0", "b0 = -13/3")
                self.assertTrue(self.page()["minus"].focused)
                # Times; power and divide take no third polynomial.
                self.display.press("Tab", "space")
                self.expect_result("P0(x) * P1(x) * P2(x) = b2*x^2 + b1*x + b0",
                                   "b2 = 1/2", "b1 = 0", "b0 = -1")
                # Result to P0 and to P1, and plus again.
                self.display.press("Tab", "Return", "Tab", "Return", *["shift+Tab"] * 4, "Return")
                self.expect_result("P0(x) + P1(x) + P2(x) = b2*x^2 + b1*x + b0",
                                   "b2 = 1", "b1 = 0", "b0 = -5/3")
                # Minus, times, both results, clear P0, clear P1, clear all.
                self.display.press(*["Tab"] * 7, "Return")
                self.wait_for_page(lambda page: page["clear all"].focused, "the last button")
                # Back to plus.
                self.display.press(*["shift+Tab"] * 7, "Return")
                self.expect_result("P0(x) + P1(x) + P2(x) = b0", "b0 = 0")
                self.display.press(*["Tab"] * 8, "Return")
                self.program.wait_until_hidden(self.title)

    def test_hidden_coefficients_do_not_count(self):
        self.start_with()
        self.open_page()
        self.set_number("degree", 5)
        self.type_polynomial(0, "7", "", "", "3", "2", "1")
        field = self.page().field("degree")
        self.click(field)
        self.display.press("Down", "Down", "Down")
        self.wait_for_page(lambda page: "a3" not in page["hint"].text, "degree 2")
        self.press_button("plus")
        self.expect_result("P0(x) + P1(x) = b2*x^2 + b1*x + b0", "b2 = 3", "b1 = 2", "b0 = 1")
        # They are still there.
        self.set_number("degree", 5)
        self.assertEqual("7", self.click_cell(0))

    def test_the_first_column_comes_into_view(self):
        self.start_with()
        self.open_page()
        self.set_number("degree", MOST_DEGREE)
        self.type_polynomial(0, "20")
        # The cursor goes to the last column, and the view follows.
        self.display.press("Return", "End")
        self.display.type_text("0")
        self.wait_for_editor("0")
        self.set_number("degree", MOST_DEGREE - 1)
        self.assertEqual("", self.click_cell(0))
        self.retype("19")
        self.set_number("degree", MOST_DEGREE)
        self.assertEqual(["20", "19"], self.row_of_cells(0, 2))

    def test_groups_of_digits_where_the_options_want_them(self):
        for grouping, number in ((0, "1234567.5"), (1, "1,234,567.5")):
            with self.subTest(grouping=grouping):
                self.start_with(grouping=grouping, thousands="comma")
                self.open_page()
                self.type_polynomial(0, "", "", "1234567")
                self.type_polynomial(1, "", "", "1/2")
                self.press_button("plus")
                self.wait_for_output(f"P0(x) + P1(x) = b0\r\n\r\nb0 = {number}\r\n")
                self.press_button("result to 0")
                self.assertEqual(number, self.click_cell(0, 2))
                self.press_button("minus")
                self.wait_for_output(f"P0(x) - P1(x) = b0\r\n\r\nb0 = {number[:-2]}\r\n")

    def test_complex_numbers_and_their_precision(self):
        self.start_with()
        self.open_page()
        self.choose_type(COMPLEX)
        self.set_number("precision", 25)
        self.type_polynomial(0, "", "1", "i")
        self.type_polynomial(1, "", "1/3", "-i/3")
        self.press_button("times")
        third = "0." + "3" * 25
        self.expect_result("P0(x) * P1(x) = b2*x^2 + b1*x + b0",
                           f"b2 = {third}", "b1 = 0", f"b0 = {third}")

    def test_errors_are_told_and_take_the_result_away(self):
        for language in ("en", "de"):
            with self.subTest(language):
                self.start_with(language)
                self.open_page()
                self.type_polynomial(0, "1", "", "2*t")
                self.type_polynomial(1, "", "", "2")
                formula_error = self.texts["TextFormulaVariableFunctionDefined"]
                for button, change, message in (
                        ("plus", "0", self.texts["TextErrErrorEvaluatingCoefficientPolynomial"]
                         .replace("%s", "a0", 1).replace("%s", "P0(x)", 1)
                         .replace("%s", formula_error.replace("%d", "3"))),
                        ("divide", "1/2", self.texts["TextErrDivision0"]),
                        ("power", "11", self.texts["TextErrPolynomialAnIntegerNumber"]
                         .replace("%s", "P1(x)", 1).replace("%s", "20")),
                        ("power", "1", self.texts["TextErrMaximumPolynomialDegreeResult"]
                         .replace("%s", "20"))):
                    if button == "divide":
                        self.type_polynomial(1, "", "", "0")
                    self.press_button(button)
                    self.wait_for_message(self.program, self.texts["TextErrError"], message)
                    page = self.page()
                    self.assertEqual("", page.output)
                    self.assertFalse(self.can_take_result(page))
                    self.leave_message(self.program, self.texts["TextErrError"])
                    row = 0 if button == "plus" else 1
                    self.click_cell(row, 2)
                    self.retype(change)
                self.press_button("power")
                self.expect_result("P0(x) ^ 1 = b2*x^2 + b1*x + b0", "b2 = 1", "b1 = 0", "b0 = 0")
                self.assert_no_message()

    def test_the_highest_degree_and_all_polynomials(self):
        self.start_with()
        self.open_page()
        self.set_number("count", 12)
        self.set_number("degree", 1)
        self.type_polynomial(0, "1", "1")
        # The last rows come into view by themselves.
        for _ in range(11):
            self.display.press("Down")
            self.wait_for_editor("")
            self.display.type_text("2")
            self.wait_for_editor("2")
        self.press_button("times")
        self.expect_result(" * ".join(f"P{k}(x)" for k in range(12)) + " = b1*x + b0",
                           "b1 = 2048", "b0 = 2048")
        self.set_number("count", 2)
        self.press_button("times")
        self.expect_result("P0(x) * P1(x) = b1*x + b0", "b1 = 2", "b0 = 2")

    def test_a_page_comes_back_as_it_was_left(self):
        self.start_with()
        self.open_page()
        self.type_polynomial(0, "1", "2", "3")
        self.press_button("minus")
        self.expect_result("P0(x) - P1(x) = b2*x^2 + b1*x + b0", "b2 = 1", "b1 = 2", "b0 = 3")
        self.close_page()
        page = self.open_page()
        self.assertIn("b2 = 1", page.output)
        self.assertTrue(self.can_take_result(page))
        self.assertEqual(["1", "2", "3"], self.row_of_cells(0, 3))


if __name__ == "__main__":
    unittest.main()
