"""The help pages are well formed, alike in all languages, and name what the program has.

help_pages.py tells of the marks in the pages. The results of their formulas are a test of the
console.
"""

import re
import sys
import unittest
from collections import Counter
from itertools import combinations, groupby
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from help_pages import (FOLDER, HABITS, LANGUAGES, ROOT, Element, Key,  # noqa: E402
                        PageParser, captions, constants, examples, functions, in_english,
                        is_formula, keypad, main_of, number_bases, operator_levels, operators,
                        page_name, page_paths, parse, program_texts, signatures,
                        types_of_operations, words)

PAGES = [path for language in LANGUAGES for path in page_paths(language)]
ELEMENTS = {"html", "head", "meta", "title", "link", "body", "header", "nav", "main", "section",
            "h1", "h2", "h3", "p", "ul", "ol", "li", "dl", "dt", "dd", "table", "thead", "tbody",
            "tr", "th", "td", "a", "b", "br", "code", "kbd", "samp", "span", "sup", "var"}
INLINE = {"a", "b", "br", "code", "kbd", "samp", "span", "sup", "var"}
# What is not translated: texts of the program, which have their test, and what is typed and shown.
NOT_TRANSLATED = {"b", "code", "kbd", "samp"}
# Blocks that are the same in every language: the program's name, captions that it does not
# translate, a formula.
SAME_PROSE = {"Tallymere", "deg, rad, gon", "-(3 mod 2)"}
ATTRIBUTES = {"aria-current", "aria-label", "aria-labelledby", "charset", "class", "content",
              "data-options", "data-session", "data-text", "data-type", "data-types", "data-word", "href",
              "hreflang", "id", "lang", "name", "rel", "rowspan", "scope"}


def quoted_text(element):
    """What an element quotes in one line, its placeholders as the program writes them."""
    parts = []
    for child in element.children:
        if isinstance(child, str):
            parts.append(child)
        elif child.tag == "br":
            parts.append(" ")
        elif child.tag == "var":
            parts.append("%d" if child.text() == "n" else "%s")
        else:
            raise AssertionError(f"<{child.tag}> in a quoted text")
    return one_line("".join(parts))


def one_line(text):
    return " ".join(text.split())


def differences(wanted, told):
    """[(name, its types by the tables, its types by the help)] where they are not the same."""
    return [(name, *(sorted(types.get(name, ())) for types in (wanted, told)))
            for name in sorted(wanted | told) if wanted.get(name) != told.get(name)]


def program_limits(language):
    """The limits of core/limits.h that stand there as numbers, as pages in a language write them,
    also those that are computed and then asserted."""
    source = (ROOT / "src/core/limits.h").read_text(encoding="utf-8")
    found = re.findall(r"\b(\w+) ==? ([\d']+)[;)]", source)
    return {name: in_english(f"{int(digits.replace(chr(39), '')):,}", language)
            for name, digits in found}


def inline_marks(element, language):
    """What of a block must be the same in every language, whatever the order of its words."""
    marks = Counter()
    for child in element.children:
        if isinstance(child, Element) and child.tag in INLINE:
            attributes = {name: (value or "").replace(f"_{language}.html", "_??.html")
                          for name, value in child.attributes.items()}
            text = child.text() if child.tag in ("code", "sup", "var") else ""
            if attributes.get("class") != "file":
                text = in_english(text, language)
            marks[child.tag, tuple(sorted(attributes.items())), text] += 1
            marks += inline_marks(child, language)
    return marks


def prose(block):
    """What a block says in words of its language, blocks inside it left out."""
    parts = []
    for child in block.children:
        if isinstance(child, str):
            parts.append(child)
        elif child.tag in INLINE - NOT_TRANSLATED:
            parts.append(prose(child))
    return one_line("".join(parts))


def structure(element, language):
    """The blocks below an element, each with the marks inside.

    Options may hold numbers of the language; the examples compare them.
    """
    found = []
    for child in element.children:
        if isinstance(child, Element) and child.tag not in INLINE:
            attributes = {name: value for name, value in child.attributes.items()
                          if name not in ("aria-label", "data-options")}
            found.append((child.tag, attributes, inline_marks(child, language),
                          structure(child, language)))
    return found


