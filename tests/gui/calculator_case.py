"""What tests of the calculator share: its page, its controls and the texts in them."""

import math
import os
import subprocess
from dataclasses import dataclass

from desktop import SECONDS, WINE_RUN, around
from gui_case import CALCULATOR, LOCALES, MAIN_TITLE, desktop, settings_text
from help_pages import number_bases
from options_case import OptionsCase
from program import MESSAGE_BOX_CLASS, Window

# The places of controls among those of the container.
CONTAINER = desktop().forms["container"]


def container_slice(first, last):
    return slice(CONTAINER[first], CONTAINER[last] + 1)


TYPE_LABELS = container_slice("first type label", "last type label")
ANGLE_LABELS = container_slice("first angle label", "last angle label")
KEYS = container_slice("first key", "last key")
DIGIT_COUNT, NUMBER_BASE, CASE_KEY = (
    CONTAINER[name] for name in ("digit count", "number base", "case key"))

# The positions of the sliders, and what settings and console call them.
TYPES = ("uint", "rat", "real", "cplx")
ANGLES = ("deg", "rad", "gon")
BASES = tuple(map(int, number_bases()))

# Keys by their index, which are at the same place in all number types.
CLEAR_ALL, BACKSPACE, CLEAR_FORMULA, VARIABLES = (
    desktop().forms["keys"][name]
    for name in ("clear all", "backspace", "clear formula", "variables"))
BRACKET_FORMULA, EVALUATE, ANS, SWITCH_NOTATION = (
    desktop().forms["keys"][name]
    for name in ("bracket formula", "evaluate", "ans", "switch notation"))

# The colours of a result that counts and of one that does not.
VALID, STALE = (0, 0, 0), (128, 128, 128)

# The client area of the page as it is made, and its container, in logical units.
CALCULATOR_SIZE = [370, 355]
CONTAINER_HEIGHT = 250


def lay_out(width, height, formula, result):
    """The places of formula field, splitter, result field and container in a client area, all in
    logical units, when the fields had these heights before."""
    scale = (height - CONTAINER_HEIGHT - 20) / (formula + result)
    formula = math.trunc(formula * scale + 0.5)
    result = math.trunc(result * scale + 0.5)
    width -= 20
    return [[10, 10, width, formula], [10, 10 + formula, width, 4],
            [10, 14 + formula, width, result],
            [0, height - CONTAINER_HEIGHT, 370, CONTAINER_HEIGHT]]


