#!/usr/bin/env python3
"""The pictures for the eye: there are all of them, and they show something."""

import subprocess
import unittest

from gui_case import GuiCase
from pictures import Pictures


class PicturesTest(GuiCase):
    def test_takes_every_window(self):
        files = Pictures().take_all("en", 96)
        self.assertEqual(
            ["main-en-96", "menu-application-en-96", "menu-algebra-en-96", "menu-help-en-96",
             "options-en-96", "options-list-en-96", "options-refused-en-96",
             "options-language-en-96", "about-en-96", "equations-start-en-96",
             "equations-exact-en-96", "equations-list-en-96", "equations-long-en-96",
             "systems-start-en-96", "systems-parameter-en-96", "systems-largest-en-96",
             "polynomials-start-en-96", "polynomials-quotient-en-96", "polynomials-list-en-96",
             "polynomials-long-en-96",
             "prime-numbers-en-96", "prime-factors-en-96", "calculator-cplx-en-96",
             "calculator-rat-en-96", "calculator-uint-en-96", "calculator-real-en-96",
             "variables-en-96"],
            [path.stem for path in files])
        # Different pictures, in colours.
        self.assertEqual(len(files), len({path.read_bytes() for path in files}))
        for path in files:
            with self.subTest(path.stem):
                told = subprocess.run(["identify", "-format", "%w %h %k", str(path)], check=True,
                                      stdout=subprocess.PIPE, text=True).stdout
                width, height, colours = map(int, told.split())
                self.assertGreater(width, 100)
                self.assertGreater(height, 40)
                self.assertGreater(colours, 50)


if __name__ == "__main__":
    unittest.main()
