// What stands before the first window is made.
#include "shell/windows/init_application.h"

#include <gtest/gtest.h>

#include <string>

#include "core/number_context.h"
#include "core/scratch.h"
#include "shell/settings.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"
#include "shell/windows/settings_file.h"
#include "shell/windows/user_locale.h"
#include "toolkit/environment.h"
#include "toolkit/wide_text.h"

namespace tallymere {
namespace {

class InitApplicationTest : public ::testing::Test {
protected:
    InitApplicationTest() : contextBefore(numberContext) {
        ClearErrors();
        settings = Settings{};
        osVersionCode = 0;
        screenDpi = 0;
        ClearUiText();
        InitApplication(GetModuleHandleW(nullptr));
    }
    ~InitApplicationTest() override {
        DestroyScratchStack();
        DeleteObject(defaultGuiFont);
        defaultGuiFont = nullptr;
        numberContext = contextBefore;
        settings = Settings{};
        ClearErrors();
    }

private:
    NumberContext contextBefore;
};

TEST_F(InitApplicationTest, KnowsTheModuleTheSystemAndTheScreen) {
    EXPECT_EQ(programInstance, GetModuleHandleW(nullptr));
    OSVERSIONINFOEXW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    using RtlGetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOEXW*);
    const auto rtlGetVersion = reinterpret_cast<RtlGetVersionFunction>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion")));
    ASSERT_EQ(rtlGetVersion(&version), 0);
    EXPECT_EQ(osVersionCode, version.dwMajorVersion * 256 + version.dwMinorVersion);
    EXPECT_GE(osVersionCode, OsVersionVista);

    EXPECT_TRUE(IsProcessDPIAware());
    const HDC screen = GetDC(nullptr);
    EXPECT_EQ(screenDpi, GetDeviceCaps(screen, LOGPIXELSY));
    ReleaseDC(nullptr, screen);
}

TEST_F(InitApplicationTest, MakesTheFontOfAllControls) {
    LOGFONTW font = {};
    ASSERT_NE(GetObjectW(defaultGuiFont, sizeof font, &font), 0);
    EXPECT_EQ(font.lfHeight, ToScreenPixels(16));
    EXPECT_EQ(std::wstring(font.lfFaceName), L"Segoe UI");
    EXPECT_EQ(font.lfWidth, 0);
    EXPECT_EQ(font.lfWeight, 0);
    EXPECT_EQ(font.lfItalic, 0);
}

TEST_F(InitApplicationTest, RegistersTheControlsOfTheSystem) {
    for (const wchar_t* name : {L"msctls_trackbar32", L"msctls_updown32", L"SysTabControl32"}) {
        WNDCLASSW windowClass = {};
        EXPECT_TRUE(GetClassInfoW(nullptr, name, &windowClass));
    }
}

TEST_F(InitApplicationTest, LetsTheArithmeticBeStoppedAndGivesThisThreadItsStack) {
    EXPECT_EQ(numberContext.abortFlag, &cancelFlag);
    EXPECT_FALSE(AbortRequested());
    RequestCancel();
    EXPECT_TRUE(AbortRequested());
    ScratchStackScope scope;
    EXPECT_NE(scope.Take(1'000), nullptr);
}

TEST_F(InitApplicationTest, ReadsTheSettingsAndSpeaksTheLanguageThatFollows) {
    EXPECT_EQ(effectiveLanguage, ChooseLanguage(settings.language, UserLanguageId()));
    const UiText installed = uiText;
    InstallLanguage(effectiveLanguage);
    EXPECT_EQ(installed.TextMenuExit, uiText.TextMenuExit);
    EXPECT_EQ(installed.TextVarAssignResult, uiText.TextVarAssignResult);

    const std::u16string path = SettingsPath();
    const std::u16string folder = path.substr(0, path.rfind(u'\\'));
    EXPECT_NE(GetFileAttributesW(ToWide(folder.c_str())) & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

}  // namespace
}  // namespace tallymere
