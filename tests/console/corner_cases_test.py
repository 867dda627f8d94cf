"""The corner cases of formulas, line by line, as a reader would try them: what one asks, and what
tallymere-console answers.

console_support.py tells of the environment.
"""

import sys
import unittest

sys.dont_write_bytecode = True
from console_support import ConsoleCase, error_line, keep_console_waiting  # noqa: E402

LOST = "\t[ ]"
MAX = "((2^66495-1)*2+1)"  # 2^66496 - 1, the largest integer of the type uint


def setUpModule():
    keep_console_waiting()


def answer_of(answer):
    """An answer as it stands, or the line of an error by code and position."""
    return answer if isinstance(answer, str) else error_line(*answer)


class CornerCaseTest(ConsoleCase):
    def ask(self, arguments, *lines):
        """Asks one console for all lines; each is a formula with its answer."""
        expected = [answer_of(answer) for _, answer in lines]
        failed = any(not isinstance(answer, str) for _, answer in lines)
        self.check(arguments, "\n".join(formula for formula, _ in lines), expected, int(failed))

    # --- The language of formulas ---

    def test_texts_that_are_no_formula(self):
        self.ask([],
                 ("1+\t2", (10200, 3)), ("1+", (10202, 3)), ("(1+", (10200, 4)),
                 ("1)", (10201, 2)), ("()", (10200, 2)), ("sin(1;2)", (10206, 1)),
                 ("2^-1", (10200, 3)), ("2*-3", (10200, 3)), ("2--1", (10200, 3)),
                 ("2pi", (10200, 2)), ("2(3)", (10200, 2)), ("(1)(2)", (10200, 4)),
                 ("sin 1", (10200, 5)), ("sqrt()", (10200, 6)), ("(1;2)", (10200, 3)),
                 (".5", (10200, 1)), ("1.2.3", (10208, 1)), ("1e2e3", (10208, 1)))

    def test_a_blank_line_is_no_formula_at_all(self):
        self.ask([], ("", ""), ("   ", ""), ("1", "1"))

    def test_parentheses_left_open_at_the_end_are_closed(self):
        self.ask([], ("(1", "1"), ("abs(-(2+3", "5"))

    def test_nesting(self):
        self.ask([], ("(" * 49 + "1" + ")" * 49, "1"), ("(" * 50 + "1" + ")" * 50, (10204, 51)))

    def test_names(self):
        self.ask([], ("SIN(1)", (10211, 1)), ("e", (10211, 1)), ("pi-\u03c0", "0"),
                 ("2e", (10211, 2)), ("i", (10207, 1)), ("ix", (10211, 1)),
                 ("realp(3)", (10207, 1)), ("powmod(2;3;5)", (10209, 1)))

    def test_what_binds_tightest(self):
        self.ask([], ("2^3^2", "512"), ("-2^2", "-4"), ("-2*3", "-6"), ("-3 mod 2", "-1"),
                 ("-2+3", "1"))

    def test_errors_stand_where_the_failing_operation_was_carried_out(self):
        self.ask([], ("1/0+2", (10203, 4)), ("1/0", (10203, 4)))

    # --- Numbers with a base ---

    def test_bases_belong_to_integers(self):
        self.ask(["--type", "uint"],
                 ("0x1F", "31"), ("0y102", (10208, 1)), ("0x", (10208, 1)), ("0x1e5", "485"),
                 ("0t17", "15"))
        for other in ("real", "cplx", "rat"):
            with self.subTest(type=other):
                self.ask(["--type", other], ("0x1F", (10208, 1)), ("0x", (10208, 1)))

    # --- Real and complex numbers ---

    def test_operators_of_real_numbers(self):
        self.ask([], ("7 mod (-2)", "-1"), ("(-7) mod 2", "-1"), ("6/0", (10203, 4)),
                 ("0*5", "0"), ("1e30*2", "2e+30"), ("2*1e30", "2e+30"))

    def test_angles_at_multiples_of_a_quarter_turn(self):
        self.ask([], ("sind(180)", "0"), ("cosd(90)", "0"), ("tand(90)", (10203, 1)),
                 ("sin(pi)", "0"), ("sind(0.5)", "0.008726535498"),
                 ("sin(1e10)", "-0.4875060251"))

    def test_powers_and_rounding(self):
        self.ask([], ("2^0.5", "1.414213562"), ("10^0.5", "3.16227766"),
                 ("3^0.5", "1.732050808"), ("round(2.5)", "3"), ("round(-0.04)", "0"))

    def test_complex_numbers(self):
        self.ask(["--type", "cplx"],
                 ("3i", "3i"), ("(1+i)i", (10208, 6)), ("2+i", "2+i"), ("sqrt(-4)", (10203, 8)),
                 ("sqrtc(-4;0)", "2i"), ("sqrtc(-4;1)", "-2i"), ("exp(1+i)", (10203, 8)),
                 ("abs(3+4i)", "5"))

    # --- Integers ---

    def test_integers_below_zero_and_above_the_largest(self):
        self.ask(["--type", "uint"],
                 ("2-3", (10203, 4)), ("-1", (10203, 3)), ("-5", (10203, 3)), ("+5", "5"),
                 ("3-5", (10203, 4)), ("0-1", (10203, 4)),
                 (MAX + "+1", (10203, len(MAX) + 3)), (MAX + "-" + MAX, "0"),
                 ("2^33248*2^33248", (10203, 16)), ("(2^33248*(2^33248-1)) mod 2^33248", "0"),
                 ("2^66496", (10203, 8)), ("2^64", "18446744073709551616"))

    def test_integer_powers(self):
        self.ask(["--type", "uint"], ("0^0", "1"), ("1^(2^70)", "1"), ("0^(2^70)", "0"),
                 ("3^(2^70)", (10203, 9)))

    def test_integer_quotients(self):
        self.ask(["--type", "uint"],
                 ("7/2", "3" + LOST), ("8/2", "4"), ("3/7", "0" + LOST), ("7/7", "1"),
                 ("2^100/(2^64-1)", "68719476736" + LOST), ("2^100/(2^64)", "68719476736"),
                 ("7 mod 0", (10203, 8)), ("1/0", (10203, 4)))

    def test_integer_roots(self):
        self.ask(["--type", "uint"],
                 ("sqrt(17)", "4" + LOST), ("sqrt(16)", "4"), ("2^33248-1-sqrt(" + MAX + ")",
                                                            "0" + LOST),
                 ("root(0;5)", (10203, 9)), ("root(1;5)", "5"), ("root(2^70;5)", "1" + LOST))

    def test_integer_functions_of_two_and_three_numbers(self):
        self.ask(["--type", "uint"],
                 ("ncr(5;7)", "0"), ("ncr(7;5)", "21"), ("npr(7;5)", "2520"),
                 ("powmod(2;0;1)", "0"), ("powmod(0;0;5)", "1"), ("powmod(5;3;0)", (10203, 13)),
                 ("gcd(0;5)", (10203, 8)), ("lcm(5;0)", (10203, 8)), ("gcd(12;18)", "6"))

    def test_functions_without_integer_values(self):
        self.ask(["--type", "uint"], ("sin(1)", (10203, 6)), ("ln(2)", (10203, 5)),
                 ("pi", (10203, 1)), ("frac(5)", (10203, 7)), ("arg(1)", (10207, 1)))

    def test_texts_of_integers(self):
        self.ask(["--type", "uint"],
                 ("1'000", "1000"), ("1.5e1", "15"), ("100e-2", "1"), ("1e3", "1000"),
                 ("1.5", (10208, 1)), ("1e-1", (10208, 1)), ("1'", (10208, 1)))
        self.ask(["--type", "uint", "--thousands", "comma"], ("1,000", "1000"),
                 ("1,", (10208, 1)))
        self.ask(["--type", "uint", "--group"], ("1234567", "1'234'567"))

    def test_bases_of_results(self):
        for base, prefix, shown in ((2, "0y", "11111111"), (8, "0t", "377"), (10, "", "255"),
                                    (16, "0x", "FF")):
            with self.subTest(base=base):
                self.ask(["--type", "uint", "--base", str(base)], ("0", prefix + "0"),
                         ("255", prefix + shown), ("ans", prefix + shown))
        self.ask(["--type", "uint", "--base", "16", "--lower-hex"], ("255", "0xff"))
        self.ask(["--type", "uint", "--base", "2", "--group"], ("255", "0y1111'1111"))

    # --- Fractions ---

    def test_fractions(self):
        self.ask(["--type", "rat"],
                 ("1/3+1/6", "1/2"), ("1/2-1/2", "0"), ("3-3", "0"), ("-3/4", "-3/4"),
                 ("1/2", "1/2"), ("5", "5"), ("2^(-2)", "1/4"), ("(-2)^3", "-8"),
                 ("(2/3)^2", "4/9"), ("gcd(4;6)", "2"), ("log2(1/8)", "-3"), ("0/0", "0"),
                 ("(-7) mod 2", "-1"), ("7 mod (-2)", "-1"), ("round(5/2)", "7/2"),
                 ("round(7/3)", "2"), ("1^(1/2)", "2/2"))

    def test_a_sum_whose_reduced_form_alone_fits(self):
        self.ask(["--type", "rat"],
                 ("1/(2^33000*3)+1/(2^33000*6)-1/2^33001", "0"))

    def test_what_is_no_fraction_in_either_type(self):
        self.ask(["--type", "rat"],
                 ("--3", (10200, 2)), ("3/+4", (10200, 3)), ("3/0", (10203, 4)),
                 ("powmod(2;3;5)", (10209, 1)), ("1/3", "1/3"))

    def test_what_is_a_real_number_instead(self):
        for formula, answer in (("0.5", "0.5"), ("log2(3)", "1.584962501"),
                                ("sin(1)", "0.8414709848"), ("4^(1/2)", "2")):
            with self.subTest(formula=formula):
                self.ask(["--type", "rat"], (formula, answer), ("1/4", "0.25"))

    def test_divisors_of_a_fraction(self):
        self.ask(["--type", "rat"], ("gcd(1/2;3)", (10203, 10)), ("1/3", "1/3"))

    # --- Variables ---

    def test_variables(self):
        self.ask(["--var", "x=2"], ("x+x", "4"))
        self.ask(["--var", "x=y", "--var", "y=1"], ("1+x+x", (10212, 3)), ("y", "1"))
        self.ask(["--var", "x=1.5"], ("x", "1.5"))
        self.ask(["--type", "uint", "--var", "x=1.5"], ("x", (10212, 1)))
        self.ask([], ("ans", (10212, 1)), ("2", "2"), ("ans", "2"))

    def test_an_unknown_name_is_reported_before_a_syntax_error(self):
        self.ask(["--var", "x=1"], ("2**nobody", (10211, 4)), ("2**x", (10200, 3)))


if __name__ == "__main__":
    unittest.main()
