"""The program under test as it is seen from outside: its processes, its windows, their controls.

TALLYMERE_PROGRAM names the program, TALLYMERE_WINDOW_PROBE the helper that tells its windows.
"""

import json
import os
import subprocess
import tempfile
from dataclasses import dataclass, field

from desktop import SECONDS, WINE_RUN, stop, wait_until

PROGRAM = os.environ["TALLYMERE_PROGRAM"]
PROBE = os.environ["TALLYMERE_WINDOW_PROBE"]
IMAGE = os.path.basename(PROGRAM)

ERRORS_SHOWN = 10000  # bytes of what a program has said

DIALOG_CLASS = "cwl_DialogWindow"
MESSAGE_BOX_CLASS = "#32770"
MENU_CLASS = "#32768"


def middle(rect):
    x, y, width, height = rect
    return x + width // 2, y + height // 2


@dataclass
class Window:
    """A window or control as it was when the program was asked. Places are pixels of the screen:
    x, y, width, height."""
    data: dict
    in_foreground: bool = False
    children: list = field(default_factory=list)

    def __post_init__(self):
        self.children = [Window(child) for child in self.data["children"]]

    def __getattr__(self, name):
        # What the probe tells, by its name there: text, rect, client, visible, enabled, focused,
        # checked, row, rows and so on. A control of another class has no such attribute.
        try:
            return self.__dict__["data"][name]
        except KeyError:
            raise AttributeError(f"the window has no {name}") from None

    @property
    def class_name(self):
        return self.data["class"]

    def walk(self):
        """All controls in it, parents before their children, in the order of the Tab key."""
        for child in self.children:
            yield child
            yield from child.walk()

    def focused_control(self):
        return next((control for control in self.walk() if control.focused), None)

    def control(self, class_name, text):
        """The visible control of that class (in any case) and text; there must be just one."""
        found = [control for control in self.walk()
                 if control.visible and control.text == text
                 and control.class_name.lower() == class_name]
        if len(found) != 1:
            raise AssertionError(f"{len(found)} times {class_name} {text!r} in {self.describe()}")
        return found[0]

    def middle(self):
        return middle(self.rect)

    def describe(self, indent=""):
        """A few lines for whoever reads why a test failed."""
        marks = [mark for mark in ("visible", "enabled", "focused", "checked") if
                 self.data.get(mark)]
        lines = [f"{indent}{self.class_name} {self.text!r} {self.rect} {' '.join(marks)}"]
        lines += [child.describe(indent + "    ") for child in self.children]
        return "\n".join(lines)


