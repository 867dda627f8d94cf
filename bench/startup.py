#!/usr/bin/env python3
"""How long tallymere.exe takes from the start of its process to its visible menu window and until all
of its windows are made, and its working set then: beside a program that does nothing but show a
window, and beside the notepad that comes with Wine.

usage: bench/startup [ROUNDS]

All of them run under Wine on a virtual display of their own, in turn, 21 rounds by default after one
that warms up. Prints a table in Markdown. The exit status is 0 only if the target is met.
"""

import statistics
import sys
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from timers import times_of  # noqa: E402

ROUNDS = 21
PEERS = ("an empty window", "notepad")
FIGURES = ("menu visible, ms", "all windows made, ms", "working set, MB")  # as the timer has them

# The time to the visible menu beside that of an empty window, at most.
TARGET = 2.0


def figures(rounds):
    """For each program (median of its figures, median of the ratios of the first program's figures
    to its own, least and largest of these ratios), from a list of rounds of one figure each."""
    result = []
    for values in zip(*rounds):
        ratios = [round_values[0] / value for round_values, value in zip(rounds, values)]
        result.append((statistics.median(values), statistics.median(ratios), min(ratios),
                       max(ratios)))
    return result


def rounds_by_figure(lines):
    """For each of FIGURES a list of rounds, each with one value of each program, from the lines that
    the timer prints: all figures of one program after the other."""
    return [[line[index::len(FIGURES)] for line in lines] for index in range(len(FIGURES))]


def measure(build, rounds):
    """The lines of the timer, each with figures of tallymere, of the empty window and of notepad."""
    programs = [f"Z:{path}" for path in (build / "tallymere.exe",
                                         build / "bench" / "empty_window.exe")]
    return times_of(build / "bench" / "startup_timer.exe", rounds, [*programs, "notepad.exe"])


def main():
    build = Path(sys.argv[1]).resolve()
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else ROUNDS
    is_met = True
    print("| | beside | ours | its | ratio | least - largest | target |")
    print("| :-- | :-- | --: | --: | --: | --: | :-- |")
    for name, figure in zip(FIGURES, rounds_by_figure(measure(build, rounds))):
        (ours, *_), *peers = figures(figure)
        for peer, (median, ratio, least, largest) in zip(PEERS, peers):
            verdict = ""
            if (name, peer) == (FIGURES[0], PEERS[0]):
                is_met = ratio <= TARGET
                verdict = f"≤ {TARGET} {'ok' if is_met else 'MISSED'}"
            print(f"| {name} | {peer} | {ours:.0f} | {median:.0f} | {ratio:.2f} "
                  f"| {least:.2f} - {largest:.2f} | {verdict} |")
    return 0 if is_met else 1


if __name__ == "__main__":
    sys.exit(main())
