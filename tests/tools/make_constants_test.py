"""The committed digits of the stored constants are those that tools/make_constants.py makes."""

import subprocess
import sys
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "tools" / "make_constants.py"


class MakeConstantsTest(unittest.TestCase):
    def test_committed_digits_are_those_of_the_formulas(self):
        run = subprocess.run([sys.executable, str(SCRIPT), "--check"], stdout=subprocess.PIPE,
                             text=True)
        self.assertEqual((run.stdout, run.returncode), ("", 0))

    def test_any_other_argument_is_refused(self):
        run = subprocess.run([sys.executable, str(SCRIPT), "--force"], stdout=subprocess.PIPE,
                             text=True)
        self.assertEqual(run.returncode, 2)
        self.assertIn("usage:", run.stdout)


if __name__ == "__main__":
    unittest.main()
