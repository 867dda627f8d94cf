#!/usr/bin/env python3
"""Builds and runs all tests; ./test installs what this needs and then calls it.

usage: tools/run_tests.py [--quick]

Prints one line for each check, build and test program, and at the end, alone on a line,
"N passed, N failed": test cases over all runs, plus one for each check of the sources. A program
that ran no test, ended early or left a test out counts as failed. Full output: build/logs/
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
from dataclasses import dataclass, field
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
]
QUICK_BUILDS = [("linux-release", "optimised")]
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


def check_sources(totals):
    """Checks that need no build: each is one test, those of the tools as many as they have."""
    sources = [str(path.relative_to(ROOT)) for top in ("src", "console", "tests", "bench", "tools")
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
    for script in sorted((ROOT / "tests" / "tools").glob("*_test.py")):
        run_program(Program("check", script.stem, [sys.executable, str(script)]), totals)


def build(preset, totals):
    """Configures and builds one preset; true if that worked. A failure counts as a failed test."""
    started, log = time.monotonic(), fresh_log(f"build-{preset}")
    good = (run_logged(["cmake", "--preset", preset], log) == 0
            and run_logged([*GIVING_WAY, "cmake", "--build", "--preset", preset], log) == 0)
    if not good:
        totals.add(0, 1)
    report("build", preset, "done" if good else "FAILED", started, None if good else log)
    return good


def test_programs(preset, kind):
    """The test programs that CMake knows in a build tree."""
    listing = json.loads(subprocess.run(
        ["ctest", "--show-only=json-v1"], cwd=ROOT / "build" / preset, check=True,
        stdout=subprocess.PIPE).stdout)
    for test in listing["tests"]:
        properties = {item["name"]: item["value"] for item in test.get("properties", [])}
        environment = dict(item.split("=", 1) for item in properties.get("ENVIRONMENT", []))
        has_windows = "windows" in properties.get("LABELS", [])
        yield Program("desktop" if has_windows else kind, test["name"], test["command"],
                      environment, has_windows, properties.get("RESOURCE_LOCK", []))


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
    passed, failed = count_cases(log.read_text(encoding="utf-8", errors="replace"), status)
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


def build_and_run(builds, totals):
    """Builds the presets one after the other, then runs their programs, those with windows as soon
    as they are built."""
    desktops = ThreadPoolExecutor(DESKTOPS_AT_ONCE)
    processors = ThreadPoolExecutor(PROGRAMS_AT_ONCE)
    programs, running = [], []
    try:
        for preset, kind in builds:
            if not build(preset, totals):
                continue
            found = list(test_programs(preset, kind))
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


def main():
    quick = sys.argv[1:] == ["--quick"]
    if sys.argv[1:] and not quick:
        print(__doc__)
        return 2
    totals = Totals()
    if quick:
        build_and_run(QUICK_BUILDS, totals)
    else:
        check_sources(totals)
        # A second compiler, and every header on its own.
        build("linux-clang", totals)
        build_and_run(TEST_BUILDS, totals)
    print(f"{totals.passed} passed, {totals.failed} failed")
    return 1 if totals.failed or not totals.passed else 0


if __name__ == "__main__":
    sys.exit(main())
