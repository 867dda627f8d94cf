"""The rows of bench/outputs."""

import contextlib
import io
import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "bench"))
from outputs import STOPS, longest, medians, print_row, print_stop_row  # noqa: E402


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

    def test_a_row_of_stops_has_the_longest_of_each_figure(self):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            print_stop_row("factors", longest([[90, 700, 50], [120, 400, 40]]))
        self.assertEqual("| factors | 0.12 | 0.70 | 0.05 |\n", output.getvalue())

    def test_each_stop_has_what_the_timer_wants(self):
        usage = (ROOT / "bench" / "windows" / "output_timer.cpp").read_text()
        words = re.search(r"output_timer ROUNDS (PAGE FIRST COUNT LINES SIZE)\n", usage)[1].split()
        for title, *arguments in STOPS:
            self.assertEqual(len(words), len(arguments), title)


if __name__ == "__main__":
    unittest.main()
