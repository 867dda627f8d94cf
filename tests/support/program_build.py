"""The version of the program, as CMakeLists.txt has it, and what CMake makes of it."""

import os
import re
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def project_version():
    """The version as a text, such as 3.9."""
    source = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"^project\(\w+ VERSION ([\d.]+)", source, re.MULTILINE).group(1)


def version_numbers(version):
    """The four numbers of a version for resources."""
    return ([int(number) for number in version.split(".")] + [0, 0, 0])[:4]


def make_program_build(folder, version, build_time="", epoch=None):
    """Makes the files of cmake/program_build.cmake in a folder, with the build time that CMake or
    the environment gives. Returns the finished process, whose output is the build time."""
    script = Path(folder) / "program_build_test.cmake"
    script.write_text(f"include({ROOT}/cmake/program_build.cmake)\n"
                      'execute_process(COMMAND ${CMAKE_COMMAND} -E echo '
                      '"${TALLYMERE_BUILD_TIME_TEXT}")\n', encoding="utf-8")
    environment = {name: value for name, value in os.environ.items()
                   if name != "SOURCE_DATE_EPOCH"}
    environment["TZ"] = "ELSEWHERE-5"  # the build time is that of UTC
    if epoch is not None:
        environment["SOURCE_DATE_EPOCH"] = str(epoch)
    values = {"PROJECT_VERSION": version, "PROJECT_BINARY_DIR": folder,
              "TALLYMERE_BUILD_TIME": build_time}
    return subprocess.run(
        ["cmake", *(f"-D{name}={value}" for name, value in values.items()), "-P", script],
        cwd=ROOT, env=environment, capture_output=True, encoding="utf-8", check=False)
