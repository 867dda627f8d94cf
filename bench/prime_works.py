"""Work on primes, for bench/compare: tests beside GMP and PARI, and single numbers beside PARI and
GNU factor."""

import resource
import subprocess
from dataclasses import dataclass, field
from statistics import median

from benchmark_program import compare_sides
from comparison_table import Row, Table, ratio_cells, show_time


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

NAMES = [*TESTS, *NUMBERS]


def run(arguments, seconds=None):
    """The processor time of a whole process in nanoseconds, which is infinite when it is not done in
    so many seconds, and its output."""
    def spent():
        usage = resource.getrusage(resource.RUSAGE_CHILDREN)
        return usage.ru_utime + usage.ru_stime
    start = spent()
    try:
        output = subprocess.run(arguments, check=True, stdout=subprocess.PIPE, timeout=seconds).stdout
    except subprocess.TimeoutExpired:
        return float("inf"), b""
    return (spent() - start) * 1e9, output


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
    return NumberRow([min(times) for times in zip(*ours)], [min(times) for times in zip(*pari)], gnu,
                     work.targets.get(bits, (None, None)))


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
            targets = [f"≤ {target}" for target in row.targets if target is not None]
            table.add([NUMBERS[name].title, str(bits), str(len(row.ours)), *number_cells(row.ours),
                       " and ".join(targets), row.verdict(), *number_cells(row.pari),
                       *number_cells(row.gnu)])
    return rows


# The works of each table, what it says before it, and what measures and prints it.
TABLES = [
    (TESTS, "Tests, in ns:", print_tests),
    (NUMBERS, "Single numbers, median and worst of each kind, in ms:", print_numbers),
]


def versions():
    """Of the programs that are beside us."""
    return [run(["factor", "--version"])[1].decode().splitlines()[0]]


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
