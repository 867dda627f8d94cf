#!/usr/bin/env python3
"""Makes the packages of built programs; ./package builds them and then calls this.

usage: packaging/make_packages.py OUTPUT EPOCH [--windows BUILD] [--linux BUILD]

EPOCH, in seconds since 1970, is the time of every file in the packages; nothing else of the machine
or the moment gets into them. BUILD is a build tree with tallymere and tallymere-console for
Windows, or with tallymere-console for Linux. OUTPUT is emptied first, but only if packages lie
there. A program that packaging/check_hardening.py finds fault with is not packed.
"""

import argparse
import gzip
import hashlib
import io
import os
import re
import shutil
import subprocess
import sys
import tarfile
import tempfile
import time
import zipfile
from pathlib import Path, PurePosixPath

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from check_hardening import findings  # noqa: E402

ROOT = Path(__file__).resolve().parent.parent
HELP_FOLDER = "HtmlBrowserHelpFiles/Tallymere"
CHECKSUMS = "SHA256SUMS"


def project_version(build):
    """The version of project() in CMakeLists.txt that a tree was built with."""
    cache = (build / "CMakeCache.txt").read_text(encoding="utf-8")
    return re.search(r"^CMAKE_PROJECT_VERSION:STATIC=(.+)$", cache, re.M).group(1)


def homepage():
    """The address that About shows."""
    source = (ROOT / "src/shell/program_facts.h").read_text(encoding="utf-8")
    return re.search(r'MakerHomepage = u"([^"]+)"', source).group(1)


def settings_files():
    """The names of the files that the program keeps in the folder of its settings."""
    def named(file, pattern):
        source = (ROOT / "src/shell" / file).read_text(encoding="utf-8")
        return re.search(pattern, source).group(1)
    name = named("program_paths.cpp", r'SettingsFileName = u"([^"]+)"')
    unread = int(named("program_paths.h", r"MaxUnreadFiles = (\d+);"))
    beside = named("beside_path.h", r'BesideName\[\] = u"([^"]+)"')
    return [name, beside, f"{name}.bad",
            *(f"{name}.bad{number}" for number in range(2, unread + 1))]


def program(path):
    """The bytes of a program, after a look at how hard it is to misuse."""
    found = findings(path)
    if found:
        sys.exit("".join(f"make_packages: {path}: {line}\n" for line in found).rstrip())
    return path.read_bytes()


def for_windows(path):
    """A text as each editor of Windows reads it: with its line ends, and a mark of UTF-8."""
    text = path.read_text(encoding="utf-8")
    return text.replace("\n", "\r\n").encode("utf-8-sig")


def documents(on_windows):
    """Licence and changes as a package has them: {name: bytes}."""
    if on_windows:
        return {"LICENSE.txt": for_windows(ROOT / "LICENSE"),
                "CHANGES.txt": for_windows(ROOT / "CHANGELOG.md")}
    return {"LICENSE": (ROOT / "LICENSE").read_bytes(),
            "CHANGELOG.md": (ROOT / "CHANGELOG.md").read_bytes()}


def program_files(build):
    """What the program with its windows is made of: {path: bytes}."""
    pages = sorted(path for path in (ROOT / "help/Tallymere").iterdir() if path.is_file())
    return {"tallymere.exe": program(build / "tallymere.exe"),
            **{f"{HELP_FOLDER}/{page.name}": page.read_bytes() for page in pages},
            **documents(on_windows=True)}


def write_zip(path, folder, files, epoch):
    """A zip with these files in one folder."""
    stamp = time.gmtime(epoch)[:6]
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name in sorted(files):
            entry = zipfile.ZipInfo(f"{folder}/{name}", stamp)
            entry.create_system = 0  # as Windows writes it
            entry.compress_type = zipfile.ZIP_DEFLATED
            archive.writestr(entry, files[name], compresslevel=9)


def write_tar(path, folder, files, epoch):
    """A .tar.gz with these files in one folder; programs may be executed."""
    content = io.BytesIO()
    with tarfile.open(fileobj=content, mode="w", format=tarfile.USTAR_FORMAT) as archive:
        for name in sorted(files):
            entry = tarfile.TarInfo(f"{folder}/{name}")
            entry.size = len(files[name])
            entry.mtime = epoch
            is_program = files[name].startswith(b"\x7fELF") and "." not in name
            entry.mode = 0o755 if is_program else 0o644
            archive.addfile(entry, io.BytesIO(files[name]))
    with open(path, "wb") as output:
        with gzip.GzipFile(filename="", fileobj=output, mode="wb", compresslevel=9,
                           mtime=epoch) as packed:
            packed.write(content.getvalue())


def windows_path(name):
    return name.replace("/", "\\")


