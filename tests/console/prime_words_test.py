"""The words factor and primes of tallymere-console from outside.

console_support.py tells of the environment. Expected values are computed here: primes by a sieve or
by Miller-Rabin tests, divisors by trial.
"""

import fcntl
import math
import os
import random
import select
import signal
import subprocess
import sys
import termios
import time
import unittest

sys.dont_write_bytecode = True
from console_support import MESSAGES as FORMULA_MESSAGES  # noqa: E402
from console_support import (CONSOLE, NATIVE, SECONDS, SEED, ConsoleCase,  # noqa: E402
                             keep_console_waiting, read_until, run, start)

MESSAGES = {
    "en": FORMULA_MESSAGES["en"] | {
        3000: "Overflow in prime number calculation!",
        3100: "Overflow in prime factor calculation!",
        3101: 'The number "{}" has to many prime factors or divisors!'},
    "de": FORMULA_MESSAGES["de"] | {3000: "Überlauf bei der Primzahlberechnung!"},
}
TOP = 2**128 - 1
LAST_PRIME = 2**128 - 159


def setUpModule():
    keep_console_waiting()


def error_line(code, argument="", language="en"):
    return f"error {code}: {MESSAGES[language][code].format(argument)}"


def is_prime(n):
    """Miller-Rabin to the first 13 primes and 30 random bases."""
    small = [2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41]
    if n < 2 or any(n % p == 0 and n != p for p in small):
        return False
    if n in small:
        return True
    odd, twos = n - 1, 0
    while odd % 2 == 0:
        odd, twos = odd // 2, twos + 1
    source = random.Random(SEED)
    for base in small + [source.randrange(2, n - 1) for _ in range(30)]:
        power = pow(base, odd, n)
        if power in (1, n - 1):
            continue
        for _ in range(twos - 1):
            power = power * power % n
            if power == n - 1:
                break
        else:
            return False
    return True


def primes_among(first, count):
    return [n for n in range(first, first + count) if is_prime(n)]


def interval_lines(first, count):
    primes = primes_among(first, count)
    return [f"Prime numbers from {first} to {first + count - 1}:",
            "{ " + ", ".join(map(str, primes)) + " }",
            f"Number of prime numbers: {len(primes)}"]


def product_of(line):
    """The number of a line of factors, and its factors with their exponents."""
    number, factors = line.split(" = ")
    pairs = [tuple(map(int, (factor + "^1").split("^")[:2])) for factor in factors.split(" * ")]
    return int(number), pairs


