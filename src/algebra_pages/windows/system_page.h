// The page of systems of linear equations.
#pragma once

#include <cstdint>

#include "algebra_pages/csv_dialog_choices.h"
#include "algebra_pages/system_form.h"
#include "algebra_pages/system_run.h"
#include "shell/windows/form_page.h"

namespace tallymere {

/// Its controls are named by SystemControl.
struct SystemPage : FormPage {
    int32_t count = 0;  ///< of equations that the grid has rows for
    CsvDialogs dialogs;
    SystemRequest request = {};  ///< what Solve was asked for
};

extern SystemPage systemPage;

/// Makes the page, hidden, as pageWindows[PageLinearSystems].
void CreateSystemPage();

/// What Load does with the name of a file, and what Save as does with dialogs.savedName. Any error
/// is reported.
void LoadSystemFile(const char16_t* name);
void SaveSystemFile();

}  // namespace tallymere
