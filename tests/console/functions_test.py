"""Every function of formulas through the console, in the types real and cplx.

Expected values are computed here, by this machine's own functions.
"""

import cmath
import math
import sys
import unittest
from decimal import Decimal

sys.dont_write_bytecode = True
from console_support import (TOO_LONG, ConsoleCase, error_line, keep_console_waiting,  # noqa: E402
                             shown)


def setUpModule():
    keep_console_waiting()


def unit_of(turn):
    """A function that takes an angle in units of which a turn has so many, to radians."""
    return lambda angle: angle * 2 * math.pi / turn


def angle_functions():
    """(formula, value) for sine, cosine, tangent and their inverses in each unit."""
    for suffix, turn in (("", 2 * math.pi), ("d", 360), ("g", 400)):
        to_radians = unit_of(turn)
        for name in ("sin", "cos", "tan"):
            yield f"{name}{suffix}(1.25)", getattr(math, name)(to_radians(1.25))
            yield f"a{name}{suffix}(0.375)", getattr(math, "a" + name)(0.375) / to_radians(1)


# Every function that takes real numbers, with a value from this machine's own.
REAL_FUNCTIONS = [
    ("sqrt(2)", math.sqrt(2)), ("cbrt(0-2)", -2 ** (1 / 3)), ("ln(2)", math.log(2)),
    ("log2(3)", math.log2(3)), ("log10(2)", math.log10(2)), ("exp(1)", math.e),
    ("abs(0-2.5)", 2.5), *angle_functions(), ("sinh(1.25)", math.sinh(1.25)),
    ("cosh(1.25)", math.cosh(1.25)), ("tanh(1.25)", math.tanh(1.25)),
    ("asinh(1.25)", math.asinh(1.25)), ("acosh(1.25)", math.acosh(1.25)),
    ("atanh(0.25)", math.atanh(0.25)), ("fact(12)", math.factorial(12)), ("root(5;2)", 2 ** 0.2),
    ("trunc(0-2.75)", -2), ("frac(0-2.75)", -0.75), ("round(0-2.75)", -3),
    ("ncr(20;3)", math.comb(20, 3)), ("npr(20;3)", math.perm(20, 3)), ("logx(3;2)", math.log(2, 3)),
    ("gcd(84;60)", 12), ("lcm(84;60)", 420), ("pi", math.pi), ("\u03c0", math.pi),
    ("2^0.5", math.sqrt(2)), ("10^0.5", math.sqrt(10)), ("3^0.5", math.sqrt(3)), ("3^12", 3**12),
    ("2^(0-3)", 0.125), ("10^4", 10**4),
]
Z = 3 - 1.25j
COMPLEX_FUNCTIONS = [
    ("abs(Z)", abs(Z)), ("arg(Z)", cmath.phase(Z)), ("argd(Z)", math.degrees(cmath.phase(Z))),
    ("argg(Z)", math.degrees(cmath.phase(Z)) / 0.9), ("realp(Z)", 3), ("imagp(Z)", -1.25),
    ("sqrtc(Z;0)", cmath.sqrt(Z)), ("sqrtc(Z;1)", -cmath.sqrt(Z)),
    ("cbrtc(Z;1)", Z ** (1 / 3) * cmath.rect(1, 2 * math.pi / 3)),
    ("rootc(5;Z;3)", Z ** 0.2 * cmath.rect(1, 6 * math.pi / 5)),
    ("trunc(Z)", 3 - 1j), ("frac(Z)", -0.25j), ("round(Z)", 3 - 1j), ("Z^3", Z**3),
    ("Z^(0-2)", Z**-2), ("Z*Z", Z * Z), ("1/Z", 1 / Z), ("Z i", Z * 1j + 0),
]


def shown_complex(value, digits):
    """A complex number as the calculator shows it, both parts in fixed notation."""
    value = complex(value)
    real, imaginary = (shown(Decimal(part), digits) for part in (value.real, value.imag))
    if imaginary == "0":
        return real
    imaginary = {"1": "", "-1": "-"}.get(imaginary, imaginary) + "i"
    if real == "0":
        return imaginary
    return real + ("" if imaginary.startswith("-") else "+") + imaginary


