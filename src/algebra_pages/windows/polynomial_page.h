// The Polynomial Calculation page.
#pragma once

#include <cstdint>

#include "algebra_pages/polynomial_form.h"
#include "shell/windows/form_page.h"

namespace tallymere {

/// Its controls are named by PolynomialControl.
struct PolynomialPage : FormPage {
    HFONT operatorFont = nullptr;
    int32_t count = 0;      ///< of polynomials, what the grid has rows for
    int32_t maxDegree = 0;  ///< what the grid shows columns for
};

extern PolynomialPage polynomialPage;

/// Makes the page, hidden, as pageWindows[PagePolynomialCalculation].
void CreatePolynomialPage();

}  // namespace tallymere
