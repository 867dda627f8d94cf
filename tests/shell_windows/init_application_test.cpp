// What stands before the first window is made.
#include "shell/windows/init_application.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "core/number_context.h"
#include "core/scratch.h"
#include "shell/settings.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"
#include "shell/windows/program_file.h"
#include "shell/windows/user_locale.h"
#include "shell_windows/settings_folder.h"
#include "toolkit/environment.h"
#include "toolkit/win32.h"

// The linker's name for the address of the system's function.
extern "C" BOOL(WINAPI* __imp_InitCommonControlsEx)(const INITCOMMONCONTROLSEX*);

namespace tallymere {
namespace {

namespace fs = std::filesystem;
using testing_support::UserFolder;

// What is asked of InitCommonControlsEx while it lives; the function is called all the same.
class CommonControlsCalls {
public:
    CommonControlsCalls() {
        asked.clear();
        system_ = Exchange(Note);
    }
    ~CommonControlsCalls() { Exchange(system_); }
    CommonControlsCalls(const CommonControlsCalls&) = delete;
    CommonControlsCalls& operator=(const CommonControlsCalls&) = delete;

    static inline std::vector<INITCOMMONCONTROLSEX> asked;

private:
    using Function = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);

    static BOOL WINAPI Note(const INITCOMMONCONTROLSEX* controls) {
        asked.push_back(*controls);
        return system_(controls);
    }

    // Every call goes through the address that the loader has put there.
    static Function Exchange(Function function) {
        DWORD before = 0;
        VirtualProtect(&__imp_InitCommonControlsEx, sizeof(Function), PAGE_READWRITE, &before);
        const Function old = __imp_InitCommonControlsEx;
        __imp_InitCommonControlsEx = function;
        VirtualProtect(&__imp_InitCommonControlsEx, sizeof(Function), before, &before);
        return old;
    }

    static inline Function system_;
};

// Each test calls Start once.
class InitApplicationTest : public testing_support::SettingsFolderTest {
protected:
    InitApplicationTest() : contextBefore(numberContext) {
        osVersionCode = 0;
        isWine = false;
        screenDpi = 0;
        ClearUiText();
        numberContext.decimalSeparators[0] = u'd';
        numberContext.groupSeparators[0] = u'g';
    }
    ~InitApplicationTest() override {
        DestroyScratchStack();
        DeleteObject(defaultGuiFont);
        defaultGuiFont = nullptr;
        numberContext = contextBefore;
    }

    static void Start() { InitApplication(GetModuleHandleW(nullptr)); }
    static void StartWith(std::u16string_view settingsText) {
        Put(testing_support::FileBytes(settingsText));
        Start();
    }

private:
    NumberContext contextBefore;
};

TEST_F(InitApplicationTest, KnowsTheModuleTheSystemAndTheScreen) {
    Start();
    EXPECT_EQ(programInstance, GetModuleHandleW(nullptr));
    OSVERSIONINFOEXW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    using RtlGetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOEXW*);
    const auto rtlGetVersion = reinterpret_cast<RtlGetVersionFunction>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion")));
    ASSERT_EQ(rtlGetVersion(&version), 0);
    EXPECT_EQ(osVersionCode, version.dwMajorVersion * 256 + version.dwMinorVersion);
    EXPECT_GE(osVersionCode, OsVersionVista);
    EXPECT_EQ(isWine,
              GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr);

    const HDC screen = GetDC(nullptr);
    EXPECT_EQ(screenDpi, GetDeviceCaps(screen, LOGPIXELSY));
    ReleaseDC(nullptr, screen);
}

TEST_F(InitApplicationTest, LoadsNoLibraryFromTheFolderOfTheProgramOrTheCurrentOne) {
    Start();
    // No library at all: whoever finds the file, refuses it.
    const wchar_t* const name = L"tallymere_planted_library.dll";
    const fs::path place = fs::path(ProgramFile()).parent_path() / name;
    std::ofstream(place) << "not a library";
    EXPECT_EQ(LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_APPLICATION_DIR), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_BAD_EXE_FORMAT});
    EXPECT_EQ(LoadLibraryW(name), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});

    const fs::path before = fs::current_path();
    fs::current_path(UserFolder());
    fs::rename(place, UserFolder() / name);
    EXPECT_EQ(LoadLibraryW(name), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});
    fs::remove(UserFolder() / name);
    fs::current_path(before);

    EXPECT_NE(LoadLibraryW(L"winmm.dll"), nullptr);
}

