"""Systems of 25 linear equations and calculations with polynomials, for bench/compare: ours beside
PARI.

Ours takes the texts of the cells of a system and makes the text of the result, and it solves real
and complex systems at least twice, to be sure of the digits. PARI has the numbers already and
solves once.
"""

from dataclasses import dataclass

from benchmark_program import compare_sides, rounds_of
from comparison_table import Table, TimeRow, ratio_cells
from prime_works import show_milliseconds


@dataclass
class Work:
    """Work of one kind, and the most milliseconds that ours may take to so many digits."""

    title: str
    targets: dict  # None where nothing is asked
    peer: bool = True


SYSTEMS = {
    "system-real": Work("real", {10: 5, 100: None, 1000: 50}),
    "system-complex": Work("complex", {10: None, 100: None, 1000: None}),
    "system-moduli": Work("complex, two moduli close together", {10: None, 100: None}),
    "system-rational": Work("fractions, from integers of so many digits", {1: 50, 9: None}),
}
POLYNOMIALS = {
    "poly-product": Work("product, degrees 10 and 10", {10: None, 100: None, 1000: 1}),
    "poly-quotient": Work("quotient, degrees 20 and 10", {10: None, 1000: None}),
    "poly-power": Work("power 20 of degree 1", {10: None, 1000: None}),
    "poly-product-complex": Work("complex product, degrees 10 and 10", {1000: None}),
    "poly-power-complex": Work("complex power 20 of degree 1", {1000: None}),
    "poly-product-of-12": Work("complex product of 12, degree 1", {1000: None}, peer=False),
    "poly-zeros": Work("the same, imaginary parts that are 0", {1000: None}, peer=False),
    "poly-zeros-power": Work("complex power 20 of degree 1, likewise", {1000: None}, peer=False),
}

NAMES = list(SYSTEMS) + list(POLYNOMIALS)


def compare_with_pari(program, name, work, digits, rounds):
    target = work.targets[digits]
    if not work.peer:
        ours = min(program.measure(name, "ours", digits, 1) for _ in rounds_of(rounds))
        return TimeRow(work.title, digits, ours, target=target)
    return TimeRow(work.title, digits,
                   *compare_sides(program, name, ["ours", "pari"], digits, rounds), target)


def print_table(program, works, title, measured, kind, rounds, markdown):
    """Measures these works and returns their rows."""
    if not works:
        return []
    print((f"\n### {title}" if markdown else f"\n{title}")
          + f"\n\n{measured}, in ms:" + ("\n" if markdown else ""))
    table = Table(markdown, [(kind, -42), ("digits", 6), ("ours", 9), ("PARI", 9), ("ratio", 6),
                             ("least - largest", 15), ("target", 6), ("", -6)])
    rows = []
    for name, work in works.items():
        for digits in work.targets:
            row = compare_with_pari(program, name, work, digits, rounds)
            rows.append(row)
            table.add([row.title, f"{digits:,}", show_milliseconds(row.ours),
                       show_milliseconds(row.theirs) if row.theirs else "",
                       *ratio_cells(row, "≤")])
    return rows


def print_tables(program, names, rounds, markdown):
    """Measures the works of these names and returns their rows."""
    rows = []
    for works, *texts in ((SYSTEMS, "Systems", "Systems of 25 linear equations", "system"),
                          (POLYNOMIALS, "Polynomials", "One calculation", "calculation")):
        wanted = {name: work for name, work in works.items() if name in names}
        rows += print_table(program, wanted, *texts, rounds, markdown)
    return rows
