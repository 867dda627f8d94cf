#!/usr/bin/env python3
"""Compares Tallymere's times with those of libmpdec, MPFR, GMP, PARI, GNU factor, primesieve and
mpsolve; bench/compare builds and calls it.

usage: bench/compare [--markdown] [--rounds N] [--only WORK ...]

  --markdown      the tables for docs/performance.md
  --rounds N      rounds of measuring, 7 unless said
  --only WORK     only these kinds of work, such as product or exp

Exit status: 0 if every target is met, 1 if one is missed, 2 for bad options.

How it is measured. libmpdec is the C implementation of Python's decimal module, at as many digits
as ours and with the widest limits of the exponent. MPFR is part of the benchmark program and works
in binary at the precision that holds as many digits. All sides work on the same pairs of random
operands in turn: 512 of them, 16 above 1,000 digits, for functions 16 at 1,000 and 2 at 10,000. A
result goes where the last one was, or in Python's case into a new object. A time is the processor
time of one operation, the least of many short repetitions. From libmpdec's the time is taken off
that the interpreter needs for the emptiest expression of the same shape. What the decimal module
itself does around the operation stays in; it is at most the time of +x, which is printed. Ours and
theirs are measured in turn, round by round; the ratio shown is the median of the rounds' ratios,
with the least and the largest beside it. Slow work gets fewer repetitions and rounds.

Exact integers are measured beside GMP, which is part of the benchmark program as well, and beside
plain twins of our own methods where there are some.

Primes are measured beside GMP and PARI, which is part of the benchmark program too. Where the time
depends much on the number, median and worst case of the numbers are shown, of the least time that
each of them took in three rounds. GNU factor is a program of its own that starts anew for each
number and is given two seconds. Lists of primes are made by the console, beside the program
primesieve: both write the same primes as text into a pipe, and a time is the processor time of the
whole process, start and end included.

Roots of equations are measured beside PARI, and beside the program mpsolve, which starts anew for
each equation. Where coefficients are rounded on purpose, others would see roots that differ.

Systems of linear equations are measured beside PARI. Ours begins with the texts of the cells, ends
with the text of the result, and solves twice.

Polynomials are measured beside PARI, with random coefficients that have all digits. PARI does not
prove its digits, ours calculates once more for that; where all terms of a coefficient cancel, only
the most digits prove that it is 0.
"""

import argparse
import decimal
import gc
import platform
import re
import sys
import time
from dataclasses import dataclass, field
from pathlib import Path

sys.dont_write_bytecode = True
import algebra_works  # noqa: E402
import prime_works  # noqa: E402
import root_works  # noqa: E402
from benchmark_program import (SECONDS_PER_MEASUREMENT, SECONDS_PER_REPETITION,  # noqa: E402
                               Program, compare_sides, fitting_repetitions, rounds_of)
from comparison_table import Row, Table, print_heading, ratio_cells, show_time  # noqa: E402

DIGITS = [20, 50, 100, 1000, 10000]
LIMBS = [53, 264, 527]


@dataclass
class Work:
    """One kind of work: what it is called, what libmpdec does for it and what we ask of ourselves.

    `theirs` and `empty` are expressions of a and b, the operands as Decimal, and s, the text of a.
    """

    name: str
    title: str
    operands: str
    theirs: str
    empty: str
    targets: dict = field(default_factory=dict)  # digits: the most that ours / theirs may be
    mpfr: bool = False


