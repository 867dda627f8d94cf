"""A short run of each harness of fuzz/ under libFuzzer, always the same one.

TALLYMERE_FUZZER in the environment names the program of the preset fuzz. A run has a fixed number of
inputs and a fixed seed, so what it finds it finds each time. Together they take about a minute.
"""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

FUZZ = Path(__file__).resolve().parents[2] / "fuzz"
PROGRAM = os.environ["TALLYMERE_FUZZER"]
SEED = 20260401
# Inputs of a run: as many as take each harness about five seconds.
RUNS = {
    "csv": 20000,
    "equations": 250,
    "factors": 1500,
    "formulas": 20000,
    "grid": 30000,
    "key_presses": 5000,
    "number_texts": 40000,
    "polynomials": 2000,
    "primes": 600,
    "settings": 10000,
    "systems": 4000,
    "text_formats": 50000,
    "variables": 10000,
}


def fuzz(name, *arguments):
    """Status and output of the program with a harness."""
    done = subprocess.run([PROGRAM, *map(str, arguments)], stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                          env={**os.environ, "TALLYMERE_HARNESS": name})
    return done.returncode, done.stdout.decode("utf-8", errors="replace")


class FixedRunsTest(unittest.TestCase):
    def test_each_harness_has_a_run(self):
        self.assertEqual(sorted(RUNS), sorted(path.name for path in (FUZZ / "seeds").iterdir()))
        status, output = fuzz("none")
        self.assertEqual(2, status)
        self.assertEqual(sorted(RUNS), sorted(output.split(":")[1].split()))

    def test_no_run_finds_anything(self):
        for name, runs in RUNS.items():
            with self.subTest(harness=name), tempfile.TemporaryDirectory() as corpus:
                dictionary = FUZZ / "dictionaries" / f"{name}.dict"
                options = [f"-dict={dictionary}"] if dictionary.exists() else []
                status, output = fuzz(name, f"-runs={runs}", f"-seed={SEED}", "-max_len=300",
                                      "-timeout=60", f"-artifact_prefix={corpus}/", *options,
                                      corpus, FUZZ / "seeds" / name)
                self.assertEqual(0, status, output[-5000:])
                self.assertIn(f"Done {runs} runs", output)


if __name__ == "__main__":
    unittest.main()
