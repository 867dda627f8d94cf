"""A desktop of its own for each script that tests windows: a virtual display with a window manager,
and a Wine prefix that no other program uses. Here is also all that a hand does: keys, clicks.

Scripts may run side by side, as the keyboard of one display does not reach another.

Everything that is started here ends with it, and everything ends with the virtual display, which
the system stops should the tests be killed.
"""

import fcntl
import glob
import os
import shutil
import subprocess
import sys
import tempfile
import time
from contextlib import contextmanager
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
GUI_FOLDER = ROOT / "build" / "gui"
FOLDER = GUI_FOLDER / Path(sys.argv[0]).stem  # of the script that runs
SCREENSHOTS = ROOT / "build" / "screenshots"
WINE_RUN = ROOT / "cmake" / "wine-run"
WINDOW_MANAGER = ROOT / "tests" / "gui" / "openbox.xml"

SCREEN = "2560x1600x24"  # room for the largest window at 192 dots per inch
SECONDS = 60  # the longest that anything is waited for
POLL_SECONDS = 0.05


def wait_until(condition, what):
    """Asks until the condition gives a true value, and gives that; an AssertionError when out of
    time. `what` says what is waited for, as a text or as a function that makes one."""
    end = time.monotonic() + SECONDS
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"waited {SECONDS} s for {what() if callable(what) else what}")
        time.sleep(POLL_SECONDS)


def run(command, environment):
    return subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, check=True,
                          timeout=SECONDS, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True).stdout


def stop(process):
    """Ends a process that was started here, if it has not ended yet."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(SECONDS)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


def picture_path(name):
    SCREENSHOTS.mkdir(parents=True, exist_ok=True)
    return SCREENSHOTS / f"{name}.png"


def around(*places):
    """The smallest place that holds them all."""
    left, top = (min(place[side] for place in places) for side in (0, 1))
    right, bottom = (max(place[side] + place[side + 2] for place in places) for side in (0, 1))
    return left, top, right - left, bottom - top


class Pixels:
    """Those of a place of the screen as they were."""

    def __init__(self, rect, pixels):
        self.rect = rect
        self.pixels = pixels

    def colours(self, rect):
        """The colours in a part of it, told by its place on the screen: red, green, blue."""
        left, top, full_width, _ = self.rect
        x, y, width, height = rect
        found = set()
        for row in range(y - top, y - top + height):
            start = 3 * (row * full_width + x - left)
            line = self.pixels[start:start + 3 * width]
            found.update(zip(line[::3], line[1::3], line[2::3]))
        return found

    def part(self, rect):
        """The pixels of a part of it, told by its place on the screen, as they are compared."""
        left, top, full_width, _ = self.rect
        x, y, width, height = rect
        starts = [3 * (row * full_width + x - left) for row in range(y - top, y - top + height)]
        return [self.pixels[start:start + 3 * width] for start in starts]


class Display:
    """A virtual display with a window manager, and the hand at its keyboard and mouse."""

    def __init__(self):
        FOLDER.mkdir(parents=True, exist_ok=True)
        self.log = open(FOLDER / "display.log", "ab")
        with self._turn():
            # Without -noreset the server begins anew whenever its last client leaves, and refuses
            # the window manager if that comes just then. With -r a key that a busy machine releases
            # late does not repeat.
            self.server = subprocess.Popen(
                ["setpriv", "--pdeathsig", "TERM", "Xvfb", "-displayfd", "1", "-screen", "0",
                 SCREEN, "-wr", "-nolisten", "tcp", "-noreset", "-r"],
                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=self.log)
            number = self.server.stdout.readline().decode().strip()
        if not number:
            raise RuntimeError(f"Xvfb did not start, see {self.log.name}")
        self.name = f":{number}"
        self.environment = {**os.environ, "DISPLAY": self.name}
        self.manager = subprocess.Popen(
            ["openbox", "--sm-disable", "--config-file", str(WINDOW_MANAGER)],
            env=self.environment, stdin=subprocess.DEVNULL, stdout=self.log, stderr=self.log)
        wait_until(self._is_managed, "the window manager")

    @staticmethod
    @contextmanager
    def _turn():
        """One server at a time looks for a free number or ends: else they can take each other's
        socket."""
        turns = Path(tempfile.gettempdir()) / f"tallymere-displays-{os.getuid()}"
        with open(turns, "ab") as turn:
            fcntl.flock(turn, fcntl.LOCK_EX)
            yield

    def _is_managed(self):
        return subprocess.run(["xdotool", "get_desktop"], env=self.environment, check=False,
                              capture_output=True, timeout=SECONDS).returncode == 0

    def focused_window(self):
        """The window that the keyboard goes to, by its id on the display."""
        focus = run(["xdotool", "getwindowfocus", "-f"], self.environment)
        return int(focus)

    def press(self, *keys):
        """Presses keys one after the other, each with its modifiers: "Tab", "shift+Tab"."""
        run(["xdotool", "key", "--clearmodifiers", *keys], self.environment)

    def type_text(self, text):
        run(["xdotool", "type", "--clearmodifiers", "--", text], self.environment)

    def click(self, x, y):
        run(["xdotool", "mousemove", str(x), str(y), "click", "1"], self.environment)

    def click_all(self, places, milliseconds=100):
        """Clicks one place after the other, with a pause behind each click. On a busy machine the
        mouse may be further on than a click that the window manager looks at, if it is short."""
        clicks = [word for x, y in places for word in (
            "mousemove", str(x), str(y), "click", "--delay", str(milliseconds), "1")]
        run(["xdotool", *clicks], self.environment)

    def drag(self, start, end):
        """With the button held down, from one place to another, in two steps."""
        (x, y), (to_x, to_y) = start, end
        half = (x + to_x) // 2, (y + to_y) // 2
        steps = [word for to in (half, end) for word in ("mousemove", *map(str, to))]
        run(["xdotool", "mousemove", str(x), str(y), "mousedown", "1", *steps, "mouseup", "1"],
            self.environment)

    def click_twice(self, x, y):
        """As a hand does that is too quick: nothing waits for what the first click did."""
        run(["xdotool", "mousemove", str(x), str(y), "click", "--repeat", "2", "--delay", "30",
             "1"], self.environment)

    def move(self, window, x, y):
        """Moves a window, which may land a frame's width beside that place."""
        run(["xdotool", "windowmove", str(window.display_id), str(x), str(y)], self.environment)

    def resize(self, window, width, height):
        """Gives a window a client area of that many pixels."""
        run(["xdotool", "windowsize", str(window.display_id), str(width), str(height)],
            self.environment)

    def minimise(self, window):
        run(["xdotool", "windowminimize", str(window.display_id)], self.environment)

    def activate(self, window):
        """Brings a window to the front, a minimised one too, as a task bar would."""
        run(["xdotool", "windowactivate", str(window.display_id)], self.environment)

    def screenshot(self, name):
        """A picture of the screen, in build/screenshots/."""
        path = picture_path(name)
        run(["import", "-window", "root", str(path)], self.environment)
        return path

    def picture(self, name, window, drop_down=None):
        """A picture of a window with its frame and of what dropped down from it, without date."""
        path = picture_path(name)
        if drop_down:
            # They are windows of their own. The white of the screen around them goes.
            x, y, width, height = around(window.rect, drop_down.rect)
            run(["import", "-window", "root", str(path)], self.environment)
            run(["mogrify", "-crop", f"{width}x{height}+{x}+{y}", "+repage", "-bordercolor", "white",
                 "-border", "1", "-trim", "+repage", str(path)], self.environment)
        else:
            run(["import", "-frame", "-window", str(window.display_id), str(path)],
                self.environment)
        run(["mogrify", "-strip", "-define", "png:exclude-chunks=date,time", str(path)],
            self.environment)
        return path

    def pixels_of(self, rect):
        """What is seen now at a place of the screen."""
        x, y, width, height = rect
        pixels = subprocess.run(
            ["import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "+repage",
             "-depth", "8", "rgb:-"],
            env=self.environment, stdin=subprocess.DEVNULL, check=True, timeout=SECONDS,
            stdout=subprocess.PIPE, stderr=self.log).stdout
        return Pixels(rect, pixels)

    def close(self):
        stop(self.manager)
        with self._turn():
            stop(self.server)
        self.server.stdout.close()
        self.log.close()


