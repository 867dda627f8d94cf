// The Algebraic Equations page.
#pragma once

#include <cstdint>

#include "algebra_pages/equation_form.h"
#include "shell/windows/form_page.h"

namespace tallymere {

/// Its controls are named by EquationControl.
struct EquationPage : FormPage {
    int32_t degree = 0;  ///< what the grid has rows for
};

extern EquationPage equationPage;

/// Makes the page, hidden, as pageWindows[PageAlgebraicEquations].
void CreateEquationPage();

}  // namespace tallymere
