"""The test runner counts what programs print, and never takes silence for success."""

import io
import json
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from contextlib import redirect_stderr, redirect_stdout
from pathlib import Path
from unittest import mock

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tools"))
import run_tests  # noqa: E402
from run_tests import (  # noqa: E402
    LONG_PROGRAMS, RESOURCES, WINDOW_ROOMS, Program, Totals, chosen_programs, count_cases,
    longest_first, narrowed, ran_nothing, resources_of, room_of, run_program, targets_of,
    test_rooms)


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


class FilterTest(unittest.TestCase):
    CORE = Program("optimised", "core", ["build/tests/core_tests"])
    ABOUT = Program("desktop", "about_test", ["python3", "tests/gui/about_test.py"])

    def test_a_word_is_looked_for_anywhere_in_a_name(self):
        self.assertEqual(["build/tests/core_tests", "--gtest_filter=*Divide*"],
                         narrowed(self.CORE, "Divide").command)
        self.assertEqual(["python3", "tests/gui/about_test.py", "-k", "Tab"],
                         narrowed(self.ABOUT, "Tab").command)

    def test_a_pattern_stays_as_it_is(self):
        for pattern in ("RealDiv.*", "-Slow*", "A.b:C.d"):
            self.assertEqual(f"--gtest_filter={pattern}", narrowed(self.CORE, pattern).command[-1])

    def test_a_script_with_the_word_in_its_name_runs_whole_and_alone(self):
        menu = Program("desktop", "menu_test", ["python3", "tests/gui/menu_test.py"])
        for word in ("about", "About"):
            self.assertEqual([self.ABOUT], chosen_programs([menu, self.ABOUT], word))
        self.assertEqual([narrowed(menu, "test"), narrowed(self.ABOUT, "test")],
                         chosen_programs([menu, self.ABOUT], "test"))
        self.assertEqual([narrowed(self.CORE, "core")], chosen_programs([self.CORE], "core"))

    def test_no_filter_changes_nothing(self):
        self.assertEqual([self.CORE, self.ABOUT], chosen_programs([self.CORE, self.ABOUT], ""))

    def test_only_a_filter_may_leave_nothing(self):
        google = "[==========] 0 tests from 0 test suites ran. (0 ms total)\n"
        unit = "Ran 0 tests in 0.000s\n\nOK\n"
        self.assertTrue(ran_nothing(google, 0) and ran_nothing(unit, 0) and ran_nothing(unit, 5))
        self.assertFalse(ran_nothing(google, 1) or ran_nothing("", 0) or ran_nothing(unit, None))
        self.assertFalse(ran_nothing("Ran 10 tests in 0.1s\n", 0))
        script = "import unittest; unittest.main()"
        for filtered, expected in ((True, (0, 0)), (False, (0, 1))):
            totals = Totals()
            with redirect_stdout(io.StringIO()):
                run_program(Program("check", "nothing", [sys.executable, "-c", script],
                                    filtered=filtered), totals)
            self.assertEqual(expected, (totals.passed, totals.failed))


class RoomTest(unittest.TestCase):
    def test_rooms_are_the_folders_with_tests(self):
        rooms = test_rooms()
        for room in ("core", "shell_windows", "toolkit", "gui", "console", "packaging", "tools"):
            self.assertIn(room, rooms)
        self.assertNotIn("support", rooms)

    def test_a_program_belongs_to_the_folder_of_its_tests(self):
        self.assertEqual("core", room_of(FilterTest.CORE))
        self.assertEqual("gui", room_of(FilterTest.ABOUT))

    def test_a_room_is_built_alone(self):
        self.assertEqual(["core_tests"], targets_of("core"))
        self.assertIn("tallymere-console", targets_of("console"))
        self.assertIn("test_pages", targets_of("gui"))
        self.assertNotIn("gui_tests", targets_of("gui"))

    def test_what_scripts_ask_is_what_their_environment_names(self):
        lists = (ROOT / "tests" / "CMakeLists.txt").read_text()
        lines = [text for text in lists.splitlines() if "TALLYMERE_WINDOW_PROBE=" in text]
        packaging, gui = (set(re.findall(r"TARGET_FILE:([\w-]+)>", line)) for line in lines)
        self.assertLess(3, len(gui))
        self.assertLessEqual(gui | {"tallymere", "test_pages"}, set(targets_of("gui")))
        self.assertLess(2, len(packaging))
        self.assertLessEqual(packaging, set(targets_of("packaging")))

    def test_the_build_knows_the_same_rooms_with_windows(self):
        lists = (ROOT / "tests" / "CMakeLists.txt").read_text()
        self.assertIn(f'set(window_rooms "{WINDOW_ROOMS.pattern}")', lists)
        self.assertRegex((ROOT / "test").read_text(), r"toolkit \| \*_windows\) kind=windows")

    def test_each_call_runs_what_it_says(self):
        for arguments, builds, room, wanted in (
                (["core"], run_tests.QUICK_BUILDS, "core", ""),
                (["console", "x"], run_tests.QUICK_BUILDS, "console", "x"),
                (["toolkit", "Tab"], run_tests.WINDOWS_BUILDS, "toolkit", "Tab"),
                (["shell_windows"], run_tests.WINDOWS_BUILDS, "shell_windows", ""),
                (["packaging"], run_tests.WINDOWS_BUILDS, "packaging", ""),
                (["gui", "about"], run_tests.WINDOWS_BUILDS, "gui", "about")):
            with mock.patch.object(run_tests, "check_sources") as sources, \
                    mock.patch.object(run_tests, "build_and_run") as run, \
                    redirect_stdout(io.StringIO()) as output:
                status = run_tests.main(arguments)
            sources.assert_called_once()
            self.assertEqual((builds, room, wanted),
                             (run.call_args[0][0], *run.call_args[0][2:]), arguments)
            # Nothing ran here, which is a failure.
            self.assertEqual(1, status)
            self.assertTrue(output.getvalue().endswith("\n0 passed, 1 failed\n"))

    def test_quick_checks_the_sources_too(self):
        with mock.patch.object(run_tests, "check_sources") as sources, \
                mock.patch.object(run_tests, "build_and_run") as run, \
                redirect_stdout(io.StringIO()):
            run_tests.main(["--quick"])
        sources.assert_called_once()
        self.assertEqual(run_tests.QUICK_BUILDS, run.call_args[0][0])

    def test_the_builds_make_the_programs_that_measure_windows(self):
        presets = {preset["name"]: preset.get("cacheVariables", {}) for preset in json.loads(
            (ROOT / "CMakePresets.json").read_text())["configurePresets"]}
        built = [preset for preset, kind in run_tests.TEST_BUILDS if kind == "Windows"]
        self.assertEqual(["ON"], [presets[name].get("TALLYMERE_BENCH") for name in built])
        self.assertEqual("OFF", presets["desktop"].get("TALLYMERE_BENCH"))

    def test_bad_arguments(self):
        for arguments in (["nowhere"], ["--fast"], ["core", "a", "b"], ["--quick", "core"],
                          ["support"]):
            with redirect_stdout(io.StringIO()), redirect_stderr(io.StringIO()):
                self.assertEqual(2, run_tests.main(arguments), arguments)


