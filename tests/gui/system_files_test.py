#!/usr/bin/env python3
"""Load and Save as of the page Systems of Linear Equations, with the dialogs of the system."""

import unittest

from gui_case import desktop
from program import MESSAGE_BOX_CLASS
from system_case import SystemCase

SYSTEM = b"a1;a2;b\r\n1;1/2;2\r\nsqrt(2);-1;\r\n"
ROWS = [["1", "1/2", "2"], ["sqrt(2)", "-1", ""]]


class SystemFilesTest(SystemCase):
    def start_on_page(self, language="en"):
        self.start_with(language)
        self.open_page_by_mouse()

    def paste_name(self, name):
        """Puts a name into the dialog of the system that no hand would type."""
        self.file_dialog()
        desktop().probe.put_on_clipboard(self.name_in_windows(name))
        self.display.press("ctrl+a", "ctrl+v", "Return")

    def test_both_dialogs_in_both_languages(self):
        for language in ("en", "de"):
            with self.subTest(language=language):
                self.start_on_page(language)
                self.put("given.csv", SYSTEM)
                self.click(self.page()["load"])
                dialog = self.type_name("given.csv")
                self.assertIn(self.texts["TextLinCSVFiles"],
                              [control.text for control in dialog.walk()])
                self.wait_for_end_of_dialogs()
                self.expect_cells(*ROWS)
                self.click(self.page()["save as"])
                dialog = self.type_name(f"taken-{language}")
                self.assertIn(self.texts["TextLinCSVFiles"],
                              [control.text for control in dialog.walk()])
                self.wait_for_end_of_dialogs()
                self.assertEqual(SYSTEM, self.content(f"taken-{language}.csv"))
                self.assert_no_message()

    def test_the_keyboard_leaves_the_dialogs(self):
        self.start_on_page()
        self.put("given.csv", SYSTEM)
        self.load("given.csv")
        for button in ("load", "save as"):
            self.click(self.page()[button])
            self.file_dialog()
            self.display.press("Escape")
            self.wait_for_end_of_dialogs()
        self.expect_cells(*ROWS)
        self.assertEqual(["given.csv"], [path.name for path in self.folder.iterdir()])

    def test_a_file_that_is_there_is_replaced_on_demand(self):
        self.start_on_page()
        self.put("given.csv", SYSTEM)
        self.put("old.csv", b"what was there")
        self.load("given.csv")
        for key, content in (("Escape", b"what was there"), ("y", SYSTEM)):
            self.click(self.page()["save as"])
            dialog = self.type_name("old.csv")
            self.program.wait_for(
                lambda dialog=dialog: next(
                    (window for window in self.program.probe.windows()
                     if window.visible and window.class_name == MESSAGE_BOX_CLASS
                     and window.handle != dialog.handle and window.in_foreground), None),
                "the question whether to replace it")
            self.display.press(f"alt+{key}" if key == "y" else key)
            if key == "Escape":
                self.file_dialog()
                self.display.press("Escape")
            self.wait_for_end_of_dialogs()
            self.assertEqual(content, self.content("old.csv"))

    def test_the_last_name_is_offered_again(self):
        self.start_on_page()
        self.save_as("first")
        self.click(self.page()["save as"])
        dialog = self.file_dialog()
        self.assertTrue(dialog.focused_control().text.endswith("first.csv"), dialog.describe())

    def test_names_of_any_letters_and_of_the_longest_length(self):
        self.start_on_page()
        self.put("given.csv", SYSTEM)
        self.load("given.csv")
        # 259 characters with the folder, so there is no room for an extension.
        for name in ("\u03c0 \u4e2d\u6587.csv", "n" * (259 - len(self.name_in_windows("")))):
            self.click(self.page()["save as"])
            self.paste_name(name)
            self.wait_for_end_of_dialogs()
            self.assertEqual(SYSTEM, self.content(name))
            self.click(self.page()["clear"])
            self.click(self.page()["load"])
            self.paste_name(name)
            self.wait_for_end_of_dialogs()
            self.expect_cells(*ROWS)

    def test_a_file_that_is_refused_leaves_the_page_as_it_is(self):
        for language in ("en", "de"):
            with self.subTest(language=language):
                self.start_on_page(language)
                self.put("given.csv", SYSTEM)
                self.load("given.csv")
                self.put("wrong.csv", b"a1;b\r\n1;2\r\n")
                title = self.texts["TextErrError"]
                self.click(self.page()["load"])
                self.type_name("wrong.csv")
                self.wait_for_message(
                    self.program, title,
                    self.texts["TextErrNumberEquationVariablesBetween"].replace("%s", "25"))
                self.leave_message(self.program, title)
                self.expect_cells(*ROWS)

    def test_a_hundred_megabytes_and_two_gigabytes(self):
        self.start_on_page()
        process, = self.program.probe.processes()
        rows = b"1;1;2\n" + b"\n".join([b";".join([b"7"] * 20)] * 2_500_000) + b"\n"
        self.put("long.csv", b"a1;a2;b\n" + rows)
        self.assertGreater((self.folder / "long.csv").stat().st_size, 99_000_000)
        self.load("long.csv")
        self.expect_cells(["1", "1", "2"], ["7", "7", "7"])
        with open(self.folder / "zeros.csv", "wb") as file:
            file.truncate(2 << 30)
        before = self.program.probe.counts(process)
        title = self.texts["TextErrError"]
        self.click(self.page()["load"])
        self.type_name("zeros.csv")
        self.wait_for_message(self.program, title,
                              "The number of equation variables has to be between 2 und 25!")
        self.leave_message(self.program, title)
        after = self.program.probe.counts(process)
        self.assertLess(after["committed"] - before["committed"], 16 << 20)
        self.expect_cells(["1", "1", "2"], ["7", "7", "7"])

    def test_the_largest_system(self):
        self.start_on_page()
        names = ";".join([f"a{i}" for i in range(1, 26)] + ["b"])
        rows = [";".join("1" if column == row else "" for column in range(25)) + f";{row + 1}"
                for row in range(25)]
        self.put("largest.csv", "\n".join([names, *rows, ""]))
        self.load("largest.csv")
        self.assertEqual("25", self.page().field("count").text)
        self.solve()
        self.wait_for_output("".join(f"x{i} = {i}\r\n" for i in range(1, 26)))


if __name__ == "__main__":
    unittest.main()
