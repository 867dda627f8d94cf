// The page of systems of linear equations.
#pragma once

#include <cstdint>

#include "algebra_pages/csv_dialog_choices.h"
#include "algebra_pages/system_form.h"
#include "algebra_pages/system_run.h"
#include "shell/windows/page_run.h"
#include "toolkit/win32.h"

namespace tallymere {

struct SystemPage {
    HWND window = nullptr;                   ///< null before the page is complete
    HWND controls[SystemControlCount] = {};  ///< named by SystemControl
    int32_t count = 0;                       ///< of equations that the grid has rows for
    CsvDialogs dialogs;
    SystemRequest request = {};  ///< what Solve was asked for
    PageRun run;
};

extern SystemPage systemPage;

/// Makes the page, hidden, as pageWindows[PageLinearSystems].
void CreateSystemPage();

/// What Load does with the name of a file, and what Save as does with dialogs.savedName. Any error
/// is reported.
void LoadSystemFile(const char16_t* name);
void SaveSystemFile();

}  // namespace tallymere
