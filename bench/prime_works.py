"""Work on primes, for bench/compare."""

import resource
import subprocess
from dataclasses import dataclass
from statistics import median

from comparison_table import Table, print_heading


@dataclass
class FactorWork:
    """Numbers of one kind, and the milliseconds that we give ourselves for them."""

    title: str
    kind: str
    median_target: float = None
    worst_target: float = None


FACTORS = {
    "factor-random": FactorWork("random, 128 bits", "random", 20, 500),
    "factor-two-primes": FactorWork("two primes of 64 bits", "two-primes", worst_target=1000),
}
NAMES = list(FACTORS)
FACTOR_ROUNDS = 3
GNU_FACTOR_SECONDS = 2


def gnu_factor_time(number):
    """The processor time of GNU factor in nanoseconds; infinite when it takes too long."""
    def spent():
        usage = resource.getrusage(resource.RUSAGE_CHILDREN)
        return usage.ru_utime + usage.ru_stime
    start = spent()
    try:
        subprocess.run(["factor", number], check=True, stdout=subprocess.DEVNULL,
                       timeout=GNU_FACTOR_SECONDS)
    except subprocess.TimeoutExpired:
        return float("inf")
    return (spent() - start) * 1e9


@dataclass
class FactorRow:
    title: str
    ours: list
    pari: list
    gnu: list
    work: FactorWork

    def verdicts(self):
        """Whether each target of the work is met."""
        return [time <= 1e6 * target
                for time, target in [(median(self.ours), self.work.median_target),
                                     (max(self.ours), self.work.worst_target)]
                if target is not None]


def compare_factors(program, work, rounds):
    ours, pari = [], []
    for _ in range(min(rounds, FACTOR_ROUNDS)):
        ours.append(program.factor_times(work.kind, "ours"))
        pari.append(program.factor_times(work.kind, "pari"))
    gnu = [gnu_factor_time(number) for number in program.factor_numbers(work.kind)]
    return FactorRow(work.title, [min(times) for times in zip(*ours)],
                     [min(times) for times in zip(*pari)], gnu, work)


def show_milliseconds(nanoseconds):
    if nanoseconds == float("inf"):
        return f"> {GNU_FACTOR_SECONDS * 1000:,}"
    return f"{nanoseconds / 1e6:,.2f}"


def print_tables(program, names, rounds, markdown):
    """Measures the works of these names and returns their rows."""
    factors = [name for name in FACTORS if name in names]
    rows = []
    if factors:
        print_heading("Prime factors: median and worst of single numbers, in ms", markdown)
        table = Table(markdown, [("numbers", -22), ("count", 5), ("ours", 9), ("worst", 9),
                                 ("targets", 12), ("", -6), ("PARI", 9), ("worst", 9),
                                 ("factor", 9), ("worst", 9)])
        for name in factors:
            row = compare_factors(program, FACTORS[name], rounds)
            rows.append(row)
            targets = " and ".join(f"≤ {target}" for target in [row.work.median_target,
                                                              row.work.worst_target] if target)
            cells = [row.title, str(len(row.ours))]
            for times in [row.ours, row.pari, row.gnu]:
                cells += [show_milliseconds(median(times)), show_milliseconds(max(times))]
            table.add(cells[:4] + [targets, "ok" if all(row.verdicts()) else "MISSED"] + cells[4:])
    return rows
