#!/usr/bin/env python3
"""How pages are shown and hidden, by the menu and with the main window."""

import unittest

from gui_case import MAIN_TITLE
from pages_case import PagesCase


class PagesWindowTest(PagesCase):
    def shown(self):
        """The titles of what is on the screen, with whether it is maximised."""
        return {title: window.maximised for title, window in self.dialogs().items()
                if window.visible and not window.minimised}

    def wait_for_shown(self, expected):
        self.program.wait_for(lambda: self.shown() == expected, expected)

    def minimise_main_window(self):
        self.display.minimise(self.dialogs()[MAIN_TITLE])
        self.wait_for_shown({})
        self.assertTrue(self.dialogs()[MAIN_TITLE].minimised)

    def restore_main_window(self):
        self.display.activate(self.dialogs()[MAIN_TITLE])

    def test_the_menu_shows_pages_and_closing_hides_them(self):
        self.start_again()
        self.wait_for_shown({MAIN_TITLE: False})
        self.open_page(self.ROOTS)
        self.wait_for_shown({MAIN_TITLE: False, self.ROOTS: False})
        self.open_page(self.FACTORIALS)
        self.wait_for_shown({MAIN_TITLE: False, self.ROOTS: False, self.FACTORIALS: False})

        # One that is shown already comes to the front; the window manager is not told by Wine.
        self.bring_to_front(MAIN_TITLE)
        self.choose_menu(self.program, self.ITEMS[self.ROOTS])
        self.program.wait_for(lambda: self.page(self.ROOTS).window.in_foreground,
                              "the page in the foreground")

        for title, left in ((self.FACTORIALS, {MAIN_TITLE: False, self.ROOTS: False}),
                            (self.ROOTS, {MAIN_TITLE: False})):
            self.bring_to_front(title)
            self.display.press("alt+F4")
            self.wait_for_shown(left)
            self.program.wait_for_window(MAIN_TITLE)
        self.open_page(self.FACTORIALS)

    def test_only_items_without_a_page_are_grey(self):
        self.start_again()
        self.check_items_of_pages(self.program, self.ITEMS.values())

    def test_pages_follow_the_main_window(self):
        self.start_again()
        self.open_page(self.FACTORIALS)
        self.open_page(self.ROOTS)
        self.display.press("alt+space", "x")
        both = {MAIN_TITLE: False, self.ROOTS: True, self.FACTORIALS: False}
        self.wait_for_shown(both)
        place = self.page(self.ROOTS).window.rect
        self.minimise_main_window()
        self.restore_main_window()
        self.wait_for_shown(both)
        self.assertEqual(place, self.page(self.ROOTS).window.rect)

        self.bring_to_front(self.FACTORIALS)
        self.display.press("alt+F4")
        one = {MAIN_TITLE: False, self.ROOTS: True}
        self.wait_for_shown(one)
        self.minimise_main_window()
        self.restore_main_window()
        self.wait_for_shown(one)

    def test_closing_the_main_window_ends_the_program_with_its_pages(self):
        self.start_again()
        self.open_page(self.FACTORIALS)
        self.open_page(self.ROOTS)
        self.bring_to_front(MAIN_TITLE)
        self.close_program(self.program)


if __name__ == "__main__":
    unittest.main()
