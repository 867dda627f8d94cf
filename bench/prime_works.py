"""Work on primes, for bench/compare: tests beside GMP and PARI, single numbers beside PARI and GNU
factor, and lists beside primesieve."""

import resource
import subprocess
import sys
from dataclasses import dataclass, field
from pathlib import Path
from statistics import median

from benchmark_program import compare_sides
from comparison_table import Row, Table, TimeRow, ratio_cells, show_time


@dataclass
class TestWork:
    """A test of primality: who is beside us, how long the numbers are, and the most that ours /
    theirs may be."""

    title: str
    peer: str
    size: int
    target: float = None


TESTS = {
    "prime-test": TestWork("probabilistic, 1,252 digits, beside two powers of GMP", "gmp", 65, 1.5),
    "word-prime": TestWork("exact, 64 bits, beside PARI", "pari", 64),
}


@dataclass
class NumberWork:
    """Work on single numbers, whose times differ too much for a mean: the bits of the numbers, and
    the most milliseconds that the median and the worst of ours may take."""

    title: str
    sizes: list
    targets: dict = field(default_factory=dict)  # bits: median and worst, None for no target
    gnu: bool = False  # GNU factor can do it


NUMBERS = {
    "factor-random": NumberWork("factors, random", [128], {128: (20, 500)}, gnu=True),
    "factor-two-primes": NumberWork("factors, two primes of half the bits", [128],
                                    {128: (None, 1000)}, gnu=True),
    "prime-proof": NumberWork("proof, random prime", [96, 112, 128], {128: (20, 500)}),
}
NUMBER_ROUNDS = 3
GNU_FACTOR_SECONDS = 2


@dataclass
class ListWork:
    """The primes among LIST_COUNT numbers, and the most milliseconds that ours may take."""

    title: str
    start: int
    target: float


LIST_COUNT = 1_000_000
LISTS = {
    "prime-list-small": ListWork("1", 1, 100),
    "prime-list-medium": ListWork("10^12", 10**12, 300),
    "prime-list-large": ListWork("10^18", 10**18, 500),
}

NAMES = [*TESTS, *NUMBERS, *LISTS]


def run(arguments, seconds=None):
    """The processor time of a whole process in nanoseconds, and its output. The time is infinite
    when the process is not done in so many seconds."""
    def spent():
        usage = resource.getrusage(resource.RUSAGE_CHILDREN)
        return usage.ru_utime + usage.ru_stime
    start = spent()
    try:
        done = subprocess.run(arguments, check=True, stdout=subprocess.PIPE, timeout=seconds)
    except subprocess.TimeoutExpired:
        return float("inf"), b""
    return (spent() - start) * 1e9, done.stdout


@dataclass
class NumberRow:
    """A time for each number and side; None for a side that is not asked."""

    ours: list
    pari: list
    gnu: list = None
    targets: tuple = (None, None)

    def verdicts(self):
        """Whether each target is met."""
        return [time <= 1e6 * target
                for time, target in zip((median(self.ours), max(self.ours)), self.targets)
                if target is not None]

    def verdict(self):
        return "" if not self.verdicts() else "ok" if all(self.verdicts()) else "MISSED"


def compare_test(program, name, rounds):
    work = TESTS[name]
    return Row(work.title, work.size,
               *compare_sides(program, name, ["ours", work.peer], work.size, rounds), work.target)


def compare_numbers(program, name, bits, rounds):
    work = NUMBERS[name]
    ours, pari, gnu = [], [], None
    for _ in range(min(rounds, NUMBER_ROUNDS)):
        ours.append(program.number_times(name, "ours", bits))
        pari.append(program.number_times(name, "pari", bits))
    if work.gnu:
        gnu = [run(["factor", number], GNU_FACTOR_SECONDS)[0]
               for number in program.numbers(name, bits)]
    return NumberRow([min(times) for times in zip(*ours)], [min(times) for times in zip(*pari)],
                     gnu, work.targets.get(bits, (None, None)))


