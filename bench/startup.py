#!/usr/bin/env python3
"""How long tallymere.exe takes from the start of its process to its visible menu window, beside a
program that does nothing but show a window, and beside the notepad that comes with Wine.

usage: bench/startup [ROUNDS]

All of them run under Wine on a virtual display of their own, in turn, 21 rounds by default after one
that warms up. Prints a table in Markdown.
"""

import statistics
import sys
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from timers import times_of  # noqa: E402

ROUNDS = 21


def figures(rounds):
    """For each program (median of its times, median of the ratios of the first program's times to
    its own, least and largest of these ratios), from a list of rounds of times."""
    result = []
    for times in zip(*rounds):
        ratios = [times_of_round[0] / time for times_of_round, time in zip(rounds, times)]
        result.append((statistics.median(times), statistics.median(ratios), min(ratios),
                       max(ratios)))
    return result


def measure(build, rounds):
    """Rounds of times in milliseconds, each with one of tallymere, of the empty window and of
    notepad."""
    programs = [f"Z:{path}" for path in (build / "tallymere.exe",
                                         build / "bench" / "empty_window.exe")]
    return times_of(build / "bench" / "startup_timer.exe", rounds, [*programs, "notepad.exe"])


def main():
    build = Path(sys.argv[1]).resolve()
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else ROUNDS
    (ours, *_), *peers = figures(measure(build, rounds))
    print("| beside | ours, ms | its, ms | ratio | least - largest |")
    print("| :-- | --: | --: | --: | --: |")
    for name, (median, ratio, least, largest) in zip(("an empty window", "notepad"), peers):
        print(f"| {name} | {ours:.0f} | {median:.0f} | {ratio:.2f} | {least:.2f} - {largest:.2f} |")


if __name__ == "__main__":
    main()
