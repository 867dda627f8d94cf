"""The installer installs, starts, upgrades and removes the program under Wine, without windows and
without asking.

TALLYMERE_PROGRAM names the program, whose build tree is packed, TALLYMERE_WINDOW_PROBE what tells
its windows. The Wine prefix is build/wine-packaging, which no other program uses, without a display.
"""

import json
import os
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parents[2]
sys.path += [str(ROOT / "packaging"), str(ROOT / "tests" / "support")]
import make_packages  # noqa: E402
from program_build import project_version  # noqa: E402

BUILD = Path(os.environ["TALLYMERE_PROGRAM"]).parent
PROBE = os.environ["TALLYMERE_WINDOW_PROBE"]
VERSION = project_version()
EPOCH = 1_700_000_000
WINE_RUN = ROOT / "cmake" / "wine-run"
PREFIX = ROOT / "build" / "wine-packaging"
SECONDS = 120  # the longest that anything is waited for
POLL_SECONDS = 0.05
# Exit statuses of the installer.
EXIT_PROGRAM_RUNS, EXIT_CANNOT_WRITE, EXIT_OLDER_VERSION_STAYS = 3, 4, 5
SYSTEM_DRIVE = PREFIX / "drive_c"
UNINSTALL_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tallymere"

ENVIRONMENT = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
ENVIRONMENT["WINEPREFIX"] = str(PREFIX)


def wine(*command):
    """Runs a Windows program to its end; exit status and what it printed. Into a file, since what it
    starts may live longer and would keep a pipe open."""
    with tempfile.TemporaryFile() as output:
        finished = subprocess.run(
            [WINE_RUN, *command], env=ENVIRONMENT, timeout=SECONDS, stdin=subprocess.DEVNULL,
            stdout=output, stderr=subprocess.DEVNULL, check=False)
        output.seek(0)
        return finished.returncode, output.read().decode("utf-8")


def wait_until(condition, what):
    """Asks until the condition gives a true value, and gives that."""
    end = time.monotonic() + SECONDS
    while not (value := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"waited {SECONDS} s for {what() if callable(what) else what}")
        time.sleep(POLL_SECONDS)
    return value


def unix_path(path):
    return SYSTEM_DRIVE / path.removeprefix("C:\\").replace("\\", "/")


def user_folder(name):
    return unix_path(wine("cmd", "/c", f"echo %{name}%")[1].strip())


def files_below(folder):
    """{path: bytes} of all files in a folder."""
    return {str(path.relative_to(folder)): path.read_bytes()
            for path in folder.rglob("*") if path.is_file()}


class Probe:
    """The helper that tells windows."""

    def __init__(self):
        self.process = subprocess.Popen(
            [WINE_RUN, PROBE], env=ENVIRONMENT, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL, text=True)
        # It answers once it and the server run.
        self.ask("processes", "tallymere.exe")

    def ask(self, command, argument):
        self.process.stdin.write(f"{command} {argument}\n")
        self.process.stdin.flush()
        return json.loads(self.process.stdout.readline())

    def visible_windows(self, image):
        return [window for window in self.ask("windows", image)["windows"] if window["visible"]]

    def end(self, image):
        """Ends each process of that file."""
        for process in self.ask("processes", image):
            self.ask("end", process)
        wait_until(lambda: not self.ask("processes", image), f"the end of {image}")

    def close(self):
        self.process.stdin.close()
        self.process.wait(SECONDS)
        self.process.stdout.close()


class InstallerTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.files = make_packages.program_files(BUILD)
        cls.setup = cls.folder / f"tallymere-{VERSION}-setup.exe"
        make_packages.write_installer(cls.setup, VERSION, cls.files, EPOCH)
        # A version before this one, with a page that is gone since.
        cls.old_files = {**cls.files, "tallymere.exe": b"an older program",
                         "HtmlBrowserHelpFiles/Tallymere/forgotten_en.html": b"an older page"}
        cls.old_setup = cls.folder / "tallymere-1.0-setup.exe"
        make_packages.write_installer(cls.old_setup, "1.0", cls.old_files, EPOCH)
        subprocess.run([WINE_RUN, "--prepare"], env=ENVIRONMENT, check=True)
        # As long as it runs, so does Wine's server, which is not started for each call.
        cls.probe = Probe()
        cls.addClassCleanup(cls.probe.close)
        cls.home = user_folder("LOCALAPPDATA") / "Programs" / "Tallymere"
        cls.settings = user_folder("APPDATA") / "Tallymere" / "UserSettings_3.8.ini"
        cls.shortcut = (user_folder("APPDATA")
                        / "Microsoft/Windows/Start Menu/Programs/Tallymere.lnk")

    def setUp(self):
        # Something may be left of a test that broke.
        place = self.entry().get("InstallLocation")
        if place:
            self.uninstall(unix_path(place))
        self.settings.parent.mkdir(exist_ok=True)
        self.settings.write_bytes(b"variables of years")

    def install(self, setup, *switches):
        return wine(setup, "/S", *switches)[0]

    def uninstall(self, home, *switches):
        """Removes the program. The uninstaller goes on from a copy of itself when it has ended, and
        removes itself last but for the folder."""
        wine(home / "uninstall.exe", "/S", *switches)
        wait_until(lambda: not (home / "uninstall.exe").exists(), "the end of the uninstaller")
        wait_until(lambda: not home.exists() or list(home.iterdir()), "the end of its folder")

    def entry(self):
        """What stands about the program in the list of installed programs: {name: value}."""
        _, answer = wine("reg", "query", UNINSTALL_KEY)
        found = [line.split(None, 2) for line in answer.splitlines() if " REG_" in line]
        return {words[0]: words[2].strip() for words in found if len(words) == 3}

    def assert_installed(self, home, files, version):
        found = files_below(home)
        self.assertGreater(len(found.pop("uninstall.exe")), 0)
        self.assertEqual(set(files), set(found))
        for name, data in files.items():
            self.assertTrue(data == found[name], name)
        entry = self.entry()
        self.assertEqual(version, entry["DisplayVersion"])
        self.assertEqual(home, unix_path(entry["InstallLocation"]))
        self.assertTrue(self.shortcut.is_file())

    def assert_nothing_left(self, home):
        self.assertFalse(home.exists())
        self.assertFalse(self.shortcut.exists())
        self.assertEqual({}, self.entry())

    def test_installs_what_the_zip_holds_and_removes_all_but_the_settings(self):
        self.assertEqual(0, self.install(self.setup))
        self.assert_installed(self.home, self.files, VERSION)
        self.uninstall(self.home)
        self.assert_nothing_left(self.home)
        self.assertEqual(b"variables of years", self.settings.read_bytes())

    def test_removes_the_settings_if_told_so(self):
        self.assertEqual(0, self.install(self.setup))
        self.uninstall(self.home, "/SETTINGS")
        self.assert_nothing_left(self.home)
        self.assertFalse(self.settings.parent.exists())

    def test_removes_only_files_of_its_own_with_the_settings(self):
        self.assertEqual(0, self.install(self.setup))
        folder = self.settings.parent
        for name in ("~tallymere.new", "UserSettings_3.8.ini.bad", "UserSettings_3.8.ini.bad2",
                     "UserSettings_3.8.ini.bad9", "UserSettings_3.8 of mine.ini"):
            (folder / name).write_bytes(b"")
        self.uninstall(self.home, "/SETTINGS")
        self.assertEqual({"UserSettings_3.8 of mine.ini"}, set(files_below(folder)))
        (folder / "UserSettings_3.8 of mine.ini").unlink()

    def test_an_older_version_that_cannot_be_removed_stays_as_it_is(self):
        self.assertEqual(0, self.install(self.old_setup))
        uninstaller = self.home / "uninstall.exe"
        whole = uninstaller.read_bytes()
        # Without it nothing could be removed after a failure here.
        self.addCleanup(lambda: uninstaller.exists() and uninstaller.write_bytes(whole))
        script = self.folder / "fails.nsi"
        script.write_text(f"Unicode true\nTarget amd64-unicode\nOutFile {uninstaller}\n"
                          "SilentInstall silent\nSection\nSetErrorLevel 7\nSectionEnd\n")
        for what, spoil in (
                ("fails", lambda: subprocess.run(["makensis", "-V1", script], check=True)),
                ("does not start", lambda: uninstaller.write_bytes(b"no program"))):
            with self.subTest(what):
                spoil()
                spoilt = uninstaller.read_bytes()
                self.assertEqual(EXIT_OLDER_VERSION_STAYS, self.install(self.setup))
                self.assert_installed(self.home, self.old_files, "1.0")
                self.assertEqual(spoilt, uninstaller.read_bytes())
        uninstaller.write_bytes(whole)
        self.uninstall(self.home)

    def test_tells_a_program_that_cannot_be_written_from_one_that_runs(self):
        self.assertEqual(0, self.install(self.setup))
        program = self.home / "tallymere.exe"
        kept = program.rename(self.home.parent / "kept.exe")
        # Nobody can write a folder as a file, whoever the user is.
        program.mkdir()
        try:
            self.assertEqual(EXIT_CANNOT_WRITE, self.install(self.setup))
        finally:
            program.rmdir()
            kept.rename(program)
        self.assert_installed(self.home, self.files, VERSION)
        self.uninstall(self.home)

    def test_an_upgrade_removes_what_is_gone_and_leaves_what_is_not_its_own(self):
        self.assertEqual(0, self.install(self.old_setup))
        self.assert_installed(self.home, self.old_files, "1.0")
        (self.home / "notes of the user.txt").write_text("mine", encoding="ascii")
        self.assertEqual(0, self.install(self.setup))
        self.assertEqual("mine", (self.home / "notes of the user.txt").read_text("ascii"))
        (self.home / "notes of the user.txt").rename(self.home.parent / "notes")
        self.assert_installed(self.home, self.files, VERSION)
        self.assertEqual(b"variables of years", self.settings.read_bytes())
        (self.home.parent / "notes").rename(self.home / "notes of the user.txt")
        self.uninstall(self.home)
        self.assertEqual({"notes of the user.txt"}, set(files_below(self.home)))
        (self.home / "notes of the user.txt").unlink()
        self.home.rmdir()

    def test_stays_where_it_is_and_moves_if_told_so(self):
        first, second = (SYSTEM_DRIVE / "Programs-of-mine" / name for name in ("First", "Second"))
        self.assertEqual(0, self.install(self.old_setup, r"/D=C:\Programs-of-mine\First"))
        self.assert_installed(first, self.old_files, "1.0")
        self.assertEqual(0, self.install(self.setup))
        self.assert_installed(first, self.files, VERSION)
        self.assertEqual(0, self.install(self.setup, r"/D=C:\Programs-of-mine\Second"))
        self.assertFalse(first.exists())
        self.assert_installed(second, self.files, VERSION)
        self.uninstall(second)
        self.assert_nothing_left(second)

    def test_starts_and_is_left_alone_while_it_runs(self):
        self.assertEqual(0, self.install(self.setup))
        self.addCleanup(self.probe.end, "tallymere.exe")
        program = subprocess.Popen([WINE_RUN, self.home / "tallymere.exe"], env=ENVIRONMENT,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        wait_until(lambda: self.probe.visible_windows("tallymere.exe"), "a window of the program")
        self.assertEqual(EXIT_PROGRAM_RUNS, self.install(self.setup))
        self.assertEqual(EXIT_PROGRAM_RUNS, self.install(self.old_setup))
        self.assert_installed(self.home, self.files, VERSION)
        wine(self.home / "uninstall.exe", "/S", f"_?={self.entry()['InstallLocation']}")
        self.assert_installed(self.home, self.files, VERSION)
        self.probe.end("tallymere.exe")
        program.wait(SECONDS)
        self.uninstall(self.home)
        self.assert_nothing_left(self.home)

    def test_speaks_the_language_of_the_user(self):
        for locale, button in (("C.UTF-8", "Cancel"), ("de_DE.UTF-8", "Abbrechen")):
            with self.subTest(locale=locale):
                setup = subprocess.Popen(
                    [WINE_RUN, self.setup], env={**ENVIRONMENT, "TALLYMERE_LOCALE": locale},
                    stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                    stderr=subprocess.DEVNULL)

                def texts():
                    windows = self.probe.visible_windows(self.setup.name)
                    return {control["text"] for window in windows
                            for control in window["children"]}
                try:
                    wait_until(lambda: button in texts(), lambda: f"{button} in {texts()}")
                finally:
                    self.probe.end(self.setup.name)
                    setup.wait(SECONDS)


if __name__ == "__main__":
    unittest.main()
