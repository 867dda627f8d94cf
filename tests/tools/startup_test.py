"""The figures of bench/startup: medians of times, and of ratios within a round."""

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "bench"))
from startup import figures  # noqa: E402


class FiguresTest(unittest.TestCase):
    def test_ratios_are_taken_within_a_round(self):
        # A machine twice as slow in the second round changes no ratio.
        ours, peer = figures([[100, 50], [200, 100], [90, 60]])
        self.assertEqual((100, 1, 1, 1), ours)
        self.assertEqual((60, 2, 1.5, 2), peer)


if __name__ == "__main__":
    unittest.main()
