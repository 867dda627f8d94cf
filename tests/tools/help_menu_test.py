"""The help explains every page of the menu that has a window, and no other."""

import re
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from help_pages import FOLDER, LANGUAGES, ROOT, main_of, program_texts  # noqa: E402

MENU = (ROOT / "src/shell/main_menu.h").read_text(encoding="utf-8")


def menu_items():
    """{PageIndex of a page: name of the text of its menu item}"""
    return dict(re.findall(r"PageItem\((\w+), &UiText::(\w+)\)", MENU))


def pages_with_a_window():
    """The PageIndex of each page that a room of windows makes; shell/ has the menu alone."""
    files = [*(ROOT / "src").glob("*_pages/windows/*.cpp"),
             *(ROOT / "src/calculator/windows").glob("*.cpp")]
    text = "\n".join(path.read_text(encoding="utf-8") for path in files)
    return {page for page in menu_items() if re.search(rf"\b{page}\b", text)}


def explained(language):
    """{name of the text of a menu item: pages of the help that the overview leads to for it}"""
    found = {}
    for row in main_of(FOLDER / f"overview_{language}.html").find("tr"):
        links = [link.attributes["href"].partition("#")[0] for link in row.find("a")]
        for caption in row.find("b"):
            found[caption.attributes.get("data-text")] = [link for link in links if link]
    return found


def told_without_a_window(language, items, windows):
    """The names of the texts of pages without a window that the overview explains."""
    return set(explained(language)) & {items[page] for page in set(items) - windows}


class MenuHelpTest(unittest.TestCase):
    def test_the_pages_with_a_window_are_found(self):
        made = re.findall(r"^    \{&pageWindows\[(\w+)\], Create\w+\},",
                          (ROOT / "src/program/windows/win_main.cpp").read_text("utf-8"), re.M)
        self.assertEqual(sorted(pages_with_a_window()), sorted(made))
        self.assertIn("PageCalculator", made)
        self.assertLessEqual(set(menu_items().values()), set(program_texts()))

    def test_the_overview_leads_to_a_page_about_each_that_has_a_window(self):
        items = menu_items()
        for language in LANGUAGES:
            told = explained(language)
            for page in sorted(pages_with_a_window()):
                with self.subTest(page=page, language=language):
                    self.assertTrue(
                        told.get(items[page]),
                        f"no row with {items[page]} and a link to a page of the help in "
                        f"help/Tallymere/overview_{language}.html")

    def test_the_overview_tells_of_no_page_without_a_window(self):
        items = menu_items()
        windows = pages_with_a_window()
        for language in LANGUAGES:
            self.assertEqual(set(), told_without_a_window(language, items, windows),
                             f"help/Tallymere/overview_{language}.html")
            # All pages have a window, so that one is left out here.
            missing = "PageLinearSystems"
            self.assertEqual({items[missing]},
                             told_without_a_window(language, items, windows - {missing}))


if __name__ == "__main__":
    unittest.main()
