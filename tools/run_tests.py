#!/usr/bin/env python3
"""Builds and runs tests; ./test installs what this needs and then calls it.

usage: tools/run_tests.py                   all tests
       tools/run_tests.py --quick           the optimised native tests
       tools/run_tests.py ROOM [FILTER]     the tests of one folder of tests/, or some of them

Prints one line for each check, build and test program. The last line is "N passed, N failed": test
cases over all runs, plus one for each check of the sources. A program that ran no test, ended early
or left a test out counts as failed. Full output: build/logs/
"""

import json
import os
import re
import shutil
import subprocess
import sys
import time
from collections import defaultdict
from concurrent.futures import ThreadPoolExecutor
from contextlib import ExitStack
from dataclasses import dataclass, field, replace
from pathlib import Path
from threading import Lock

ROOT = Path(__file__).resolve().parent.parent
LOGS = ROOT / "build" / "logs"
WINE_RUN = ROOT / "cmake" / "wine-run"

# Windows first: the scripts that press keys wait for windows nearly all of their time, so they run
# beside everything that comes later.
TEST_BUILDS = [
    ("windows-release", "Windows"),
    ("linux-sanitize", "sanitized"),
    ("linux-release", "optimised"),
    ("fuzz", "fuzzed"),
]
QUICK_BUILDS = [("linux-release", "optimised")]
WINDOWS_BUILDS = [("windows-release", "Windows")]
# Rooms of tests that make windows; tests/CMakeLists.txt has the same pattern.
WINDOW_ROOMS = re.compile(r"toolkit|[a-z_]+_windows")
# What scripts ask, beside the test program that each room with *_test.cpp has.
SCRIPT_TARGETS = {
    "console": ["tallymere-console"],
    "gui": ["tallymere", "test_pages", "grid_page", "window_probe", "form_tables",
            "stand_in_browser", "tallymere-console"],
    "packaging": ["tallymere", "tallymere-console", "window_probe"],
}
PROGRAMS_AT_ONCE = 2
# Each has a display and a Wine prefix of its own.
DESKTOPS_AT_ONCE = 3
# These run longest, longest first, so that none of them is left over at the end.
LONG_PROGRAMS = [
    ("sanitized", "formula"), ("sanitized", "functions"), ("sanitized", "exact"),
    ("optimised", "exact"), ("sanitized", "shell"), ("sanitized", "core"), ("Windows", "shell"),
]
SECONDS_PER_PROGRAM = 900
# What is busy all the time gives way to the scripts on the desktops.
GIVING_WAY = ["nice", "-n", "10"]
TAIL_LINES = 40
# What programs lock, by the name that CMake gives it.
RESOURCES = defaultdict(Lock)

ENVIRONMENT = {
    "ASAN_OPTIONS": "detect_stack_use_after_return=1:strict_string_checks=1",
    "UBSAN_OPTIONS": "print_stacktrace=1",
    "GTEST_COLOR": "no",
}


@dataclass
class Program:
    kind: str
    name: str
    command: list
    environment: dict = field(default_factory=dict)
    has_windows: bool = False  # needs a desktop
    locks: list = field(default_factory=list)  # names of what only one program at a time may use
    filtered: bool = False  # runs the tests that a filter names, perhaps none


class Totals:
    """Tests passed and failed so far; programs that run side by side add to it."""

    def __init__(self):
        self.passed = 0
        self.failed = 0
        self.lock = Lock()

    def add(self, passed, failed):
        with self.lock:
            self.passed += passed
            self.failed += failed


def run_logged(command, log, seconds=None, environment=None):
    """Runs a command with no input, output into a file; its exit status, None when out of time."""
    with open(log, "ab") as output:
        try:
            return subprocess.run(
                command, cwd=ROOT, stdin=subprocess.DEVNULL, stdout=output,
                stderr=subprocess.STDOUT, timeout=seconds,
                env={**os.environ, **ENVIRONMENT, **(environment or {})}).returncode
        except subprocess.TimeoutExpired:
            return None


def fresh_log(name):
    LOGS.mkdir(parents=True, exist_ok=True)
    log = LOGS / f"{name}.log"
    log.write_bytes(b"")
    return log


def report(kind, name, outcome, started, log=None):
    """One line of progress; with a log, its last lines as well."""
    text = f"{kind:<10} {name:<18} {outcome}  ({time.monotonic() - started:.1f} s)\n"
    if log:
        lines = log.read_text(encoding="utf-8", errors="replace").splitlines()
        text += "".join(f"    {line}\n" for line in lines[-TAIL_LINES:])
        text += f"    all of it: {log.relative_to(ROOT)}\n"
    sys.stdout.write(text)
    sys.stdout.flush()


def test_rooms():
    """The folders of tests/ that have tests of their own."""
    return sorted({path.parent.name for pattern in ("*/*_test.cpp", "*/*_test.py")
                   for path in (ROOT / "tests").glob(pattern)})


