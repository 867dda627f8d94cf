"""The documents name only files, folders and functions that exist."""

import re
import unittest
from pathlib import Path

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

    def test_the_readme_names_the_words_of_formulas(self):
        table = (ROOT / "src/formula/formula_keywords.cpp").read_text(encoding="utf-8")
        words = set(re.findall(r'\{u"(\w+)"', table))
        self.assertGreater(len(words), 40)
        told = set(re.findall(r"[a-z]+\d*", " ".join(named_in(ROOT / "README.md"))))
        for word in words:
            in_another_unit = word[:-1] in words and word[-1] in "dg"
            self.assertTrue(word in told or in_another_unit, word)

    def test_there_is_something_to_check(self):
        names = set().union(*map(named_in, DOCUMENTS))
        self.assertGreater(len(names), 40)


if __name__ == "__main__":
    unittest.main()
