"""The figures of bench/startup: medians, and ratios within a round."""

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "bench"))
from startup import figures, rounds_by_figure  # noqa: E402


class FiguresTest(unittest.TestCase):
    def test_ratios_are_taken_within_a_round(self):
        # A machine twice as slow in the second round changes no ratio.
        ours, peer = figures([[100, 50], [200, 100], [90, 60]])
        self.assertEqual((100, 1, 1, 1), ours)
        self.assertEqual((60, 2, 1.5, 2), peer)

    def test_a_line_of_the_timer_has_all_figures_of_one_program_after_the_other(self):
        visible, made, memory = rounds_by_figure([[1, 2, 3, 4, 5, 6], [7, 8, 9, 10, 11, 12]])
        self.assertEqual([[1, 4], [7, 10]], visible)
        self.assertEqual([[2, 5], [8, 11]], made)
        self.assertEqual([[3, 6], [9, 12]], memory)


if __name__ == "__main__":
    unittest.main()
