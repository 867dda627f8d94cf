"""tallymere-console from outside: what goes in, what comes out, how it ends.

console_support.py tells of the environment. Expected values are computed here.
"""

import fcntl
import os
import random
import re
import select
import signal
import subprocess
import sys
import termios
import time
import unittest
from decimal import ROUND_HALF_UP, Context, Decimal
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from console_support import (CONSOLE, NATIVE, SECONDS, SEED, TOO_LONG, ConsoleCase,  # noqa: E402
                             error_line, keep_console_waiting, run, shown, start)
from help_pages import LANGUAGES, number_bases  # noqa: E402
from program_build import project_version  # noqa: E402

OPTIONS = ["--type", "--digits", "--base", "--lower-hex", "--form", "--group", "--decimal",
           "--thousands", "--language", "--var", "--help", "--version"]

# Formula, error code, position: every code that a formula can lead to without being stopped.
FORMULA_ERRORS = [
    ("2+*3", 10200, 3),
    ("(1)(2)", 10200, 4),
    ("2^-1", 10200, 3),
    ("()", 10200, 2),
    ("(1;2)", 10200, 3),
    ("1+\t2", 10200, 3),
    ("1)", 10201, 2),
    ("(1+2))", 10201, 6),
    ("1+", 10202, 3),
    ("1/0+2", 10203, 4),
    ("1/0", 10203, 4),
    ("(" * 51, 10204, 51),
    ("(" * 50 + "1", 10204, 51),
    ("1+sqrt(1;2)", 10206, 3),
    ("i", 10207, 1),
    ("2+arg(1)", 10207, 3),
    ("1.2.3", 10208, 1),
    ("2*0x1F", 10208, 3),
    ("powmod(1;2;3)", 10209, 1),
    ("2*SIN(1)", 10211, 3),
    ("e", 10211, 1),
    ("y+broken", 10212, 3),
]


def setUpModule():
    keep_console_waiting()


class FormulaTest(ConsoleCase):
    def test_arguments_are_answered_in_their_order(self):
        self.check(["1+2", "2*(3+4)", "7 mod 4"], b"", ["3", "14", "3"])

    def test_standard_input_is_left_alone_when_there_is_a_formula(self):
        self.check(["1+2"], b"5\n", ["3"])

    def test_lines_are_answered_in_their_order(self):
        self.check([], "1+2\n2*(3+4)\n7 mod 4\n", ["3", "14", "3"])

    def test_no_input_has_no_answer(self):
        self.check([], b"", [])

    def test_the_last_line_needs_no_end(self):
        self.check([], "1\n2", ["1", "2"])

    def test_lines_may_end_as_on_windows(self):
        self.check([], "1\r\n\r\n2+\r\n3", ["1", "", error_line(10202, 3), "3"], status=1)

    def test_blank_lines_are_answered_by_empty_lines(self):
        self.check([], "\n1\n   \n\t\n2\n", ["", "1", "", "", "2"])
        self.check(["", "1", " "], b"", ["", "1", ""])

    def test_a_byte_order_mark_is_passed_over_once(self):
        self.check([], b"\xef\xbb\xbf1+1\n\xef\xbb\xbf1\n", ["2", error_line(10200, 1)], status=1)

    def test_missing_parentheses_are_added_at_the_end(self):
        self.check(["2*(1+2", "((1+2)*(3", "(((((7"], b"", ["6", "9", "7"])

    def test_a_sign_is_no_option(self):
        self.check(["-2*3", "-(1+2)", "-.5", "-"], b"",
                   ["-6", "-3", error_line(10200, 2), error_line(10202, 2)], status=1)

    def test_behind_two_hyphens_everything_is_a_formula(self):
        self.check(["--var", "x=3", "--", "-x", "--digits", "1"], b"",
                   ["-3", error_line(10211, 3), "1"], status=1)

    def test_options_may_stand_behind_formulas(self):
        self.check(["2/3", "--digits", "3"], b"", ["0.667"])

    def test_a_formula_may_have_several_lines_as_an_argument(self):
        self.check(["1+\n2"], b"", ["3"])

    def test_stars_are_no_file_names(self):
        self.check(["2*3", "2 * 3", "1?"], b"", ["6", "6", error_line(10200, 2)], status=1)


