"""--help lists all operators, constants and functions of formulas with their number types."""

import re
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from console_support import ConsoleCase, run  # noqa: E402
from help_pages import (FOLDER, TYPES, USELESS, constants, functions,  # noqa: E402
                        operators, signatures)


def listed():
    """{heading: its lines} of the lists in --help."""
    lists = {}
    for line in run(["--help"])[0]:
        heading = re.fullmatch(r"(Operators|Constants|Functions of (.+))(?:, .*)?:", line)
        if heading:
            lists[heading.group(1)] = lines = []
        elif line.startswith("  ") and lists:
            lines.append(line)
    return lists


class OperationListTest(ConsoleCase):
    @classmethod
    def setUpClass(cls):
        cls.lists = listed()
        cls.types = {}
        cls.parameters = {}
        for heading, lines in cls.lists.items():
            if heading.startswith("Functions of "):
                for name, parameters in re.findall(r"(\w+)\(([^)]*)\)", "\n".join(lines)):
                    cls.types[name] = heading.removeprefix("Functions of ").split(", ")
                    cls.parameters[name] = parameters

    def test_lines_fit_a_terminal(self):
        for line in run(["--help"])[0]:
            self.assertLessEqual(len(line), 80, line)

    def test_every_function_is_listed_with_its_parameters(self):
        self.assertEqual(functions(), self.parameters)

    def test_every_function_is_listed_once(self):
        names = [name for heading, lines in self.lists.items() if heading.startswith("Functions")
                 for name in re.findall(r"(\w+)\(", "\n".join(lines))]
        self.assertEqual(len(names), len(set(names)))

    def test_types_are_those_of_the_help(self):
        told = {}
        for name, _, element in signatures(FOLDER / "functions_en.html"):
            row = element.parent.parent
            cell = next(cell for cell in row.find("td") if "data-types" in cell.attributes)
            told[name] = set(cell.attributes["data-types"].split())
        for name, types in self.types.items():
            useless = {kind for kind in TYPES if (name, kind) in USELESS}
            with self.subTest(function=name):
                self.assertEqual(told[name], set(types) - useless)

    def test_every_operator_and_constant_is_listed(self):
        names = {heading: [name for line in self.lists[heading] for name in line[:16].split()]
                 for heading in ("Operators", "Constants")}
        self.assertCountEqual(operators(), names["Operators"])
        self.assertCountEqual(constants(), names["Constants"])

    def test_operators_stand_by_their_levels(self):
        rows = [line.split("  ", 2)[1] for line in self.lists["Operators"]]
        self.assertEqual("^", rows[0])
        self.assertTrue(any({"*", "/", "mod"} <= set(row.split()) for row in rows[1:-1]), rows)
        self.assertEqual("+ -", rows[-1])

    def test_constants_are_those_of_the_types_that_have_them(self):
        for name in constants():
            for kind in ("real", "cplx", "uint"):
                failed = run(["--type", kind, name])[2] == 1
                self.assertEqual(kind == "uint", failed)


if __name__ == "__main__":
    unittest.main()
