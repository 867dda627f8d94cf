"""The corpus of tools/compare_answers: over 20,000 formulas in the types real, cplx, uint and rat.

A generator with a fixed seed of its own makes them, so they are the same in every run and on every
machine. Some are written down: edges of functions, operands, odd numbers, errors. The rest are
random.

The functions, operators and constants are listed here again, on purpose: what the corpus asks must
not follow a slip in the program. What the tables of src/formula/ have beyond these lists is asked
too, with general operands, so something new needs no row here. A row is for operands that suit it.

A run is what one console is asked, line by line, with one set of options. Runs of the type rat are
short, because one result that is no fraction makes the rest of a run real. The corpus leaves out
what takes a console long, such as binomial coefficients of huge numbers.
"""

import re
from dataclasses import dataclass
from itertools import product
from pathlib import Path

FORMULA_ROOM = Path(__file__).resolve().parents[1] / "src" / "formula"
SEED = 20231105

TYPES = ("real", "cplx", "uint", "rat")
DIGITS = (1, 2, 10, 16, 19, 20, 57, 100, 1000)
RANDOM_LINES = 240  # under each of the settings
LINES_PER_RUN = {"real": 120, "cplx": 120, "uint": 120, "rat": 4}

# What each argument of a function mostly is; the kinds are those of Formulas.argument.
FUNCTIONS = {
    "sqrt": ["positive"], "cbrt": ["any"], "ln": ["positive"], "log2": ["positive"],
    "log10": ["positive"], "exp": ["small"], "abs": ["any"],
    "sin": ["any"], "cos": ["any"], "tan": ["any"],
    "asin": ["unit"], "acos": ["unit"], "atan": ["any"],
    "sind": ["any"], "cosd": ["any"], "tand": ["any"],
    "asind": ["unit"], "acosd": ["unit"], "atand": ["any"],
    "sing": ["any"], "cosg": ["any"], "tang": ["any"],
    "asing": ["unit"], "acosg": ["unit"], "atang": ["any"],
    "sinh": ["small"], "cosh": ["small"], "tanh": ["small"],
    "asinh": ["any"], "acosh": ["positive"], "atanh": ["unit"],
    "fact": ["count"], "root": ["degree", "positive"],
    "sqrtc": ["any", "branch"], "cbrtc": ["any", "branch"], "rootc": ["degree", "any", "branch"],
    "arg": ["any"], "argd": ["any"], "argg": ["any"], "realp": ["any"], "imagp": ["any"],
    "trunc": ["any"], "frac": ["any"], "round": ["any"],
    "ncr": ["count", "count"], "npr": ["count", "count"], "logx": ["count", "positive"],
    "gcd": ["count", "count"], "lcm": ["count", "count"], "powmod": ["any", "any", "any"],
}
# What a type does not have is asked rarely.
COMPLEX_FUNCTIONS = ("sqrtc", "cbrtc", "rootc", "arg", "argd", "argg", "realp", "imagp")
EXACT_FUNCTIONS = ("sqrt", "cbrt", "log2", "log10", "abs", "fact", "root", "trunc", "round", "ncr",
                   "npr", "logx", "gcd", "lcm", "powmod")
OFTEN = {
    "real": [name for name in FUNCTIONS if name not in (*COMPLEX_FUNCTIONS, "powmod")],
    "cplx": [name for name in FUNCTIONS if name != "powmod"] + 3 * [*COMPLEX_FUNCTIONS, "abs"],
    "uint": EXACT_FUNCTIONS,
    "rat": [*EXACT_FUNCTIONS[:-1], "frac"],
}
OPERATORS = ("+", "-", "*", "/", "^", "mod")
CONSTANTS = ("pi", "\u03c0")