class ErrorTest(ConsoleCase):
    def check_language(self, language):
        formulas = "\n".join(formula for formula, _, _ in FORMULA_ERRORS)
        expected = [error_line(code, position, language)
                    for _, code, position in FORMULA_ERRORS]
        self.check(["--language", language, "--var", "y=1", "--var", "broken=1+"], formulas,
                   expected, status=1)

    def test_every_error_in_english(self):
        self.check_language("en")

    def test_every_error_in_german(self):
        self.check_language("de")

    def test_one_failure_decides_the_exit_status(self):
        self.check(["1", "2+", "3"], b"", ["1", error_line(10202, 3), "3"], status=1)

    def test_a_result_that_is_rounded_above_the_range_belongs_to_no_place(self):
        for language in ("en", "de"):
            self.check(["--digits", "1", "--language", language, "9.6e4611686018427387903", "ans",
                        "1"], b"", [error_line(1001, 1, language),
                                    error_line(10212, 1, language), "1"], status=1)

    def test_positions_count_16_bit_characters(self):
        self.check(["\u03c9+?", "\U0001f600"], b"",
                   [error_line(10211, 1), error_line(10200, 1)], status=1)
        self.check(["--var", "\u03c9=2", "\u03c9+?"], b"", [error_line(10200, 3)], status=1)

    def test_every_type_reads_formulas(self):
        for number_type in ("real", "cplx", "uint", "rat"):
            self.check(["--type", number_type, "()", "x"], b"",
                       [error_line(10200, 2), error_line(10211, 1)], status=1)

    def test_a_formula_that_is_no_fraction_is_tried_with_real_numbers(self):
        self.check(["--type", "rat", "1.5*3", "ans/2", "0.5+"], b"",
                   ["4.5", "2.25", error_line(10202, 5)], status=1)


