"""The figures of bench/results: medians of times, and of differences within a round."""

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "bench"))
from results import figures  # noqa: E402


class FiguresTest(unittest.TestCase):
    def test_differences_are_taken_within_a_round(self):
        short, long = figures([[5, 1, 30, 20], [9, 5, 90, 60], [7, 2, 40, 29]])
        self.assertEqual((7, 2, 4, 4, 5), short)
        self.assertEqual((40, 29, 11, 10, 30), long)


if __name__ == "__main__":
    unittest.main()
