"""The layer check finds each kind of wrong include and is silent about the right ones."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import check_layers  # noqa: E402


class CheckLayersTest(unittest.TestCase):
    def check(self, files):
        """The findings in a tree of these files: {path: [include as written]}."""
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            for name, includes in files.items():
                path = root / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text("#pragma once\n" + "".join(f"#include {i}\n" for i in includes))
            return [f"{file}:{line}: {message}"
                    for file, line, message in check_layers.check(root)]

    def assert_one_finding(self, files, text):
        findings = self.check(files)
        self.assertEqual(len(findings), 1, findings)
        self.assertIn(text, findings[0])

    def test_lower_layers_and_own_folder_are_fine(self):
        self.assertEqual([], self.check({
            "src/core/limb.h": ["<cstdint>"],
            "src/core/limb_tools.h": ['"core/limb.h"'],
            "src/formula/driver.h": ['"core/limb_tools.h"', '"formula/operators.inc"'],
            "src/formula/operators.inc": [],
            "src/calculator/windows/page.h": ["<windows.h>", '"formula/driver.h"'],
            "src/toolkit/dialog.h": ["<commctrl.h>"],
            "tests/core/limb_test.cpp": ['"core/limb.h"', '"support/seed.h"', "<gtest/gtest.h>"],
            "tests/support/seed.h": [],
            "tests/shell_windows/settings_folder.h": ["<shlobj.h>"],
            "tests/gui/window_probe.cpp": ["<winternl.h>"],
        }))

    def test_finds_a_higher_layer(self):
        self.assert_one_finding({
            "src/core/limb.h": ['"formula/driver.h"'],
            "src/formula/driver.h": [],
        }, "src/core/limb.h:2: core/ lies below formula/")

    def test_finds_a_page_included_by_the_windows_of_the_shell(self):
        self.assert_one_finding({
            "src/shell/windows/dialog.h": ['"calculator/windows/page.h"'],
            "src/calculator/windows/page.h": [],
        }, "shell/windows/ lies below calculator/windows/")

    def test_finds_a_neighbour(self):
        self.assert_one_finding({
            "src/functions/roots.h": ['"exact/big_uint.h"'],
            "src/exact/big_uint.h": [],
        }, "neighbours")

    def test_finds_a_circle_in_one_folder(self):
        self.assert_one_finding({
            "src/core/a.h": ['"core/b.h"'],
            "src/core/b.h": ['"core/c.h"'],
            "src/core/c.h": ['"core/a.h"'],
        }, "src/core/a.h -> src/core/b.h -> src/core/c.h -> src/core/a.h")

    def test_finds_windows_headers_in_the_logic_half(self):
        for folder in ("src/core", "console", "tests/core"):
            self.assert_one_finding({f"{folder}/clock.h": ["<Windows.h>"]}, "windows/ folder")

    def test_finds_paths_that_do_not_start_at_src(self):
        files = {"src/core/limb.h": []}
        self.assert_one_finding({**files, "src/core/a.h": ['"limb.h"']}, "no path from src/")
        self.assert_one_finding({**files, "src/core/a.h": ['"../core/limb.h"']}, "no path from src/")

    def test_finds_a_folder_without_a_layer(self):
        self.assert_one_finding({
            "src/attic/a.h": ['"core/limb.h"'],
            "src/core/limb.h": [],
        }, "src/attic has no layer")

    def test_the_toolkit_knows_plain_rooms_alone(self):
        files = {f"src/{room}/a.h": [] for room in ("core", "layout", "shell", "formula", "calculator")}
        for room in ("core", "layout"):
            self.assertEqual([], self.check({**files, "src/toolkit/b.h": [f'"{room}/a.h"']}))
        for room in ("shell", "formula", "calculator"):
            self.assert_one_finding({**files, "src/toolkit/b.h": [f'"{room}/a.h"']},
                                    f"toolkit/ and {room}/ are neighbours")

    def test_all_rooms_stand_on_known_rooms(self):
        for room, below in check_layers.STANDS_ON.items():
            self.assertLessEqual(set(below), set(check_layers.STANDS_ON), room)
            self.assertNotIn(room, check_layers.rooms_below(room))


if __name__ == "__main__":
    unittest.main()