def copy_prepared_prefix(folder):
    """Makes the folder a Wine prefix as if no program had run in it yet.

    The prefix that all scripts copy is made once. The system of Wine in it, some 700 MB that
    programs only read, is not copied but linked.
    """
    prepared = GUI_FOLDER / "prepared"
    environment = {**os.environ, "WINEPREFIX": str(prepared)}
    with open(GUI_FOLDER / "prepared.users", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        run([str(ROOT / "tools" / "prepare_desktop_prefix")], environment)
        # Only when its server has ended the registry is in the files.
        run(["wineserver", "-w"], environment)
    shutil.rmtree(folder, ignore_errors=True)
    system = prepared / "drive_c" / "windows"

    def copy(source, destination):
        if system in Path(source).parents:
            os.link(source, destination)
        else:
            shutil.copy2(source, destination)

    shutil.copytree(prepared, folder, symlinks=True, copy_function=copy)


class WinePrefix:
    """The Wine of this script; all that runs in it was started by it."""

    def __init__(self, display):
        FOLDER.mkdir(parents=True, exist_ok=True)
        self.folder = FOLDER / "prefix"
        # For a second run of the same script to wait.
        self.lock = open(FOLDER / "prefix.users", "w", encoding="ascii")
        fcntl.flock(self.lock, fcntl.LOCK_EX)
        copy_prepared_prefix(self.folder)
        self.environment = {**display.environment, "WINEPREFIX": str(self.folder)}
        self.dpi = None

    def environment_of(self, locale):
        return {**self.environment, "TALLYMERE_LOCALE": locale}

    def set_dpi(self, dpi):
        """Windows that are made from now on are on a screen of that many dots per inch."""
        if dpi != self.dpi:
            self.stop()
            run([str(WINE_RUN), "reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels",
                 "/t", "REG_DWORD", "/d", str(dpi), "/f"], self.environment)
            # The desktop of that command still has the dots of before.
            self.stop()
            self.dpi = dpi

    def stop(self):
        """Ends whatever runs in this prefix."""
        wine = {**self.environment, "WINEDEBUG": "-all"}
        subprocess.run(["wineserver", "-k"], env=wine, check=False, timeout=SECONDS,
                       capture_output=True)
        subprocess.run(["wineserver", "-w"], env=wine, check=True, timeout=SECONDS)

    def settings_folder(self):
        """Where the program keeps its settings; there is one user in a prefix."""
        roaming, = glob.glob(f"{self.folder}/drive_c/users/*/AppData/Roaming")
        return Path(roaming) / "Tallymere"

    def forget_settings(self):
        shutil.rmtree(self.settings_folder(), ignore_errors=True)

    def close(self):
        self.stop()
        self.lock.close()
