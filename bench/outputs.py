#!/usr/bin/env python3
"""How long the prime pages take from Start until a long text is in the output, and the page of
equations from Solve until the roots are, beside the console that writes the same; and how long a
click on Stop waits meanwhile.

usage: bench/outputs [ROUNDS]

The pages run under Wine on a virtual display of their own and click Start themselves, the console
runs natively. The list of primes is made 5 times by default after one that warms up, the others
once, and each equation is solved 5 times. Prints three tables in Markdown. The first one: the time
to the end, then what the thread of the windows took of a processor, for all and for the longest
message, in which the window cannot answer.

The second table has the longest times of 3 runs that a click with the mouse stops at some moment:
from the release of the button until the run is asked to stop, and until the page is idle. The third
one has the equations. Ends with status 1 if the list of primes or one of the clicks is above its
target.
"""

import random
import statistics
import subprocess
import sys
import time
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from timers import times_of  # noqa: E402

ROUNDS = 5
SEED = 20_240_601
TARGET = 3  # seconds beyond the console's

STOP_ROUNDS = 3
STOP_TARGET = 0.3  # seconds from a click to the request to stop

# Title, and what the timer is told: page, first number, count, lines at the click, size of the page.
STOPS = [
    *((f"factors, at {lines:,} lines, page {size}", "factors", "1", "1000000", str(lines), size)
      for lines, size in ((100_000, "normal"), (500_000, "normal"), (500_000, "maximised"),
                          (950_000, "normal"), (950_000, "maximised"))),
    ("factors of numbers below 2^128", "factors", str(2**128 - 10_000), "10000", "1", "normal"),
    ("probable primes of 1,252 digits", "probable", str(10**1251), "1000000", "1", "normal"),
]

FACTOR_COUNTS = (100_000, 250_000, 500_000, 1_000_000)


def console_seconds(console, *arguments):
    start = time.monotonic()
    subprocess.run([str(console), *arguments], check=True, stdout=subprocess.DEVNULL)
    return time.monotonic() - start


def medians(rounds):
    """Those of each figure, in seconds, from a list of rounds of milliseconds."""
    return [statistics.median(times) / 1000 for times in zip(*rounds)]


def longest(rounds):
    """Those of each figure, in seconds, from a list of rounds of milliseconds."""
    return [max(times) / 1000 for times in zip(*rounds)]


def print_stop_row(title, seconds):
    print(f"| {title} | {' | '.join(f'{time:.2f}' for time in seconds)} |", flush=True)


def print_row(title, seconds, console, target=""):
    whole, processor, longest = seconds
    print(f"| {title} | {whole:.2f} | {console:.2f} | {whole - console:.2f} | {target} |"
          f" {processor:.2f} | {longest:.2f} |", flush=True)


def random_equation():
    generator = random.Random(SEED)
    return [generator.randint(-10**9, 10**9) for _ in range(11)]


def product(*factors):
    result = [1]
    for factor in factors:
        longer = [0] * (len(result) + len(factor) - 1)
        for i, a in enumerate(result):
            for j, b in enumerate(factor):
                longer[i + j] += a * b
        result = longer
    return result


# The highest coefficient first.
TWO_DOUBLE_ROOTS = product([3, -1], [3, -1], [7, 2], [7, 2], [1, -3], [1, -4], [1, 5], [1, 6],
                           [1, 0, 1])
EQUATIONS = (("degree 10, random", random_equation(), (10, 100, 750)),
             ("degree 10, two double roots", TWO_DOUBLE_ROOTS, (750,)))


def print_equations(build, console, rounds):
    timer = build / "windows-bench" / "bench" / "equation_timer.exe"
    print("| equation | digits | roots shown, ms | least - largest | Solve again, ms |"
          " console, ms |")
    print("| :-- | --: | --: | --: | --: | --: |")
    for title, equation, all_digits in EQUATIONS:
        texts = [str(coefficient) for coefficient in equation]
        for digits in all_digits:
            times = times_of(timer, rounds, [str(digits), *texts])
            shown, idle = ([time[i] for time in times] for i in (0, 1))
            alone = console_seconds(console, "equation", "--mode", "complex", "--digits",
                                    str(digits), "--", *texts)
            print(f"| {title} | {digits} | {statistics.median(shown):.1f} |"
                  f" {min(shown):.1f} - {max(shown):.1f} | {statistics.median(idle):.0f} |"
                  f" {1000 * alone:.0f} |", flush=True)


def main():
    build = Path(sys.argv[1]).resolve()
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else ROUNDS
    timer = build / "windows-bench" / "bench" / "output_timer.exe"
    console = build / "console" / "console" / "tallymere-console"

    print("| output | page, s | console, s | difference, s | target | processor, s |"
          " longest message, s |")
    print("| :-- | --: | --: | --: | --: | --: | --: |")
    primes = medians(times_of(timer, rounds, ["primes", "1", "1000000"]))
    console_time = console_seconds(console, "primes", "--interval", "1000000", "1")
    print_row("78,498 primes below 10^6", primes, console_time, f"≤ {TARGET}")
    for count in FACTOR_COUNTS:
        print_row(f"factors of {count:,} numbers",
                  medians(times_of(timer, 1, ["factors", "1", str(count)], warm_up=False)),
                  console_seconds(console, "factor", "--interval", str(count), "1"))

    print(f"\n| a click on Stop among | heard after, s (≤ {STOP_TARGET}) | page idle after, s |"
          " longest message, s |")
    print("| :-- | --: | --: | --: |")
    stops = []
    for title, *arguments in STOPS:
        stops.append(longest(times_of(timer, STOP_ROUNDS, arguments, warm_up=False)))
        print_stop_row(title, stops[-1])
    print()
    print_equations(build, console, rounds)
    in_time = (primes[0] - console_time <= TARGET
               and all(heard <= STOP_TARGET for heard, *_ in stops))
    return 0 if in_time else 1


if __name__ == "__main__":
    sys.exit(main())
