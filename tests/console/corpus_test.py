"""What tools/compare_answers asks leads to values and to every error that a formula can have.

console_support.py tells of the environment.
"""

import re
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from answer_corpus import TYPES, corpus  # noqa: E402
from console_support import MESSAGES, ConsoleCase, keep_console_waiting, run  # noqa: E402

# Only Ctrl+C leads to it.
ABORTED = 10210
# Takes as many runs as an emulator starts in a few seconds.
RANDOM_RUN_STEP = 150


def setUpModule():
    keep_console_waiting()


def error_codes(lines):
    return [int(match.group(1)) for match in (re.match(r"error (\d+) ", line) for line in lines)
            if match]


class CorpusTest(ConsoleCase):
    def answers(self, number_type, names, step=1):
        """The answers of every so many of a type's runs that have one of these names."""
        chosen = [asked for asked in corpus()
                  if asked.options[1] == number_type and asked.name in names]
        for asked in chosen[::step]:
            lines, errors, _ = run(asked.options, b"\n".join(asked.lines) + b"\n")
            self.assertEqual("", errors)
            self.assertEqual(len(asked.lines), len(lines))
            yield from lines

    def test_every_error_occurs(self):
        names = ("errors", "nesting", "too long", "too large")
        found = set(error_codes(self.answers("real", names)))
        found |= set(error_codes(self.answers("cplx", ("numbers",))))
        self.assertEqual(set(MESSAGES["en"]) - {ABORTED}, found)

    def test_values_and_errors_are_both_common(self):
        for number_type in TYPES:
            step = RANDOM_RUN_STEP if number_type == "rat" else RANDOM_RUN_STEP // 10
            lines = [line for line in self.answers(number_type, ("random",), step) if line]
            errors = len(error_codes(lines))
            self.assertGreater(len(lines), 20, number_type)
            self.assertTrue(0.05 < errors / len(lines) < 0.5, (number_type, errors, len(lines)))


if __name__ == "__main__":
    unittest.main()