def room_of(program):
    """The folder of tests/ that a test program comes from."""
    last = Path(program.command[-1])
    return last.parent.name if last.suffix == ".py" else program.name


def narrowed(program, wanted):
    """The program with those of its tests whose name contains the word `wanted`. What is no plain
    word is a pattern of GoogleTest or unittest."""
    if Path(program.command[-1]).suffix == ".py":
        extra = ["-k", wanted]
    else:
        pattern = f"*{wanted}*" if re.fullmatch(r"\w+", wanted) else wanted
        extra = [f"--gtest_filter={pattern}"]
    return replace(program, command=[*program.command, *extra], filtered=True)


def chosen_programs(programs, wanted):
    """What a filter leaves of a room: whole scripts if the word stands in the name of any, otherwise
    the tests with the word in their name."""
    if not wanted:
        return programs
    scripts = [program for program in programs if program.name.endswith("_test")
               and wanted.lower() in program.name.removesuffix("_test").lower()]
    return scripts or [narrowed(program, wanted) for program in programs]


def check_sources(totals):
    """Checks of layers and format; each counts as one test."""
    sources = [str(path.relative_to(ROOT)) for top in ("src", "console", "tests", "bench", "tools", "fuzz")
               for path in sorted((ROOT / top).rglob("*")) if path.suffix in (".h", ".cpp")]
    checks = [("layers", [sys.executable, "tools/check_layers.py"])]
    if shutil.which("clang-format-14"):
        checks.append(("format", ["clang-format-14", "--dry-run", "--Werror", *sources]))
    else:
        print("check      format             left out: there is no clang-format-14 here")
    for name, command in checks:
        started, log = time.monotonic(), fresh_log(f"check-{name}")
        good = run_logged(command, log) == 0
        totals.add(int(good), int(not good))
        report("check", name, "passed" if good else "FAILED", started, None if good else log)


def test_tools(totals, wanted=""):
    """Tests of the project's own scripts, which need no build."""
    scripts = sorted((ROOT / "tests" / "tools").glob("*_test.py"))
    programs = [Program("check", script.stem, [sys.executable, str(script)]) for script in scripts]
    for program in chosen_programs(programs, wanted):
        run_program(program, totals)


def build(preset, totals, targets=()):
    """Configures and builds one preset, or targets of it; true if that worked. A failure counts as
    a failed test."""
    started, log = time.monotonic(), fresh_log(f"build-{preset}")
    command = [*GIVING_WAY, "cmake", "--build", "--preset", preset]
    if targets:
        command += ["--target", *targets]
    good = (run_logged(["cmake", "--preset", preset], log) == 0
            and run_logged(command, log) == 0)
    if not good:
        totals.add(0, 1)
    report("build", preset, "done" if good else "FAILED", started, None if good else log)
    return good


def targets_of(room):
    """What CMake builds for the tests of a room."""
    own = [f"{room}_tests"] if any((ROOT / "tests" / room).glob("*_test.cpp")) else []
    return own + SCRIPT_TARGETS.get(room, [])


def test_programs(preset, kind):
    """The test programs that CMake knows in a build tree."""
    listing = json.loads(subprocess.run(
        ["ctest", "--show-only=json-v1"], cwd=ROOT / "build" / preset, check=True,
        stdout=subprocess.PIPE).stdout)
    for test in listing["tests"]:
        properties = {item["name"]: item["value"] for item in test.get("properties", [])}
        environment = dict(item.split("=", 1) for item in properties.get("ENVIRONMENT", []))
        has_windows = "windows" in properties.get("LABELS", [])
        # CTest leaves out the command of a program that is not built.
        command = test.get("command", [test["name"]])
        yield Program("desktop" if has_windows else kind, test["name"], command, environment,
                      has_windows, properties.get("RESOURCE_LOCK", []))


def count_cases(output, status):
    """(passed, failed) of a GoogleTest or unittest program, from what it printed at its end.

    A case that was skipped did not pass. A program whose output does not say how many cases it
    ran, or whose exit status says failure where its output does not, counts as one more failure.
    """
    ran = passed = 0
    google = re.search(r"^\[=+\] (\d+) tests? from \d+ test (?:suite|case)s? ran\.", output, re.M)
    unit = re.search(r"^Ran (\d+) tests? in ", output, re.M)
    if google:
        ran = int(google.group(1))
        good = re.search(r"^\[  PASSED  \] (\d+) tests?\.", output, re.M)
        passed = int(good.group(1)) if good else 0
        disabled = re.search(r"YOU HAVE (\d+) DISABLED TEST", output)
        ran += int(disabled.group(1)) if disabled else 0
    elif unit:
        ran = int(unit.group(1))
        not_passed = re.findall(
            r"(?:failures|errors|skipped|expected failures|unexpected successes)=(\d+)",
            output[unit.end():])
        # One case can fail several times, in its subtests.
        passed = max(0, ran - sum(map(int, not_passed)))
    failed = ran - passed
    if ran == 0 or (status != 0 and failed == 0):
        failed += 1
    return passed, failed


