"""The documents name only files, folders and symbols that exist, and every large folder has one."""

import re
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from help_pages import constants, functions, operators  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
TOPS = ("src", "console", "tests", "bench", "tools", "cmake", "resources", "docs", "help", "fuzz",
        "packaging")
READMES = sorted(path for top in TOPS for path in (ROOT / top).rglob("README.md"))
DOCUMENTS = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md")), *READMES]
SOURCE_SUFFIXES = {".h", ".cpp", ".inc", ".py", ".sh", ".cmake", ".txt", ".json", ""}
# A folder of src/ with more headers than this has a README.
LARGE_ROOM = 6


def named_in(document):
    """What a document puts in backticks, code blocks left out."""
    text = re.sub(r"^```.*?^```", "", document.read_text(encoding="utf-8"), flags=re.M | re.S)
    return set(re.findall(r"`([^`\n]+)`", text))


def all_names():
    return [(document, name) for document in DOCUMENTS for name in sorted(named_in(document))]


def doubled_rows(text):
    """The first cell of each row of a table that has it from a row before already."""
    doubled = []
    told = set()
    for line in text.splitlines():
        if not line.startswith("|"):
            told = set()
            continue
        first = line.split("|")[1].strip()
        if first in told:
            doubled.append(first)
        told.add(first)
    return doubled


def bare(name):
    """A name without what stands behind it in a call: `./test core` is `./test`."""
    return name.split()[0] if re.match(r"(\./|\w+/)[\w./-]+ ", name) else name


def path_exists(place, name):
    """True for a file or folder below a place; a file may be named without its suffix."""
    return bool(list(place.glob(name.rstrip("/"))) or list(place.glob(name + ".*")))


def is_path(name):
    """True for names such as `core/real_add`, `tests/gui/`, `*_test.cpp` and `real_add.h`; not for
    what a build makes."""
    if re.fullmatch(r"[\w.*-]+\.(h|cpp|inc|py|sh|rc|html|css|cmake)", name):
        return True
    if not re.fullmatch(r"(\./)?[\w.*-]+/[\w./*-]*", name):
        return False
    first = name.split("/")[0]
    return first == "." or any((ROOT / top / first).is_dir() for top in ("src", "tests")) or (
        first in TOPS)


def missing_path(document, name):
    """True for a path that leads nowhere: from the root, from src/, or from the document's folder.
    A bare file name may be of a file further below; in the root or in docs/, of any file."""
    if any(path_exists(place, name.removeprefix("./"))
           for place in (ROOT, ROOT / "src", document.parent)):
        return False
    if "/" in name:
        return True
    everywhere = document.parent in (ROOT, ROOT / "docs")
    places = [ROOT / top for top in TOPS] if everywhere else [document.parent]
    return not any(list(place.rglob(name)) for place in places)


def source_words():
    """All words of the sources, and the names of their files."""
    words = set()
    for path in [ROOT / "CMakeLists.txt", ROOT / "CMakePresets.json",
                 *(path for top in TOPS for path in (ROOT / top).rglob("*"))]:
        if path.is_file() and path.suffix in SOURCE_SUFFIXES and "docs" not in path.parts:
            words.update(re.findall(r"\w+", path.read_text(encoding="utf-8", errors="ignore")))
            words.add(path.stem)
    return words


def is_symbol(name):
    """True for `RealAdd`, `settingsDirty`, `STANDS_ON` and `tallymere_logic`; not for the test
    programs, which CMake names after their folders."""
    return not name.endswith("_tests") and bool(re.fullmatch(r"(?:[A-Z][a-z0-9]+){2,}|[a-z]+[a-z0-9]*(?:[A-Z][a-z0-9]*)+|"
                             r"[A-Z]+(?:_[A-Z]+)+|[a-z]+(?:_[a-z0-9]+)+", name))


