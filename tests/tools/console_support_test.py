"""How the tests of the console start it: once more where an emulator failed, and no failure of the
console itself is lost by that. Stand-ins take the place of emulator and console."""

import contextlib
import io
import os
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "console"))
with mock.patch.dict(os.environ, {"TALLYMERE_CONSOLE": "none", "TALLYMERE_LAUNCHER": ""}):
    import console_support  # noqa: E402
from console_support import ConsoleCase, emulator_failed, run  # noqa: E402

RESET = "wine client error:0: recvmsg: Connection reset by peer\n"
REFUSAL = 'tallymere-console: --group: "yes" is not allowed; allowed: no value\n'


class EmulatorFailedTest(unittest.TestCase):
    def test_what_is_a_failure_of_the_emulator(self):
        for output, errors, status in (
                ("", RESET, 1), ("", "", 1), ("", "", 2), ("2\n", RESET, 0),
                ("", "wine: could not load kernel32.dll, status c0000135\n", 53),
                ("", "wineserver: chdir : No such file or directory\n", 1),
                ("", REFUSAL + "wine: chdir to /tmp/a : No such file or directory\n", 1)):
            self.assertTrue(emulator_failed(output.encode(), errors.encode(), status), errors)

    def test_what_is_an_answer_of_the_console(self):
        for output, errors, status in (
                ("2\n", "", 0), ("", "", 0), ("error 10202 3: x\n", "", 1), ("", REFUSAL, 2),
                ("", "", 5), ("", "", -11), ("", 'tallymere-console: "wine: x"\n', 2),
                ("", "wine: Unhandled page fault on read access to 0000000000000000\n", 5)):
            self.assertFalse(emulator_failed(output.encode(), errors.encode(), status), errors)


class RunTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def start(self, *answers, native=False):
        """(what run gives, what it prints) for a console that ends with one answer after the other:
        output, standard error, status."""
        for index, (output, errors, _) in enumerate(answers):
            (self.folder / f"{index}.out").write_text(output)
            (self.folder / f"{index}.err").write_text(errors)
        statuses = " ".join(str(status) for _, _, status in answers)
        program = self.folder / "console"
        program.write_text(f"""#!/bin/sh
cd {self.folder}
echo run >>runs
number=$(($(wc -l <runs) - 1))
set -- {statuses}
shift $number
cat $number.out
cat $number.err >&2
exit $1
""")
        program.chmod(0o755)
        printed = io.StringIO()
        with mock.patch.object(console_support, "CONSOLE", [str(program)]), \
                mock.patch.object(console_support, "NATIVE", native), \
                contextlib.redirect_stderr(printed):
            return run(["--group=yes"]), printed.getvalue()

    def test_starts_the_console_once_more_where_the_emulator_failed(self):
        for errors in (RESET, ""):
            with self.subTest(errors=errors):
                (self.folder / "runs").unlink(missing_ok=True)
                result, printed = self.start(("", errors, 1), ("", REFUSAL, 2))
                self.assertEqual(([], REFUSAL, 2), result)
                self.assertIn("started ['--group=yes'] once more", printed)
                self.assertIn(f"failed with status 1: {errors.encode()!r}", printed)

    def test_does_so_only_once(self):
        result, _ = self.start(("", RESET, 1), ("", RESET, 1), ("2\n", "", 0))
        self.assertEqual(([], RESET, 1), result)

    def test_starts_a_native_console_once(self):
        self.assertEqual((([], "", 1), ""), self.start(("", "", 1), ("", REFUSAL, 2), native=True))

    def test_starts_a_console_that_answers_once(self):
        self.assertEqual((([], REFUSAL, 2), ""), self.start(("", REFUSAL, 2), ("2\n", "", 0)))

    def test_every_failure_shows_standard_error(self):
        class Case(ConsoleCase):
            def runTest(self):
                pass

        self.start(("", REFUSAL, 2))
        for check in (lambda: Case().assertEqual(1, 2), lambda: Case().assertIn("x", "y"),
                      lambda: Case().fail("z")):
            with self.assertRaises(AssertionError) as raised:
                check()
            self.assertIn(f"standard error of the last run: {REFUSAL!r}", str(raised.exception))
        with self.assertRaises(AssertionError) as raised:
            (self.folder / "runs").unlink()
            self.start(("half a line", "why\n", 0))
        self.assertIn(repr("why\n"), str(raised.exception))


if __name__ == "__main__":
    unittest.main()
