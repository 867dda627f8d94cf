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
FIGURES = (("menu visible", "ms"), ("all windows made", "ms"), ("working set", "MB"))

# The time to the visible menu beside that of an empty window, at most.
TARGET = 2.0


def measure(build, rounds):
    """Rounds of figures, in each round those of tallymere, of the empty window and of notepad."""
    programs = [f"Z:{path}" for path in (build / "tallymere.exe",
                                         build / "bench" / "empty_window.exe")]
    lines = times_of(build / "bench" / "startup_timer.exe", rounds, [*programs, "notepad.exe"])
    width = len(FIGURES)
    return [[line[start:start + width] for start in range(0, len(line), width)] for line in lines]


def rows_of(rounds):
    """A row for each figure beside each peer: the name, the peer, the median of both sides, and
    median, least and largest of the ratios within a round."""
    rows = []
    for index, (name, unit) in enumerate(FIGURES):
        for peer_index, peer in enumerate(PEERS, start=1):
            ours, its = zip(*((figures[0][index], figures[peer_index][index])
                              for figures in rounds))
            ratios = [our / peer_figure for our, peer_figure in zip(ours, its)]
            rows.append((f"{name}, {unit}", peer, statistics.median(ours), statistics.median(its),
                         statistics.median(ratios), min(ratios), max(ratios)))
    return rows


def main():
    build = Path(sys.argv[1]).resolve()
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else ROUNDS
    rows = rows_of(measure(build, rounds))
    is_met = rows[0][4] <= TARGET
    print("| | beside | ours | its | ratio | least - largest | target |")
    print("| :-- | :-- | --: | --: | --: | --: | :-- |")
    for number, (name, peer, ours, its, ratio, least, largest) in enumerate(rows):
        target = f"≤ {TARGET} {'ok' if is_met else 'MISSED'}" if number == 0 else ""
        print(f"| {name} | {peer} | {ours:.0f} | {its:.0f} | {ratio:.2f} "
              f"| {least:.2f} - {largest:.2f} | {target} |")
    return 0 if is_met else 1


if __name__ == "__main__":
    sys.exit(main())