class FunctionTest(ConsoleCase):
    def test_every_function_of_real_numbers_in_both_types(self):
        formulas = "\n".join(formula for formula, _ in REAL_FUNCTIONS)
        expected = [shown(Decimal(value), 10) for _, value in REAL_FUNCTIONS]
        self.check([], formulas, expected)
        self.check(["--type", "cplx"], formulas, expected)

    def test_angles_keep_their_digits(self):
        """Large ones, and those next to zeros and poles; in degrees and gon they are exact."""
        for number_type in ("real", "cplx"):
            self.check(["--type", number_type],
                       "sind(36030)\ncosd(450.1)\nsind(1000000)\ntand(89.9999)\ncosg(99.999999)\n"
                       "sind(1.8e9)\ncosg(0-1e20)\nsin(3.14159265)\nsin(pi)",
                       ["0.5", "-0.001745328366", "-0.984807753", "572957.7951", "1.570796327e-8",
                        "0", "1", "3.589793238e-9", "0"])

    def test_poles_and_angles_that_are_too_large(self):
        self.check([], "tand(90)\ntand(9000000090)\ntang(0-100)\nsind(1e21)",
                   [error_line(10203, 1)] * 3 + [error_line(10203, 10)], 1)

    def test_a_coarse_angle_is_no_multiple_of_the_quarter_turn(self):
        self.check(["--digits", "5"], "sin(9.0325e7)\ntan(123456789)\nsin(pi)",
                   ["0.99543", "-0.13715", "0"])
        self.check(["--digits", "2"], "sin(pi)\nsind(180)", ["-4.1e-4", "0"])

    def test_angles_are_rounded_once_in_degrees_and_gon(self):
        self.check(["--digits", "2"], "atand(110)\natand(1)\natang(1)", ["89", "45", "50"])
        self.check(["--type", "cplx", "--digits", "3"], "argd(-1+i)\nargg(-1-i)",
                   ["135", "-150"])

    def test_every_function_of_complex_numbers(self):
        formulas = "\n".join(formula.replace("Z i", "(3-1.25i)*i").replace("Z", "(3-1.25i)")
                             for formula, _ in COMPLEX_FUNCTIONS)
        self.check(["--type", "cplx"], formulas,
                   [shown_complex(value, 10) for _, value in COMPLEX_FUNCTIONS])

    def test_functions_of_complex_numbers_need_their_type(self):
        self.check(["arg(1)", "1+realp(3)", "sqrtc(0-4;0)", "rootc(2;4;0)", "2i"], b"",
                   [error_line(10207, 1), error_line(10207, 3), error_line(10207, 1),
                    error_line(10207, 1), error_line(10207, 2)], status=1)

    def test_what_has_no_value_is_an_overflow(self):
        formulas = ["sqrt(0-4)", "ln(0)", "tand(90)", "1+tan(pi/2)*2", "fact(0.5)", "0^(0-1)",
                    "gcd(0;5)", "asin(2)", "exp(1e30)"]
        positions = [9, 5, 1, 3, 9, 8, 8, 7, 9]
        for number_type in ("real", "cplx"):
            self.check(["--type", number_type, *formulas], b"",
                       [error_line(10203, position) for position in positions], status=1)
        self.check(["--type", "cplx", "exp(1+i)", "2^i", "(1+i) mod 2", "(1+i)i"], b"",
                   [error_line(10203, 8), error_line(10203, 4), error_line(10203, 12),
                    error_line(10208, 6)], status=1)

    def test_multiples_of_the_quarter_turn_are_exact(self):
        self.check(["sind(180)", "cosd(90)", "tang(200)", "sin(pi)", "cos(pi)", "sin(1000*pi)"],
                   b"", ["0", "0", "0", "0", "-1", "0"])

    def test_powers_bind_from_right_to_left(self):
        self.check(["2^3^2", "-2^2", "2^100"], b"", ["512", "-4", "1.2676506e+30"])

    def test_many_digits(self):
        self.check(["--digits", "1000", "sqrt(2)^2", "ln(exp(2))", "sin(pi/6)", "2^3000/2^2999",
                    "fact(300)/fact(299)"], b"", ["2", "2", "0.5", "2", "300"])


class ComplexTest(ConsoleCase):
    def test_results_read_back_as_ans(self):
        self.check(["--type", "cplx", "(1+2i)*(3+4i)", "ans/2", "ans^2", "1e20i+1", "ans-1"], b"",
                   ["-5+10i", "-2.5+5i", "-18.75-25i", "1+(1e+20)i", "(1e+20)i"])

    def test_a_negative_unit_stands_behind_two_hyphens(self):
        self.check(["--type", "cplx", "--", "-i", "-i*2"], b"", ["-i", "-2i"])

    def test_forms_and_separators(self):
        self.check(["--type", "cplx", "--form", "scientific", "12-1.5i"], b"",
                   ["1.2e+1-(1.5e+0)i"])
        self.check(["--type", "cplx", "--form", "fixed", "--group", "--decimal", "comma",
                    "1e15i-12345,5"], b"", ["-12'345,5+1'000'000'000'000'000i"])
        self.check(["--type", "cplx", "--form", "fixed", "1e50000+(1e50000)i", "ans"], b"",
                   [TOO_LONG["en"], error_line(10212, 1)], status=1)

    def test_variables(self):
        self.check(["--type", "cplx", "--var", "z=1.5-2i", "--var", "w=sqrtc(0-1;0)", "z*w"], b"",
                   ["2+1.5i"])
        self.check(["--var", "z=1.5-2i", "z"], b"", [error_line(10212, 1)], status=1)


if __name__ == "__main__":
    unittest.main()