class TestCommandTest(unittest.TestCase):
    """./test in a project of its own, with stand-ins for what installs and what runs."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.project = Path(folder.name)
        (self.project / "tools").mkdir()
        shutil.copy(ROOT / "test", self.project)
        for name in ("core/a_test.cpp", "toolkit/a_test.cpp", "shell_windows/a_test.cpp",
                     "gui/a_test.py", "tools/a_test.py", "support/a.cpp"):
            (self.project / "tests" / name).parent.mkdir(parents=True, exist_ok=True)
            (self.project / "tests" / name).touch()
        (self.project / "tools" / "install_packages.sh").write_text(
            'install_missing() { printf "%s\\n" "$@" >>"$here/installed"; }\n'
            'can_install() { false; }\n')
        (self.project / "tools" / "run_tests.py").write_text(
            "import sys; print('ran', sys.argv[1:])\n")

    def call(self, *arguments):
        """(exit status, output, packages that it asks for)."""
        installed = self.project / "installed"
        installed.write_text("")
        done = subprocess.run([self.project / "test", *arguments], stdin=subprocess.DEVNULL,
                              capture_output=True, text=True)
        packages = {line.rsplit(":", 1)[-1] for line in installed.read_text().splitlines()}
        return done.returncode, done.stdout + done.stderr, packages

    def test_each_call_installs_what_it_needs(self):
        everything = self.call()[2]
        self.assertLess({"g++", "clang", "wine", "xvfb", "python3", "libmpc-dev"}, everything)
        for arguments, needs, leaves in (
                (("--quick",), {"g++", "googletest", "python3"}, {"wine", "xvfb", "clang"}),
                (("core",), {"g++", "googletest", "python3"}, {"wine", "xvfb", "clang"}),
                (("core", "Add"), {"g++", "libgmp-dev"}, {"wine"}),
                (("toolkit",), {"wine", "ninja-build"}, {"xvfb", "clang", "libgmp-dev"}),
                (("shell_windows", "About"), {"wine"}, {"xvfb", "libgmp-dev"}),
                (("gui", "about"), {"wine", "xvfb", "xdotool"}, {"clang", "libgmp-dev"}),
                (("tools",), {"python3"}, {"wine", "g++", "googletest"})):
            status, output, packages = self.call(*arguments)
            self.assertEqual((0, f"ran {list(arguments)}\n"), (status, output))
            self.assertLess(needs, packages, arguments)
            self.assertFalse(leaves & packages, arguments)
            self.assertLessEqual(packages, everything)

    def test_an_unknown_room_is_refused_before_anything_is_installed(self):
        for name in ("nowhere", "support", "co", "core gui", "*"):
            status, output, packages = self.call(name)
            self.assertEqual(2, status)
            self.assertIn("Rooms: core gui shell_windows toolkit tools", output)
            self.assertEqual(set(), packages)

    def test_bad_arguments_are_answered_by_the_usage(self):
        for arguments in (("--fast",), ("core", "a", "b"), ("--quick", "core"), ("",)):
            status, output, packages = self.call(*arguments)
            self.assertEqual((2, set()), (status, packages), arguments)
            self.assertIn("usage: ./test", output)
        self.assertEqual(0, self.call("--help")[0])


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
