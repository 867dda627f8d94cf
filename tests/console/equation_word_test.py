"""The word equation of tallymere-console from outside.

console_support.py tells of the environment. Equations are made here from roots, so that the answer
is known.
"""

import random
import sys
import unittest
from decimal import Context, Decimal
from fractions import Fraction
from math import gcd

sys.dont_write_bytecode = True
from console_support import MESSAGES as FORMULA_MESSAGES  # noqa: E402
from console_support import (NATIVE, SEED, ConsoleCase, check_stop,  # noqa: E402
                             keep_console_waiting, run, shown)

MESSAGES = {
    2000: 'The highest coefficient "{}" must not be 0!',
    2002: 'Error evaluating coefficient "{}": {}',
    2003: 'The coefficient "{}" has to be real!',
    2005: 'The coefficient "{}" is not a rational number in numerator denominator representation '
          "or overflow in numerator or denominator!",
    1001: "Error in mathematical calculation!",
    2001: "Iteration method has not converged!",
    2006: 'Coefficient "{}" has to many characters!',
}
NO_REAL_ROOTS = "The equation has no real solutions."


def setUpModule():
    keep_console_waiting()


def error_line(code, *arguments):
    return f"error {code}: {MESSAGES[code].format(*arguments)}"


def expand(roots):
    """The coefficients, from the highest down, of the product of all (x - root)."""
    coefficients = [Fraction(1)]
    for root in roots:
        shifted = [*coefficients, Fraction(0)]
        for i, coefficient in enumerate(coefficients):
            shifted[i + 1] -= root * coefficient
        coefficients = shifted
    return coefficients


def rounded(value, digits):
    """A fraction of moderate size as the console shows it."""
    exact = Context(prec=digits + 60)
    return shown(exact.divide(Decimal(value.numerator), Decimal(value.denominator)), digits)


def real_lines(roots, digits):
    return [f"x{i + 1} = {rounded(root, digits)}   [{roots.count(root)}]"
            for i, root in enumerate(sorted(set(roots)))]


class RootTest(ConsoleCase):
    def test_real_roots(self):
        self.check(["equation", "1", "0", "-2"], b"",
                   ["x1 = -1.414213562   [1]", "x2 = 1.414213562   [1]"])
        self.check(["equation", "2", "3"], b"", ["x1 = -1.5   [1]"])
        self.check(["equation", "1", "0", "1"], b"", [NO_REAL_ROOTS])

    def test_complex_roots(self):
        self.check(["equation", "--mode", "complex", "1", "0", "1"], b"",
                   ["x1 = -i   [1]", "x2 = i   [1]"])
        self.check(["equation", "--mode=complex", "i", "2"], b"", ["x1 = 2i   [1]"])

    def test_exact_roots(self):
        self.check(["equation", "--exact", "1", "0", "-2"], b"",
                   ["x1 = -sqrt(2) ≈ -1.414213562   [1]", "x2 = sqrt(2) ≈ 1.414213562   [1]"])
        self.check(["equation", "--exact", "--mode", "complex", "2", "0", "1"], b"",
                   ["x1 = -1/2*sqrt(2)*i ≈ -0.7071067812i   [1]",
                    "x2 = 1/2*sqrt(2)*i ≈ 0.7071067812i   [1]"])
        self.check(["equation", "--exact", "1", "0", "0", "-2"], b"", ["x1 ≈ 1.25992105   [1]"])

    def test_multiplicities_can_be_left_out(self):
        self.check(["equation", "1", "-2", "1"], b"", ["x1 = 1   [2]"])
        self.check(["equation", "--no-multiplicity", "1", "-2", "1"], b"", ["x1 = 1"])

    def test_random_products_of_linear_factors(self):
        source = random.Random(SEED)
        for _ in range(60):
            degree = source.randint(1, 10)
            digits = source.choice([5, 10, 40])
            roots = [Fraction(source.randint(-99, 99), source.randint(1, 9))
                     for _ in range(degree)]
            for _ in range(source.randint(0, degree - 1)):
                roots[source.randrange(degree)] = source.choice(roots)
            operands = [str(coefficient) for coefficient in expand(roots)]
            texts = {rounded(root, digits) for root in roots}
            with self.subTest(roots=roots, digits=digits, seed=SEED):
                self.assertEqual(len(set(roots)), len(texts), "another seed")
                self.check(["equation", "--digits", str(digits), *operands], b"",
                           real_lines(roots, digits))

    def test_random_exact_fractions(self):
        source = random.Random(SEED)
        for _ in range(40):
            roots = [Fraction(source.randint(-20, 20), source.randint(1, 4))
                     for _ in range(source.randint(1, 6))]
            expected = []
            for i, root in enumerate(sorted(set(roots))):
                value = "" if root.denominator == 1 else f" ≈ {rounded(root, 10)}"
                expected.append(f"x{i + 1} = {root}{value}   [{roots.count(root)}]")
            operands = [str(coefficient) for coefficient in expand(roots)]
            with self.subTest(roots=roots, seed=SEED):
                self.check(["equation", "--exact", *operands], b"", expected)

    def test_random_exact_square_roots(self):
        source = random.Random(SEED)
        squarefree = [n for n in range(2, 60) if all(n % (p * p) for p in range(2, 8))]
        for _ in range(40):
            p, q, r = source.randint(1, 9), source.randint(1, 9), source.choice(squarefree)
            numerator, denominator = q // gcd(q, p + 1), (p + 1) // gcd(q, p + 1)
            factor = Fraction(numerator, denominator)
            operands = [str(c) for c in (Fraction(1), Fraction(-2 * p), p * p - factor**2 * r)]
            sign = "" if factor == 1 else f"{factor}*"
            lines, errors, status = run(["equation", "--exact", *operands])
            with self.subTest(p=p, factor=factor, r=r, seed=SEED):
                self.assertEqual(("", 0), (errors, status))
                self.assertEqual([f"x1 = {p}-{sign}sqrt({r})", f"x2 = {p}+{sign}sqrt({r})"],
                                 [line.split(" ≈ ")[0] for line in lines])

    def test_numbers_are_read_and_written_with_the_separators(self):
        self.check(["equation", "--decimal", "comma", "--thousands", "point", "--language", "de",
                    "2", "-1.000,5"], b"", ["x1 = 500,25   [1]"])
        self.check(["equation", "--language", "de", "1", "0", "1"], b"",
                   ["Die Gleichung hat keine reellen Lösungen."])

    def test_roots_are_not_grouped(self):
        self.check(["equation", "--group", "1", "-1234567"], b"", ["x1 = 1234567   [1]"])


