"""tallymere-console with the exact number types, uint and rat: forms, bases, ans, and the way from
fractions to real numbers. Expected values are computed here.

console_support.py tells of the environment.
"""

import random
import sys
import unittest
from decimal import ROUND_HALF_UP, Context, Decimal
from fractions import Fraction
from math import comb, factorial, gcd, isqrt, lcm, perm

sys.dont_write_bytecode = True
from console_support import SEED, ConsoleCase, error_line, keep_console_waiting  # noqa: E402

LOST = "\t[ ]"
UINT_MAX = 2**(64 * 1039) - 1
PREFIXES = {2: "0y", 8: "0t", 10: "", 16: "0x"}

# Numbers of thousands of digits are converted here as well.
if hasattr(sys, "set_int_max_str_digits"):
    sys.set_int_max_str_digits(0)


def setUpModule():
    keep_console_waiting()


def grouped(digits, size, mark="'"):
    first = len(digits) % size or size
    return mark.join([digits[:first], *(digits[i:i + size]
                                        for i in range(first, len(digits), size))])


def in_base(value, base, group=False, lower=False):
    digits = format(value, {2: "b", 8: "o", 10: "d", 16: "x" if lower else "X"}[base])
    return PREFIXES[base] + (grouped(digits, 3 if base == 10 else 4) if group else digits)


def scientific(value):
    digits = str(value)
    mantissa = digits.rstrip("0") or "0"
    fraction = "." + mantissa[1:] if len(mantissa) > 1 else ""
    return f"{mantissa[0]}{fraction}e+{len(digits) - 1}"


def mixed(value):
    if value.denominator == 1:
        return str(value)
    whole, rest = divmod(abs(value.numerator), value.denominator)
    sign = "-" if value < 0 else "+"
    return f"{'-' if value < 0 and whole else ''}{whole}{sign}{rest}/{value.denominator}"


