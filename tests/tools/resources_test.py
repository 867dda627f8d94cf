"""The icons hold every size that Windows asks for, and the resources compile as it wants them."""

import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from program_build import (make_program_build, project_version,  # noqa: E402
                           version_numbers)

VERSION = project_version()
YEAR = "2031"
RESOURCES = Path(__file__).resolve().parents[2] / "resources"
SIZES = [16, 24, 32, 48, 64, 128, 256]
COMPILER = "x86_64-w64-mingw32-windres"
TYPE_ICON, TYPE_ICON_GROUP, TYPE_VERSION, TYPE_MANIFEST = 3, 14, 16, 24
PNG = b"\x89PNG\r\n\x1a\n"


def icon_images(data):
    """(width, height, bits of a pixel, image) for each image of an .ico file."""
    reserved, kind, count = struct.unpack_from("<HHH", data)
    assert (reserved, kind) == (0, 1), "not an icon"
    for i in range(count):
        width, height, bits, size, start = struct.unpack_from("<BB4xHII", data, 6 + 16 * i)
        yield width or 256, height or 256, bits, data[start:start + size]


def image_size(image):
    """(width, height, bits of a pixel) as the image itself tells them."""
    if image.startswith(PNG):
        width, height, depth, colour = struct.unpack_from(">IIBB", image, 16)
        return width, height, depth * {2: 3, 6: 4}[colour]
    _, width, height, _, bits = struct.unpack_from("<IiiHH", image)
    return width, height // 2, bits  # counts the mask as well


