"""What stands in the headers of an executable for Windows or Linux."""

import re
import struct
import subprocess
from dataclasses import dataclass

# Characteristics of a section.
CODE = 0x20
EXECUTE = 0x2000_0000
WRITE = 0x8000_0000

# DllCharacteristics of the whole file.
HIGH_ENTROPY = 0x20
DYNAMIC_BASE = 0x40
DATA_ONLY_WITHOUT_EXECUTION = 0x100

# Characteristics of the whole file.
RELOCATIONS_STRIPPED = 0x1
LARGE_ADDRESSES = 0x20

MACHINE_AMD64 = 0x8664
IMPORTS, RESOURCES, RELOCATIONS = 1, 2, 5


@dataclass
class Section:
    name: str
    address: int  # from where the file is loaded
    size: int
    flags: int
    data: bytes


class WindowsExecutable:
    """A 64-bit executable for Windows, from its bytes."""

    def __init__(self, data):
        header = struct.unpack_from("<I", data, 0x3C)[0]
        if data[:2] != b"MZ" or data[header:header + 4] != b"PE\0\0":
            raise ValueError("no executable for Windows")
        (self.machine, section_count, self.time, symbol_table, self.symbol_count, optional_size,
         self.characteristics) = struct.unpack_from("<HHIIIHH", data, header + 4)
        optional = header + 24
        if struct.unpack_from("<H", data, optional)[0] != 0x20B:
            raise ValueError("no 64-bit executable")
        self.dll_characteristics = struct.unpack_from("<H", data, optional + 70)[0]
        count = struct.unpack_from("<I", data, optional + 108)[0]
        self.directories = [struct.unpack_from("<II", data, optional + 112 + 8 * index)
                            for index in range(count)]
        # Names of more than eight characters stand behind the symbols.
        texts = symbol_table + 18 * self.symbol_count
        self.sections = []
        for index in range(section_count):
            (name, size, address, raw_size, raw_start,
             flags) = struct.unpack_from("<8sIIII12xI", data, optional + optional_size + 40 * index)
            name = name.rstrip(b"\0").decode("ascii")
            if name.startswith("/"):
                start = texts + int(name[1:])
                name = data[start:data.index(b"\0", start)].decode("ascii")
            # What the section has in the file; the rest of it is zeros.
            raw = data[raw_start:raw_start + min(size, raw_size)]
            self.sections.append(Section(name, address, size, flags, raw))

    def directory(self, index):
        """Address and size of a table of the file, zeros where it has none."""
        return self.directories[index] if index < len(self.directories) else (0, 0)

    def bytes_at(self, address):
        """What is loaded at an address, up to the end of the section's part of the file."""
        for section in self.sections:
            if section.address <= address < section.address + len(section.data):
                return section.data[address - section.address:]
        raise ValueError(f"nothing is loaded at {address:#x}")

    def imported_libraries(self):
        """The file names of the libraries that the system loads before the program starts."""
        names = []
        address, _ = self.directory(IMPORTS)
        table = self.bytes_at(address) if address else b""
        while any(table[:20]):
            name = self.bytes_at(struct.unpack_from("<I", table, 12)[0])
            names.append(name[:name.index(b"\0")].decode("ascii"))
            table = table[20:]
        return names

    def manifest(self):
        """The manifest as a text, empty if there is none."""
        address, size = self.directory(RESOURCES)
        resources = self.bytes_at(address)[:size] if address else b""
        found = re.search(rb"<assembly .*?</assembly>", resources, re.S)
        return found.group().decode("utf-8") if found else ""

    def calls_of(self, code):
        """How many calls lead to the place where this code stands, -1 if it stands nowhere."""
        for section in self.sections:
            if not section.flags & CODE:
                continue
            target = section.data.find(code)
            if target >= 0:
                return sum(
                    place.start() + 5 + struct.unpack_from("<i", section.data, place.start() + 1)[0]
                    == target
                    for place in re.finditer(rb"(?s)\xE8(?=....)", section.data))
        return -1


def linux_facts(path):
    """What readelf tells of headers, segments, sections, dynamic section and its symbols."""
    return subprocess.run(
        ["readelf", "--wide", "--file-header", "--segments", "--sections", "--dynamic",
         "--dyn-syms", path],
        env={"LC_ALL": "C", "PATH": "/usr/bin:/bin"}, check=True, stdout=subprocess.PIPE,
        encoding="utf-8").stdout
