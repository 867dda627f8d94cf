#!/usr/bin/env python3
"""The About window."""

import unittest

from form_check import check_form, check_texts
from gui_case import MAIN_TITLE, GuiCase

INFO = 302  # its menu item
DONATE = 6
TITLES = {"en": "About Tallymere", "de": "Über Tallymere"}


class AboutTest(GuiCase):
    def about_texts(self):
        """The texts of the controls that say something of this program."""
        return {
            0: "Tallymere 3.9",
            1: self.texts["TextAboutFreewareYouCanUse"].replace("%s", "Tallymere"),
            2: self.texts["TextAboutCreationDate"].replace("%s", "2025-02-02"),
            3: "© 2025 The Tallymere Project",
            4: self.texts["TextAboutEMail"].replace("%s", "tallymere@example.org"),
            5: "Homepage\r\ntallymere.example",
        }

    def test_shows_its_form_in_both_languages_at_every_resolution(self):
        for dpi in (96, 120, 144, 192):
            for language, title in TITLES.items():
                with self.subTest(language=language, dpi=dpi):
                    program = self.start_again(language, dpi)
                    self.choose_menu(program, INFO)
                    about = program.wait_for_window(title)
                    check_form(self, about, self.forms["about"], self.forms["about_size"], dpi,
                               self.about_texts())
                    check_texts(self, program, about, dpi)
                    self.assertTrue(all(control.visible and control.enabled
                                        for control in about.walk()))

    def test_is_modal_and_can_be_opened_again(self):
        program = self.start_again()
        for closing in ("button", "Escape has no effect", "window"):
            self.choose_menu(program, INFO)
            about = program.wait_for_window(TITLES["en"])
            self.assertFalse(program.find(title=MAIN_TITLE).enabled)
            if closing == "window":
                self.display.press("alt+F4")
            else:
                self.display.press("Escape")
                self.click(about.control("button", "OK"))
            program.wait_until_hidden(TITLES["en"])
            self.assertTrue(program.wait_for_window(MAIN_TITLE).enabled)
        self.close_program(program)

    def test_tab_key_visits_its_buttons(self):
        program = self.start_again()
        self.choose_menu(program, INFO)
        program.wait_for_window(TITLES["en"])

        def focus_text():
            control = program.find(title=TITLES["en"]).focused_control()
            return control and control.text

        buttons = ["Homepage\r\ntallymere.example", "Donate", "OK"]
        program.wait_for(lambda: focus_text() == buttons[0], "focus on the first button")
        for key, order in (("Tab", [1, 2, 0, 1]), ("shift+Tab", [0, 2, 1])):
            for index in order:
                self.display.press(key)
                program.wait_for(lambda wanted=buttons[index]: focus_text() == wanted,
                                 f"focus on {buttons[index]!r}")


if __name__ == "__main__":
    unittest.main()