def write_lists(folder, files):
    """What the installer brings, and what the uninstaller removes with and without the settings, in
    its language. The files lie in files/ below the folder."""
    folders = sorted({str(PurePosixPath(name).parent) for name in files} - {"."})
    install, uninstall = [], []
    for parent in [".", *folders]:
        place = "$INSTDIR" if parent == "." else f"$INSTDIR\\{windows_path(parent)}"
        install.append(f'SetOutPath "{place}"')
        for name in sorted(files):
            if str(PurePosixPath(name).parent) == parent:
                install.append(f'File "{folder}/files/{name}"')
                uninstall.append(f'Delete "$INSTDIR\\{windows_path(name)}"')
    for parent in sorted({str(above) for name in folders
                          for above in (PurePosixPath(name), *PurePosixPath(name).parents)} - {"."},
                         reverse=True):
        uninstall.append(f'RMDir "$INSTDIR\\{windows_path(parent)}"')
    settings = [f'Delete "${{SETTINGS_FOLDER}}\\{name}"' for name in settings_files()]
    for name, lines in (("install.nsh", install), ("uninstall.nsh", uninstall),
                        ("settings.nsh", settings)):
        (folder / name).write_text("".join(f"{line}\n" for line in lines), encoding="utf-8")


def write_installer(path, version, files, epoch):
    """The installer of these files."""
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for file, data in files.items():
            place = folder / "files" / file
            place.parent.mkdir(parents=True, exist_ok=True)
            place.write_bytes(data)
            os.utime(place, (epoch, epoch))
        write_lists(folder, files)
        numbers = ([*version.split("."), "0", "0", "0"])[:4]
        definitions = {
            "VERSION": version, "VERSION_OF_FOUR": ".".join(numbers), "OUTPUT": path,
            "ICON": ROOT / "resources/app_icon.ico", "LICENSE": folder / "files/LICENSE.txt",
            "LISTS": folder, "HOMEPAGE": homepage(),
            "KILOBYTES": sum(map(len, files.values())) // 1024}
        subprocess.run(
            ["makensis", "-V2", "-WX", "-NOCD", "-INPUTCHARSET", "UTF8",
             *(f"-D{key}={value}" for key, value in definitions.items()),
             ROOT / "packaging/tallymere.nsi"],
            env={**os.environ, "SOURCE_DATE_EPOCH": str(epoch), "TZ": "UTC"}, check=True,
            stdout=sys.stderr)


def make_windows(output, build, epoch):
    version = project_version(build)
    console = build / "console/tallymere-console.exe"
    files = program_files(build)
    write_zip(output / f"tallymere-{version}-windows.zip", f"tallymere-{version}", files, epoch)
    write_installer(output / f"tallymere-{version}-setup.exe", version, files, epoch)
    write_zip(output / f"tallymere-console-{version}-windows.zip", f"tallymere-console-{version}",
              {console.name: program(console), **documents(on_windows=True)}, epoch)
    symbols = [build / "tallymere.exe.debug", console.with_name(console.name + ".debug")]
    write_zip(output / f"tallymere-{version}-windows-symbols.zip", f"tallymere-{version}-symbols",
              {path.name: path.read_bytes() for path in symbols}, epoch)


def make_linux(output, build, epoch):
    version = project_version(build)
    console = build / "console/tallymere-console"
    write_tar(output / f"tallymere-console-{version}-linux.tar.gz", f"tallymere-console-{version}",
              {console.name: program(console), **documents(on_windows=False)}, epoch)
    symbols = console.with_name(console.name + ".debug")
    write_tar(output / f"tallymere-console-{version}-linux-symbols.tar.gz",
              f"tallymere-console-{version}-symbols", {symbols.name: symbols.read_bytes()}, epoch)


def write_checksums(output):
    """For sha256sum --check."""
    lines = [f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {path.name}\n"
             for path in sorted(output.iterdir())]
    (output / CHECKSUMS).write_text("".join(lines), encoding="ascii")


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("output", type=Path)
    parser.add_argument("epoch", type=int)
    parser.add_argument("--windows", type=Path)
    parser.add_argument("--linux", type=Path)
    arguments = parser.parse_args()
    output = arguments.output.resolve()
    if output.exists():
        if any(output.iterdir()) and not (output / CHECKSUMS).exists():
            sys.exit(f"make_packages: {output} has something else than packages in it")
        shutil.rmtree(output)
    output.mkdir(parents=True)
    if arguments.windows:
        make_windows(output, arguments.windows, arguments.epoch)
    if arguments.linux:
        make_linux(output, arguments.linux, arguments.epoch)
    write_checksums(output)


if __name__ == "__main__":
    main()
