#!/usr/bin/env python3
"""Makes the digits of the stored constants, src/functions/stored_constant_limbs.inc.

usage: tools/make_constants.py            writes the file
       tools/make_constants.py --check    compares it with what would be written; exits with 1 if
                                          they differ

Everything is integer arithmetic on values scaled by a power of ten, with digits to spare below
those that are kept. Each constant is computed by two formulas that share no series; the two must
agree in every digit kept, and no error of either may reach those digits, or nothing is written.
"""

import sys
from pathlib import Path

OUTPUT = Path(__file__).resolve().parent.parent / "src/functions/stored_constant_limbs.inc"

DIGITS_PER_LIMB = 19
LIMBS = 529
DIGITS = DIGITS_PER_LIMB * LIMBS
LIMBS_PER_LINE = 4

# A series of some thirty thousand truncated terms is off by far less than 10^10 units of the scale.
# The scale reaches to the end of the longest constant, which is kept in two records.
SPARE_DIGITS = 40
ERROR = 10**10
SCALE = 10 ** (2 * DIGITS + SPARE_DIGITS)


def power_series(x, sign):
    """Sum of sign^i / ((2 i + 1) x^(2 i + 1)), scaled."""
    power = SCALE // x
    total, i, direction = 0, 0, 1
    while power:
        total += direction * (power // (2 * i + 1))
        power //= x**2
        direction *= sign
        i += 1
    return total


def arctan(x):
    """arctan(1 / x) by its Taylor series."""
    return power_series(x, -1)


def artanh(x):
    """artanh(1 / x) by its Taylor series."""
    return power_series(x, 1)


def arctan_euler(x):
    """arctan(1 / x) by Euler's series: x / (x^2 + 1) times the sum of products of 2 i / (2 i + 1)
    over powers of x^2 + 1."""
    term = SCALE * x // (x**2 + 1)
    total, i = 0, 0
    while term:
        total += term
        i += 1
        term = term * 2 * i // ((2 * i + 1) * (x**2 + 1))
    return total


def log_of_inverse_complement(x):
    """-ln(1 - 1 / x) by its Taylor series."""
    power = SCALE // x
    total, i = 0, 1
    while power:
        total += power // i
        power //= x
        i += 1
    return total


def from_smooth(a, b, c):
    """a artanh(1/31) + b artanh(1/49) + c artanh(1/161): logarithms of products of 2, 3 and 5,
    from ln(32/30), ln(50/48) and ln(162/160)."""
    return a * artanh(31) + b * artanh(49) + c * artanh(161)


def inverse(x):
    return SCALE * SCALE // x


def machin():
    return 4 * arctan(5) - arctan(239)


def gauss():
    return 12 * arctan_euler(18) + 8 * arctan_euler(57) - 5 * arctan_euler(239)


# Name, decimal exponent of the leading digit, and the two formulas, in the order of the table.
CONSTANTS = [
    ("ConstPiQuarter: pi / 4", -1, machin, gauss),
    ("ConstLn12: ln 1.2", -1,
     lambda: 2 * artanh(11),
     lambda: from_smooth(4, 2, 2)),
    ("ConstLn101: ln 1.01", -3,
     lambda: 2 * artanh(201),
     lambda: log_of_inverse_complement(101)),
    ("ConstLn2: ln 2", -1,
     lambda: 2 * artanh(3),
     lambda: from_smooth(14, 10, 6)),
    ("ConstAtan351: arctan(1 / 351)", -3,
     lambda: arctan(351),
     lambda: arctan_euler(351)),
    ("ConstLn10: ln 10", 0,
     lambda: 6 * artanh(3) + 2 * artanh(9),
     lambda: from_smooth(46, 34, 20)),
    ("ConstLog10E: log10(e)", -1,
     lambda: inverse(6 * artanh(3) + 2 * artanh(9)),
     lambda: inverse(from_smooth(46, 34, 20))),
    ("ConstAtan21: arctan(1 / 21)", -2,
     lambda: arctan(21),
     lambda: arctan_euler(21)),
    ("ConstPiQuarterTail: the digits behind those of ConstPiQuarter", -1 - DIGITS, machin, gauss),
]


def leading_digits(scaled, exponent):
    """DIGITS digits of a scaled value from the place with that exponent on. They are its leading
    ones unless the exponent leaves out as many before them."""
    spare = 10 ** (DIGITS + SPARE_DIGITS + 1 + exponent)
    digits = scaled // spare
    if (scaled - ERROR) // spare != digits or (scaled + ERROR) // spare != digits:
        raise SystemExit("the last digits are not certain: raise SPARE_DIGITS")
    if exponent < -DIGITS:
        digits %= 10**DIGITS
    if not 10 ** (DIGITS - 1) <= digits < 10**DIGITS:
        raise SystemExit(f"the first digit kept, at exponent {exponent}, is 0 or not the leading one")
    return digits


def limbs_of(digits):
    limbs = []
    for _ in range(LIMBS):
        digits, limb = divmod(digits, 10**DIGITS_PER_LIMB)
        limbs.append(limb)
    return limbs[::-1]


def record(name, exponent, first, second):
    digits = leading_digits(first(), exponent)
    if leading_digits(second(), exponent) != digits:
        raise SystemExit(f"{name}: the two formulas differ")
    limbs = limbs_of(digits)
    lines = [f"// {name}", "{{%d, 0, 0, %d}," % (LIMBS, exponent), " {"]
    for start in range(0, LIMBS, LIMBS_PER_LINE):
        lines.append("  " + " ".join(f"{limb}u," for limb in limbs[start:start + LIMBS_PER_LINE]))
    return lines + [" }},"]


def content():
    lines = [
        "// Made by tools/make_constants.py; do not edit. For each constant limb count, reserved",
        f"// byte, sign and exponent, then {LIMBS} limbs of base 10^{DIGITS_PER_LIMB}: {DIGITS:,}"
        " digits, truncated.",
    ]
    for constant in CONSTANTS:
        lines += record(*constant)
    return "\n".join(lines) + "\n"


def main():
    if sys.argv[1:] not in ([], ["--check"]):
        print(__doc__)
        return 2
    made = content()
    if sys.argv[1:] == ["--check"]:
        if not OUTPUT.is_file() or OUTPUT.read_text(encoding="ascii") != made:
            print(f"{OUTPUT}: not what tools/make_constants.py writes")
            return 1
        return 0
    OUTPUT.write_text(made, encoding="ascii")
    return 0


if __name__ == "__main__":
    sys.exit(main())