class UintTest(ConsoleCase):
    def test_every_operation(self):
        n = 10**50 + 7
        formulas = [(f"{n}+5", n + 5), (f"{n}-5", n - 5), (f"{n}*{n}", n * n), ("2^200", 2**200),
                    (f"{n} mod 97", n % 97), ("fact(30)", factorial(30)),
                    ("ncr(49;6)", comb(49, 6)), ("npr(49;6)", perm(49, 6)),
                    (f"gcd({n};{n + 36})", gcd(n, n + 36)),
                    ("lcm(84;60)", lcm(84, 60)), (f"powmod(3;{n};1000003)", pow(3, n, 1000003)),
                    ("sqrt(144)", 12), ("1e3+1.5e1", 1015), ("2^3^2", 512), ("(1+2)*3", 9),
                    ("0xFF+0y11+0t17+1", 255 + 3 + 15 + 1), ("1'000+1", 1001)]
        self.check(["--type", "uint"], "\n".join(formula for formula, _ in formulas),
                   [str(value) for _, value in formulas])

    def test_bases_and_groups(self):
        values = [0, 1, 10, 255, 256, 4095, 4096, 2**64 - 1, 2**64, 10**40, UINT_MAX]
        text = "\n".join(in_base(value, 16) for value in values)
        for base in PREFIXES:
            for group in (False, True):
                for lower in (False, True):
                    with self.subTest(base=base, group=group, lower=lower):
                        arguments = ["--type", "uint", "--base", str(base)]
                        arguments += ["--group"] * group + ["--lower-hex"] * lower
                        self.check(arguments, text,
                                   [in_base(value, base, group, lower) for value in values])

    def test_ans_reads_back_in_every_base_and_form(self):
        value = 3**500
        for base in PREFIXES:
            for form in ("auto", "fixed", "scientific", "mixed"):
                with self.subTest(base=base, form=form):
                    shown_value = (scientific if base == 10 and form == "scientific" else
                                   lambda v: in_base(v, base, True, True))
                    self.check(["--type", "uint", "--base", str(base), "--form", form, "--group",
                                "--lower-hex"], "3^500\nans\nans+1\nans-1\n",
                               [shown_value(v) for v in (value, value, value + 1, value)])

    def test_separators(self):
        self.check(["--type", "uint", "--group", "--decimal", "comma", "--thousands", "point",
                    "1.234.567*1000", "ans", "1,5e1"], b"", ["1.234.567.000"] * 2 + ["15"])
        self.check(["--type", "uint", "--form", "scientific", "--decimal", "comma", "15"], b"",
                   ["1,5e+1"])

    def test_a_lost_remainder_is_marked(self):
        self.check(["--type", "uint", "7/2", "ans", "6/2", "sqrt(10)", "sqrt(9)", "1+7/2-1",
                    "7/2+"], b"",
                   ["3" + LOST, "3", "3", "3" + LOST, "3", "3" + LOST, error_line(10202, 5)],
                   status=1)
        self.check(["--type", "uint", "--base", "2", "7/2"], b"", ["0y11" + LOST])
        self.check(["--type", "uint", "--var", "x=7/2", "x*x", "5"], b"", ["9" + LOST, "5"])

    def test_what_is_no_unsigned_integer_fails(self):
        formulas = {"1-2": (10203, 4), "-1": (10203, 3), "1/0": (10203, 4), "1.5": (10208, 1),
                    "2^66496": (10203, 8), "2*0x": (10208, 3), "0y12": (10208, 1), "i": (10207, 1),
                    "1e20018": (10208, 1), "5+i": (10207, 3), "x": (10211, 1)}
        self.check(["--type", "uint"], "\n".join(formulas),
                   [error_line(*where) for where in formulas.values()], status=1)

    def test_digits_do_not_matter(self):
        self.check(["--type", "uint", "--digits", "1", "123456789"], b"", ["123456789"])

    def test_variables(self):
        self.check(["--type", "uint", "--base", "16", "--var", "x=0xFF", "--var", "y=1e2", "x+y"],
                   b"", [in_base(355, 16)])
        self.check(["--type", "uint", "--var", "x=0.5", "2*x", "1"], b"",
                   [error_line(10212, 3), "1"], status=1)

    def test_random_integers(self):
        source = random.Random(SEED)
        lines, expected = [], []
        for _ in range(400):
            a = source.getrandbits(source.choice([8, 64, 65, 500, 5000, 30000]))
            b = source.getrandbits(source.choice([8, 64, 65, 500, 5000, 30000])) + 1
            name, value, exact = source.choice([
                ("+", a + b, True), ("*", a * b, True), ("/", a // b, a % b == 0),
                (" mod ", a % b, True)])
            base = source.choice(list(PREFIXES))
            lines.append(in_base(a, base) + name + in_base(b, base))
            expected.append(str(value) + ("" if exact else LOST))
        with self.subTest(seed=SEED):
            self.check(["--type", "uint"], "\n".join(lines), expected)

    def test_square_roots_of_long_numbers(self):
        values = [10**9999 + 1, 7**2000, 10**20000 - 1]
        self.check(["--type", "uint"], "\n".join(f"sqrt({value})" for value in values),
                   [str(isqrt(value)) + ("" if isqrt(value)**2 == value else LOST)
                    for value in values])


class RationalTest(ConsoleCase):
    VALUES = [Fraction(7, 3), Fraction(1, 3), Fraction(6, 2), Fraction(0), Fraction(-7, 3),
              Fraction(-1, 3), Fraction(-5), Fraction(10**30, 7), Fraction(1, 10**12),
              Fraction(123456789, 1000)]

    def formulas(self):
        return "\n".join(f"({value.numerator})/{value.denominator}" for value in self.VALUES)

    def test_every_operation(self):
        formulas = [("1/3+1/6", Fraction(1, 2)), ("1/2-2/3", Fraction(-1, 6)),
                    ("2/3*9/4", Fraction(3, 2)), ("(2/3)/(4/9)", Fraction(3, 2)),
                    ("(2/3)^3", Fraction(8, 27)), ("(2/3)^(0-3)", Fraction(27, 8)),
                    ("-2^2", Fraction(-4)), ("(7/2) mod (2/3)", Fraction(1, 6)),
                    ("sqrt(4/9)", Fraction(2, 3)), ("abs(0-3/4)", Fraction(3, 4)),
                    ("trunc(7/2)", Fraction(3)), ("frac(7/2)", Fraction(1, 2)),
                    ("fact(20)", Fraction(factorial(20))), ("ncr(1/2;2)", Fraction(-1, 8)),
                    ("1.5e1/4", Fraction(15, 4))]
        self.check(["--type", "rat"], "\n".join(formula for formula, _ in formulas),
                   [str(value) for _, value in formulas])

    def test_forms(self):
        for digits in (1, 10, 50):
            working = Context(prec=digits, rounding=ROUND_HALF_UP)
            values = [Decimal(str(Context(prec=digits + 2, rounding=ROUND_HALF_UP).divide(
                Decimal(value.numerator), Decimal(value.denominator)))) for value in self.VALUES]
            values = [working.plus(value) for value in values]
            arguments = ["--type", "rat", "--digits", str(digits), "--form"]
            self.check([*arguments, "auto"], self.formulas(), [str(value) for value in self.VALUES])
            self.check([*arguments, "mixed"], self.formulas(),
                       [mixed(value) for value in self.VALUES])
            fixed = [f"{value:f}" for value in values]
            self.check([*arguments, "fixed"], self.formulas(),
                       [text.rstrip("0").rstrip(".") if "." in text else text for text in fixed])
            exponents = [f"{value:e}".split("e") if value else ["0", "+0"] for value in values]
            self.check([*arguments, "scientific"], self.formulas(),
                       [(m.rstrip("0").rstrip(".") if "." in m else m) + "e" + e
                        for m, e in exponents])

    def test_groups_and_separators(self):
        self.check(["--type", "rat", "--group", "1234567/1000"], b"", ["1'234'567/1'000"])
        self.check(["--type", "rat", "--group", "--form", "mixed", "1234567/1000"], b"",
                   ["1'234+567/1'000"])
        self.check(["--type", "rat", "--group", "--form", "fixed", "--decimal", "comma",
                    "--thousands", "point", "2469135/2"], b"", ["1.234.567,5"])

    def test_ans_reads_back(self):
        for form in ("auto", "mixed"):
            for value in self.VALUES:
                text = str(value) if form == "auto" else mixed(value)
                expected = 3 * value
                self.check(["--type", "rat", "--form", form],
                           f"({value.numerator})/{value.denominator}\n3*ans\n",
                           [text, str(expected) if form == "auto" else mixed(expected)])

    def test_a_result_without_a_fraction_makes_the_session_real(self):
        self.check(["--type", "rat", "1/3", "sqrt(2)", "1/3", "ans*3"], b"",
                   ["1/3", "1.414213562", "0.3333333333", "0.9999999999"])
        self.check(["--type", "rat", "--digits", "20", "--form", "mixed", "7/3", "pi", "7/3"], b"",
                   ["2+1/3", "3.1415926535897932385", "2.3333333333333333333"])
        # The text shown is no fraction.
        self.check(["--type", "rat", "--form", "fixed", "1/4", "1/3", "ans+1", "1/3"], b"",
                   ["0.25", "0.3333333333", "1.333333333", "0.3333333333"])
        self.check(["--type", "rat", "--form", "scientific", "1/3", "1/0", "2/3"], b"",
                   ["3.333333333e-1", error_line(10203, 4), "6.666666667e-1"], status=1)

    def test_what_fails_in_both_types_leaves_fractions_in_force(self):
        self.check(["--type", "rat", "1.5+", "1/0", "powmod(1;2;3)", "1.5+i", "x", "1/3"], b"",
                   [error_line(10202, 5), error_line(10203, 4), error_line(10209, 1),
                    error_line(10207, 5), error_line(10211, 1), "1/3"], status=1)
        self.check(["--type", "rat", "--language", "de", "1.5+", "1/3"], b"",
                   [error_line(10202, 5, "de"), "1/3"], status=1)

    def test_variables(self):
        self.check(["--type", "rat", "--var", "x=1/3", "--var", "y=2*3", "x*y", "x-1"], b"",
                   ["2", "-2/3"])
        self.check(["--type", "rat", "--var", "x=0.25", "1/3", "x", "1/3"], b"",
                   ["1/3", "0.25", "0.3333333333"])
        # Variables that do not occur are not read.
        self.check(["--type", "rat", "--var", "x=0.25", "1/3"], b"", ["1/3"])

    def test_random_fractions(self):
        source = random.Random(SEED)

        def operand():
            bits = source.choice([3, 20, 64, 200, 3000])
            return Fraction(source.getrandbits(bits) - source.getrandbits(bits),
                            source.getrandbits(bits) + 1)

        lines, expected = [], []
        for _ in range(300):
            a, b = operand(), operand() or Fraction(1)
            name, value = source.choice([("+", a + b), ("-", a - b), ("*", a * b), ("/", a / b)])
            lines.append(f"(({a.numerator})/{a.denominator}){name}"
                         f"(({b.numerator})/{b.denominator})")
            expected.append(str(value))
        with self.subTest(seed=SEED):
            self.check(["--type", "rat"], "\n".join(lines), expected)


if __name__ == "__main__":
    unittest.main()
