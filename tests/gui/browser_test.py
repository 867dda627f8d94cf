#!/usr/bin/env python3
"""What is opened in the user's browser: the help beside the program and the pages of About. A
stand-in for the browser tells what it was started with."""

import os
import shutil
import unittest
from pathlib import Path

from desktop import FOLDER, wait_until
from gui_case import MAIN_TITLE, GuiCase, desktop, settings_text
from program import PROGRAM

STAND_IN_BROWSER = os.environ["TALLYMERE_STAND_IN_BROWSER"]
SHOW_HELP = 301
INFO = 302
OPTIONS = 101

NOT_FOUND = {"en": ("Error", "The file \"%s\" was not found!"),
             "de": ("Fehler", "Die Datei \"%s\" wurde nicht gefunden!")}
TOO_LONG = ("Error", "String buffer overflow!")

# The longest folders of a program, in characters, of which the address of a help page and the
# folder of the help still fit 259.
LONGEST_FOR_ADDRESS = 259 - len(r"file:///\HtmlBrowserHelpFiles\Tallymere\overview_en.html")
LONGEST_FOR_HELP_FOLDER = 259 - len(r"\HtmlBrowserHelpFiles")


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


class Browser:
    """The stand-in, in a folder with a blank, as the only browser that there is."""

    def __init__(self, folder, probe):
        folder.mkdir(parents=True)
        self.path = folder / "browser.exe"
        self.called = folder / "browser.exe.called"
        shutil.copy(STAND_IN_BROWSER, self.path)
        probe.register_browser(windows_path(self.path))

    def argument(self):
        """What it was started with since the last question, once it was."""
        wait_until(self.called.exists, "the browser to start")
        command_line = self.called.read_bytes().decode("utf-16-le")
        self.called.unlink()
        program = f'"{windows_path(self.path)}" '
        if not command_line.startswith(program):
            raise AssertionError(f"{command_line!r} does not start with {program!r}")
        return command_line[len(program):]


class BrowserTest(GuiCase):
    def setUp(self):
        super().setUp()
        self.folder = FOLDER / "browser test"
        shutil.rmtree(self.folder, ignore_errors=True)
        self.probe = desktop().probe
        self.browser = Browser(self.folder / "the browser", self.probe)
        self.addCleanup(self.probe.register_browser)

    def install_program(self, folder, pages=("en", "de")):
        """Puts the program into a new folder, with these pages of its help."""
        folder.mkdir(parents=True)
        shutil.copy(PROGRAM, folder)
        for language in pages:
            self.write_page(folder, language)
        return folder / Path(PROGRAM).name

    def page(self, folder, language):
        return folder / "HtmlBrowserHelpFiles" / "Tallymere" / f"overview_{language}.html"

    def write_page(self, folder, language):
        path = self.page(folder, language)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("<!DOCTYPE html><title>Help</title>\n", encoding="ascii")

    def long_folder(self, length):
        """A folder whose path as Windows has it is so many characters long."""
        folder = self.folder
        missing = length - len(windows_path(folder))
        while missing > 200:
            folder = folder / ("n" * 99)
            missing -= 100
        return folder / ("n" * (missing - 1))

    def expect_message(self, program, title, text):
        self.choose_menu(program, SHOW_HELP)
        self.wait_for_message(program, title, text)
        self.leave_message(program, title)

    def test_opens_the_page_of_the_language(self):
        folder = self.folder / "folder of the program"
        program_file = self.install_program(folder)
        for language, choose in (("en", self.choose_menu), ("de", self.choose_menu_by_mouse)):
            with self.subTest(language):
                program = self.start_again(language, program_file=program_file)
                choose(program, SHOW_HELP)
                address = "file:///" + windows_path(self.page(folder, language))
                self.assertEqual(f'"{address}"', self.browser.argument())
                self.assertEqual({MAIN_TITLE}, program.visible_windows())

    def test_language_of_the_settings_decides(self):
        self.write_settings(settings_text(language="German"))
        program = self.start("en", speaks="de")
        self.choose_menu(program, SHOW_HELP)
        page = self.page(Path(PROGRAM).parent, "de")
        self.assertTrue(page.exists(), "the help that the build puts beside the program")
        self.assertEqual(f'"file:///{windows_path(page)}"', self.browser.argument())

    def test_missing_page_is_reported(self):
        for language, other in (("en", "de"), ("de", "en")):
            with self.subTest(language):
                folder = self.folder / f"without {language}"
                page = self.page(folder, language)
                title, text = NOT_FOUND[language]
                text = text.replace("%s", windows_path(page))
                program = self.start_again(
                    language, program_file=self.install_program(folder, [other]))
                self.expect_message(program, title, text)
                page.mkdir()
                self.expect_message(program, title, text)
                page.rmdir()
                self.write_page(folder, language)
                self.choose_menu(program, SHOW_HELP)
                self.assertEqual(f'"file:///{windows_path(page)}"', self.browser.argument(),
                                 "the first time that it is called")

    def test_without_a_browser_nothing_happens(self):
        self.probe.register_browser()
        program = self.start_again()
        self.choose_menu(program, SHOW_HELP)
        self.choose_menu(program, INFO)
        about = program.wait_for_window("About Tallymere")
        self.click(about.control("button", "Homepage\r\ntallymere.example"))
        self.click(about.control("button", "Donate"))
        self.click(about.control("button", "OK"))
        program.wait_until_hidden("About Tallymere")
        self.close_program(program)
        self.assertFalse(self.browser.called.exists())

    def test_buttons_of_about_open_their_pages(self):
        program = self.start_again()
        self.choose_menu(program, INFO)
        about = program.wait_for_window("About Tallymere")
        for text, address in (("Homepage\r\ntallymere.example", "https://tallymere.example"),
                              ("Donate", "https://tallymere.example/donate")):
            self.click(about.control("button", text))
            self.assertEqual(address, self.browser.argument())
        # Return clicks push buttons only, and the picture of Donate is none.
        for keys, address in ((["space"], "https://tallymere.example/donate"),
                              (["Return", "shift+Tab", "Return"], "https://tallymere.example"),
                              (["space"], "https://tallymere.example")):
            self.display.press(*keys)
            self.assertEqual(address, self.browser.argument())
        self.assertEqual({MAIN_TITLE, "About Tallymere"}, program.visible_windows())

    def test_address_that_is_too_long_is_reported(self):
        folder = self.long_folder(LONGEST_FOR_ADDRESS)
        program = self.start_again(program_file=self.install_program(folder))
        self.choose_menu(program, SHOW_HELP)
        address = "file:///" + windows_path(self.page(folder, "en"))
        self.assertEqual(f'"{address}"', self.browser.argument())
        self.assertEqual(259, len(address))
        program.close()

        folder = self.long_folder(LONGEST_FOR_ADDRESS + 1)
        program = self.start_again(program_file=self.install_program(folder))
        self.expect_message(program, *TOO_LONG)
        self.expect_message(program, *TOO_LONG)
        self.close_program(program)
        self.assertFalse(self.browser.called.exists())

    def test_help_folder_that_is_too_long_is_reported_at_the_start(self):
        for more in (1, 60):
            with self.subTest(more):
                folder = self.long_folder(LONGEST_FOR_HELP_FOLDER + more)
                self.write_settings(settings_text())
                program = self.start(program_file=self.install_program(folder, pages=()))
                self.wait_for_message(program, *TOO_LONG)
                self.leave_message(program, TOO_LONG[0])
                program.wait_for_window(MAIN_TITLE)
                self.expect_message(program, *TOO_LONG)
                self.close_program(program)


if __name__ == "__main__":
    unittest.main()
