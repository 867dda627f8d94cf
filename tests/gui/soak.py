"""Random keys and clicks in all windows of the program, and what it holds meanwhile. tools/soak
lets it run for long.

The program comes to rest after each visit of a window: nothing calculates and the main window alone
is on the screen. Only then it is asked what it holds.
"""

import random
import time
from collections import deque

from calculator_case import CalculatorCase
from desktop import wait_until
from gui_case import MAIN_TITLE
from program import DIALOG_CLASS, MESSAGE_BOX_CLASS

OPTIONS, INFO = 101, 302  # items of the menu
PAGES = range(201, 207)
VISITS = [*PAGES, *PAGES, OPTIONS, INFO]  # a page twice as often as another window
ANSWERS = 100  # messages that the probe sends to find out whether a window answers
MOST_BURSTS = 8  # of a visit
CLICKS, KEYS = 10, 15  # of a burst
LAST = 12  # bursts that a failure names

# Nothing that leads to the menu, where a random choice could end the program.
PRESSED = [
    "Tab", "shift+Tab", "Left", "Right", "Up", "Down", "Home", "End", "Prior", "Next", "Return",
    "space", "Delete", "BackSpace", "Insert", "F2", "ctrl+a", "ctrl+c", "ctrl+v", "ctrl+x",
    "ctrl+z", "shift+Left", "shift+End", "plus", "minus", "asterisk", "slash", "asciicircum",
    "parenleft", "parenright", "semicolon", "comma", "period", "exclam", *"0123456789abix"]
TYPED = [
    "1", "2", "7", "12", "355", "10007", "1/3", "sqrt(2)", "-5", "sin(1)", "2^0.5", "(1+2", "1/0",
    "fact(30)", "a+b", "ans", "1e400*1e400", "i*i", "gcd(12;18)", "0xFFFF", "3.5.5", "",
    "123456789012345678901", "unknown(2)"]
# A click on a text does nothing. The tab control leads to the language, whose change starts the
# program anew.
NEVER_CLICKED = {"static", "systabcontrol32"}


def is_file_dialog(window):
    """Whether it is a dialog of the system that asks for a name; a message has no field."""
    return window.class_name == MESSAGE_BOX_CLASS and any(
        control.class_name.lower() == "edit" for control in window.walk())


