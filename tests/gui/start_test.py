#!/usr/bin/env python3
"""The first and the second start, and the end of the program."""

import unittest

from gui_case import MAIN_TITLE, GuiCase


class StartTest(GuiCase):
    def test_first_start_greets_with_about_and_second_does_not(self):
        for language, title in (("en", "About Tallymere"), ("de", "Über Tallymere")):
            with self.subTest(language):
                program = self.start(language)
                about = program.wait_for_window(title)
                self.display.screenshot(f"about-first-start-{language}", about.rect)
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


if __name__ == "__main__":
    unittest.main()
