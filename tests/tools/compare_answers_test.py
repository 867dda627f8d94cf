"""The corpus of tools/compare_answers is large and fixed, and the script sees a difference.

A stand-in console answers each formula with the formula itself.
"""

import importlib.util
import io
import re
import subprocess
import sys
import tempfile
import unittest
from contextlib import redirect_stderr, redirect_stdout
from importlib.machinery import SourceFileLoader
from itertools import islice
from pathlib import Path
from unittest import mock

ROOT = Path(__file__).resolve().parents[2]
SCRIPT = ROOT / "tools" / "compare_answers"
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tools"))
sys.path.insert(0, str(ROOT / "tests" / "support"))
import answer_corpus  # noqa: E402
from help_pages import constants, functions, operators  # noqa: E402


def script_as_module():
    loader = SourceFileLoader("compare_answers", str(SCRIPT))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


compare_answers = script_as_module()


class CorpusTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.runs = list(answer_corpus.corpus())

    def lines_of(self, number_type):
        return [line for run in self.runs for line in run.lines
                if run.options[:2] == ("--type", number_type)]

    def test_it_has_at_least_20_000_different_formulas_in_four_types(self):
        formulas = 0
        for number_type in ("real", "cplx", "uint", "rat"):
            lines = set(self.lines_of(number_type))
            self.assertGreater(len(lines), 4000, number_type)
            formulas += len(lines)
        self.assertGreaterEqual(formulas, 20_000)

    def test_it_knows_all_constants_of_the_program(self):
        missing = "missing in tools/answer_corpus.py"
        self.assertEqual(set(), constants() - set(answer_corpus.CONSTANTS), missing)

    def test_each_type_meets_all_functions_operators_and_constants(self):
        for number_type in ("real", "cplx", "uint", "rat"):
            text = b"\n".join(line for line in self.lines_of(number_type)
                              if len(line) < 1000).decode("utf-8", errors="replace")
            for name in {*answer_corpus.FUNCTIONS, *functions()}:
                self.assertGreater(len(re.findall(rf"\b{name}\(", text)), 10, (number_type, name))
            for word in {*answer_corpus.OPERATORS, *answer_corpus.CONSTANTS, *operators(), "ans",
                         "x"}:
                self.assertGreater(text.count(word), 10, (number_type, word))

    def test_functions_and_operators_without_a_row_get_general_operands(self):
        rows = {name: kinds for name, kinds in answer_corpus.FUNCTIONS.items()
                if name not in ("sin", "gcd", "rootc")}
        others = tuple(word for word in answer_corpus.OPERATORS if word not in ("*", "mod"))
        functions_before = answer_corpus.functions_without_row()
        operators_before = set(answer_corpus.operators_without_row())
        with mock.patch.object(answer_corpus, "FUNCTIONS", rows), \
                mock.patch.object(answer_corpus, "OPERATORS", others):
            self.assertEqual({"sin": 1, "gcd": 2, "rootc": 3} | functions_before,
                             answer_corpus.functions_without_row())
            self.assertEqual({"*", "mod"} | operators_before,
                             set(answer_corpus.operators_without_row()))
            for number_type, first in (("real", "-0"), ("cplx", "i"), ("uint", "7"), ("rat", "-1")):
                runs = list(answer_corpus.general_runs(number_type))
                lines = {line.decode() for run in runs for line in run.lines}
                self.assertLessEqual({f"sin({first})", f"gcd({first};1)", f"rootc({first};0;1)",
                                      "1 mod 2", "10 * 10", "7 mod 3 + 2", "7 / 3 * 2",
                                      "1+rootc(1;1)*2"}, lines)
                self.assertEqual({number_type}, {run.options[1] for run in runs})
                self.assertEqual(3, len({run.options for run in runs}))

    def test_its_functions_are_those_of_the_help(self):
        page = (ROOT / "help/Tallymere/functions_en.html").read_text(encoding="utf-8")
        names = set(re.findall(r'"signature">(\w+)\(', page))
        self.assertGreaterEqual(len(answer_corpus.FUNCTIONS), 50)
        self.assertLessEqual(set(answer_corpus.FUNCTIONS), names)

    def test_it_meets_the_settings(self):
        options = {" ".join(run.options) for run in self.runs}
        for digits in (1, 2, 10, 16, 19, 20, 57, 100, 1000):
            self.assertTrue(any(f"--digits {digits} " in text for text in options), digits)
        for option in ("--form auto", "--form fixed", "--form scientific", "--form mixed",
                       "--group", "--base 2", "--base 8", "--base 16", "--lower-hex", "--decimal comma",
                       "--language de", "--thousands narrow-space"):
            self.assertTrue(any(option in text for text in options), option)

    def test_it_is_the_same_every_time(self):
        lists = [subprocess.run([SCRIPT, "--list"], check=True, stdout=subprocess.PIPE,
                                env={"PATH": "/usr/bin:/bin", "PYTHONHASHSEED": seed}).stdout
                 for seed in ("1", "2")]
        self.assertEqual(lists[0], lists[1])


    def test_random_numbers_are_those_of_their_method(self):
        random = answer_corpus.Random(0)
        self.assertEqual([0xE220A8397B1DCDAF, 0x6E789E6AA1B965F4, 0x06C45D188009454F],
                         [random.below(1 << 64) for _ in range(3)])


class CompareTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def console(self, name, script):
        path = self.folder / name
        path.write_text(f"#!/bin/sh\n{script}\n")
        path.chmod(0o755)
        return str(path)

    def run_script(self, *arguments):
        """(exit status, what was printed)."""
        output = io.StringIO()
        with redirect_stdout(output), redirect_stderr(output):
            status = compare_answers.main(list(arguments))
        return status, output.getvalue()

    def compared(self, new_script):
        runs = [answer_corpus.Run("few", ("--type", "real"), (b"1+1", b"error 10203 2: no", b"3")),
                answer_corpus.Run("others", ("--type", "rat"), (b"4", b"\xff"))]
        output = io.StringIO()
        formulas, codes, different = compare_answers.compare(
            self.console("old", "exec cat"), self.console("new", new_script), runs, 20, output)
        self.assertEqual((5, {10203: 1}), (formulas, codes))
        return different, output.getvalue()

    def test_equal_answers(self):
        self.assertEqual((0, ""), self.compared("exec cat"))

    def test_one_other_answer(self):
        different, text = self.compared("exec sed s/^3$/4/")
        self.assertEqual(1, different)
        self.assertEqual("few: --type real\n  line 3 of 3: 3\n    old: 3\n    new: 4\n", text)

    def test_one_other_byte_that_is_no_text(self):
        different, text = self.compared("LC_ALL=C exec sed 's/^\\xff$/\\xfe/'")
        self.assertEqual(1, different)
        self.assertIn("old: \\xff\n    new: \\xfe\n", text)

    def test_a_missing_and_a_further_answer(self):
        different, text = self.compared("exec sed /^4$/d")
        self.assertEqual(2, different)
        self.assertIn("no answer", text)
        different, text = self.compared("cat; echo more")
        self.assertEqual(2, different)
        self.assertIn("behind the last formula", text)

    def test_another_exit_status(self):
        different, text = self.compared("cat; exit 3")
        self.assertEqual(2, different)
        self.assertIn("exit status: old 0, new 3", text)

    def test_the_script_over_the_beginning_of_the_corpus(self):
        old = self.console("old", "exec cat")
        new = self.console("new", "exec sed 's/^cosg(0)$/1/'")
        with mock.patch.object(compare_answers, "corpus",
                               lambda: islice(answer_corpus.corpus(), 60)):
            same = self.run_script("--twice", old)
            other = self.run_script("--first", "2", old, new)
        self.assertEqual(0, same[0], same)
        self.assertRegex(same[1], r"\n\d{4,} formulas, 0 errors, 0 differences\n$")
        self.assertEqual(1, other[0], other)
        self.assertEqual(2, other[1].count("    old: cosg(0)\n    new: 1\n"))
        self.assertRegex(other[1], r"\n\d{4,} formulas, 0 errors, 4 differences\n$")

    def test_bad_arguments(self):
        for arguments in ((), ("one",), ("one", "two", "three"), ("--twice",),
                          ("--first", "x", "a"), ("--unknown", "a"), (str(self.folder / "none"), "/bin/cat")):
            status, text = self.run_script(*arguments)
            self.assertEqual(2, status, arguments)
            self.assertTrue(text)
        self.assertEqual((0, compare_answers.__doc__ + "\n"), self.run_script("--help"))


if __name__ == "__main__":
    unittest.main()
