#include "algebra_pages/windows/equation_page.h"

#include <span>

#include "algebra/polynomial_roots.h"
#include "algebra_pages/equation_lines.h"
#include "algebra_pages/equation_run.h"
#include "algebra_pages/windows/coefficient_grid.h"
#include "core/limits.h"
#include "shell/scratch_text.h"
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

void HandleClick(HWND button) {
    if (button == ControlOf(EquationClear)) {
        ClearPage();
    }
}

constexpr FormPageKind Kind = {
    .index = PageAlgebraicEquations,
    .title = &UiText::TextAlgSolveAlgebraicEquations,
    .size = EquationPageSize,
    .form = EquationForm,
    .count = EquationControlCount,
    .place =
        [](int32_t control, LayoutSize client) {
            return PlaceEquationControl(static_cast<EquationControl>(control), client);
        },
    .close = EquationClose,
    .click = HandleClick,
};
static_assert(Kind.count <= MaxPageControls);

LRESULT EquationPageProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    return HandleFormPage(equationPage, Kind, message, wParam, lParam, callDefault);
}

}  // namespace

void CreateEquationPage() {
    equationPage = {};
    CreateFormPage(equationPage, Kind, EquationPageProc);
    FillControls();
    equationPage.run.startTask = &EquationTask;
    equationPage.run.controls = {.startButton = ControlOf(EquationSolve),
                                 .startCaption = &UiText::TextAlgSolve,
                                 .disabled = &equationPage.controls[EquationClear],
                                 .disabledCount = 1};
    equationPage.run.states.rules = {StopFromTheStart, LeavesLater};
    CompleteFormPage(equationPage, Kind);
}

}  // namespace tallymere