class OptionTest(ConsoleCase):
    def test_digits(self):
        self.check(["--digits", "1", "2/3", "17"], b"", ["0.7", "2e+1"])
        self.check(["2/3"], b"", ["0.6666666667"])
        self.check(["--digits=10000", "2/3", "1e9999+1"], b"",
                   ["0." + "6" * 9999 + "7", "1" + "0" * 9998 + "1"])

    def test_forms(self):
        formulas = ["200/3", "1e12", "0.00001"]
        self.check(["--form", "auto", *formulas], b"", ["66.66666667", "1e+12", "1e-5"])
        self.check(["--form", "mixed", *formulas], b"", ["66.66666667", "1e+12", "1e-5"])
        self.check(["--form", "fixed", *formulas], b"",
                   ["66.66666667", "1000000000000", "0.00001"])
        self.check(["--form=scientific", *formulas], b"", ["6.666666667e+1", "1e+12", "1e-5"])

    def test_results_too_long_for_fixed_notation_say_so_and_leave_no_ans(self):
        for language in ("en", "de"):
            self.check(["--language", language, "--form", "fixed", "1e99999", "ans"], b"",
                       [TOO_LONG[language], error_line(10212, 1, language)], status=1)
        self.check(["--form", "fixed", "1e88660", "1e88661"], b"",
                   ["1" + "0" * 88660, TOO_LONG["en"]])

    def test_groups_and_separators(self):
        self.check(["--group", "1234567.5"], b"", ["1'234'567.5"])
        self.check(["1'234'567.5"], b"", ["1234567.5"])
        self.check(["--group", "--decimal", "comma", "1234567,5"], b"", ["1'234'567,5"])
        self.check(["--group", "--decimal", "comma", "--thousands", "point", "1.234,5*1000"], b"",
                   ["1.234.500"])
        self.check(["--group", "--thousands", "comma", "1,234.5*1000"], b"", ["1,234,500"])
        self.check(["--group", "--thousands", "narrow-space", "1\u202f234.5*1000"], b"",
                   ["1\u202f234\u202f500"])
        self.check(["--group", "--form", "fixed", "--digits", "3", "1e6"], b"", ["1'000'000"])

    def test_a_comma_is_a_mistake_where_the_point_separates(self):
        self.check(["1,5"], b"", [error_line(10200, 2)], status=1)
        self.check(["--decimal", "comma", "1.5"], b"", [error_line(10200, 2)], status=1)

    def test_the_last_of_an_option_counts(self):
        self.check(["--digits", "3", "--digits", "5", "2/3"], b"", ["0.66667"])

    def test_base_and_letters_matter_for_unsigned_integers_only(self):
        for number_type in ("real", "cplx", "rat"):
            self.check(["--type", number_type, "--base", "16", "--lower-hex", "255"], b"", ["255"])
        self.check(["--type", "uint", "--base", "16", "--lower-hex", "255"], b"", ["0xff"])
        self.check(["--type", "uint", "--base", "8", "--lower-hex", "255"], b"", ["0t377"])

    def test_variables(self):
        self.check(["--var", "x=1+1", "--var=y=3", "x*y", "y-x"], b"", ["6", "1"])
        self.check(["--var", "x=1", "--var", "x=2", "x"], b"", ["2"])
        self.check(["--var", "_a9\u03c9\u0391=7", "_a9\u03c9\u0391"], b"", ["7"])
        self.check(["--var", "abcdefghij=7", "abcdefghij"], b"", ["7"])
        self.check(["--var", "x=y", "--var", "y=2", "x"], b"", [error_line(10212, 1)], status=1)
        self.check(["--var", "x=", "x"], b"", [error_line(10212, 1)], status=1)
        self.check(["--var", "x=2=3", "x"], b"", [error_line(10212, 1)], status=1)

    def test_variables_follow_the_separators_wherever_these_stand(self):
        self.check(["--var", "x=1.000,5", "--decimal", "comma", "--thousands", "point", "x*2"],
                   b"", ["2001"])
        self.check(["--var", "x=0,5", "x", "--decimal=comma"], b"", ["0,5"])

    def test_a_hundred_variables_are_possible(self):
        variables = [part for i in range(100) for part in ("--var", f"v{i}={i}")]
        self.check([*variables, "v0+v50+v99", "--var", "v99=1"], b"", ["51"])
        lines, errors, status = run([*variables, "--var", "w=1", "w"])
        self.assertEqual(([], 2), (lines, status))
        self.assertIn("at most 100", errors)

    def test_version(self):
        self.check(["--version"], b"", [f"Tallymere {project_version()}"])
        self.check(["1", "--version", "--digits", "0"], b"", [f"Tallymere {project_version()}"])

    def test_help_names_the_values_and_limits_that_options_have(self):
        text = "\n".join(run(["--help"])[0])
        for option in ("--base", "--language"):
            words = re.search(rf"^  {option} (\S+)", text, re.MULTILINE).group(1)
            _, errors, status = run([option, "nonsense"])
            self.assertEqual(2, status)
            self.assertEqual(words.split("|"), errors.rstrip().rsplit(": ", 1)[1].split(", "))
        highest = re.search(r"--digits N +precision, 1 to (\d+) \((\d+)\)", text).groups()
        self.assertEqual(("10000", "10"), highest)
        self.check(["--digits", highest[0], "1"], b"", ["1"])
        _, errors, status = run(["--digits", str(int(highest[0]) + 1)])
        self.assertEqual(2, status)
        self.assertIn(f"allowed: 1 to {highest[0]}", errors)

    def test_help_names_every_option_in_80_columns(self):
        lines, errors, status = run(["--digits", "5", "--help", "--nonsense"])
        self.assertEqual(("", 0), (errors, status))
        self.assertTrue(lines[0].startswith("usage: tallymere-console "))
        text = "\n".join(lines)
        for option in OPTIONS:
            self.assertIn(option, text)
        self.assertLessEqual(max(map(len, lines)), 80)


