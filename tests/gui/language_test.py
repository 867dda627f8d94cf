#!/usr/bin/env python3
"""A change of the language, which starts the program anew or waits for the next start."""

import unittest

from gui_case import MAIN_TITLE, file_bytes, settings_text
from options_case import OptionsCase


class LanguageTest(OptionsCase):
    def choose_language(self, program, text):
        """Chooses a language in the options; the program then says that it will be started anew."""
        self.open_options(program)
        self.show_tab(program, 1)
        self.toggle(program, text, True)
        self.press_ok(program)
        return self.wait_for_message(program, self.texts["TextOptHint"],
                                     self.texts["TextOptChangeLanguageSettingWill"])

    def test_ok_starts_the_program_anew_in_the_other_language_and_back(self):
        program = self.start_again()
        old, = program.probe.processes()
        box = self.choose_language(program, "German")
        self.display.press("Return")
        self.assertEqual(0, program.wait_until_ended())
        german, = program.probe.processes()
        self.assertNotEqual(old, german)
        self.assertEqual(file_bytes(settings_text(language="German")), self.settings_bytes())

        self.expect_language("de")
        window = self.open_options(program)
        self.assertTrue(window.control("button", "Automatische Auswahl").visible)
        self.show_tab(program, 1)
        self.assertTrue(self.options(program).control("button", "Deutsch").checked)
        self.display.press("alt+F4")
        program.wait_until_hidden("Optionen")
        self.choose_language(program, "Englisch")
        self.display.press("Return")
        program.wait_for(lambda: german not in program.probe.processes(), "the end of the second")
        english, = program.probe.processes()
        self.assertEqual(file_bytes(settings_text(language="English")), self.settings_bytes())

        self.expect_language("en")
        self.open_options(program)
        self.show_tab(program, 1)
        self.assertTrue(self.options(program).control("button", "English").checked)
        self.display.press("alt+F4")
        program.wait_until_hidden("Options")
        self.choose_menu(program, 102)
        program.wait_for(lambda: english not in program.probe.processes(), "the end of the third")

    def test_cancel_keeps_the_choice_for_the_next_start(self):
        program = self.start_again()
        self.choose_language(program, "German")
        self.leave_message(program, "Hint", "Escape")
        program.wait_until_hidden("Options")
        self.open_options(program)
        self.show_tab(program, 1)
        self.assertTrue(self.options(program).control("button", "German").checked)
        self.display.press("alt+F4")
        program.wait_until_hidden("Options")
        self.close_program(program)
        self.assertEqual(file_bytes(settings_text(language="German")), self.settings_bytes())

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


if __name__ == "__main__":
    unittest.main()
