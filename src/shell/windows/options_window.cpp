#include "shell/windows/options_window.h"

#include "shell/options_choices.h"
#include "shell/options_form.h"
#include "shell/windows/error_report.h"
#include "shell/windows/form_windows.h"
#include "shell/windows/program_windows.h"
#include "shell/windows/restart.h"
#include "shell/windows/settings_file.h"
#include "shell/windows/user_locale.h"
#include "toolkit/control_data.h"
#include "toolkit/tab_page.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

HWND controls[OptionsControlCount];
OptionsChoices choices;

bool IsChecked(OptionsControl control) {
    return SendMessageW(controls[control], BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void SetChecked(OptionsControl control, bool checked) {
    SendMessageW(controls[control], BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

int32_t SelectedRow(OptionsControl list) {
    static_assert(NoRow == CB_ERR);
    return static_cast<int32_t>(SendMessageW(controls[list], CB_GETCURSEL, 0, 0));
}

void SelectRow(OptionsControl list, int32_t row) {
    SendMessageW(controls[list], CB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

template <size_t Count>
void FillList(OptionsControl list, const UiTextEntry (&rows)[Count]) {
    for (const UiTextEntry row : rows) {
        SendMessageW(controls[list], CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(uiText.*row));
    }
}

void EnableSeparatorLists() {
    const bool enable = !IsChecked(OptionsAutomaticSeparators);
    for (const OptionsControl control :
         {OptionsDecimalLabel, OptionsDecimalList, OptionsThousandsLabel, OptionsThousandsList}) {
        EnableWindow(controls[control], enable);
    }
}

void WriteControls() {
    SetChecked(OptionsAutomaticSeparators, choices.automaticSeparators);
    if (!choices.automaticSeparators) {
        SelectRow(OptionsDecimalList, choices.decimalRow);
        SelectRow(OptionsThousandsList, choices.thousandsRow);
    }
    EnableSeparatorLists();
    SetChecked(OptionsGroupingCalculator, choices.groupCalculator);
    SetChecked(OptionsGroupingEquations, choices.groupEquations);
    SetChecked(OptionsGroupingPrimes, choices.groupPrimes);
    for (const auto& [button, language] : OptionsLanguageButtons) {
        SetChecked(button, choices.language == language);
    }
}

void ReadControls() {
    choices.automaticSeparators = IsChecked(OptionsAutomaticSeparators);
    choices.decimalRow = SelectedRow(OptionsDecimalList);
    choices.thousandsRow = SelectedRow(OptionsThousandsList);
    choices.groupCalculator = IsChecked(OptionsGroupingCalculator);
    choices.groupEquations = IsChecked(OptionsGroupingEquations);
    choices.groupPrimes = IsChecked(OptionsGroupingPrimes);
    choices.language = LanguageAutomatic;
    for (const auto& [button, language] : OptionsLanguageButtons) {
        if (IsChecked(button)) {
            choices.language = language;
        }
    }
}

// A language that was changed stays so even when the user does not want to restart now.
void OfferRestart(HWND window) {
    if (MessageBoxW(window, ToWide(uiText.TextOptChangeLanguageSettingWill),
                    ToWide(uiText.TextOptHint), MB_OKCANCEL) != IDCANCEL) {
        RestartProgram();
    }
}

void HandleOk(HWND window) {
    ReadControls();
    const OptionsOutcome outcome = AcceptOptions(settings, choices);
    if (outcome.separatorsChanged) {
        ApplyUserSeparators();
    }
    if (outcome.languageChanged) {
        OfferRestart(window);
    }
    ReportUiError();
    if (outcome.accepted) {
        SendMessageW(window, WM_CLOSE, 0, 0);
    }
}

void HandleOptionsButton(HWND window, HWND button) {
    if (button == controls[OptionsOk]) {
        HandleOk(window);
    } else if (button == controls[OptionsCancel]) {
        SendMessageW(window, WM_CLOSE, 0, 0);
    }
}

LRESULT SeparatorGroupProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool&) {
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED &&
        reinterpret_cast<HWND>(lParam) == controls[OptionsAutomaticSeparators]) {
        EnableSeparatorLists();
    }
    return 0;
}

LRESULT OptionsWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                          bool& callDefault) {
    switch (message) {
        case WM_SHOWWINDOW:
            if (wParam == TRUE) {
                ShowOptions(choices, settings);
                WriteControls();
            }
            break;
        case WM_NOTIFY: {
            const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
            if (code == TCN_SELCHANGING || code == TCN_SELCHANGE) {
                ShowControl(CurrentTabPage(controls[OptionsTabs]), code == TCN_SELCHANGE);
            }
            break;
        }
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED && lParam != 0) {
                HandleOptionsButton(window, reinterpret_cast<HWND>(lParam));
            }
            break;
        case WM_CLOSE:
            callDefault = false;
            HideProgramWindow(window);
            SaveSettingsOrReport();
            break;
        default:
            break;
    }
    return 0;
}

}  // namespace

void CreateOptionsWindow() {
    optionsWindow =
        CreateDialogWindow(mainWindow, OptionsSize, uiText.TextOptOptions, OptionsWindowProc,
                           WS_SYSMENU | DialogClientSize | DialogCentred, 0);
    CreateFormControls(optionsWindow, OptionsForm.data(), OptionsControlCount, controls);
    SetControlHandler(controls[OptionsSeparatorGroup], SeparatorGroupProc);
    FillList(OptionsDecimalList, OptionsDecimalRows);
    FillList(OptionsThousandsList, OptionsThousandsRows);
}

}  // namespace tallymere
