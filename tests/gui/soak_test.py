#!/usr/bin/env python3
"""What tools/soak does for long: it comes to rest in every window, and notices a program that is
gone or hangs. TALLYMERE_SEED chooses other keys and clicks."""

import os
import signal
import unittest
from unittest import mock

import desktop
import soak
from growth import ALLOWED

SYSTEMS = 203  # the menu item of the page that loads and saves files
SEED = int(os.environ.get("TALLYMERE_SEED", "20261122"))


class SoakTest(unittest.TestCase):
    def setUp(self):
        print(f"TALLYMERE_SEED={SEED}", flush=True)
        self.soak = soak.Soak()
        self.addCleanup(self.soak.doCleanups)
        self.soak.begin(SEED)

    def test_comes_to_rest_in_every_window(self):
        for item in sorted({*soak.VISITS}):
            with self.subTest(item=item):
                bursts = self.soak.bursts
                self.soak.visit(item)
                self.assertGreater(self.soak.bursts, bursts)
        samples = self.soak.run_for(0.001, 0, lambda *_: None)
        self.assertEqual(1, len(samples))
        for name in ALLOWED:
            self.assertGreater(samples[0][name], 0, name)
        self.soak.end()

    def test_counts_no_handle_for_a_dialog_that_asks_for_a_name(self):
        def open_and_leave():
            self.soak.choose_menu(self.soak.program, SYSTEMS)
            page = self.soak.program.wait_for(self.soak.front, "the page")
            self.soak.click(page.control("button", self.soak.texts["TextLinLoad"]))
            self.soak.program.wait_for(
                lambda: any(map(soak.is_file_dialog, self.soak.dialogs())), "a dialog")
            self.soak.rest()
            return self.soak.counts()["handles"]
        open_and_leave()
        self.assertEqual(open_and_leave(), open_and_leave())
        self.assertEqual(3, self.soak.file_dialogs)

    def test_notices_a_program_that_is_gone(self):
        self.soak.visit_some()
        self.soak.program.probe.end(self.soak.process)
        with self.assertRaisesRegex(AssertionError, "the processes"):
            self.soak.visit_some()

    def test_notices_a_program_that_hangs(self):
        process = self.soak.program.process
        process.send_signal(signal.SIGSTOP)
        self.addCleanup(process.send_signal, signal.SIGCONT)
        with mock.patch.object(desktop, "SECONDS", 1):
            with self.assertRaisesRegex(AssertionError, "an answer"):
                self.soak.visit_some()


if __name__ == "__main__":
    unittest.main()
