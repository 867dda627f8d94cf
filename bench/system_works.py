"""Systems of 25 linear equations, for bench/compare: ours beside PARI.

Ours takes the texts of the cells and makes the text of the result, and it solves real and complex
systems at least twice, to be sure of the digits. PARI has the numbers already and solves once.
"""

from dataclasses import dataclass

from benchmark_program import compare_sides, rounds_of
from comparison_table import Table, TimeRow, ratio_cells
from prime_works import show_milliseconds


@dataclass
class SystemWork:
    """Systems of one kind, and the most milliseconds that ours may take by their size."""

    title: str
    targets: dict  # None where nothing is asked
    peer: bool = True


SYSTEMS = {
    "system-real": SystemWork("real", {10: 5, 100: None, 1000: 50}),
    "system-complex": SystemWork("complex", {10: None, 100: None, 1000: None}),
    "system-unsettled": SystemWork("complex, no two runs agree", {1000: None}, peer=False),
    "system-rational": SystemWork("fractions, from integers of so many digits",
                                  {1: 50, 9: None}),
}

NAMES = list(SYSTEMS)


def compare_systems(program, name, size, rounds):
    work = SYSTEMS[name]
    target = work.targets[size]
    if not work.peer:
        ours = min(program.measure(name, "ours", size, 1) for _ in rounds_of(rounds))
        return TimeRow(work.title, size, ours, target=target)
    return TimeRow(work.title, size,
                   *compare_sides(program, name, ["ours", "pari"], size, rounds), target)


def print_tables(program, names, rounds, markdown):
    """Measures the works of these names and returns their rows."""
    wanted = [name for name in NAMES if name in names]
    if not wanted:
        return []
    print(("\n### Systems" if markdown else "\nSystems")
          + "\n\nSystems of 25 linear equations, in ms:" + ("\n" if markdown else ""))
    table = Table(markdown, [("system", -42), ("digits", 6), ("ours", 9), ("PARI", 9),
                             ("ratio", 6), ("least - largest", 15), ("target", 6), ("", -6)])
    rows = []
    for name in wanted:
        for size in SYSTEMS[name].targets:
            row = compare_systems(program, name, size, rounds)
            rows.append(row)
            table.add([row.title, f"{size:,}", show_milliseconds(row.ours),
                       show_milliseconds(row.theirs) if row.theirs else "",
                       *(ratio_cells(row, "≤") if row.ratios else [""] * 4)])
    return rows