class FactorTest(ConsoleCase):
    def check_factors(self, numbers):
        lines, errors, status = run(["factor"], "".join(f"{n}\n" for n in numbers).encode())
        self.assertEqual((len(numbers), "", 0), (len(lines), errors, status))
        for number, line in zip(numbers, lines):
            with self.subTest(number=number, seed=SEED):
                shown, pairs = product_of(line)
                self.assertEqual(number, shown)
                self.assertEqual(number, math.prod(p**exponent for p, exponent in pairs))
                self.assertEqual(sorted(set(p for p, _ in pairs)), [p for p, _ in pairs])
                self.assertTrue(all(is_prime(p) for p, _ in pairs))

    def test_prime_factors(self):
        self.check(["factor", "360", "2", "97", "1000000007"], b"",
                   ["360 = 2^3 * 3^2 * 5", "2 = 2", "97 = 97", "1000000007 = 1000000007"])

    def test_one_has_none(self):
        self.check(["factor", "1"], b"", ["1 = Number has no prime factors!"])
        self.check(["factor", "--language", "de", "1"], b"", ["1 = Zahl hat keine Primfaktoren!"])

    def test_numbers_of_up_to_128_bits(self):
        # The run counts on behind its last number, where this one has no successor.
        self.check(["factor", str(TOP)], b"",
                   [f"{TOP} = 3 * 5 * 17 * 257 * 641 * 65537 * 274177 * 6700417 * 67280421310721",
                    error_line(3100)], status=1)
        source = random.Random(SEED)
        numbers = [source.getrandbits(bits) | 1 << (bits - 1)
                   for bits in range(2, 129) for _ in range(3 if NATIVE else 1)]
        self.check_factors(numbers)

    def test_hard_numbers(self):
        large = [2**64 - 59, 2**64 - 83, 2**63 - 25, 2**61 - 1]
        self.check_factors([p * q for p in large for q in large] + [LAST_PRIME, 2**127 - 1, 2**127,
                                                                   3**80, (2**42 - 11)**3])

    def test_divisors(self):
        self.check(["factor", "--divisors", "12", "1"], b"",
                   ["D 12 = { 1, 2, 3, 4, 6, 12 }", "D 1 = { 1 }"])
        self.check(["factor", "--divisors", "--count", "12"], b"",
                   ["D 12 = { 1, 2, 3, 4, 6, 12 }  [6]"])
        lines, _, status = run(["factor", "--divisors", "--count", str(2**127)])
        powers = ", ".join(str(2**i) for i in range(128))
        self.assertEqual(([f"D {2**127} = {{ {powers} }}  [128]"], 0), (lines, status))

    def test_too_many_divisors(self):
        primorial = math.prod(n for n in range(2, 60) if is_prime(n))
        self.check(["factor", "--divisors", str(primorial), "6"], b"",
                   [error_line(3101, primorial), "D 6 = { 1, 2, 3, 6 }"], status=1)

    def test_intervals(self):
        self.check(["factor", "--interval", "4", "9"], b"",
                   ["9 = 3^2", "10 = 2 * 5", "11 = 11", "12 = 2^2 * 3"])

    def test_an_interval_beyond_128_bits_keeps_what_was_printed(self):
        lines, _, status = run(["factor", "--interval", "3", str(TOP - 1)])
        self.assertEqual([error_line(3100)], lines[2:])
        self.assertEqual([TOP - 1, TOP], [product_of(line)[0] for line in lines[:2]])
        self.assertEqual(1, status)

    def test_base_16(self):
        self.check(["factor", "--base", "16", "ff", "10000"], b"",
                   ["FF = 3 * 5 * 11", "10000 = 2^10"])
        self.check(["factor", "--base", "16", "--interval", "10", "--group", "fffffff0"], b"",
                   run(["factor", "--base=16", "--interval=10", "--group", "FFFFFFF0"])[0])
        lines, _, _ = run(["factor", "--base", "16", "--interval", "10", "--group", "fffffff0"])
        self.assertEqual(16, len(lines))
        self.assertTrue(lines[0].startswith("FFFF'FFF0 = "))

    def test_groups(self):
        self.check(["factor", "--group", "1000003"], b"", ["1'000'003 = 1'000'003"])
        self.check(["factor", "--group", "--thousands", "point", "--decimal", "comma",
                    "1.000.003"], b"", ["1.000.003 = 1.000.003"])


