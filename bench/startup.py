#!/usr/bin/env python3
"""How long tallymere.exe takes from the start of its process to its visible menu window, beside a
program that does nothing but show a window, and beside the notepad that comes with Wine.

usage: bench/startup [ROUNDS]

All of them run under Wine on a virtual display of their own, in turn, 21 rounds by default after one
that warms up. Prints a table in Markdown.
"""

import statistics
import subprocess
import sys
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "gui"))
from desktop import WINE_RUN, Display, WinePrefix  # noqa: E402
from user_settings import file_bytes, settings_text  # noqa: E402

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
    display = Display()
    try:
        prefix = WinePrefix(display)
        try:
            # Those of somebody who has met About before.
            prefix.settings_folder().mkdir(parents=True)
            (prefix.settings_folder() / "UserSettings_3.8.ini").write_bytes(
                file_bytes(settings_text()))
            programs = [f"Z:{path}" for path in (build / "tallymere.exe",
                                                 build / "bench" / "empty_window.exe")]
            output = subprocess.run(
                [str(WINE_RUN), str(build / "bench" / "startup_timer.exe"), str(rounds + 1),
                 *programs, "notepad.exe"],
                env=prefix.environment, check=True, stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE, text=True).stdout
        finally:
            prefix.close()
    finally:
        display.close()
    return [[float(time) for time in line.split()] for line in output.splitlines()][1:]


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
