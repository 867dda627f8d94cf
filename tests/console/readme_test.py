"""What README.md shows of the console is what the console prints."""

import os
import shlex
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PROMPT = "    $ ./run "


def examples():
    """(arguments, expected output) for each command that README.md shows with its output."""
    found = []
    is_output = False
    blanks = 0
    for line in (ROOT / "README.md").read_text(encoding="utf-8").splitlines():
        if line.startswith(PROMPT):
            found.append((shlex.split(line[len(PROMPT):]), []))
            is_output = True
            blanks = 0
        elif is_output and line.startswith("    "):
            found[-1][1].extend([""] * blanks + [line.strip()])
            blanks = 0
        elif is_output and not line:
            blanks += 1
        else:
            is_output = False
    return found


class ReadmeTest(unittest.TestCase):
    def test_examples_print_what_is_shown(self):
        console = [part for part in (os.environ.get("TALLYMERE_LAUNCHER"),
                                     os.environ["TALLYMERE_CONSOLE"]) if part]
        self.assertGreaterEqual(len(examples()), 15)
        for arguments, expected in examples():
            with self.subTest(arguments=arguments):
                run = subprocess.run(console + arguments, stdin=subprocess.DEVNULL,
                                     stdout=subprocess.PIPE, check=False)
                self.assertEqual(expected, run.stdout.decode("utf-8").splitlines())


if __name__ == "__main__":
    unittest.main()
