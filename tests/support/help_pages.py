"""Reads the help pages for their tests: a strict parser, the examples, the texts of the program.

In the pages, <code class="formula"> is a formula and the next <samp> what the calculator shows for
it, of class "message" if that is an error. <code class="number"> has the operands, with spaces
between them, for the word of tallymere-console that data-word on it or around it names; its lines
of output stand in one. For a word that reads a file it has the lines of the file, with <br> between
them; where they are a system without the names of its columns, the test puts those before them. data-type and data-options on the formula or around it are options of
tallymere-console; formulas inside data-session belong to one run, in their order.
data-text names the text of the program that an element quotes.
"""

import re
from dataclasses import dataclass, field
from html import unescape
from html.parser import HTMLParser
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FOLDER = ROOT / "help" / "Tallymere"
LANGUAGES = tuple(re.findall(r'\{Language\w+, "(\w+)"',
                             (ROOT / "src/shell/languages.h").read_text(encoding="utf-8")))
VOID = {"br", "link", "meta"}
EXCHANGE_SEPARATORS = str.maketrans(".,", ",.")


def number_bases():
    """{base: its prefix} of integers, as texts in the order of the program's table; the prefix is
    empty for the base that has none."""
    table = (ROOT / "src/core/number_bases.h").read_text(encoding="utf-8")
    rows = table[table.index("NumberBases[] = {"):].split("};")[0]
    return {base: f"0{letter}" if letter else ""
            for base, letter in re.findall(r"\{(\d+), (?:u'(\w)'|0),", rows)}


@dataclass(frozen=True)
class LanguageHabits:
    """How pages in a language write what is no text of the program."""

    decimal: str  # as options of tallymere-console have it; groups have the other one
    return_key: str  # the key of the keyboard
    all_types: str  # what stands for all number types
    limit_words: dict  # what stands around the limits of the program


class HabitsOfLanguages(dict):
    def __missing__(self, language):
        raise AssertionError(f"no row {language} in HABITS of tests/support/help_pages.py")


# A row for each language of the program.
HABITS = HabitsOfLanguages(
    en=LanguageHabits("point", "Return", "all",
                      {"to": "to", "upto": "up to", "variables": "variables", "about": "some"}),
    de=LanguageHabits("comma", "Eingabetaste", "alle",
                      {"to": "bis", "upto": "bis zu", "variables": "Variablen", "about": "etwa"}))


def separator_options(language):
    """The options of tallymere-console with which it writes numbers as pages in a language do."""
    decimal = HABITS[language].decimal
    return ["--decimal", decimal, "--thousands", "comma" if decimal == "point" else "point"]


def in_english(text, language):
    """A formula or number of a page as a page in English writes it."""
    return text.translate(EXCHANGE_SEPARATORS) if HABITS[language].decimal == "comma" else text


@dataclass
class Element:
    tag: str
    attributes: dict
    parent: "Element" = None
    children: list = field(default_factory=list)

    def text(self):
        return "".join(child if isinstance(child, str) else child.text()
                       for child in self.children)

    def walk(self):
        """This element and all below it, in the order of the page."""
        yield self
        for child in self.children:
            if isinstance(child, Element):
                yield from child.walk()

    def find(self, tag):
        return [element for element in self.walk() if element.tag == tag]

    def nearest(self, name):
        """The value of an attribute here or on the nearest element around, None without one."""
        element = self
        while element is not None:
            if name in element.attributes:
                return element.attributes[name] or ""
            element = element.parent
        return None


class PageParser(HTMLParser):
    """Takes only what is closed in its order; `problems` lists everything else."""

    def __init__(self, text):
        super().__init__(convert_charrefs=False)
        self.root = Element("", {})
        self.open = self.root
        self.problems = []
        self.declarations = []
        self.feed(text)
        self.close()
        if self.open is not self.root:
            self.problem(f"<{self.open.tag}> is never closed")

    def problem(self, what):
        self.problems.append(f"line {self.getpos()[0]}: {what}")

    def handle_decl(self, decl):
        self.declarations.append(decl)

    def handle_starttag(self, tag, attrs):
        if len(dict(attrs)) != len(attrs):
            self.problem(f"<{tag}> repeats an attribute")
        element = Element(tag, dict(attrs), self.open)
        self.open.children.append(element)
        if tag not in VOID:
            self.open = element

    def handle_startendtag(self, tag, attrs):
        self.problem(f"<{tag}/> is not HTML")

    def handle_endtag(self, tag):
        if tag != self.open.tag:
            self.problem(f"</{tag}> where <{self.open.tag}> is open")
        elif self.open.parent is not None:
            self.open = self.open.parent

    def handle_data(self, data):
        if set(data) & set("<>&"):
            self.problem(f"bare <, > or & in {data.strip()!r}")
        self.open.children.append(data)

    def handle_entityref(self, name):
        self.open.children.append(unescape(f"&{name};"))

    def handle_charref(self, name):
        self.open.children.append(unescape(f"&#{name};"))

    def unknown_decl(self, data):
        self.problem(f"<![{data}]> is not HTML")

    def handle_pi(self, data):
        self.problem(f"<?{data}> is not HTML")