WORKS = [
    Work("product", "product", "numbers", "a * b", "a is b",
         {20: 1.0, 50: 1.0, 100: 1.0, 1000: 0.2, 10000: 0.25}, mpfr=True),
    Work("quotient", "quotient", "numbers", "a / b", "a is b",
         {20: 1.0, 50: 1.0, 100: 1.0, 1000: 1.0, 10000: 1.3}, mpfr=True),
    Work("sum", "sum", "numbers", "a + b", "a is b", mpfr=True),
    Work("difference", "difference", "numbers", "a - b", "a is b", mpfr=True),
    Work("reciprocal", "reciprocal", "numbers", "one / a", "one is a"),
    Work("small-divisor", "division by an integer to 2000", "small", "a / b", "a is b"),
    Work("large-divisor", "division by an integer to 10^9", "large", "a / b", "a is b"),
    Work("remainder", "integer remainder", "whole", "a % b", "a is b"),
    Work("read", "reading text", "numbers", "Decimal(s)", "callable(s)", {10000: 1.0}),
    Work("write", "writing text", "numbers", "str(a)", "callable(a)", {10000: 1.0}),
    Work("exp", "exp x", "moderate", "a.exp()", "a.is_nan()",
         {20: 0.2, 50: 0.2, 100: 0.2, 1000: 0.1, 10000: 0.1}),
    Work("ln", "ln x", "logarithmands", "a.ln()", "a.is_nan()",
         {20: 0.2, 50: 0.2, 100: 0.2, 1000: 0.1, 10000: 0.1}),
    Work("power", "x^y", "base-and-exponent", "a ** b", "a is b",
         {20: 0.2, 50: 0.2, 100: 0.2, 1000: 0.1, 10000: 0.1}),
    Work("square-root", "square root", "logarithmands", "a.sqrt()", "a.is_nan()",
         {20: 1.0, 50: 1.0, 100: 1.0, 1000: 1.0, 10000: 1.0}),
]
# What is measured beside MPFR: its title, and where we ask it of ourselves not to be slower.
FUNCTIONS = {
    "exp": ("exp x", [20, 50, 100]),
    "ln": ("ln x", [20, 50, 100]),
    "power": ("x^y", [20, 50, 100]),
    "sin": ("sin x", [20, 50, 100]),
    "atan": ("atan x", [20, 50, 100]),
    "cos": ("cos x", []),
    "tan": ("tan x", []),
    "asin": ("asin x", []),
    "acos": ("acos x", []),
    "sinh": ("sinh x", []),
    "cosh": ("cosh x", []),
    "tanh": ("tanh x", []),
    "asinh": ("asinh x", []),
    "acosh": ("acosh x", []),
    "atanh": ("atanh x", []),
    "log10": ("log10 x", []),
    "square-root": ("square root", []),
    "cube-root": ("cube root", []),
    "hypotenuse": ("hypotenuse", []),
}
FACTORIAL = "factorial"
FACTORIAL_DIGITS = [20, 100, 1000]
FORMULAS = {
    "formula-fractions": "(1/3+2.5)*(7-4/9)/1.1",
    "formula-polynomial": "((x-6)*x+11)*x-6+x*y with x = 2.718281828459 and y = 1/7",
}


@dataclass
class ExactWork:
    """One kind of work on exact integers; its sizes are limbs, for texts digits."""

    title: str
    sizes: list
    targets: dict = field(default_factory=dict)  # size: the most that ours / GMP's may be
    twin: bool = False
    twin_target: float = None  # the least that twin / ours may be


EXACT = {
    "uint-product": ExactWork("product", [26, 65, 1039], {26: 1.5, 65: 2.0}, twin=True),
    "uint-fitting-product": ExactWork("product that just fits", [26, 65, 1039]),
    "uint-small-product": ExactWork("product with one limb", [26, 65, 1039]),
    "uint-small-quotient": ExactWork("quotient by one limb", [26, 65, 1039], twin=True),
    "uint-quotient": ExactWork("quotient by half as many limbs", [130, 1039], twin=True,
                               twin_target=2.0),
    "uint-mod-power": ExactWork("modular power", [65], twin=True, twin_target=2.0),
    "uint-gcd": ExactWork("greatest common divisor", [520], twin=True, twin_target=2.0),
    "uint-read": ExactWork("reading decimal text", [20000], twin=True, twin_target=2.0),
    "uint-write": ExactWork("writing decimal text", [20000], twin=True, twin_target=2.0),
}


LIMB_PRODUCT = "limb-product"
LIMB_PRODUCT_TARGET = 3.5  # the least that twin / ours may be


class DecimalLoop:
    """An expression evaluated once for each pair of operands in straight code."""

    def __init__(self, expression, pairs):
        names = {"one": decimal.Decimal(1), "Decimal": decimal.Decimal, "str": str,
                 "callable": callable, "clock": time.thread_time_ns}
        lines = []
        for i, (a, b) in enumerate(pairs):
            names |= {f"a{i}": decimal.Decimal(a), f"b{i}": decimal.Decimal(b), f"s{i}": a}
            lines.append("        " + re.sub(r"\b([abs])\b", rf"\g<1>{i}", expression))
        # As parameters all names are local variables, the cheapest to read.
        source = "\n".join([f"def loop(count, {', '.join(names)}):", "    start = clock()",
                            "    for _ in range(count):", *lines, "    return clock() - start"])
        namespace = {}
        exec(source, namespace)
        self.loop = namespace["loop"]
        self.values = list(names.values())
        self.pairs = len(pairs)
        self.count = 1
        # The first time warms up and tells nothing yet, unless the work is so slow that it does.
        spent = self.loop(1, *self.values)
        if spent > SECONDS_PER_MEASUREMENT * 1e9:
            self.repetitions = 1
            return
        while (spent := self.loop(self.count, *self.values)) < SECONDS_PER_REPETITION * 1e9:
            self.count *= 2
        self.repetitions = fitting_repetitions(spent)

    def measure(self):
        least = min(self.loop(self.count, *self.values) for _ in range(self.repetitions))
        return least / self.count / self.pairs


