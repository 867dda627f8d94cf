// The start of the program, and the windows that it has.

#include "algebra_pages/windows/equation_page.h"
#include "algebra_pages/windows/polynomial_page.h"
#include "algebra_pages/windows/system_page.h"
#include "calculator/windows/calculator_page.h"
#include "calculator/windows/variables_window.h"
#include "prime_pages/windows/prime_factors_page.h"
#include "prime_pages/windows/prime_numbers_page.h"
#include "shell/windows/about_window.h"
#include "shell/windows/options_window.h"
#include "shell/windows/program_run.h"
#include "shell/windows/program_windows.h"
#include "toolkit/win32.h"

namespace tallymere {

namespace {

// In the order in which they are made. Who owns a window stands before it.
constexpr ProgramWindow ProgramWindows[] = {
    {&pageWindows[PageCalculator], CreateCalculatorPage},
    {&pageWindows[PageAlgebraicEquations], CreateEquationPage},
    {&pageWindows[PagePrimeNumbers], CreatePrimeNumbersPage},
    {&pageWindows[PagePrimeFactors], CreatePrimeFactorsPage},
    {&optionsWindow, CreateOptionsWindow},
    {&pageWindows[PagePolynomialCalculation], CreatePolynomialPage},
    {&aboutWindow, CreateAboutWindow},
    {&pageWindows[PageLinearSystems], CreateSystemPage},
    {&variablesWindow, CreateVariablesWindow},
};

}  // namespace

}  // namespace tallymere

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    return tallymere::RunProgram(instance, tallymere::ProgramWindows);
}