class BadOptionTest(ConsoleCase):
    def refuse(self, arguments, *parts):
        """One line on standard error with all the parts, nothing else, status 2."""
        with self.subTest(arguments=arguments):
            lines, errors, status = run(arguments, b"1+1\n")
            self.assertEqual(([], 2), (lines, status))
            self.assertTrue(errors.startswith("tallymere-console: "), errors)
            self.assertTrue(errors.endswith("\n") and errors.count("\n") == 1, errors)
            for part in parts:
                self.assertIn(part, errors)

    def test_values_that_are_not_in_the_list(self):
        choices = {
            "--type": "real, cplx, uint, rat",
            "--base": ", ".join(number_bases()),
            "--form": "auto, fixed, scientific, mixed",
            "--decimal": "point, comma",
            "--thousands": "point, comma, apostrophe, narrow-space",
            "--language": ", ".join(LANGUAGES),
        }
        for option, allowed in choices.items():
            self.refuse([option, "nonsense"], f'{option}: "nonsense"', f"; allowed: {allowed}\n")
        self.refuse(["--type", "REAL"], '"REAL"')
        self.refuse(["--type="], '--type: ""')
        self.refuse(["--base", "10 "], '"10 "')

    def test_digits_out_of_range(self):
        # 2^64 + 5 would be 5 to an integer of the machine.
        for value in ("0", "10001", "99999999999999999999", str(2**64 + 5), "1.5", "1e3", " 5",
                      "ten", ""):
            self.refuse(["--digits", value], f'--digits: "{value}"', "; allowed: 1 to 10000\n")
        self.refuse(["--digits", "-3"], '"-3"')

    def test_unknown_options_list_the_known_ones(self):
        for option in ("--foo", "-x", "-h", "--digit", "--Digits", "--foo=3"):
            self.refuse([option, "1"], f'"{option.split("=")[0]}"', ", ".join(OPTIONS), "--")

    def test_missing_values(self):
        for option in ("--type", "--digits", "--var"):
            self.refuse(["1", option], f"{option}: the value is missing", "allowed: ")

    def test_values_where_there_are_none(self):
        for option in ("--group", "--lower-hex", "--help", "--version"):
            self.refuse([f"{option}=yes"], f'{option}: "yes"', "allowed: no value")

    def test_equal_separators(self):
        self.refuse(["--decimal", "comma", "--thousands", "comma"], "--thousands", '"comma"',
                    "allowed: point, apostrophe, narrow-space")
        self.refuse(["--thousands", "point"], '"point"',
                    "allowed: comma, apostrophe, narrow-space")

    def test_names_of_variables(self):
        for value in ("e=1", "i=1", "pi=1", "\u03c0=1", "ans=1", "=1", "1x=1", "a b=1", " x=1",
                      "x =1", "\u00e4=1", "abcdefghijk=1", "x.y=1", "\U0001f600=1"):
            self.refuse(["--var", value], f'--var: "{value}"', "allowed: NAME=TEXT")
        self.refuse(["--var", "x"], "has no =", "allowed: NAME=TEXT")

    def test_a_message_stays_on_one_line_and_short(self):
        self.refuse(["--type", "a\nb\rc"], '"a b c"')
        self.refuse(["--type", "x" * 5000], '"' + "x" * 59 + '\u2026"')


class AnsTest(ConsoleCase):
    def test_ans_is_the_text_that_was_shown(self):
        # 0.667 * 3 - 2, not 2/3 * 3 - 2.
        self.check(["--digits", "3", "2/3", "ans*3-2", "ans+ans"], b"", ["0.667", "0.001", "0.002"])

    def test_ans_before_any_result_fails(self):
        self.check(["2*ans"], b"", [error_line(10212, 3)], status=1)

    def test_ans_survives_failures_and_blank_lines(self):
        self.check([], "5\n\n1+\n\xff\nans\n".encode("latin-1"),
                   ["5", "", error_line(10202, 3), error_line(1000, 1, argument="\ufffd"), "5"],
                   status=1)

    def test_ans_reads_back_in_any_form_and_with_any_separators(self):
        self.check(["--group", "--decimal", "comma", "--thousands", "point", "1234,5*1000", "ans"],
                   b"", ["1.234.500", "1.234.500"])
        self.check(["--form", "scientific", "1234.5", "ans*2"], b"", ["1.2345e+3", "2.469e+3"])

    def test_a_negative_ans_is_a_value_of_its_own(self):
        self.check(["1-3", "2*ans", "ans*ans"], b"", ["-2", "-4", "16"])


