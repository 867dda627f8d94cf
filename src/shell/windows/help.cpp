#include "shell/windows/help.h"

#include "shell/program_paths.h"
#include "shell/text_format.h"
#include "shell/ui_error.h"
#include "shell/windows/browser.h"
#include "shell/windows/error_report.h"
#include "shell/windows/program_file.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere {

namespace {

constexpr int64_t QuotedAddressCapacity = PathCapacity + 2;

char16_t helpFolder[PathCapacity + 1] = u"";

bool IsFile(const char16_t* path) {
    const DWORD attributes = GetFileAttributesW(ToWide(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

void FindHelpFolder() {
    // Of a path that is cut to PathCapacity the last backslash might be gone, and another folder
    // would be taken for the program's.
    FormatHelpFolder(helpFolder, ProgramFile());
}

void ShowHelp() {
    char16_t address[PathCapacity + 1];
    FormatHelpAddress(address, helpFolder, effectiveLanguage);
    const char16_t* path = address + FileSchemeCharacters;
    if (IsFile(path)) {
        char16_t quoted[QuotedAddressCapacity + 1];
        FormatBounded(quoted, QuotedAddressCapacity, u"\"%s\"", {address});
        OpenInBrowser(quoted);
    } else {
        SetUiError(UiErrorFileNotFound, path);
    }
    ReportUiError();
}

}  // namespace tallymere
