#include "algebra_pages/windows/polynomial_page.h"

#include "algebra_pages/equation_run.h"
#include "algebra_pages/polynomial_names.h"
#include "algebra_pages/polynomial_run.h"
#include "algebra_pages/windows/coefficient_grid.h"
#include "algebra_pages/windows/number_choice.h"
#include "core/text_flags.h"
#include "shell/settings.h"
#include "shell/text_sink.h"
#include "shell/windows/fonts.h"
#include "shell/windows/wait_cursor.h"
#include "shell/windows/window_text.h"
#include "toolkit/numeric_up_down.h"
#include "toolkit/wide_text.h"

namespace tallymere {

PolynomialPage polynomialPage;

namespace {

PolynomialRequest request;
ResultStore lastResult;

HWND ControlOf(PolynomialControl control) {
    return polynomialPage.controls[control];
}

void EnableControl(PolynomialControl control, bool enable) {
    EnableWindow(ControlOf(control), enable ? TRUE : FALSE);
}

// The grid.

void PrepareGrid() {
    const HWND grid = ControlOf(PolynomialGrid);
    BeginCoefficientGrid(grid, PolynomialLabelWidth);
    for (int32_t power = MaxPolyDegree; power >= 0; power--) {
        AddCoefficientColumn(grid, LabelOfCoefficient(power).text, PolynomialColumnWidth);
    }
    AddFillerColumn(grid);
}

void WriteRowName(char16_t* name, int32_t row) {
    CopyBounded(name, RowNameCapacity, NameOfPolynomial(row).text);
}

void SetPolynomialCount(int32_t count) {
    polynomialPage.count = count;
    SetCoefficientRows(ControlOf(PolynomialGrid), count, WriteRowName);
    for (const PolynomialOperatorButton& button : PolynomialOperators) {
        EnableControl(button.control, TakesPolynomials(button.operation, count));
    }
}

void SetMaxDegree(int32_t degree) {
    const HWND grid = ControlOf(PolynomialGrid);
    polynomialPage.maxDegree = degree;
    // First the columns that the cursor can go to.
    ShowCoefficientColumns(grid, ColumnOfPower(degree), ColumnOfPower(0) + 1, true);
    ShowCoefficientColumns(grid, 0, ColumnOfPower(degree), false);
    ScrollToFirstColumn(grid);
    char16_t hint[PolynomialHintCapacity + 1];
    WritePolynomialHint(hint, degree);
    SetWindowTextW(ControlOf(PolynomialHint), ToWide(hint));
}

void CountChanged(HWND, int32_t count) {
    SetPolynomialCount(count);
}

void DegreeChanged(HWND, int32_t degree) {
    SetMaxDegree(degree);
}

// Also the columns that are hidden.
void ClearRow(int32_t polynomial) {
    for (int32_t power = 0; power <= MaxPolyDegree; power++) {
        WriteCoefficient(ControlOf(PolynomialGrid), ColumnOfPower(power), polynomial, nullptr);
    }
}

void ClearRows() {
    for (int32_t polynomial = 0; polynomial < polynomialPage.count; polynomial++) {
        ClearRow(polynomial);
    }
}

void TakeResult(int32_t polynomial) {
    const int32_t degree = MaxDegreeForResult(lastResult, polynomialPage.maxDegree);
    if (degree != polynomialPage.maxDegree) {
        ChooseNumericPosition(ControlOf(PolynomialDegree), degree);
    }
    for (int32_t power = 0; power <= MaxPolyDegree; power++) {
        WriteCoefficient(ControlOf(PolynomialGrid), ColumnOfPower(power), polynomial,
                         KeptResultText(lastResult, power));
    }
}

// The number type and the precision.

NumberChoiceControls ChoiceControls() {
    return {.type = ControlOf(PolynomialType),
            .precision = ControlOf(PolynomialPrecision),
            .precisionLabel = ControlOf(PolynomialPrecisionLabel)};
}

void TypeChosen(HWND, int32_t type) {
    EnablePrecision(ChoiceControls(), type);
}

// The run.

void EnableResult(bool enable) {
    EnableControl(PolynomialResultTo0, enable);
    EnableControl(PolynomialResultTo1, enable);
}

void ReadCell(void*, int32_t polynomial, int32_t power, char16_t* text) {
    ReadCoefficientText(ControlOf(PolynomialGrid), ColumnOfPower(power), polynomial, text);
}

void AppendToOutput(void*, const char16_t* text) {
    AppendWindowText(ControlOf(PolynomialOutput), text);
}

NumberSetup SetupOfRequest() {
    return PolynomialNumberSetup(request);
}

void PrepareCalculation() {
    SetWindowTextW(ControlOf(PolynomialOutput), L"");
    EnableResult(false);
}

void Calculate() {
    const WaitCursorScope wait;
    EnableResult(RunPolynomials(request, lastResult, AppendToOutput, nullptr));
}

constexpr PageTask PolynomialTask = {SetupOfRequest, PrepareCalculation, Calculate, [](bool) {},
                                     UiErrorCalculation};

void StartCalculation(PolyOperator operation) {
    const NumberChoice choice = ReadNumberChoice(ChoiceControls());
    request = {.operation = operation,
               .count = polynomialPage.count,
               .maxDegree = polynomialPage.maxDegree,
               .type = choice.type,
               .digits = choice.digits,
               .printFlags = settings.groupEquations ? uint32_t{TextGroup} : 0,
               .readCell = ReadCell,
               .context = nullptr};
    StartPageRun(polynomialPage.run, PolynomialTask);
}

// The window.

void FillCaptions() {
    for (int32_t i = PolynomialResultTo0; i <= PolynomialClear1; i++) {
        char16_t caption[PolynomialCaptionCapacity + 1];
        WritePolynomialCaption(caption, static_cast<PolynomialControl>(i));
        SetWindowTextW(polynomialPage.controls[i], ToWide(caption));
    }
    polynomialPage.operatorFont = MakeFont(PolynomialOperatorFont);
    for (const PolynomialOperatorButton& button : PolynomialOperators) {
        SendMessageW(ControlOf(button.control), WM_SETFONT,
                     reinterpret_cast<WPARAM>(polynomialPage.operatorFont), FALSE);
    }
}

void BeginNumeric(PolynomialControl control, int32_t low, int32_t high, NumericChanged changed,
                  int32_t number) {
    SetNumericRange(ControlOf(control), low, high);
    SetNumericChanged(ControlOf(control), changed);
    ChooseNumericPosition(ControlOf(control), number);
}

void FillControls() {
    FillCaptions();
    PrepareGrid();
    BeginNumeric(PolynomialCount, MinPolynomials, MaxPolynomials, CountChanged, MinPolynomials);
    BeginNumeric(PolynomialDegree, MinPolyMaxDegree, MaxPolyDegree, DegreeChanged,
                 InitialPolyMaxDegree);
    BeginNumberChoice(ChoiceControls(), TypeChosen);
    EmptyResultStore(lastResult);
    EnableResult(false);
}

void HandleClick(HWND pressed) {
    for (const PolynomialOperatorButton& button : PolynomialOperators) {
        if (pressed == ControlOf(button.control)) {
            StartCalculation(button.operation);
            return;
        }
    }
    for (const PolynomialControl button : {PolynomialResultTo0, PolynomialResultTo1}) {
        if (pressed == ControlOf(button)) {
            TakeResult(PolynomialOfButton(button));
        }
    }
    for (const PolynomialControl button : {PolynomialClear0, PolynomialClear1}) {
        if (pressed == ControlOf(button)) {
            ClearRow(PolynomialOfButton(button));
        }
    }
    if (pressed == ControlOf(PolynomialClearAll)) {
        ClearRows();
    }
}

constexpr FormPageKind Kind = {
    .index = PagePolynomialCalculation,
    .title = &UiText::TextPolyPolynomialCalculation,
    .size = PolynomialPageSize,
    .form = PolynomialForm,
    .count = PolynomialControlCount,
    .place =
        [](int32_t control, LayoutSize client) {
            return PlacePolynomialControl(static_cast<PolynomialControl>(control), client);
        },
    .close = PolynomialClose,
    .click = HandleClick,
};
static_assert(Kind.count <= MaxPageControls);

LRESULT PolynomialPageProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    if (message == WM_NCDESTROY) {
        DeleteObject(polynomialPage.operatorFont);
    }
    return HandleFormPage(polynomialPage, Kind, message, wParam, lParam, callDefault);
}

}  // namespace

void CreatePolynomialPage() {
    polynomialPage = {};
    CreateFormPage(polynomialPage, Kind, PolynomialPageProc);
    FillControls();
    polynomialPage.run.states.rules = {StopNever, LeavesAtOnce};
    CompleteFormPage(polynomialPage, Kind);
}

}  // namespace tallymere