class ArithmeticTest(ConsoleCase):
    def test_chains_of_random_operations_are_right_to_the_last_digit(self):
        source = random.Random(SEED)
        for digits in (1, 2, 5, 10, 17, 18, 36, 50, 200):
            working = Context(prec=digits + 2, rounding=ROUND_HALF_UP, Emin=-10**9, Emax=10**9)
            lines, expected = ["1"], ["1"]
            value = Decimal(1)
            for _ in range(60):
                places = source.randint(1, digits)
                operand = Decimal(source.randint(1, 10**places - 1)).scaleb(-source.randint(0, 4))
                name, operation = source.choice([
                    ("+", working.add), ("-", working.subtract), ("*", working.multiply),
                    ("/", working.divide)])
                lines.append(f"ans{name}{operand:f}")
                expected.append(shown(operation(value, operand), digits))
                value = Decimal(expected[-1])
            with self.subTest(digits=digits, seed=SEED):
                self.check(["--digits", str(digits)], "\n".join(lines), expected)

    def test_remainders_are_exact(self):
        formulas = [(10**40 + 7, 13), (10**60, 10**9 + 7), (-(10**30) - 1, 97)]
        self.check(["--digits", "70"],
                   "\n".join(f"({a}) mod {b}" for a, b in formulas),
                   [str(abs(a) % b if a > 0 else -(abs(a) % b)) for a, b in formulas])
        self.check(["1e99999 mod 7"], b"", [str(pow(10, 99999, 7))])


class InputTest(ConsoleCase):
    def test_invalid_utf8_is_refused_line_by_line(self):
        cases = [b"\xff", b"1+\x80", b"\xc0\x80", b"\xc1\xbf", b"\xe0\x80\x80", b"\xe0\x9f\xbf",
                 b"\xed\xa0\x80", b"\xed\xbf\xbf", b"\xf0\x80\x80\x80", b"\xf0\x8f\xbf\xbf",
                 b"\xf4\x90\x80\x80", b"\xf5\x80\x80\x80", b"2*\xe2\x82", b"\xe2\x82+1",
                 b"\xf0\x9f\x98", b"\xf0\x9f\x98+", b"\xf0\x9f", b"\xc3", b"\xcf\xcf",
                 "\u03c9+\U0001f600".encode() + b"\xff", b"1\xff2\xfe3"]
        expected = []
        for case in cases:
            text = case.decode("utf-8", "replace")
            position = len(text[:text.index("\ufffd")].encode("utf-16-le")) // 2 + 1
            expected.append(error_line(1000, position, argument=text))
        self.check([], b"\n".join(cases) + b"\n1+1\n", [*expected, "2"], status=1)

    def test_the_limits_of_utf8_are_valid(self):
        texts = ["\x7f", "\x80", "\u07ff", "\u0800", "\ud7ff", "\ue000", "\ufffd", "\uffff",
                 "\U00010000", "\U0010ffff"]
        self.check([], "\n".join("1+" + text for text in texts),
                   [error_line(10200, 3)] * len(texts), status=1)

    def test_a_zero_character_does_not_end_the_formula(self):
        self.check([], b"1\x002\n\x00\n3\n",
                   [error_line(1000, 2, argument="1\ufffd2"),
                    error_line(1000, 1, argument="\ufffd"), "3"], status=1)

    def test_the_refusal_speaks_the_language(self):
        self.check(["--language", "de"], b"\xff\n",
                   [error_line(1000, 1, "de", argument="\ufffd")], status=1)

    def test_a_long_invalid_line_is_quoted_in_part(self):
        self.check([], b"1" * 300 + b"\xff\n",
                   [error_line(1000, 301, argument="1" * 259 + "\u2026")], status=1)

    def test_control_characters_in_a_quotation_become_blanks(self):
        self.check([], "1\r2\t3\x1b[m\x7f\x80\x85\x9f\xa0".encode() + b"\xff\n",
                   [error_line(1000, 14, argument="1 2 3 [m    \xa0\ufffd")], status=1)

    def test_huge_lines_and_numbers(self):
        digits = "".join(str(i % 9 + 1) for i in range(100000))
        self.check([], "\n".join(["1" * 200000, digits, "1+" * 99999 + "1", "x" * 200000,
                                  "(" * 200000, " " * 200000, "0." + "0" * 200000 + "5"]),
                   ["1.111111111e+199999", "1.234567891e+99999", "100000", error_line(10211, 1),
                    error_line(10204, 51), "", "5e-200001"], status=1)

    def test_a_line_without_bound_is_refused_and_the_next_one_answered(self):
        limit = 16 << 20
        self.check([], b" " * (limit - 1) + b"5\n" + b"1" * (limit + 1) + b"\n2\n"
                   + b"1" * (3 * limit) + b"\n3\n",
                   ["5", error_line(1003, limit + 1), "2", error_line(1003, limit + 1), "3"],
                   status=1)

    def test_answers_come_line_by_line(self):
        with start() as process:
            for formula, answer in ((b"1+1\n", b"2\n"), (b"ans*3\n", b"6\n"), (b"\n", b"\n"),
                                    (b"1+\n", error_line(10202, 3).encode() + b"\n")):
                process.stdin.write(formula)
                process.stdin.flush()
                self.assertEqual(answer, process.stdout.readline())
            process.stdin.close()
            self.assertEqual(1, process.wait(SECONDS))

    def test_many_lines(self):
        self.check([], "".join(f"{i}+1\n" for i in range(20000)),
                   [str(i + 1) for i in range(20000)])


