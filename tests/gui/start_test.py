#!/usr/bin/env python3
"""The first and the second start, and the end of the program."""

import unittest

from gui_case import MAIN_TITLE, GuiCase, file_bytes, settings_text
from program import DIALOG_CLASS


class StartTest(GuiCase):
    def test_first_start_greets_with_about_and_second_does_not(self):
        for language, title in (("en", "About Tallymere"), ("de", "Über Tallymere")):
            with self.subTest(language):
                program = self.start(language)
                about = program.wait_for_window(title)
                main = program.find(title=MAIN_TITLE)
                self.assertFalse(main.enabled)
                self.click(about.control("button", "OK"))
                program.wait_until_hidden(title)
                self.close_program(program)

                program = self.start(language)
                main = program.wait_for_window(MAIN_TITLE)
                self.assertTrue(main.enabled)
                self.assertIsNone(program.find(title=title))
                self.close_program(program)
                self.settings_path().unlink()

    def test_windows_are_made_in_their_order(self):
        """A window that was never shown stands in front of those of its owner that were made
        before it."""
        program = self.start_again()
        self.assertEqual(["About Tallymere", "Options", MAIN_TITLE, "Calculator variables",
                          "Prime factors and divisors", "Prime numbers",
                          "Solve algebraic equations", "Scientific Calculator"],
                         [window.text for window in program.probe.windows()
                          if window.class_name == DIALOG_CLASS and window.text])

    def test_first_run_leaves_the_settings_as_they_are_at_first(self):
        program = self.start()
        about = program.wait_for_window("About Tallymere")
        self.click(about.control("button", "OK"))
        self.close_program(program)
        self.assertEqual(file_bytes(settings_text()), self.settings_bytes())

    def test_greeting_that_was_asked_for_changes_nothing_else(self):
        self.write_settings(settings_text(decimal="comma", thousands="point", hint=1))
        program = self.start()
        program.wait_for_window("About Tallymere")
        self.display.press("alt+F4")
        program.wait_until_hidden("About Tallymere")
        self.close_program(program)
        self.assertEqual(file_bytes(settings_text(decimal="comma", thousands="point")),
                         self.settings_bytes())

    def test_greeting_that_was_cut_off_comes_again(self):
        for _ in range(2):
            program = self.start()
            program.wait_for_window("About Tallymere")
            program.close()
            self.assertFalse(self.settings_path().exists())

    def test_closing_the_main_window_ends_the_program(self):
        program = self.start_again()
        self.display.press("alt+F4")
        self.assertEqual(0, program.wait_until_ended())
        self.assertEqual([], program.probe.processes())
        self.assertEqual(file_bytes(settings_text()), self.settings_bytes())


if __name__ == "__main__":
    unittest.main()
