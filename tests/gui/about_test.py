#!/usr/bin/env python3
"""The About window."""

import unittest

from form_check import check_form, check_texts
from gui_case import MAIN_TITLE, GuiCase, desktop

INFO = 302  # its menu item
HOMEPAGE = "Homepage\r\ntallymere.example"  # on its button
TITLES = {"en": "About Tallymere", "de": "Über Tallymere"}


class AboutTest(GuiCase):
    def about_texts(self):
        """The texts of the controls that say something of this program."""
        return {
            0: MAIN_TITLE,
            1: self.texts["TextAboutFreewareYouCanUse"].replace("%s", "Tallymere"),
            2: self.texts["TextAboutCreationDate"].replace("%s", desktop().forms["build_time"][:10]),
            3: f"© {desktop().forms['build_time'][:4]} The Tallymere Project",
            4: self.texts["TextAboutEMail"].replace("%s", "tallymere@example.org"),
            5: HOMEPAGE,
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
        for closing in ("button", "window"):
            self.choose_menu(program, INFO)
            about = program.wait_for_window(TITLES["en"])
            self.assertFalse(program.find(title=MAIN_TITLE).enabled)
            if closing == "window":
                self.display.press("alt+F4")
            else:
                self.click(about.control("button", "OK"))
            program.wait_until_hidden(TITLES["en"])
            self.assertTrue(program.wait_for_window(MAIN_TITLE).enabled)
        self.close_program(program)

    def open_about(self):
        """The program with About on the screen and the focus on its first button."""
        program = self.start_again()
        self.choose_menu(program, INFO)
        program.wait_for_window(TITLES["en"])
        self.wait_for_focus(program, HOMEPAGE)
        return program

    def wait_for_focus(self, program, text):
        def focus_text():
            about = program.find(title=TITLES["en"])
            control = about and about.focused_control()
            return control and control.text
        program.wait_for(lambda: focus_text() == text, f"focus on {text!r}")

    def test_tab_key_visits_its_buttons(self):
        program = self.open_about()
        buttons = [HOMEPAGE, "Donate", "OK"]
        for key, order in (("Tab", [1, 2, 0, 1]), ("shift+Tab", [0, 2, 1])):
            for index in order:
                self.display.press(key)
                self.wait_for_focus(program, buttons[index])

    def test_escape_has_no_effect(self):
        program = self.open_about()
        # Keys are handled in their order: the Tab that moves the focus comes after the Escape.
        for button in ("Donate", "OK", HOMEPAGE):
            self.display.press("Escape", "Tab")
            self.wait_for_focus(program, button)
        self.assertFalse(program.find(title=MAIN_TITLE).enabled)


if __name__ == "__main__":
    unittest.main()