def processor_seconds(pid):
    fields = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def blocked_in_writing(process):
    """True when a console that got all its input in one piece sleeps with answers still unread."""
    unread = fcntl.ioctl(process.stdout, termios.FIONREAD, b"\0" * 4)
    state = Path(f"/proc/{process.pid}/stat").read_text().rpartition(")")[2].split()[0]
    return unread != b"\0" * 4 and state == "S"


class InterruptTest(ConsoleCase):
    LONG = b"npr(1e12;1e11)\n"

    def interrupt_running(self, arguments, lines):
        with start(arguments) as process:
            process.stdin.write(b"1+1\n" + lines)
            process.stdin.flush()
            answer = process.stdout.readline()
            self.assertEqual(b"2\n", answer, "" if answer else process.stderr.read())
            # From here on only the calculation takes time.
            begin = processor_seconds(process.pid)
            deadline = time.monotonic() + SECONDS
            while processor_seconds(process.pid) < begin + 0.1:
                self.assertIsNone(process.poll(), "the calculation ended before it was stopped")
                self.assertLess(time.monotonic(), deadline)
            process.send_signal(signal.SIGINT)
            output = process.stdout.read()
            self.assertEqual(b"", process.stderr.read())
            self.assertEqual(130, process.wait(SECONDS))
            return output.decode().splitlines()

    def test_a_running_calculation_ends_with_its_error_and_nothing_follows(self):
        self.assertEqual([error_line(10210, 1)],
                         self.interrupt_running(["--digits", "10000"], self.LONG + b"1+1\n"))

    def test_every_long_function_can_be_stopped(self):
        for number_type in ("real", "cplx"):
            for formula in ("fact(4000000)", "ncr(1e9;5e8)", "npr(1e12;1e11)"):
                with self.subTest(formula=formula, type=number_type):
                    self.assertEqual(
                        [error_line(10210, 1)],
                        self.interrupt_running(["--digits", "10000", "--type", number_type],
                                               formula.encode() + b"\n1+1\n"))

    def test_exact_numbers_can_be_stopped_too(self):
        # A fraction gives up 0.5 at once; it is the attempt in real numbers that is stopped.
        for number_type, formula in (("uint", b"powmod(3;10^20000-1;10^20000-3)"),
                                     ("rat", b"0.5+fact(4000000)")):
            with self.subTest(type=number_type):
                arguments = ["--digits", "10000", "--type", number_type]
                self.assertEqual([error_line(10210, 1)],
                                 self.interrupt_running(arguments, formula + b"\n1+1\n"))

    def test_a_running_variable_fails(self):
        self.assertEqual([error_line(10212, 3)],
                         self.interrupt_running(["--var", "x=npr(1e12;1e11)"], b"2*x\n3\n"))

    def test_a_waiting_console_ends(self):
        with start() as process:
            process.stdin.write(b"1+1\n")
            process.stdin.flush()
            self.assertEqual(b"2\n", process.stdout.readline())
            process.send_signal(signal.SIGINT)
            self.assertEqual(130, process.wait(SECONDS))
            self.assertEqual((b"", b""), (process.stdout.read(), process.stderr.read()))


