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
    "csv": 40000,
    "equations": 300,
    "factors": 1500,
    "formulas": 15000,
    "grid": 40000,
    "key_presses": 6000,
    "number_texts": 40000,
    "polynomials": 3000,
    "primes": 800,
    "settings": 10000,
    "systems": 3000,
    "text_formats": 50000,
    "variables": 10000,
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
        status, output = fuzz(name, f"-runs={runs}", *REPEATABLE, "-max_len=300", "-timeout=60",
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