class PrimesTest(ConsoleCase):
    def test_the_interval_of_the_page_comes_first(self):
        self.check(["primes", "1"], b"", interval_lines(1, 100))
        self.check(["primes", "--base", "16", "1"], b"",
                   ["Prime numbers from 1 to 64:",
                    "{ " + ", ".join(f"{n:X}" for n in primes_among(1, 100)) + " }",
                    "Number of prime numbers: 25"])

    def test_intervals_of_both_methods(self):
        for method in "exact", "probabilistic":
            for first, count in ((1, 10), (1, 1), (2, 1), (24, 4), (997, 30), (10**12, 200),
                                 (2**64 - 100, 200), (10**37, 100)):
                with self.subTest(method=method, first=first, count=count):
                    self.check(["primes", "--method", method, "--interval", str(count),
                                str(first)], b"", interval_lines(first, count))

    def test_a_million_numbers(self):
        sieve = bytearray([1]) * 1_000_001
        for n in range(2, 1001):
            if sieve[n]:
                sieve[n * n::n] = bytes(len(range(n * n, 1_000_001, n)))
        primes = [n for n in range(2, 1_000_001) if sieve[n]]
        self.check(["primes", "--interval", "1000000", "1"], b"",
                   ["Prime numbers from 1 to 1000000:", "{ " + ", ".join(map(str, primes)) + " }",
                    "Number of prime numbers: 78498"])

    def test_the_next_prime(self):
        for first in (1, 2, 14, 17, 10**37, 2**64):
            expected = next(n for n in range(first, first + 10_000) if is_prime(n))
            self.check(["primes", "--next", str(first)], b"",
                       ["Next prime number:", str(expected)])
        self.check(["primes", "--next", "--method", "probabilistic", str(10**300)], b"",
                   ["Next prime number:", str(10**300 + 331)])

    def test_the_test(self):
        self.check(["primes", "--test", "1", "2", "91", str(LAST_PRIME)], b"",
                   ["1 is not a prime number.", "2 is a prime number.",
                    "91 is not a prime number.", f"{LAST_PRIME} is a prime number."])
        self.check(["primes", "--test", "--language", "de", "7"], b"", ["7 ist eine Primzahl."])

    def test_a_long_prime_with_separators(self):
        prime = 10**1251 + 3463  # the first of so many digits
        self.assertTrue(is_prime(prime))
        self.check(["primes", "--test", "--method", "probabilistic", f"{prime:,}".replace(",", "'")],
                   b"", [f"{prime} is a prime number."])

    def test_the_probabilistic_method_calls_pseudoprimes_to_both_bases_prime(self):
        number = 1069 * 2137
        self.assertFalse(is_prime(number))
        for method, answer in (("exact", "not a"), ("probabilistic", "a")):
            self.check(["primes", "--test", "--method", method, str(number)], b"",
                       [f"{number} is {answer} prime number."])

    def test_an_interval_that_ends_beyond_the_width(self):
        self.check(["primes", "--interval", "100", str(TOP - 98), "7"], b"",
                   [f"Prime numbers from {TOP - 98}", error_line(3000),
                    *interval_lines(7, 100)], status=1)
        lines, _, _ = run(["primes", "--interval", "200", str(TOP - 199)])
        self.assertEqual(interval_lines(TOP - 199, 200), lines)

    def test_no_prime_follows_below_the_end_of_the_width(self):
        self.check(["primes", "--next", "--language", "de", str(LAST_PRIME + 1)], b"",
                   ["Nächste Primzahl:", error_line(3000, language="de")], status=1)


class InputTest(ConsoleCase):
    def test_numbers_that_cannot_be_read(self):
        for word in "factor", "primes":
            for number in ("0", "1.5", "1/2", "x", "+-1", str(TOP + 1), "1'", "9" * 10_000,
                           "12 34", "-1"):
                with self.subTest(word=word, number=number):
                    shown = number if len(number) <= 260 else number[:259] + "\u2026"
                    self.check([word, number], b"", [error_line(1000, shown)], status=1)

    def test_a_number_for_the_probabilistic_method_alone(self):
        number = str(2**4160 - 1)
        self.check(["primes", "--test", number], b"", [error_line(1000, number[:259] + "\u2026")],
                   status=1)
        self.check(["primes", "--test", "--method", "probabilistic", number, str(2**4160)], b"",
                   [f"{number} is not a prime number.",
                    error_line(1000, str(2**4160)[:259] + "\u2026")], status=1)

    def test_lines_of_standard_input(self):
        self.check(["factor"], "\ufeff6\r\n\n 7 \nx\n8", ["6 = 2 * 3", "", "7 = 7",
                                                          error_line(1000, "x"), "8 = 2^3"],
                   status=1)

    def test_bytes_that_are_no_text(self):
        self.check(["factor"], b"\xff\n6\n1\x002\n",
                   [error_line(1000, "\ufffd"), "6 = 2 * 3", error_line(1000, "1\ufffd2")],
                   status=1)
        self.check(["factor", "--language", "de"], b"\xff\n",
                   [error_line(1000, "\ufffd", "de")], status=1)

    def test_a_line_of_more_than_16_mib(self):
        self.check(["factor"], b"7" * (2**24 + 1) + b"\n6\n", [error_line(1003), "6 = 2 * 3"],
                   status=1)

    def test_an_error_starts_on_a_line_of_its_own(self):
        self.check(["primes", "--interval", "9", str(TOP), "0"], b"",
                   [f"Prime numbers from {TOP}", error_line(3000), error_line(1000, "0")],
                   status=1)

    def test_a_word_is_the_first_argument_only(self):
        self.check(["--", "factor"], b"",
                   ["error 10211 1: The variable or function at character position 1 is not "
                    "defined!"], status=1)
        self.check(["--", "3", "2"], b"", ["3", "2"])


