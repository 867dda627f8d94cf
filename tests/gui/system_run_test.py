#!/usr/bin/env python3
"""The page Systems of Linear Equations at work: by mouse and by keyboard, in both languages."""

import unittest

from system_case import SystemCase

COMPLEX, RATIONAL = 2, 0


class SystemRunTest(SystemCase):
    def test_a_system_by_the_mouse_in_both_languages(self):
        for language in ("en", "de"):
            with self.subTest(language=language):
                self.start_with(language)
                self.open_page_by_mouse()
                self.set_number("count", 3)
                self.type_system(("1", "2", "3", "4"), ("", "3", "", "1"), ("2", "", "1", "-1"))
                self.solve()
                self.wait_for_output(self.localized(
                    "x1 = -1.266666667\r\nx2 = 0.3333333333\r\nx3 = 1.533333333\r\n"))
                self.choose_type(RATIONAL)
                self.solve()
                self.wait_for_output("x1 = -19/15\r\nx2 = 1/3\r\nx3 = 23/15\r\n")
                self.click(self.page()["clear"])
                self.wait_for_output("")
                self.expect_cells([""] * 4, [""] * 4)
                self.close_page()

    def test_by_the_keyboard_alone_in_both_languages(self):
        for language in ("en", "de"):
            with self.subTest(language=language):
                self.start_with(language)
                self.open_page()
                # Count, number type, grid: fractions have no precision.
                self.display.press("Home", "shift+End", "2", "Tab", "Up", "Tab")
                page = self.wait_for_page(lambda page: page["grid"].focused, "the grid")
                self.assertEqual(RATIONAL, page.chosen("type").row)
                # The first row from left to right, the second one from right to left.
                self.display.press("1", "Right", "1", "Right", "2", "Down",
                                   "0", "Home", "Left", "minus", "3", "Home", "Left", "1")
                self.wait_for_editor("1")
                self.display.press("Tab", "Tab", "Return")
                self.wait_for_output("x1 = 3/2\r\nx2 = 1/2\r\n")
                self.assertTrue(self.page()["solve"].focused)
                # Clear, Load, Save as.
                self.display.press("Tab", "Tab", "Tab", "Return")
                self.type_name("keys")
                self.return_to_page()
                self.assertEqual(b"a1;a2;b\r\n1;1;2\r\n1;-3;0\r\n", self.content("keys.csv"))
                self.wait_for_page(lambda page: page["save as"].focused, "the button again")
                self.display.press("shift+Tab", "shift+Tab", "space")
                self.wait_for_output("")
                self.display.press("Tab", "space")
                self.type_name("keys.csv")
                self.return_to_page()
                self.wait_for_page(lambda page: page["load"].focused, "the button again")
                self.display.press("shift+Tab", "shift+Tab", "Return")
                self.wait_for_output("x1 = 3/2\r\nx2 = 1/2\r\n")
                # Back to the number type, and now over the precision.
                self.display.press(*["shift+Tab"] * 3, "Down", *["Tab"] * 4, "Return")
                self.wait_for_output(self.localized("x1 = 1.5\r\nx2 = 0.5\r\n"))
                self.display.press(*["Tab"] * 4, "Return")
                self.program.wait_until_hidden(self.title)

    def test_another_count_keeps_the_coefficients(self):
        self.start_with()
        self.open_page()
        self.type_system(("1", "1", "2"), ("1", "-1", "0"))
        self.click(self.page().field("count"))
        self.display.press("Up", "Up")
        self.wait_for_page(lambda page: page.field("count").text == "4", "count 4")
        self.expect_cells(["1", "1", "", "", "2"], ["1", "-1", "", "", "0"])
        self.set_number("count", 2)
        self.solve()
        self.wait_for_output("x1 = 1\r\nx2 = 1\r\n")

    def test_parameters_and_contradictions(self):
        for language in ("en", "de"):
            with self.subTest(language=language):
                self.start_with(language)
                self.open_page()
                self.type_system(("1", "1", "2"), ("1", "1", "2"))
                self.solve()
                self.wait_for_output("x1 = 2-r\r\nx2 = r\r\n" +
                                     self.texts["TextLinParameterVariableFreelySelectable"]
                                     .replace("%s", "r"))
                self.click_cell(1, 2)
                self.retype("3")
                self.solve()
                self.wait_for_output(self.texts["TextLinEquationSystemUnsolvable"])

    def test_an_error_names_the_cell_and_the_page_goes_on(self):
        self.start_with()
        self.open_page()
        self.type_system(("1", "1", "2"), ("1", "(", "0"))
        self.solve()
        title = self.texts["TextErrError"]
        self.wait_for_message(self.program, title,
                              "Error evaluating coefficient in equation 2, column \"a2\": "
                              "Unexpected end of formula!")
        self.leave_message(self.program, title)
        self.click_cell(1, 1)
        self.wait_for_editor("(")
        self.retype("-1")
        self.solve()
        self.wait_for_output("x1 = 1\r\nx2 = 1\r\n")


if __name__ == "__main__":
    unittest.main()
