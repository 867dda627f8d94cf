#include "shell/windows/init_application.h"

#include "core/scratch.h"
#include "shell/settings.h"
#include "shell/ui_text.h"
#include "shell/windows/fonts.h"
#include "shell/windows/help.h"
#include "shell/windows/settings_file.h"
#include "shell/windows/user_locale.h"
#include "toolkit/environment.h"
#include "toolkit/grid_control.h"

namespace tallymere {

namespace {

constexpr int32_t GuiFontHeight = 16;
constexpr DWORD AllControlClasses = 0xFFFF;

// A function that not every version of Windows has, null where it is missing. A module is looked at
// only if it is loaded already.
template <typename Function>
Function FindSystemFunction(const wchar_t* module, const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(module), name)));
}

// Where the system looks for libraries that are loaded from now on by their name alone: in its own
// folder, and neither where the program lies nor where its files do.
void LimitLibraryFolders() {
    using SetDefaultDllDirectoriesFunction = BOOL(WINAPI*)(DWORD);
    const auto setDefaultDllDirectories = FindSystemFunction<SetDefaultDllDirectoriesFunction>(
        L"kernel32.dll", "SetDefaultDllDirectories");
    // Windows 7 has it only with an update; at least the current folder is left out without it.
    if (setDefaultDllDirectories == nullptr ||
        setDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32) == 0) {
        SetDllDirectoryW(L"");
    }
}

void FindOsVersion() {
    using RtlGetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOEXW*);
    const auto rtlGetVersion =
        FindSystemFunction<RtlGetVersionFunction>(L"ntdll.dll", "RtlGetVersion");
    OSVERSIONINFOEXW version = {};
    static_assert(sizeof(version) == 284);
    version.dwOSVersionInfoSize = sizeof(version);
    if (rtlGetVersion != nullptr && rtlGetVersion(&version) == 0) {
        osVersionCode = version.dwMajorVersion << 8 | version.dwMinorVersion;
    }
}

// Wine says so itself, by a function that Windows does not have.
void FindWhetherWine() {
    isWine = FindSystemFunction<const char* (*)()>(L"ntdll.dll", "wine_get_version") != nullptr;
}

// Without this the system would stretch the windows of a screen of high resolution.
void DeclareDpiAware() {
    using SetProcessDPIAwareFunction = BOOL(WINAPI*)();
    const auto setProcessDPIAware =
        FindSystemFunction<SetProcessDPIAwareFunction>(L"user32.dll", "SetProcessDPIAware");
    if (setProcessDPIAware != nullptr) {
        setProcessDPIAware();
    }
}

void FindScreenDpi() {
    const HDC screen = GetDC(nullptr);
    screenDpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
}

}  // namespace

void InitApplication(HINSTANCE instance) {
    LimitLibraryFolders();
    programInstance = instance;
    FindOsVersion();
    FindWhetherWine();
    const INITCOMMONCONTROLSEX commonControls = {sizeof(commonControls), AllControlClasses};
    InitCommonControlsEx(&commonControls);
    DeclareDpiAware();
    FindScreenDpi();
    defaultGuiFont = MakeFont({u"Segoe UI", GuiFontHeight});
    CreateScratchStack();
    RegisterGridClass();
    SettingsPath();
    LoadSettings();
    RepairSeparators(settings);
    ApplyUserSeparators();
    InstallLanguage(ChooseLanguage(settings.language, UserLanguageId()));
    FindHelpFolder();
}

}  // namespace tallymere
