"""The targets of bench/compare: which are met, and how many there are."""

import contextlib
import io
import sys
import unittest
from pathlib import Path
from unittest import mock

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "bench"))
import algebra_works  # noqa: E402
import root_works  # noqa: E402
from comparison_table import Row, TimeRow, ratio_cells  # noqa: E402
from prime_works import NumberRow, number_cells, primes_of_ours  # noqa: E402

MILLISECOND = 1e6


class RowTest(unittest.TestCase):
    def test_the_median_of_the_ratios_counts(self):
        row = Row("product", 20, 5, 4, [0.5, 0.9, 3], 0.9)
        self.assertEqual(([True], "ok"), (row.verdicts(), row.verdict()))
        row.target = 0.8
        self.assertEqual(([False], "MISSED"), (row.verdicts(), row.verdict()))

    def test_a_target_can_be_a_lower_bound(self):
        self.assertEqual([True], Row("twin", 53, 1, 2, [2], 2, at_least=True).verdicts())
        self.assertEqual([False], Row("twin", 53, 1, 2, [2], 3, at_least=True).verdicts())

    def test_without_a_target_there_is_no_verdict(self):
        for row in (Row("sum", 20, 5, 4, [1.25]), TimeRow("list", 20, 5, 4, [1.25])):
            self.assertEqual(([], ""), (row.verdicts(), row.verdict()))

    def test_a_time_can_be_the_target(self):
        def verdicts(ours):
            return TimeRow("list", 20, ours * MILLISECOND, 1, [9], 100).verdicts()
        self.assertEqual([True], verdicts(100))
        self.assertEqual([False], verdicts(101))


class CellTest(unittest.TestCase):
    def cells(self, *arguments):
        return ratio_cells(TimeRow("roots", 2000, 5 * MILLISECOND, *arguments), "≤")

    def test_ratios_have_a_median_and_a_spread(self):
        self.assertEqual(["2.000", "1.500 - 30.0", "", ""], self.cells(1, [1.5, 30, 2]))

    def test_targets_have_a_bound_and_groups_of_digits(self):
        self.assertEqual("≤ 0.9", self.cells(1, [1], 0.9)[2])
        self.assertEqual(["≤ 15,000", "ok"], self.cells(1, [1], 15000)[2:])

    def test_a_target_needs_no_ratios(self):
        self.assertEqual(["", "", "≤ 1", "MISSED"], self.cells(None, None, 1))
        self.assertEqual([""] * 4, self.cells(None, None, None))


class ColumnTest(unittest.TestCase):
    """Columns of the tables of algebra, which is measured in 2 ms and PARI in 1."""

    def columns(self, works, name, *titles):
        class Program:
            def measure(self, name, side, digits, repetitions=None):
                return 2 * MILLISECOND
        sides = (2 * MILLISECOND, MILLISECOND, [2])
        with contextlib.redirect_stdout(io.StringIO()) as output, \
                mock.patch.object(works, "compare_sides", return_value=sides), \
                mock.patch.object(root_works, "mpsolve_time", return_value=MILLISECOND):
            works.print_tables(Program(), [name], 1, True)
        rows = [[cell.strip() for cell in line.strip("|").split("|")]
                for line in output.getvalue().splitlines() if line.startswith("|")]
        places = [rows[0].index(title) for title in titles]
        return [tuple(row[place] for place in places) for row in rows[2:]]

    def test_polynomials(self):
        self.assertEqual([("10", ""), ("100", ""), ("1,000", "≤ 1")],
                         self.columns(algebra_works, "poly-product", "digits", "target"))
        self.assertEqual([("1,000", "2.00", "", "")],
                         self.columns(algebra_works, "poly-zeros", "digits", "ours", "PARI",
                                      "target"))

    def test_systems(self):
        self.assertEqual([("10", "≤ 5"), ("100", ""), ("1,000", "≤ 50")],
                         self.columns(algebra_works, "system-real", "digits", "target"))

    def test_roots(self):
        self.assertEqual([("10", "≤ 10"), ("100", "≤ 50"), ("750", "≤ 3,000")],
                         self.columns(root_works, "roots-random", "digits", "target"))
        self.assertEqual([("750", "", "≤ 15,000")],
                         self.columns(root_works, "roots-two-double-rounded", "digits", "PARI",
                                      "target"))
        self.assertEqual([("2,000", "≤ 50")],
                         self.columns(root_works, "roots-quadratic", "digits", "target"))


class NumberRowTest(unittest.TestCase):
    def row(self, *targets):
        return NumberRow([time * MILLISECOND for time in (7, 1, 3)], [0], None, targets)

    def test_median_and_worst_each_have_a_target(self):
        self.assertEqual([True, True], self.row(3, 7).verdicts())
        self.assertEqual([False, True], self.row(2, 7).verdicts())
        self.assertEqual([True, False], self.row(3, 6).verdicts())
        self.assertEqual(["ok", "MISSED", "MISSED"],
                         [self.row(*targets).verdict() for targets in ((3, 7), (2, 7), (3, 6))])

    def test_either_target_can_be_missing(self):
        self.assertEqual([False], self.row(None, 6).verdicts())
        without = self.row(None, None)
        self.assertEqual(([], ""), (without.verdicts(), without.verdict()))

    def test_cells_show_median_and_worst(self):
        self.assertEqual(["3.00", "7.00"], number_cells(self.row().ours))
        self.assertEqual(["1.00", "> 2,000"], number_cells([MILLISECOND, 0, float("inf")]))
        self.assertEqual(["", ""], number_cells(None))


class ListTest(unittest.TestCase):
    def test_primes_stand_between_the_braces(self):
        output = b"Prime numbers from 1 to 5:\n{ 2, 3,\n5 }\nNumber of prime numbers: 3\n"
        self.assertEqual([2, 3, 5], primes_of_ours(output))


if __name__ == "__main__":
    unittest.main()
