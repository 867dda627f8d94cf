"""What is in the packages, and that nothing of the machine or the moment gets into them.

TALLYMERE_PROGRAM names the program for Windows; its build tree is packed.
"""

import contextlib
import hashlib
import io
import os
import re
import subprocess
import sys
import tarfile
import tempfile
import unittest
import zipfile
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parents[2]
sys.path += [str(ROOT / "packaging"), str(ROOT / "tests" / "support")]
import make_packages  # noqa: E402
from executable_files import (DATA_ONLY_WITHOUT_EXECUTION, EXECUTE, WRITE,  # noqa: E402
                              WindowsExecutable)
from check_hardening import SYSTEM_LIBRARIES  # noqa: E402
from program_build import project_version  # noqa: E402

BUILD = Path(os.environ["TALLYMERE_PROGRAM"]).parent
VERSION = project_version()
EPOCH = 1_700_000_000
WHEN = (2023, 11, 14, 22, 13, 20)
WINDOWS_PACKAGES = {f"tallymere-{VERSION}-setup.exe", f"tallymere-{VERSION}-windows.zip",
                    f"tallymere-{VERSION}-windows-symbols.zip",
                    f"tallymere-console-{VERSION}-windows.zip", "SHA256SUMS"}


def packed(output, **environment):
    """Packs the build tree into a folder by a process of its own."""
    subprocess.run(
        [sys.executable, ROOT / "packaging/make_packages.py", output, str(EPOCH), "--windows",
         BUILD],
        env={**os.environ, **environment}, check=True, capture_output=True)
    return {path.name: path.read_bytes() for path in Path(output).iterdir()}


class PackagesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.packages = packed(cls.folder / "packages")

    def archive(self, name):
        return zipfile.ZipFile(io.BytesIO(self.packages[name]))

    def test_all_packages_are_made(self):
        self.assertEqual(WINDOWS_PACKAGES, set(self.packages))

    def test_a_second_run_elsewhere_gives_the_same_bytes(self):
        again = packed(self.folder / "a deeper folder" / "packages", TZ="ELSEWHERE-5",
                       LC_ALL="de_DE.UTF-8", SOURCE_DATE_EPOCH="1")
        for name, data in self.packages.items():
            with self.subTest(package=name):
                self.assertTrue(data == again[name])

    def test_the_zip_holds_program_help_licence_and_changes(self):
        with self.archive(f"tallymere-{VERSION}-windows.zip") as archive:
            top = f"tallymere-{VERSION}"
            pages = {path.name for path in (ROOT / "help/Tallymere").iterdir()}
            self.assertIn("overview_de.html", pages)
            self.assertEqual(
                {f"{top}/{name}" for name in ("tallymere.exe", "LICENSE.txt", "CHANGES.txt",
                                              *(f"HtmlBrowserHelpFiles/Tallymere/{page}"
                                                for page in pages))},
                set(archive.namelist()))
            self.assertEqual((BUILD / "tallymere.exe").read_bytes(),
                             archive.read(f"{top}/tallymere.exe"))
            self.assertEqual((ROOT / "help/Tallymere/overview_de.html").read_bytes(),
                             archive.read(f"{top}/HtmlBrowserHelpFiles/Tallymere/overview_de.html"))
            self.assertEqual({WHEN}, {entry.date_time for entry in archive.infolist()})
            self.assertIsNone(archive.testzip())

    def test_texts_are_such_as_windows_reads(self):
        with self.archive(f"tallymere-{VERSION}-windows.zip") as archive:
            for name, source in (("LICENSE.txt", "LICENSE"), ("CHANGES.txt", "CHANGELOG.md")):
                data = archive.read(f"tallymere-{VERSION}/{name}")
                self.assertTrue(data.startswith(b"\xEF\xBB\xBF"))
                self.assertEqual(data.count(b"\n"), data.count(b"\r\n"))
                self.assertEqual((ROOT / source).read_text(encoding="utf-8"),
                                 data.decode("utf-8-sig").replace("\r\n", "\n"))

    def test_console_and_symbols_have_packages_of_their_own(self):
        with self.archive(f"tallymere-console-{VERSION}-windows.zip") as archive:
            self.assertEqual({f"tallymere-console-{VERSION}/{name}" for name in
                              ("tallymere-console.exe", "LICENSE.txt", "CHANGES.txt")},
                             set(archive.namelist()))
        with self.archive(f"tallymere-{VERSION}-windows-symbols.zip") as archive:
            self.assertEqual({f"tallymere-{VERSION}-symbols/{name}.debug" for name in
                              ("tallymere.exe", "tallymere-console.exe")},
                             set(archive.namelist()))

    def test_checksums_are_those_of_the_packages(self):
        lines = self.packages["SHA256SUMS"].decode("ascii").splitlines()
        self.assertEqual(
            sorted((hashlib.sha256(data).hexdigest(), name)
                   for name, data in self.packages.items() if name != "SHA256SUMS"),
            sorted(tuple(line.split("  ")) for line in lines))

    def test_the_installer_is_for_this_processor_and_loads_from_the_system_alone(self):
        installer = WindowsExecutable(self.packages[f"tallymere-{VERSION}-setup.exe"])
        self.assertTrue(installer.dll_characteristics & DATA_ONLY_WITHOUT_EXECUTION)
        self.assertEqual([], [section.name for section in installer.sections
                              if section.flags & WRITE and section.flags & EXECUTE])
        # They are known libraries like those of the program.
        self.assertLessEqual({name.lower() for name in installer.imported_libraries()},
                             SYSTEM_LIBRARIES | {"advapi32.dll", "ole32.dll"})
        self.assertIn('level="asInvoker"', installer.manifest())

    def test_a_program_that_is_not_hardened_is_not_packed(self):
        program = bytearray((BUILD / "tallymere.exe").read_bytes())
        header = int.from_bytes(program[0x3C:0x40], "little")
        program[header + 8:header + 12] = b"\1\2\3\4"  # a time stamp
        path = self.folder / "tallymere.exe"
        path.write_bytes(program)
        with self.assertRaisesRegex(SystemExit, "has a time stamp"):
            make_packages.program(path)

    def test_a_folder_with_other_things_is_left_alone(self):
        folder = self.folder / "mine"
        folder.mkdir()
        (folder / "letter.txt").write_text("dear", encoding="ascii")
        with self.assertRaises(subprocess.CalledProcessError), \
                contextlib.redirect_stderr(io.StringIO()):
            packed(folder)
        self.assertEqual("dear", (folder / "letter.txt").read_text(encoding="ascii"))

    def test_programs_for_linux_can_be_executed(self):
        path = self.folder / "console.tar.gz"
        files = {"tallymere-console": b"\x7fELF...", "tallymere-console.debug": b"\x7fELF...",
                 "LICENSE": b"terms"}
        make_packages.write_tar(path, "folder", files, EPOCH)
        with tarfile.open(path) as archive:
            self.assertEqual([("folder/LICENSE", 0o644, EPOCH),
                              ("folder/tallymere-console", 0o755, EPOCH),
                              ("folder/tallymere-console.debug", 0o644, EPOCH)],
                             [(entry.name, entry.mode, entry.mtime)
                              for entry in archive.getmembers()])
        first = path.read_bytes()
        os.utime(path, (1, 1))
        other = self.folder / "other.tar.gz"
        make_packages.write_tar(other, "folder", dict(reversed(files.items())), EPOCH)
        self.assertEqual(first, other.read_bytes())


class DocumentsTest(unittest.TestCase):
    def test_the_licence_says_what_about_says(self):
        entries = (ROOT / "src/shell/ui_text_entries.inc").read_text(encoding="utf-8")
        entry = re.search(r"ENTRY\(TextAboutFreewareYouCanUse,(.*?\")\)\n", entries, re.S).group(1)
        licence = " ".join((ROOT / "LICENSE").read_text(encoding="utf-8").split())
        texts = ["".join(re.findall(r'u"([^"]*)"', part)) for part in re.split(r'(?<="),\n', entry)]
        self.assertEqual(2, len(texts))
        for text in texts:
            said = text.replace("%s", "Tallymere").replace(r"\r\n", " ")
            self.assertIn(" ".join(said.split()), licence)

    def test_the_changes_begin_with_this_version(self):
        changes = (ROOT / "CHANGELOG.md").read_text(encoding="utf-8")
        versions = re.findall(r"^## (\S+)$", changes, re.M)
        self.assertEqual(VERSION, versions[0])
        self.assertEqual(len(versions), len(set(versions)))


if __name__ == "__main__":
    unittest.main()
