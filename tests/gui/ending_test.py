#!/usr/bin/env python3
"""Other programs end the program: whatever they do to which window, the settings are saved and no
process is left."""

import unittest

from calculator_case import CalculatorCase
from gui_case import CALCULATOR, MAIN_TITLE, file_bytes, settings_text
from options_case import OPTIONS
from program import DIALOG_CLASS, MENU_CLASS

WM_DESTROY, WM_CLOSE = 0x0002, 0x0010

# Takes longer than anybody waits.
ENDLESS = "npr(1e12;1e11)"

KILLS = 20


class EndingTest(CalculatorCase):
    def start_changed(self, greeted=True):
        """Starts the program, with a change of the settings that only their saving keeps."""
        self.write_settings(settings_text(hint=1))
        program = self.start()
        about = program.wait_for_window("About Tallymere")
        if greeted:
            self.click(about.control("button", "OK"))
            self.wait_for_all_windows(program)
        return program

    def assert_ended(self, program):
        self.assertEqual(0, program.wait_until_ended())
        program.wait_for(lambda: not program.probe.processes(), "the end of all processes")
        self.assertEqual(file_bytes(settings_text()), self.settings_bytes())
        program.close()

    def start_run(self, program):
        self.choose_menu(program, CALCULATOR)
        program.wait_for_window("Scientific Calculator")
        self.display.type_text(ENDLESS)
        self.display.press("Return")
        program.wait_for(lambda: not program.find(title=MAIN_TITLE).enabled, "the run to begin")

    def drop_menu(self, program):
        self.drop_down(program, CALCULATOR)

    def open_options(self, program):
        self.choose_menu(program, OPTIONS)
        program.wait_for_window("Options")

    def test_taskkill(self):
        states = [lambda program: None, self.start_run, self.drop_menu, self.open_options]
        for kill in range(KILLS):
            # Each fifth time while the greeting of the first start is there.
            state = kill % (len(states) + 1)
            with self.subTest(kill=kill):
                program = self.start_changed(greeted=state < len(states))
                if state < len(states):
                    states[state](program)
                program.task_kill()
                self.assert_ended(program)

    def test_close_and_destruction_of_the_main_window_and_its_owner(self):
        for message in (WM_CLOSE, WM_DESTROY):
            for title in (MAIN_TITLE, ""):
                for state in (lambda program: None, self.start_run):
                    with self.subTest(message=message, title=title):
                        program = self.start_changed()
                        state(program)
                        window, = (window for window in program.probe.windows()
                                   if window.class_name == DIALOG_CLASS and window.text == title)
                        program.probe.post(window, message)
                        self.assert_ended(program)


if __name__ == "__main__":
    unittest.main()
