"""What tests of tallymere-console share: starting it, its messages, and numbers as it shows them.

TALLYMERE_CONSOLE names the program, TALLYMERE_LAUNCHER what starts it where it cannot start itself.
TALLYMERE_SEED replaces the seed of random formulas.
"""

import os
import re
import select
import signal
import subprocess
import sys
import unittest
from decimal import ROUND_HALF_UP, Context, Decimal

CONSOLE = [part for part in (os.environ.get("TALLYMERE_LAUNCHER"),
                             os.environ["TALLYMERE_CONSOLE"]) if part]
NATIVE = len(CONSOLE) == 1
SECONDS = 120
SEED = int(os.environ.get("TALLYMERE_SEED", "20240229"))

MESSAGES = {
    "en": {
        1000: 'Invalid input "{}" !',
        1001: "Error in mathematical calculation!",
        1003: "The text entered is too long!",
        10200: "Syntax error at character position {}!",
        10201: "The left parenthesis is missing for the right parenthesis at character position "
               "{}!",
        10202: "Unexpected end of formula!",
        10203: "Overflow at character position {}!",
        10204: "Formula is to complicated because to many parentheses are nested!",
        10206: "The number of parameters of the function at character position {} is wrong!",
        10207: "The function or number at character position {} requires a complex number type!",
        10208: "The number at character position {} has an invalid format or is out of range!",
        10209: "The function at character position {} is not available for the set number type!",
        10210: "Calculation was aborted by the user.",
        10211: "The variable or function at character position {} is not defined!",
        10212: "The variable at character position {} could not evaluated!",
    },
    "de": {
        1000: 'Ungültige Eingabe "{}" !',
        1001: "Fehler bei mathematischer Berechnung!",
        10200: "Syntaxfehler bei Zeichenposition {}!",
        10201: "Die öffnende Klammer für die schließende Klammer bei Zeichenposition {} fehlt!",
        10202: "Unerwartetes Formelende!",
        10203: "Überlauf bei Zeichenposition {}!",
        10204: "Formel ist zu kompliziert, da zu viele Klammern ineinander geschachtelt sind!",
        10206: "Die Anzahl der Parameter der Funktion bei Zeichenposition {} ist falsch!",
        10207: "Die Funktion oder Zahl bei Zeichenposition {} erfordert einen komplexen "
               "Zahlentyp!",
        10208: "Die Zahl bei Zeichenposition {} hat ein ungültiges Format oder ist außerhalb des "
               "zulässigen Bereichs!",
        10209: "Die Funktion bei Zeichenposition {} ist für den eingestellten Zahlentyp nicht "
               "verfügbar!",
        10211: "Die Variable oder Funktion bei Zeichenposition {} ist nicht definiert!",
        10212: "Die Variable bei Zeichenposition {} konnte nicht ausgewertet werden!",
    },
}
TOO_LONG = {"en": "<Number is too long for fixed-point notation>",
            "de": "<Zahl ist zu lang für die Festkomma-Notation>"}


# Of the last run.
last_errors = ""


class FailureWithErrors(AssertionError):
    """A failure that shows what the last run wrote on standard error."""

    def __init__(self, *parts):
        super().__init__(*parts)
        self.errors = last_errors

    def __str__(self):
        return f"{super().__str__()}\nstandard error of the last run: {self.errors!r}"


def error_line(code, position, language="en", argument=None):
    message = MESSAGES[language][code].format(position if argument is None else argument)
    return f"error {code} {position}: {message}"


def emulator_failed(output, errors, status):
    """True where an emulator did not get as far as the console, by what a run of it wrote.

    A server of Wine that ends takes the programs along that start just then. Most of them end with
    1 and nothing written, some with "wine client error:0: recvmsg: Connection reset by peer". The
    console never ends with 1 or 2 in silence. What an emulator tells of a crash is a failure of the
    console.
    """
    if re.search(rb"^wine: Unhandled ", errors, re.MULTILINE):
        return False
    if not output and not errors:
        return status in (1, 2)
    return bool(re.search(rb"^wine(server|-run| client error)?:", errors, re.MULTILINE))


