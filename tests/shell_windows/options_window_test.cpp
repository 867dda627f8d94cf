// The Options window on the settings.
#include "shell/windows/options_window.h"

#include <string>

#include "core/number_context.h"
#include "shell/settings.h"
#include "shell/ui_error.h"
#include "shell/windows/main_window.h"
#include "shell/windows/program_windows.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::IsChecked;
using testing_support::TextOf;

struct Search {
    std::string className;
    std::string text;
    int skip;
    HWND found;
};

BOOL CALLBACK LookAtChild(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    char className[64];
    GetClassNameA(window, className, 64);
    if (search.className == className && (search.text.empty() || search.text == TextOf(window)) &&
        search.skip-- == 0) {
        search.found = window;
        return FALSE;
    }
    return TRUE;
}

// The control of a class with a text, the empty one standing for any; `skip` of them come before.
HWND Find(const char* className, const char* text, int skip = 0) {
    Search search = {className, text, skip, nullptr};
    EnumChildWindows(optionsWindow, LookAtChild, reinterpret_cast<LPARAM>(&search));
    EXPECT_NE(search.found, nullptr) << className << " " << text;
    return search.found;
}

class OptionsWindow : public testing_support::ToolkitTest {
protected:
    OptionsWindow() {
        InstallLanguage(LanguageEnglish);
        settings = Settings{};
        CreateMainWindow();
        ShowWindow(mainWindow, SW_SHOWNORMAL);
        CreateOptionsWindow();
        automatic = Find("Button", "Automatic selection");
        decimalList = Find("ComboBox", "");
        thousandsList = Find("ComboBox", "", 1);
        calculator = Find("Button", "Scientific calculator");
        ok = Find("Button", "OK");
        cancel = Find("Button", "Cancel");
    }
    ~OptionsWindow() override {
        DestroyWindow(optionsWindow);
        DestroyWindow(mainWindow);
        DestroyWindow(hiddenOwnerWindow);
        settings = Settings{};
        ClearErrors();
    }

    static void Click(HWND button) { SendMessageW(button, BM_CLICK, 0, 0); }
    static void Select(HWND list, WPARAM row) { SendMessageW(list, CB_SETCURSEL, row, 0); }
    static LRESULT Selected(HWND list) { return SendMessageW(list, CB_GETCURSEL, 0, 0); }

    HWND automatic;
    HWND decimalList;
    HWND thousandsList;
    HWND calculator;
    HWND ok;
    HWND cancel;
};

TEST_F(OptionsWindow, ShowsTheSettingsEachTime) {
    ShowProgramWindow(optionsWindow);
    EXPECT_TRUE(IsChecked(automatic));
    EXPECT_FALSE(IsWindowEnabled(decimalList));
    EXPECT_FALSE(IsWindowEnabled(thousandsList));
    EXPECT_FALSE(IsChecked(calculator));
    EXPECT_TRUE(IsChecked(Find("Button", "Automatic selection", 1)));
    Click(calculator);
    Click(cancel);
    EXPECT_FALSE(IsWindowVisible(optionsWindow));
    EXPECT_FALSE(settings.groupCalculator);

    settings.decimalSeparator = DecimalComma;
    settings.thousandsSeparator = ThousandsNarrowSpace;
    settings.groupPrimes = true;
    settings.language = LanguageGerman;
    ShowProgramWindow(optionsWindow);
    EXPECT_FALSE(IsChecked(automatic));
    EXPECT_TRUE(IsWindowEnabled(decimalList));
    EXPECT_TRUE(IsWindowEnabled(thousandsList));
    EXPECT_EQ(Selected(decimalList), 1);
    EXPECT_EQ(Selected(thousandsList), 3);
    EXPECT_FALSE(IsChecked(calculator));
    EXPECT_TRUE(IsChecked(Find("Button", "Prime numbers && factors")));
    EXPECT_TRUE(IsChecked(Find("Button", "German")));
    EXPECT_FALSE(IsChecked(Find("Button", "Automatic selection", 1)));
}

TEST_F(OptionsWindow, EnablesTheListsAsTheBoxSays) {
    ShowProgramWindow(optionsWindow);
    Click(automatic);
    EXPECT_TRUE(IsWindowEnabled(decimalList));
    EXPECT_TRUE(IsWindowEnabled(Find("Static", "Thousands separator")));
    Click(automatic);
    EXPECT_FALSE(IsWindowEnabled(decimalList));
    EXPECT_FALSE(IsWindowEnabled(Find("Static", "Thousands separator")));
}

TEST_F(OptionsWindow, TakesOverAndAppliesWhatWasChosenWithOk) {
    ShowProgramWindow(optionsWindow);
    Click(automatic);
    Select(decimalList, 1);
    Select(thousandsList, 2);
    Click(calculator);
    Click(ok);
    EXPECT_FALSE(IsWindowVisible(optionsWindow));
    EXPECT_EQ(settings.decimalSeparator, DecimalComma);
    EXPECT_EQ(settings.thousandsSeparator, ThousandsApostrophe);
    EXPECT_TRUE(settings.groupCalculator);
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_EQ(numberContext.decimalSeparators[0], u',');
    EXPECT_EQ(numberContext.groupSeparators[2], u'\'');
}

TEST_F(OptionsWindow, LeavesCleanSettingsCleanWhenNothingChanged) {
    ShowProgramWindow(optionsWindow);
    Click(ok);
    EXPECT_FALSE(IsWindowVisible(optionsWindow));
    EXPECT_FALSE(settings.settingsDirty);
}

}  // namespace
}  // namespace tallymere
