"""What tests of the windows share: the desktop, starting the program on it, what its windows should
look like, and a picture of the screen when a test fails.

One desktop serves all tests of a script. Every test starts without settings.
"""

import atexit
import contextlib
import functools
import json
import os
import re
import subprocess
import sys
import types
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "support"))
from desktop import SECONDS, WINE_RUN, Display, WinePrefix
from program import MENU_CLASS, MESSAGE_BOX_CLASS, PROGRAM, Probe, Program, middle
from program_build import project_version
from user_settings import file_bytes, settings_text

LOCALES = {"en": "C.UTF-8", "de": "de_DE.UTF-8"}
MAIN_TITLE = f"Tallymere {project_version()}"
CALCULATOR = 201  # its menu item


class Desktop:
    def __init__(self):
        self.display = Display()
        atexit.register(self.display.close)
        self.prefix = WinePrefix(self.display)
        atexit.register(self.prefix.close)
        self.probe = None
        self.forms = json.loads(subprocess.run(
            [str(WINE_RUN), os.environ["TALLYMERE_FORM_TABLES"]], env=self.prefix.environment,
            check=True, timeout=SECONDS, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL).stdout)
        atexit.register(self.close_probe)

    def close_probe(self):
        if self.probe:
            self.probe.close()
            self.probe = None

    def set_dpi(self, dpi):
        if dpi != self.prefix.dpi:
            self.close_probe()
            self.prefix.set_dpi(dpi)
        if not self.probe:
            self.probe = Probe(self.prefix)


@functools.cache
def desktop():
    """Made by the first that needs it: a test, or a script that asks for the tables of forms."""
    return Desktop()


