#!/usr/bin/env python3
"""The menu of the main window: what it says, and what its items do by mouse and by keyboard."""

import unittest

from gui_case import CALCULATOR, MAIN_TITLE, GuiCase
from program import MENU_CLASS, middle

# Ids with the captions in both languages.
MENU = {
    100: ("Application", "Applikation"),
    101: ("Options", "Optionen"),
    102: ("Exit", "Beenden"),
    200: ("Algebra", "Algebra"),
    201: ("Scientific Calculator", "Wissenschaftlicher Rechner"),
    202: ("Algebraic Equations", "Algebraische Gleichungen"),
    203: ("Systems of Linear Equations", "Lineare Gleichungssysteme"),
    204: ("Polynomial Calculation", "Polynomberechnung"),
    205: ("Prime Numbers", "Primzahlen"),
    206: ("Prime Factors && Divisors", "Primfaktoren && Teiler"),
    300: ("Help", "Hilfe"),
    301: ("Show Help", "Hilfe anzeigen"),
    302: ("Info ...", "Info ..."),
}
OPTIONS = 101
EXIT = 102
WITH_PAGE = (CALCULATOR, 202, 203, 204, 205, 206)
INFO = 302


class MenuTest(GuiCase):
    def close_front_window(self, program, title):
        self.display.press("alt+F4")
        program.wait_until_hidden(title)

    def test_captions_in_both_languages(self):
        for index, language in enumerate(("en", "de")):
            with self.subTest(language):
                program = self.start_again(language)
                bar = program.menu(program.find(title=MAIN_TITLE))
                items = {item["id"]: item["text"] for drop_down in bar
                         for item in [drop_down, *drop_down["items"]]}
                self.assertEqual({item: captions[index] for item, captions in MENU.items()}, items)
                self.assertEqual(list(MENU), list(items), "another order")
                self.assertEqual([2, 6, 2], [len(drop_down["items"]) for drop_down in bar])

    def test_no_item_of_a_page_is_grey(self):
        program = self.start_again()
        for _ in range(2):
            self.check_items_of_pages(program, set(WITH_PAGE))

    def test_items_by_keyboard_and_by_mouse(self):
        program = self.start_again()
        for choose in (self.choose_menu, self.choose_menu_by_mouse):
            choose(program, OPTIONS)
            program.wait_for_window("Options")
            self.assertEqual({MAIN_TITLE, "Options"}, program.visible_windows())
            self.assertTrue(program.find(title=MAIN_TITLE).enabled)
            self.close_front_window(program, "Options")
        self.choose_menu_by_mouse(program, INFO)
        program.wait_for_window("About Tallymere")
        self.close_front_window(program, "About Tallymere")
        self.choose_menu_by_mouse(program, EXIT)
        self.assertEqual(0, program.wait_until_ended())

    def test_a_menu_that_is_left_does_nothing(self):
        program = self.start_again()
        main = program.find(title=MAIN_TITLE)
        self.display.press("F10", "Down")
        program.wait_for(lambda: program.find(MENU_CLASS), "the menu to drop down")
        self.leave_menu(program)
        self.display.click(*middle(program.menu(main)[2]["rect"]))
        program.wait_for(lambda: program.find(MENU_CLASS), "the menu to drop down")
        x, y, width, height = main.rect
        self.display.click(x + width // 2, y + 2 * height)
        program.wait_until_hidden(None, MENU_CLASS)
        self.choose_menu(program, OPTIONS)
        program.wait_for_window("Options")
        self.assertEqual({MAIN_TITLE, "Options"}, program.visible_windows())

    def test_about_disables_all_other_windows(self):
        program = self.start_again()
        self.choose_menu(program, OPTIONS)
        program.wait_for_window("Options")
        # Away from the menu, which it covers.
        self.display.move(program.find(title="Options"), 100, 100)
        program.wait_for(lambda: program.find(title="Options").rect[0] < 200, "the way to be free")
        self.click(program.find(title=MAIN_TITLE))
        self.choose_menu_by_mouse(program, INFO)
        about = program.wait_for_window("About Tallymere")
        self.assertFalse(program.find(title=MAIN_TITLE).enabled)
        options = program.find(title="Options")
        self.assertFalse(options.enabled)
        for text in ("Prime numbers && factors", "Cancel"):
            self.click(options.control("button", text))
        # Answered after the clicks.
        self.click(about.control("button", "OK"))
        program.wait_until_hidden("About Tallymere")
        options = program.wait_for(lambda: program.find(title="Options"), "the options to stay")
        self.assertTrue(options.enabled)
        self.assertTrue(program.find(title=MAIN_TITLE).enabled)
        self.assertFalse(options.control("button", "Prime numbers && factors").checked)
        self.click(options.control("button", "Cancel"))
        program.wait_until_hidden("Options")
        self.close_program(program)


if __name__ == "__main__":
    unittest.main()
