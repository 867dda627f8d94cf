#include "calculator/windows/variables_window.h"

#include <string_view>

#include "calculator/calculator_state.h"
#include "calculator/variables_dialog.h"
#include "calculator/variables_form.h"
#include "calculator/windows/calculator_controls.h"
#include "shell/scratch_text.h"
#include "shell/ui_error.h"
#include "shell/windows/error_report.h"
#include "shell/windows/form_windows.h"
#include "shell/windows/page_run.h"
#include "shell/windows/program_windows.h"
#include "shell/windows/settings_file.h"
#include "shell/windows/window_text.h"
#include "toolkit/dialog_window.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

HWND controls[VariablesControlCount];
VariablesDialog dialog;

// The decimal separator that the value box was written with.
char16_t shownSeparator = 0;

// False while the window is being made.
bool isComplete = false;

void WriteBox(VariablesControl box, const char16_t* text) {
    SetWindowTextW(controls[box], ToWide(text));
    const int end = GetWindowTextLengthW(controls[box]);
    SendMessageW(controls[box], EM_SETSEL, static_cast<WPARAM>(end), end);
}

void SelectRow() {
    SendMessageW(controls[VariablesList], LB_SETCURSEL, static_cast<WPARAM>(dialog.selected), 0);
}

void InsertRow(int64_t row) {
    SendMessageW(controls[VariablesList], LB_INSERTSTRING, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(variableTable.variables[row].name));
}

void DeleteRow(int64_t row) {
    SendMessageW(controls[VariablesList], LB_DELETESTRING, static_cast<WPARAM>(row), 0);
}

void RewriteRow(int64_t row) {
    DeleteRow(row);
    InsertRow(row);
    SelectRow();
}

// A name that was refused gives way to the one that the variable has.
void ShowTakenName(std::u16string_view typed) {
    const char16_t* name = variableTable.variables[dialog.selected].name;
    if (typed != name) {
        WriteBox(VariablesName, name);
        BoxesWritten(dialog);
    }
}

// Takes over what was typed into the boxes. An invalid name is to be reported.
void CommitShownVariable() {
    ScratchStackScope scope;
    const char16_t* name =
        TakeWindowText(scope, controls[VariablesName], VariableNameCharacters, nullptr);
    const char16_t* value =
        TakeWindowText(scope, controls[VariablesValue], VariableValueCharacters, nullptr);
    if (CommitBoxes(dialog, {name, value})) {
        RewriteRow(dialog.selected);
        ShowTakenName(name);
    }
}

void WriteShownVariable() {
    ScratchStackScope scope;
    const Variable& variable = variableTable.variables[dialog.selected];
    char16_t* value = TakeText(scope, VariableValueCharacters);
    WriteInForce(value, variable.value);
    WriteBox(VariablesValue, value);
    WriteBox(VariablesName, variable.name);
}

void ShowSelectedVariable() {
    const bool isSelected = IsVariableSelected(dialog);
    SelectRow();
    if (isSelected) {
        WriteShownVariable();
    } else {
        WriteBox(VariablesName, u"");
        WriteBox(VariablesValue, u"");
    }
    shownSeparator = numberContext.decimalSeparators[0];
    for (const VariablesControl button :
         {VariablesAssign, VariablesTakeName, VariablesInsert, VariablesDelete}) {
        EnableWindow(controls[button], isSelected);
    }
    BoxesWritten(dialog);
}

void HandleSelection() {
    // Taking a name over rewrites its row, which selects it again.
    const LRESULT row = SendMessageW(controls[VariablesList], LB_GETCURSEL, 0, 0);
    CommitShownVariable();
    SelectVariable(dialog, row);
    ShowSelectedVariable();
}

void HandleAdd(int64_t position) {
    CommitShownVariable();
    if (!AddAndSelectVariable(dialog, position)) {
        return;
    }
    InsertRow(position);
    ShowSelectedVariable();
    SetFocus(controls[VariablesName]);
    SendMessageW(controls[VariablesName], EM_SETSEL, 0, -1);
}

void HandleDelete() {
    const int64_t row = dialog.selected;
    if (DeleteSelectedVariable(dialog)) {
        DeleteRow(row);
        ShowSelectedVariable();
    }
}

