#!/usr/bin/env python3
"""How long the page of linear systems takes to save its largest system as a CSV file, and to load
and show it.

usage: bench/files [ROUNDS]

The page runs under Wine on a virtual display of its own, and loads and saves without the dialogs of
the system. Prints the medians as a table in Markdown. Ends with status 1 if loading is above the
target.
"""

import statistics
import sys
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from timers import times_of  # noqa: E402

ROUNDS = 50
TARGET = 100  # milliseconds until a file is loaded and shown


def main():
    build = Path(sys.argv[1]).resolve()
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else ROUNDS
    save, load = map(statistics.median,
                     zip(*times_of(build / "windows-bench" / "bench" / "file_timer.exe", rounds)))
    print("| 25 equations | ms | target |")
    print("| :-- | --: | --: |")
    print(f"| save as a file | {save:.1f} | |")
    print(f"| load from a file and show | {load:.1f} | ≤ {TARGET} |")
    return int(load > TARGET)


if __name__ == "__main__":
    sys.exit(main())