class CoefficientTest(ConsoleCase):
    def test_formulas(self):
        self.check(["equation", "1", "-2*sqrt(3)", "3"], b"", ["x1 = 1.732050808   [2]"])
        self.check(["equation", "1", "", " "], b"", ["x1 = 0   [2]"])

    def test_what_is_wrong_is_told(self):
        undefined = FORMULA_MESSAGES["en"][10211].format(3)
        for options, operands, line in (
                ([], ["0", "1"], error_line(2000, "a1")),
                ([], ["", "*"], error_line(2000, "a1")),
                ([], ["1", "2*t", "3"], error_line(2002, "a1", undefined)),
                ([], ["1", "i"], error_line(2003, "a0")),
                (["--exact"], ["1", "0.5"], error_line(2005, "a0")),
                (["--exact"], ["1", "2^128"], error_line(2005, "a0")),
                ([], ["1", "1" * 1031], error_line(2006, "a0"))):
            with self.subTest(options=options, operands=operands):
                self.check(["equation", *options, *operands], b"", [line], status=1)

    def test_what_has_no_root_in_range(self):
        self.check(["equation", "1", "1e1000000000000000000", "1"], b"", [error_line(2001)],
                   status=1)
        self.check(["equation", "1e-4000000000000000000", "-1e4000000000000000000"], b"",
                   ["x1 = ∞   [1]", error_line(1001)], status=1)

    def test_bytes_that_are_no_text(self):
        if NATIVE:
            self.check(["equation", "1", "\udcff"], b"",
                       ["error 1000: " + FORMULA_MESSAGES["en"][1000].format("\ufffd")], status=1)


class OptionTest(ConsoleCase):
    def check_refused(self, arguments, message):
        lines, errors, status = run(["equation", *arguments])
        self.assertEqual(([], f"tallymere-console: {message}\n", 2), (lines, errors, status))

    def test_degrees(self):
        allowed = "allowed: 2 to 11, for the degrees 1 to 10"
        for operands in ([], ["1"]):
            self.check_refused(operands, f"too few coefficients; {allowed}")
        self.check_refused(["1"] * 12, f"too many coefficients; {allowed}")
        self.check(["equation", *["0"] * 9, "1"], b"", [error_line(2000, "a9")], status=1)

    def test_digits(self):
        for value in ("4", "2001", "x", ""):
            self.check_refused(["--digits", value, "1", "1"],
                               f'--digits: "{value}" is not allowed; allowed: 5 to 2000')
        for degree, most in ((1, 2000), (4, 2000), (5, 1000), (7, 1000), (8, 750), (10, 750)):
            operands = ["3", *["0"] * (degree - 1), "1"]
            with self.subTest(degree=degree):
                if most < 2000:
                    self.check_refused(["--digits", str(most + 1), *operands],
                                       f'--digits: "{most + 1}" is too much for degree {degree}; '
                                       f"allowed: 5 to {most}")
                lines, _, status = run(["equation", "--mode", "complex", "--digits", str(most),
                                        *operands])
                self.assertEqual((degree, 0), (len(lines), status))

    def test_help_names_the_digits_of_every_degree(self):
        usage = " ".join(" ".join(run(["equation", "--help"])[0]).split())
        self.assertIn("--digits N digits of the roots, 5 to 2000 (10), to 1000 above degree 4, "
                      "to 750 above degree 7 --no-multiplicity", usage)

    def test_modes(self):
        self.check_refused(["--mode", "rat", "1", "1"],
                           '--mode: "rat" is not allowed; allowed: real, complex')

    def test_options_end_at_the_first_coefficient(self):
        self.check(["equation", "1", "--exact"], b"",
                   [error_line(2002, "a0", FORMULA_MESSAGES["en"][10200].format(2))], status=1)
        self.check(["equation", "--", "-1", "2"], b"", ["x1 = 2   [1]"])
        self.check(["equation", "-1", "2"], b"", ["x1 = 2   [1]"])


if NATIVE:
    class StopTest(unittest.TestCase):
        def test_ctrl_c_ends_the_reading_of_coefficients(self):
            slow = "+".join(["logx(3;10)"] * 90)
            check_stop(self, ["equation", "--digits", "750", *[slow] * 11],
                       b" s, finding the roots")


if __name__ == "__main__":
    unittest.main()