# One argument that a function meets at the edges of its domain, its branches and its special cases.
EDGES = {
    "real": ["0", "-0", "1", "-1", "2", "10", "0.5", "-0.5", "0.1", "1/3", "2.5", "-2.5", "7", "45",
             "90", "-180", "200", "pi/2", "pi/6", "1000*pi", "1e10", "1e20", "-1e20", "1e-30",
             "1e400", "1.05", "1.0833", "13/12", "1.09", "1.0999", "1.1", "69", "70", "106",
             "0.999999999999", "-0.04", "0.05", "123456.789", "64", "-64", "1e9", "1/0"],
    "cplx": ["0", "1", "-1", "i", "-i", "3+4i", "-3+4i", "-3-4i", "3-4i", "0.5", "2.5-2.5i",
             "1e20i", "1e-20+i", "2", "10", "(1+i)^2", "90", "pi", "-4", "1/3", "1.09", "64i", "7"],
    "uint": ["0", "1", "2", "7", "9", "10", "16", "27", "64", "100", "1000", "2^32", "2^63",
             "2^64-1", "2^64", "10^19", "10^20", "3^40", "2^1000", "10^400", "0xFF", "0y1011",
             "0t17", "2-3"],
    "rat": ["0", "1", "-1", "2", "-2", "7", "10", "1/2", "-1/2", "5/2", "-5/2", "7/3", "1/3", "4/9",
            "8/27", "-8/27", "1/8", "1/1000", "2^64", "-(2^70)", "3^40/2^64", "10^400", "5/4"],
}
# Operands of which every pair is tried with every operator.
OPERANDS = {
    "real": ["0", "1", "2", "(-3)", "10", "7.5", "0.25", "(1/3)", "1e30", "(-1e-30)",
             "18446744073709551616", "(-0.5)", "1e300"],
    "cplx": ["0", "1", "2", "i", "(-3)", "10", "(3+4i)", "(0.5-2i)", "(-0.5)", "(1/3)", "1e20i",
             "(2+0*i)", "64"],
    "uint": ["0", "1", "2", "3", "10", "64", "255", "18446744073709551615", "18446744073709551616",
             "(2^63)", "(10^30)", "(3^100)", "(2^2000)"],
    "rat": ["0", "1", "2", "(-3)", "10", "(1/2)", "(-1/3)", "(7/4)", "(4/9)", "(2^64)", "(-(2^70))",
            "(1/10^20)", "64"],
}
NUMBERS = [
    "0", "00", "007", "5", "5.", "5.0", "5.50", "0.5", ".5", "1.2.3", "1..2",
    "12345678901234567890", "0.00000000000000000001", "0.0001", "0.00001", "1234567890.5",
    "9999999999.5", "99999999995", "1e5", "1E5", "1e+5", "1e-5", "1E-05", "1e", "2e", "1e+",
    "1e2e3", "1e2.5", "1.5e3", "5.e3", "1e400", "1e-400", "1e99999", "1e-99999", "1e999999999",
    "1e9999999999999999999", "1e-9999999999999999999", "0e5", "0e99999999999999999999",
    "1'000", "1'000'000.5", "12'34", "1''000", "1'", "1'.5", "1.000'000", "1,5", "1,000", "1 000",
    "1\u202f000", "0x1F", "0X1f", "0xffffFFFFffffFFFF1", "0x", "0xG", "0x1.8", "0x1e5", "0x1'F",
    "0y101", "0Y1'01", "0y102", "0y", "0y2", "0t17", "0T17", "0t18", "0t", "0t9", "0x0", "00x1",
    "0b1", "0o7", "i", "3i", "i3", "0i", "1.5i", "1e3i", "(1+2)i", "(1+i)i", "2+i", "ii", "i i",
    "3 i", "i*i", "-i", "pi", "\u03c0", "2pi", "pii", "pi i", "e", "E", "e5", "PI", "\u03b1",
    "\u03a9", "\u00e9", "x2", "1" * 60, "1" * 19 + "." + "9" * 45, "123456789" * 40,
    "0." + "0" * 30 + "123456789" * 12,
]
# Texts that are no formula, or one only just.
BROKEN = [
    "", " ", "   ", "\t", "1+", "+", "-", "*", "1+*2", "2*-3", "2^-1", "2--1", "--1", "+-1", "(-1)",
    "(+1)", "((-1))", "-(-1)", "2(3)", "(1)(2)", "2 sin(1)", "sin 1", "sin", "sin(", "sin()",
    "sqrt(;1)", "root(2;)", "root(;)", "root(2;;3)", "(1;2)", "1;2", ";", ";1", "()", "(", ")",
    "1)", "(1", "((1)", "(1))", "abs(-(2+3", "1+2)", "root((2;3))", "root(2;(3;4))", "sin(1;2)",
    "abs(1;2;3;4)", "root(1;2;3;4;5)", "SIN(1)", "Sin(1)", "sin (1)", "s in(1)", "mod", "5 mod",
    "mod 5", "5mod3", "5 mod3", "5 Mod 3", "mod(5;3)", "1/0", "1/0+2", "2+1/0*3", "0/0", "0^0",
    "0^(0-1)", "x", "x+1", "y(2)", "x y", "x2x", "_", "_a", "undefined+1/0", "1+undefined", "bad",
    "1+bad*2", "bad+undefined", "twice", "ans", "ans+1", "ans*ans", "ANS", "1/ans", "\u03b1*2",
    "fact(0.5)", "fact(0-1)", "fact(1e30)", "ln(0)", "ln(0-1)", "sqrt(0-4)", "tand(90)",
    "1+tan(pi/2)*2", "1+tand(90)*2", "asin(2)", "gcd(0;5)", "lcm(5;0)", "gcd(1.5;3)",
    "acosh(1.09)", "atanh(1)", "log2(0)", "logx(1;5)", "root(0;5)",
    "exp(1e30)", "powmod(2;3;5)", "powmod(2;3;0)", "powmod(2;3)", "arg(1)", "1+realp(3)",
    "rootc(2;4;0)", "sqrtc(4;2)", "sqrtc(4;0.5)", "round(5/2)", "2*round(3)", "round(5)",
    "1+2*round(7)+round(9)", "frac(7)", "frac(5)+1", "4^(1/2)", "1^(1/2)", "3^(1/8)", "8^(1/3)",
    "(0-8)^(1/3)", "1 = 1", "5!", "50%", "1,2", "1:2", "a&b", "\"1\"", "'", "'1", "#", "\u20ac",
    "\U0001d7d9", "\ufeff1", "1\u00a02", "\u22121", "1\u00d72", "\u221a4", "2\u00b2", "1\r",
    "1\v2", "\\", "$x", "?", "[1]", "{1}", "1<2", "|1|", "~1", "`",
]
# Bytes that are no text.
BROKEN_BYTES = [b"\xff", b"1+\x80", b"1\x002", b"\xc3", b"\xe2\x82", b"\xed\xa0\x80",
                b"\xf4\x90\x80\x80", b"\xc0\xb1", b"sin(\xfe1)", b"1+2\x00"]