def ran_nothing(output, status):
    """True if a program with a filter says that no test of it was chosen."""
    # From Python 3.12 on, a script without tests has the exit status 5.
    return status in (0, 5) and bool(
        re.search(r"^(\[=+\] 0 tests from 0 test \w+ ran\.|Ran 0 tests in )", output, re.M))


def resources_of(program):
    """Waits until no other program uses them, and gives them back at the end of its context."""
    held = ExitStack()
    for name in sorted(program.locks):
        held.enter_context(RESOURCES[name])
    return held


def run_program(program, totals, prefix=()):
    with resources_of(program):
        started, log = time.monotonic(), fresh_log(f"{program.kind}-{program.name}")
        status = run_logged([*prefix, *program.command], log, SECONDS_PER_PROGRAM,
                            program.environment)
    output = log.read_text(encoding="utf-8", errors="replace")
    if program.filtered and ran_nothing(output, status):
        return
    passed, failed = count_cases(output, status)
    totals.add(passed, failed)
    outcome = f"{passed} passed, {failed} failed"
    if status is None:
        outcome += f", stopped after {SECONDS_PER_PROGRAM} s"
    elif failed:
        outcome += f", exit status {status}"
    report(program.kind, program.name, outcome, started, log if failed else None)


def longest_first(programs):
    ranks = {name: rank for rank, name in enumerate(LONG_PROGRAMS)}
    return sorted(programs,
                  key=lambda program: ranks.get((program.kind, program.name), len(ranks)))


def prepare_wine(totals):
    """Makes the Wine prefix of the programs that need no desktop, and clears those of the others."""
    started, log = time.monotonic(), fresh_log("wine")
    if run_logged([str(WINE_RUN), "--prepare"], log) != 0:
        totals.add(0, 1)
        report("wine", "prefix", "FAILED", started, log)
    for folder in ("gui", "screenshots"):
        shutil.rmtree(ROOT / "build" / folder, ignore_errors=True)


def build_and_run(builds, totals, room="", wanted=""):
    """Builds the presets one after the other, then runs their programs, those with windows as soon
    as they are built. With a room only what that needs, and only those of its tests."""
    desktops = ThreadPoolExecutor(DESKTOPS_AT_ONCE)
    processors = ThreadPoolExecutor(PROGRAMS_AT_ONCE)
    programs, running = [], []
    try:
        for preset, kind in builds:
            if not build(preset, totals, targets_of(room) if room else ()):
                continue
            found = chosen_programs([program for program in test_programs(preset, kind)
                                     if not room or room_of(program) == room], wanted)
            if not found:
                print(f"{kind:<10} {'':<18} FAILED: no test programs")
                totals.add(0, 1)
            if kind == "Windows":
                prepare_wine(totals)
            running += [desktops.submit(run_program, program, totals)
                        for program in found if program.has_windows]
            programs += [program for program in found if not program.has_windows]
        running += [processors.submit(run_program, program, totals, GIVING_WAY)
                    for program in longest_first(programs)]
        for program in running:
            program.result()
    finally:
        # After an exception here or there, Ctrl+C too, nothing more is started.
        for pool in (desktops, processors):
            pool.shutdown(cancel_futures=True)


def test_room(room, wanted, totals):
    if room == "tools":
        test_tools(totals, wanted)
    else:
        on_windows = room in ("gui", "packaging") or WINDOW_ROOMS.fullmatch(room)
        build_and_run(WINDOWS_BUILDS if on_windows else QUICK_BUILDS, totals, room, wanted)


def main(arguments):
    quick = arguments == ["--quick"]
    room, wanted = (*arguments, "", "")[:2]
    if len(arguments) > 2 or (room.startswith("-") and not quick):
        print(__doc__)
        return 2
    if room and not quick and room not in test_rooms():
        print(f"There are no tests of {room}. Rooms: {' '.join(test_rooms())}", file=sys.stderr)
        return 2
    totals = Totals()
    check_sources(totals)
    if quick:
        build_and_run(QUICK_BUILDS, totals)
    elif room:
        before = totals.passed + totals.failed
        test_room(room, wanted, totals)
        if totals.passed + totals.failed == before:
            print(f"No test of {room} has a name with {wanted}")
            totals.add(0, 1)
    else:
        test_tools(totals)
        # A second compiler, and every header on its own.
        build("linux-clang", totals)
        build_and_run(TEST_BUILDS, totals)
    print(f"{totals.passed} passed, {totals.failed} failed")
    return 1 if totals.failed or not totals.passed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
