#!/usr/bin/env python3
"""A change of the language, which starts the program anew or waits for the next start."""

import unittest

from gui_case import MAIN_TITLE, file_bytes, settings_text
from options_case import OptionsCase


class LanguageTest(OptionsCase):
    def choose_german(self, program):
        """Chooses German in the options; the program then says that it will be started anew."""
        self.open_options(program)
        self.show_tab(program, 1)
        self.toggle(program, "German", True)
        self.press_ok(program)
        box = self.wait_for_message(program, "Hint",
                                    self.texts["TextOptChangeLanguageSettingWill"])
        self.display.screenshot("language-hint", box.rect)
        return box

    def german_settings(self):
        return file_bytes(settings_text(language="German"))

    def test_ok_starts_the_program_anew_in_the_other_language(self):
        program = self.start_again()
        old, = program.probe.processes()
        self.choose_german(program)
        self.display.press("Return")
        self.assertEqual(0, program.wait_until_ended())
        new, = program.probe.processes()
        self.assertNotEqual(old, new)
        self.assertEqual(self.german_settings(), self.settings_bytes())

        self.expect_language("de")
        window = self.open_options(program)
        self.assertTrue(window.control("button", "Automatische Auswahl").visible)
        self.show_tab(program, 1)
        self.assertTrue(self.options(program).control("button", "Deutsch").checked)
        self.display.press("alt+F4")
        program.wait_until_hidden("Optionen")
        self.choose_menu(program, 102)
        program.wait_for(lambda: not program.probe.processes(), "the end of the second program")

    def test_cancel_keeps_the_choice_for_the_next_start(self):
        program = self.start_again()
        self.choose_german(program)
        self.leave_message(program, "Hint", "Escape")
        program.wait_until_hidden("Options")
        self.open_options(program)
        self.show_tab(program, 1)
        self.assertTrue(self.options(program).control("button", "German").checked)
        self.display.press("alt+F4")
        program.wait_until_hidden("Options")
        self.close_program(program)
        self.assertEqual(self.german_settings(), self.settings_bytes())

        program = self.start(speaks="de")
        program.wait_for_window(MAIN_TITLE)
        self.open_options(program)

    def test_automatic_language_is_that_of_the_user(self):
        for language in ("en", "de"):
            with self.subTest(language):
                program = self.start_again(language)
                self.open_options(program)
                self.show_tab(program, 1)
                self.assertTrue(self.options(program).control(
                    "button", self.texts["TextOptAutomaticSelection2"]).checked)
                program.close()


if __name__ == "__main__":
    unittest.main()
