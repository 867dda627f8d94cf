"""The programs for Windows are as hard to misuse as compiler and linker can make them, and the
check of that sees each way in which they might not be.

TALLYMERE_PROGRAM and TALLYMERE_CONSOLE name the programs.
"""

import os
import struct
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "packaging"))
import executable_files as files  # noqa: E402
from check_hardening import (END_BY_STACK_GUARD, SYSTEM_LIBRARIES,  # noqa: E402
                             linux_findings, windows_findings)

PROGRAM = Path(os.environ["TALLYMERE_PROGRAM"])
CONSOLE = Path(os.environ["TALLYMERE_CONSOLE"])

# What readelf tells of a program for Linux without a finding, as far as the check looks at it.
HARDENED_FOR_LINUX = """
  Type:                              DYN (Position-Independent Executable file)
  [17] .text             PROGBITS        0000000000005000 005000 0c8e01 00  AX  0   0 64
  [29] .gnu_debuglink    PROGBITS        0000000000000000 130028 00001c 00      0   0  4
  LOAD           0x005000 0x0000000000005000 0x0000000000005000 0x0c8e15 0x0c8e15 R E 0x1000
  LOAD           0x0fc6c0 0x00000000000fd6c0 0x00000000000fd6c0 0x033958 0x0704d8 RW  0x1000
  GNU_STACK      0x000000 0x0000000000000000 0x0000000000000000 0x000000 0x000000 RW  0x10
  GNU_RELRO      0x0fc6c0 0x00000000000fd6c0 0x00000000000fd6c0 0x031940 0x031940 R   0x1
 0x0000000000000001 (NEEDED)             Shared library: [libm.so.6]
 0x0000000000000001 (NEEDED)             Shared library: [libc.so.6]
 0x000000006ffffffb (FLAGS_1)            Flags: NOW PIE
     5: 0000000000000000     0 FUNC    GLOBAL DEFAULT  UND __stack_chk_fail@GLIBC_2.4 (2)
"""


class Doctored:
    """The bytes of a program for Windows, some of them changed."""

    def __init__(self, data):
        self.data = bytearray(data)
        self.header = struct.unpack_from("<I", data, 0x3C)[0]
        self.optional = self.header + 24
        size = struct.unpack_from("<H", data, self.header + 20)[0]
        self.sections = self.optional + size

    def put(self, form, place, value):
        struct.pack_into(form, self.data, place, value)
        return self

    def change(self, form, place, change):
        return self.put(form, place, change(struct.unpack_from(form, self.data, place)[0]))

    def replace(self, old, new, times=-1):
        assert len(old) == len(new) and old in self.data
        self.data = self.data.replace(old, new, times)
        return self

    def findings(self):
        return windows_findings(bytes(self.data))


class WindowsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.program = PROGRAM.read_bytes()

    def doctored(self):
        return Doctored(self.program)

    def test_the_programs_have_no_findings(self):
        for path in (PROGRAM, CONSOLE):
            with self.subTest(program=path.name):
                self.assertEqual([], windows_findings(path.read_bytes()))

    def test_symbols_are_in_a_file_beside(self):
        for path in (PROGRAM, CONSOLE):
            with self.subTest(program=path.name):
                symbols = files.WindowsExecutable(
                    path.with_name(path.name + ".debug").read_bytes())
                self.assertGreater(symbols.symbol_count, 1000)
                link = next(section.data for section in
                            files.WindowsExecutable(path.read_bytes()).sections
                            if section.name == ".gnu_debuglink")
                self.assertTrue(link.startswith(path.name.encode("ascii") + b".debug\0"))

    def test_only_libraries_of_the_system_are_imported(self):
        libraries = [name.lower() for name in
                     files.WindowsExecutable(self.program).imported_libraries()]
        self.assertIn("user32.dll", libraries)
        self.assertLessEqual(set(libraries), SYSTEM_LIBRARIES)
        for name in (b"USER32.dll", b"COMCTL32.dll"):
            planted = self.doctored().replace(name, name.replace(b"32", b"23"))
            self.assertEqual([f"imports {name.decode().lower().replace('32', '23')}, "
                              "which may lie beside the program"], planted.findings())

    def test_each_flag_of_the_file_is_needed(self):
        for flag, text in ((files.DYNAMIC_BASE, "no random address"),
                           (files.HIGH_ENTROPY, "few random bits"),
                           (files.DATA_ONLY_WITHOUT_EXECUTION, "data can be executed")):
            with self.subTest(text=text):
                doctored = self.doctored()
                doctored.change("<H", doctored.optional + 70, lambda flags: flags & ~flag)
                found = doctored.findings()
                self.assertEqual(1, len(found), found)
                self.assertIn(text, found[0])

    def test_relocations_are_needed(self):
        doctored = self.doctored()
        doctored.put("<I", doctored.optional + 112 + 8 * files.RELOCATIONS + 4, 0)
        self.assertIn("no relocations", doctored.findings()[0])
        doctored = self.doctored()
        doctored.change("<H", doctored.header + 22,
                        lambda flags: flags | files.RELOCATIONS_STRIPPED)
        self.assertIn("no relocations", doctored.findings()[0])

    def test_no_section_is_written_and_executed(self):
        doctored = self.doctored()
        doctored.change("<I", doctored.sections + 36, lambda flags: flags | files.WRITE)
        self.assertEqual(["section .text can be written and executed"], doctored.findings())
        doctored = self.doctored()
        doctored.change("<I", doctored.sections + 2 * 40 + 36, lambda flags: flags | files.EXECUTE)
        self.assertEqual(["section .rdata can be executed without being code"],
                         doctored.findings())

    def test_time_and_symbols_are_seen(self):
        doctored = self.doctored()
        doctored.put("<I", doctored.header + 8, 1_700_000_000)
        self.assertEqual(["has a time stamp, so that no two builds are equal"],
                         doctored.findings())
        doctored = self.doctored()
        # The names of sections stand behind the symbols, whose place moves with their number.
        doctored.change("<I", doctored.header + 12, lambda place: place - 5 * 18)
        doctored.put("<I", doctored.header + 16, 5)
        self.assertEqual(["has 5 symbols"], doctored.findings())
        self.assertEqual(["does not say where its symbols are"],
                         self.doctored().replace(b".gnu_debuglink", b".gnu_otherlink").findings())
        self.assertIn("has symbols in section .debug_symbols",
                      self.doctored().replace(b".gnu_debuglink", b".debug_symbols").findings())

    def test_guards_of_stacks_are_seen(self):
        none = self.doctored().replace(END_BY_STACK_GUARD, bytes(len(END_BY_STACK_GUARD)))
        self.assertEqual(["0 functions guard their stack"], none.findings())

    def test_the_manifest_names_each_system(self):
        for system in (b"{35138b9a-", b"{8e0f7a12-"):
            found = self.doctored().replace(system, b"{00000000-").findings()
            self.assertEqual(1, len(found), found)
            self.assertIn("the manifest does not name Windows", found[0])
        self.assertEqual(["imports the common controls without a manifest"],
                         self.doctored().replace(b"</assembly>", b"</assembli>").findings())
        self.assertEqual(["the manifest does not choose the common controls"],
                         self.doctored().replace(b"Windows.Common-Controls",
                                                 b"Windows.Other-Controls.").findings())

    def test_what_is_no_program_is_refused(self):
        with self.assertRaises(ValueError):
            windows_findings(b"MZ" + bytes(100))


class LinuxTest(unittest.TestCase):
    def test_a_hardened_program_has_no_findings(self):
        self.assertEqual([], linux_findings(HARDENED_FOR_LINUX))

    def test_each_lack_is_seen(self):
        for old, new, text in (
                ("DYN (Position-Independent Executable file)", "EXEC (Executable file)", "PIE"),
                ("0x000000 RW  0x10", "0x000000 RWE 0x10", "the stack can be executed"),
                ("0x0704d8 RW  0x1000", "0x0704d8 RWE 0x1000", "a segment can be written"),
                ("GNU_RELRO", "GNU_OTHER", "RELRO"),
                ("NOW PIE", "PIE", "BIND_NOW"),
                ("__stack_chk_fail", "__stack_other", "no function guards"),
                (".text ", ".symtab ", "has symbols"),
                (".gnu_debuglink", ".gnu_other", "where its symbols are"),
                ("(FLAGS_1)            Flags: NOW PIE",
                 "(RUNPATH)            [/opt/lib]\n 0x0 (FLAGS_1)  Flags: NOW PIE", "of its own"),
                ("[libm.so.6]", "[libstdc++.so.6]", "needs libstdc++.so.6"),
                ("[libc.so.6]", "[libm.so.6]", "C library")):
            with self.subTest(text=text):
                self.assertIn(old, HARDENED_FOR_LINUX)
                found = linux_findings(HARDENED_FOR_LINUX.replace(old, new))
                self.assertEqual(1, len(found), found)
                self.assertIn(text, found[0])


if __name__ == "__main__":
    unittest.main()
