// How a pending error is shown: the message box, and what it leaves behind.
#include "shell/windows/error_report.h"

#include "core/number_context.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"
#include "shell_windows/message_boxes.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

class ErrorReport : public testing_support::ToolkitTest {
protected:
    ErrorReport() {
        InstallLanguage(LanguageEnglish);
        ClearErrors();
    }
    ~ErrorReport() override {
        InstallLanguage(LanguageEnglish);
        ClearErrors();
    }

    const testing_support::MessageBoxAnswer answer;
};

TEST_F(ErrorReport, ShowsTheMessageUnderTheTitleErrorAboveTheActiveWindow) {
    SetActiveWindow(dialog);
    SetUiError(UiErrorFileNotFound, u"C:\\x");
    ReportUiError();
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.caption, "Error");
    EXPECT_EQ(answer.text, "The file \"C:\\x\" was not found!");
    EXPECT_EQ(answer.owner, dialog);
    EXPECT_EQ(answer.buttons, 1);
    EXPECT_TRUE(answer.hasIcon);
}

TEST_F(ErrorReport, BelongsToTheUppermostUsableWindowWhileAnotherProgramIsInFront) {
    const HWND page = CreateDialogWindow(nullptr, {100, 100}, u"Page", nullptr, 0, 0);
    const HWND shutOut = CreateDialogWindow(nullptr, {100, 100}, u"Shut out", nullptr, 0, 0);
    const HWND hidden = CreateDialogWindow(nullptr, {100, 100}, u"Hidden", nullptr, 0, 0);
    for (const HWND window : {dialog, page, shutOut}) {
        ShowWindow(window, SW_SHOWNORMAL);
    }
    EnableWindow(shutOut, FALSE);
    for (const HWND uppermost : {page, dialog}) {
        SetWindowPos(uppermost, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        SetWindowPos(shutOut, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        SetForegroundWindow(GetDesktopWindow());
        ASSERT_EQ(GetActiveWindow(), nullptr);
        SetUiError(UiErrorInternal);
        ReportUiError();
        EXPECT_EQ(answer.owner, uppermost);
    }
    EXPECT_EQ(answer.boxes, 2);
    for (const HWND window : {page, shutOut, hidden}) {
        DestroyWindow(window);
    }
}

TEST_F(ErrorReport, SpeaksTheLanguageOfTheProgram) {
    InstallLanguage(LanguageGerman);
    SetUiError(UiErrorDivisionByZero);
    ReportUiError();
    EXPECT_EQ(answer.caption, "Fehler");
    EXPECT_EQ(answer.text, "Division durch 0!");
}

TEST_F(ErrorReport, ShowsTheFirstOfTwoErrorsAndThatOnce) {
    SetUiError(UiErrorInternal);
    SetUiError(UiErrorDivisionByZero);
    ReportUiError();
    ReportUiError();
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, "Internal error!");
}

TEST_F(ErrorReport, ClearsEverythingBeforeTheBoxSoThatAnErrorBehindItIsKept) {
    SetUiError(UiErrorInternal);
    SetCalcError(CalcErrorOverflow);
    RequestStop();
    answer.raises = UiErrorDivisionByZero;
    ReportUiError();
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.pending, UiErrorNone);
    EXPECT_EQ(answer.calcError, CalcErrorNone);
    EXPECT_EQ(answer.cancelled, 0);
    EXPECT_EQ(PendingUiError(), UiErrorDivisionByZero);
}

TEST_F(ErrorReport, IsSilentAboutAStopAndAboutNothing) {
    ReportUiError();
    SetUiError(UiErrorStopped);
    RequestStop();
    ReportUiError();
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(cancelFlag, 0);
}

}  // namespace
}  // namespace tallymere
