"""What README.md shows of the console is what the console prints."""

import os
import shlex
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LINES = (ROOT / "README.md").read_text(encoding="utf-8").splitlines()
PROMPT = "    $ ./run "
WRITING = "    $ printf "


def examples():
    """(arguments, expected output) for each command that README.md shows with its output."""
    found = []
    is_output = False
    blanks = 0
    for line in LINES:
        if line.startswith(PROMPT):
            found.append((shlex.split(line[len(PROMPT):]), []))
            is_output = True
            blanks = 0
        elif is_output and line.startswith("    ") and not line.startswith("    $ "):
            found[-1][1].extend([""] * blanks + [line.strip()])
            blanks = 0
        elif is_output and not line:
            blanks += 1
        else:
            is_output = False
    return found


def files():
    """{name: bytes} of the files that README.md has its reader write by printf."""
    written = {}
    for line in LINES:
        if line.startswith(WRITING):
            content, _, name = shlex.split(line[len(WRITING):])
            written[name] = content.replace("\\n", "\n").encode()
    return written


class ReadmeTest(unittest.TestCase):
    def test_examples_print_what_is_shown(self):
        console = [part for part in (os.environ.get("TALLYMERE_LAUNCHER"),
                                     os.environ["TALLYMERE_CONSOLE"]) if part]
        self.assertGreaterEqual(len(examples()), 15)
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        for name, content in files().items():
            (Path(folder.name) / name).write_bytes(content)
        for arguments, expected in examples():
            with self.subTest(arguments=arguments):
                run = subprocess.run(console + arguments, stdin=subprocess.DEVNULL,
                                     stdout=subprocess.PIPE, cwd=folder.name, check=False)
                self.assertEqual(expected, run.stdout.decode("utf-8").splitlines())


if __name__ == "__main__":
    unittest.main()