def page_paths(language):
    return sorted(FOLDER.glob(f"*_{language}.html"))


def page_name(path):
    return path.stem[:-len("_en")]


def parse(path):
    return PageParser(path.read_text(encoding="utf-8"))


def main_of(path):
    return parse(path).root.find("main")[0]


def words(element):
    """The text of an element in one line."""
    return " ".join(element.text().split())


def typed(element):
    """The text of an element, with a line end for each <br>."""
    return "".join(child if isinstance(child, str) else
                   "\n" if child.tag == "br" else typed(child) for child in element.children)


def file_of_system(rows):
    """A CSV file with these rows of a system, and with the names of its columns."""
    count = rows.partition("\n")[0].count(";")
    names = ";".join([f"a{index}" for index in range(1, count + 1)] + ["b"])
    return f"{names}\n{rows}\n"


def is_formula(element):
    return element.tag == "code" and element.attributes.get("class") == "formula"


def is_number(element):
    return element.tag == "code" and element.attributes.get("class") == "number"


@dataclass
class Example:
    formula: str  # or the number for a word
    result: str
    is_message: bool
    options: tuple
    session: object  # the element that is one run, None where the formula stands for itself
    word: str  # of tallymere-console, None for a formula


def examples(path):
    """The examples of a page in their order; a formula without its result is an error here."""
    found = []
    waiting = None
    for element in main_of(path).walk():
        if is_formula(element) or is_number(element):
            assert waiting is None, f"{path.name}: no result for {words(waiting)}"
            waiting = element
        elif element.tag == "samp":
            assert waiting is not None, f"{path.name}: no formula for {words(element)}"
            found.append(make_example(waiting, element))
            waiting = None
    assert waiting is None, f"{path.name}: no result for {words(waiting)}"
    return found


def make_example(formula, result):
    kind = formula.nearest("data-type")
    options = (["--type", kind] if kind else []) + (formula.nearest("data-options") or "").split()
    session = formula
    while session is not None and "data-session" not in session.attributes:
        session = session.parent
    return Example(typed(formula), words(result), result.attributes.get("class") == "message",
                   tuple(options), session,
                   formula.nearest("data-word") if is_number(formula) else None)


def program_texts():
    """{name: {language: text}} of every visible text of the program."""
    literal = r'((?:u"(?:[^"\\]|\\.)*"\s*)+)'
    source = (ROOT / "src/shell/ui_text_entries.inc").read_text(encoding="utf-8")

    def joined(literals):
        text = "".join(re.findall(r'u"((?:[^"\\]|\\.)*)"', literals))
        return text.replace('\\"', '"').replace("\\r", "\r").replace("\\n", "\n")

    columns = rf",\s*{literal}" * len(LANGUAGES)
    found = {name: dict(zip(LANGUAGES, map(joined, texts)))
             for name, *texts in re.findall(rf"ENTRY\((\w+){columns}\)", source)}
    other = set(re.findall(r"^ENTRY\((\w+)", source, re.MULTILINE)) - set(found)
    assert not other, f"not a text for each of {', '.join(LANGUAGES)}: {', '.join(sorted(other))}"
    return found


FORMULA_ROOM = ROOT / "src" / "formula"


def functions():
    """{name: its parameters} of the functions of formulas, by the table of the program."""
    source = (FORMULA_ROOM / "function_table.cpp").read_text(encoding="utf-8")
    rows = re.findall(r'\{Id::(\w+), u"(\w+)", u"([^"]+)"', source)
    return {name: parameters for _, name, parameters in rows}


