#!/usr/bin/env python3
"""How long the calculator takes from the press of Return to the result on the screen, beyond the
evaluation itself.

usage: bench/results [ROUNDS]

The program runs under Wine on a virtual display of its own and presses Return itself, 31 rounds by
default after one that warms up. A difference is that of one round: with the windows, then without.
Prints a table in Markdown, and ends with status 1 if a median is above the target.
"""

import statistics
import sys
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from timers import times_of  # noqa: E402

ROUNDS = 31
TARGET = 30  # milliseconds

# In the order of the timer's works, each with what is to be reached.
WORKS = (("`1+1`, 10 digits", TARGET), ("`1/7`, 1,000 digits", None),
         ("`1/7`, 10,000 digits", TARGET), ("`7^23660` as integer, 19,995 digits", None))


def figures(rounds):
    """For each work (medians of the times with the windows, without them, and of the differences,
    least and largest of these), from a list of rounds of times, with and without in turn."""
    result = []
    for index in range(0, len(rounds[0]), 2):
        pairs = [times[index:index + 2] for times in rounds]
        differences = [with_windows - without for with_windows, without in pairs]
        result.append((*(statistics.median(times) for times in zip(*pairs)),
                       statistics.median(differences), min(differences), max(differences)))
    return result


def measure(build, rounds):
    """Rounds of times in milliseconds, a pair for each work."""
    return times_of(build / "bench" / "result_timer.exe", rounds)


def main():
    build = Path(sys.argv[1]).resolve()
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else ROUNDS
    works = figures(measure(build, rounds))
    print("| formula | with windows, ms | without, ms | difference, ms | least - largest | target |")
    print("| :-- | --: | --: | --: | --: | --: |")
    for (name, target), times in zip(WORKS, works):
        with_windows, without, difference, least, largest = times
        print(f"| {name} | {with_windows:.1f} | {without:.1f} | {difference:.1f} |"
              f" {least:.1f} - {largest:.1f} | {f'≤ {target}' if target else ''} |")
    return 0 if all(target is None or times[2] <= target
                    for (_, target), times in zip(WORKS, works)) else 1


if __name__ == "__main__":
    sys.exit(main())