def use_precision(digits):
    decimal.setcontext(decimal.Context(
        prec=digits, rounding=decimal.ROUND_HALF_UP, Emin=decimal.MIN_EMIN, Emax=decimal.MAX_EMAX))


def time_of_plus(program):
    """What +x takes at the fewest digits: a new object, and x copied into it."""
    use_precision(DIGITS[0])
    pairs = program.operands("numbers", DIGITS[0])
    return DecimalLoop("+a", pairs).measure() - DecimalLoop("a is b", pairs).measure()


def compare_with_libmpdec(program, work, digits, rounds):
    use_precision(digits)
    pairs = program.operands(work.operands, digits)
    theirs_loop = DecimalLoop(work.theirs, pairs)
    empty_loop = DecimalLoop(work.empty, pairs)
    ours_repetitions = program.repetitions(work.name, "ours", digits, len(pairs))
    ours, theirs, mpfr = [], [], []
    for _ in rounds_of(rounds):
        ours.append(program.measure(work.name, "ours", digits, ours_repetitions))
        theirs.append(theirs_loop.measure() - empty_loop.measure())
        if work.mpfr:
            mpfr.append(program.measure(work.name, "mpfr", digits))
    return Row(work.title, digits, min(ours), min(theirs), [o / t for o, t in zip(ours, theirs)],
               work.targets.get(digits), mpfr=min(mpfr, default=None))


def compare_with_mpfr(program, work, digits, rounds):
    title, wanted = FUNCTIONS[work]
    return Row(title, digits, *compare_sides(program, work, ["ours", "mpfr"], digits, rounds),
               1.0 if digits in wanted else None)


def compare_with_twin(program, limbs, rounds):
    twin, ours, ratios = compare_sides(program, LIMB_PRODUCT, ["twin", "ours"], limbs, rounds)
    return Row(LIMB_PRODUCT, limbs, ours, twin, ratios, LIMB_PRODUCT_TARGET, at_least=True)


def compare_with_gmp(program, name, size, rounds):
    work = EXACT[name]
    return Row(work.title, size, *compare_sides(program, name, ["ours", "gmp"], size, rounds),
               work.targets.get(size))


def compare_with_exact_twin(program, name, size, rounds):
    work = EXACT[name]
    twin, ours, ratios = compare_sides(program, name, ["twin", "ours"], size, rounds)
    return Row(work.title, size, ours, twin, ratios, work.twin_target, at_least=True)


def compare_factorials(program, digits, rounds):
    return Row(FACTORIAL, digits,
               *compare_sides(program, FACTORIAL, ["series", "product"], digits, rounds))


def processor():
    for line in Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.split(":", 1)[1].strip()
    return platform.processor()