def console_results(*formulas, language="en", flags=(), **options):
    """What the console answers to formulas, one text for each. While a program with windows runs,
    it is of the same language: under Wine a user has the number habits of the last program."""
    words = [f"--{name}={value}" for name, value in options.items()]
    words += [f"--{flag}" for flag in flags]
    answer = subprocess.run(
        [str(WINE_RUN), os.environ["TALLYMERE_CONSOLE"], *words],
        env=desktop().prefix.environment_of(LOCALES[language]),
        input="".join(f"{formula}\n" for formula in formulas), check=False, timeout=SECONDS,
        stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8")
    lines = answer.stdout.splitlines()
    if len(lines) != len(formulas):
        raise AssertionError(f"the console says {answer.stdout!r} and {answer.stderr!r}")
    return lines


def calculator_settings(number_type="real", precision=10, base=10, angle="rad", lower_case=0,
                        variables=(), **options):
    """The text of a settings file with those settings of the calculator, and variables as pairs of
    a name and a value."""
    lines = "".join(f"variable{index:02} = {name};{value}\r\n"
                    for index, (name, value) in enumerate(variables))
    return (settings_text(precision=precision, **options)
            .replace("angle_type = rad", f"angle_type = {angle}")
            .replace("number_type = real", f"number_type = {number_type}")
            .replace("number_base = 10", f"number_base = {base}")
            .replace("lower_case_hex = 0\r\n", f"lower_case_hex = {lower_case}\r\n{lines}"))


@dataclass
class Calculator:
    """The page as it was when the program was asked."""
    window: Window

    def __post_init__(self):
        self.sink, self.formula, self.splitter, self.result, self.container = self.window.children
        controls = self.container.children
        self.type_slider, self.angle_slider, self.precision_label, self.precision = (
            controls[CONTAINER[name]]
            for name in ("type slider", "angle slider", "precision label", "precision"))
        self.type_labels, self.angle_labels = controls[TYPE_LABELS], controls[ANGLE_LABELS]
        self.keys = controls[KEYS]
        self.bracket_mark, self.digit_count, self.number_base, self.case_key = (
            controls[CONTAINER[name]]
            for name in ("bracket mark", "digit count", "number base", "case key"))

    @property
    def precision_field(self):
        return self.precision.children[0]

    @property
    def base_list(self):
        box, = [control for control in self.number_base.children
                if control.class_name.lower() == "combobox"]
        return box

    @property
    def digits(self):
        """What the count of digits says."""
        return self.digit_count.children[1].text.strip()

    @property
    def type(self):
        return TYPES[self.type_slider.position - CONTAINER["first type position"]]

    @property
    def angle(self):
        return ANGLES[self.angle_slider.position - CONTAINER["first angle position"]]

    def state(self):
        """What changes with a key that does something."""
        return self.formula.text, self.result.text, self.has_valid_result

    @property
    def has_valid_result(self):
        return self.bracket_mark.enabled

    @property
    def is_busy(self):
        return not self.type_slider.enabled

    def key(self, caption):
        """The key with that caption; there must be just one."""
        key, = [key for key in self.keys if key.text == caption]
        return key


class CalculatorCase(OptionsCase):
    def start_calculator(self, language="en", dpi=96, settings=None, speaks=None):
        """Starts the program with those settings and opens the page from the menu."""
        self.write_settings(settings_text() if settings is None else settings)
        self.program = self.start(language, dpi, speaks)
        self.wait_for_all_windows(self.program)
        return self.open_calculator()

    def open_calculator(self):
        self.choose_menu(self.program, CALCULATOR)
        self.window = self.wait_for_page().window
        return self.page()

    def page_title(self):
        return self.texts["TextCalcScientificCalculator"]

    def wait_for_page(self):
        return Calculator(self.program.wait_for_window(self.page_title()))

    def page(self):
        """The page as it is now; it may be hidden or behind other windows."""
        return Calculator(self.program.probe.window(self.window))

    def wait_for_page_where(self, condition, what):
        """The page once the condition holds for it."""
        return self.program.wait_for_where(self.page, condition, what)

    def click_key(self, caption):
        self.click(self.page().key(caption))

    def focus_formula(self):
        self.click(self.page().formula)
        self.wait_for_page_where(lambda page: page.formula.focused, "the focus on the formula")

    def type_formula(self, text):
        """Replaces the formula, and waits until it is there."""
        self.focus_formula()
        self.display.press("ctrl+Home", "ctrl+shift+End", "Delete")
        self.display.type_text(text)
        self.wait_for_formula(text)

    def wait_for_formula(self, text):
        return self.wait_for_page_where(lambda page: page.formula.text == text,
                                        f"the formula {text!r}")

    # A page is told control by control, and a result may come meanwhile. So whoever waits for one
    # gets the page as it is told after that.

    def wait_for_result(self, text):
        self.wait_for_page_where(
            lambda page: page.result.text == text and page.has_valid_result and not page.is_busy,
            f"the result {text!r}")
        return self.page()

    def calculate(self, formula, result):
        """Types a formula and presses Return; the page once it shows that result."""
        self.type_formula(formula)
        self.display.press("Return")
        return self.wait_for_result(result)

    def wait_for_valid_result(self):
        self.wait_for_page_where(
            lambda page: page.has_valid_result and not page.is_busy, "a result")
        return self.page()

    def wait_for_stale_result(self):
        return self.wait_for_page_where(lambda page: not page.has_valid_result, "a stale result")

    def wait_until_idle(self):
        return self.wait_for_page_where(
            lambda page: not page.is_busy and page.keys[CLEAR_ALL].text == "CA", "no run")

    def press_keys(self, *keys):
        """Clicks keys one after the other, each told by its index or its caption."""
        page = self.page()
        places = [(page.keys[key] if isinstance(key, int) else page.key(key)).middle()
                  for key in keys]
        if page.has_valid_result and keys[0] != VARIABLES:
            self.press_until_heard(places.pop(0), page)
        if places:
            self.display.click_all(places)

    def press_until_heard(self, place, before):
        """Clicks a key that changes something. For a moment after a run that took so long that Stop
        was shown, no key does anything. That the focus has come to the sink tells that the click
        was looked at."""
        def is_heard():
            if self.page().sink.focused:
                self.click(before.result)
                self.wait_for_page_where(lambda page: page.result.focused, "the focus on the result")
            self.display.click_all([place])
            page = self.wait_for_page_where(lambda page: page.sink.focused, "the focus on the sink")
            return page.state() != before.state()
        self.program.wait_for(is_heard, "a key to be heard")

    def clear_formula(self):
        def is_cleared():
            self.display.click_all([self.page().keys[CLEAR_FORMULA].middle()])
            return not self.page().formula.text
        self.program.wait_for(is_cleared, "an empty formula")

    def enter(self, formula):
        """Types a new formula and Return, and waits for nothing."""
        self.clear_formula()
        self.display.type_text(formula)
        self.display.press("Return")

    def press_return(self):
        """Presses Return in the fields until it has evaluated the formula, whose result was stale:
        for a moment after a run that took so long that Stop was shown, Return does nothing either."""
        def is_heard():
            self.display.press("Return")
            page = self.page()
            return page.is_busy or page.has_valid_result
        self.program.wait_for(is_heard, "Return to be heard")

    def evaluate(self, formula):
        """Types a new formula and Return. The page once it has the result."""
        self.enter(formula)
        self.wait_for_page_where(
            lambda page: page.formula.text.rstrip(")") == formula.rstrip(")")
            and page.has_valid_result and not page.is_busy, f"the result of {formula!r}")
        return self.page()

    def result_of(self, formula):
        return self.evaluate(formula).result.text

    def results_by_keys(self, caption, count):
        """The texts of the result after each of so many clicks of a key, each of which must change
        it."""
        results = []
        for _ in range(count):
            before = self.page().result.text
            self.press_keys(caption)
            results.append(self.wait_for_page_where(
                lambda page, before=before: page.result.text != before,
                f"{caption} to change the result").result.text)
        return results

    def paste_formula(self, text):
        """Puts a new formula into the field from the clipboard."""
        self.program.probe.put_on_clipboard(text)
        self.clear_formula()
        self.focus_formula()
        self.display.press("ctrl+v")

    def wait_for_keypad(self, condition, what):
        """The page once the condition holds for it and its keys fit its sliders: they follow when
        the key that moved a slider is let go."""
        def fits(page):
            captions = [key.text for key in page.keys]
            return condition(page) and any(
                captions == [key["caption"] for key in pad["keys"]]
                for pad in desktop().forms["keypads"]
                if (TYPES[pad["type"]], ANGLES[pad["angle"]]) == (page.type, page.angle))
        self.wait_for_page_where(fits, what)
        # The keys may have followed while the page was told, control by control.
        return self.page()

    def choose_type(self, number_type):
        """Moves the slider by the keyboard, unless it stands there. The page then."""
        page = self.page()
        if page.type != number_type:
            self.click(page.type_slider)
            self.display.press("Home", *["Right"] * TYPES.index(number_type))
        return self.wait_for_keypad(lambda page: page.type == number_type, number_type)

    def choose_angle(self, angle):
        page = self.page()
        if page.angle != angle:
            self.click(page.angle_slider)
            self.display.press("Home", *["Right"] * ANGLES.index(angle))
        return self.wait_for_keypad(lambda page: page.angle == angle, angle)

    def choose_precision(self, digits):
        """Types the precision and Return. The page when the result is stale."""
        self.click(self.page().precision_field)
        self.display.press("Home", "shift+End", *str(digits), "Return")
        return self.wait_for_page_where(lambda page: page.precision_field.text == str(digits)
                                        and not page.has_valid_result, f"{digits} digits")

    def wait_for_base_row(self, row):
        return self.wait_for_page_where(lambda page: page.base_list.row == row, f"row {row}")

    def drop_bases_down(self):
        """On a loaded machine a click has been seen to leave the list closed. Keys tell when it has
        been handled, as they change the row in any case."""
        self.click(self.page().base_list)
        self.display.press("End")
        self.wait_for_base_row(len(BASES) - 1)
        self.display.press("Home")
        if not self.wait_for_base_row(0).base_list.dropped:
            self.display.press("alt+Down")
            self.wait_for_page_where(lambda page: page.base_list.dropped, "the list to drop down")

    def choose_base(self, base):
        row = BASES.index(base)
        self.drop_bases_down()
        self.display.press(*["Down"] * row, "Return")
        return self.wait_for_page_where(
            lambda page: page.base_list.row == row and not page.base_list.dropped, f"base {base}")

    def wait_for_pixels(self, rect, condition, what):
        """What is seen at a place of the screen once the condition holds for it. A window that has
        changed paints itself only when there is nothing else to do."""
        def pixels_if():
            pixels = self.display.pixels_of(rect)
            return pixels if condition(pixels) else None
        return self.program.wait_for(pixels_if, what)

    def wait_until_painted(self, controls):
        """Waits until each of these controls shows more than one colour."""
        self.wait_for_pixels(
            around(*(control.rect for control in controls)),
            lambda pixels: all(len(pixels.colours(control.rect)) > 1 for control in controls),
            "the controls to be painted")

    def wait_for_colour_of_result(self, colour):
        """Waits until the result is written in the colour of one that counts or of one that does
        not. The smoothed edges of black letters may have any grey."""
        rect = self.page().result.client
        self.wait_for_pixels(
            rect, lambda pixels: (VALID in pixels.colours(rect)) == (colour == VALID)
            and colour in pixels.colours(rect), f"a result in {colour}")

    def assert_no_message(self):
        self.assertIsNone(self.program.find(MESSAGE_BOX_CLASS))

    def end_program(self):
        """Closes the program from its menu, which the page may cover; the settings are written."""
        main, = [window for window in self.program.probe.windows() if window.text == MAIN_TITLE]
        self.display.activate(main)
        self.close_program(self.program)

    def assert_setting(self, line):
        """What the settings file says once the program has ended."""
        self.assertIn(line, self.settings_bytes().decode("utf-16").splitlines())

    def expect_message(self, text):
        """The message box that says that text; it is closed by Return. The window manager has the
        keyboard lead to the main window then, which alone is in its list of windows."""
        title = self.texts["TextErrError"]
        box = self.program.wait_for_window(title, MESSAGE_BOX_CLASS)
        self.assertIn(text, [control.text for control in box.walk()])
        self.leave_message(self.program, title)

    def formula_error(self, name, position):
        """The message of a formula error, by the name of its text."""
        cause = self.texts[name].replace("%d", str(position))
        return self.texts["TextErrErrorMathematicalFormula"].replace("%s", cause)