if NATIVE:
    class SystemTest(ConsoleCase):
        """What needs the files and terminals of the system."""

        def test_output_that_cannot_be_written_is_a_failure(self):
            for arguments in (["1+1"], ["--help"], ["--version"]):
                with open("/dev/full", "wb") as full:
                    done = subprocess.run(CONSOLE + arguments, stdin=subprocess.DEVNULL,
                                          stdout=full, stderr=subprocess.PIPE, check=False)
                self.assertEqual(b"tallymere-console: the output cannot be written\n", done.stderr)
                self.assertEqual(1, done.returncode)

        def test_a_closed_output_is_a_failure(self):
            done = subprocess.run(["sh", "-c", 'exec "$0" 1+1 >&-', *CONSOLE], check=False,
                                  stdin=subprocess.DEVNULL, stderr=subprocess.PIPE)
            self.assertEqual(1, done.returncode)
            self.assertIn(b"cannot be written", done.stderr)

        def test_a_second_ctrl_c_ends_a_console_whose_output_nobody_reads(self):
            with start(["--digits", "10000"]) as process:
                # More than a pipe holds.
                process.stdin.write(b"1/7\n" * 20)
                process.stdin.flush()
                deadline = time.monotonic() + SECONDS
                while not blocked_in_writing(process):
                    self.assertLess(time.monotonic(), deadline)
                process.send_signal(signal.SIGINT)
                with self.assertRaises(subprocess.TimeoutExpired):
                    process.wait(0.5)
                process.send_signal(signal.SIGINT)
                self.assertEqual(130, process.wait(SECONDS))
                self.assertEqual(b"", process.stderr.read())

        def test_a_reader_that_leaves_ends_the_console(self):
            with start() as process:
                process.stdout.close()
                process.stdin.write(b"1\n")
                process.stdin.flush()
                self.assertEqual(-signal.SIGPIPE, process.wait(SECONDS))

        def test_input_that_cannot_be_read_is_a_failure(self):
            for redirection in ("</", "<&-"):
                done = subprocess.run(["sh", "-c", f'exec "$0" {redirection}', *CONSOLE],
                                      check=False, capture_output=True)
                self.assertEqual(b"tallymere-console: the input cannot be read\n", done.stderr)
                self.assertEqual((b"", 1), (done.stdout, done.returncode))

        def test_invalid_arguments(self):
            self.check([b"1+\xff", "2"], b"", [error_line(1000, 3, argument="1+\ufffd"), "2"],
                       status=1)
            _, errors, status = run(["--var", b"x=\xff"])
            self.assertEqual(2, status)
            self.assertIn("UTF-8", errors)

        def test_the_longest_text_of_a_variable(self):
            self.check(["--var", "x=" + "1" * 88661, "x"], b"", ["1.111111111e+88660"])
            _, errors, status = run(["--var", "x=" + "1" * 88662, "x"])
            self.assertEqual(2, status)
            self.assertIn("88661 characters", errors)

        def talk(self, arguments, typed):
            """What a terminal shows when a person types after the first prompt; exit status."""
            pid, terminal = os.forkpty()
            if pid == 0:
                os.execv(CONSOLE[0], CONSOLE + arguments)
            text = b""
            deadline = time.monotonic() + SECONDS
            while time.monotonic() < deadline:
                if typed and text.endswith(b"> "):
                    os.write(terminal, typed.pop(0))
                    text += b"|"
                if select.select([terminal], [], [], 1)[0]:
                    try:
                        text += os.read(terminal, 4096)
                    except OSError:  # the other end is gone
                        break
            os.close(terminal)
            return text.decode().replace("\r\n", "\n"), os.waitstatus_to_exitcode(
                os.waitpid(pid, 0)[1])

        def test_a_terminal_is_greeted_and_prompted(self):
            text, status = self.talk([], [b"1+1\n", b"ans*\xcf\x89\n", b"\x04"])
            self.assertEqual(1, status)
            lines = text.split("\n")
            self.assertIn("Ctrl+D", lines[0])
            self.assertEqual(["> |1+1", "2", "> |ans*\u03c9", error_line(10211, 5), "> |", ""],
                             lines[1:])

        def test_a_terminal_with_formulas_is_not_greeted(self):
            self.assertEqual(("2\n", 0), self.talk(["1+1"], []))

        def test_ctrl_c_leaves_the_terminal(self):
            text, status = self.talk([], [b"1+1\n", b"\x03"])
            self.assertEqual(130, status)
            self.assertIn("\n2\n> |", text)


if __name__ == "__main__":
    print(f"TALLYMERE_SEED={SEED}")
    unittest.main()