def to_pixels(units, dpi):
    """The pixels of lengths in logical units, none of them negative, rounded to the nearest."""
    return [(unit * dpi + 48) // 96 for unit in units]


@contextlib.contextmanager
def screenshot_of_failure(name):
    """Leaves a picture of the screen should what it encloses fail."""
    try:
        yield
    except Exception:
        path = desktop().display.screenshot(f"failed-{re.sub(r'[^0-9A-Za-z_.-]+', '-', name)}")
        print(f"{name} failed; the screen at that time: {path}", file=sys.stderr)
        raise


class GuiCase(unittest.TestCase):
    maxDiff = 4000

    def __init__(self, methodName="runTest"):
        super().__init__(methodName)
        if hasattr(self, methodName):
            watched = screenshot_of_failure(self.name())(getattr(type(self), methodName))
            setattr(self, methodName, types.MethodType(watched, self))

    def name(self):
        return f"{type(self).__name__}-{self._testMethodName}"

    @contextlib.contextmanager
    def subTest(self, msg="", **params):
        """What is started in it ends with it, even when it fails, and disturbs nothing later."""
        # A failure does not leave it, so the picture is taken inside.
        parts = [self.name(), str(msg), *(f"{key}-{value}" for key, value in params.items())]
        started = len(self.programs)
        with super().subTest(msg, **params), screenshot_of_failure("-".join(filter(None, parts))):
            yield
        for program in self.programs[started:]:
            program.close()

    def setUp(self):
        self.display = desktop().display
        self.programs = []
        desktop().set_dpi(96)
        desktop().prefix.forget_settings()

    def expect_language(self, language):
        """From here on the tables and texts are those of that language."""
        self.forms = desktop().forms[language]
        self.texts = self.forms["texts"]

    def start(self, language="en", dpi=96, speaks=None, program_file=PROGRAM):
        """Starts the program for a user of that language; it ends with the test. Where settings say
        otherwise, it speaks another language."""
        desktop().set_dpi(dpi)
        self.expect_language(speaks or language)
        program = Program(self.display, desktop().probe,
                          desktop().prefix.environment_of(LOCALES[language]), program_file)
        self.programs.append(program)
        self.addCleanup(program.close)
        return program

    def start_again(self, language="en", dpi=96, program_file=PROGRAM):
        """Starts the program for somebody who has met About before; all of its windows are there."""
        self.write_settings(settings_text())
        program = self.start(language, dpi, program_file=program_file)
        self.wait_for_all_windows(program)
        return program

    def last_window(self):
        """The title of the window that the program makes last."""
        return self.texts["TextVarCalculatorVariables"]

    def wait_for_all_windows(self, program):
        """Waits for the main window and for what is made behind it, hidden."""
        program.wait_for_window(MAIN_TITLE)
        self.wait_until_made(program)

    def wait_until_made(self, program):
        """Waits until the program has made all of its windows."""
        program.wait_for(
            lambda: self.last_window() in [window.text for window in program.probe.windows()],
            "all windows to be made")

    def settings_path(self):
        return desktop().prefix.settings_folder() / "UserSettings_3.8.ini"

    def write_settings(self, text):
        self.settings_path().parent.mkdir(exist_ok=True)
        self.settings_path().write_bytes(file_bytes(text))

    def settings_bytes(self):
        return self.settings_path().read_bytes()

    def place_in_menu(self, item_id):
        """Where an item of the main window's menu stands: the index of the bar item with its
        drop-down menu, and its own in that menu."""
        ids = [item["id"] for item in self.forms["menu"]]
        bar_item = item_id // 100 * 100
        bar = [id for id in ids if id % 100 == 0]
        return bar.index(bar_item), ids.index(item_id) - ids.index(bar_item) - 1

    def choose_menu(self, program, item_id):
        """Chooses an item of the main window's menu by the keyboard."""
        bar, position = self.place_in_menu(item_id)
        program.wait_for_window(MAIN_TITLE)
        # The first Down opens the menu, with its first item chosen.
        self.display.press("F10", *["Right"] * bar, *["Down"] * (position + 1), "Return")

    def click(self, control):
        self.display.click(*control.middle())

    def drop_down(self, program, item_id):
        """Drops down the menu with an item by a click, and gives the place on the screen of each of
        its items by their ids."""
        bar, _ = self.place_in_menu(item_id)
        menu = program.menu(program.wait_for_window(MAIN_TITLE))[bar]
        self.display.click(*middle(menu["rect"]))
        x, y, width, height = program.wait_for(lambda: program.find(MENU_CLASS),
                                               "the menu to drop down").client
        rows = height // len(menu["items"])
        return {item["id"]: (x, y + rows * row, width, rows)
                for row, item in enumerate(menu["items"])}

    def choose_menu_by_mouse(self, program, item_id):
        """Chooses an item of the main window's menu by two clicks."""
        self.display.click(*middle(self.drop_down(program, item_id)[item_id]))
        program.wait_until_hidden(None, MENU_CLASS)

    def leave_menu(self, program):
        self.display.press("Escape", "Escape")
        program.wait_until_hidden(None, MENU_CLASS)

    def check_items_of_pages(self, program, enabled):
        """Of the items that show pages, those with these ids are enabled, and the others look
        grey: no letter of them is black."""
        places = self.drop_down(program, CALCULATOR)
        bar, _ = self.place_in_menu(CALCULATOR)
        items = program.menu(program.find(title=MAIN_TITLE))[bar]["items"]
        self.assertEqual(set(enabled), {item["id"] for item in items if item["enabled"]})
        # Every letter is painted by now: the last item shows more than its background.
        for item, place in places.items():
            pixels = program.wait_for_where(
                lambda place=place: self.display.pixels_of(place),
                lambda pixels, place=place: len(pixels.colours(place)) > 1, f"item {item}")
            self.assertEqual(item in enabled, (0, 0, 0) in pixels.colours(place), item)
        self.leave_menu(program)

    def wait_for_message(self, program, title, text):
        """The message box with that title, which says that text."""
        box = program.wait_for_window(title, MESSAGE_BOX_CLASS)
        self.assertIn(text, [control.text for control in box.walk()])
        return box

    def leave_message(self, program, title, key="Return"):
        self.display.press(key)
        program.wait_until_hidden(title, MESSAGE_BOX_CLASS)

    def close_program(self, program):
        """Closes the main window from its menu and waits for the end of the process."""
        self.choose_menu(program, 102)
        self.assertEqual(0, program.wait_until_ended())
        self.assertEqual([], program.probe.processes())
