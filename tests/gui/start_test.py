#!/usr/bin/env python3
"""The first and the second start, and the end of the program."""

import unittest

from calculator_case import calculator_settings
from gui_case import MAIN_TITLE, GuiCase, file_bytes, settings_text
from program import DIALOG_CLASS

# Late in their order, by the items of the menu.
LATE_WINDOWS = {204: "Polynomial calculation", 203: "Systems of linear equations",
                302: "About Tallymere"}
STARTS = 10

PAGES = {201: "Scientific Calculator", 202: "Solve algebraic equations", 205: "Prime numbers",
         206: "Prime factors and divisors"}


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
        """A window that was never shown stands in front of those that were made before it."""
        program = self.start_again()
        self.assertEqual(["Calculator variables", "Systems of linear equations", "About Tallymere",
                          "Polynomial calculation", "Options", "Prime factors and divisors",
                          "Prime numbers", "Solve algebraic equations", "Scientific Calculator",
                          MAIN_TITLE],
                         [window.text for window in program.probe.windows()
                          if window.class_name == DIALOG_CLASS and window.text])

    def test_windows_are_made_behind_the_greeting(self):
        program = self.start()
        about = program.wait_for_window("About Tallymere")
        self.wait_until_made(program)
        self.assertEqual({MAIN_TITLE, "About Tallymere"}, program.visible_windows())
        main = program.find(title=MAIN_TITLE)
        self.assertFalse(main.enabled)
        self.assertEqual([2, 6, 2], [len(item["items"]) for item in program.menu(main)])
        self.click(about.control("button", "OK"))
        program.wait_until_hidden("About Tallymere")
        for item, title in PAGES.items():
            self.choose_menu_by_mouse(program, item)
            program.wait_for_window(title)
            self.display.press("alt+F4")
            program.wait_until_hidden(title)
        self.close_program(program)

    def test_page_that_is_asked_for_at_once(self):
        for item, title in PAGES.items():
            with self.subTest(title):
                self.write_settings(settings_text())
                program = self.start()
                self.choose_menu(program, item)
                program.wait_for_window(title)
                self.wait_until_made(program)
                self.assertEqual({MAIN_TITLE, title}, program.visible_windows())
                titles = [window.text for window in program.probe.windows()
                          if window.class_name == DIALOG_CLASS and window.text]
                self.assertEqual(len(set(titles)), len(titles), "a window was made twice")
                self.assertLessEqual(set(PAGES.values()), set(titles))

    def test_window_that_is_asked_for_before_it_is_made(self):
        self.write_settings(settings_text())
        for item, title in LATE_WINDOWS.items():
            with self.subTest(title):
                program = self.start_and_choose_early(item, title)
                program.wait_for_window(title)
                self.wait_until_made(program)
                self.assertEqual({MAIN_TITLE, title}, program.visible_windows())
                titles = [window.text for window in program.probe.windows()]
                self.assertEqual(1, titles.count(title), "it was made twice")

    def start_and_choose_early(self, item, title):
        """Starts the program until an item is chosen before its window is made, which takes more
        than one start where the machine is busy with others."""
        for _ in range(STARTS):
            program = self.start()
            if program.probe.choose_early(item, MAIN_TITLE, title):
                return program
            program.close()
        raise AssertionError(f"{title!r} was always there first")

    def test_program_that_is_closed_at_once_keeps_its_settings(self):
        text = calculator_settings(precision=12, variables=[("rate", "1.5"), ("x", "2*rate")])
        for _ in range(3):
            self.write_settings(text)
            program = self.start()
            program.wait_for_window(MAIN_TITLE)
            self.display.press("alt+F4")
            self.assertEqual(0, program.wait_until_ended())
            self.assertEqual([], program.probe.processes())
            self.assertEqual(file_bytes(text), self.settings_bytes())

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
