#!/usr/bin/env python3
"""The program is closed while a run hears no stop."""

import unittest

from gui_case import MAIN_TITLE, file_bytes, settings_text
from pages_case import PagesCase

WM_DESTROY, WM_CLOSE = 0x0002, 0x0010
DEAF = "-1"  # an input for a run that hears no stop


class PagesEndingTest(PagesCase):
    def start_deaf_run(self):
        """With a change of the settings that only their saving keeps."""
        self.write_settings(settings_text(hint=1))
        self.program = self.start()
        self.click(self.program.wait_for_window("About Tallymere").control("button", "OK"))
        self.wait_for_all_windows(self.program)
        self.open_page(self.FACTORIALS)
        self.start_run(self.FACTORIALS, DEAF)
        self.program.wait_for(lambda: "deaf" in self.page(self.FACTORIALS).lines, "the run")

    def assert_ended(self):
        self.assertEqual(0, self.program.wait_until_ended())
        self.program.wait_for(lambda: not self.program.probe.processes(), "no process")
        self.assertNotIn("page fault", self.program.describe(), "memory was freed under the run")
        self.assertEqual(file_bytes(settings_text()), self.settings_bytes())
        self.program.close()

    def test_close_and_destruction_of_the_main_window_and_its_owner(self):
        for message in (WM_CLOSE, WM_DESTROY):
            for title in (MAIN_TITLE, ""):
                with self.subTest(message=message, title=title):
                    self.start_deaf_run()
                    self.program.probe.post(self.dialogs()[title], message)
                    self.assert_ended()

    def test_taskkill(self):
        for kill in range(3):
            with self.subTest(kill=kill):
                self.start_deaf_run()
                self.program.task_kill()
                self.assert_ended()

    def test_close_of_the_page_first(self):
        self.start_deaf_run()
        self.program.probe.post(self.page(self.FACTORIALS).window, WM_CLOSE)
        self.program.wait_until_hidden(self.FACTORIALS)
        self.program.probe.post(self.dialogs()[MAIN_TITLE], WM_CLOSE)
        self.assert_ended()


if __name__ == "__main__":
    unittest.main()
