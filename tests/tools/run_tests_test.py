"""The test runner counts what programs print, and never takes silence for success."""

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tools"))
from run_tests import (  # noqa: E402
    LONG_PROGRAMS, RESOURCES, Program, count_cases, longest_first, resources_of)


class CountCasesTest(unittest.TestCase):
    def test_google_test(self):
        good = "[==========] 5 tests from 2 test suites ran. (1 ms total)\n[  PASSED  ] 5 tests.\n"
        self.assertEqual((5, 0), count_cases(good, 0))
        self.assertEqual((5, 0), count_cases(good.replace("\n", "\r\n"), 0))
        self.assertEqual((3, 2), count_cases(
            "[==========] 5 tests from 2 test suites ran. (1 ms total)\n[  PASSED  ] 3 tests.\n"
            "[  FAILED  ] 2 tests, listed below:\n", 1))
        self.assertEqual((1, 0), count_cases(
            "[==========] 1 test from 1 test suite ran. (0 ms total)\n[  PASSED  ] 1 test.\n", 0))

    def test_unittest(self):
        self.assertEqual((7, 0), count_cases("Ran 7 tests in 0.1s\n\nOK\n", 0))
        self.assertEqual((4, 3), count_cases(
            "Ran 7 tests in 0.1s\n\nFAILED (failures=1, errors=2)\n", 1))
        self.assertEqual((0, 1), count_cases("Ran 1 test in 0.1s\n\nFAILED (failures=6)\n", 1))

    def test_left_out_cases_did_not_pass(self):
        self.assertEqual((4, 1), count_cases(
            "[==========] 5 tests from 2 test suites ran. (1 ms total)\n[  PASSED  ] 4 tests.\n"
            "[  SKIPPED ] 1 test, listed below:\n", 0))
        self.assertEqual((5, 2), count_cases(
            "[==========] 5 tests from 2 test suites ran. (1 ms total)\n[  PASSED  ] 5 tests.\n\n"
            "  YOU HAVE 2 DISABLED TESTS\n", 0))
        self.assertEqual((6, 1), count_cases("Ran 7 tests in 0.1s\n\nOK (skipped=1)\n", 0))

    def test_a_program_that_ran_nothing_failed(self):
        self.assertEqual((0, 1), count_cases("", 0))
        self.assertEqual((0, 1), count_cases("Ran 0 tests in 0.0s\n\nOK\n", 0))
        self.assertEqual((0, 1), count_cases(
            "[==========] 0 tests from 0 test suites ran. (0 ms total)\n[  PASSED  ] 0 tests.\n", 0))

    def test_a_program_that_died_failed(self):
        self.assertEqual((0, 1), count_cases("[ RUN      ] Limb.Carries\n", -11))
        self.assertEqual((0, 1), count_cases("", None))

    def test_a_bad_exit_status_after_good_output_failed(self):
        self.assertEqual((5, 1), count_cases(
            "[==========] 5 tests from 2 test suites ran. (1 ms total)\n[  PASSED  ] 5 tests.\n", 1))


class ResourcesTest(unittest.TestCase):
    def test_one_program_at_a_time_has_what_it_locks(self):
        first = Program("Windows", "toolkit", [], locks=["screen", "keys"])
        with resources_of(first):
            self.assertTrue(RESOURCES["screen"].locked() and RESOURCES["keys"].locked())
            with resources_of(Program("Windows", "core", [])):
                pass
        with resources_of(Program("Windows", "shell_windows", [], locks=["keys"])):
            self.assertFalse(RESOURCES["screen"].locked())

    def test_programs_with_windows_of_their_own_lock_the_foreground(self):
        lists = (ROOT / "tests" / "CMakeLists.txt").read_text()
        self.assertRegex(lists, r"DISPLAY=\" RESOURCE_LOCK foreground\)")


class LongestFirstTest(unittest.TestCase):
    def test_long_programs_start_first_and_none_is_lost(self):
        programs = [Program("optimised", "calculator", []), Program("optimised", "core", []),
                    *(Program(kind, name, []) for kind, name in reversed(LONG_PROGRAMS))]
        self.assertEqual([*LONG_PROGRAMS, ("optimised", "calculator"), ("optimised", "core")],
                         [(program.kind, program.name) for program in longest_first(programs)])

    def test_long_programs_exist(self):
        for _, name in LONG_PROGRAMS:
            self.assertTrue(list((ROOT / "tests" / name).glob("*_test.cpp")), name)


if __name__ == "__main__":
    unittest.main()