class FormTest(unittest.TestCase):
    def test_there_are_pages_and_the_first_is_where_the_program_looks(self):
        for language in LANGUAGES:
            self.assertGreaterEqual(len(page_paths(language)), 3)
            self.assertTrue((FOLDER / f"overview_{language}.html").exists())
            self.assertEqual([page_name(path) for path in page_paths("en")],
                             [page_name(path) for path in page_paths(language)])

    def test_pages_are_well_formed(self):
        for path in PAGES:
            with self.subTest(page=path.name):
                page = parse(path)
                self.assertEqual([], page.problems)
                self.assertEqual(["DOCTYPE html"], page.declarations)
                html = page.root.find("html")
                self.assertEqual([path.stem[-2:]], [root.attributes["lang"] for root in html])
                self.assertEqual("utf-8", page.root.find("meta")[0].attributes["charset"])

    def test_the_parser_sees_what_is_not_well_formed(self):
        for text in ("<p>1", "<p>1</b></p>", "<p><b>1</p></b>", "<p/>", "<p>1 > 0</p>", "</p>",
                     "<p>1 & 0</p>", '<p id="a" id="b">1</p>', "<?x?>"):
            with self.subTest(text=text):
                self.assertNotEqual([], PageParser(text).problems)

    def test_only_plain_elements_and_attributes(self):
        for path in PAGES:
            page = parse(path).root
            for element in page.walk():
                if element is not page:
                    with self.subTest(page=path.name, element=element.tag):
                        self.assertIn(element.tag, ELEMENTS)
                        self.assertLessEqual(set(element.attributes), ATTRIBUTES)

    def test_headings_go_down_step_by_step(self):
        for path in PAGES:
            levels = [int(element.tag[1]) for element in parse(path).root.walk()
                      if re.fullmatch(r"h\d", element.tag)]
            with self.subTest(page=path.name):
                self.assertEqual(1, levels.count(1))
                self.assertEqual(1, levels[0])
                for above, below in zip(levels, levels[1:]):
                    self.assertLessEqual(below, above + 1)

    def test_titles_differ(self):
        for language in LANGUAGES:
            titles = [words(parse(path).root.find("title")[0]) for path in page_paths(language)]
            self.assertEqual(len(titles), len(set(titles)))
            self.assertTrue(all("Tallymere" in title for title in titles))

    def test_rows_of_a_table_have_the_same_number_of_cells(self):
        for path in PAGES:
            for table in parse(path).root.find("table"):
                counts = set()
                spans = []  # rows that a cell of an earlier row still covers
                for row in table.find("tr"):
                    cells = [cell for cell in row.children if isinstance(cell, Element)]
                    spans = [span - 1 for span in spans if span > 1]
                    counts.add(len(cells) + len(spans))
                    spans += [int(cell.attributes["rowspan"]) for cell in cells
                              if "rowspan" in cell.attributes]
                with self.subTest(page=path.name, table=words(table)[:40]):
                    self.assertEqual(1, len(counts))
                    self.assertTrue(all("scope" in cell.attributes for cell in table.find("th")))


class LinkTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pages = {path.name: parse(path).root for path in PAGES}
        cls.ids = {name: [element.attributes["id"] for element in page.walk()
                          if "id" in element.attributes] for name, page in cls.pages.items()}

    def links(self, name):
        return [element.attributes["href"] for element in self.pages[name].walk()
                if "href" in element.attributes]

    def test_ids_are_unique(self):
        for name, ids in self.ids.items():
            self.assertEqual(len(ids), len(set(ids)), name)

    def test_links_lead_to_files_and_places_that_exist(self):
        for name in self.pages:
            for link in self.links(name):
                with self.subTest(page=name, link=link):
                    self.assertNotIn(":", link)
                    file, _, place = link.partition("#")
                    target = file or name
                    self.assertTrue((FOLDER / target).is_file())
                    if place:
                        self.assertIn(place, self.ids[target])

    def test_labels_are_headings_of_the_page(self):
        for name, page in self.pages.items():
            for section in page.find("section"):
                self.assertIn(section.attributes["aria-labelledby"], self.ids[name])

    def test_contents_list_the_sections(self):
        for name, page in self.pages.items():
            contents = next(nav for nav in page.find("nav")
                            if nav.attributes.get("class") == "contents")
            self.assertEqual(
                [(heading.attributes["id"], words(heading)) for heading in page.find("h2")],
                [(link.attributes["href"][1:], words(link)) for link in contents.find("a")], name)

    def test_every_page_links_to_all_of_its_language_and_to_its_twins(self):
        for language in LANGUAGES:
            for path in page_paths(language):
                twins = {f"{page_name(path)}_{other}.html" for other in LANGUAGES}
                wanted = {page.name for page in page_paths(language)} | twins
                with self.subTest(page=path.name):
                    self.assertEqual(set(), wanted - {path.name} - set(self.links(path.name)))

    def test_the_style_sheet_stands_alone(self):
        style = (FOLDER / "style.css").read_text(encoding="utf-8")
        self.assertNotRegex(style, r"url\(|@import")
        self.assertEqual(style.count("{"), style.count("}"))
        self.assertIn("prefers-color-scheme: dark", style)
        named = set(re.findall(r"\.([a-z]+)", re.sub(r"\d\.\d+", "", style)))
        used = {name for page in self.pages.values() for element in page.walk()
                for name in (element.attributes.get("class") or "").split()}
        self.assertEqual(set(), named - used)


