#!/usr/bin/env python3
"""The calculator page resized, its splitter dragged, and all of it by the keyboard alone."""

import unittest

from calculator_case import (CALCULATOR_SIZE, CONTAINER_HEIGHT, VALID, CalculatorCase,
                             calculator_settings, lay_out)
from form_check import offset_in


class CalculatorWindowTest(CalculatorCase):
    def places(self, page):
        """Of formula field, splitter, result field and container in the page."""
        return [[*offset_in(page.window, control), *control.rect[2:]] for control in
                (page.formula, page.splitter, page.result, page.container)]

    def heights(self, page):
        return page.formula.rect[3], page.result.rect[3]

    def resize(self, width, height):
        self.display.resize(self.page().window, width, height)
        self.wait_for_page_where(lambda page: page.window.client[2:] == [width, height],
                                 f"a client area of {width} by {height}")
        page = self.page()
        self.wait_until_painted([key for key in page.keys if key.text])
        return page

    def drag_splitter(self, distance):
        x, y = self.page().splitter.middle()
        self.display.drag((x, y), (x + 7, y + distance))

    def test_resizing_keeps_the_ratio_of_the_fields(self):
        page = self.start_calculator()
        self.enter("2^3000")
        self.wait_for_page_where(lambda page: page.has_valid_result, "a result")
        result = self.page().result.text
        heights = self.heights(page)
        for size in ((370, 455), (1200, 1000)):
            page = self.resize(*size)
            self.assertEqual(lay_out(*size, *heights), self.places(page))
            heights = self.heights(page)
        # Two thirds of the room for the result.
        formula, whole = page.formula.rect[3], sum(heights)
        self.drag_splitter(whole // 3 - formula)
        page = self.wait_for_page_where(lambda page: page.formula.rect[3] == whole // 3,
                                        "the splitter to be dragged")
        self.assertEqual(whole, sum(self.heights(page)))
        self.assertEqual(page.formula.rect[1] + page.formula.rect[3], page.splitter.rect[1])
        self.assertEqual(page.splitter.rect[1] + 4, page.result.rect[1])
        self.wait_for_colour_of_result(VALID)
        places = self.places(page)
        self.display.minimise(page.window)
        self.wait_for_page_where(lambda page: page.window.minimised, "the page to be minimised")
        self.display.activate(page.window)
        self.wait_for_page_where(lambda page: not page.window.minimised, "the page to come back")
        page = self.wait_for_page()
        self.assertEqual(places, self.places(page))
        heights = self.heights(page)
        for size in ((2500, 1500), (600, 700), (370, 355)):
            page = self.resize(*size)
            self.assertEqual(lay_out(*size, *heights), self.places(page))
            heights = self.heights(page)
        # Too low for the fields, and much lower than the container.
        self.display.resize(page.window, 300, CONTAINER_HEIGHT - 30)
        self.wait_for_page_where(lambda page: page.window.client[3] == CONTAINER_HEIGHT - 30,
                                 "the page to be lower")
        page = self.resize(*CALCULATOR_SIZE)
        self.assertEqual(lay_out(*CALCULATOR_SIZE, 1, 1), self.places(page))
        self.assertEqual(["2^3000", result], [page.formula.text, page.result.text])

    def test_splitter_stops_where_a_field_would_be_too_low(self):
        self.start_calculator("de", dpi=144)
        page = self.page()
        self.assertEqual((65, 65), self.heights(page))
        # Twenty logical units are 30 pixels; a move that goes beyond is refused.
        for moves in (((-30, (35, 95)), (-500, None), (12, (47, 83))),
                      ((40, (87, 43)), (500, None), (-5, (82, 48)))):
            for distance, heights in moves:
                self.drag_splitter(distance)
                if heights:
                    self.wait_for_page_where(
                        lambda page, heights=heights: self.heights(page) == heights,
                        f"fields of {heights}")

    def focus_name(self):
        """What has the keyboard: the caption of a key or the name of another control."""
        page = self.page()
        names = {"type": page.type_slider, "precision": page.precision_field,
                 "angle": page.angle_slider, "base": page.base_list, "Aa": page.case_key,
                 "formula": page.formula, "result": page.result}
        control = page.window.focused_control()
        for name, named in names.items():
            if control and control.handle == named.handle:
                return name
        return control.text if control else None

    def press_to(self, keys, name):
        if keys:
            self.display.press(*keys.split())
        self.program.wait_for(lambda: self.focus_name() == name, f"{name} to have the keyboard")

    def test_keyboard_alone(self):
        self.start_calculator(settings=calculator_settings(number_type="uint"))
        self.press_to("", "formula")
        self.display.type_text("2^10")
        self.display.press("Return")
        self.wait_for_result("1024")
        self.press_to("Tab", "result")
        self.press_to("Tab", "type")
        self.display.press("Right", "Right", "Right")
        page = self.wait_for_page_where(lambda page: page.type == "cplx", "cplx")
        self.display.press("Left")
        page = self.wait_for_page_where(lambda page: page.type == "real", "real")
        self.press_to("Tab", "precision")
        self.display.press("Home", "shift+End", "5", "Return")
        self.wait_for_page_where(lambda page: page.precision_field.text == "5", "5 digits")
        self.display.press("Up")
        self.wait_for_page_where(lambda page: page.precision_field.text == "6", "6 digits")
        self.press_to("Tab", "angle")
        self.display.press("Right")
        self.wait_for_page_where(lambda page: page.angle == "gon", "gon")
        self.press_to("Tab", "CA")
        self.press_to("Tab Tab Tab", "8")
        self.press_to("shift+Tab", "7")
        self.display.press("space")
        # The change of the type has made the result stale, and the formula is an old one still.
        self.wait_for_formula("7")
        # A click gives the keyboard away, so that the way to a key begins anew.
        self.press_to("Tab", "formula")
        self.press_to("shift+Tab", "π")
        self.display.press("space")
        self.wait_for_formula("7π")
        self.press_to("Tab", "formula")
        self.display.press("End", "BackSpace")
        self.press_return()
        self.wait_for_result("7")
        self.press_to("Tab Tab", "type")
        self.display.press("Home")
        self.wait_for_page_where(lambda page: page.type == "uint", "uint")
        self.press_to("Tab", "CA")
        self.press_to("shift+Tab shift+Tab shift+Tab", "formula")


if __name__ == "__main__":
    unittest.main()
