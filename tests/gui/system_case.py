"""What tests of the page Systems of Linear Equations share: the page, its grid, its files."""

import shutil

from coefficient_case import COLUMN_WIDTH, LABELS_WIDTH, ROW_HEIGHT, CoefficientCase
from gui_case import desktop, to_pixels
from program import MESSAGE_BOX_CLASS

FILE_DIALOG_CLASS = MESSAGE_BOX_CLASS  # the class of all dialogs of the system


def is_in(place, rect):
    return all(0 <= place[side] - rect[side] < rect[side + 2] for side in (0, 1))


class SystemCase(CoefficientCase):
    item = 203
    form = "system"
    title_text = "TextLinSystemsLinearEquations"

    def setUp(self):
        super().setUp()
        self.make_folder()

    def make_folder(self):
        """The folder of the files, empty."""
        self.folder = desktop().prefix.folder / "drive_c" / "systems"
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir()

    @staticmethod
    def name_in_windows(name):
        """The path of a file of the test as a user types it."""
        return "C:\\systems\\" + name

    def put(self, name, content):
        """Makes a file of the test; a text gets the line ends that it has."""
        data = content if isinstance(content, bytes) else content.encode("ascii")
        (self.folder / name).write_bytes(data)

    def content(self, name):
        return (self.folder / name).read_bytes()

    def type_system(self, *rows):
        """Types all cells of a system, which has the count of rows already, by keys from the first
        cell. The last text stays in its editor."""
        self.click_cell(0)
        for index, row in enumerate(rows):
            for column, text in enumerate(row):
                keys = ["Right"] if column else ["Down", *["Left"] * (len(row) - 1)] if index else []
                self.retype(text, *keys)

    def solve(self):
        self.click(self.page()["solve"])

    def file_dialog(self):
        """The dialog of the system that asks for a name: the only one with a field in it."""
        def find():
            return next((window for window in self.program.probe.windows()
                         if window.visible and window.class_name == FILE_DIALOG_CLASS and
                         any(control.focused and control.class_name.lower() == "edit"
                             for control in window.walk())), None)
        return self.program.wait_for(find, "a dialog that asks for a name")

    def type_name(self, name):
        """Types the name of a file of the test into the dialog of the system and presses Return."""
        dialog = self.file_dialog()
        self.display.press("ctrl+a")
        self.display.type_text(self.name_in_windows(name))
        self.display.press("Return")
        return dialog

    def wait_for_end_of_dialogs(self):
        self.program.wait_for(
            lambda: not any(window.visible and window.class_name == FILE_DIALOG_CLASS
                            for window in self.program.probe.windows()), "the dialogs to be gone")

    def return_to_page(self):
        """To the page behind a dialog: the window manager below Wine may have given the keyboard to
        another window of the program, and the page knows which control had it."""
        self.wait_for_end_of_dialogs()
        self.display.activate(self.page().window)

    def load(self, name):
        self.click(self.page()["load"])
        self.type_name(name)
        self.wait_for_end_of_dialogs()

    def save_as(self, name):
        self.click(self.page()["save as"])
        self.type_name(name)
        self.wait_for_end_of_dialogs()

    def expect_cells(self, *rows):
        """The first visible cells have these texts. Each of them is clicked, so that its editor
        shows the text."""
        left, top, _, _ = self.page()["grid"].client
        for row, texts in enumerate(rows):
            for column, text in enumerate(texts):
                x, y = to_pixels([LABELS_WIDTH + COLUMN_WIDTH * column + 30,
                                  ROW_HEIGHT * (row + 1) + ROW_HEIGHT // 2], self.dpi)
                self.display.click(left + x, top + y)
                self.wait_for_page(
                    lambda page, place=(left + x, top + y), text=text: any(
                        editor.visible and editor.text == text and is_in(place, editor.rect)
                        for editor in page["grid"].children), f"{text!r} in {row}, {column}")
