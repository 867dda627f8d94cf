#!/usr/bin/env python3
"""The windows of the shell by the keyboard alone."""

import unittest

from gui_case import MAIN_TITLE, file_bytes, settings_text
from options_case import OPTIONS, OptionsCase

INFO = 302


class KeyboardTest(OptionsCase):
    def focus(self, program):
        """The class and the text of the control that has the keyboard, in whatever window."""
        for window in program.probe.windows():
            control = window.visible and window.focused_control()
            if control:
                return control.class_name.lower(), control.text
        return None

    def press_to(self, program, keys, class_name, text=""):
        """Presses keys, which lead to that control."""
        self.display.press(*keys.split())
        program.wait_for(lambda: self.focus(program) == (class_name, text),
                         f"{class_name} {text!r} to have the keyboard")

    def press_for(self, program, keys, condition, what):
        """Presses keys, after which the condition holds for the Options window."""
        self.display.press(*keys.split())
        program.wait_for(lambda: condition(self.options(program)), what)

    def press_box(self, program, text, checked):
        self.press_for(program, "space",
                       lambda window: window.control("button", text).checked == checked,
                       f"{text!r} to be {'checked' if checked else 'clear'}")

    def press_for_row(self, program, keys, index, row):
        self.press_for(program, keys, lambda _: self.drop_lists(program)[index].row == row,
                       f"row {row} of list {index}")

    def press_to_radio(self, program, keys, checked):
        self.press_to(program, keys, "button", checked)
        texts = {"Automatic selection", "English", "German"}
        self.assertEqual([checked],
                         [control.text for control in self.options(program).walk()
                          if control.visible and control.text in texts and control.checked])

    def test_options_from_the_menu_to_the_hint(self):
        program = self.start_again()
        self.choose_menu(program, OPTIONS)
        program.wait_for_window("Options")
        self.press_to(program, "Tab", "button", "Automatic selection")
        self.press_box(program, "Automatic selection", False)
        self.press_to(program, "Tab", "combobox")
        self.press_for_row(program, "Down", 0, 0)
        self.press_for_row(program, "Down", 0, 1)
        self.press_to(program, "Tab Tab", "button", "Scientific calculator")
        self.press_to(program, "shift+Tab", "combobox")
        self.press_for(program, "alt+Down", lambda _: self.drop_lists(program)[1].dropped,
                       "the list to drop down")
        self.press_for_row(program, "Home Down Down Return", 1, 2)
        self.press_to(program, "Tab Tab", "button", "Equations && polynomials")
        self.press_box(program, "Equations && polynomials", True)
        self.press_to(program, "Tab", "button", "Prime numbers && factors")
        self.press_box(program, "Prime numbers && factors", True)
        self.press_box(program, "Prime numbers && factors", False)
        # Neither does anything on a box.
        self.display.press("Return", "Escape")

        self.press_to(program, "Tab Tab Tab", "systabcontrol32")
        self.press_for(program, "Right", lambda window: window.children[0].children[1].visible,
                       "the page of the language")
        self.press_to_radio(program, "Tab", "Automatic selection")
        self.press_to_radio(program, "Down", "English")
        self.press_to_radio(program, "Right", "German")
        self.press_to_radio(program, "Down", "German")
        self.press_to_radio(program, "Up", "English")
        self.press_to_radio(program, "Left", "Automatic selection")
        self.press_to_radio(program, "Up", "Automatic selection")
        self.press_to_radio(program, "Down", "English")
        self.press_to(program, "Tab", "button", "OK")
        self.press_to_radio(program, "shift+Tab", "English")
        self.press_to(program, "shift+Tab", "systabcontrol32")
        self.press_for(program, "Left", lambda window: window.children[0].children[0].visible,
                       "the page of the numbers")
        self.press_to(program, "shift+Tab shift+Tab", "button", "OK")
        self.display.press("Return")
        self.wait_for_message(program, "Hint", self.texts["TextOptChangeLanguageSettingWill"])
        self.leave_message(program, "Hint", "Escape")
        program.wait_until_hidden("Options")
        self.close_program(program)
        self.assertEqual(file_bytes(settings_text(language="English", decimal="comma",
                                                  thousands="apostrophe", grouping=(0, 1, 0))),
                         self.settings_bytes())

    def test_buttons_that_close_a_window(self):
        program = self.start_again()
        for key in ("Return", "space"):
            self.choose_menu(program, INFO)
            program.wait_for_window("About Tallymere")
            if self.focus(program) != ("button", "OK"):
                self.press_to(program, "shift+Tab", "button", "OK")
            self.display.press(key)
            program.wait_until_hidden("About Tallymere")
            self.choose_menu(program, OPTIONS)
            program.wait_for_window("Options")
            if self.focus(program) != ("button", "Cancel"):
                self.press_to(program, "shift+Tab", "button", "Cancel")
            self.display.press(key)
            program.wait_until_hidden("Options")
        program.wait_for_window(MAIN_TITLE)
        self.close_program(program)


if __name__ == "__main__":
    unittest.main()
