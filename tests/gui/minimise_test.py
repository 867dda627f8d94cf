#!/usr/bin/env python3
"""The main window as the handle of the whole program: minimised and restored, it takes the other
windows along."""

import unittest

from gui_case import MAIN_TITLE
from options_case import OptionsCase


class MinimiseTest(OptionsCase):
    def minimise(self, program):
        self.display.minimise(program.find(title=MAIN_TITLE))
        program.wait_for(lambda: program.find(title=MAIN_TITLE).minimised
                         and program.visible_windows() == {MAIN_TITLE},
                         "the main window to be minimised and the others to be hidden")

    def restore(self, program):
        self.display.activate(program.find(title=MAIN_TITLE))

    def test_windows_are_hidden_and_come_back_with_the_main_window(self):
        program = self.start_again()
        self.open_options(program)
        place = self.options(program).rect
        for _ in range(3):
            self.minimise(program)
            self.restore(program)
            program.wait_for(lambda: self.options(program), "the Options window to come back")
            self.assertEqual(place, self.options(program).rect)
            self.assertFalse(program.find(title=MAIN_TITLE).minimised)
        self.press_ok(program)
        program.wait_until_hidden("Options")

        # A window that was closed does not come back.
        self.minimise(program)
        self.restore(program)
        program.wait_for_window(MAIN_TITLE)
        self.assertEqual({MAIN_TITLE}, program.visible_windows())
        self.close_program(program)


if __name__ == "__main__":
    unittest.main()
