#!/usr/bin/env python3
"""The variables dialog: from the first name to the settings file and back."""

import unittest

from form_check import check_form
from gui_case import MAIN_TITLE, to_pixels
from variables_case import VariablesCase


def names(variables):
    return [name for name, _ in variables]


class VariablesTest(VariablesCase):
    def laid_out_form(self):
        """The table with the places that come with a client area of 370 by 230."""
        places = {1: [10, 30, 120, 135], 5: [135, 80, 225, 85], 6: [10, 172, 115, 25],
                  7: [10, 200, 115, 25], 8: [130, 172, 115, 25], 9: [130, 200, 115, 25],
                  10: [250, 200, 115, 25]}
        return [{**row, "place": places.get(index, row["place"])}
                for index, row in enumerate(self.forms["variables"])]

    def test_shows_its_form_beside_the_page_in_both_languages_at_every_resolution(self):
        for dpi in (96, 120, 144, 192):
            for language in ("en", "de"):
                with self.subTest(language=language, dpi=dpi):
                    dialog = self.start_with([("width", "2.5*4")], language, dpi)
                    x, y, width, _ = self.page().window.rect
                    right, down = to_pixels([5, 50], dpi)
                    self.assertEqual([x + width - right, y + down], dialog.window.rect[:2])
                    self.assertEqual(self.window.handle, dialog.window.owner)
                    value = "2.5*4" if language == "en" else "2,5*4"
                    check_form(self, dialog.window, self.laid_out_form(), [370, 230], dpi,
                               {3: "width", 5: value})
                    self.assertTrue(all(control.visible and control.enabled
                                        for control in dialog.window.walk()))
                    self.program.close()

    def test_first_variable_from_its_name_to_the_next_start(self):
        for language, value, results in (("en", "2.5*4", ("2.5", "10.5")),
                                         ("de", "2,5*4", ("2,5", "10,5"))):
            with self.subTest(language):
                self.use_first_variable(language, value, results)
                self.program.close()

    def use_first_variable(self, language, value, results):
        dialog = self.start_with(language=language)
        self.assertEqual(([], -1, "", ""), dialog.shown)
        for button in (dialog.assign, dialog.take_name, dialog.insert, dialog.delete):
            self.assertFalse(button.enabled)
        self.assertTrue(dialog.add.enabled)

        self.click(dialog.add)
        dialog = self.wait_for_shown(["var00"], 0, "var00", "")
        self.assertTrue(all(control.enabled for control in dialog.window.walk()))
        self.wait_for_focus_on("name")
        self.assertEqual([0, 5], self.dialog().name.selection)
        self.display.type_text("width")
        self.type_value(value)
        self.wait_for_shown(["width"], 0, "width", value)
        self.calculate("width/4", results[0])
        self.end_and_expect_settings(variables=[("width", "2.5*4")])

        before = self.settings_bytes()
        self.start_once_more(language)
        self.wait_for_shown(["width"], 0, "width", value)
        self.calculate("width+1/2", results[1])
        self.end_program()
        self.assertEqual(before, self.settings_bytes())

    def test_key_var_shows_the_dialog_where_the_page_is(self):
        dialog = self.start_with()
        self.display.move(self.window, 300, 200)
        page = self.wait_for_page_where(lambda page: page.window.rect[0] < 400, "the page to move")
        self.assertEqual(self.window.rect[2:], page.window.rect[2:])
        self.bring_to_front(self.page().window)
        self.click_key("var")
        x, y, width, _ = self.page().window.rect
        moved = self.wait_for_dialog_where(
            lambda shown: shown.window.rect[:2] != dialog.window.rect[:2], "the dialog to move")
        self.assertEqual([x + width - 5, y + 50], moved.window.rect[:2])
        # It is the active window again, whatever the window manager makes of that.
        self.program.wait_for(lambda: self.program.find(title=moved.window.text).in_foreground,
                              "the dialog to be active")

    def test_closing_hides_it_and_keeps_everything(self):
        self.start_with([("a", "1")])
        self.type_value("2")
        self.display.press("alt+F4")
        self.program.wait_until_hidden("Calculator variables")
        self.calculate_on_page("a", "2")
        self.open_variables()
        self.wait_for_shown(["a"], 0, "a", "2")
        self.end_and_expect_settings(variables=[("a", "2")])

    def test_closes_with_the_page(self):
        self.start_with([("a", "1")])
        self.type_value("2")
        self.bring_to_front(self.page().window)
        self.display.press("alt+F4")
        self.program.wait_for_window(MAIN_TITLE)
        self.program.wait_for(lambda: self.program.visible_windows() == {MAIN_TITLE},
                              "the end of page and dialog")
        self.end_and_expect_settings(variables=[("a", "2")])

    def test_is_minimised_and_restored_with_the_program(self):
        self.start_with([("a", "1")])
        self.display.minimise(self.page().window)
        self.program.wait_for(
            lambda: "Calculator variables" not in self.program.visible_windows()
            or self.dialog().window.minimised, "the dialog to go with its page")
        self.display.activate(self.page().window)
        self.wait_for_page_where(lambda page: not page.window.minimised, "the page to come back")
        self.program.wait_for(
            lambda: "Calculator variables" in self.program.visible_windows()
            and not self.dialog().window.minimised, "the dialog to come back")
        self.wait_for_shown(["a"], 0, "a", "1")

    def test_add_appends_and_insert_puts_before_the_selected_row(self):
        self.start_with([("a", "1"), ("b", "2")])
        self.click_row(1)
        self.wait_for_shown(["a", "b"], 1, "b", "2")
        self.click(self.dialog().insert)
        self.wait_for_shown(["a", "var00", "b"], 1, "var00", "")
        self.display.type_text("c")
        self.click(self.dialog().add)
        self.wait_for_shown(["a", "c", "b", "var00"], 3, "var00", "")
        self.click_row(0)
        self.click(self.dialog().insert)
        self.wait_for_shown(["var01", "a", "c", "b", "var00"], 0, "var01", "")
        self.end_and_expect_settings(variables=[("var01", ""), ("a", "1"), ("c", ""), ("b", "2"),
                                                ("var00", "")])

    def test_delete_first_middle_last_and_only_one(self):
        self.start_with([("a", "1"), ("b", "2"), ("c", "3"), ("d", "4")])
        self.click(self.dialog().delete)
        self.wait_for_shown(["b", "c", "d"], 0, "b", "2")
        self.click_row(1)
        self.click(self.dialog().delete)
        self.wait_for_shown(["b", "d"], 1, "d", "4")
        self.click(self.dialog().delete)
        self.wait_for_shown(["b"], 0, "b", "2")
        self.type_value("77")
        self.click(self.dialog().delete)
        dialog = self.wait_for_shown([], -1, "", "")
        for button in (dialog.assign, dialog.take_name, dialog.insert, dialog.delete):
            self.assertFalse(button.enabled)
        self.assertTrue(dialog.add.enabled)
        self.type_formula("b")
        self.display.press("Return")
        self.expect_message(self.formula_error("TextFormulaVariableFunctionDefined", 1))
        self.end_and_expect_settings()

    def test_new_name_takes_the_smallest_free_number(self):
        self.start_with([("var00", ""), ("var01", ""), ("var02", ""), ("var3", ""),
                         ("var004", "")])
        self.click_row(2)
        self.click(self.dialog().delete)
        self.wait_for_rows(["var00", "var01", "var3", "var004"], 2)
        self.click(self.dialog().add)
        self.wait_for_rows(["var00", "var01", "var3", "var004", "var02"], 4)
        self.click(self.dialog().add)
        self.wait_for_rows(["var00", "var01", "var3", "var004", "var02", "var03"], 5)

    def test_hundred_variables_and_no_more(self):
        variables = [(f"v{index}", str(index)) for index in range(99)]
        self.start_with(variables)
        self.click(self.dialog().add)
        full = [*names(variables), "var00"]
        self.wait_for_rows(full, 99)
        for button in ("add", "insert"):
            self.click(getattr(self.dialog(), button))
            self.wait_for_focus_on(button)
        # What is typed now shows that the clicks were handled, and that no message is in the way.
        self.type_value("1")
        self.wait_for_rows(full, 99)
        self.calculate("v0+v50+v98+var00", "149")
        self.end_and_expect_settings(variables=[*variables, ("var00", "1")])

    def test_name_that_is_reserved_or_has_other_characters_is_told_and_stays(self):
        for language in ("en", "de"):
            variables = [("a", "1")]
            self.start_with(variables, language)
            for name in ("ans", "e", "i", "pi", "π", "1a", "a b", "ä", "a+1"):
                with self.subTest(language=language, name=name):
                    self.type_name(name)
                    self.click(self.dialog().value)
                    self.expect_message(self.texts["TextErrVariableNameInvalidOnly"].replace(
                        "%s", name))
                    self.wait_for_shown([name], 0, name, "1")
            self.display.activate(self.page().window)
            self.calculate("2+2", "4")
            self.end_and_expect_settings(variables=[("a+1", "1")])

    def test_empty_name_is_taken(self):
        self.start_with([("a", "1")])
        self.type_name("")
        self.click_and_focus("value")
        self.wait_for_shown([""], 0, "", "1")
        self.end_and_expect_settings(variables=[("", "1")])
        self.start_once_more()
        self.wait_for_shown(["var??"], 0, "var??", "1")

    def test_name_has_ten_characters_at_most(self):
        self.start_with([("a", "1")])
        self.click_and_focus("name")
        self.display.press("End")
        self.display.type_text("bcdefghijklmnop")
        self.click_and_focus("value")
        self.wait_for_shown(["abcdefghij"], 0, "abcdefghij", "1")
        self.calculate("abcdefghij+1", "2")

    def test_greek_names(self):
        self.start_with()
        self.add("α_Ω1", "3")
        self.add("μετρο", "α")
        self.click_row(0)
        self.focus_formula()
        self.display.press("ctrl+Home", "ctrl+shift+End", "Delete")
        self.put_in("2*α_Ω1")
        self.wait_for_formula("2*α_Ω1")
        self.display.press("Return")
        self.wait_for_result("6")
        self.end_and_expect_settings(variables=[("α_Ω1", "3"), ("μετρο", "α")])

    def test_value_shows_the_decimal_comma_and_keeps_a_point(self):
        self.start_with([("a", "1.5")], "de")
        self.wait_for_shown(["a"], 0, "a", "1,5")
        self.calculate("2*a", "3")
        self.add("b", "1.234,5+0,25")
        self.wait_for_shown(["a", "b"], 1, "b", "1.234,5+0,25")
        self.click_row(0)
        self.click_row(1)
        self.wait_for_shown(["a", "b"], 1, "b", "1234,5+0,25")
        self.calculate("b", "1234,75")
        self.end_and_expect_settings(variables=[("a", "1.5"), ("b", "1234.5+0.25")])
        self.start_once_more("de")
        self.click_row(1)
        self.wait_for_shown(["a", "b"], 1, "b", "1234,5+0,25")

    def test_value_follows_a_change_of_the_separators(self):
        self.start_with([("a", "1.5")], decimal="point", thousands="apostrophe")
        self.choose_decimal_comma()
        self.display.activate(self.dialog().window)
        self.wait_for_shown(["a"], 0, "a", "1,5")
        self.calculate("a", "1,5")
        self.end_and_expect_settings(decimal="comma", thousands="apostrophe",
                                     variables=[("a", "1.5")])

    def test_value_being_typed_survives_a_change_of_the_separators(self):
        self.start_with([("a", "1.5")], decimal="point", thousands="apostrophe")
        self.type_value("2.25")
        self.choose_decimal_comma()
        self.calculate_on_page("a", "2,25")
        self.end_and_expect_settings(decimal="comma", thousands="apostrophe",
                                     variables=[("a", "2.25")])

    def calculate_on_page(self, formula, result):
        """Likewise when another window may be active or in the way."""
        self.bring_to_front(self.page().window)
        return self.calculate(formula, result)

    def choose_decimal_comma(self):
        """In Options; the thousands separator stays."""
        self.bring_to_front(self.program.find(title=MAIN_TITLE))
        self.open_options(self.program)
        self.select_row(self.program, 0, 1)
        self.press_ok(self.program)
        self.program.wait_until_hidden("Options")

    def test_value_is_taken_over_when_the_box_loses_the_focus(self):
        self.start_with([("a", "1")])
        self.type_value("5")
        self.calculate("a", "5")
        # The page is clicked while the value box has the focus of its window.
        self.type_value("6")
        self.click_key("=")
        self.wait_for_result("6")
        self.type_value("7")
        self.click_and_focus("name")
        self.click_key("=")
        self.wait_for_result("7")

    def test_value_that_is_a_formula(self):
        self.start_with()
        self.add("u", "2*pi")
        self.add("v", "sqrt(16)+gcd(12;18)")
        self.calculate("u/2", "3.141592654")
        self.calculate("v^2", "100")
        self.end_and_expect_settings(variables=[("u", "2*pi"), ("v", "sqrt(16)+gcd(12;18)")])

    def test_variable_that_fails_or_names_a_variable_is_told(self):
        self.start_with([("self", "self+1"), ("other", "2*self"), ("a", "1"), ("b", "a"),
                         ("bad", "1/0"), ("text", "1+"), ("none", ""), ("last", "ans")])
        for name in ("self", "other", "b", "bad", "text", "none", "last"):
            with self.subTest(name):
                self.type_formula(f"7*{name}")
                self.display.press("Return")
                self.expect_message(self.formula_error("TextFormulaVariableCouldEvaluated", 3))
                self.assertEqual(f"7*{name}", self.page().formula.text)
        self.calculate("7*a", "7")

    def test_assign_takes_the_result_as_it_is_shown(self):
        self.start_with([("a", "1")], "de", thousands="point", decimal="comma",
                        grouping=(1, 0, 0))
        self.calculate("12345678/8", "1.543.209,75")
        self.click(self.dialog().assign)
        self.wait_for_shown(["a"], 0, "a", "1543209,75")
        self.calculate("a+1", "1.543.210,75")
        self.end_and_expect_settings(thousands="point", decimal="comma", grouping=(1, 0, 0),
                                     variables=[("a", "1543209.75")])

    def test_assign_without_a_result_empties_the_value(self):
        self.start_with([("a", "1")])
        self.click(self.dialog().assign)
        self.wait_for_shown(["a"], 0, "a", "")
        self.end_and_expect_settings(variables=[("a", "")])

    def test_take_name_replaces_the_selection_of_the_formula(self):
        self.start_with([("a", "1"), ("beta", "20")])
        self.type_formula("1+23+4")
        self.display.press("Left", "Left", "shift+Left", "shift+Left")
        self.wait_for_page_where(lambda page: page.formula.selection == [2, 4], "the selection")
        self.click_row(1)
        self.click(self.dialog().take_name)
        page = self.wait_for_formula("1+beta+4")
        self.assertEqual([6, 6], page.formula.selection)
        self.click(self.dialog().take_name)
        self.wait_for_formula("1+betabeta+4")

    def test_formula_with_a_taken_name_is_kept_by_the_next_key(self):
        self.start_with([("a", "1")])
        self.calculate("1+1", "2")
        self.click(self.dialog().take_name)
        self.wait_for_formula("1+1a")
        self.click_key("+")
        self.wait_for_formula("1+1a+")

    def test_name_in_the_box_is_taken_when_its_name_is(self):
        self.start_with([("a", "5")])
        self.type_name("width")
        self.click(self.dialog().take_name)
        self.wait_for_formula("width")
        self.click_key("=")
        self.wait_for_result("5")

    def test_longest_value_and_one_that_is_longer(self):
        longest = "1" + "+1" * 44330
        self.assertEqual(88661, len(longest))
        for value, kept in ((longest, longest), (longest + "+", longest[:-1] + "…")):
            with self.subTest(characters=len(value)):
                self.start_with([("a", "1")])
                self.click_and_focus("value")
                self.display.press("ctrl+Home", "ctrl+shift+End")
                self.paste(value)
                self.wait_for_dialog_where(lambda dialog, v=value: dialog.value.text == v,
                                           "the long value")
                self.click_and_focus("name")
                self.end_and_expect_settings(variables=[("a", kept)])
                self.start_once_more()
                self.wait_for_shown(["a"], 0, "a", kept)
                self.program.close()

    def test_longest_value_is_taken_from_a_result_and_used(self):
        self.start_with([("a", "1")], precision=10000)
        self.calculate("1/3", "0." + "3" * 10000)
        self.click(self.dialog().assign)
        self.wait_for_shown(["a"], 0, "a", "0." + "3" * 10000)
        self.calculate("1/a", "3")
        self.end_and_expect_settings(precision=10000, variables=[("a", "0." + "3" * 10000)])

    def test_line_breaks_in_a_pasted_value(self):
        self.start_with([("a", "1"), ("b", "2")])
        self.click_and_focus("value")
        self.display.press("ctrl+End")
        self.paste("0+\r\n2\r\n")
        self.wait_for_shown(["a", "b"], 0, "a", "10+\r\n2\r\n")
        self.calculate("a", "12")
        self.end_and_expect_settings(variables=[("a", "10+  2  "), ("b", "2")])
        self.start_once_more()
        self.wait_for_shown(["a", "b"], 0, "a", "10+  2  ")
        self.calculate("a", "12")

    def test_selection_commits_what_was_typed(self):
        self.start_with([("a", "1"), ("b", "2")])
        self.type_name("first")
        self.click_row(1)
        self.wait_for_shown(["first", "b"], 1, "b", "2")
        self.type_value("22")
        self.click_row(0)
        self.wait_for_shown(["first", "b"], 0, "first", "1")
        self.click_row(1)
        self.wait_for_shown(["first", "b"], 1, "b", "22")

    def test_same_name_twice_is_kept_and_the_first_counts(self):
        self.start_with([("a", "1"), ("a", "2")])
        self.calculate("a", "1")
        self.end_and_expect_settings(variables=[("a", "1"), ("a", "2")])

    def test_resizing_gives_list_and_value_the_room(self):
        self.start_with([("a", "1")])
        for width, height in ((700, 500), (250, 180), (378, 257)):
            self.display.resize(self.dialog().window, width, height)
            dialog = self.wait_for_dialog_where(
                lambda dialog, w=width: abs(dialog.window.rect[2] - w) < 20
                and dialog.value.rect[2] == max(dialog.window.client[2] - 145, 0),
                f"a width of {width}")
            x, y, w, h = dialog.window.client
            self.assertEqual([x + 10, y + 30, 120, h - 95], dialog.list.rect)
            self.assertEqual([x + 135, y + 80, w - 145, max(h - 145, 0)], dialog.value.rect)
            self.assertEqual([x + 135, y + 30, 120, 20], dialog.name.rect)
            self.assertEqual([h - 58, h - 30, h - 58, h - 30, h - 30],
                             [button.rect[1] - y for button in (
                                 dialog.assign, dialog.take_name, dialog.add, dialog.insert,
                                 dialog.delete)])
            self.wait_until_painted([
                dialog.assign, dialog.take_name, dialog.list, dialog.name, dialog.value])

    def test_keyboard_alone(self):
        self.start_with([("a", "1"), ("b", "2")])
        order = ["list", "name", "value", "assign", "take_name", "add", "insert", "delete"]
        self.wait_for_focus_on("list")
        for key, step in (("Tab", 1), ("shift+Tab", -1)):
            for index in range(1, 10):
                self.display.press(key)
                self.wait_for_focus_on(order[step * index % 8])
            # Back to where the round began.
            self.display.press("shift+Tab" if step == 1 else "Tab")
            self.wait_for_focus_on("list")
        self.display.press("Down")
        self.wait_for_shown(["a", "b"], 1, "b", "2")
        self.display.press("Tab")
        self.wait_for_focus_on("name")
        self.display.press("Home", "shift+End", "c", "Tab")
        self.wait_for_rows(["a", "c"], 1)
        self.display.press("Home", "shift+End", "9")
        self.display.press("Tab", "Tab", "Tab", "space")
        self.wait_for_shown(["a", "c", "var00"], 2, "var00", "")
        self.display.press("Tab", "Tab", "Tab", "Tab", "Tab", "Tab")
        self.wait_for_focus_on("delete")
        self.display.press("space")
        self.wait_for_shown(["a", "c"], 1, "c", "9")
        self.display.press("alt+F4")
        self.program.wait_until_hidden("Calculator variables")
        self.calculate_on_page("c", "9")
        self.end_and_expect_settings(variables=[("a", "1"), ("c", "9")])


if __name__ == "__main__":
    unittest.main()
