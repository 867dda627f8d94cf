#!/usr/bin/env python3
"""How long the prime pages take from Start until a long text is in the output, beside the console
that writes the same.

usage: bench/outputs [ROUNDS]

The pages run under Wine on a virtual display of their own and click Start themselves, the console
runs natively. The list of primes is made 5 times by default after one that warms up, the others
once. Prints a table in Markdown: the time to the end, then what the thread of the windows took of a
processor, for all and for the longest message, in which the window cannot answer. Ends with status
1 if the list of primes is above the target.
"""

import statistics
import subprocess
import sys
import time
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from timers import times_of  # noqa: E402

ROUNDS = 5
TARGET = 3  # seconds beyond the console's

FACTOR_COUNTS = (100_000, 250_000, 500_000, 1_000_000)


def console_seconds(console, *arguments):
    start = time.monotonic()
    subprocess.run([str(console), *arguments], check=True, stdout=subprocess.DEVNULL)
    return time.monotonic() - start


def medians(rounds):
    """Those of each figure, in seconds, from a list of rounds of milliseconds."""
    return [statistics.median(times) / 1000 for times in zip(*rounds)]


def print_row(title, seconds, console, target=""):
    whole, processor, longest = seconds
    print(f"| {title} | {whole:.2f} | {console:.2f} | {whole - console:.2f} | {target} |"
          f" {processor:.2f} | {longest:.2f} |", flush=True)


def main():
    build = Path(sys.argv[1]).resolve()
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else ROUNDS
    timer = build / "windows-bench" / "bench" / "output_timer.exe"
    console = build / "console" / "console" / "tallymere-console"

    print("| output | page, s | console, s | difference, s | target | processor, s |"
          " longest message, s |")
    print("| :-- | --: | --: | --: | --: | --: | --: |")
    primes = medians(times_of(timer, rounds, ["primes", "1000000"]))
    console_time = console_seconds(console, "primes", "--interval", "1000000", "1")
    print_row("78,498 primes below 10^6", primes, console_time, f"≤ {TARGET}")
    for count in FACTOR_COUNTS:
        print_row(f"factors of {count:,} numbers",
                  medians(times_of(timer, 1, ["factors", str(count)], warm_up=False)),
                  console_seconds(console, "factor", "--interval", str(count), "1"))
    return 0 if primes[0] - console_time <= TARGET else 1


if __name__ == "__main__":
    sys.exit(main())