class LanguageTest(unittest.TestCase):
    def pairs(self):
        """(language, page in English, the same page in the language) of all others."""
        for language in LANGUAGES[1:]:
            for english in page_paths(LANGUAGES[0]):
                yield language, english, FOLDER / f"{page_name(english)}_{language}.html"

    def test_every_language_has_its_habits(self):
        self.assertEqual(set(), set(LANGUAGES) - set(HABITS),
                         "missing in HABITS of tests/support/help_pages.py")

    def test_all_languages_have_the_same_pages(self):
        self.assertEqual("en", LANGUAGES[0])
        for language in LANGUAGES:
            self.assertEqual([page_name(path) for path in page_paths("en")],
                             [page_name(path) for path in page_paths(language)], language)

    def test_all_languages_have_the_same_structure(self):
        for language, english, other in self.pairs():
            for one, two in zip(structure(main_of(english), "en"),
                                structure(main_of(other), language), strict=True):
                with self.subTest(page=other.name):
                    self.assertEqual(one, two)

    def test_all_languages_have_the_same_examples(self):
        for language, english, other in self.pairs():
            formulas = [[example.formula for example in examples(english)],
                        [in_english(example.formula, language) for example in examples(other)]]
            with self.subTest(page=other.name):
                self.assertEqual(*formulas)
            if formulas[0] != formulas[1]:
                continue
            for one, two in zip(examples(english), examples(other)):
                with self.subTest(page=other.name, formula=one.formula):
                    self.assertEqual(one.options, tuple(
                        in_english(option, language) for option in two.options))
                    self.assertEqual(one.is_message, two.is_message)
                    self.assertEqual(one.session is None, two.session is None)
                    self.assertEqual(one.word, two.word)
                    # The output of a word has texts in its language.
                    if not one.is_message and one.word is None:
                        self.assertEqual(one.result, in_english(two.result, language))


    def test_no_two_languages_say_a_thing_in_the_same_words(self):
        for one, other in combinations(LANGUAGES, 2):
            for path in page_paths(one):
                twin = FOLDER / f"{page_name(path)}_{other}.html"
                # A language has one name, on the pages of all others.
                blocks = [[prose(block) for block in parse(page).root.walk()
                           if block.tag not in INLINE
                           and block.attributes.get("class") != "language"]
                          for page in (path, twin)]
                same = {text for text, twin_text in zip(*blocks)
                        if text == twin_text and re.search(r"[^\W\d_]{2}", text)}
                self.assertEqual(set(), same - SAME_PROSE, f"{path.name} and {twin.name}")


class ProgramTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.texts = program_texts()

    def test_the_texts_of_the_program_are_found(self):
        self.assertEqual(167 + len(LANGUAGES), len(self.texts))

    def test_quoted_texts_are_the_program_s(self):
        for path in PAGES:
            quoting = [element for element in main_of(path).walk()
                       if "data-text" in element.attributes]
            for element in quoting:
                name = element.attributes["data-text"]
                with self.subTest(page=path.name, text=name):
                    self.assertEqual(one_line(self.texts[name][path.stem[-2:]].replace("&&", "&")),
                                     quoted_text(element))

    def test_messages_name_their_text(self):
        for path in PAGES:
            for element in main_of(path).find("b"):
                if element.attributes.get("class") == "message":
                    self.assertIn("data-text", element.attributes, path.name)

    def test_every_formula_error_is_explained(self):
        wanted = {name for name in self.texts if name.startswith("TextFormula")}
        self.assertEqual(13, len(wanted))
        for language in LANGUAGES:
            explained = [element.find("b")[0].attributes["data-text"] for element
                         in main_of(FOLDER / f"messages_{language}.html").find("dt")
                         if element.find("b")]
            self.assertLessEqual(wanted, set(explained))
            self.assertEqual(len(explained), len(set(explained)))

    def test_every_function_is_told_with_its_arguments(self):
        self.assertGreater(len(functions()), 40)
        for language in LANGUAGES:
            told = signatures(FOLDER / f"functions_{language}.html")
            self.assertEqual(functions(), {name: parameters for name, parameters, _ in told})
            self.assertEqual(len(functions()), len(told))

    def test_types_are_named_as_the_program_names_them(self):
        for language in LANGUAGES:
            names = {kind: self.texts[f"TextCalc{kind.capitalize()}"][language]
                     for kind in ("rat", "real", "cplx")} | {"uint": "uint"}
            for path in page_paths(language):
                for cell in main_of(path).walk():
                    if "data-types" in cell.attributes:
                        kinds = cell.attributes["data-types"].split()
                        allowed = {", ".join(map(names.get, kinds))}
                        allowed |= {HABITS[language].all_types} if len(kinds) == 4 else set()
                        with self.subTest(page=path.name, row=words(cell.parent)):
                            self.assertIn(words(cell), allowed)

    def test_functions_are_told_with_the_types_that_have_them(self):
        wanted = {name: types_of_operations()[name] for name in functions()}
        for language in LANGUAGES:
            told = {}
            for name, _, element in signatures(FOLDER / f"functions_{language}.html"):
                cell = next(cell for cell in element.parent.parent.find("td")
                            if "data-types" in cell.attributes)
                told[name] = set(cell.attributes["data-types"].split())
            self.assertEqual([], differences(wanted, told), language)

    def test_operators_are_told_by_level_with_the_types_that_have_them(self):
        levels = operator_levels()
        wanted = {name: types_of_operations()[name] for name in operators()}
        for language in LANGUAGES:
            told = {}
            order = []
            table = next(table for table in main_of(FOLDER / f"formulas_{language}.html").find(
                "table") if table.attributes.get("class") == "operators")
            for row in table.find("tbody")[0].find("tr"):
                names = [code.text() for code in row.find("th")[0].find("code")
                         if code.text() not in ("(", ")", "i")]
                for name in names:
                    told[name] = set(row.find("td")[-1].attributes["data-types"].split())
                order += [{levels.get(name) for name in names}] if names else []
            self.assertEqual([], differences(wanted, told), language)
            self.assertEqual([{level} for level in sorted(set(levels.values()), reverse=True)],
                             [level for level, _ in groupby(order)], language)

    def test_every_operator_and_constant_is_told(self):
        self.assertLessEqual({"+", "^", "mod"}, operators())
        self.assertEqual({"π", "pi"}, constants())
        for language in LANGUAGES:
            page = main_of(FOLDER / f"functions_{language}.html")
            told = {element.text() for element in page.find("code") if not is_formula(element)}
            self.assertLessEqual((operators() | constants()) - {"+", "-", "*", "/"}, told)

    def test_limits_are_the_program_s(self):
        told = {"calculator": ["1 {to} {MaxDigits}", "{upto} {ProductVariables} {variables}"],
                "numbers": ["{upto} {CalcRationalDigits} ", "{upto} {CalcUintDigits} "],
                "formulas": ["{upto} {ProductResultCharacters} ", "{about} {ProductStackEntries}"]}
        for language in LANGUAGES:
            limits = program_limits(language)
            for name, sentences in told.items():
                page = words(main_of(FOLDER / f"{name}_{language}.html"))
                for sentence in sentences:
                    with self.subTest(language=language, sentence=sentence):
                        self.assertIn(sentence.format(**HABITS[language].limit_words, **limits),
                                      page)


class NumberBaseTest(unittest.TestCase):
    """What the pages say of bases against the table of the program."""

    def test_every_prefix_has_an_example(self):
        self.assertLessEqual({"2": "0y", "10": "", "16": "0x"}.items(), number_bases().items())
        for language in LANGUAGES:
            path = FOLDER / f"numbers_{language}.html"
            formulas = [example.formula for example in examples(path)]
            for base, prefix in number_bases().items():
                number = re.compile(rf"{prefix}[0-9A-F]+")
                with self.subTest(page=path.name, base=base):
                    self.assertTrue(any(map(number.fullmatch, formulas)),
                                    f"an example such as {prefix}1")

    def test_lists_of_bases_are_the_program_s(self):
        bases = list(number_bases())
        lists = {"bases": bases, "other-bases": [base for base in bases if base != "10"]}
        for language in LANGUAGES:
            path = FOLDER / f"calculator_{language}.html"
            for name, wanted in lists.items():
                told = [re.findall(r"\d+", words(span)) for span in main_of(path).find("span")
                        if span.attributes.get("class") == name]
                with self.subTest(page=path.name, bases=name):
                    self.assertEqual([wanted], told)


