"""The documents name only files, folders and functions that exist."""

import re
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from help_pages import constants, functions, operators  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
DOCUMENTS = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
ROOMS = {path.name for path in (ROOT / "src").iterdir()}


def named_in(document):
    """What a document puts in backticks, code blocks left out."""
    text = re.sub(r"^```.*?^```", "", document.read_text(encoding="utf-8"), flags=re.M | re.S)
    return set(re.findall(r"`([^`\n]+)`", text))


class DocsTest(unittest.TestCase):
    def test_files_of_the_program_exist(self):
        for document in DOCUMENTS:
            for name in named_in(document):
                match = re.fullmatch(r"(\w+)/([\w.]+)", name)
                if match and match.group(1) in ROOMS:
                    with self.subTest(document=document.name, name=name):
                        self.assertTrue(list((ROOT / "src" / match.group(1)).glob(
                            match.group(2) + ("" if "." in match.group(2) else ".*"))))

    def test_scripts_and_other_folders_exist(self):
        for document in DOCUMENTS:
            for name in named_in(document):
                if re.fullmatch(r"(bench|cmake|console|docs|tests|tools)/[\w./-]*", name):
                    with self.subTest(document=document.name, name=name):
                        self.assertTrue((ROOT / name).exists())

    def test_functions_and_records_exist(self):
        declared = "\n".join(path.read_text(encoding="utf-8")
                             for path in sorted((ROOT / "src").rglob("*"))
                             if path.suffix in (".h", ".cpp"))
        for document in DOCUMENTS:
            for name in named_in(document):
                if re.fullmatch(r"(?:[A-Z][a-z0-9]+){2,}", name):
                    with self.subTest(document=document.name, name=name):
                        self.assertTrue(re.search(rf"\b{name}\b", declared))

    def test_the_readme_lists_the_functions_of_formulas(self):
        readme = (ROOT / "README.md").read_text(encoding="utf-8")
        sentence = re.search(r"`ans`, parentheses and `([^`]+)`", readme).group(1)
        self.assertEqual(operators(), set(sentence.split()))
        table = readme[readme.index(sentence):].split("\n\n")[1]
        told = dict(re.findall(r"`(\w+)(?:\(([^)]*)\))?`", table))
        for name, parameters in functions().items():
            with self.subTest(function=name):
                in_another_unit = name[:-1] in functions() and name[-1] in "dg"
                self.assertTrue(name in told or in_another_unit)
                self.assertIn(told.get(name), (None, "", parameters))
        self.assertEqual(set(), set(told) - set(functions()) - constants() - {"d", "g", "i"})
        self.assertLessEqual(constants(), set(told))

    def test_there_is_something_to_check(self):
        names = set().union(*map(named_in, DOCUMENTS))
        self.assertGreater(len(names), 40)


if __name__ == "__main__":
    unittest.main()
