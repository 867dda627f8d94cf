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
    "csv": 60000,
    "equations": 500,
    "factors": 3000,
    "formulas": 25000,
    "grid": 60000,
    "key_presses": 12000,
    "number_texts": 70000,
    "polynomials": 6000,
    "primes": 1500,
    "settings": 15000,
    "systems": 5000,
    "text_formats": 80000,
    "variables": 15000,
}


# What would differ between two runs: addresses, and what has been written meanwhile.
REPEATABLE = [f"-seed={SEED}", "-use_cmp=0", "-reload=0"]


def fuzz(name, *arguments):
    """Status and output of the program with a harness."""
    done = subprocess.run([PROGRAM, *map(str, arguments)], stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                          env={**os.environ, "TALLYMERE_HARNESS": name})
    return done.returncode, done.stdout.decode("utf-8", errors="replace")


def fixed_run(name, runs):
    """Status and output of so many inputs, and the names of those worth keeping."""
    with tempfile.TemporaryDirectory() as corpus:
        dictionary = FUZZ / "dictionaries" / f"{name}.dict"
        options = [f"-dict={dictionary}"] if dictionary.exists() else []
        status, output = fuzz(name, f"-runs={runs}", *REPEATABLE, "-max_len=1000", "-timeout=60",
                              f"-artifact_prefix={corpus}/", *options, corpus,
                              FUZZ / "seeds" / name)
        return status, output, sorted(path.name for path in Path(corpus).iterdir())


class FixedRunsTest(unittest.TestCase):
    def test_each_harness_has_a_run(self):
        self.assertEqual(sorted(RUNS), sorted(path.name for path in (FUZZ / "seeds").iterdir()))
        status, output = fuzz("none")
        self.assertEqual(2, status)
        self.assertEqual(sorted(RUNS), sorted(output.split(":")[1].split()))

    def test_a_run_repeats_itself(self):
        first = fixed_run("variables", 1000)[2]
        self.assertGreater(len(first), 10)
        self.assertEqual(first, fixed_run("variables", 1000)[2])

    def test_no_run_finds_anything(self):
        for name, runs in RUNS.items():
            with self.subTest(harness=name):
                status, output, _ = fixed_run(name, runs)
                self.assertEqual(0, status, output[-5000:])
                self.assertIn(f"Done {runs} runs", output)


if __name__ == "__main__":
    unittest.main()
