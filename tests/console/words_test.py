"""What every word of tallymere-console does alike: its help and the options that all words share.

console_support.py tells of the environment. The words are those that the help of the console lists.
"""

import re
import sys
import unittest

sys.dont_write_bytecode = True
from console_support import ConsoleCase, keep_console_waiting, run  # noqa: E402

SHARED = {"--group": "group digits in results",
          "--decimal": "decimal separator (point)",
          "--thousands": "separator of groups (apostrophe)",
          "--language": "language of texts and messages (en)"}


def setUpModule():
    keep_console_waiting()


class WordTest(ConsoleCase):
    @classmethod
    def setUpClass(cls):
        lines = run(["--help"])[0]
        first = next(i for i, line in enumerate(lines) if line.startswith("A WORD does")) + 2
        cls.words = [line.split()[0] for line in lines[first:lines.index("", first)]]

    def test_the_help_lists_them(self):
        self.assertLessEqual({"factor", "primes"}, set(self.words))

    def test_each_explains_itself(self):
        for word in self.words:
            for option in "-h", "--help":
                lines, errors, status = run([word, option, "--nonsense"])
                with self.subTest(word=word, option=option):
                    self.assertEqual(("", 0), (errors, status))
                    self.assertRegex(lines[0], rf"^usage: tallymere-console {word} \[options\] ")
                    self.assertTrue(all(len(line) <= 80 for line in lines), lines)
                    self.assertNotRegex("\n".join(lines), "[{}]")

    def test_each_has_the_shared_options(self):
        for word in self.words:
            text = re.sub(r"\s+", " ", " ".join(run([word, "--help"])[0]))
            _, refused, _ = run([word, "--nonsense"])
            for option, explanation in SHARED.items():
                with self.subTest(word=word, option=option):
                    self.assertRegex(text, rf"{option} (\S+ )?{re.escape(explanation)}")
                    self.assertIn(f"{option}, ", refused)

    def test_each_refuses_equal_separators(self):
        for word in self.words:
            lines, errors, status = run([word, "--decimal", "comma", "--thousands", "comma", "7"])
            with self.subTest(word=word):
                self.assertEqual(([], 2), (lines, status))
                self.assertEqual('tallymere-console: --thousands: "comma" is the decimal '
                                 "separator; allowed: point, apostrophe, narrow-space\n", errors)


if __name__ == "__main__":
    unittest.main()
