"""What tests of the pages of test_pages.cpp share: the pages, their controls and their runs."""

from dataclasses import dataclass

from gui_case import MAIN_TITLE
from options_case import OptionsCase
from program import DIALOG_CLASS, MESSAGE_BOX_CLASS, Window

ENDLESS = "1000000000"  # an input for a run that lasts longer than any test


@dataclass
class Page:
    """A page as it was when the program was asked."""
    window: Window

    def __post_init__(self):
        self.start_button, self.other_button = self.of_class("button")
        self.input, self.output = self.of_class("edit")

    def of_class(self, class_name):
        return [control for control in self.window.children
                if control.class_name.lower() == class_name]

    @property
    def lines(self):
        return self.output.text.split("\r\n")[:-1]


class PagesCase(OptionsCase):
    ROOTS = "Roots"
    FACTORIALS = "Factorials"
    ITEMS = {ROOTS: 202, FACTORIALS: 203}

    def start_again(self, language="en", dpi=96):
        self.program = super().start_again(language, dpi)
        return self.program

    def last_window(self):
        return self.FACTORIALS

    def dialogs(self):
        """All windows of the program, hidden ones too, by their titles."""
        return {window.text: window for window in self.program.probe.windows()
                if window.class_name == DIALOG_CLASS}

    def page(self, title):
        return Page(self.dialogs()[title])

    def bring_to_front(self, title):
        self.display.activate(self.dialogs()[title])
        return self.program.wait_for_window(title)

    def open_page(self, title):
        """Chooses the menu item of a page that is not on the screen yet."""
        self.bring_to_front(MAIN_TITLE)
        self.choose_menu(self.program, self.ITEMS[title])
        self.program.wait_for_window(title)
        return self.page(title)

    def type_input(self, title, text):
        """Replaces the text of the page's input, and waits until it is there."""
        self.click(self.page(title).input)
        self.display.press("Home", "shift+End", "Delete")
        self.display.type_text(text)
        self.program.wait_for(lambda: self.page(title).input.text == text, f"the input {text!r}")

    def start_run(self, title, text):
        self.type_input(title, text)
        self.click(self.page(title).start_button)

    def start_endless_run(self, title):
        """Comes back when the run has written something of its own."""
        lines_before = len(self.page(title).lines)
        self.start_run(title, ENDLESS)
        self.wait_for_lines(title, lines_before + 3)

    def wait_for_lines(self, title, count):
        self.program.wait_for(lambda: len(self.page(title).lines) >= count, f"{count} lines")

    def is_idle(self, title):
        page = self.page(title)
        return (page.start_button.text == self.texts["TextBtnStart"]
                and page.other_button.enabled
                and all(window.enabled for window in self.dialogs().values()))

    def wait_until_idle(self, title):
        """The page as it is when its run is over and all windows can be reached again."""
        self.program.wait_for(lambda: self.is_idle(title), f"{title} to be idle")
        return self.page(title)

    def assert_busy(self, title):
        page = self.page(title)
        self.assertEqual(self.texts["TextBtnStop"], page.start_button.text)
        self.assertTrue(page.start_button.enabled)
        self.assertFalse(page.other_button.enabled)
        enabled = {text: window.enabled for text, window in self.dialogs().items()}
        self.assertEqual({title}, {text for text in enabled if enabled[text]})
        self.assertLessEqual({MAIN_TITLE, self.texts["TextOptOptions"], *self.ITEMS},
                             enabled.keys())

    def assert_no_message(self):
        self.assertIsNone(self.program.find(MESSAGE_BOX_CLASS))
