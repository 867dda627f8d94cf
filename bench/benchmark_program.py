"""Runs the benchmark program, for bench/compare: one side of a comparison, or two in turn."""

import json
import subprocess
import sys
import time

REPETITIONS = 15
SECONDS_PER_REPETITION = 0.002
# An operation too slow for that many repetitions gets fewer.
SECONDS_PER_MEASUREMENT = 0.15
LEAST_REPETITIONS = 3
# And no more rounds behind the second once they have taken so long.
SECONDS_PER_ROW = 5


def fitting_repetitions(nanoseconds):
    """As many repetitions of that length as a measurement has time for."""
    return int(max(LEAST_REPETITIONS, min(REPETITIONS, SECONDS_PER_MEASUREMENT * 1e9 / nanoseconds)))


class Program:
    """The benchmark program; measures in nanoseconds."""

    def __init__(self, path):
        self.path = path

    def output(self, *arguments):
        return subprocess.run([self.path, *arguments], check=True, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True).stdout

    def operands(self, kind, digits):
        return [line.split() for line in self.output("--operands", kind, str(digits)).splitlines()]

    def measure(self, work, side, size, repetitions=REPETITIONS):
        report = json.loads(self.output(
            f"--benchmark_filter=^{work}/{side}/{size}$",
            f"--benchmark_min_time={SECONDS_PER_REPETITION}",
            f"--benchmark_repetitions={repetitions}", "--benchmark_format=json"))
        runs = [run for run in report["benchmarks"] if run["run_type"] == "iteration"]
        failed = [run["error_message"] for run in runs if run.get("error_occurred")]
        if failed or not runs:
            sys.exit(f"{work}/{side}/{size}: {failed[0] if failed else 'no such benchmark'}")
        return min(run["cpu_time"] for run in runs)

    def repetitions(self, work, side, size, pairs=1):
        """How many repetitions a measurement of this work is given."""
        spent = self.measure(work, side, size, 1) * pairs
        return fitting_repetitions(spent)

    def numbers(self, work, bits):
        return self.output("--numbers", work, str(bits)).split()

    def number_times(self, work, side, bits):
        """What each of these numbers takes."""
        return [int(line) for line in
                self.output("--number-times", work, side, str(bits)).splitlines()]


def rounds_of(rounds):
    """Counts so many rounds, or from the second on as many as there is time for."""
    start = time.monotonic()
    for done in range(rounds):
        if done >= 2 and time.monotonic() - start > SECONDS_PER_ROW:
            return
        yield done


def compare_sides(program, work, sides, size, rounds):
    """Times of two sides of the program, and their ratios round by round."""
    repetitions = [program.repetitions(work, side, size) for side in sides]
    first, second = [], []
    for _ in rounds_of(rounds):
        first.append(program.measure(work, sides[0], size, repetitions[0]))
        second.append(program.measure(work, sides[1], size, repetitions[1]))
    return min(first), min(second), [a / b for a, b in zip(first, second)]
