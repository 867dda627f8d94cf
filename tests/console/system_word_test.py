"""The word system of tallymere-console from outside.

console_support.py tells of the environment. Systems are made here from their unknowns, so that the
answer is known.
"""

import os
import random
import sys
import tempfile
import unittest
from decimal import Context, Decimal
from fractions import Fraction
from pathlib import Path

sys.dont_write_bytecode = True
from console_support import MESSAGES as FORMULA_MESSAGES  # noqa: E402
from console_support import (NATIVE, SEED, ConsoleCase, check_stop,  # noqa: E402
                             keep_console_waiting, run, shown)

MESSAGES = {
    1001: "Error in mathematical calculation!",
    1005: 'The file "{}" was not found!',
    1006: 'Error when accessing file "{}" ! Possibly the file is already opened in another program '
          "or you do not have sufficient access rights for the file.",
    3401: 'Error evaluating coefficient in equation {}, column "{}": {}',
    3402: "The number of equation variables has to be between 2 und {}!",
    9002: "String buffer overflow!",
}
UNSOLVABLE = "Equation system is unsolvable!"
ONE_PARAMETER = ["", "The parameter variable r is freely selectable."]


def setUpModule():
    keep_console_waiting()


def error_line(code, *arguments):
    return f"error {code}: {MESSAGES[code].format(*arguments)}"


def csv(rows, line_end="\n"):
    count = len(rows)
    head = ";".join([f"a{i + 1}" for i in range(count)] + ["b"])
    lines = [head, *(";".join(map(str, row)) for row in rows)]
    return "".join(line + line_end for line in lines)


