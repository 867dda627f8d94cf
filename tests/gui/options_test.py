#!/usr/bin/env python3
"""The Options window, and what its OK leaves in the settings file."""

import unittest

from form_check import check_form, check_texts
from gui_case import MAIN_TITLE, file_bytes, settings_text
from options_case import OptionsCase


class OptionsTest(OptionsCase):
    def test_shows_its_form_in_both_languages_at_every_resolution(self):
        for dpi in (96, 120, 144, 192):
            for language in ("en", "de"):
                with self.subTest(language=language, dpi=dpi):
                    program = self.start_again(language, dpi)
                    window = self.open_options(program)
                    check_form(self, window, self.forms["options"], self.forms["options_size"],
                               dpi)
                    check_texts(self, program, window, dpi)
                    tabs = window.children[0]
                    self.assertEqual([self.texts["TextOptNumberPresentation"],
                                      self.texts["TextOptLanguage"]],
                                     [tab["text"] for tab in tabs.tabs])
                    self.assertEqual([True, False], [page.visible for page in tabs.children])
                    self.show_tab(program, 1)
                    pages = self.options(program).children[0].children
                    self.assertEqual([False, True], [page.visible for page in pages])

    def test_is_centred_on_the_screen(self):
        x, y, width, height = self.open_options(self.start_again()).rect
        self.assertEqual([(2560 - width) // 2, (1600 - height) // 2], [x, y])

    def test_ok_writes_every_choice(self):
        program = self.start_again()
        self.open_options(program)
        self.toggle(program, "Automatic selection", False)
        self.select_row(program, 0, 1)
        self.select_row(program, 1, 3)
        self.toggle(program, "Scientific calculator", True)
        self.toggle(program, "Prime numbers && factors", True)
        self.press_ok(program)
        program.wait_until_hidden("Options")
        self.close_program(program)
        self.assertEqual(
            file_bytes(settings_text(decimal="comma", thousands="space_U202F",
                                     grouping=(1, 0, 1))),
            self.settings_bytes())

    def test_shows_what_the_settings_file_has(self):
        self.write_settings(settings_text(decimal="comma", thousands="apostrophe",
                                          grouping=(0, 1, 0), language="German"))
        program = self.start(speaks="de")
        program.wait_for_window(MAIN_TITLE)
        self.open_options(program)
        self.assertEqual([1, 2], [box.row for box in self.drop_lists(program)])
        self.assertTrue(all(box.enabled for box in self.drop_lists(program)))
        window = self.options(program)
        checked = {control.text for control in window.walk() if control.data.get("checked")}
        self.assertEqual({"Gleichungen && Polynome", "Deutsch"}, checked)

    def test_cancel_and_an_ok_without_change_write_nothing(self):
        program = self.start_again()
        before = self.settings_bytes()
        self.open_options(program)
        self.toggle(program, "Equations && polynomials", True)
        self.click(self.options(program).control("button", "Cancel"))
        program.wait_until_hidden("Options")
        window = self.open_options(program)
        self.assertFalse(window.control("button", "Equations && polynomials").checked)
        self.press_ok(program)
        program.wait_until_hidden("Options")
        self.close_program(program)
        self.assertEqual(before, self.settings_bytes())

    def test_lists_are_enabled_with_automatic_selection_off(self):
        program = self.start_again()
        self.open_options(program)
        for automatic in (True, False, True):
            if self.options(program).control("button", "Automatic selection").checked != automatic:
                self.toggle(program, "Automatic selection", automatic)
            program.wait_for(
                lambda wanted=automatic: all(box.enabled != wanted
                                             for box in self.drop_lists(program)),
                "the lists to follow the box")
            window = self.options(program)
            for label in ("Decimal separator", "Thousands separator"):
                self.assertEqual(not automatic, window.control("static", label).enabled)
        self.assertEqual([["Point", "Comma"],
                          ["Point", "Comma", "Apostrophe", "Narrow space U+202F"]],
                         [box.rows for box in self.drop_lists(program)])

    def test_equal_or_missing_separators_are_refused(self):
        program = self.start_again()
        before = self.settings_bytes()
        self.open_options(program)
        self.toggle(program, "Automatic selection", False)
        for rows in ((), ((0, 0), (1, 0)), ((0, 1), (1, 1))):
            for index, row in rows:
                self.select_row(program, index, row)
            self.press_ok(program)
            box = self.wait_for_message(program, "Error",
                                        self.texts["TextErrDecimalThousandsSeparatorSame"])
            self.leave_message(program, "Error")
            program.wait_for(lambda: self.options(program).enabled, "the options to go on")
        self.click(self.options(program).control("button", "Cancel"))
        program.wait_until_hidden("Options")
        self.close_program(program)
        self.assertEqual(before, self.settings_bytes())

    def test_tab_key_visits_the_controls_in_order(self):
        program = self.start_again()
        self.open_options(program)
        window = self.options(program)
        stops = [window.children[0].handle] + [
            window.control("button", text).handle for text in
            ("Automatic selection", "Scientific calculator", "Equations && polynomials",
             "Prime numbers && factors", "OK", "Cancel")]

        def focus():
            control = self.options(program).focused_control()
            return control and control.handle

        program.wait_for(lambda: focus() == stops[0], "focus on the tabs")
        for key, order in (("Tab", [1, 2, 3, 4, 5, 6, 0, 1]), ("shift+Tab", [0, 6, 5])):
            for index in order:
                self.display.press(key)
                program.wait_for(lambda wanted=stops[index]: focus() == wanted,
                                 f"focus on stop {index} by {key}")


if __name__ == "__main__":
    unittest.main()
