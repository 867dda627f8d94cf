"""The version and the build time come from where cmake/program_build.cmake says."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from program_build import make_program_build  # noqa: E402

RELEASE = "2025-02-02 08:14:15"


class ProgramBuildTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def build_time(self, *arguments, **options):
        finished = make_program_build(self.folder, *arguments, **options)
        self.assertEqual(0, finished.returncode, finished.stderr)
        return finished.stdout.strip()

    def test_the_build_time_is_the_one_given_or_the_system_s_or_that_of_the_release(self):
        self.assertEqual(RELEASE, self.build_time("3.9"))
        self.assertEqual("2031-01-02 03:04:05",
                         self.build_time("3.9", epoch=1_924_000_000,
                                         build_time="2031-01-02 03:04:05"))
        self.assertEqual("2030-12-20 12:26:40", self.build_time("3.9", epoch=1_924_000_000))

    def test_a_build_time_of_another_form_is_refused(self):
        for wrong in ("2031-01-02", "2031-01-02 03:04", "2031-01-02T03:04:05",
                      "2031-01-02 03:04:05 UTC", "today"):
            finished = make_program_build(self.folder, "3.9", wrong)
            self.assertNotEqual(0, finished.returncode, wrong)
            self.assertIn(wrong, finished.stderr)

    def test_resources_get_the_version_in_each_form_and_the_year(self):
        for version, numbers in (("5", "5, 0, 0, 0"), ("3.9", "3, 9, 0, 0"),
                                 ("4.10.2", "4, 10, 2, 0"), ("1.2.3.4", "1, 2, 3, 4")):
            self.build_time(version, build_time="2031-01-02 03:04:05")
            header = (self.folder / "generated/program_build.h").read_text(encoding="utf-8")
            for line in (f'#define TALLYMERE_VERSION "{version}"',
                         f"#define TALLYMERE_VERSION_NUMBERS {numbers}",
                         '#define TALLYMERE_BUILD_YEAR "2031"'):
                self.assertIn(line, header.splitlines())
            manifest = (self.folder / "generated/tallymere.manifest").read_text(encoding="utf-8")
            self.assertIn(f'name="Tallymere" version="{numbers.replace(", ", ".")}"', manifest)


if __name__ == "__main__":
    unittest.main()
