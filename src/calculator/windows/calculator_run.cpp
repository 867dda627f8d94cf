#include "calculator/windows/calculator_run.h"

#include <algorithm>

#include "calculator/calc_evaluation.h"
#include "calculator/calculator_settings.h"
#include "calculator/calculator_sliders.h"
#include "calculator/key_press.h"
#include "calculator/key_view.h"
#include "calculator/variables_form.h"
#include "calculator/windows/calculator_controls.h"
#include "calculator/windows/calculator_display.h"
#include "shell/scratch_text.h"
#include "shell/windows/error_report.h"
#include "shell/windows/program_windows.h"
#include "shell/windows/window_making.h"
#include "shell/windows/window_text.h"
#include "toolkit/control_data.h"
#include "toolkit/environment.h"
#include "toolkit/wide_text.h"

#include <commctrl.h>

namespace tallymere {

PageRun calculatorRun;

namespace {

// Written by the CalcThread, read when it has posted its end.
CalcEvaluation lastEvaluation;

// What the CalcThread evaluates. It lies on the ScratchStack of the UI thread until the end of the
// run.
const char16_t* formulaOfRun = nullptr;

// The formula as it stands in its field, on the ScratchStack. One that is too long raises
// UiErrorTextOverflow.
const char16_t* ReadFormula() {
    bool isCut = false;
    const char16_t* formula = TakeWindowText(CurrentScratchStack(), ControlOf(CalculatorFormula),
                                             CalcFormulaCharacters, &isCut);
    if (isCut) {
        SetUiError(UiErrorTextOverflow);
    }
    return formula;
}

void EditFormula(int64_t from, int64_t to, const char16_t* text) {
    const HWND field = ControlOf(CalculatorFormula);
    if (from != AtSelection) {
        SendMessageW(field, EM_SETSEL, static_cast<WPARAM>(from), static_cast<LPARAM>(to));
    }
    SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
}

void AppendMissingParentheses() {
    ScratchStackScope scope;
    const int64_t missing = CountMissingParentheses(ReadFormula());
    if (missing == 0) {
        return;
    }
    char16_t* text = TakeText(scope, missing);
    std::fill_n(text, missing, u')');
    text[missing] = 0;
    const int64_t end = GetWindowTextLengthW(ControlOf(CalculatorFormula));
    EditFormula(end, end, text);
}

// The work of the CalcThread.
void EvaluateFormulaOfRun() {
    lastEvaluation = CalculateResult(formulaOfRun);
}

// The formula is read here and not by the CalcThread, which could find what was typed after "=".
void PrepareEvaluation() {
    lastEvaluation = {};
    AppendMissingParentheses();
    formulaOfRun = ReadFormula();
    if (PendingUiError() == UiErrorNone) {
        BeginEvaluation();
    } else {
        MarkResultStale();
        ShowResultState();
    }
}

void FinishEvaluation(bool) {
    if (lastEvaluation.fellToReal) {
        FollowFallToReal(settings);
        SendMessageW(ControlOf(ContainerTypeSlider), TBM_SETPOS, TRUE,
                     PositionOfType(NumberTypeReal));
        ShowNumberType();
    }
    const char16_t* shown = FinishCalculation(StyleOfResult(settings));
    if (shown != nullptr) {
        ShowResultText(shown);
        ShowControl(ControlOf(ContainerBracketMark), calculator.resultBracket);
    }
}

constexpr PageTask Evaluation = {CalcNumberSetup, PrepareEvaluation, EvaluateFormulaOfRun,
                                 FinishEvaluation, UiErrorCalculation};

// At the start and the end of a run the validity of the result has changed.
void SetCalcBusy(bool busy) {
    if (busy && calculatorRun.states.phase == StopShown) {
        ShowKeys();
    } else {
        ShowResultState();
    }
}

void CloseVariablesWindow() {
    if (variablesWindow != nullptr) {
        SendMessageW(variablesWindow, WM_CLOSE, 0, 0);
    }
}

void EmptyResult() {
    SetWindowTextW(ControlOf(CalculatorResult), L"");
    ShowControl(ControlOf(ContainerBracketMark), false);
}

void ShowVariablesWindow() {
    const HWND window = EnsureWindow(&variablesWindow);
    const LayoutPoint place =
        PlaceVariablesBeside(PlaceInParent(calculatorWindows.page), screenDpi);
    SetWindowPos(window, nullptr, place.x, place.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(window, SW_SHOWNORMAL);
    BringWindowToTop(window);
}

// What needs the numbers of the calculator.
KeyEffect PressKeyWithNumbers(int32_t index) {
    const NumberSetupScope scope(CalcNumberSetup());
    ClearErrors();
    const KeyEffect effect =
        CalcKeyPressed(index, GetWindowTextLengthW(ControlOf(CalculatorFormula)),
                       StyleOfKeypad(settings, osVersionCode));
    if (effect.command == KeyShowsResult) {
        ShowResultText();
    }
    return effect;
}

void PressKey(int32_t index) {
    const KeyEffect effect = PressKeyWithNumbers(index);
    switch (effect.command) {
        case KeyDoesNothing:
        case KeyShowsResult:
            break;
        case KeyClearsAll:
            EmptyResult();
            [[fallthrough]];
        case KeyEditsFormula:
            for (const FieldEdit& edit : effect.edits) {
                EditFormula(edit.from, edit.to, edit.text.text);
            }
            ShowResultState();
            break;
        case KeyEvaluates:
            StartPageRun(calculatorRun, Evaluation);
            return;
        case KeyShowsVariables:
            ShowVariablesWindow();
            break;
    }
    if (PendingUiError() != UiErrorNone) {
        MarkResultStale();
        ShowResultState();
        ReportUiError();
    }
}

void PressCalculatorKey(int32_t index) {
    switch (ClickOfKey(calculatorRun.states.phase, index)) {
        case ClickIgnored:
            break;
        case ClickPresses:
            PressKey(index);
            break;
        case ClickStops:
            StopPageRun(calculatorRun);
            break;
    }
}

}  // namespace

void ClickCalculatorKey(int32_t index) {
    SetFocus(ControlOf(CalculatorFocusSink));
    PressCalculatorKey(index);
}

void PressEvaluate() {
    PressCalculatorKey(KeyOfAction(ActionEvaluate, settings.numberType));
}

void PrepareCalculatorRun() {
    static HWND disabled[ContainerControlCount];
    int32_t count = 0;
    for (int32_t i = 0; i < ContainerControlCount; i++) {
        if (IsDisabledDuringRun(static_cast<ContainerControl>(i))) {
            disabled[count++] = calculatorWindows.containerControls[i];
        }
    }
    calculatorRun = {.page = calculatorWindows.page,
                     .controls = {.disabled = disabled, .disabledCount = count},
                     .states = {.rules = {StopAfterAWhile, LeavesBeforeReport}},
                     .showBusy = SetCalcBusy,
                     .close = CloseVariablesWindow};
}

}  // namespace tallymere
