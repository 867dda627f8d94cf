#!/usr/bin/env python3
"""Settings of the calculator: from its controls into the file, and from files that no program wrote
into the controls."""

import unittest

from calculator_case import CASE_KEY, calculator_settings
from variables_case import VariablesCase


class CalculatorSettingsTest(VariablesCase):
    def test_each_control_writes_its_setting(self):
        def click_case_key():
            self.click(self.page().case_key)
            self.wait_for_page_where(lambda page: "a" in [key.text for key in page.keys],
                                     "small letters")

        uint = {"number_type": "uint"}
        for before, choose, after in (
                ({}, lambda: self.choose_type("uint"), uint),
                ({}, lambda: self.choose_type("rat"), {"number_type": "rat"}),
                ({}, lambda: self.choose_type("cplx"), {"number_type": "cplx"}),
                (uint, lambda: self.choose_type("real"), {}),
                ({}, lambda: self.choose_angle("deg"), {"angle": "deg"}),
                ({}, lambda: self.choose_angle("gon"), {"angle": "gon"}),
                ({}, lambda: self.choose_precision(1234), {"precision": 1234}),
                (uint, lambda: self.choose_base(2), {**uint, "base": 2}),
                (uint, lambda: self.choose_base(16), {**uint, "base": 16}),
                (uint, click_case_key, {**uint, "lower_case": 1})):
            with self.subTest(before=before, after=after):
                self.start_calculator(settings=calculator_settings(**before))
                choose()
                self.end_and_expect(calculator_settings(**after))

    def test_all_settings_together_come_back_at_the_next_start(self):
        self.start_calculator()
        self.choose_type("uint")
        self.choose_base(8)
        self.click(self.page().container.children[CASE_KEY])
        self.choose_type("cplx")
        self.choose_angle("gon")
        self.choose_precision(77)
        settings = calculator_settings("cplx", 77, 8, "gon", 1)
        self.end_and_expect(settings)
        page = self.start_calculator(settings=settings)
        self.assertEqual(("cplx", "gon", "77"), (page.type, page.angle, page.precision_field.text))
        self.assertEqual(["2", "8", "10", "16"], page.base_list.rows)
        self.assertEqual(1, page.base_list.row)
        self.choose_type("uint")
        self.calculate("0xAB", "0t253")
        self.end_and_expect(settings.replace("cplx", "uint"))

    def test_type_that_falls_to_real_is_written(self):
        self.start_calculator(settings=calculator_settings("rat"))
        self.calculate("sqrt(2)", "1.414213562")
        self.end_and_expect(calculator_settings("real"))

    def test_precision_out_of_range_is_mended(self):
        for written, taken in (("0", 10), ("-5", 10), ("none", 10), ("", 10), ("10001", 10000),
                               ("50000", 10000), ("99999999999999999999", 10000)):
            with self.subTest(written):
                settings = calculator_settings().replace("precision = 10",
                                                         f"precision = {written}")
                page = self.start_calculator(settings=settings)
                self.assertEqual(str(taken), page.precision_field.text)
                self.assert_no_message()
                self.calculate("1/3", "0." + "3" * taken)
                self.end_and_expect(calculator_settings(precision=taken))

    def test_base_that_there_is_not_counts_as_ten_and_stays_in_the_file(self):
        settings = calculator_settings("uint", base=7)
        page = self.start_calculator(settings=settings)
        self.assertEqual("10", page.base_list.rows[page.base_list.row])
        self.calculate("0xFF", "255")
        self.choose_type("rat")
        self.end_and_expect(calculator_settings("rat", base=7))

    def test_unknown_words_count_as_the_defaults(self):
        page = self.start_calculator(settings=calculator_settings("bad", angle="turn",
                                                                  lower_case="yes"))
        self.assertEqual(("real", "rad"), (page.type, page.angle))
        self.calculate("sin(pi/2)", "1")
        self.choose_precision(20)
        self.end_and_expect(calculator_settings(precision=20))

    def test_hundred_variables_with_names_and_values_that_are_too_long(self):
        value = "1" + "+1" * 44331
        self.assertEqual(88663, len(value))
        variables = [(f"variable_{chr(97 + index % 26)}{index}", value) for index in range(101)]
        kept = [f"{name[:9]}…" if len(name) > 10 else name for name, _ in variables[:100]]
        dialog = self.start_with(variables)
        self.assertEqual(kept, dialog.list.rows)
        self.assertEqual(value[:88660] + "…", dialog.value.text)
        self.type_value("2.5")
        self.type_name("x")
        self.calculate("2*x", "5")
        self.end_and_expect_settings(
            variables=[("x", "2.5"), *((name, value[:88660] + "…") for name in kept[1:])])


if __name__ == "__main__":
    unittest.main()
