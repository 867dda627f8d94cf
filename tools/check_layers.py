#!/usr/bin/env python3
"""Checks that includes keep to the layers of the source tree.

usage: tools/check_layers.py [ROOT]

  - a file of src/ includes files of its own room and of the rooms that it stands on, never of a
    higher one or of a neighbour
  - no file reaches itself through its includes
  - a project file is included in quotes, by its path from src/ (from tests/ in tests)
  - only files in toolkit/ or in a folder named windows/ include headers of Windows, and their tests

Prints one line for each finding, file and line first, and exits with 1 if there is any.
"""

import re
import sys
from pathlib import Path

# Each room of src/ and the rooms that it stands on. It may include those, what they stand on, and
# itself; all others lie above it or beside it.
STANDS_ON = {
    "core": [],
    "functions": ["core"],
    "exact": ["core"],
    "values": ["functions", "exact"],
    "formula": ["values"],
    "numtheory": ["values"],
    # Square roots in lowest terms take the prime factors of a number.
    "algebra": ["numtheory"],
    "layout": ["core"],
    "shell": ["formula", "layout"],
    "calculator": ["shell"],
    "prime_pages": ["shell", "numtheory"],
    "algebra_pages": ["shell", "algebra"],
    "toolkit": ["layout"],
    # The settings file holds the variables of the calculator.
    "shell/windows": ["shell", "toolkit", "calculator"],
    "calculator/windows": ["calculator", "shell/windows"],
    "prime_pages/windows": ["prime_pages", "shell/windows"],
    "algebra_pages/windows": ["algebra_pages", "shell/windows"],
    "program/windows": ["calculator/windows", "prime_pages/windows", "algebra_pages/windows"],
}

SOURCE_SUFFIXES = {".h", ".cpp", ".inc"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
WINDOWS_HEADER = re.compile(
    r"(windows|windowsx|win(base|def|gdi|nls|nt|ternl|user)|comm(ctrl|dlg)|shellapi|shlobj|"
    r"shlwapi|uxtheme|richedit|process|tchar)\.h", re.IGNORECASE)


def source_files(root):
    """All sources of the project, as paths relative to root, in a fixed order."""
    return sorted(
        path.relative_to(root)
        for top in ("src", "console", "tests", "bench", "fuzz")
        for path in (root / top).rglob("*")
        if path.suffix in SOURCE_SUFFIXES)


def includes_of(path):
    """(line number, opening quote or bracket, name) of every include in a file."""
    with open(path, encoding="utf-8") as lines:
        for number, line in enumerate(lines, 1):
            match = INCLUDE.match(line)
            if match:
                yield number, match.group(1), match.group(2)


def is_windows_half(file):
    """Product code by its folder; the tests of shell/windows stand in tests/shell_windows, and
    tests/gui has helpers that look at windows from outside."""
    folders = file.parts[:-1]
    return ("toolkit" in folders or "windows" in folders
            or folders[0] == "tests" and (folders[-1] == "gui" or folders[-1].endswith("_windows")))


def resolve(root, file, name):
    """The project file that file means by name, relative to root; None if there is none."""
    bases = ["src"] if file.parts[0] == "src" else ["src", file.parts[0], "."]
    for base in bases:
        candidate = Path(base) / name
        if (candidate.suffix in SOURCE_SUFFIXES and ".." not in candidate.parts
                and (root / candidate).is_file()):
            return candidate
    return None


def room_of(file):
    """The folder of a file of src/, as STANDS_ON writes it; None for files outside src/."""
    return file.parent.relative_to("src").as_posix() if file.parts[0] == "src" else None


def rooms_below(room):
    """All rooms that a room may include besides itself."""
    below = set(STANDS_ON[room])
    for lower in STANDS_ON[room]:
        below |= rooms_below(lower)
    return below


def layer_finding(file, target):
    """What is wrong with a file of src/ including another one, or None."""
    room, target_room = room_of(file), room_of(target)
    for folder in (room, target_room):
        if folder not in STANDS_ON:
            return f"src/{folder} has no layer yet: give it one in tools/check_layers.py"
    if target_room == room or target_room in rooms_below(room):
        return None
    if room in rooms_below(target_room):
        return f"{room}/ lies below {target_room}/ and must not include it"
    return f"{room}/ and {target_room}/ are neighbours: neither includes the other"


def find_circles(graph):
    """One message for each include that closes a circle, in a walk from every file."""
    findings, finished = [], set()

    def visit(file, path):
        for line, target in graph[file]:
            if target in path:
                circle = path[path.index(target):] + [target]
                findings.append(
                    (file, line, "includes in a circle: " + " -> ".join(map(str, circle))))
            elif target not in finished:
                visit(target, path + [target])
        finished.add(file)

    for file in graph:
        if file not in finished:
            visit(file, [file])
    return findings


def check(root):
    """All findings under root as (file, line, message)."""
    findings = []
    graph = {file: [] for file in source_files(root)}
    for file in graph:
        for line, quote, name in includes_of(root / file):
            target = resolve(root, file, name)
            if quote == "<":
                if WINDOWS_HEADER.fullmatch(name) and not is_windows_half(file):
                    findings.append(
                        (file, line, f"<{name}> belongs into toolkit/ or a windows/ folder"))
                continue
            if target is None:
                if file.parts[0] == "src":
                    findings.append(
                        (file, line, f'"{name}" is no path from src/ to a file of the project'))
                continue
            graph[file].append((line, target))
            if file.parts[0] == "src":
                message = layer_finding(file, target)
                if message:
                    findings.append((file, line, message))
    return findings + find_circles(graph)


def main():
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent
    if not source_files(root):
        print(f"{root}: no sources here")
        return 1
    findings = check(root)
    for file, line, message in findings:
        print(f"{file}:{line}: {message}")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
