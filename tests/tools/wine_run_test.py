#!/usr/bin/env python3
"""cmake/wine-run makes its prefix once and whole, keeps what programs saved in it, and leaves
folders alone that it did not make. Stand-ins take the place of Wine."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

WINE_RUN = Path(__file__).resolve().parents[2] / "cmake" / "wine-run"

STAND_INS = {
    # Makes the folders of a prefix; BREAK makes it end half way.
    "wineboot": """
        echo wineboot >>"$CALLS"
        mkdir -p "$WINEPREFIX/drive_c/users/somebody" "$WINEPREFIX/drive_c/windows"
        touch "$WINEPREFIX/user.reg"
        [ -z "${BREAK:-}" ]
    """,
    "wineserver": "true",
    "wine": """
        [ "$1" = reg ] && exit 0
        printf '%s|' "$@"
        exit 7
    """,
}
SETTINGS = "drive_c/users/somebody/AppData/Roaming/Tallymere/UserSettings.ini"


class WineRunTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        programs = self.folder / "bin"
        programs.mkdir()
        for name, body in STAND_INS.items():
            (programs / name).write_text(f"#!/bin/sh\n{body}\n", encoding="ascii")
            (programs / name).chmod(0o755)
        self.prefix = self.folder / "prefix"
        self.calls = self.folder / "calls"
        self.environment = {
            **os.environ, "PATH": f"{programs}:{os.environ['PATH']}", "CALLS": str(self.calls),
            "WINEPREFIX": str(self.prefix)}

    def wine_run(self, *arguments, **environment):
        return subprocess.run(
            [str(WINE_RUN), *arguments], env={**self.environment, **environment}, check=False,
            stdin=subprocess.DEVNULL, capture_output=True, text=True)

    def prepare(self, **environment):
        result = self.wine_run("--prepare", **environment)
        self.assertEqual((0, ""), (result.returncode, result.stdout), result.stderr)

    def times_made(self):
        return self.calls.read_text(encoding="ascii").count("wineboot") if self.calls.exists() else 0

    def save_settings(self):
        (self.prefix / SETTINGS).parent.mkdir(parents=True)
        (self.prefix / SETTINGS).write_text("mine", encoding="ascii")

    def assert_made_again_with_settings(self):
        half = self.prefix / "drive_c" / "windows" / "half_of.dll"
        half.touch()
        self.prepare()
        self.assertEqual(2, self.times_made())
        self.assertFalse(half.exists())
        self.assertTrue((self.prefix / "user.reg").exists())
        self.assertEqual("mine", (self.prefix / SETTINGS).read_text(encoding="ascii"))

    def test_makes_the_prefix_once(self):
        self.prepare()
        self.prepare()
        self.prepare(WINEPREFIX=f"{self.prefix}/")
        self.assertEqual(1, self.times_made())

    def test_makes_the_prefix_once_for_many_at_a_time(self):
        calls = [subprocess.Popen([str(WINE_RUN), "--prepare"], env=self.environment,
                                  stdin=subprocess.DEVNULL) for _ in range(8)]
        self.assertEqual([0] * 8, [call.wait() for call in calls])
        self.assertEqual(1, self.times_made())

    def test_passes_arguments_and_exit_status_through(self):
        result = self.wine_run("program.exe", "two words", "")
        self.assertEqual((7, "program.exe|two words||"), (result.returncode, result.stdout))

    def test_takes_an_empty_folder(self):
        self.prefix.mkdir()
        self.prepare()
        self.assertEqual(1, self.times_made())

    def test_leaves_a_folder_of_somebody_else_alone(self):
        self.save_settings()
        link = self.folder / "link"
        link.symlink_to(self.prefix)
        for name in (self.prefix, f"{self.prefix}/", link):
            before = sorted(self.folder.rglob("*"))
            result = self.wine_run("program.exe", WINEPREFIX=str(name))
            self.assertEqual((1, ""), (result.returncode, result.stdout))
            self.assertIn("was not made here", result.stderr)
            self.assertEqual(before, sorted(self.folder.rglob("*")))
        self.assertEqual(0, self.times_made())

    def test_makes_a_prefix_again_that_was_interrupted(self):
        result = self.wine_run("program.exe", BREAK="1")
        self.assertEqual((1, ""), (result.returncode, result.stdout))
        self.assertIn(f"see {self.prefix}.log", result.stderr)
        self.save_settings()
        self.assert_made_again_with_settings()

    def test_makes_a_prefix_again_that_was_made_differently(self):
        self.prepare()
        self.save_settings()
        ready, = self.prefix.glob(".ready-*")
        ready.rename(self.prefix / ".ready-as-it-was-long-ago")
        self.assert_made_again_with_settings()
        self.assertEqual([ready], list(self.prefix.glob(".ready-*")))


if __name__ == "__main__":
    unittest.main()