class Probe:
    """The helper that tells windows; it runs as long as the Wine that it looks at."""

    def __init__(self, prefix):
        self.process = subprocess.Popen(
            [str(WINE_RUN), PROBE], env=prefix.environment, stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        # Under Wine the number habits of whoever started last are those of the user, so that a
        # program started meanwhile could find those of the probe, or of the desktop behind it.
        self.windows()

    def ask(self, command, argument=""):
        self.process.stdin.write(f"{command} {argument}".rstrip() + "\n")
        self.process.stdin.flush()
        return json.loads(self.process.stdout.readline())

    def windows(self):
        """The program's top-level windows, frontmost first, hidden ones too."""
        answer = self.ask("windows", IMAGE)
        return [Window(data, data["handle"] == answer["foreground"])
                for data in answer["windows"]]

    def choose_early(self, item_id, main_title, title):
        """Chooses an item of the menu as soon as a program that starts has a window with the title
        of the main window. Says whether that was before a window of the other title was made."""
        return self.ask("early", f"{item_id} {json.dumps(main_title)} {json.dumps(title)}")

    def processes(self):
        return self.ask("processes", IMAGE)

    def menu(self, window):
        """The items of the menu of a window: id, text, enabled, rect and items of each."""
        return self.ask("menu", window.handle)

    def texts(self, window):
        """The texts of the controls in a window: handle of the control, text, needed and room."""
        return self.ask("texts", window.handle)

    def end(self, process):
        return self.ask("end", process)

    def register_browser(self, path=""):
        """Makes that the only program that opens web addresses; without a path there is none."""
        if not self.ask("browser", path):
            raise AssertionError(f"{path!r} could not be registered")

    def post(self, window, message):
        """Posts a message without parameters to a window, as other programs can."""
        if not self.ask("post", f"{window.handle} {message}"):
            raise AssertionError(f"the message {message:#x} could not be posted")

    def answers(self, window):
        """How many of a hundred messages, one after the other, a window answers."""
        return self.ask("answers", window.handle)

    def write(self, control, text):
        """Sets the text of a control that no hand can reach."""
        return self.ask("write", f"{control.handle} {json.dumps(text)}")

    def window(self, window):
        """A window or control as it is now, with all in it."""
        return Window(self.ask("window", window.handle))

    def put_on_clipboard(self, text):
        if not self.ask("clipboard", json.dumps(text)):
            raise AssertionError("the clipboard did not take a text")

    def counts(self, process):
        """What a process holds: handles, gdi, windows, threads, and bytes that are committed,
        resident."""
        return self.ask("counts", process)

    def close(self):
        self.process.stdin.close()
        stop(self.process)
        self.process.stdout.close()


class Program:
    """One run of the program, and of the one that it starts in its place for another language."""

    def __init__(self, display, probe, environment, program_file=PROGRAM):
        self.display = display
        self.probe = probe
        self.environment = environment
        self.is_closed = False
        self.errors = tempfile.TemporaryFile()  # what Wine and its libraries say
        self.process = subprocess.Popen(
            [str(WINE_RUN), str(program_file)], env=environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=self.errors)

    def describe(self):
        status = self.process.poll()
        state = "it still runs" if status is None else f"it ended with status {status}"
        errors = os.pread(self.errors.fileno(), ERRORS_SHOWN, 0).decode(errors="replace")
        return "\n".join([f"processes {self.probe.processes()}; of the one started here: {state}",
                          *errors.splitlines(),
                          *(window.describe() for window in self.probe.windows()
                            if window.visible)])

    def find(self, class_name=DIALOG_CLASS, title=None):
        """The visible top-level window of that class and title, None if there is none."""
        for window in self.probe.windows():
            if window.visible and window.class_name == class_name and title in (None, window.text):
                return window
        return None

    def visible_windows(self):
        """The titles of the windows to be seen."""
        return {window.text for window in self.probe.windows() if window.visible}

    def menu(self, window):
        return self.probe.menu(window)

    def wait_for(self, condition, what):
        """What the condition gives, once that is true; it takes no argument."""
        return wait_until(condition, lambda: f"{what}; there is:\n{self.describe()}")

    def wait_for_where(self, look, condition, what):
        """What `look` gives, which takes no argument, once the condition holds for it."""
        def seen():
            state = look()
            return state if condition(state) else None
        return self.wait_for(seen, what)

    def wait_for_window(self, title, class_name=DIALOG_CLASS):
        """The window with that title, once it is visible and both the program and the window
        manager have the keyboard lead there."""
        def window_in_foreground():
            window = self.find(class_name, title)
            ready = (window and window.in_foreground
                     and window.display_id == self.display.focused_window())
            return window if ready else None
        return self.wait_for(window_in_foreground, f"window {title!r} in the foreground")

    def wait_until_hidden(self, title, class_name=DIALOG_CLASS):
        self.wait_for(lambda: not self.find(class_name, title), f"the end of window {title!r}")

    def task_kill(self):
        """Asks the program to end, as `taskkill` does: all of its windows are closed."""
        subprocess.run([str(WINE_RUN), "taskkill", "/IM", IMAGE], env=self.environment,
                       check=True, timeout=SECONDS, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def wait_until_ended(self):
        """The exit status of the process that was started."""
        self.wait_for(lambda: self.process.poll() is not None, "the end of the program")
        return self.process.returncode

    def close(self):
        """Ends every process of the program, however far it got. A second call does nothing."""
        if self.is_closed:
            return
        self.is_closed = True
        for process in self.probe.processes():
            self.probe.end(process)
        stop(self.process)
        wait_until(lambda: not self.probe.processes(), "the end of all processes of the program")
        self.errors.close()
