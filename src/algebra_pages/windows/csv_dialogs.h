// The dialogs in which a user names a CSV file.
#pragma once

#include "algebra_pages/csv_dialog_choices.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Asks for a file that is there, and returns whether the user named one.
bool AskForCsvToOpen(HWND page, CsvDialogs& dialogs, char16_t (&name)[PathCapacity + 1]);

/// Asks for a file to write, and for the leave to replace one of that name. Returns whether the
/// user named one, which is dialogs.savedName then, with an extension.
bool AskForCsvToSave(HWND page, CsvDialogs& dialogs);

}  // namespace tallymere
