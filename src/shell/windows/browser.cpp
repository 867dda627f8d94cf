#include "shell/windows/browser.h"

#include "shell/program_paths.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

#include <shellapi.h>
#include <shlwapi.h>

namespace tallymere {

void OpenInBrowser(const char16_t* argument) {
    char16_t browser[PathCapacity + 1];
    DWORD size = PathCapacity + 1;
    if (AssocQueryStringW(ASSOCF_NONE, ASSOCSTR_EXECUTABLE, L"http", nullptr, ToWide(browser),
                          &size) == S_OK) {
        ShellExecuteW(nullptr, L"open", ToWide(browser), ToWide(argument), nullptr, SW_SHOWNORMAL);
    }
}

}  // namespace tallymere
