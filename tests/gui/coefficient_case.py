"""What tests of the pages with a grid of coefficients share: the page, its controls, its grid."""

from dataclasses import dataclass

from form_check import check_form, check_texts
from gui_case import MAIN_TITLE, GuiCase, desktop, settings_text, to_pixels
from program import MESSAGE_BOX_CLASS, Window

# Of the grids as they are made, in logical units.
LABELS_WIDTH = 40
COLUMN_WIDTH = 80
ROW_HEIGHT = 21


@dataclass
class CoefficientPage:
    """The page as it was when the program was asked; its controls by their names in
    form_tables."""
    form: str
    window: Window

    def __getitem__(self, name):
        return self.window.children[desktop().forms[f"{self.form}_rows"][name]]

    @property
    def output(self):
        return self["output"].text

    @property
    def editor(self):
        """The text that is being edited in the grid; None when nothing is."""
        return next((control.text for control in self["grid"].children
                     if control.visible and control.class_name.lower() == "edit"), None)

    def child(self, name, class_name):
        """The control of a class in a control that is made of several."""
        child, = [control for control in self[name].children
                  if control.class_name.lower() == class_name]
        return child

    def field(self, name):
        """The edit control of a numeric one."""
        return self.child(name, "edit")

    def chosen(self, name):
        """The list of a number type."""
        return self.child(name, "combobox")


class CoefficientCase(GuiCase):
    """A page says in `item`, `form` and `title_text` what it is."""

    def start_with(self, language="en", dpi=96, grouping=0, thousands="(automatic)"):
        """Starts the program for somebody who has met About before."""
        self.dpi = dpi
        decimal = "(automatic)" if thousands == "(automatic)" else "point"
        self.write_settings(settings_text(grouping=(0, grouping, 0), decimal=decimal,
                                          thousands=thousands))
        self.program = self.start(language, dpi)
        self.program.wait_for_window(MAIN_TITLE)
        return self.program

    @property
    def title(self):
        return self.texts[self.title_text]

    def localized(self, numbers):
        """With the decimal separator of the language that is spoken."""
        return numbers.replace(".", ",") if self.texts is desktop().forms["de"]["texts"] else numbers

    def open_page(self):
        """Chooses the menu item of the page by the keyboard."""
        self.choose_menu(self.program, self.item)
        self.program.wait_for_window(self.title)
        return self.page()

    def open_page_by_mouse(self):
        self.choose_menu_by_mouse(self.program, self.item)
        self.program.wait_for_window(self.title)
        return self.page()

    def close_page(self):
        """Closes the page by its button: behind a message the keyboard may be elsewhere."""
        self.click(self.page()["close"])
        self.program.wait_until_hidden(self.title)

    def page(self):
        """The page, on the screen or not."""
        window, = [window for window in self.program.probe.windows() if window.text == self.title]
        return CoefficientPage(self.form, window)

    def wait_for_page(self, condition, what):
        return self.program.wait_for_where(self.page, condition, what)

    def wait_for_editor(self, text):
        self.wait_for_page(lambda page: page.editor == text, f"the editor with {text!r}")

    def click_cell(self, row, column=0):
        """Clicks a cell that is in view; 0, 0 is the first one behind the headers. Gives the text
        that is in it."""
        left, top, _, _ = self.page()["grid"].client
        x, y = to_pixels([LABELS_WIDTH + COLUMN_WIDTH * column + 30,
                          ROW_HEIGHT * (row + 1) + ROW_HEIGHT // 2], self.dpi)
        self.display.click(left + x, top + y)
        return self.wait_for_page(lambda page: page.editor is not None, "an editor").editor

    def retype(self, text, *keys):
        """Replaces what is in the editor, to which the keys lead; the text stays in it."""
        self.display.press(*keys, "Home", "shift+End", "Delete")
        if text:
            self.display.type_text(text)
        self.wait_for_editor(text)

    def set_number(self, name, number):
        """Types into a numeric control and presses Return."""
        self.click(self.page().field(name))
        self.display.press("Home", "shift+End", *str(number), "Return")
        self.wait_for_page(lambda page: page.field(name).text == str(number), f"{name} {number}")

    def choose_type(self, row):
        """Chooses a number type, 0 for rational, by the mouse on the list and the keyboard in
        it."""
        self.click(self.page().chosen("type"))
        self.display.press("Home", *["Down"] * row, "Return")
        self.wait_for_page(lambda page: page.chosen("type").row == row, f"number type {row}")

    def wait_for_output(self, output):
        return self.wait_for_page(lambda page: page.output == output, f"the output {output!r}")

    def check_precision_by_type(self):
        """The page of a new program asks for digits with each number type but fractions."""
        self.start_with()
        self.open_page()
        for row, has_digits in ((0, False), (1, True), (0, False), (2, True)):
            self.choose_type(row)
            page = self.page()
            for control in (page["precision"], page["precision label"], page.field("precision")):
                self.assertEqual(has_digits, control.enabled)

    def assert_no_message(self):
        self.assertIsNone(self.program.find(MESSAGE_BOX_CLASS))


class CoefficientFormCase(CoefficientCase):
    """The form of a page on the screen. A page says in `laid_out` which places the controls of a
    form have in a client area."""

    def texts_of(self, page, rows):
        """What the rows show that have no text of their own in the table."""
        return {}

    def show_longest_texts(self):
        """The page with its longest texts; None where it has no others than at first."""
        return None

    def check_page(self, size):
        rows = desktop().forms[f"{self.form}_rows"]
        form = self.laid_out(self.forms[self.form], rows, size)
        page = self.wait_for_page(
            lambda page: page.window.client[2:] == to_pixels(size, self.dpi), f"{size}")
        check_form(self, page.window, form, size, self.dpi, self.texts_of(page, rows))

    def check_forms(self):
        """In both languages at each resolution."""
        for dpi in (96, 120, 144, 192):
            for language in ("en", "de"):
                with self.subTest(language=language, dpi=dpi):
                    self.start_with(language, dpi)
                    page = self.open_page()
                    self.check_page(self.forms[f"{self.form}_size"])
                    check_texts(self, self.program, page.window, dpi)
                    longest = self.show_longest_texts()
                    if longest:
                        check_texts(self, self.program, longest.window, dpi)
                    self.close_page()

    def check_sizes(self):
        """A page that is resized is laid out anew."""
        self.start_with()
        page = self.open_page()
        for size in ([900, 700], [500, 400]):
            self.display.resize(page.window, *size)
            self.check_page(size)