def colours(image):
    """The different pixels of an image that is not a PNG."""
    header, width, height = struct.unpack_from("<Iii", image)
    pixels = image[header:header + 4 * width * (height // 2)]
    return {pixels[i:i + 4] for i in range(0, len(pixels), 4)}


def resource_id(data, start):
    """A type or name of a compiled resource, a number or a text, and where it ends."""
    first, number = struct.unpack_from("<HH", data, start)
    if first == 0xFFFF:
        return number, start + 4
    end = start
    while data[end:end + 2] != b"\0\0":
        end += 2
    return data[start:end].decode("utf-16-le"), end + 2


def compiled_resources():
    """{(type, name): data} of the resource file."""
    with tempfile.TemporaryDirectory() as folder:
        output = Path(folder) / "tallymere.res"
        make_program_build(folder, VERSION, f"{YEAR}-01-02 03:04:05").check_returncode()
        subprocess.run([COMPILER, f"--include-dir={folder}/generated", "--output-format=res",
                        RESOURCES / "tallymere.rc", output], check=True)
        data = output.read_bytes()
    found = {}
    start = 0
    while start < len(data):
        size, header = struct.unpack_from("<II", data, start)
        kind, end = resource_id(data, start + 8)
        name, _ = resource_id(data, end)
        if kind != 0:
            found[kind, name] = data[start + header:start + header + size]
        start = (start + header + size + 3) // 4 * 4
    return found


class IconTest(unittest.TestCase):
    def test_icons_hold_all_sizes_with_an_alpha_channel(self):
        for name in ("app_icon", "donate_icon"):
            with self.subTest(icon=name):
                images = list(icon_images((RESOURCES / f"{name}.ico").read_bytes()))
                self.assertEqual(SIZES, [width for width, _, _, _ in images])
                for width, height, bits, image in images:
                    self.assertEqual((width, width, 32), (width, height, bits))
                    self.assertEqual((width, width, 32), image_size(image))

    def test_only_the_largest_image_is_compressed(self):
        for name in ("app_icon", "donate_icon"):
            images = list(icon_images((RESOURCES / f"{name}.ico").read_bytes()))
            self.assertEqual([256], [width for width, _, _, image in images
                                     if image.startswith(PNG)])

    def test_images_show_something(self):
        for name in ("app_icon", "donate_icon"):
            for width, _, _, image in icon_images((RESOURCES / f"{name}.ico").read_bytes()):
                if not image.startswith(PNG):
                    with self.subTest(icon=name, width=width):
                        self.assertGreater(len(colours(image)), 10)

    def test_each_drawing_is_well_formed(self):
        drawings = sorted(RESOURCES.glob("*.svg"))
        self.assertGreaterEqual(len(drawings), 3)
        for drawing in drawings:
            root = ElementTree.parse(drawing).getroot()
            self.assertEqual("{http://www.w3.org/2000/svg}svg", root.tag)


class ResourceTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.resources = compiled_resources()

    def test_icons_have_the_names_that_the_program_loads(self):
        # Names are found without regard to case; compiled ones are stored in capitals.
        names = {str(name).upper() for kind, name in self.resources if kind == TYPE_ICON_GROUP}
        self.assertEqual({"!APPICON", "DONATEBTNICON"}, names)

    def test_icon_groups_hold_all_sizes(self):
        for (kind, name), data in self.resources.items():
            if kind == TYPE_ICON_GROUP:
                count = struct.unpack_from("<H", data, 4)[0]
                widths = [data[6 + 14 * i] or 256 for i in range(count)]
                self.assertEqual(SIZES, widths, name)

    def test_icons_are_not_mixed_up(self):
        images = [image for name in ("app_icon", "donate_icon")
                  for _, _, _, image in icon_images((RESOURCES / f"{name}.ico").read_bytes())]
        first = {str(name).upper(): struct.unpack_from("<H", data, 6 + 12)[0]
                 for (kind, name), data in self.resources.items() if kind == TYPE_ICON_GROUP}
        self.assertEqual(images[0], self.resources[TYPE_ICON, first["!APPICON"]])
        self.assertEqual(images[len(SIZES)], self.resources[TYPE_ICON, first["DONATEBTNICON"]])

    def test_manifest_asks_for_common_controls_6_no_rights_and_says_nothing_of_resolution(self):
        manifest = self.resources[TYPE_MANIFEST, 1].rstrip(b"\0")
        root = ElementTree.fromstring(manifest)
        identities = {element.get("name"): element.get("version") for element in root.iter()
                      if element.tag.endswith("}assemblyIdentity")}
        self.assertEqual("6.0.0.0", identities["Microsoft.Windows.Common-Controls"])
        self.assertEqual([("asInvoker", "false")],
                         [(element.get("level"), element.get("uiAccess"))
                          for element in root.iter()
                          if element.tag.endswith("}requestedExecutionLevel")])
        self.assertEqual([], [element.tag for element in root.iter()
                              if "dpi" in element.tag.lower()])

    def test_version_is_the_program_s(self):
        version = self.resources[TYPE_VERSION, 1]
        mark = struct.pack("<I", 0xFEEF04BD)
        file_version = struct.unpack_from("<II", version, version.index(mark) + 8)
        product_version = struct.unpack_from("<II", version, version.index(mark) + 16)
        major, minor, patch, tweak = version_numbers(VERSION)
        self.assertEqual((major << 16 | minor, patch << 16 | tweak), file_version)
        self.assertEqual(file_version, product_version)
        for text in ("FileVersion\0", "ProductVersion\0", f"{VERSION}\0",
                     f"© {YEAR} The Tallymere Project\0"):
            self.assertIn(text.encode("utf-16-le"), version)

    def test_version_is_that_of_a_program_for_windows(self):
        version = self.resources[TYPE_VERSION, 1]
        mark = struct.pack("<I", 0xFEEF04BD)
        # The mask of the flags, the flags, the system, the kind of file.
        self.assertEqual((0x3F, 0, 0x00040004, 1),
                         struct.unpack_from("<IIII", version, version.index(mark) + 24))

    def test_the_system_finds_the_block_of_version_texts(self):
        version = self.resources[TYPE_VERSION, 1]
        name = "Translation\0".encode("utf-16-le")
        place = (version.index(name) + len(name) + 3) // 4 * 4
        language, characters = struct.unpack_from("<HH", version, place)
        self.assertIn(f"{language:04X}{characters:04X}\0".encode("utf-16-le"), version)

    def test_manifest_has_the_program_s_version(self):
        root = ElementTree.fromstring(self.resources[TYPE_MANIFEST, 1].rstrip(b"\0"))
        identity = root.find("{urn:schemas-microsoft-com:asm.v1}assemblyIdentity")
        self.assertEqual(".".join(map(str, version_numbers(VERSION))), identity.get("version"))
        self.assertEqual(("win32", "amd64"),
                         (identity.get("type"), identity.get("processorArchitecture")))


if __name__ == "__main__":
    unittest.main()