def primes_of_ours(output):
    """The items between the braces."""
    return [int(item) for item in output.split(b"{", 1)[1].split(b"}", 1)[0].split(b",")]


def compare_list(console, work, rounds):
    """Both must find the same primes."""
    ours = [console, "primes", "--interval", str(LIST_COUNT), str(work.start)]
    theirs = ["primesieve", str(work.start), str(work.start + LIST_COUNT - 1), "-p", "-q", "-t1"]
    if primes_of_ours(run(ours)[1]) != [int(line) for line in run(theirs)[1].split()]:
        sys.exit(f"From {work.title} on the two lists of primes differ.")
    times = [(run(ours)[0], run(theirs)[0]) for _ in range(rounds)]
    return TimeRow(work.title, LIST_COUNT, *map(min, zip(*times)),
                   [our / their for our, their in times], work.target)


def show_milliseconds(nanoseconds):
    if nanoseconds == float("inf"):
        return f"> {GNU_FACTOR_SECONDS * 1000:,}"
    return f"{nanoseconds / 1e6:,.2f}"


def number_cells(times):
    """Median and worst."""
    return [show_milliseconds(pick(times)) if times else "" for pick in (median, max)]


def print_tests(program, names, rounds, markdown):
    table = Table(markdown, [("test", -53), ("ours", 11), ("theirs", 11), ("ratio", 6),
                             ("least - largest", 15), ("target", 7), ("", -6)])
    rows = []
    for name in names:
        row = compare_test(program, name, rounds)
        rows.append(row)
        table.add([row.title, show_time(row.ours), show_time(row.theirs), *ratio_cells(row, "≤")])
    return rows


def print_numbers(program, names, rounds, markdown):
    table = Table(markdown, [("numbers", -36), ("bits", 4), ("count", 5), ("ours", 8),
                             ("worst", 8), ("targets", 12), ("", -6), ("PARI", 8), ("worst", 8),
                             ("factor", 8), ("worst", 8)])
    rows = []
    for name in names:
        for bits in NUMBERS[name].sizes:
            row = compare_numbers(program, name, bits, rounds)
            rows.append(row)
            targets = [f"≤ {target:,}" for target in row.targets if target is not None]
            table.add([NUMBERS[name].title, str(bits), str(len(row.ours)), *number_cells(row.ours),
                       " and ".join(targets), row.verdict(), *number_cells(row.pari),
                       *number_cells(row.gnu)])
    return rows


def print_lists(program, names, rounds, markdown):
    console = Path(program.path).parents[1] / "console" / "tallymere-console"
    table = Table(markdown, [("from", -6), ("ours", 8), ("primesieve", 10), ("ratio", 6),
                             ("least - largest", 15), ("target", 7), ("", -6)])
    rows = []
    for name in names:
        row = compare_list(str(console), LISTS[name], rounds)
        rows.append(row)
        table.add([row.title, show_milliseconds(row.ours), show_milliseconds(row.theirs),
                   *ratio_cells(row, "≤")])
    return rows


# The works of each table, what it says before it, and what measures and prints it.
TABLES = [
    (TESTS, "Tests, in ns:", print_tests),
    (NUMBERS, "Single numbers, median and worst of each kind, in ms:", print_numbers),
    (LISTS, f"Lists of the primes among {LIST_COUNT:,} numbers, as text, in ms:", print_lists),
]


def versions():
    """Of the programs that are beside us."""
    lines = [run([program, "--version"])[1].decode().splitlines()[0]
             for program in ("factor", "primesieve")]
    return [line.split(",")[0] for line in lines]


def print_tables(program, names, rounds, markdown):
    """Measures the works of these names and returns their rows."""
    rows = []
    if any(name in names for name in NAMES):
        print("\n### Primes" if markdown else "\nPrimes")
    for works, title, print_table in TABLES:
        wanted = [name for name in works if name in names]
        if wanted:
            print(f"\n{title}" + ("\n" if markdown else ""))
            rows += print_table(program, wanted, rounds, markdown)
    return rows
