// How a pending error is shown: the message box, and what it leaves behind.
#include "shell/windows/error_report.h"

#include "core/number_context.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"
#include "shell_windows/message_boxes.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::seen;

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

    testing_support::MessageBoxWatch watch;
};

TEST_F(ErrorReport, ShowsTheMessageUnderTheTitleErrorAboveTheActiveWindow) {
    SetActiveWindow(dialog);
    SetUiError(UiErrorFileNotFound, u"C:\\x");
    ReportUiError();
    EXPECT_EQ(seen.boxes, 1);
    EXPECT_EQ(seen.title, "Error");
    EXPECT_EQ(seen.text, "The file \"C:\\x\" was not found!");
    EXPECT_EQ(seen.owner, dialog);
    EXPECT_EQ(seen.buttons, 1);
    EXPECT_TRUE(seen.hasIcon);
}

TEST_F(ErrorReport, SpeaksTheLanguageOfTheProgram) {
    InstallLanguage(LanguageGerman);
    SetUiError(UiErrorDivisionByZero);
    ReportUiError();
    EXPECT_EQ(seen.title, "Fehler");
    EXPECT_EQ(seen.text, "Division durch 0!");
}

TEST_F(ErrorReport, ShowsTheFirstOfTwoErrorsAndThatOnce) {
    SetUiError(UiErrorInternal);
    SetUiError(UiErrorDivisionByZero);
    ReportUiError();
    ReportUiError();
    EXPECT_EQ(seen.boxes, 1);
    EXPECT_EQ(seen.text, "Internal error!");
}

TEST_F(ErrorReport, ClearsEverythingBeforeTheBoxSoThatAnErrorBehindItIsKept) {
    SetUiError(UiErrorInternal);
    SetCalcError(CalcErrorOverflow);
    RequestCancel();
    seen.raises = UiErrorDivisionByZero;
    ReportUiError();
    EXPECT_EQ(seen.boxes, 1);
    EXPECT_EQ(seen.pending, UiErrorNone);
    EXPECT_EQ(seen.calcError, CalcErrorNone);
    EXPECT_EQ(seen.cancelFlag, 0);
    EXPECT_EQ(PendingUiError(), UiErrorDivisionByZero);
}

TEST_F(ErrorReport, IsSilentAboutAStopAndAboutNothing) {
    ReportUiError();
    SetUiError(UiErrorStopped);
    RequestCancel();
    ReportUiError();
    EXPECT_EQ(seen.boxes, 0);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(cancelFlag, 0);
}

}  // namespace
}  // namespace tallymere
