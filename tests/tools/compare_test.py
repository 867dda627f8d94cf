"""The targets of bench/compare: which are met, and how many there are."""

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "bench"))
from comparison_table import Row, TimeRow  # noqa: E402
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
