"""What tests of the Options window share: its controls."""

from gui_case import GuiCase

OPTIONS = 101  # its menu item


class OptionsCase(GuiCase):
    def open_options(self, program):
        self.choose_menu(program, OPTIONS)
        return program.wait_for_window(self.texts["TextOptOptions"])

    def options(self, program):
        return program.find(title=self.texts["TextOptOptions"])

    def toggle(self, program, text, checked):
        """Clicks a check box or radio button, and waits until it is as it should be."""
        self.click(self.options(program).control("button", text))
        program.wait_for(
            lambda: self.options(program).control("button", text).checked == checked,
            f"{text!r} to be {'checked' if checked else 'clear'}")

    def show_tab(self, program, index):
        tabs = self.options(program).children[0]
        x, y, width, height = tabs.tabs[index]["rect"]
        self.display.click(x + width // 2, y + height // 2)
        program.wait_for(lambda: self.options(program).children[0].children[index].visible,
                         f"tab {index}")

    def select_row(self, program, index, row):
        """Chooses a row of the drop list that is that row of the form, by the keyboard."""
        self.click(self.drop_lists(program)[index])
        program.wait_for(lambda: self.drop_lists(program)[index].dropped, "the list to drop down")
        self.display.press("Home", *["Down"] * row, "Return")
        program.wait_for(lambda: not self.drop_lists(program)[index].dropped
                         and self.drop_lists(program)[index].row == row, f"row {row}")

    def drop_lists(self, program):
        return [control for control in self.options(program).walk()
                if control.class_name.lower() == "combobox"]

    def press_ok(self, program):
        self.click(self.options(program).control("button", self.texts["TextBtnOK"]))
