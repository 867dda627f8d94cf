// Functions of libraries that are loaded when they are needed.
#include "toolkit/system_library.h"

#include <gtest/gtest.h>

#include <string>

#include "toolkit/win32.h"

namespace tallymere {
namespace {

TEST(SystemLibrary, ComesFromTheFolderOfTheSystem) {
    void* const function = FindInSystemLibrary(L"winmm.dll", "timeGetTime");
    ASSERT_NE(function, nullptr);
    const HMODULE library = GetModuleHandleW(L"winmm.dll");
    EXPECT_EQ(function, reinterpret_cast<void*>(GetProcAddress(library, "timeGetTime")));
    wchar_t folder[MAX_PATH];
    GetSystemDirectoryW(folder, MAX_PATH);
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(library, path, MAX_PATH);
    EXPECT_EQ(_wcsicmp(path, (std::wstring(folder) + L"\\winmm.dll").c_str()), 0);
}

TEST(SystemLibrary, LacksWhatTheSystemLacks) {
    EXPECT_EQ(FindInSystemLibrary(L"winmm.dll", "TallymereHasNoSuchFunction"), nullptr);
    EXPECT_EQ(FindInSystemLibrary(L"tallymere_no_such_library.dll", "timeGetTime"), nullptr);
}

}  // namespace
}  // namespace tallymere