TEST_F(InitApplicationTest, MakesTheFontOfAllControls) {
    Start();
    LOGFONTW font = {};
    ASSERT_NE(GetObjectW(defaultGuiFont, sizeof font, &font), 0);
    EXPECT_EQ(font.lfHeight, ToScreenPixels(16));
    EXPECT_EQ(std::wstring(font.lfFaceName), L"Segoe UI");
    EXPECT_EQ(font.lfWidth, 0);
    EXPECT_EQ(font.lfWeight, 0);
    EXPECT_EQ(font.lfItalic, 0);
}

TEST_F(InitApplicationTest, RegistersTheControlsOfTheSystem) {
    const CommonControlsCalls calls;
    Start();
    // The system may have registered them before anybody asks, so the question is looked at too.
    ASSERT_EQ(calls.asked.size(), 1u);
    EXPECT_EQ(calls.asked[0].dwSize, 8u);
    EXPECT_EQ(calls.asked[0].dwICC, 0xFFFFu);
    for (const wchar_t* name : {L"msctls_trackbar32", L"msctls_updown32", L"SysTabControl32"}) {
        WNDCLASSW windowClass = {};
        EXPECT_TRUE(GetClassInfoW(nullptr, name, &windowClass));
    }
}

TEST_F(InitApplicationTest, RegistersTheGrid) {
    Start();
    WNDCLASSW windowClass = {};
    EXPECT_TRUE(GetClassInfoW(programInstance, L"SimpleGridCtl", &windowClass));
}

TEST_F(InitApplicationTest, LetsTheArithmeticBeStoppedAndGivesThisThreadItsStack) {
    Start();
    EXPECT_EQ(numberContext.abortFlag, &cancelFlag);
    EXPECT_FALSE(StopRequested());
    RequestStop();
    EXPECT_TRUE(StopRequested());
    ScratchStackScope scope;
    EXPECT_NE(scope.Take(1'000), nullptr);
}

TEST_F(InitApplicationTest, WithoutSettingsFollowsTheUserInLanguageAndSeparators) {
    settings.settingsDirty = true;
    Start();
    EXPECT_EQ(effectiveLanguage, ChooseLanguage(LanguageAutomatic, UserLanguageId()));
    EXPECT_EQ(std::u16string(uiText.TextMenuExit),
              effectiveLanguage == LanguageGerman ? u"Beenden" : u"Exit");
    EXPECT_NE(numberContext.decimalSeparators[0], u'd');
    EXPECT_NE(numberContext.groupSeparators[0], u'g');
    EXPECT_TRUE(settings.showWelcomeHint);
    EXPECT_FALSE(settings.settingsDirty);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
}

TEST_F(InitApplicationTest, TakesLanguageAndSeparatorsFromTheSettings) {
    StartWith(
        u"[options]\r\nlanguage = German\r\ndecimal_separator = comma\r\n"
        u"thousands_separator = space_U202F\r\n");
    EXPECT_EQ(effectiveLanguage, LanguageGerman);
    EXPECT_EQ(std::u16string(uiText.TextMenuExit), u"Beenden");
    EXPECT_EQ(numberContext.decimalSeparators[0], u',');
    EXPECT_EQ(numberContext.groupSeparators[0], u'\u202F');
    EXPECT_FALSE(settings.settingsDirty);
}

TEST_F(InitApplicationTest, RepairsASingleAutomaticSeparatorBeforeItIsApplied) {
    StartWith(
        u"[options]\r\nlanguage = English\r\ndecimal_separator = (automatic)\r\n"
        u"thousands_separator = space_U202F\r\n");
    EXPECT_EQ(settings.thousandsSeparator, ThousandsAutomatic);
    EXPECT_NE(numberContext.groupSeparators[0], u'\u202F');
    EXPECT_TRUE(settings.settingsDirty);
}

}  // namespace
}  // namespace tallymere
