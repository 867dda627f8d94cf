#!/usr/bin/env python3
"""Checks that executables are as hard to misuse as compiler and linker can make them.

usage: packaging/check_hardening.py EXECUTABLE ...

Prints one line for each finding and exits with 1 if there is any. ./package does not pack a program
with a finding.

Not checked, since they cannot be had: control flow guard and the shadow stacks of processors on
Windows, which the compiler lacks, and the latter on Linux, for which Debian does not compile the
libraries that the console brings along.
"""

import re
import sys
from pathlib import Path
from xml.etree import ElementTree

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from executable_files import (CODE, DATA_ONLY_WITHOUT_EXECUTION, DYNAMIC_BASE,  # noqa: E402
                              EXECUTE, HIGH_ENTROPY, LARGE_ADDRESSES, MACHINE_AMD64, RELOCATIONS,
                              RELOCATIONS_STRIPPED, WRITE, WindowsExecutable, linux_facts)

# Windows takes these from its own folder even if files of the same name lie beside the program: all
# but the last are on its list of known libraries, and the manifest chooses that one.
SYSTEM_LIBRARIES = {"comdlg32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "oleaut32.dll",
                    "shell32.dll", "shlwapi.dll", "user32.dll", "comctl32.dll"}
COMMON_CONTROLS = "comctl32.dll"

# What __stack_chk_fail of src/program/windows/stack_guard.cpp is compiled to: the code of the
# reason into ECX, and the interrupt that ends the process.
END_BY_STACK_GUARD = bytes.fromhex("B902000000CD29")
# A program of ours has hundreds of guarded functions; few would come from the runtime alone.
LEAST_GUARDED = 100

# By the identifiers that Microsoft gave them.
SUPPORTED_SYSTEMS = {
    "{35138b9a-5d96-4fbd-8e2d-a2440225f93a}": "Windows 7",
    "{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}": "Windows 8",
    "{1f676c76-80e1-4239-95bb-83d0f6d0da78}": "Windows 8.1",
    "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}": "Windows 10 and 11",
}

# What a program for Linux may load: the C library, which is older than the compiler's own ones that
# the program brings along.
LINUX_LIBRARIES = {"libc.so.6", "libm.so.6", "ld-linux-x86-64.so.2"}


def manifest_findings(manifest, libraries):
    """What the manifest of a program lacks. One without windows has none."""
    if not manifest:
        return (["imports the common controls without a manifest"]
                if COMMON_CONTROLS in libraries else [])
    root = ElementTree.fromstring(manifest)
    supported = {element.get("Id") for element in root.iter()
                 if element.tag.endswith("}supportedOS")}
    found = [f"the manifest does not name {name}"
             for identifier, name in SUPPORTED_SYSTEMS.items() if identifier not in supported]
    if not any(element.get("name") == "Microsoft.Windows.Common-Controls"
               for element in root.iter()):
        found.append("the manifest does not choose the common controls")
    return found


def windows_findings(data):
    """What is wrong with a program for Windows, from its bytes."""
    file = WindowsExecutable(data)
    found = []

    def require(good, text):
        if not good:
            found.append(text)

    require(file.machine == MACHINE_AMD64, "is for another processor")
    for flag, text in ((DYNAMIC_BASE, "no random address (ASLR)"),
                       (HIGH_ENTROPY, "its address has few random bits"),
                       (DATA_ONLY_WITHOUT_EXECUTION, "data can be executed (DEP)")):
        require(file.dll_characteristics & flag, text)
    require(file.characteristics & LARGE_ADDRESSES, "takes no large addresses")
    require(not file.characteristics & RELOCATIONS_STRIPPED and file.directory(RELOCATIONS)[1] > 0,
            "no relocations, so it cannot be moved to a random address")
    for section in file.sections:
        require(not (section.flags & WRITE and section.flags & EXECUTE),
                f"section {section.name} can be written and executed")
        require(bool(section.flags & CODE) == bool(section.flags & EXECUTE),
                f"section {section.name} can be executed without being code")
        require(not section.name.startswith(".debug"), f"has symbols in section {section.name}")
    require(file.symbol_count == 0, f"has {file.symbol_count} symbols")
    require(any(section.name == ".gnu_debuglink" for section in file.sections),
            "does not say where its symbols are")
    require(file.time == 0, "has a time stamp, so that no two builds are equal")
    libraries = {name.lower() for name in file.imported_libraries()}
    require("kernel32.dll" in libraries, "imports nothing from the system")
    for name in sorted(libraries - SYSTEM_LIBRARIES):
        require(False, f"imports {name}, which may lie beside the program")
    guarded = file.calls_of(END_BY_STACK_GUARD)
    require(guarded >= LEAST_GUARDED, f"{max(guarded, 0)} functions guard their stack")
    return found + manifest_findings(file.manifest(), libraries)


def linux_findings(facts):
    """What is wrong with a program for Linux, from what readelf tells of it."""
    found = []

    def require(good, text):
        if not good:
            found.append(text)

    require(re.search(r"^\s*Type:\s+DYN ", facts, re.M), "no random address (PIE)")
    stack = re.search(r"^\s*GNU_STACK\s.*?\s(R[W ][E ])\s+0x", facts, re.M)
    require(stack and "E" not in stack[1], "the stack can be executed")
    for flags in re.findall(r"^\s*LOAD\s.*?\s(R[W ][E ])\s+0x", facts, re.M):
        require(not ("W" in flags and "E" in flags), "a segment can be written and executed")
    require(re.search(r"^\s*GNU_RELRO\s", facts, re.M)
            and re.search(r"\(FLAGS(_1)?\)\s+.*NOW", facts),
            "addresses of functions stay writable (RELRO, BIND_NOW)")
    require("__stack_chk_fail" in facts, "no function guards its stack")
    require(not re.search(r"\]\s+\.(symtab|debug_)", facts), "has symbols")
    require(re.search(r"\]\s+\.gnu_debuglink", facts), "does not say where its symbols are")
    require(not re.search(r"\((RPATH|RUNPATH)\)", facts),
            "looks for libraries in folders of its own")
    libraries = set(re.findall(r"\(NEEDED\)\s+Shared library: \[(.*?)\]", facts))
    require("libc.so.6" in libraries, "does not use the C library of the system")
    for name in sorted(libraries - LINUX_LIBRARIES):
        require(False, f"needs {name}")
    return found


def findings(path):
    """What is wrong with an executable, a line for each finding."""
    data = Path(path).read_bytes()
    if data[:4] == b"\x7fELF":
        return linux_findings(linux_facts(path))
    return windows_findings(data)


def main():
    if len(sys.argv) < 2 or sys.argv[1] in ("-h", "--help"):
        print(__doc__)
        return 0 if len(sys.argv) == 2 else 2
    status = 0
    for path in sys.argv[1:]:
        for line in findings(path):
            print(f"{path}: {line}")
            status = 1
    return status


if __name__ == "__main__":
    sys.exit(main())
