"""What tools/soak calls growing, and what it refuses."""

import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "gui"))
from growth import ALLOWED, growing  # noqa: E402


def samples(name, values):
    """Samples of a run in which one thing has these values, and all others stay as they are."""
    return [{**dict.fromkeys(ALLOWED, 100), name: value} for value in values]


class GrowthTest(unittest.TestCase):
    def test_what_grows_all_the_time_is_told(self):
        for name, allowed in ALLOWED.items():
            step = allowed // 2
            with self.subTest(name):
                self.assertEqual(
                    [f"{name} grows: {5 * step} at most in the middle third,"
                     f" {8 * step} in the last"],
                    growing(samples(name, [step * i for i in range(9)])))

    def test_what_levels_is_not(self):
        for name, allowed in ALLOWED.items():
            for values in ([0, allowed * 9, allowed * 9], [9, 9, 9], [0, allowed * 5, 0],
                           [0, 7, 7 + allowed], [allowed * 9, 0, 0]):
                with self.subTest(name, values=values):
                    self.assertEqual([], growing(samples(name, values)))

    def test_one_more_than_allowed_is_told(self):
        for name, allowed in ALLOWED.items():
            with self.subTest(name):
                self.assertEqual(1, len(growing(samples(name, [0, 7, 8 + allowed]))))

    def test_a_peak_counts_wherever_it_is_in_its_third(self):
        far = 1 + ALLOWED["gdi"]
        self.assertEqual([], growing(samples("gdi", [0, 0, 0, far, 0, 0, 0, 0, far])))
        self.assertEqual(1, len(growing(samples("gdi", [0, 0, far, 0, 0, 0, 0, far, 0]))))


class CommandTest(unittest.TestCase):
    def test_arguments_that_mean_nothing_are_refused(self):
        for arguments in ([], ["0"], ["-3"], ["nan"], ["many"], ["1", "x"], ["1", "2", "3"],
                          ["--help"]):
            with self.subTest(arguments=arguments):
                done = subprocess.run([str(ROOT / "tools" / "soak"), *arguments], check=False,
                                      stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=60)
                self.assertEqual(2, done.returncode)
                self.assertIn("usage: tools/soak MINUTES [SEED]", done.stdout.decode())


if __name__ == "__main__":
    unittest.main()
