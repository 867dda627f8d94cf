"""The word polynomial of tallymere-console from outside.

console_support.py tells of the environment. Polynomials are calculated here with fractions.
"""

import random
import sys
import unittest
from decimal import Context, Decimal
from fractions import Fraction

sys.dont_write_bytecode = True
from console_support import MESSAGES as FORMULA_MESSAGES  # noqa: E402
from console_support import (NATIVE, SEED, ConsoleCase, check_stop,  # noqa: E402
                             keep_console_waiting, run, shown)

MESSAGES = {
    1001: "Error in mathematical calculation!",
    1002: "Division by 0!",
    3300: 'Error evaluating coefficient "{}" in polynomial "{}": {}',
    3301: 'The coefficient "{}" in polynomial "{}" is too long!',
    3302: "The maximum polynomial degree of the result may not exceed 20!",
    3303: 'The polynomial "P1(x)" must be an integer number from 0 to 20!',
}
HIGHEST_FIXED_EXPONENT = 9
DEGREE_20 = "1" + ";0" * 20


def setUpModule():
    keep_console_waiting()


def error_line(code, *arguments):
    return f"error {code}: {MESSAGES[code].format(*arguments)}"


def pattern(degree, letter):
    terms = [f"{letter}{i}" + ("*x" if i else "") + (f"^{i}" if i > 1 else "")
             for i in range(degree, -1, -1)]
    if degree >= 5:
        terms[2:-2] = ["..."]
    return " + ".join(terms)


def degree_of(polynomial):
    """Coefficients stand from the constant up."""
    return max([i for i, value in enumerate(polynomial) if value], default=0)


def rounded(value, digits):
    if digits is None:
        return str(value)
    exact = Context(prec=digits + 200)
    return shown(exact.divide(Decimal(value.numerator), Decimal(value.denominator)), digits,
                 HIGHEST_FIXED_EXPONENT + 1)


def coefficient_lines(polynomial, letter, digits):
    return [f"{letter}{i} = {rounded(polynomial[i], digits)}"
            for i in range(degree_of(polynomial), -1, -1)]


def add(a, b, sign=1):
    length = max(len(a), len(b))
    a, b = [p + [Fraction(0)] * (length - len(p)) for p in (a, b)]
    return [x + sign * y for x, y in zip(a, b)]


def multiply(a, b):
    product = [Fraction(0)] * (len(a) + len(b) - 1)
    for i, x in enumerate(a):
        for j, y in enumerate(b):
            product[i + j] += x * y
    return product


def divide(a, b):
    degree = degree_of(b)
    quotient, rest = [Fraction(0)] * len(a), list(a)
    for k in range(degree_of(a), degree - 1, -1):
        term = rest[k] / b[degree]
        quotient[k - degree] = term
        for j in range(degree + 1):
            rest[k - degree + j] -= term * b[j]
    return quotient, rest


def operand(polynomial):
    return ";".join(str(value) for value in reversed(polynomial))