class Soak(CalculatorCase):
    """Not a test: borrows what the tests have. An AssertionError says that the program is gone, or
    that it does not answer or come to rest within a minute."""

    def begin(self, seed):
        """Starts the program, for a user without a browser."""
        self.random = random.Random(seed)
        self.setUp()
        self.program = self.start_again()
        self.program.probe.register_browser()
        self.process, = self.program.probe.processes()
        self.main = self.program.wait_for_window(MAIN_TITLE)
        self.bursts = 0
        self.file_dialogs = 0  # that were seen, and whether there was one at the last look
        self.asked_for_name = False
        self.last = deque(maxlen=LAST)

    def end(self):
        """Ends it as a user does."""
        self.close_program(self.program)

    def require_program(self):
        """It still runs, is the one that was started, and answers."""
        self.assertEqual([self.process], self.program.probe.processes(), "the processes")
        # Before its windows are asked what is in them, which a program that hangs takes long for.
        wait_until(lambda: self.program.probe.answers(self.main) == ANSWERS, "an answer")

    def dialogs(self):
        """What is on the screen beside the main window, frontmost first."""
        found = [window for window in self.program.probe.windows()
                 if window.visible and window.text != MAIN_TITLE]
        asks_for_name = any(map(is_file_dialog, found))
        self.file_dialogs += asks_for_name and not self.asked_for_name
        self.asked_for_name = asks_for_name
        return found

    def front(self):
        """The frontmost of the program's own windows that can be reached; None if there is none."""
        return next((window for window in self.dialogs()
                     if window.class_name == DIALOG_CLASS and window.enabled), None)

    def answer_messages(self):
        """Presses a key that closes the messages and the system's dialogs for files."""
        if any(window.class_name == MESSAGE_BOX_CLASS for window in self.dialogs()):
            self.display.press("Escape")

    def rest(self):
        """Stops what calculates and closes all windows but the main one."""
        def is_at_rest():
            self.require_program()
            dialogs = self.dialogs()
            if not dialogs:
                return self.program.probe.window(self.main).enabled
            if any(window.class_name != DIALOG_CLASS for window in dialogs):
                # A message, a dialog of the system, or what has dropped down.
                self.display.press("Escape")
            else:
                self.leave(next((window for window in dialogs if window.enabled), dialogs[0]))
            return None
        self.program.wait_for(is_at_rest, "the program to come to rest")
        self.display.activate(self.main)

    def leave(self, window):
        stop = [control for control in window.walk() if control.visible and control.enabled
                and control.text == self.texts["TextBtnStop"]]
        self.display.activate(window)
        if stop:
            self.click(stop[0])
        else:
            # Under Wine a drop list with the keyboard keeps alt+F4 to itself.
            self.display.press("Tab", "alt+F4")

    def controls(self, window):
        """What can be clicked in a window as it is now."""
        now = self.program.probe.window(window)
        return [control for control in now.walk()
                if control.visible and control.enabled and min(control.rect[2:]) > 0
                and control.class_name.lower() not in NEVER_CLICKED]

    def place_in(self, control):
        x, y, width, height = control.rect
        return x + self.random.randrange(width), y + self.random.randrange(height)

    def click_some(self, window):
        controls = self.controls(window)
        self.display.click_all([self.place_in(self.random.choice(controls))
                                for _ in range(CLICKS)], milliseconds=10)

    def press_some(self, _):
        self.display.press(*self.random.choices(PRESSED, k=KEYS))

    def type_some(self, window):
        fields = [control for control in self.controls(window)
                  if control.class_name.lower() == "edit"] or self.controls(window)
        self.display.click(*self.place_in(self.random.choice(fields)))
        self.display.press("ctrl+Home", "ctrl+shift+End")
        text = self.random.choice(TYPED)
        if text:
            self.display.type_text(text)
        self.display.press(self.random.choice(["Return", "Tab", "Down"]))

    def drag_some(self, window):
        control = self.random.choice(self.controls(window))
        self.display.drag(self.place_in(control), self.place_in(control))

    def resize(self, window):
        self.display.resize(window, *(self.random.randrange(100, 1200) for _ in range(2)))

    def burst(self):
        """Some keys or clicks in the frontmost window; False if there is none."""
        self.require_program()
        self.answer_messages()
        window = self.front()
        if window is None:
            return False
        action = self.random.choices([self.click_some, self.press_some, self.type_some,
                                      self.drag_some, self.resize], [8, 4, 6, 1, 1])[0]
        self.last.append(f"{action.__name__} in {window.text!r}")
        action(window)
        self.bursts += 1
        return True

    def change_options(self):
        """Some clicks on boxes and lists, and the end by either button."""
        window = self.open_options(self.program)
        for _ in range(self.random.randrange(1, MOST_BURSTS)):
            control = self.random.choice([
                control for control in self.controls(window)
                if control.class_name.lower() in ("button", "combobox")])
            if control.class_name.lower() == "combobox":
                self.click(control)
                self.display.press(*["Down"] * self.random.randrange(4), "Return")
            elif control.text not in (self.texts["TextBtnOK"], self.texts["TextBtnCancel"]):
                self.click(control)
            self.bursts += 1
        button = self.random.choice(["TextBtnOK", "TextBtnCancel"])
        self.click(window.control("button", self.texts[button]))

    def visit(self, item):
        """Shows the window of a menu item, does things in it and in what it shows, and leaves."""
        self.require_program()
        if item == OPTIONS:
            self.change_options()
        else:
            self.choose_menu(self.program, item)
            self.program.wait_for(self.dialogs, f"what the menu item {item} shows")
            for _ in range(self.random.randrange(1, MOST_BURSTS)):
                if not self.burst():
                    break
        self.rest()

    def visit_some(self):
        self.visit(self.random.choice(VISITS))

    def counts(self):
        """What the program holds at rest, but for a handle of each dialog for files: Wine keeps one
        open for each, of the registry, in any program."""
        held = self.program.probe.counts(self.process)
        return {**held, "handles": held["handles"] - self.file_dialogs}

    def run_for(self, seconds, between, tell):
        """Visits windows for so long. What the program holds is asked behind a visit, not more
        often than each `between` seconds, and handed to `tell` with the seconds since the start.
        Gives all that was told, without the times."""
        start = time.monotonic()
        passed = due = 0
        samples = []
        while passed < seconds:
            self.visit_some()
            passed = time.monotonic() - start
            if passed >= due:
                samples.append(self.counts())
                tell(passed, samples[-1])
                due = passed + between
        return samples
