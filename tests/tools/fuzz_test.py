"""The harnesses of fuzz/ are complete: seeds, words for texts, a row in the README; and tools/fuzz
refuses what it does not know."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from help_pages import functions, operators  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
FUZZ = ROOT / "fuzz"
LARGEST_SEED = 1_000


def harnesses():
    return re.findall(r'\{"(\w+)", Fuzz\w+\}', (FUZZ / "harnesses.cpp").read_text())


def folders(kind):
    place = FUZZ / kind
    return sorted(path.name for path in place.iterdir()) if place.exists() else []


def words(dictionary):
    """The words of a dictionary, as text."""
    text = (FUZZ / "dictionaries" / f"{dictionary}.dict").read_text(encoding="ascii")
    return [re.sub(rb"\\x(..)", lambda code: bytes([int(code[1], 16)]),
                   word.encode()).decode("utf-8", errors="replace")
            for word in re.findall(r'^"(.+)"$', text, re.M)]


class HarnessesTest(unittest.TestCase):
    def test_each_harness_has_small_seeds(self):
        self.assertGreater(len(harnesses()), 10)
        self.assertEqual(sorted(harnesses()), folders("seeds"))
        for seed in FUZZ.glob("seeds/*/*"):
            with self.subTest(seed=seed.name):
                self.assertTrue(0 < seed.stat().st_size <= LARGEST_SEED)

    def test_each_harness_has_a_row_in_the_document(self):
        rows = re.findall(r"^\| `(\w+)` \|", (FUZZ / "README.md").read_text(encoding="utf-8"), re.M)
        self.assertEqual(harnesses(), rows)

    def test_dictionaries_and_findings_belong_to_harnesses(self):
        named = {name.removesuffix(".dict") for name in folders("dictionaries")}
        self.assertLess({"formulas", "settings", "csv"}, named)
        self.assertLessEqual(named | set(folders("regressions")), set(harnesses()))

    def test_formulas_have_the_words_of_all_functions_and_operators(self):
        known = words("formulas")
        for name in functions():
            self.assertIn(f"{name}(", known)
        for name in operators():
            self.assertTrue(any(name in word for word in known), name)


class CommandTest(unittest.TestCase):
    def run_command(self, *arguments):
        done = subprocess.run([str(ROOT / "tools" / "fuzz"), *arguments], check=False,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=60)
        return done.returncode, done.stdout.decode()

    def test_help(self):
        status, output = self.run_command("--help")
        self.assertEqual(0, status)
        self.assertTrue(output.startswith("usage: tools/fuzz [NAME] [SECONDS]"))

    def test_an_unknown_harness_is_refused_with_those_that_there_are(self):
        status, output = self.run_command("formula")
        self.assertEqual(2, status)
        for name in harnesses():
            self.assertIn(name, output)

    def test_arguments_that_mean_nothing_are_refused(self):
        for arguments in (["csv", "0"], ["csv", "5", "x"], ["5", "csv"]):
            with self.subTest(arguments=arguments):
                status, output = self.run_command(*arguments)
                self.assertEqual(2, status)
                self.assertIn("usage: tools/fuzz", output)

    def test_a_file_that_is_missing_is_refused(self):
        status, output = self.run_command("csv", "no such file")
        self.assertEqual((2, "There is no file no such file\n"), (status, output))

    def test_inputs_are_found_from_the_folder_of_the_caller(self):
        """In a tree whose program and CMake are stand-ins: the one tells its arguments."""
        with tempfile.TemporaryDirectory() as name:
            tree = Path(name)
            for path in ("tools", "fuzz/seeds/csv", "build/fuzz/fuzz", "commands", "elsewhere"):
                (tree / path).mkdir(parents=True)
            shutil.copy(ROOT / "tools" / "fuzz", tree / "tools")
            (tree / "tools" / "install_packages.sh").write_text(
                "install_missing() { :; }\ncan_install() { false; }\n")
            for program, says in (("commands/cmake", ""),
                                  ("build/fuzz/fuzz/tallymere-fuzz", 'printf "%s\\n" "$@"\n')):
                (tree / program).write_text(f"#!/bin/sh\n{says}")
                (tree / program).chmod(0o755)
            (tree / "elsewhere" / "an input").write_bytes(b"1;2")
            done = subprocess.run(
                [tree / "tools" / "fuzz", "csv", "an input"], check=True, cwd=tree / "elsewhere",
                env={**os.environ, "PATH": f"{tree / 'commands'}:{os.environ['PATH']}"},
                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=60)
            given = Path(done.stdout.decode().splitlines()[-1])
            self.assertTrue(given.is_absolute())
            self.assertEqual((tree / "elsewhere" / "an input").resolve(), given)


if __name__ == "__main__":
    unittest.main()
