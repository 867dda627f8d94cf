#include "algebra_pages/windows/equation_page.h"

#include <span>

#include "algebra/polynomial_roots.h"
#include "algebra_pages/equation_lines.h"
#include "algebra_pages/equation_run.h"
#include "algebra_pages/windows/coefficient_grid.h"
#include "core/limits.h"
#include "shell/scratch_text.h"
#include "shell/windows/form_windows.h"
#include "shell/windows/program_windows.h"
#include "shell/windows/window_text.h"
#include "toolkit/grid_control.h"
#include "toolkit/numeric_up_down.h"
#include "toolkit/wide_text.h"

namespace tallymere {

EquationPage equationPage;

namespace {

// Written before a run. The thread of the run reads the request and writes the solutions, which the
// UI thread reads afterwards.
EquationRequest request;
SolutionSet solutions;

HWND ControlOf(EquationControl control) {
    return equationPage.controls[control];
}

bool IsItemSelected(EquationControl list, int32_t item) {
    return SendMessageW(ControlOf(list), CB_GETCURSEL, 0, 0) == item;
}

bool IsMultiplicityShown() {
    return SendMessageW(ControlOf(EquationMultiplicity), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void LayOutPage() {
    PlaceFormControls(
        equationPage.window, equationPage.controls, [](int32_t control, LayoutSize client) {
            return PlaceEquationControl(static_cast<EquationControl>(control), client);
        });
}

// The grid: one column, and a row for each coefficient, from that of the highest power down.

constexpr int32_t TopRow = -1;

int32_t RowOfCoefficient(int64_t index) {
    return equationPage.degree - static_cast<int32_t>(index);
}

// With its first row a column gets room for as many as there are coefficients, so no row is ever
// refused.
static_assert(1 + MaxEquationDegree + 1 <= GridListStep);

void AddCoefficientOnTop(int32_t index) {
    SendMessageW(ControlOf(EquationGrid), GridInsertRow, static_cast<WPARAM>(TopRow),
                 reinterpret_cast<LPARAM>(LabelOfCoefficient(index).text));
}

void PrepareGrid() {
    const HWND grid = ControlOf(EquationGrid);
    BeginCoefficientGrid(grid, EquationLabelsWidth);
    AddCoefficientColumn(grid, nullptr, EquationCoefficientsWidth);
    AddCoefficientOnTop(0);
}

// Rows come and go at the top, so each coefficient that stays keeps its text.
void SetEquationDegree(int32_t degree) {
    for (; equationPage.degree < degree; equationPage.degree++) {
        AddCoefficientOnTop(equationPage.degree + 1);
    }
    for (; equationPage.degree > degree; equationPage.degree--) {
        SendMessageW(ControlOf(EquationGrid), GridDeleteRow, 0, 0);
    }
    char16_t text[EquationTextCapacity + 1];
    WriteEquationText(text, degree);
    SetWindowTextW(ControlOf(EquationText), ToWide(text));
    SetNumericRange(ControlOf(EquationPrecision), MinEquationDigits,
                    static_cast<int32_t>(MaxRootDigits(degree)));
}

void DegreeChanged(HWND, int32_t degree) {
    SetEquationDegree(degree);
}

void ClearPage() {
    for (int32_t row = 0; row <= equationPage.degree; row++) {
        WriteCoefficient(ControlOf(EquationGrid), 0, row, nullptr);
    }
    SetWindowTextW(ControlOf(EquationOutput), L"");
}

// The run.

// Reads all but the coefficients.
NumberSetup ReadEquationSetup() {
    request = {.degree = equationPage.degree,
               .mode = IsItemSelected(EquationModeList, ComplexModeItem) ? EquationMode::Complex
                                                                         : EquationMode::Real,
               .exact = IsItemSelected(EquationResultTypeList, ExactValueItem),
               .digits = NumericPosition(ControlOf(EquationPrecision)),
               .coefficients = {}};
    return EquationNumberSetup(request);
}

void PrepareEquation() {
    SetWindowTextW(ControlOf(EquationOutput), L"");
    solutions = TakeSolutionSet(CurrentScratchStack());
    for (int32_t i = 0; i <= request.degree; i++) {
        char16_t* text = TakeText(CurrentScratchStack(), CoefficientCharacters + 1);
        ReadCoefficientText(ControlOf(EquationGrid), 0, RowOfCoefficient(i), text);
        request.coefficients[i] = text;
    }
}

void SolveEquation() {
    EquationWorker(solutions, request);
}

void AppendToOutput(const char16_t* text) {
    AppendWindowText(ControlOf(EquationOutput), text);
}

void FinishEquation(bool succeeded) {
    if (succeeded) {
        ShowEquationRoots(solutions, request.exact, IsMultiplicityShown(), AppendToOutput);
    }
}

constexpr PageTask EquationTask = {ReadEquationSetup, PrepareEquation, SolveEquation,
                                   FinishEquation, UiErrorCalculation};

// The window.

void FillList(EquationControl list, std::span<const UiTextEntry> items) {
    for (const UiTextEntry item : items) {
        SendMessageW(ControlOf(list), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(uiText.*item));
    }
    SendMessageW(ControlOf(list), CB_SETCURSEL, 0, 0);
}

void FillControls() {
    FillList(EquationModeList, EquationModeItems);
    FillList(EquationResultTypeList, EquationResultTypeItems);
    SendMessageW(ControlOf(EquationMultiplicity), BM_SETCHECK, BST_CHECKED, 0);
    PrepareGrid();
    SetNumericRange(ControlOf(EquationDegreeField), 1, MaxEquationDegree);
    SetNumericChanged(ControlOf(EquationDegreeField), DegreeChanged);
    ChooseNumericPosition(ControlOf(EquationDegreeField), InitialEquationDegree);
    SetNumericPosition(ControlOf(EquationPrecision), DefaultDigits);
}

void HandleCommand(HWND control, int32_t news) {
    if (news != BN_CLICKED) {
        return;
    }
    if (control == ControlOf(EquationClear)) {
        ClearPage();
    } else if (control == ControlOf(EquationClose)) {
        SendMessageW(equationPage.window, WM_CLOSE, 0, 0);
    }
}

LRESULT EquationPageProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    if (equationPage.window == nullptr ||
        HandlePageRun(equationPage.run, message, wParam, lParam, callDefault)) {
        return 0;
    }
    switch (message) {
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) {
                LayOutPage();
            }
            break;
        case WM_COMMAND:
            if (lParam != 0) {
                HandleCommand(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
            }
            break;
        case WM_NCDESTROY:
            equationPage.window = nullptr;
            break;
        default:
            break;
    }
    return 0;
}

}  // namespace

void CreateEquationPage() {
    equationPage = {};
    const HWND window =
        CreatePageWindow(EquationPageSize, uiText.TextAlgSolveAlgebraicEquations, EquationPageProc);
    CreateFormControls(window, EquationForm, EquationControlCount, equationPage.controls);
    FillControls();
    equationPage.window = window;
    equationPage.run = {.page = window,
                        .startTask = &EquationTask,
                        .controls = {.startButton = ControlOf(EquationSolve),
                                     .startCaption = &UiText::TextAlgSolve,
                                     .disabled = &equationPage.controls[EquationClear],
                                     .disabledCount = 1},
                        .states = {.rules = {StopFromTheStart, LeavesLater}}};
    LayOutPage();
    pageWindows[PageAlgebraicEquations] = window;
}

}  // namespace tallymere
