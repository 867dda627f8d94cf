#!/usr/bin/env python3
"""Settings files that cannot be read, cannot be written or hold more than the program knows, and
two programs with one file."""

import random
import unittest

from gui_case import MAIN_TITLE, file_bytes, settings_text
from options_case import OptionsCase
from program import MESSAGE_BOX_CLASS

EXIT = 102

GOOD = settings_text(language="German", decimal="comma", thousands="point", grouping=(1, 1, 1))
UNREADABLE = {
    "one byte": b"\xff",
    "no mark": GOOD.encode("utf-16-le"),
    "noise": b"\xff\xfe" + random.Random(1).randbytes(1 << 20),
}


class SettingsTest(OptionsCase):
    def group_digits(self, program, text):
        """Checks one of the boxes for digit grouping. Gives the options as they were before."""
        window = self.open_options(program)
        self.toggle(program, text, True)
        self.press_ok(program)
        program.wait_until_hidden("Options")
        return window

    def run_with_defaults(self, can_save=True):
        """One run that finds no settings and tries to keep others. Nothing is said about them, but
        once that they cannot be saved."""
        program = self.start()
        about = program.wait_for_window("About Tallymere")
        self.assertEqual({MAIN_TITLE, "About Tallymere"}, program.visible_windows())
        self.click(about.control("button", "OK"))
        program.wait_until_hidden("About Tallymere")
        options = self.group_digits(program, "Equations && polynomials")
        self.assertEqual(["Automatic selection"] * 2,
                         [control.text for control in options.walk()
                          if control.data.get("checked")])
        if not can_save:
            box = program.wait_for_window("Error", MESSAGE_BOX_CLASS)
            self.assertRegex("\n".join(control.text for control in box.walk()),
                             r'The settings could not be saved in the file "C:\\.*\.ini"!')
            self.leave_message(program, "Error")
            self.group_digits(program, "Scientific calculator")
        self.assertEqual({MAIN_TITLE}, program.visible_windows())
        self.close_program(program)

    def test_file_that_cannot_be_understood_gives_the_defaults(self):
        for name, content in UNREADABLE.items():
            with self.subTest(name):
                self.write_settings("")
                self.settings_path().write_bytes(content)
                self.run_with_defaults()
                self.assertEqual(file_bytes(settings_text(grouping=(0, 1, 0))),
                                 self.settings_bytes())
                # One that is none of settings is kept.
                kept = self.settings_path().with_name("UserSettings_3.8.ini.bad")
                self.assertEqual(name != "noise", kept.exists())
                if kept.exists():
                    self.assertEqual(content, kept.read_bytes())
                    kept.unlink()

    def test_folder_in_the_place_of_the_file_stays(self):
        self.settings_path().mkdir(parents=True)
        self.run_with_defaults(can_save=False)
        self.assertEqual([self.settings_path()], list(self.settings_path().parent.iterdir()))
        self.assertEqual([], list(self.settings_path().iterdir()))
        self.start().wait_for_window("About Tallymere")

    def test_file_in_the_place_of_the_folder_stays(self):
        folder = self.settings_path().parent
        folder.write_bytes(b"mine")
        self.addCleanup(folder.unlink)
        self.run_with_defaults(can_save=False)
        self.assertEqual(b"mine", folder.read_bytes())
        self.start().wait_for_window("About Tallymere")

    def test_change_of_an_option_keeps_all_else(self):
        def text(count, angle, language, grouping, bare, end):
            values = ["größe;-1.5E-30", ";7", "a;1;2", bare]
            values += [f"v{i};{i}.25" for i in range(len(values), count)]
            variables = [f"variable{i:02} = {value}\r\n" for i, value in enumerate(values)]
            return settings_text(language=language, decimal="point", thousands="apostrophe",
                                 grouping=grouping, precision=777).replace(
                "angle_type = rad", f"angle_type = {angle}").replace(
                "number_type = real", "number_type = uint").replace(
                "number_base = 10", "number_base = 7").replace(
                "hex = 0\r\n", "hex = 1\r\n" + "".join(variables)) + end

        self.write_settings(text(101, "turns", "Latin", (0, 1, 0), "bare", "volume = 11\r\n"))
        program = self.start()
        program.wait_for_window(MAIN_TITLE)
        self.group_digits(program, "Scientific calculator")
        self.close_program(program)
        self.assertEqual(file_bytes(text(100, "rad", "(automatic)", (1, 1, 0), "bare;", "")),
                         self.settings_bytes())

    def test_options_that_are_closed_with_a_change_are_saved(self):
        program = self.start_again()
        self.group_digits(program, "Equations && polynomials")
        program.wait_for(lambda: self.settings_bytes() ==
                         file_bytes(settings_text(grouping=(0, 1, 0))), "the options to be saved")
        self.assertEqual([self.settings_path()], list(self.settings_path().parent.iterdir()))
        # However the program ends.
        self.assertTrue(program.probe.end(program.probe.processes()[0]))
        program.wait_for(lambda: not program.probe.processes(), "the end of the program")
        program = self.start()
        self.assertTrue(self.open_options(program).control("button", "Equations && polynomials")
                        .checked)

    def test_file_that_an_ended_program_left_beside_is_taken_when_it_is_whole(self):
        beside = self.settings_path().with_name("~tallymere.new")
        newer = file_bytes(settings_text(grouping=(1, 0, 1), language="German"))
        for content, language in ((newer, "de"), (newer[:-2], "en")):
            with self.subTest(language):
                self.write_settings(settings_text())
                beside.write_bytes(content)
                program = self.start(speaks=language)
                program.wait_for_window(MAIN_TITLE)
                window = self.open_options(program)
                self.click(window.control("button", self.texts["TextBtnCancel"]))
                program.wait_until_hidden(self.texts["TextOptOptions"])
                self.close_program(program)
                self.assertEqual(newer if language == "de" else file_bytes(settings_text()),
                                 self.settings_bytes())

    def test_of_two_programs_the_last_to_end_keeps_its_settings(self):
        first = self.start_again()
        second = self.start()
        first.wait_for(lambda: len(first.probe.processes()) == 2, "two programs")

        def main_windows():
            return [window for window in first.probe.windows()
                    if window.visible and window.text == MAIN_TITLE]

        # The one that was started last is in front.
        first.wait_for(lambda: len(main_windows()) == 2, "two main windows")
        self.assertEqual(2, len({window.process for window in main_windows()}))
        self.assertTrue(all(window.enabled for window in main_windows()))

        self.group_digits(second, "Equations && polynomials")
        self.choose_menu(second, EXIT)
        second.wait_until_ended()
        self.assertEqual(file_bytes(settings_text(grouping=(0, 1, 0))), self.settings_bytes())
        self.assertIsNone(first.process.poll())
        options = self.group_digits(first, "Prime numbers && factors")
        self.assertFalse(options.control("button", "Equations && polynomials").checked)
        self.close_program(first)
        self.assertEqual(file_bytes(settings_text(grouping=(0, 0, 1))), self.settings_bytes())


if __name__ == "__main__":
    unittest.main()
