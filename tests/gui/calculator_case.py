"""What tests of the calculator share: its page, its controls and the texts in them."""

from dataclasses import dataclass

from gui_case import MAIN_TITLE, settings_text
from options_case import OptionsCase
from program import MESSAGE_BOX_CLASS, Window

CALCULATOR = 201  # its menu item

# The places of controls among those of the container.
TYPE_SLIDER, TYPE_LABELS = 0, slice(1, 5)
PRECISION_LABEL, PRECISION = 5, 6
ANGLE_SLIDER, ANGLE_LABELS = 7, slice(8, 11)
KEYS = slice(11, 83)
BRACKET_MARK, DIGIT_COUNT, NUMBER_BASE, CASE_KEY = 83, 84, 85, 86


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
        self.type_slider, self.type_labels = controls[TYPE_SLIDER], controls[TYPE_LABELS]
        self.precision_label, self.precision = controls[PRECISION_LABEL], controls[PRECISION]
        self.angle_slider, self.angle_labels = controls[ANGLE_SLIDER], controls[ANGLE_LABELS]
        self.keys = controls[KEYS]
        self.bracket_mark, self.digit_count = controls[BRACKET_MARK], controls[DIGIT_COUNT]
        self.number_base, self.case_key = controls[NUMBER_BASE], controls[CASE_KEY]

    def key(self, caption):
        """The key with that caption; there must be just one."""
        key, = [key for key in self.keys if key.text == caption]
        return key


class CalculatorCase(OptionsCase):
    def start_calculator(self, language="en", dpi=96, settings=None, speaks=None):
        """Starts the program with those settings and opens the page from the menu."""
        self.write_settings(settings_text() if settings is None else settings)
        self.program = self.start(language, dpi, speaks)
        self.program.wait_for_window(MAIN_TITLE)
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
        def page_if():
            page = self.page()
            return page if condition(page) else None
        return self.program.wait_for(page_if, what)

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

    def wait_for_result(self, text):
        return self.wait_for_page_where(lambda page: page.result.text == text,
                                        f"the result {text!r}")

    def calculate(self, formula, result):
        """Types a formula and presses Return; the page once it shows that result."""
        self.type_formula(formula)
        self.display.press("Return")
        return self.wait_for_result(result)

    def expect_message(self, text):
        """The message box that says that text; it is closed by Return."""
        title = self.texts["TextErrError"]
        box = self.program.wait_for_window(title, MESSAGE_BOX_CLASS)
        self.assertIn(text, [control.text for control in box.walk()])
        self.leave_message(self.program, title)

    def formula_error(self, name, position):
        """The message of a formula error, by the name of its text."""
        cause = self.texts[name].replace("%d", str(position))
        return self.texts["TextErrErrorMathematicalFormula"].replace("%s", cause)
