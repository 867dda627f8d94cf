#include "calculator/windows/calculator_page.h"

#include "calculator/calculator_layout.h"
#include "calculator/calculator_settings.h"
#include "calculator/field_editing.h"
#include "calculator/variable_settings.h"
#include "calculator/variable_table.h"
#include "calculator/windows/calculator_container.h"
#include "calculator/windows/calculator_controls.h"
#include "calculator/windows/calculator_display.h"
#include "calculator/windows/calculator_run.h"
#include "calculator/windows/colours.h"
#include "shell/windows/error_report.h"
#include "shell/windows/form_windows.h"
#include "shell/windows/program_windows.h"
#include "toolkit/control_data.h"
#include "toolkit/environment.h"
#include "toolkit/long_text_field.h"
#include "toolkit/splitter_control.h"

namespace tallymere {

CalculatorWindows calculatorWindows;

namespace {

// False while the page is being made.
bool isComplete = false;

FieldHeights FieldPixels() {
    return {PlaceInParent(ControlOf(CalculatorFormula)).height,
            PlaceInParent(ControlOf(CalculatorResult)).height};
}

void LayOutPage() {
    const FieldHeights heights = FieldPixels();
    const CalculatorLayout layout =
        LayOutCalculator(LogicalClientSize(calculatorWindows.page),
                         {FromScreenPixels(heights.formula), FromScreenPixels(heights.result)});
    PlaceControl(ControlOf(CalculatorFormula), layout.formula);
    PlaceControl(ControlOf(CalculatorSplitter), layout.splitter);
    PlaceControl(ControlOf(CalculatorResult), layout.result);
    PlaceControl(calculatorWindows.container, layout.container);
}

bool MoveSplitter(HWND, int32_t difference) {
    FieldHeights heights = FieldPixels();
    if (!MoveCalculatorSplitter(heights, difference, screenDpi)) {
        return false;
    }
    const HWND formula = ControlOf(CalculatorFormula);
    const LayoutRect above = PlaceInParent(formula);
    SetWindowPos(formula, nullptr, 0, 0, above.width, heights.formula,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    const HWND result = ControlOf(CalculatorResult);
    const LayoutRect below = PlaceInParent(result);
    SetWindowPos(result, nullptr, below.x, below.y + difference, below.width, heights.result,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    return true;
}

// Long formulas and results break at any character.
int CALLBACK BreakAnywhere(LPWSTR, int, int, int) {
    return 0;
}

void FormulaChanges() {
    if (calculator.resultValid) {
        MarkResultStale();
        ShowResultState();
    }
}

// Return is pressed once, however long it is held: a formula such as ans+ans would be evaluated
// again and again.
void HandleReturn(LPARAM lParam) {
    if ((HIWORD(lParam) & KF_REPEAT) == 0) {
        PressEvaluate();
    }
}

LRESULT FormulaHandler(HWND field, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    if (message == WM_SETFOCUS) {
        calculator.formulaTouched = true;
    } else if (message == WM_CHAR && wParam == FieldReturn) {
        callDefault = false;
        // As if the focus had gone to the key and come back.
        calculator.formulaTouched = true;
        HandleReturn(lParam);
        return 0;
    } else if (ChangesFieldText(message, wParam)) {
        FormulaChanges();
    }
    return HandleLongText(field, message, wParam, lParam, callDefault);
}

// What is typed after a click on the keypad is meant for the formula, and follows the rule of the
// keys: the first one after a result starts a new formula.
void TypeIntoFormula(WPARAM character, LPARAM lParam) {
    const HWND field = ControlOf(CalculatorFormula);
    if (!calculator.formulaTouched) {
        SetWindowTextW(field, L"");
    }
    SetFocus(field);
    SendMessageW(field, WM_CHAR, character, lParam);
}

LRESULT FocusSinkHandler(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    if ((message == WM_KEYDOWN || message == WM_KEYUP) &&
        (wParam == VK_SPACE || wParam == VK_RETURN)) {
        // They would click the sink; their characters come by themselves.
        callDefault = false;
    } else if (message == WM_CHAR && wParam == FieldReturn) {
        callDefault = false;
        HandleReturn(lParam);
    } else if (message == WM_CHAR &&
               (ChangesFieldText(message, wParam) || wParam == FieldPasteKey)) {
        callDefault = false;
        TypeIntoFormula(wParam, lParam);
    } else if (IsPasteKey(message, wParam)) {
        callDefault = false;
        TypeIntoFormula(FieldPasteKey, lParam);
    }
    return 0;
}

// The field is not read-only, which would make it grey, but takes no changes.
LRESULT ResultHandler(HWND field, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    if (ChangesFieldText(message, wParam)) {
        callDefault = false;
        return 0;
    }
    return HandleLongText(field, message, wParam, lParam, callDefault);
}

HBRUSH PrepareResult(HDC dc) {
    SetTextColor(
        dc, calculator.resultValid ? GetSysColor(COLOR_WINDOWTEXT) : ToColorRef(StaleResultColour));
    SetBkMode(dc, OPAQUE);
    SetBkColor(dc, GetSysColor(COLOR_WINDOW));
    return GetSysColorBrush(COLOR_WINDOW);
}

void CreateFields() {
    CreateFormControls(calculatorWindows.page, CalculatorForm, CalculatorControlCount,
                       calculatorWindows.controls);
    for (const CalculatorControl field : {CalculatorFormula, CalculatorResult}) {
        SendMessageW(ControlOf(field), WM_SETFONT, reinterpret_cast<WPARAM>(FieldFont()), FALSE);
        SendMessageW(ControlOf(field), EM_SETWORDBREAKPROC, 0,
                     reinterpret_cast<LPARAM>(BreakAnywhere));
    }
    SetControlHandler(ControlOf(CalculatorFocusSink), FocusSinkHandler);
    SetControlHandler(ControlOf(CalculatorFormula), FormulaHandler);
    SetControlHandler(ControlOf(CalculatorResult), ResultHandler);
    SetSplitterMoving(ControlOf(CalculatorSplitter), MoveSplitter);
}

LRESULT CalculatorPageProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    if (HandlePageRun(calculatorRun, message, wParam, lParam, callDefault)) {
        return 0;
    }
    switch (message) {
        case WM_SIZE:
            if (isComplete && wParam != SIZE_MINIMIZED) {
                LayOutPage();
            }
            break;
        case WM_CTLCOLOREDIT:
            if (reinterpret_cast<HWND>(lParam) == ControlOf(CalculatorResult)) {
                callDefault = false;
                return reinterpret_cast<LRESULT>(PrepareResult(reinterpret_cast<HDC>(wParam)));
            }
            break;
        case WM_NCDESTROY:
            isComplete = false;
            DeleteCalculatorFonts();
            break;
        default:
            break;
    }
    return 0;
}

void CreateWindows() {
    // For the settings, which are put in force while the controls take them over.
    const NumberSetupScope scope;
    PrepareCalculatorDisplay();
    StartCalculator(settings);
    // Not with their window: a formula may be evaluated before that is made. And once, however
    // often a page that could not be made is asked for.
    if (variableTable.count == 0) {
        LoadVariables(settings);
    }
    calculatorWindows.page =
        CreatePageWindow(CalculatorSize, uiText.TextCalcScientificCalculator, CalculatorPageProc);
    CreateFields();
    CreateCalculatorContainer();
    PrepareCalculatorRun();
    isComplete = true;
    LayOutPage();
    ShowNumberType();
    ShowAngle();
    pageWindows[PageCalculator] = calculatorWindows.page;
}

}  // namespace

void CreateCalculatorPage() {
    CreateWindows();
    ReportUiError();
}

}  // namespace tallymere