void HandleAssign() {
    CommitShownVariable();
    if (AssignResult(dialog)) {
        ShowSelectedVariable();
    }
}

void HandleTakeName() {
    if (const char16_t* name = TakeVariableName(dialog); name != nullptr) {
        SendMessageW(ControlOf(CalculatorFormula), EM_REPLACESEL, TRUE,
                     reinterpret_cast<LPARAM>(name));
    }
}

void HandleButton(HWND button) {
    if (button == controls[VariablesAdd]) {
        HandleAdd(variableTable.count);
    } else if (button == controls[VariablesInsert]) {
        HandleAdd(dialog.selected);
    } else if (button == controls[VariablesDelete]) {
        HandleDelete();
    } else if (button == controls[VariablesAssign]) {
        HandleAssign();
    } else if (button == controls[VariablesTakeName]) {
        HandleTakeName();
    }
    ReportUiError();
}

void HandleBox(HWND box, int32_t news) {
    if (news == EN_CHANGE) {
        (box == controls[VariablesName] ? dialog.nameChanged : dialog.valueChanged) = true;
    } else if (news == EN_KILLFOCUS) {
        CommitShownVariable();
        ReportUiError();
    }
}

void HandleCommand(HWND control, int32_t news) {
    if (control == controls[VariablesName] || control == controls[VariablesValue]) {
        HandleBox(control, news);
    } else if (control == controls[VariablesList]) {
        if (news == LBN_SELCHANGE) {
            HandleSelection();
            ReportUiError();
        }
    } else if (news == BN_CLICKED) {
        HandleButton(control);
    }
}

// Before the settings are saved at the end of the session, which no message box may delay. While a
// page calculates, no box has the focus, and the errors are those of the run.
void TakeOverUnreported() {
    if (!IsRunUnderWay()) {
        CommitShownVariable();
        ClearPendingErrors();
    }
}

// The dialog may stay open for days, beside runs that last as long. The box that has the focus is
// taken over now, since it loses it behind this message. Closing says what could not be saved.
void SaveWhenLeft() {
    if (!IsRunUnderWay()) {
        CommitShownVariable();
        SaveSettings();
    }
}

void LayOutVariables() {
    PlaceFormControls(variablesWindow, controls, [](int32_t control, LayoutSize client) {
        return PlaceVariablesControl(static_cast<VariablesControl>(control), client);
    });
}

LRESULT VariablesWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                            bool& callDefault) {
    if (!isComplete) {
        return 0;
    }
    switch (message) {
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) {
                LayOutVariables();
            }
            break;
        case WM_ACTIVATE:
            // Options may have changed the separator that the value is written with.
            if (LOWORD(wParam) == WA_INACTIVE) {
                SaveWhenLeft();
            } else if (shownSeparator != numberContext.decimalSeparators[0]) {
                ShowSelectedVariable();
            }
            break;
        case WM_COMMAND:
            if (lParam != 0) {
                HandleCommand(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
            }
            break;
        case WM_CLOSE:
            callDefault = false;
            // Takes the focus, so that the box which has it is taken over.
            HideProgramWindow(window);
            SaveSettingsOrReport();
            break;
        case WM_QUERYENDSESSION:
            TakeOverUnreported();
            break;
        case WM_NCDESTROY:
            isComplete = false;
            break;
        default:
            break;
    }
    return 0;
}

}  // namespace

void CreateVariablesWindow() {
    variablesWindow = CreateDialogWindow(
        calculatorWindows.page, VariablesSize, uiText.TextVarCalculatorVariables,
        VariablesWindowProc,
        WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | DialogClientSize | DialogCentred, 0);
    CreateFormControls(variablesWindow, VariablesForm, VariablesControlCount, controls);
    SendMessageW(controls[VariablesName], EM_LIMITTEXT, VariableNameCharacters, 0);
    for (int64_t row = 0; row < variableTable.count; row++) {
        InsertRow(row);
    }
    SelectVariable(dialog, 0);
    ShowSelectedVariable();
    isComplete = true;
    LayOutVariables();
}

}  // namespace tallymere