LONGEST_LINE = 16 << 20
VARIABLES = ("x=2", "\u03b1=1/4", "twice=2*x", "big_1=10^30", "_n=3", "bad=1/0", "ix=7")
VARIABLE_NAMES = ("x", "\u03b1", "big_1", "_n", "ix")
JUNK = [*"()+-*/^;.,' 0123456789eix!%&_#\"\t", "mod", "pi", "e+", "0x", "\u03c0", "\u00e4", "sin(",
        ")("]
# Options about texts go from run to run in turn.
TEXT_OPTIONS = (
    (), ("--group",), ("--decimal", "comma"), ("--language", "de"),
    ("--decimal", "comma", "--thousands", "point", "--group"), ("--thousands", "comma", "--group"),
    ("--thousands", "narrow-space", "--group", "--language", "de"),
)
GROUP_SEPARATORS = {"point": ".", "comma": ",", "narrow-space": "\u202f", "apostrophe": "'"}


class Random:
    """Random numbers that no version of Python changes: the sequence SplitMix64."""

    MASK = (1 << 64) - 1

    def __init__(self, seed):
        self.state = seed

    def below(self, limit):
        self.state = (self.state + 0x9E3779B97F4A7C15) & self.MASK
        bits = self.state
        bits = ((bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9) & self.MASK
        bits = ((bits ^ (bits >> 27)) * 0x94D049BB133111EB) & self.MASK
        return (bits ^ (bits >> 31)) % limit

    def between(self, low, high):
        return low + self.below(high - low + 1)

    def pick(self, items):
        return items[self.below(len(items))]

    def chance(self, percent):
        return self.below(100) < percent

    def digits(self, count):
        return "".join(str(self.below(10)) for _ in range(count))


class Formulas:
    """Random formulas of one number type."""

    def __init__(self, random, number_type):
        self.random = random
        self.type = number_type

    def whole(self):
        """A number without a fraction; few are long."""
        kind = self.random.below(10)
        if kind < 5:
            return str(self.random.below(20))
        if kind < 8:
            return str(self.random.below(100_000))
        return str(self.random.between(1, 9)) + self.random.digits(self.random.between(1, 45))

    def number(self):
        random = self.random
        if self.type == "uint" and random.chance(15):
            value = random.below(1 << random.between(1, 70))
            return random.pick([f"0x{value:X}", f"0x{value:x}", f"0y{value:b}", f"0t{value:o}"])
        if self.type in ("uint", "rat") or random.chance(45):
            return self.whole()
        text = str(random.below(1000)) if random.chance(80) else self.whole()
        if random.chance(80):
            text += "." + random.digits(random.between(1, 30 if random.chance(10) else 6))
        if random.chance(15):
            text += random.pick(["e", "E"]) + random.pick(["", "+", "-"]) + str(random.below(40))
        if self.type == "cplx" and random.chance(35):
            text += "i"
        return text

    def small(self):
        """A number of few digits, as an argument that must not grow."""
        if self.type in ("uint", "rat") or self.random.chance(50):
            return str(self.random.below(30))
        return f"{self.random.below(30)}.{self.random.digits(2)}"

    def tame(self):
        """Small numbers with operators and no parentheses: what precedence is seen from."""
        text = self.small()
        for _ in range(self.random.between(1, 4)):
            operator = self.random.pick(OPERATORS)
            operand = str(self.random.below(5)) if operator == "^" else self.small()
            text += f" {operator} " if operator == "mod" else operator
            text += operand
        return text

    def argument(self, kind, depth):
        random = self.random
        if random.chance(6) and kind != "count":
            return self.expression(depth)
        if kind == "unit":
            if self.type in ("uint", "rat"):
                return random.pick(["0", "1", "1/2", "3/4"])
            return random.pick(["", "-"]) + "0." + random.digits(random.between(1, 8))
        if kind == "small":
            return random.pick(["", "", "-"]) + self.small()
        if kind == "positive":
            if random.chance(40):
                return random.pick(["4", "8", "9", "16", "27", "32", "64", "81", "100", "1000"])
            return self.number() if random.chance(60) else f"abs({self.expression(depth)})"
        if kind == "count":
            if random.chance(8):
                return random.pick(["-3", "2.5", "1/2", "-1/3", "i", "0", "x", "2+3*4"])
            return str(random.below(60) if random.chance(90) else random.below(1500))
        if kind == "degree":
            return random.pick(["2", "3", "4", "5", "7", "12", "-2", "1", "0", "1/2", "2.5"])
        if kind == "branch":
            return random.pick(["0", "0", "1", "1", "2", "3", "-1", "0.5"])
        return self.expression(depth)

    def call(self, name, depth):
        kinds = FUNCTIONS[name]
        semicolon = self.random.pick([";", ";", "; "])
        return f"{name}({semicolon.join(self.argument(kind, depth) for kind in kinds)})"

    def leaf(self):
        random = self.random
        kind = random.below(20)
        if kind < 14:
            return self.number()
        if kind < 16:
            return random.pick(VARIABLE_NAMES)
        if kind < 17:
            return "ans"
        if self.type in ("uint", "rat"):
            return self.whole()
        return "i" if self.type == "cplx" and kind == 17 else random.pick(CONSTANTS)

    def expression(self, depth):
        random = self.random
        if depth <= 0 or random.chance(12):
            return self.leaf()
        kind = random.below(20)
        if kind < 7:
            names = OFTEN[self.type] if random.chance(95) else list(FUNCTIONS)
            return self.call(random.pick(names), depth - 1)
        if kind < 9:
            return f"({self.tame()})" if random.chance(70) else self.tame()
        if kind < 10:
            return f"({random.pick(['-', '-', '+'])}{self.expression(depth - 1)})"
        operator = random.pick(["+", "-", "*", "/", "^", "+", "-", "*", "/"])
        left = self.expression(depth - 1)
        right = self.expression(depth - 1) if operator != "^" or random.chance(30) else \
            random.pick(["2", "3", "(-2)", "(1/2)", "10", "0.5", "2^2", "0"])
        if random.chance(60):
            left = f"({left})" if operator in "*/^" else left
            right = f"({right})" if operator in "-*/" else right
        space = " " if random.chance(20) else ""
        return left + space + operator + space + right

    def broken(self):
        """A formula with a slip of the keyboard in it."""
        random = self.random
        text = list(self.expression(random.between(1, 3)))
        for _ in range(random.between(1, 2)):
            at = random.below(len(text) + 1)
            slip = random.below(4)
            if slip == 0:
                text.insert(at, random.pick(JUNK))
            elif slip == 1 and at < len(text):
                del text[at]
            elif slip == 2 and at < len(text):
                text[at] = random.pick(JUNK)
            elif slip == 3:
                del text[at:]
        return "".join(text)

    def line(self):
        kind = self.random.below(100)
        if kind < 12:
            return self.broken()
        if kind < 18:
            return f"ans{self.random.pick(OPERATORS[:4])}{self.small()}"
        if kind < 24:
            return self.tame()
        if kind < 28:
            return f"-{self.expression(2)}"
        return self.expression(self.random.between(1, 4))


@dataclass(frozen=True)
class Run:
    name: str
    options: tuple  # arguments of the console
    lines: tuple  # of bytes, one formula each


def option_value(options, name, otherwise):
    return options[options.index(name) + 1] if name in options else otherwise


def with_separators(formula, options):
    """A formula in the separators of a run, from `.` and `'`."""
    marks = {".": {"comma": ",", "point": "."}[option_value(options, "--decimal", "point")],
             "'": GROUP_SEPARATORS[option_value(options, "--thousands", "apostrophe")]}
    return "".join(marks.get(character, character) for character in formula)


def variables_for(number_type):
    return tuple(part for variable in VARIABLES for part in ("--var", variable)
                 if number_type != "uint" or variable != "\u03b1=1/4")


def runs_of(name, number_type, options, formulas):
    """Formulas as runs of the length that their type allows."""
    options = ("--type", number_type, *options)
    lines = [formula if isinstance(formula, bytes) else with_separators(formula, options).encode()
             for formula in formulas]
    length = LINES_PER_RUN[number_type]
    for start in range(0, len(lines), length):
        yield Run(name, options, tuple(lines[start:start + length]))


def function_runs(number_type):
    """Every function of every edge, and with every number of arguments."""
    one = [name for name, kinds in FUNCTIONS.items() if len(kinds) == 1]
    two = [name for name, kinds in FUNCTIONS.items() if len(kinds) == 2]
    three = [name for name, kinds in FUNCTIONS.items() if len(kinds) == 3]
    edges = EDGES[number_type]
    formulas = [f"{name}({edge})" for name, edge in product(one, edges)]
    few = edges[:14]
    # The first argument of a count is small, see above.
    seconds = {"ncr": ["0", "1", "2", "5", "20", "30"], "npr": ["0", "1", "2", "5", "20", "30"]}
    for name in two:
        formulas += [f"{name}({first};{second})"
                     for first, second in product(few[:11], seconds.get(name, few[:11]))]
    for name in three:
        formulas += [f"{name}({first};{second};{third})"
                     for first, second, third in product(few[2:6], few[2:8], few[:5])]
    yield from runs_of("functions", number_type, (), formulas)
    if number_type == "real":
        for digits in ("1", "20", "57"):
            yield from runs_of("functions", number_type, ("--digits", digits),
                               [f"{name}({edge})" for name, edge in product(one, edges[::2])])
    formulas = [f"1+{name}({';'.join('1' * count)})*2"
                for name, count in product(FUNCTIONS, range(5))]
    yield from runs_of("argument counts", number_type, (), formulas)


def operator_runs(number_type):
    """Every operator between every two operands, and every two operators in one formula."""
    formulas = [f"{left} {operator} {right}"
                for operator, left, right in product(OPERATORS, *[OPERANDS[number_type]] * 2)]
    formulas += [f"{sign}7 {one} 3 {other} 2"
                 for sign, one, other in product(("", "-", "+"), OPERATORS, OPERATORS)]
    formulas += [f"2 {one} ({sign}3 {other} 2)"
                 for sign, one, other in product(("", "-"), OPERATORS, OPERATORS)]
    yield from runs_of("operators", number_type, (), formulas)


def table_rows(file, pattern):
    return re.findall(pattern, (FORMULA_ROOM / file).read_text(encoding="utf-8"))


def functions_without_row():
    """{name: number of its arguments} of the functions of the program that FUNCTIONS lacks."""
    rows = table_rows("function_table.cpp", r'\{Id::\w+, u"(\w+)", u"([^"]+)"')
    return {name: parameters.count(";") + 1 for name, parameters in rows if name not in FUNCTIONS}


def operators_without_row():
    """The operators of the program that OPERATORS lacks."""
    rows = table_rows("operator_table.cpp", r'\{Id::\w+, u"([^"]+)"')
    return [spelling for spelling in rows if spelling not in OPERATORS]


def general_runs(number_type):
    """Calls of the functions and uses of the operators that have no row here."""
    edges, operands = EDGES[number_type], OPERANDS[number_type]
    formulas = []
    for name, count in functions_without_row().items():
        chosen = edges if count == 1 else edges[:11] if count == 2 else edges[:6]
        formulas += [f"{name}({';'.join(arguments)})"
                     for arguments in product(chosen, repeat=count)]
        formulas += [f"1+{name}({';'.join('1' * given)})*2" for given in range(5)]
    for operator in operators_without_row():
        formulas += [f"{left} {operator} {right}" for left, right in product(operands, operands)]
        formulas += [f"7 {one} 3 {other} 2" for other in OPERATORS
                     for one, other in ((operator, other), (other, operator))]
        formulas += [f"-7 {operator} 3 {operator} 2", f"2{operator}3", f"2 {operator}",
                     f"{operator} 2"]
    for options in ((), ("--digits", "1"), ("--digits", "57")):
        yield from runs_of("general", number_type, options, formulas)


def number_runs(number_type):
    for options in ((), ("--group",), ("--decimal", "comma"),
                    ("--decimal", "comma", "--thousands", "point", "--group"),
                    ("--digits", "1"), ("--digits", "20", "--form", "fixed"),
                    ("--digits", "100", "--form", "scientific", "--thousands", "narrow-space",
                     "--group")):
        yield from runs_of("numbers", number_type, options, NUMBERS)
        yield from runs_of("numbers", number_type, options,
                           [f"2*{text}-1" for text in NUMBERS[::3]])


def nesting_runs(number_type):
    formulas = ["(" * count + "1" + ")" * count for count in (1, 10, 47, 48, 49, 50, 51, 200)]
    formulas += ["-(" * count + "1" for count in (1, 8, 16, 24, 25, 26, 50)]
    for name in ("abs", "trunc", "sqrt"):
        formulas += [f"{name}(" * count + "1" for count in (2, 22, 23, 24, 25, 26)]
    formulas += ["gcd(6;" * count + "4" for count in (2, 10, 12, 13, 14, 20)]
    formulas += ["1+(2*" * count + "3" for count in (2, 12, 16, 17, 18, 30)]
    formulas += ["2^" * count + "1" for count in (2, 5)]
    formulas += ["1^" * count + "1" for count in (23, 24, 25)]
    formulas += ["+".join("1" * count) for count in (2, 50, 51, 400)]
    formulas += ["*".join(["(1+x)"] * count) for count in (2, 60)]
    yield from runs_of("nesting", number_type, variables_for(number_type), formulas)


def error_runs(number_type):
    """What fails, in both languages, and bytes that are no text."""
    for options in ((), ("--language", "de"), ("--decimal", "comma", "--digits", "57")):
        yield from runs_of("errors", number_type, (*options, *variables_for(number_type)),
                           [*BROKEN, *BROKEN_BYTES])
    # Their results are what stood in a place of the stack before, or 0.
    yield from runs_of("errors", number_type, (), ["round(3)", "2*round(3)", "1+2*round(3)",
                                                   "7-round(2*3)", "(5+6)*round(1)", "frac(7/2)"])


def random_settings(number_type):
    """Digits, notations and bases, the options about texts in turn."""
    if number_type == "uint":
        settings = [("--base", base, *lower)
                    for base, lower in product(("2", "8", "10", "16"), ((), ("--lower-hex",)))]
        settings += [("--digits", str(digits)) for digits in DIGITS]
    else:
        forms = ("auto", "fixed", "scientific") + (("mixed",) if number_type == "rat" else ())
        settings = [("--digits", str(digits), "--form", form)
                    for digits, form in product(DIGITS, forms)]
    for index, setting in enumerate(settings):
        yield (*setting, *TEXT_OPTIONS[index % len(TEXT_OPTIONS)])


def random_runs(number_type):
    random = Random(SEED + TYPES.index(number_type))
    formulas = Formulas(random, number_type)
    for setting in random_settings(number_type):
        yield from runs_of("random", number_type, (*setting, *variables_for(number_type)),
                           [formulas.line() for _ in range(RANDOM_LINES)])


def corpus():
    """All runs, always the same."""
    for number_type in TYPES:
        for make in (function_runs, operator_runs, number_runs, nesting_runs, error_runs,
                     random_runs, general_runs):
            yield from make(number_type)
    for language in ("en", "de"):
        options = ("--type", "real", "--language", language)
        yield Run("too long", options, (b"1" * (LONGEST_LINE + 1), b"1+1"))
        yield Run("too large", (*options, "--digits", "1"),
                  (b"9.6e4611686018427387903", b"ans", b"1"))