class DocsTest(unittest.TestCase):
    def test_files_and_folders_exist(self):
        for document, name in all_names():
            name = bare(name)
            if is_path(name):
                with self.subTest(document=str(document.relative_to(ROOT)), name=name):
                    self.assertFalse(missing_path(document, name))

    def test_symbols_exist(self):
        words = source_words()
        for document, name in all_names():
            if is_symbol(name):
                with self.subTest(document=str(document.relative_to(ROOT)), name=name):
                    self.assertTrue(name in words)

    def test_links_lead_to_files(self):
        for document in DOCUMENTS:
            text = document.read_text(encoding="utf-8")
            for link in re.findall(r"\]\(([^)#]+)(?:#[^)]*)?\)", text):
                if "://" not in link:
                    with self.subTest(document=str(document.relative_to(ROOT)), link=link):
                        self.assertTrue((document.parent / link).exists())

    def test_line_1_is_a_title(self):
        documents = [path for path in ROOT.rglob("*.md")
                     if path.relative_to(ROOT).parts[0] in (*TOPS, path.name)]
        self.assertLessEqual(set(DOCUMENTS), set(documents))
        for document in documents:
            with self.subTest(document=str(document.relative_to(ROOT))):
                lines = document.read_text(encoding="utf-8").splitlines()
                self.assertRegex(lines[0], r"^# \S")

    def test_no_table_has_two_rows_about_one_thing(self):
        # Tables of measurements tell of one thing as often as it was measured.
        for document in [*READMES, ROOT / "README.md", ROOT / "docs/architecture.md"]:
            with self.subTest(document=str(document.relative_to(ROOT))):
                self.assertEqual([], doubled_rows(document.read_text(encoding="utf-8")))

    def test_large_folders_have_a_readme_of_one_screen(self):
        folders = {path.parent for path in (ROOT / "src").rglob("*.h")}
        large = {folder for folder in folders if len(list(folder.glob("*.h"))) > LARGE_ROOM}
        large |= {ROOT / name for name in ("src", "tests", "tests/support", "tests/reference",
                                           "console", "tools")}
        self.assertGreater(len(large), 12)
        for folder in sorted(large):
            with self.subTest(folder=str(folder.relative_to(ROOT))):
                lines = (folder / "README.md").read_text(encoding="utf-8").splitlines()
                self.assertLess(10, len(lines))
                self.assertLessEqual(len(lines), 75)

    def test_the_readme_of_src_leads_to_every_room(self):
        text = (ROOT / "src" / "README.md").read_text(encoding="utf-8")
        for readme in (ROOT / "src").rglob("*/README.md"):
            self.assertIn(f"({readme.relative_to(ROOT / 'src')})", text)

    def test_the_readme_names_every_language(self):
        table = (ROOT / "src/shell/languages.h").read_text(encoding="utf-8")
        names = re.findall(r'\{Language\w+, "\w+", u"(\w+)"', table)
        self.assertIn("English", names)
        text = " ".join((ROOT / "README.md").read_text(encoding="utf-8").split())
        told = re.findall(r"of the program, in ([\w, ]+)\.", text)
        self.assertEqual([f"{', '.join(names[:-1])} and {names[-1]}"], told,
                         "README.md and src/shell/languages.h")

    def test_there_is_something_to_check(self):
        names = [name for _, name in all_names()]
        self.assertGreater(sum(map(is_path, names)), 100)
        self.assertGreater(sum(map(is_symbol, names)), 60)


class NamesTest(unittest.TestCase):
    """What the tests above see, and what they see through."""

    def test_paths(self):
        for name in ("core/real_add", "src/", "tests/gui/", "real_add.h", "tests/*_windows", "./run",
                     "tools/check_layers.py", "layout/logical_units.h"):
            self.assertTrue(is_path(name), name)
        for name in ("2/3", "1/x", "build/logs/", "ans/2", "+ - * /", "/", "real"):
            self.assertFalse(is_path(name), name)

    def test_doubled_rows(self):
        table = "| Word | Meaning |\n|---|---|\n| a | 1 |\n| b | 2 |\n"
        self.assertEqual([], doubled_rows(table + "\n" + table))
        self.assertEqual(["a"], doubled_rows(table + "| a | 3 |\n"))

    def test_missing_paths(self):
        core = ROOT / "src/core/README.md"
        for name in ("core/real_add", "real_add.h", "real_add.cpp", "tests/*_windows", "./run",
                     "core/", "tests/gui/"):
            self.assertFalse(missing_path(core, name), name)
        for name in ("core/real_subtraction", "roots.h", "tests/*_nowhere", "core/real", "./go",
                     "nowhere_*.cpp"):
            self.assertTrue(missing_path(core, name), name)
        self.assertFalse(missing_path(ROOT / "README.md", "roots.h"))
        self.assertTrue(missing_path(ROOT / "README.md", "rootes.h"))

    def test_symbols(self):
        for name in ("RealAdd", "BigUintGcd", "numberContext", "STANDS_ON", "tallymere_logic"):
            self.assertTrue(is_symbol(name), name)
        for name in ("real", "WinMain()", "Stop", "sqrt", "--quick", "x^y"):
            self.assertFalse(is_symbol(name), name)


if __name__ == "__main__":
    unittest.main()
