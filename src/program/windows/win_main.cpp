// The start of the program, and the order in which its windows are made.

#include "algebra_pages/windows/equation_page.h"
#include "calculator/windows/calculator_page.h"
#include "calculator/windows/variables_window.h"
#include "prime_pages/windows/prime_factors_page.h"
#include "prime_pages/windows/prime_numbers_page.h"
#include "shell/windows/about_window.h"
#include "shell/windows/main_window.h"
#include "shell/windows/options_window.h"
#include "shell/windows/program_run.h"
#include "toolkit/win32.h"

namespace tallymere {

namespace {

// Who owns a window must be there before it.
void CreateProgramWindows() {
    CreateMainWindow();
    CreateCalculatorPage();
    CreateEquationPage();
    CreatePrimeNumbersPage();
    CreatePrimeFactorsPage();
    CreateOptionsWindow();
    CreateAboutWindow();
    CreateVariablesWindow();
}

}  // namespace

}  // namespace tallymere

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    return tallymere::RunProgram(instance, tallymere::CreateProgramWindows);
}
