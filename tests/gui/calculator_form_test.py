#!/usr/bin/env python3
"""How the calculator page looks: places, texts and colours of all that is in it, for all number
types."""

import unittest

from calculator_case import (ANGLES, CALCULATOR_SIZE, DIGIT_COUNT, KEYS, NUMBER_BASE, TYPES,
                             CalculatorCase, calculator_settings, lay_out)
from form_check import check_control
from gui_case import desktop, to_pixels

GREEN, RED, BLUE, BLACK, BROWN = (0, 100, 0), (255, 0, 0), (0, 0, 255), (0, 0, 0), (128, 0, 0)
WHITE = (255, 255, 255)
LABEL_COLOUR = (139, 0, 0)


def keypad(number_type, angle="rad", lower_case=False):
    return next(pad for pad in desktop().forms["keypads"]
                if pad["type"] == TYPES.index(number_type)
                and pad["angle"] == ANGLES.index(angle) and pad["lower_case"] == lower_case)


def start_of(label):
    """The part of a label that the next one does not overlap."""
    x, y, _, height = label.rect
    return x, y, 18, height


class CalculatorFormTest(CalculatorCase):
    def check_places(self, page, dpi):
        self.assertEqual(to_pixels(CALCULATOR_SIZE, dpi), page.window.client[2:])
        places = lay_out(*CALCULATOR_SIZE, 1, 1)
        for control, row, place in zip(page.window.children, self.forms["calculator"],
                                       ([0, 0, 0, 0], *places)):
            check_control(self, control, {**row, "place": place}, page.window, "", dpi)
        container = {"kind": "container", "place": places[3]}
        check_control(self, page.container, container, page.window, "", dpi)
        form = self.forms["calculator_container"]
        self.assertEqual(len(form), len(page.container.children))
        for i, (control, row) in enumerate(zip(page.container.children, form)):
            is_key = i in range(KEYS.start, KEYS.stop)
            has_parts = i in (DIGIT_COUNT, NUMBER_BASE)
            with self.subTest(dpi=dpi, control=i):
                text = control.text if is_key else "" if has_parts else row["text"] or ""
                check_control(self, control, row, page.container, text, dpi)

    def check_type(self, page, number_type, **style):
        """Keys, and what else is there for a number type before the first result."""
        pad = keypad(number_type, **style)
        self.assertEqual([key["caption"] for key in pad["keys"]], [key.text for key in page.keys])
        without_result = {"ans", "F↔S", "R↔M"}
        self.assertEqual([key["has action"] and key["caption"] not in without_result
                          for key in pad["keys"]], [key.enabled for key in page.keys])
        # The bracket mark waits for a result.
        shown = [is_shown and control is not page.bracket_mark
                 for is_shown, control in zip(pad["shown"], page.container.children)]
        self.assertEqual(shown, [control.visible for control in page.container.children])

    def wait_for_labels(self, page):
        """Waits until the labels beside the positions of the sliders, and no others, stand out."""
        labels = {start_of(label): i == slider.position % 100000
                  for slider, of_slider in ((page.type_slider, page.type_labels),
                                            (page.angle_slider, page.angle_labels))
                  if slider.visible
                  for i, label in enumerate(of_slider)}
        self.wait_for_pixels(
            page.window.rect,
            lambda pixels: all(stands_out == (LABEL_COLOUR in pixels.colours(place))
                               for place, stands_out in labels.items()),
            f"labels that stand out: {labels}")

    def test_shows_its_form_in_both_languages_at_every_resolution(self):
        for dpi in (96, 120, 144, 192):
            for language in ("en", "de"):
                with self.subTest(language=language, dpi=dpi):
                    page = self.start_calculator(language, dpi)
                    self.check_places(page, dpi)
                    for number_type in TYPES:
                        page = self.choose_type(number_type)
                        self.check_type(page, number_type)
                    self.program.close()

    def test_keys_of_all_types_units_and_letters(self):
        page = self.start_calculator(
            "de", settings=calculator_settings(number_type="uint", angle="gon"))
        for lower_case in (False, True):
            self.check_type(page, "uint", lower_case=lower_case)
            self.click(page.case_key)
            page = self.wait_for_page_where(
                lambda page, letter="A" if lower_case else "a": page.keys[32].text == letter,
                "letters of the other case")
        for number_type in TYPES[1:]:
            self.check_type(self.choose_type(number_type), number_type, angle="gon")
        for angle in ANGLES:
            for number_type in ("real", "cplx"):
                self.choose_type(number_type)
                page = self.choose_angle(angle)
                self.check_type(page, number_type, angle=angle)
                self.wait_for_labels(page)
        for number_type in TYPES:
            self.wait_for_labels(self.choose_type(number_type))
        self.end_program()
        for line in ("angle_type = gon", "number_type = cplx", "use_lower_case_hex = 0"):
            self.assert_setting(line)

    def test_neighbours_are_not_drawn_over_each_other(self):
        page = self.start_calculator(settings=calculator_settings(number_type="cplx"))
        # The label of the precision reaches into its field, the control of the output base and the
        # count of digits into the keys and the bracket mark.
        x, y, width, _ = page.precision_field.rect
        top_of_field = (x + 2, y + 2, width - 4, 1)
        self.wait_for_pixels(top_of_field, lambda pixels: WHITE in pixels.colours(top_of_field),
                             "the precision field in front of its label")
        page = self.choose_type("uint")
        page = self.evaluate("7/2")
        keys = [(x + 6, y + 3, width - 12, 1) for x, y, width, _ in
                (key.rect for key in page.keys[2:7])]
        self.wait_for_pixels(
            page.window.rect,
            lambda pixels: all(WHITE in pixels.colours(key) for key in keys)
            # Thin as it is, its lines are smoothed to a dark grey.
            and any(max(colour) < 100 for colour in pixels.colours(page.bracket_mark.rect)),
            "keys and bracket mark in front of their neighbours")

    def test_colours_of_the_keys(self):
        page = self.start_calculator(settings=calculator_settings(number_type="cplx"))
        classes = {"7": GREEN, "+": GREEN, "=": GREEN, "CA": RED, "←": RED, "CF": RED,
                   "sinh": BLUE, "x!": BLUE, "var": BLACK, "(..)": BLACK, "realp": BROWN,
                   "imagp": BROWN}
        for caption, colour in classes.items():
            with self.subTest(caption):
                # Of the colours that keys have, and not of those of their edges.
                rect = page.key(caption).rect
                self.wait_for_pixels(
                    rect, lambda pixels, rect=rect, colour=colour:
                    {colour} == pixels.colours(rect) & set(classes.values()), f"{caption} in {colour}")
        # A key that is disabled is grey. It was painted with the others.
        found = self.display.pixels_of(page.key("ans").rect).colours(page.key("ans").rect)
        self.assertFalse(found & set(classes.values()))


if __name__ == "__main__":
    unittest.main()