def run_once(arguments, text):
    return subprocess.run(CONSOLE + list(arguments), input=text, timeout=SECONDS, check=False,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)


def run(arguments=(), text=b""):
    """(lines of standard output, standard error, exit status).

    Where an emulator failed to start the console, it is started once more.
    """
    global last_errors
    done = run_once(arguments, text)
    if not NATIVE and emulator_failed(done.stdout, done.stderr, done.returncode):
        print(f"started {list(arguments)} once more, since {CONSOLE[0]} failed with status "
              f"{done.returncode}: {done.stderr!r}", file=sys.stderr, flush=True)
        done = run_once(arguments, text)
    output = done.stdout.decode("utf-8")
    last_errors = done.stderr.decode("utf-8")
    lines = output.split("\n")
    if lines.pop() != "":
        raise FailureWithErrors(f"the output does not end in a line feed: {output!r}")
    return lines, last_errors, done.returncode


def start(arguments=()):
    return subprocess.Popen(CONSOLE + list(arguments), stdin=subprocess.PIPE,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE)


def read_until(reader, text):
    """What comes from a file descriptor up to a text and a little behind it."""
    found = b""
    while text not in found:
        if not select.select([reader], [], [], SECONDS)[0]:
            raise AssertionError(f"{text!r} does not come behind {found!r}")
        found += os.read(reader, 4096)
    return found


def check_stop(case, arguments, progress):
    """Presses Ctrl+C once a console at a terminal shows this progress: it writes no answer and ends
    as programs do that Ctrl+C ends."""
    reader, terminal = os.openpty()
    with subprocess.Popen([*CONSOLE, *arguments], stdout=subprocess.PIPE,
                          stderr=terminal) as process:
        os.close(terminal)
        read_until(reader, progress)
        process.send_signal(signal.SIGINT)
        case.assertEqual(b"", process.stdout.read())
        case.assertEqual(130, process.wait(SECONDS))
        os.close(reader)


def keep_console_waiting():
    """Keeps one console waiting where the launcher is an emulator.

    Its helper processes then start once and not for every run, and what they have to complain of
    goes to this console's standard error.
    """
    if not NATIVE:
        keeper = subprocess.Popen(CONSOLE, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL)
        keeper.stdin.write(b"1\n")
        keeper.stdin.flush()
        keeper.stdout.readline()
        unittest.addModuleCleanup(keeper.communicate)


def shown(value, digits, high=None):
    """A Decimal as the calculator shows it in automatic notation, after rounding to `digits`.

    Exponents of `high`, or without it `digits`, and more are written as such.
    """
    value = Context(prec=digits, rounding=ROUND_HALF_UP).plus(value)
    if value == 0:
        return "0"
    exponent = value.adjusted()
    mantissa = "".join(map(str, value.as_tuple().digits)).rstrip("0")
    sign = "-" if value < 0 else ""
    if exponent <= -4 or exponent >= (digits if high is None else high):
        fraction = "." + mantissa[1:] if len(mantissa) > 1 else ""
        return f"{sign}{mantissa[0]}{fraction}e{exponent:+d}"
    if exponent < 0:
        return f"{sign}0.{'0' * (-exponent - 1)}{mantissa}"
    whole = mantissa[:exponent + 1].ljust(exponent + 1, "0")
    fraction = "." + mantissa[exponent + 1:] if len(mantissa) > exponent + 1 else ""
    return f"{sign}{whole}{fraction}"


class ConsoleCase(unittest.TestCase):
    maxDiff = 2000
    failureException = FailureWithErrors

    def check(self, arguments, text, expected, status=0):
        """Runs with a text on standard input; the answers, nothing on standard error, the status."""
        lines, errors, code = run(arguments, text if isinstance(text, bytes) else text.encode())
        self.assertEqual(expected, lines)
        self.assertEqual("", errors)
        self.assertEqual(status, code)
