// The Algebraic Equations page.
#pragma once

#include <cstdint>

#include "algebra_pages/equation_form.h"
#include "shell/windows/page_run.h"
#include "toolkit/win32.h"

namespace tallymere {

struct EquationPage {
    HWND window = nullptr;                     ///< null before the page is complete
    HWND controls[EquationControlCount] = {};  ///< named by EquationControl
    int32_t degree = 0;                        ///< what the grid has rows for
    PageRun run;
};

extern EquationPage equationPage;

/// Makes the page, hidden, as pageWindows[PageAlgebraicEquations].
void CreateEquationPage();

}  // namespace tallymere
