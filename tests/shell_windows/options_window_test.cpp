// The Options window on the settings.
#include "shell/windows/options_window.h"

#include <string>

#include "core/number_context.h"
#include "shell/options_choices.h"
#include "shell/settings.h"
#include "shell/settings_testing.h"
#include "shell/ui_error.h"
#include "shell/windows/main_window.h"
#include "shell/windows/program_windows.h"
#include "shell_windows/main_windows.h"
#include "shell_windows/message_boxes.h"
#include "shell_windows/settings_folder.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::IsChecked;
using testing_support::MessageBoxAnswer;
using testing_support::TextOf;

namespace fs = testing_support::fs;

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
        testing_support::DestroyMainWindows();
        ClearErrors();
    }

    void ExpectSaved() const {
        EXPECT_FALSE(settings.settingsDirty);
        EXPECT_EQ(settingsFolder.Content(),
                  testing_support::FileBytes(testing_support::WrittenText(settings)));
    }
    // A file in the place of the folder.
    void LetSavingFail() const {
        fs::remove_all(settingsFolder.folder);
        testing_support::PutBytes(settingsFolder.folder, "mine");
    }

    static void Click(HWND button) { SendMessageW(button, BM_CLICK, 0, 0); }
    static void Select(HWND list, WPARAM row) { SendMessageW(list, CB_SETCURSEL, row, 0); }
    static LRESULT Selected(HWND list) { return SendMessageW(list, CB_GETCURSEL, 0, 0); }

    const testing_support::SettingsFolder settingsFolder;
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
    Click(cancel);

    settings.language = LanguageEnglish;
    ShowProgramWindow(optionsWindow);
    EXPECT_TRUE(IsChecked(Find("Button", "English")));
    EXPECT_FALSE(IsChecked(Find("Button", "German")));
}

TEST_F(OptionsWindow, LeavesTheRowsOfListsThatDoNotCount) {
    ShowProgramWindow(optionsWindow);
    EXPECT_EQ(Selected(decimalList), NoRow);
    Click(automatic);
    Select(decimalList, 1);
    Select(thousandsList, 2);
    Click(cancel);
    ShowProgramWindow(optionsWindow);
    EXPECT_TRUE(IsChecked(automatic));
    EXPECT_EQ(Selected(decimalList), 1);
    EXPECT_EQ(Selected(thousandsList), 2);
}

TEST_F(OptionsWindow, ShowsThePageOfTheTab) {
    ShowProgramWindow(optionsWindow);
    const HWND tabs = Find("SysTabControl32", "");
    const HWND german = Find("Button", "German");
    for (const WPARAM tab : {1, 0, 1}) {
        SendMessageW(tabs, TCM_SETCURFOCUS, tab, 0);
        EXPECT_EQ(IsWindowVisible(german) != FALSE, tab == 1);
        EXPECT_EQ(IsWindowVisible(automatic) != FALSE, tab == 0);
    }
}

TEST_F(OptionsWindow, ActivatesTheMainWindowWhenItIsClosed) {
    ShowProgramWindow(optionsWindow);
    SetActiveWindow(dialog);
    SendMessageW(optionsWindow, WM_CLOSE, 0, 0);
    EXPECT_EQ(GetActiveWindow(), mainWindow);
    EXPECT_TRUE(IsWindow(optionsWindow));
    EXPECT_FALSE(IsWindowVisible(optionsWindow));
}

TEST_F(OptionsWindow, StaysOpenAfterSeparatorsThatCannotBe) {
    ShowProgramWindow(optionsWindow);
    Click(automatic);
    Select(decimalList, 1);
    Click(calculator);
    Click(Find("Button", "German"));
    for (const WPARAM thousands : {WPARAM{0} - 1, WPARAM{1}}) {
        Select(thousandsList, thousands);
        const MessageBoxAnswer answer(IDOK);
        Click(ok);
        EXPECT_EQ(answer.caption, "Error");
        EXPECT_EQ(answer.text,
                  "Decimal and thousands separator must not be the same and they must not be "
                  "undefined.");
        EXPECT_EQ(answer.owner, optionsWindow);
        EXPECT_TRUE(IsWindowVisible(optionsWindow));
        EXPECT_FALSE(settings.groupCalculator);
        EXPECT_EQ(settings.language, LanguageAutomatic);
        EXPECT_FALSE(settings.settingsDirty);
        EXPECT_EQ(PendingUiError(), UiErrorNone);
    }
    Select(thousandsList, 0);
    Click(Find("Button", "Automatic selection", 1));
    Click(ok);
    EXPECT_FALSE(IsWindowVisible(optionsWindow));
    EXPECT_TRUE(settings.groupCalculator);
}