def operator_levels():
    """{spelling: its level} of the operators of formulas, by the table of the program."""
    source = (FORMULA_ROOM / "operator_table.cpp").read_text(encoding="utf-8")
    levels = dict(re.findall(r"int32_t (\w+) = (\d+);", source))
    return {spelling: int(levels[level])
            for spelling, level in re.findall(r'\{Id::\w+, u"([^"]+)", (\w+)', source)}


def operators():
    """The spellings of the operators of formulas."""
    return set(operator_levels())


# In the order of the columns of the tables of formulas.
TYPES = ("real", "cplx", "uint", "rat")
# Functions that a type has without a value that helps anybody; the pages say so.
USELESS = {("round", "uint"), ("frac", "uint")}


def types_of_operations():
    """{name: the number types that have it} of all functions and operators, by the tables of the
    program and without what is useless."""
    found = {}
    for file in ("function_table.cpp", "operator_table.cpp"):
        source = (FORMULA_ROOM / file).read_text(encoding="utf-8")
        for name, routines in re.findall(r'\{Id::\w+, u"([^"]+)",[^{}]*\{([^{}]*)\}\}', source):
            found[name] = {kind for kind, routine in zip(TYPES, routines.split(","), strict=True)
                           if routine.strip() not in ("None", "nullptr") and (name, kind) not in USELESS}
    return found


def constants():
    """The names of the constants of formulas, by the table of the program."""
    source = (FORMULA_ROOM / "constant_table.cpp").read_text(encoding="utf-8")
    rows = re.findall(r'\{ConstantId::\w+, u"([^"]+)", u"([^"]+)"', source)
    return {name.replace("\\u03C0", "π") for row in rows for name in row}


def names_of_ids():
    """{"FunctionId::Sqrt": "sqrt", "OperatorId::Add": "+", ...} of all functions and operators."""
    found = {}
    for kind, file in (("FunctionId", "function_table.cpp"), ("OperatorId", "operator_table.cpp")):
        source = (FORMULA_ROOM / file).read_text(encoding="utf-8")
        found |= {f"{kind}::{id}": name
                  for id, name in re.findall(r'\{Id::(\w+), u"([^"]+)"', source)}
    return found


@dataclass(frozen=True)
class Key:
    caption: str
    kind: str  # the number type in which it is there
    inserted: str  # into a formula in English; empty for a key that does something else


def keypad():
    """Every key of the calculator in every number type, in radians and with capital letters."""
    folder = ROOT / "src/calculator"
    texts = {"ActionDecimalSeparator": ".", "ActionExponent": "e", "ActionImaginaryUnit": "i"}
    texts |= {f"DigitAction({digit})": str(digit) for digit in range(10)}
    texts |= {f"LetterAction({index})": letter for index, letter in enumerate("ABCDEF")}
    source = (folder / "key_texts.cpp").read_text(encoding="utf-8")
    texts |= dict(re.findall(r'\{(Action\w+), u"([^"]+)"\}', source)) | {"ActionPi": "π"}
    names = names_of_ids()
    for action, id in re.findall(r"\{(Action\w+), Id::(\w+)", source):
        texts[action] = names[f"FunctionId::{id}"] + "("
    for action, id in re.findall(r"\{(Action\w+), (OperatorId::\w+)\}", source):
        texts[action] = f" {names[id]} " if names[id].isalpha() else names[id]
    kinds = {"InUint": ["uint"], "InRat": ["rat"], "InCplx": ["cplx"],
             "InDecimal": ["real", "cplx"], "NotInUint": ["rat", "real", "cplx"],
             "InAll": ["uint", "rat", "real", "cplx"]}
    rows = re.findall(r'\{\d+, (\w+), (?:nullptr|u"([^"]+)"), (\w+(?:\(\d\))?), \w+',
                      (folder / "keypad.cpp").read_text(encoding="utf-8"))
    return [Key(caption or texts[action].removesuffix("("), kind, texts.get(action, ""))
            for types, caption, action in rows for kind in kinds[types]]


def captions(element):
    """The keys below an element, in their order."""
    return [key.text() for key in element.find("kbd")]


def signatures(path):
    """[(function, its parameters, element)] for each signature of a page."""
    found = []
    for element in main_of(path).walk():
        if element.attributes.get("class") == "signature":
            name, parameters = re.fullmatch(r"(\w+)\((.*)\)", element.text()).groups()
            found.append((name, parameters, element))
    return found