class CalculatorPageTest(unittest.TestCase):
    """The page of the calculator against the table of its keys and the form of its dialog."""

    @classmethod
    def setUpClass(cls):
        cls.keys = keypad()
        cls.pages = {language: main_of(FOLDER / f"calculator_{language}.html")
                     for language in LANGUAGES}

    def told_keys(self, language):
        for table in self.pages[language].find("table"):
            if table.attributes.get("class") == "keys":
                for row in table.find("tbody")[0].find("tr"):
                    keys, texts, _, kinds = (cell for cell in row.children
                                             if isinstance(cell, Element))
                    inserted = [code.text() for code in texts.find("code")] or [""] * len(
                        captions(keys))
                    for caption, text in zip(captions(keys), inserted, strict=True):
                        for kind in kinds.attributes["data-types"].split():
                            yield Key(caption, kind, in_english(text, language))

    def test_the_keys_of_all_types_are_found(self):
        count = Counter(key.kind for key in self.keys)
        for kind, least in {"uint": 50, "rat": 46, "real": 60, "cplx": 67}.items():
            self.assertGreaterEqual(count[kind], least, kind)

    def test_every_key_is_told_with_what_it_inserts(self):
        wanted = Counter(Key(key.caption, key.kind, key.inserted.strip()) for key in self.keys)
        for language in LANGUAGES:
            told = Counter(self.told_keys(language))
            with self.subTest(language=language):
                self.assertEqual([], list((wanted - told).elements()), "keys that are not told")
            with self.subTest(language=language):
                self.assertEqual([], list((told - wanted).elements()), "keys that are not there")

    def test_pressed_keys_make_the_formula_beside_them(self):
        for language in LANGUAGES:
            pressed = [cell for cell in self.pages[language].find("td")
                       if cell.attributes.get("class") == "pressed"]
            self.assertGreater(len(pressed), 10)
            self.assertEqual({"uint", "rat", "real", "cplx"},
                             {cell.nearest("data-type") for cell in pressed})
            for cell in pressed:
                formula = next(code for code in cell.parent.find("code") if is_formula(code))
                with self.subTest(language=language, formula=formula.text()):
                    self.check_pressed(captions(cell), cell.nearest("data-type"),
                                       in_english(formula.text(), language),
                                       cell.nearest("data-options"))

    def check_pressed(self, pressed, kind, formula, options):
        texts = {key.caption: key.inserted for key in self.keys if key.kind == kind}
        for caption, inserted in list(texts.items()):
            if re.fullmatch(r"(a?(sin|cos|tan)|arg)\(", inserted):
                texts |= {f"{caption}{unit}": f"{caption}{unit}(" for unit in "dg"}
        end = pressed.index("=")
        typed = "".join(texts[caption] for caption in pressed[:end])
        self.assertEqual(formula, typed + ")" * (typed.count("(") - typed.count(")")))
        # What the keys behind it make of a fraction.
        forms = {(): None, ("R↔M",): "--form mixed", ("F↔S",): "--form fixed"}
        self.assertEqual(forms[tuple(pressed[end + 1:])], options)
        if pressed[end + 1:]:
            self.assertEqual("rat", kind)

    def test_keys_that_are_named_exist(self):
        known = {key.caption for key in self.keys} | {"sind", "sing", "Stop", "Aa", "[ ]"}
        for language, page in self.pages.items():
            self.assertLessEqual(set(captions(page)), known | {HABITS[language].return_key})

    def test_every_control_of_the_dialog_of_variables_is_told(self):
        form = (ROOT / "src/calculator/variables_form.h").read_text(encoding="utf-8")
        controls = set(re.findall(r"&UiText::(\w+)", form))
        self.assertEqual(8, len(controls))
        for language, page in self.pages.items():
            section = next(section for section in page.find("section")
                           if section.attributes["aria-labelledby"] == "variables")
            quoted = {element.attributes.get("data-text") for element in section.walk()}
            # The label of the list is the heading of the section.
            self.assertEqual(controls - {"TextVarVariables"}, quoted - {None}, language)


if __name__ == "__main__":
    unittest.main()