def main():
    parser = argparse.ArgumentParser(prog="bench/compare", description=__doc__,
                                     usage=argparse.SUPPRESS,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", help=argparse.SUPPRESS)
    parser.add_argument("--markdown", action="store_true", help=argparse.SUPPRESS)
    parser.add_argument("--rounds", type=int, default=7, help=argparse.SUPPRESS)
    names = list(dict.fromkeys([work.name for work in WORKS] + list(FUNCTIONS) + list(EXACT)
                               + list(FORMULAS) + [LIMB_PRODUCT, FACTORIAL] + prime_works.NAMES
                               + root_works.NAMES + algebra_works.NAMES))
    parser.add_argument("--only", nargs="+", choices=names, default=names, help=argparse.SUPPRESS)
    options = parser.parse_args()
    if options.rounds < 1:
        parser.error("--rounds wants a number from 1 up")
    if not hasattr(decimal, "__libmpdec_version__"):
        sys.exit("This Python's decimal module is not the C implementation; nothing to compare.")
    program = Program(options.program)
    gc.disable()

    markdown = options.markdown
    compiler, *libraries = program.output("--versions").splitlines()
    peers = [f"libmpdec {decimal.__libmpdec_version__} of Python {platform.python_version()}",
             *libraries, *prime_works.versions(), *root_works.versions()]
    print(f"{processor()}; {compiler}; {'; '.join(peers)}; {options.rounds} rounds; times in ns.")
    rows = []

    works = [work for work in WORKS if work.name in options.only]
    if works:
        print_heading("Beside libmpdec, and for the four operations MPFR for information", markdown)
        print(f"+x takes libmpdec {show_time(time_of_plus(program))} ns at {DIGITS[0]} digits."
              + ("\n" if markdown else ""))
        table = Table(markdown, [("work", -30), ("digits", 6), ("ours", 11), ("libmpdec", 11),
                                 ("ratio", 6), ("least - largest", 15), ("target", 7),
                                 ("", -6), ("MPFR", 9)])
        for work in works:
            for digits in DIGITS:
                row = compare_with_libmpdec(program, work, digits, options.rounds)
                rows.append(row)
                table.add([row.title, f"{digits:,}", show_time(row.ours), show_time(row.theirs),
                           *ratio_cells(row, "≤"), show_time(row.mpfr)])

    functions = [name for name in FUNCTIONS if name in options.only]
    if functions:
        print_heading("Functions beside MPFR", markdown)
        table = Table(markdown, [("function", -12), ("digits", 6), ("ours", 11), ("MPFR", 11),
                                 ("ratio", 6), ("least - largest", 15), ("target", 7), ("", -6)])
        for name in functions:
            for digits in DIGITS:
                row = compare_with_mpfr(program, name, digits, options.rounds)
                rows.append(row)
                table.add([row.title, f"{digits:,}", show_time(row.ours), show_time(row.theirs),
                           *ratio_cells(row, "≤")])

    exact = [name for name in EXACT if name in options.only]
    if exact:
        print_heading("Exact integers beside GMP, and twin / ours", markdown)
        table = Table(markdown, [("work", -31), ("size", 6), ("ours", 11), ("GMP", 11),
                                 ("ratio", 6), ("least - largest", 15), ("target", 7), ("", -6),
                                 ("twin", 13), ("ratio", 6), ("target", 7), ("", -6)])
        for name in exact:
            for size in EXACT[name].sizes:
                row = compare_with_gmp(program, name, size, options.rounds)
                rows.append(row)
                cells = [row.title, f"{size:,}", show_time(row.ours), show_time(row.theirs),
                         *ratio_cells(row, "≤")]
                if EXACT[name].twin:
                    row = compare_with_exact_twin(program, name, size, options.rounds)
                    rows.append(row)
                    ratio, _, target, verdict = ratio_cells(row, "≥")
                    cells += [show_time(row.theirs), ratio, target, verdict]
                else:
                    cells += [""] * 4
                table.add(cells)

    if FACTORIAL in options.only:
        print_heading("The factorial where its methods meet: the series beside the product",
                      markdown)
        table = Table(markdown, [("digits", 6), ("series", 11), ("product", 11), ("ratio", 6),
                                 ("least - largest", 15)])
        for digits in FACTORIAL_DIGITS:
            row = compare_factorials(program, digits, options.rounds)
            table.add([f"{digits:,}", show_time(row.ours), show_time(row.theirs),
                       *ratio_cells(row, "≤")[:2]])

    if LIMB_PRODUCT in options.only:
        print_heading("The limb product beside its plain twin, row by row; twin / ours", markdown)
        table = Table(markdown, [("limbs", 6), ("ours", 11), ("twin", 11), ("ratio", 6),
                                 ("least - largest", 15), ("target", 7), ("", -6)])
        for limbs in LIMBS:
            row = compare_with_twin(program, limbs, options.rounds)
            rows.append(row)
            table.add([f"{limbs}", show_time(row.ours), show_time(row.theirs),
                       *ratio_cells(row, "≥")])

    formulas = {name: text for name, text in FORMULAS.items() if name in options.only}
    if formulas:
        print_heading("Evaluating formulas", markdown)
        table = Table(markdown, [("formula", -58), ("digits", 6), ("ours", 11)])
        for name, text in formulas.items():
            for digits in DIGITS:
                least = min(program.measure(name, "ours", digits) for _ in range(options.rounds))
                table.add([f"`{text}`" if markdown else text, f"{digits:,}", show_time(least)])

    rows += prime_works.print_tables(program, options.only, options.rounds, markdown)
    rows += root_works.print_tables(program, options.only, options.rounds, markdown)
    rows += algebra_works.print_tables(program, options.only, options.rounds, markdown)

    verdicts = [verdict for row in rows for verdict in row.verdicts()]
    print(f"\n{verdicts.count(True)} of {len(verdicts)} targets met")
    return 0 if all(verdicts) else 1


if __name__ == "__main__":
    sys.exit(main())
