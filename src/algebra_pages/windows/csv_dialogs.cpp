#include "algebra_pages/windows/csv_dialogs.h"

#include <algorithm>
#include <iterator>

#include "toolkit/wide_text.h"

#include <commdlg.h>

namespace tallymere {

namespace {

// Shows one of the system's two dialogs, which reads and writes name and filter.
bool AskForName(BOOL(WINAPI* show)(OPENFILENAMEW*), HWND page, DWORD flags, uint32_t& filterIndex,
                char16_t (&name)[PathCapacity + 1]) {
    char16_t filter[CsvFilterCapacity + 1] = {};
    WriteCsvFilter(filter);
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = page;
    dialog.lpstrFilter = ToWide(filter);
    dialog.nFilterIndex = filterIndex;
    dialog.lpstrFile = ToWide(name);
    dialog.nMaxFile = static_cast<DWORD>(std::size(name));
    dialog.Flags = flags | OFN_HIDEREADONLY;
    const bool isNamed = show(&dialog) != FALSE;
    filterIndex = dialog.nFilterIndex;
    return isNamed;
}

}  // namespace

bool AskForCsvToOpen(HWND page, CsvDialogs& dialogs, char16_t (&name)[PathCapacity + 1]) {
    name[0] = 0;
    return AskForName(GetOpenFileNameW, page, OFN_FILEMUSTEXIST, dialogs.openFilter, name);
}

bool AskForCsvToSave(HWND page, CsvDialogs& dialogs) {
    // The dialog writes into the name even if it ends without one, such as with one too long.
    char16_t name[PathCapacity + 1];
    std::ranges::copy(dialogs.savedName, name);
    if (!AskForName(GetSaveFileNameW, page, OFN_OVERWRITEPROMPT, dialogs.saveFilter, name)) {
        return false;
    }
    AppendCsvExtension(name);
    std::ranges::copy(name, dialogs.savedName);
    return true;
}

}  // namespace tallymere
