"""Calculations with polynomials, for bench/compare: ours beside PARI."""

from dataclasses import dataclass

from benchmark_program import compare_sides, rounds_of
from comparison_table import Table, TimeRow, ratio_cells
from prime_works import show_milliseconds


@dataclass
class PolynomialWork:
    """Calculations of one kind, and the most milliseconds that ours may take to so many digits."""

    title: str
    targets: dict
    peers: bool = True


POLYNOMIALS = {
    "poly-product": PolynomialWork("product, degrees 10 and 10", {10: None, 100: None, 1000: 1}),
    "poly-quotient": PolynomialWork("quotient, degrees 20 and 10", {10: None, 1000: None}),
    "poly-power": PolynomialWork("power 20 of degree 1", {10: None, 1000: None}),
    "poly-product-complex": PolynomialWork("complex product, degrees 10 and 10", {1000: None}),
    "poly-power-complex": PolynomialWork("complex power 20 of degree 1", {1000: None}),
    "poly-product-of-12": PolynomialWork("complex product of 12, degree 1", {1000: None},
                                         peers=False),
    "poly-zeros": PolynomialWork("the same, imaginary parts that are 0", {1000: None}, peers=False),
    "poly-zeros-power": PolynomialWork("complex power 20 of degree 1, likewise", {1000: None},
                                       peers=False),
}

NAMES = list(POLYNOMIALS)


def compare_polynomials(program, name, digits, rounds):
    work = POLYNOMIALS[name]
    target = work.targets[digits]
    if not work.peers:
        ours = min(program.measure(name, "ours", digits, 1) for _ in rounds_of(rounds))
        return TimeRow(work.title, digits, ours, target=target)
    return TimeRow(work.title, digits,
                   *compare_sides(program, name, ["ours", "pari"], digits, rounds), target)


def print_tables(program, names, rounds, markdown):
    """Measures the works of these names and returns their rows."""
    wanted = [name for name in NAMES if name in names]
    if not wanted:
        return []
    print(("\n### Polynomials" if markdown else "\nPolynomials")
          + "\n\nOne calculation, in ms:" + ("\n" if markdown else ""))
    table = Table(markdown, [("calculation", -40), ("digits", 6), ("ours", 9), ("PARI", 9),
                             ("ratio", 6), ("least - largest", 15), ("target", 8), ("", -6)])
    rows = []
    for name in wanted:
        for digits in POLYNOMIALS[name].targets:
            row = compare_polynomials(program, name, digits, rounds)
            rows.append(row)
            ratios = ratio_cells(row, "≤") if row.ratios else [""] * 4
            table.add([row.title, str(digits), show_milliseconds(row.ours),
                       show_milliseconds(row.theirs) if row.theirs else "", *ratios])
    return rows
