#include "toolkit/system_library.h"

#include <string>

#include "toolkit/win32.h"

namespace tallymere {

void* FindInSystemLibrary(const wchar_t* fileName, const char* function) {
    wchar_t folder[MAX_PATH + 1];
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH + 1);
    if (length == 0 || length > MAX_PATH) {
        return nullptr;
    }
    const HMODULE library = LoadLibraryW((std::wstring(folder) + L'\\' + fileName).c_str());
    return library == nullptr ? nullptr
                              : reinterpret_cast<void*>(GetProcAddress(library, function));
}

}  // namespace tallymere
