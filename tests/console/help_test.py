"""What the help pages say of formulas and numbers is what the console answers.

console_support.py tells of the environment, help_pages.py of the marks in the pages.
"""

import re
import sys
import tempfile
import unittest
from collections import defaultdict
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from console_support import ConsoleCase, keep_console_waiting, run  # noqa: E402
from help_pages import (FOLDER, LANGUAGES, TYPES, constants, examples,  # noqa: E402
                        file_of_system, functions, main_of, page_paths, separator_options,
                        signatures, words)

# A call that has a value in every type that knows the function, where 1 for each argument has none.
CALLS = {"atanh": "atanh(0)", "logx": "logx(2; 2)", "sqrtc": "sqrtc(1; 0)",
         "cbrtc": "cbrtc(1; 0)", "rootc": "rootc(1; 1; 0)"}
# It has a value that helps nobody, and the pages say so.
USELESS_VALUES = {("round", "uint")}


def setUpModule():
    keep_console_waiting()


def ask(language, options, formulas):
    """The answers to formulas, each as (text, whether it is an error's message)."""
    lines, errors, _ = run(["--language", language, *separator_options(language), *options],
                           "\n".join(formulas).encode())
    assert errors == "", errors
    answers = []
    for line in lines:
        error = re.fullmatch(r"error \d+ \d+: (.*)", line)
        answers.append((error.group(1), True) if error else (line.replace("\t", " "), False))
    return answers


def has_value(answer):
    return not answer[1]


class NumberBaseTest(ConsoleCase):
    """The pages name every base and how numbers of it are written."""

    def test_pages_name_every_base_and_its_prefix(self):
        lines, _, _ = run(["--help"])
        bases = re.search(r"--base (\S+)", "\n".join(lines)).group(1).split("|")
        self.assertGreaterEqual(len(bases), 4)
        for base in bases:
            answer = run(["--type", "uint", "--base", base, "1"])[0][0]
            prefix = answer.removesuffix("1")
            self.assertEqual(base == "10", prefix == "")
            for language in LANGUAGES:
                page = words(main_of(FOLDER / f"numbers_{language}.html"))
                with self.subTest(base=base, language=language):
                    self.assertRegex(page, rf"\b{base}\b")
                    self.assertIn(prefix, page)


class ExampleTest(ConsoleCase):
    def check(self, language, options, some):
        answers = ask(language, options, [example.formula for example in some])
        self.assertEqual(len(some), len(answers))
        for example, answer in zip(some, answers):
            with self.subTest(language=language, options=options, formula=example.formula):
                self.assertEqual(answer, (example.result, example.is_message))

    def test_examples_have_the_results_that_are_shown(self):
        for language in LANGUAGES:
            runs = defaultdict(list)
            for path in page_paths(language):
                for example in examples(path):
                    if example.session is None and example.word is None:
                        runs[example.options].append(example)
            self.assertGreater(sum(map(len, runs.values())), 100)
            for options, some in runs.items():
                self.check(language, options, some)

    def test_sessions_have_the_results_that_are_shown(self):
        for language in LANGUAGES:
            sessions = defaultdict(list)
            for path in page_paths(language):
                for example in examples(path):
                    if example.session is not None:
                        sessions[path.name, id(example.session)].append(example)
            self.assertGreaterEqual(len(sessions), 2)
            for some in sessions.values():
                self.assertEqual(1, len({example.options for example in some}))
                self.check(language, some[0].options, some)

    @staticmethod
    def ask_word(language, example):
        """The lines that a word answers, and what it says on standard error."""
        options = ["--language", language, *separator_options(language), *example.options]
        if example.word != "system":
            return run([example.word, *options, *example.formula.split()])[:2]
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "system.csv"
            file.write_text(file_of_system(example.formula), encoding="utf-8")
            return run([example.word, *options, str(file)])[:2]

    def test_words_answer_what_is_shown(self):
        for language in LANGUAGES:
            some = [example for path in page_paths(language) for example in examples(path)
                    if example.word is not None]
            self.assertGreater(len(some), 10)
            self.assertIn("system", {example.word for example in some})
            for example in some:
                lines, errors = self.ask_word(language, example)
                answer = " ".join(" ".join(lines).split())
                error = re.fullmatch(r"error \d+: (.*)", answer)
                with self.subTest(language=language, options=example.options,
                                  number=example.formula):
                    self.assertEqual("", errors)
                    self.assertEqual((example.result, example.is_message),
                                     (error.group(1), True) if error else (answer, False))

    def test_examples_call_every_function(self):
        formulas = " ".join(example.formula for path in page_paths("en")
                            for example in examples(path))
        called = set(re.findall(r"\w+", formulas))
        for word in [*functions(), *constants(), "mod"]:
            in_another_unit = {word, word[:-1], word + "d", word + "g", word[:-1] + "d",
                               word[:-1] + "g"}
            self.assertTrue(called & in_another_unit, word)


class FunctionTypeTest(ConsoleCase):
    """The types that functions_en.html names are those that know the function."""

    @classmethod
    def setUpClass(cls):
        cls.calls = {}
        cls.types = {}
        for name, parameters, element in signatures(FOLDER / "functions_en.html"):
            row = element.parent.parent
            cell = next(cell for cell in row.find("td") if "data-types" in cell.attributes)
            cls.calls[name] = CALLS.get(name, f"{name}({'; '.join('1' for _ in parameters[::3])})")
            cls.types[name] = cell.attributes["data-types"].split()

    def test_types_that_are_named_know_the_function(self):
        for kind in TYPES:
            names = [name for name in self.calls if kind in self.types[name]]
            # A fraction at the end shows that no call turned rat into real.
            answers = ask("en", ["--type", kind], [self.calls[name] for name in names] + ["1/3"])
            for name, answer in zip(names, answers):
                with self.subTest(type=kind, function=name):
                    self.assertTrue(has_value(answer), answer)
            if kind == "rat":
                self.assertEqual("1/3", answers[-1][0])

    def test_other_types_refuse_it(self):
        for kind in ("real", "cplx", "uint"):
            names = [name for name in self.calls
                     if kind not in self.types[name] and (name, kind) not in USELESS_VALUES]
            answers = ask("en", ["--type", kind], [self.calls[name] for name in names])
            for name, answer in zip(names, answers):
                with self.subTest(type=kind, function=name):
                    self.assertFalse(has_value(answer), answer)

    def test_fractions_give_up_where_a_function_is_not_theirs(self):
        for name, call in self.calls.items():
            if "rat" not in self.types[name]:
                with self.subTest(function=name):
                    answer, third = ask("en", ["--type", "rat"], [call, "1/3"])
                    self.assertTrue(not has_value(answer) or third[0] == "0.3333333333")


if __name__ == "__main__":
    unittest.main()