class SystemCase(ConsoleCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def file(self, content, name="system.csv"):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return str(path)

    def check_file(self, content, expected, *options, status=0):
        self.check(["system", *options, self.file(content)], b"", expected, status)

    def check_rows(self, rows, expected, *options, status=0):
        self.check_file(csv(rows), expected, *options, status=status)


class AnswerTest(SystemCase):
    def test_each_type(self):
        for kind in ("real", "cplx", "rat"):
            with self.subTest(type=kind):
                options = ["--type", kind]
                self.check_rows([[1, 1, 2], [1, -1, 0]], ["x1 = 1", "x2 = 1"], *options)
                self.check_rows([[1, 1, 2], [1, 1, 2]], ["x1 = 2-r", "x2 = r", *ONE_PARAMETER],
                                *options)
                self.check_rows([[1, 1, 2], [1, 1, 3]], [UNSOLVABLE], *options)
                self.check_rows([[0, 1, 0, 1], [0, 0, 0, 0], [0, 0, 0, 0]], [UNSOLVABLE],
                                *options)

    def test_values_of_each_type(self):
        self.check_rows([[3, 0, 2], [0, 7, 1]], ["x1 = 0.6666666667", "x2 = 0.1428571429"])
        self.check_rows([[3, 0, 2], [0, 7, 1]], ["x1 = 0.66667", "x2 = 0.14286"],
                        "--digits", "5")
        self.check_rows([[3, 0, 2], [0, 7, 1]], ["x1 = 2/3", "x2 = 1/7"], "--type", "rat")
        self.check_rows([["i", 0, 2], [0, "1+i", 1]], ["x1 = -2i", "x2 = 0.5-0.5i"],
                        "--type=cplx")

    def test_parameters_are_named(self):
        self.check_rows([["", ""]] * 2, ["x1 = r", "x2 = s", "",
                                         "The parameter variables r, s are freely selectable."])
        self.check_rows([[4, 3, 2], [4, 3, 2]], ["x1 = 1/2-(3/4)*r", "x2 = r", *ONE_PARAMETER],
                        "--type", "rat")
        lines, _, status = run(["system", self.file(csv([[0] * 26] * 25))])
        self.assertEqual(("The parameter variables r, s, t, u, v1, …, v21 are freely selectable.",
                          0), (lines[-1], status))

    def test_groups_and_language(self):
        rows = [[1, 0, 1234567], [0, 0, 0]]
        self.check_rows(rows, ["x1 = 1'234'567", "x2 = r", *ONE_PARAMETER], "--group")
        self.check_rows([["0,5", 0, 1], [0, 1, 1]], ["x1 = 2", "x2 = 1"], "--decimal", "comma")
        self.check_rows([[1, 1, 2], [1, 1, 3]], ["Gleichungssystem ist unlösbar!"],
                        "--language", "de")
        self.check_rows(rows, ["x1 = 1234567", "x2 = r", "",
                               "Die Parametervariable r ist frei wählbar."], "--language", "de")

    def test_a_line_that_is_too_long_is_cut(self):
        rows = [[1, 0, *[f"1/{7 * i + j + 3}" for j in range(24)]] for i in range(2)]
        rows[1][:2] = [0, 1]
        rows += [[0] * 26 for _ in range(23)]
        for row in rows[:2]:
            row[25] = "1/3"
        lines, errors, status = run(["system", "--digits", "1000", self.file(csv(rows))])
        self.assertEqual(("", 1), (errors, status))
        self.assertEqual(error_line(9002), lines[-1])
        first, _, rest = lines[0].partition("…")
        self.assertEqual(9999, len(first))
        self.assertTrue(rest.startswith("x2 = "), "the end of the line is cut as well")

    def test_random_systems(self):
        source = random.Random(SEED)
        for _ in range(40):
            count = source.choice([2, 3, 4, 5, 25])
            digits = source.choice([5, 10])
            rows, unknowns = self.random_system(source, count)
            exact = Context(prec=100)
            expected = [
                f"x{i + 1} = "
                + shown_real(exact.divide(Decimal(x.numerator), Decimal(x.denominator)), digits)
                for i, x in enumerate(unknowns)]
            with self.subTest(rows=rows, digits=digits, seed=SEED):
                self.check_rows(rows, expected, "--digits", str(digits))
                self.check_rows(rows, [f"x{i + 1} = {x}" for i, x in enumerate(unknowns)],
                                "--type", "rat")

    @staticmethod
    def random_system(source, count):
        """Rows and unknowns. Full rows make a matrix without an inverse rarely, and the test fails
        then, for another seed."""
        unknowns = [Fraction(source.randint(-99, 99), source.randint(1, 9)) for _ in range(count)]
        rows = []
        for _ in range(count):
            row = [Fraction(source.randint(-9, 9), source.randint(1, 3)) for _ in range(count)]
            row.append(sum(a * x for a, x in zip(row, unknowns)))
            rows.append(row)
        return rows, unknowns


def shown_real(value, digits):
    """As `shown`, but the notation does not depend on the digits here: up to 10^10 it is fixed."""
    text = shown(value, digits)
    return text if "e+" not in text else shown(Context(prec=digits).plus(value), 10)


class FileTest(SystemCase):
    def test_line_ends(self):
        for line_end in ("\n", "\r\n"):
            self.check_file(csv([[1, 1, 2], [1, -1, 0]], line_end), ["x1 = 1", "x2 = 1"])

    def test_what_is_missing_is_zero(self):
        self.check_file("a1;a2;b\n1;0;2\n", ["x1 = 2", "x2 = r", *ONE_PARAMETER])
        self.check_file("a1;a2;b\n1;0;2\n0;1;3", ["x1 = 2", "x2 = 0"])
        self.check_file("a1;a2;b\n1;0;2\n;1\n", ["x1 = 2", "x2 = 0"])

    def test_more_than_there_should_be_is_passed_over(self):
        self.check_file("a1;a2;b\n1;0;2;9;9\n0;1;3\n7;7;7\n\n", ["x1 = 2", "x2 = 3"])

    def test_wrong_counts(self):
        for content in ("", "a1;a2;b", "a1;b\n1;1\n", "\n", ";" * 26 + "\n", ";" * 100_000,
                        "x" * 100_000):
            with self.subTest(content=content[:20]):
                self.check_file(content, [error_line(3402, 25)], status=1)

    def test_missing_and_unreadable_files(self):
        missing = str(self.folder / "missing.csv")
        self.check(["system", missing], b"", [error_line(1005, missing)], 1)
        below = str(self.folder / "no folder" / "system.csv")
        self.check(["system", below], b"", [error_line(1005, below)], 1)
        self.check(["system", str(self.folder)], b"", [error_line(1006, self.folder)], 1)

    def test_names_beyond_ascii(self):
        path = self.file(csv([[1, 0, 2], [0, 1, 3]]), "Gleichung √2.csv")
        self.check(["system", path], b"", ["x1 = 2", "x2 = 3"])
        missing = str(self.folder / "fehlt ß.csv")
        self.check(["system", missing], b"", [error_line(1005, missing)], 1)

    def test_cells_name_equation_and_column(self):
        messages = FORMULA_MESSAGES["en"]
        self.check_rows([[1, 1, 2], [1, "1+", 0]],
                        [error_line(3401, 2, "a2", messages[10202])], status=1)
        self.check_rows([[1, 1, "2x"], [1, 1, 0]],
                        [error_line(3401, 1, "b", messages[10200].format(2))], status=1)
        self.check_rows([["i", 1, 2], [1, 1, 0]],
                        [error_line(3401, 1, "a1", messages[10207].format(1))], status=1)
        self.check_rows([['"1"', 1, 2], [1, 1, 0]],
                        [error_line(3401, 1, "a1", messages[10200].format(1))], status=1)

    def test_numbers_beyond_the_range(self):
        self.check_rows([["1e-3000000000000000000", 0, "1e3000000000000000000"], [0, 1, 1]],
                        [error_line(1001)], status=1)
        self.check_rows([[1, 0, "2^1663"], [0, "1/2", "2^1663+1"]], [error_line(1001)],
                        "--type", "rat", status=1)

    if NATIVE and os.geteuid() != 0:
        def test_files_that_may_not_be_read(self):
            path = self.file(csv([[1, 0, 2], [0, 1, 3]]))
            os.chmod(path, 0)
            self.check(["system", path], b"", [error_line(1006, path)], 1)


class OptionTest(SystemCase):
    def check_refused(self, arguments, message):
        lines, errors, status = run(["system", *arguments])
        self.assertEqual(([], f"tallymere-console: {message}\n", 2), (lines, errors, status))

    def test_one_file(self):
        self.check_refused([], "no file; allowed: one FILE.csv")
        self.check_refused(["a.csv", "b.csv"], "more than one file; allowed: one FILE.csv")

    def test_digits(self):
        for value in ("4", "1001", "x", ""):
            self.check_refused(["--digits", value, "a.csv"],
                               f'--digits: "{value}" is not allowed; allowed: 5 to 1000')
        for digits in ("5", "1000"):
            self.check_rows([[1, 0, 2], [0, 1, 3]], ["x1 = 2", "x2 = 3"], "--digits", digits)

    def test_types(self):
        self.check_refused(["--type", "uint", "a.csv"],
                           '--type: "uint" is not allowed; allowed: real, cplx, rat')

    def test_help(self):
        lines, errors, status = run(["system", "--help"])
        self.assertEqual(("usage: tallymere-console system [options] FILE.csv", "", 0),
                         (lines[0], errors, status))
        text = "\n".join(lines)
        for expected in ("2 to 25 linear equations", "--type real|cplx|rat", "5 to 1000"):
            self.assertIn(expected, text)

    def test_a_file_that_looks_like_an_option(self):
        lines, _, status = run(["system", "--", "-missing.csv"])
        self.assertEqual(([error_line(1005, "-missing.csv")], 1), (lines, status))


if NATIVE:
    class StopTest(SystemCase):
        def test_ctrl_c_ends_the_reading_of_coefficients(self):
            slow = "+".join(["sinh(3.7)"] * 100)
            path = self.file(csv([[slow] * 26] * 25))
            check_stop(self, ["system", "--digits", "1000", path], b" s, solving the system")


if __name__ == "__main__":
    unittest.main()
