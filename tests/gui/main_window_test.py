#!/usr/bin/env python3
"""The main window and its menu bar in both languages at every resolution."""

import unittest

from gui_case import MAIN_TITLE, GuiCase, to_pixels

SIZE = [370, 40]  # with the menu bar


class MainWindowTest(GuiCase):
    def test_has_its_size_and_all_of_its_menu_in_one_row(self):
        for dpi in (96, 120, 144, 192):
            for language in ("en", "de"):
                with self.subTest(language=language, dpi=dpi):
                    program = self.start_again(language, dpi)
                    main = program.wait_for_window(MAIN_TITLE)
                    places = [item["rect"] for item in program.menu(main)]
                    self.assertEqual(1, len({tuple(place[1::2]) for place in places}))
                    x, y, width, height = main.client
                    self.assertLessEqual(places[-1][0] + places[-1][2], x + width)
                    # The items stand below an edge of one pixel.
                    bar_height = y - places[0][1] + 1
                    self.assertEqual(to_pixels(SIZE, dpi), [width, height + bar_height])


if __name__ == "__main__":
    unittest.main()
