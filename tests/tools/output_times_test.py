"""The rows of bench/outputs."""

import contextlib
import io
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "bench"))
from outputs import medians, print_row  # noqa: E402


class RowsTest(unittest.TestCase):
    def test_medians_are_those_of_each_figure_in_seconds(self):
        self.assertEqual([2, 0.4, 0.05], medians([[9000, 300, 50], [2000, 400, 40],
                                                  [1000, 500, 90]]))

    def test_a_row_has_the_difference_to_the_console(self):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            print_row("primes", [2, 0.4, 0.05], 0.5, "≤ 3")
        self.assertEqual("| primes | 2.00 | 0.50 | 1.50 | ≤ 3 | 0.40 | 0.05 |\n",
                         output.getvalue())


if __name__ == "__main__":
    unittest.main()
