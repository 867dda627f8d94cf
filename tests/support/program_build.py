"""The version of the program, as CMakeLists.txt has it."""

import re
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def project_version():
    """The version as a text, such as 3.9."""
    source = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"^project\(\w+ VERSION ([\d.]+)", source, re.MULTILINE).group(1)


def version_numbers(version):
    """The four numbers of a version for resources."""
    return ([int(number) for number in version.split(".")] + [0, 0, 0])[:4]


def program_build_header(version, year):
    """What CMake makes of cmake/program_build.h.in."""
    values = {"TALLYMERE_VERSION": version,
              "TALLYMERE_VERSION_NUMBERS": ", ".join(map(str, version_numbers(version))),
              "TALLYMERE_BUILD_YEAR": year}
    form = (ROOT / "cmake/program_build.h.in").read_text(encoding="utf-8")
    return re.sub(r"@(\w+)@", lambda match: values[match.group(1)], form)
