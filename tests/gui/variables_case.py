"""What tests of the variables dialog share: its controls, and the ways of a hand through them."""

from dataclasses import dataclass

from calculator_case import CalculatorCase, calculator_settings
from gui_case import file_bytes
from program import Window


@dataclass
class Variables:
    """The dialog as it was when the program was asked."""
    window: Window

    def __post_init__(self):
        (_, self.list, _, self.name, _, self.value, self.assign, self.take_name, self.add,
         self.insert, self.delete) = self.window.children

    @property
    def shown(self):
        """The rows of the list, the selected one, and the texts of the boxes."""
        return self.list.rows, self.list.row, self.name.text, self.value.text


class VariablesCase(CalculatorCase):
    def start_with(self, variables=(), language="en", dpi=96, **settings):
        """Starts the program with these variables and opens the dialog."""
        self.start_calculator(language, dpi, calculator_settings(variables=variables, **settings))
        return self.open_variables()

    def open_variables(self):
        self.click_key("var")
        self.dialog_window = self.program.wait_for_window(
            self.texts["TextVarCalculatorVariables"])
        return self.dialog()

    def dialog(self):
        """The dialog as it is now; it may be hidden or behind other windows."""
        return Variables(self.program.probe.window(self.dialog_window))

    def wait_for_dialog_where(self, condition, what):
        """The dialog once the condition holds for it."""
        return self.program.wait_for_where(self.dialog, condition, what)

    def wait_for_shown(self, *shown):
        return self.wait_for_dialog_where(lambda dialog: dialog.shown == shown,
                                          f"the variables {shown}")

    def wait_for_rows(self, rows, row):
        return self.wait_for_dialog_where(
            lambda dialog: (dialog.list.rows, dialog.list.row) == (rows, row),
            f"the rows {rows} with {row} selected")

    def wait_for_focus_on(self, name):
        return self.wait_for_dialog_where(lambda dialog: getattr(dialog, name).focused,
                                          f"the focus on {name}")

    def click_and_focus(self, name):
        self.click(getattr(self.dialog(), name))
        self.wait_for_focus_on(name)

    def click_row(self, row):
        """Clicks a row of the list that needs no scrolling, and waits until it is shown."""
        dialog = self.dialog()
        x, y, width, _ = dialog.list.rect
        height = 13 * self.dialog_window.rect[3] // 257
        self.display.click(x + width // 3, y + 8 + height * row)
        self.wait_for_dialog_where(lambda dialog: dialog.list.row == row, f"row {row}")

    def type_name(self, text):
        """Replaces the text of the name box."""
        self.click_and_focus("name")
        self.display.press("Home", "shift+End", "Delete")
        self.put_in(text)
        self.wait_for_dialog_where(lambda dialog: dialog.name.text == text, f"the name {text!r}")

    def type_value(self, text):
        """Replaces the text of the value box."""
        self.click_and_focus("value")
        self.display.press("ctrl+Home", "ctrl+shift+End", "Delete")
        self.put_in(text)
        self.wait_for_dialog_where(lambda dialog: dialog.value.text == text, f"the value {text!r}")

    def put_in(self, text):
        """Types a text, or pastes it where no keyboard is at hand that has its characters."""
        if text.isascii():
            self.display.type_text(text)
        else:
            self.paste(text)

    def paste(self, text):
        self.program.probe.put_on_clipboard(text)
        self.display.press("ctrl+v")

    def add(self, name, value):
        """Adds a variable at the end, as somebody does who goes through the boxes by clicks."""
        rows = self.dialog().list.rows
        self.click(self.dialog().add)
        self.wait_for_dialog_where(
            lambda dialog: len(dialog.list.rows) == len(rows) + 1 and dialog.name.focused,
            "the new variable")
        self.type_name(name)
        self.type_value(value)
        self.click_and_focus("list")
        self.wait_for_rows([*rows, name], len(rows))

    def start_once_more(self, language="en"):
        """Starts the program with the settings that it left, and opens the dialog."""
        self.program = self.start(language)
        self.open_calculator()
        return self.open_variables()

    def end_and_expect(self, text):
        """Ends the program; the file it leaves has that text, byte for byte."""
        self.end_program()
        self.assertEqual(file_bytes(text), self.settings_bytes())

    def end_and_expect_settings(self, **settings):
        self.end_and_expect(calculator_settings(**settings))

    def bring_to_front(self, window):
        """Makes a window of the program the active one, wherever it is. It is visible."""
        self.display.activate(window)
        return self.program.wait_for_window(window.text)