TEST_F(OptionsWindow, KeepsTheLanguageForTheNextStartWhenNoneIsWantedNow) {
    // Should the program be started anew all the same, then it is this one, and not without end.
    ASSERT_EQ(GetEnvironmentVariableW(L"TALLYMERE_STARTED_ANEW", nullptr, 0), 0u);
    SetEnvironmentVariableW(L"TALLYMERE_STARTED_ANEW", L"1");
    const Language running = effectiveLanguage;
    for (const auto& [button, language] :
         {std::pair{"German", LanguageGerman}, std::pair{"English", LanguageEnglish}}) {
        settings.settingsDirty = false;
        ShowProgramWindow(optionsWindow);
        Click(Find("Button", button));
        const MessageBoxAnswer answer(IDCANCEL);
        Click(ok);
        EXPECT_EQ(answer.caption, "Hint");
        EXPECT_EQ(answer.text,
                  "The change of the language setting will only take effect after a restart of "
                  "the application. Therefore, the application will be restarted now.");
        EXPECT_EQ(answer.owner, optionsWindow);
        EXPECT_EQ(settings.language, language);
        ExpectSaved();
        EXPECT_EQ(effectiveLanguage, running);
        EXPECT_FALSE(IsWindowVisible(optionsWindow));
        MSG message;
        EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    }
    SetEnvironmentVariableW(L"TALLYMERE_STARTED_ANEW", nullptr);
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
    Click(Find("Button", "Equations && polynomials"));
    Click(ok);
    EXPECT_FALSE(IsWindowVisible(optionsWindow));
    EXPECT_TRUE(settings.groupEquations);
    EXPECT_FALSE(settings.groupPrimes);
    EXPECT_EQ(settings.decimalSeparator, DecimalComma);
    EXPECT_EQ(settings.thousandsSeparator, ThousandsApostrophe);
    EXPECT_TRUE(settings.groupCalculator);
    ExpectSaved();
    EXPECT_EQ(numberContext.decimalSeparators[0], u',');
    EXPECT_EQ(numberContext.groupSeparators[2], u'\'');
}

TEST_F(OptionsWindow, LeavesCleanSettingsCleanWhenNothingChanged) {
    ShowProgramWindow(optionsWindow);
    Click(ok);
    EXPECT_FALSE(IsWindowVisible(optionsWindow));
    EXPECT_FALSE(settings.settingsDirty);
    EXPECT_FALSE(fs::exists(settingsFolder.file));
}

TEST_F(OptionsWindow, SaysThatAChangeCouldNotBeSavedAndKeepsIt) {
    LetSavingFail();
    ShowProgramWindow(optionsWindow);
    Click(calculator);
    const MessageBoxAnswer answer(IDOK);
    Click(ok);
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, "The settings could not be saved in the file \"" +
                               settingsFolder.file.string() + "\"!");
    EXPECT_FALSE(IsWindowVisible(optionsWindow));
    EXPECT_TRUE(settings.groupCalculator);
    EXPECT_TRUE(settings.settingsDirty);

    fs::remove_all(settingsFolder.folder);
    ShowProgramWindow(optionsWindow);
    Click(cancel);
    EXPECT_EQ(answer.boxes, 1);
    ExpectSaved();
}

TEST_F(OptionsWindow, DoesNotStartTheProgramAnewWithoutItsSettings) {
    LetSavingFail();
    // Should it be started all the same, then it is this one, and not without end.
    ASSERT_EQ(GetEnvironmentVariableW(L"TALLYMERE_STARTED_ANEW", nullptr, 0), 0u);
    SetEnvironmentVariableW(L"TALLYMERE_STARTED_ANEW", L"1");
    ShowProgramWindow(optionsWindow);
    Click(Find("Button", "German"));
    const MessageBoxAnswer answer(IDOK);
    Click(ok);
    EXPECT_EQ(answer.boxes, 2) << "the question and the failure";
    // Whoever agrees again is told again.
    ShowProgramWindow(optionsWindow);
    Click(Find("Button", "English"));
    Click(ok);
    EXPECT_EQ(answer.boxes, 4);
    EXPECT_NE(answer.text.find("could not be saved"), std::string::npos);
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_TRUE(settings.settingsDirty);
    SetEnvironmentVariableW(L"TALLYMERE_STARTED_ANEW", nullptr);
    fs::remove_all(settingsFolder.folder);
    EXPECT_TRUE(SaveSettingsOrReport());
}

}  // namespace
}  // namespace tallymere
