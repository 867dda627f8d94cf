"""Runs the programs of bench/windows that measure windows."""

import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "gui"))
from desktop import WINE_RUN, Display, WinePrefix  # noqa: E402
from user_settings import file_bytes, settings_text  # noqa: E402


def times_of(timer, rounds, arguments=(), warm_up=True):
    """The rounds of milliseconds that a timer prints on a display and in a Wine prefix of its own.
    One more that comes first and warms up is left out. Its arguments are the rounds and what is
    given here."""
    left_out = 1 if warm_up else 0
    display = Display()
    try:
        prefix = WinePrefix(display)
        try:
            # Those of somebody who has met About before.
            prefix.settings_folder().mkdir(parents=True, exist_ok=True)
            (prefix.settings_folder() / "UserSettings_3.8.ini").write_bytes(
                file_bytes(settings_text()))
            output = subprocess.run(
                [str(WINE_RUN), str(timer), str(rounds + left_out), *arguments],
                env=prefix.environment, check=True, stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE, text=True).stdout
        finally:
            prefix.close()
    finally:
        display.close()
    return [[float(time) for time in line.split()] for line in output.splitlines()][left_out:]
