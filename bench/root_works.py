"""Roots of equations, for bench/compare: ours beside PARI and mpsolve."""

import tempfile
from dataclasses import dataclass, field

from benchmark_program import compare_sides, rounds_of
from comparison_table import Table, TimeRow, ratio_cells
from prime_works import run, show_milliseconds


@dataclass
class RootWork:
    """Equations of one kind, and the most milliseconds that ours may take to so many digits."""

    title: str
    targets: dict
    peers: bool = True  # for others it would be another problem
    mpsolve: bool = field(default=True)


ROOTS = {
    "roots-random": RootWork("degree 10, random", {10: 10, 100: 50, 750: 3000}),
    "roots-two-double": RootWork("degree 10, two double roots", {750: 15000}),
    "roots-two-double-rounded": RootWork("the same, coefficients rounded", {750: 15000},
                                         peers=False),
    "roots-fivefold": RootWork("degree 10, a fivefold root", {750: 15000}),
    "roots-fivefold-rounded": RootWork("the same, coefficients rounded", {750: 15000},
                                       peers=False),
    "roots-quadratic": RootWork("degree 2", {2000: 50}),
}

NAMES = list(ROOTS)
MPSOLVE_SECONDS = 10


def mpsolve_time(program, name, digits):
    """The processor time of the whole process, which has one thread."""
    coefficients = program.output("--equation", name).split()
    with tempfile.NamedTemporaryFile("w", suffix=".pol") as file:
        file.write(f"Monomial;\nDegree={len(coefficients) - 1};\nInteger;\nReal;\n")
        file.write("\n".join(coefficients) + "\n")
        file.flush()
        return run(["mpsolve", "-au", "-Ga", "-j1", f"-o{digits}", file.name],
                   MPSOLVE_SECONDS)[0]


def compare_roots(program, name, digits, rounds):
    work = ROOTS[name]
    target = work.targets[digits]
    if not work.peers:
        ours = min(program.measure(name, "ours", digits, 1) for _ in rounds_of(rounds))
        return TimeRow(work.title, digits, ours, target=target), None
    row = TimeRow(work.title, digits,
                  *compare_sides(program, name, ["ours", "pari"], digits, rounds), target)
    return row, min(mpsolve_time(program, name, digits) for _ in rounds_of(rounds))


def print_tables(program, names, rounds, markdown):
    """Measures the works of these names and returns their rows."""
    wanted = [name for name in NAMES if name in names]
    if not wanted:
        return []
    print(("\n### Roots" if markdown else "\nRoots") + "\n\nAll roots of an equation, in ms:"
          + ("\n" if markdown else ""))
    table = Table(markdown, [("equation", -32), ("digits", 6), ("ours", 9), ("PARI", 9),
                             ("ratio", 6), ("least - largest", 15), ("target", 8), ("", -6),
                             ("mpsolve", 9)])
    rows = []
    for name in wanted:
        for digits in ROOTS[name].targets:
            row, mpsolve = compare_roots(program, name, digits, rounds)
            rows.append(row)
            table.add([row.title, f"{digits:,}", show_milliseconds(row.ours),
                       show_milliseconds(row.theirs) if row.theirs else "",
                       *ratio_cells(row, "≤"), show_milliseconds(mpsolve) if mpsolve else ""])
    return rows


def versions():
    """Of the program that is beside us."""
    return [run(["mpsolve", "-v"])[1].decode().strip().splitlines()[0]]