class ResultTest(ConsoleCase):
    def test_sums_and_differences(self):
        self.check(["polynomial", "+", "1;2", "3;4;5"], b"",
                   ["P0(x) + P1(x) = b2*x^2 + b1*x + b0", "", "b2 = 3", "b1 = 5", "b0 = 7"])
        self.check(["polynomial", "-", "1;2", "1;4", "5"], b"",
                   ["P0(x) - P1(x) - P2(x) = b0", "", "b0 = -7"])

    def test_products(self):
        self.check(["polynomial", "*", "1;1", "1;-1"], b"",
                   ["P0(x) * P1(x) = b2*x^2 + b1*x + b0", "", "b2 = 1", "b1 = 0", "b0 = -1"])
        lines, _, status = run(["polynomial", "*", *["1;1"] * 12])
        self.assertEqual((15, "b6 = 924", 0), (len(lines), lines[8], status))

    def test_quotients(self):
        self.check(["polynomial", "--type", "rat", "/", "1;2;3", "3;1"], b"",
                   ["P0(x) / P1(x) = b1*x + b0    Remainder    r0", "", "b1 = 1/3", "b0 = 5/9", "",
                    "r0 = 22/9"])
        self.check(["polynomial", "/", "5;6", "1;2;3"], b"",
                   ["P0(x) / P1(x) = b0    Remainder    r1*x + r0", "", "b0 = 0", "", "r1 = 5",
                    "r0 = 6"])

    def test_powers(self):
        self.check(["polynomial", "^", "1;1", "2"], b"",
                   ["P0(x) ^ 2 = b2*x^2 + b1*x + b0", "", "b2 = 1", "b1 = 2", "b0 = 1"])
        self.check(["polynomial", "^", "1;1", "0"], b"", ["P0(x) ^ 0 = b0", "", "b0 = 1"])

    def test_complex_coefficients(self):
        self.check(["polynomial", "--type", "cplx", "--digits=5", "*", "1;1/3i", "1;i"], b"",
                   ["P0(x) * P1(x) = b2*x^2 + b1*x + b0", "", "b2 = 1", "b1 = 0.66667i",
                    "b0 = 0.33333"])

    def test_coefficients_are_formulas(self):
        self.check(["polynomial", "+", "1;;root(3; 8)", " "], b"",
                   ["P0(x) + P1(x) = b2*x^2 + b1*x + b0", "", "b2 = 1", "b1 = 0", "b0 = 2"])
        self.check(["polynomial", "--digits", "20", "*", "sqrt(2)", "1"], b"",
                   ["P0(x) * P1(x) = b0", "", "b0 = 1.4142135623730950488"])

    def test_numbers_are_read_and_written_as_asked(self):
        self.check(["polynomial", "--decimal", "comma", "--thousands", "point", "--group", "+",
                    "1.234,5", "1000000"], b"", ["P0(x) + P1(x) = b0", "", "b0 = 1.001.234,5"])
        self.check(["polynomial", "--language", "de", "/", "1", "2"], b"",
                   ["P0(x) / P1(x) = b0    Rest    r0", "", "b0 = 0.5", "", "r0 = 0"])

    def test_random_polynomials(self):
        source = random.Random(SEED)
        for _ in range(60):
            kind = source.choice(["rat", "real"])
            digits = source.choice([5, 10, 40]) if kind == "real" else None
            polynomials = [
                [Fraction(source.randint(-99, 99), 1 if digits else source.randint(1, 9))
                 for _ in range(source.randint(1, 6))] for _ in range(2)]
            a, b = polynomials
            b[-1] = b[-1] or Fraction(1)
            operator = source.choice("+-*/^")
            texts, rest, second = [operand(p) for p in polynomials], None, "P1(x)"
            if operator in "+-":
                result = add(a, b, 1 if operator == "+" else -1)
            elif operator == "*":
                result = multiply(a, b)
            elif operator == "/":
                result, rest = divide(a, b)
            else:
                exponent = source.randint(0, 20 // max(degree_of(a), 1))
                texts[1] = second = str(exponent)
                result = [Fraction(1)]
                for _ in range(exponent):
                    result = multiply(result, a)
            head = f"P0(x) {operator} {second} = {pattern(degree_of(result), 'b')}"
            lines = coefficient_lines(result, "b", digits)
            if rest is not None:
                head += f"    Remainder    {pattern(degree_of(rest), 'r')}"
                lines += ["", *coefficient_lines(rest, "r", digits)]
            options = ["--type", kind] + (["--digits", str(digits)] if digits else [])
            with self.subTest(operator=operator, texts=texts, options=options, seed=SEED):
                self.check(["polynomial", *options, operator, *texts], b"", [head, "", *lines])


class ErrorTest(ConsoleCase):
    def test_what_is_wrong_is_told(self):
        end = FORMULA_MESSAGES["en"][10202]
        for operands, line in (
                (["/", "1;1", "0;0"], error_line(1002)),
                (["*", DEGREE_20, "1;0"], error_line(3302)),
                (["^", "1;0;0", "11"], error_line(3302)),
                (["^", "1", "1;0"], error_line(3303)),
                (["^", "1", "-1"], error_line(3303)),
                (["+", "1", "2+;3"], error_line(3300, "a1", "P1(x)", end)),
                (["+", "1", "1" * 1031], error_line(3301, "a0", "P1(x)")),
                (["*", "1e4000000000000000000", "1e4000000000000000000"], error_line(1001))):
            with self.subTest(operands=operands):
                self.check(["polynomial", *operands], b"", [line], status=1)

    def test_bytes_that_are_no_text(self):
        if NATIVE:
            self.check(["polynomial", "+", "1", "\udcff"], b"",
                       ["error 1000: " + FORMULA_MESSAGES["en"][1000].format("\ufffd")], status=1)


class OptionTest(ConsoleCase):
    def check_refused(self, arguments, message):
        lines, errors, status = run(["polynomial", *arguments])
        self.assertEqual(([], f"tallymere-console: {message}\n", 2), (lines, errors, status))

    def test_operators(self):
        allowed = "allowed: +, -, *, /, ^"
        self.check_refused([], f"there is no operator; {allowed}")
        for value in ("x", "", "++", "1"):
            self.check_refused([value, "1", "1"], f'OPERATOR: "{value}" is not allowed; {allowed}')

    def test_counts(self):
        for operator in "+-*":
            for count in (0, 1):
                self.check_refused([operator, *["1"] * count],
                                   f"too few polynomials for {operator}; allowed: 2 to 12")
            self.check_refused([operator, *["1"] * 13],
                               f"too many polynomials for {operator}; allowed: 2 to 12")
        for operator in "/^":
            self.check_refused([operator, "1"], f"too few polynomials for {operator}; allowed: 2")
            self.check_refused([operator, *["1"] * 3],
                               f"too many polynomials for {operator}; allowed: 2")

    def test_degrees(self):
        self.check(["polynomial", "-", DEGREE_20, DEGREE_20], b"",
                   ["P0(x) - P1(x) = b0", "", "b0 = 0"])
        self.check_refused(["-", "1", "0;" + DEGREE_20],
                           "too many coefficients in P1(x); allowed: 1 to 21, for the degrees 0 to "
                           "20")

    def test_digits_and_types(self):
        for value in ("4", "1001", "x", ""):
            self.check_refused(["--digits", value, "+", "1", "1"],
                               f'--digits: "{value}" is not allowed; allowed: 5 to 1000')
        self.check_refused(["--type", "uint", "+", "1", "1"],
                           '--type: "uint" is not allowed; allowed: real, cplx, rat')
        lines, _, status = run(["polynomial", "--digits", "1000", "+", "2/3", "0"])
        self.assertEqual((["b0 = 0." + "6" * 999 + "7"], 0), (lines[2:], status))

    def test_options_end_at_the_operator(self):
        self.check(["polynomial", "+", "1", "--digits"], b"",
                   [error_line(3300, "a0", "P1(x)", FORMULA_MESSAGES["en"][10200].format(2))],
                   status=1)
        self.check(["polynomial", "--", "-", "-1", "-2"], b"",
                   ["P0(x) - P1(x) = b0", "", "b0 = 1"])


if NATIVE:
    class StopTest(unittest.TestCase):
        def test_ctrl_c_ends_the_reading_of_coefficients(self):
            slow = ";".join(["+".join(["logx(3;10)"] * 90)] * 21)
            check_stop(self, ["polynomial", "--digits", "1000", "+", *[slow] * 12],
                       b" s, calculating")


if __name__ == "__main__":
    unittest.main()