class OptionTest(ConsoleCase):
    def check_refused(self, arguments, message):
        lines, errors, status = run(arguments)
        self.assertEqual(([], f"tallymere-console: {message}\n", 2), (lines, errors, status))

    def test_values_beyond_the_limits(self):
        for word, highest in (("factor", 1_000_000), ("primes", 2_147_483_647)):
            for value in ("", " ", "0", str(highest + 1), "x", "-1", "1.5"):
                with self.subTest(word=word, value=value):
                    self.check_refused([word, "--interval", value, "7"],
                                       f'--interval: "{value}" is not allowed; '
                                       f"allowed: 1 to {highest}")
        self.check_refused(["factor", "--base", "16", "--interval", "f4241", "7"],
                           '--interval: "f4241" is not allowed; allowed: 1 to F4240')
        if NATIVE:  # a byte that is no text
            self.check_refused(["factor", "--interval", "\udcff", "7"],
                               '--interval: "\ufffd" is not allowed; allowed: 1 to 1000000')

    def test_the_largest_interval(self):
        with subprocess.Popen(CONSOLE + ["primes", "--interval", "2147483647", "1"],
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as process:
            self.assertEqual(b"Prime numbers from 1 to 2147483647:\n", process.stdout.readline())
            process.kill()

    def test_bases(self):
        for word in "factor", "primes":
            self.check_refused([word, "--base", "8", "7"],
                               '--base: "8" is not allowed; allowed: 10, 16')

    def test_what_does_not_go_together(self):
        self.check_refused(["factor", "--count", "7"],
                           "--count counts divisors; allowed: --divisors --count")
        for pair in (["--next", "--test"], ["--next", "--interval", "3"],
                     ["--interval=3", "--test"]):
            self.check_refused(["primes", *pair, "7"],
                               "only one thing can be asked for; allowed: --interval N, --next, "
                               "--test")

    def test_unknown_options_list_the_known_ones(self):
        self.check_refused(["factor", "--digits", "7"],
                           'there is no option "--digits"; allowed: --divisors, --count, '
                           "--interval, --base, --group, --decimal, --thousands, --language, -h, "
                           "--help")
        self.check_refused(["primes", "-x"],
                           'there is no option "-x"; allowed: --next, --test, --method, '
                           "--interval, --base, --group, --decimal, --thousands, --language, -h, "
                           "--help")

    def test_options_end_at_the_first_number(self):
        self.check(["factor", "6", "--divisors"], b"", ["6 = 2 * 3",
                                                        error_line(1000, "--divisors")], status=1)
        self.check(["factor", "--", "--count"], b"", [error_line(1000, "--count")], status=1)

    def test_help_names_the_limits(self):
        texts = {word: " ".join(" ".join(run([word, "--help"])[0]).split())
                 for word in ("factor", "primes")}
        self.assertIn("below 2^128", texts["factor"])
        self.assertIn("--interval N so many numbers from NUMBER on, 1 to 1000000 (1)",
                      texts["factor"])
        self.assertIn("1 to 2147483647 (100)", texts["primes"])
        self.assertIn("numbers of up to 1252 digits and some of 1253 (exact)", texts["primes"])
        for text in texts.values():
            self.assertIn("--base 10|16 base of all numbers, N too (10)", text)


if NATIVE:
    class StopTest(unittest.TestCase):
        LONG = ["primes", "--method", "probabilistic", "--interval", "2147483647", str(10**1200)]

        def test_ctrl_c_keeps_what_was_printed(self):
            with start(["primes", "--interval", "2147483647", "1"]) as process:
                self.assertEqual(b"Prime numbers from 1 to 2147483647:\n",
                                 process.stdout.readline())
                process.send_signal(signal.SIGINT)
                rest = process.stdout.read()
                self.assertEqual(130, process.wait(SECONDS))
                self.assertTrue(rest.startswith(b"{ 2, 3, 5, 7, 11, 13"), rest[:80])
                self.assertNotIn(b"error", rest)
                self.assertTrue(rest.endswith(b"\n"))

        def test_ctrl_c_while_the_output_waits_for_its_reader(self):
            with start(["primes", "--interval", "2147483647", "1"]) as process:
                deadline = time.monotonic() + SECONDS
                unread = b"\0" * 4
                while int.from_bytes(unread, sys.byteorder) < 60000:
                    self.assertLess(time.monotonic(), deadline)
                    time.sleep(0.01)
                    unread = fcntl.ioctl(process.stdout, termios.FIONREAD, b"\0" * 4)
                time.sleep(0.2)
                process.send_signal(signal.SIGINT)
                time.sleep(0.2)
                rest = process.stdout.read()
                self.assertEqual(130, process.wait(SECONDS))
                self.assertTrue(rest.endswith(b"\n"))

        def test_ctrl_c_within_a_test(self):
            with start(self.LONG) as process:
                process.stdout.readline()
                process.send_signal(signal.SIGINT)
                rest = process.stdout.read()
                self.assertEqual(130, process.wait(SECONDS))
                self.assertNotIn(b"error", rest)

        def test_output_that_cannot_be_written_ends_the_run(self):
            with open("/dev/full", "wb") as full:
                done = subprocess.run(CONSOLE + ["primes", "--interval", "2147483647", "1"],
                                      stdout=full, stderr=subprocess.PIPE, timeout=SECONDS,
                                      check=False)
            self.assertEqual(("tallymere-console: the output cannot be written\n", 1),
                             (done.stderr.decode(), done.returncode))

        def check_progress(self, arguments, expected):
            """The run shows this on a terminal before it is stopped, and removes it then."""
            reader, terminal = os.openpty()
            with subprocess.Popen(CONSOLE + arguments, stdout=subprocess.DEVNULL,
                                  stderr=terminal) as process:
                os.close(terminal)
                shown = read_until(reader, b" s, ")
                process.send_signal(signal.SIGINT)
                self.assertEqual(130, process.wait(SECONDS))
                shown += os.read(reader, 4096)
                os.close(reader)
            self.assertRegex(shown, expected)
            self.assertRegex(shown, rb"\r *\r$")

        def test_a_terminal_shows_how_far_a_long_run_is(self):
            self.check_progress(self.LONG, rb"\r\d+ s, \d+ of 2147483647 numbers")
            # Nobody knows how far the next prime is.
            self.check_progress(["primes", "--next", "--method", "probabilistic", str(10**1251)],
                                rb"\r\d+ s, [1-9]\d* numbers *\r")

        def test_a_line_that_has_not_ended_is_not_written_over(self):
            reader, terminal = os.openpty()
            with subprocess.Popen(CONSOLE + self.LONG, stdout=terminal,
                                  stderr=terminal) as process:
                os.close(terminal)
                shown = read_until(reader, b"{ ")
                end = time.monotonic() + 1.5
                while select.select([reader], [], [], max(end - time.monotonic(), 0))[0]:
                    shown += os.read(reader, 4096)
                process.send_signal(signal.SIGINT)
                self.assertEqual(130, process.wait(SECONDS))
                os.close(reader)
            self.assertNotIn(b" s, ", shown)

        def test_a_terminal_is_asked_for_numbers(self):
            writer, terminal = os.openpty()
            with subprocess.Popen(CONSOLE + ["factor"], stdin=terminal, stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE) as process:
                os.close(terminal)
                os.write(writer, b"6\n")
                self.assertEqual(b"6 = 2 * 3\n", process.stdout.readline())
                os.write(writer, b"\x04")
                self.assertEqual((b"", b"Tallymere: type a number and press Enter; Ctrl+D on an "
                                       b"empty line leaves.\n> > \n"),
                                 process.communicate(timeout=SECONDS))
                self.assertEqual(0, process.returncode)
                os.close(writer)

        def test_without_a_terminal_nothing_is_shown(self):
            with start(self.LONG) as process:
                process.stdout.readline()
                self.assertFalse(select.select([process.stderr], [], [], 1.5)[0])
                process.send_signal(signal.SIGINT)
                self.assertEqual(b"", process.stderr.read())
                process.stdout.read()


if __name__ == "__main__":
    print(f"TALLYMERE_SEED={SEED}", file=sys.stderr)
    unittest.main()
