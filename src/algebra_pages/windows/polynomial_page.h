// The Polynomial Calculation page.
#pragma once

#include <cstdint>

#include "algebra_pages/polynomial_form.h"
#include "shell/windows/page_run.h"
#include "toolkit/win32.h"

namespace tallymere {

struct PolynomialPage {
    HWND window = nullptr;                       ///< null before the page is complete
    HWND controls[PolynomialControlCount] = {};  ///< named by PolynomialControl
    HFONT operatorFont = nullptr;
    int32_t count = 0;      ///< of polynomials, what the grid has rows for
    int32_t maxDegree = 0;  ///< what the grid shows columns for
    PageRun run;
};

extern PolynomialPage polynomialPage;

/// Makes the page, hidden, as pageWindows[PagePolynomialCalculation].
void CreatePolynomialPage();

}  // namespace tallymere
