"""Pictures of all windows, for the eye and for README.

A window that is new gets its method here and a line in take_all.
"""

from calculator_case import VARIABLES, CalculatorCase
from equation_case import EquationCase
from gui_case import MAIN_TITLE
from polynomial_case import MOST_DEGREE, PolynomialCase
from prime_case import PRIME_FACTORS, PRIME_NUMBERS, PrimeCase
from program import MENU_CLASS, MESSAGE_BOX_CLASS, middle
from system_case import SystemCase

LIST_CLASS = "ComboLBox"  # of the rows of a drop list
INFO = 302  # its menu item


class Pictures(CalculatorCase):
    """Not a test: borrows what the tests have."""

    def take_all(self, language, dpi):
        """Takes the pictures and gives their files."""
        self.suffix = f"{language}-{dpi}"
        self.files = []
        self.setUp()
        try:
            program = self.start_again(language, dpi)
            self.take_menu(program)
            self.take_options(program)
            self.take_about(program)
            self.take_equations(program, dpi)
            self.take_systems(program, dpi)
            self.take_polynomials(program, dpi)
            self.take_primes(program)
            self.take_calculator(program)
        finally:
            self.doCleanups()
        return self.files

    def take(self, name, window, drop_down=None):
        """Takes it once the windows have painted themselves: when two pictures are the same."""
        before = None
        while True:
            path = self.display.picture(f"{name}-{self.suffix}", window, drop_down)
            picture = path.read_bytes()
            if picture == before:
                break
            before = picture
        self.files.append(path)

    def take_menu(self, program):
        main = program.wait_for_window(MAIN_TITLE)
        self.take("main", main)
        for name, item in zip(("application", "algebra", "help"), program.menu(main)):
            self.display.click(*middle(item["rect"]))
            drop_down = program.wait_for(lambda: program.find(MENU_CLASS), "the menu to drop down")
            self.take(f"menu-{name}", main, drop_down)
            self.display.press("Escape", "Escape")
            program.wait_until_hidden(None, MENU_CLASS)

    def take_options(self, program):
        window = self.open_options(program)
        self.take("options", window)
        self.toggle(program, self.texts["TextOptAutomaticSelection"], False)
        self.select_row(program, 0, 1)
        self.click(self.drop_lists(program)[1])
        rows = program.wait_for(lambda: program.find(LIST_CLASS), "the list to drop down")
        self.take("options-list", window, rows)
        self.display.press("Escape")
        program.wait_until_hidden(None, LIST_CLASS)
        self.press_ok(program)
        box = program.wait_for_window(self.texts["TextErrError"], MESSAGE_BOX_CLASS)
        self.take("options-refused", box)
        self.leave_message(program, box.text)
        self.show_tab(program, 1)
        self.take("options-language", window)
        self.click(self.options(program).control("button", self.texts["TextBtnCancel"]))
        program.wait_until_hidden(window.text)

    def take_about(self, program):
        self.choose_menu(program, INFO)
        about = program.wait_for_window(self.texts["TextAboutAbout"].replace("%s", "Tallymere"))
        self.take("about", about)

        self.display.press("alt+F4")
        program.wait_until_hidden(about.text)

    def take_calculator(self, program):
        """The page in all types, from the rarest to the one that it starts with, and its
        variables."""
        self.program = program
        self.open_calculator()
        for number_type, formula in (("cplx", "(1+2*i)^3"), ("rat", "(1/3+1/7)^5"),
                                     ("uint", "2^64-1"), ("real", "2*sin(1)")):
            self.choose_type(number_type)
            self.take(f"calculator-{number_type}", self.evaluate(formula).window)
        self.press_keys(VARIABLES)
        variables = program.wait_for_window(self.texts["TextVarCalculatorVariables"])
        self.click(variables.control("button", self.texts["TextVarAddVariable"]))
        program.wait_for(lambda: self.variable_rows(program, variables.text) == ["var00"],
                         "a variable")
        self.take("variables", variables)

    def take_equations(self, program, dpi):
        """The page with exact roots, with an open list, and with the longest grid and numbers."""
        hands = EquationCase()
        hands.display, hands.program, hands.dpi = self.display, program, dpi
        hands.forms, hands.texts = self.forms, self.texts
        hands.open_page()
        self.take("equations-start", hands.page().window)
        hands.set_number("degree", 4)
        hands.select("mode", 1)
        hands.select("result type", 1)
        hands.type_coefficients("2", "5", "1", "10", "-6")
        hands.solve()
        hands.wait_for_page(lambda page: page.output and hands.is_idle(page), "the roots")
        self.take("equations-exact", hands.page().window)
        hands.click(hands.page()["result type"])
        rows = program.wait_for(lambda: program.find(LIST_CLASS), "the list to drop down")
        self.take("equations-list", hands.page().window, rows)
        self.display.press("Home", "Return")
        program.wait_until_hidden(None, LIST_CLASS)
        hands.set_number("degree", 10)
        hands.set_number("precision", 200)
        hands.type_coefficients("1", "sqrt(2)", "-3/7", "", "", "", "", "", "", "", "-1")
        hands.solve()
        hands.wait_for_page(lambda page: "x10" in page.output and hands.is_idle(page), "the roots")
        self.take("equations-long", hands.page().window)
        hands.close_page()

    def take_systems(self, program, dpi):
        """The page with parameters, and with the largest grid and long numbers from a file."""
        hands = SystemCase()
        hands.display, hands.program, hands.dpi = self.display, program, dpi
        hands.forms, hands.texts = self.forms, self.texts
        hands.make_folder()
        hands.open_page()
        self.take("systems-start", hands.page().window)
        hands.set_number("count", 3)
        hands.choose_type(0)
        hands.type_system(("1", "2", "3/4", "1"), ("2", "4", "3/2", "2"), ("", "1/3", "-1", "1/2"))
        hands.solve()
        hands.wait_for_page(lambda page: page.output, "the unknowns")
        self.take("systems-parameter", hands.page().window)
        rows = [";".join(f"{row + 1}/{row + column + 1}" for column in range(26))
                for row in range(25)]
        hands.put("largest.csv", "\n".join([";" * 25, *rows, ""]))
        hands.load("largest.csv")
        hands.display.activate(hands.page().window)
        hands.choose_type(1)
        hands.set_number("precision", 200)
        hands.solve()
        hands.wait_for_page(lambda page: "x25" in page.output, "the unknowns")
        self.take("systems-largest", hands.page().window)
        hands.close_page()

    def take_polynomials(self, program, dpi):
        """The page with a quotient, with an open list, and with the longest grid and numbers."""
        hands = PolynomialCase()
        hands.display, hands.program, hands.dpi = self.display, program, dpi
        hands.forms, hands.texts = self.forms, self.texts
        hands.open_page()
        self.take("polynomials-start", hands.page().window)
        hands.set_number("degree", 4)
        hands.choose_type(0)
        hands.type_polynomial(0, "2", "5/3", "1", "10", "-6")
        hands.type_polynomial(1, "", "", "1", "1/2", "-1")
        hands.press_button("divide")
        hands.wait_for_page(lambda page: "r0" in page.output, "the quotient")
        self.take("polynomials-quotient", hands.page().window)
        hands.click(hands.page().chosen("type"))
        rows = program.wait_for(lambda: program.find(LIST_CLASS), "the list to drop down")
        self.take("polynomials-list", hands.page().window, rows)
        self.display.press("End", "Return")
        program.wait_until_hidden(None, LIST_CLASS)
        hands.set_number("count", 12)
        hands.set_number("degree", MOST_DEGREE)
        hands.set_number("precision", 200)
        hands.type_polynomial(0, "sqrt(2)+i/7", "-3/7")
        hands.press_button("plus")
        hands.wait_for_page(lambda page: "b0" in page.output, "the sum")
        self.take("polynomials-long", hands.page().window)
        hands.close_page()

    def take_primes(self, program):
        """Both pages with a result."""
        hands = PrimeCase()
        hands.display, hands.program = self.display, program
        hands.forms, hands.texts = self.forms, self.texts
        for item, name, number, interval in ((PRIME_NUMBERS, "prime-numbers", "1", "1000"),
                                             (PRIME_FACTORS, "prime-factors", "355", "10")):
            hands.open_page(item)
            hands.type_into(item, "number", number)
            hands.type_into(item, "interval", interval)
            hands.start_run(item)
            page = hands.wait_for_page(item, lambda page: page.is_idle() and page.output,
                                       "the end of the run")
            self.take(name, page.window)
            hands.close_page(item)

    def variable_rows(self, program, title):
        rows, = [control.rows for control in program.find(title=title).walk()
                 if control.class_name.lower() == "listbox"]
        return rows
