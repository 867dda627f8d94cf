"""What tests of the prime pages share: the pages, their controls, their fields and their runs."""

from dataclasses import dataclass

from gui_case import MAIN_TITLE, GuiCase, desktop, settings_text
from program import MESSAGE_BOX_CLASS, Window

# The items of the menu.
PRIME_NUMBERS, PRIME_FACTORS = 205, 206
PAGES = (PRIME_NUMBERS, PRIME_FACTORS)

FORMS = {PRIME_NUMBERS: "prime_numbers", PRIME_FACTORS: "prime_factors"}
TITLES = {PRIME_NUMBERS: "TextPrimesPrimeNumbers",
          PRIME_FACTORS: "TextFactorsPrimeFactorsDivisors"}


@dataclass
class PrimePage:
    """A page as it was when the program was asked; its controls by their names in form_tables."""
    item: int
    window: Window

    def __post_init__(self):
        form = desktop().forms["en"][FORMS[self.item]]
        self.rows = []
        parents = {-1: self.window}
        for index, row in enumerate(form):
            parent = row["parent"]
            siblings = [i for i, other in enumerate(form) if other["parent"] == parent]
            parents[index] = parents[parent].children[siblings.index(index)]
            self.rows.append(parents[index])

    def __getitem__(self, name):
        return self.rows[desktop().forms[f"{FORMS[self.item]}_rows"][name]]

    @property
    def base_list(self):
        box, = [control for control in self["base"].children
                if control.class_name.lower() == "combobox"]
        return box

    @property
    def digits(self):
        """What the count of digits says."""
        return self["digits"].children[1].text

    @property
    def output(self):
        return self["output"].text

    def is_idle(self):
        return self["start"].enabled and not self["stop"].enabled


class PrimeCase(GuiCase):
    def start_with(self, language="en", dpi=96, grouping=0, thousands="(automatic)"):
        """Starts the program for somebody who has met About before."""
        decimal = "(automatic)" if thousands == "(automatic)" else "point"
        self.write_settings(settings_text(grouping=(0, 0, grouping), decimal=decimal,
                                          thousands=thousands))
        self.program = self.start(language, dpi)
        self.wait_for_all_windows(self.program)
        return self.program

    def title(self, item):
        return self.texts[TITLES[item]]

    def open_page(self, item):
        """Chooses the menu item of a page by the keyboard."""
        self.choose_menu(self.program, item)
        self.program.wait_for_window(self.title(item))
        return self.page(item)

    def close_page(self, item):
        """Closes a page in front by the keyboard."""
        self.display.press("alt+F4")
        self.program.wait_until_hidden(self.title(item))

    def page(self, item):
        """The page, on the screen or not."""
        window, = [window for window in self.program.probe.windows()
                   if window.text == self.title(item)]
        return PrimePage(item, window)

    def wait_for_page(self, item, condition, what):
        return self.program.wait_for_where(lambda: self.page(item), condition, what)

    def type_into(self, item, name, text):
        """Replaces the text of a field, and waits until it is there."""
        self.click(self.page(item)[name])
        self.display.press("ctrl+Home", "ctrl+shift+End", "Delete")
        self.wait_for_page(item, lambda page: page[name].text == "", f"an empty {name}")
        if text:
            self.display.type_text(text)
        self.wait_for_page(item, lambda page: page[name].text == text, f"{text!r} in {name}")

    def paste_into(self, item, name, text):
        """Replaces the text of a field from the clipboard."""
        self.program.probe.put_on_clipboard(text)
        self.click(self.page(item)[name])
        self.display.press("ctrl+Home", "ctrl+shift+End", "ctrl+v")
        self.wait_for_page(item, lambda page: page[name].text == text, f"the text in {name}")

    def choose(self, item, name):
        """Clicks a radio button or a check box."""
        self.click(self.page(item)[name])
        self.wait_for_page(item, lambda page: page[name].checked, f"{name} to be checked")

    def choose_base(self, item, base):
        """Chooses a base by the mouse on the list and the keyboard in it."""
        self.click(self.page(item).base_list)
        self.display.press("Home" if base == 10 else "End", "Return")
        self.wait_for_page(item, lambda page: page.base_list.text == str(base), f"base {base}")

    def start_run(self, item):
        """Clicks Start."""
        self.click(self.page(item)["start"])

    def wait_until_idle(self, item):
        """The page when its run is over and all windows can be reached again."""
        def is_over(page):
            return page.is_idle() and all(window.enabled for window in
                                          self.program.probe.windows() if window.visible)
        return self.wait_for_page(item, is_over, "the end of the run")

    def assert_no_message(self):
        self.assertIsNone(self.program.find(MESSAGE_BOX_CLASS))
