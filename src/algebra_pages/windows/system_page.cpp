#include "algebra_pages/windows/system_page.h"

#include "algebra_pages/system_columns.h"
#include "algebra_pages/windows/coefficient_grid.h"
#include "algebra_pages/windows/csv_dialogs.h"
#include "algebra_pages/windows/csv_file.h"
#include "algebra_pages/windows/number_choice.h"
#include "shell/settings.h"
#include "shell/text_format.h"
#include "shell/windows/error_report.h"
#include "shell/windows/wait_cursor.h"
#include "shell/windows/window_text.h"
#include "toolkit/numeric_up_down.h"
#include "toolkit/wide_text.h"

namespace tallymere {

SystemPage systemPage;

namespace {

HWND ControlOf(SystemControl control) {
    return systemPage.controls[control];
}

// The grid.

void PrepareGrid() {
    const HWND grid = ControlOf(SystemGrid);
    BeginCoefficientGrid(grid, SystemLabelWidth);
    for (int32_t column = 0; column < SystemColumnCount; column++) {
        AddCoefficientColumn(grid, NameOfSystemColumn(column).text, SystemColumnWidth);
    }
    AddFillerColumn(grid);
}

void WriteRowName(char16_t* name, int32_t row) {
    FormatBounded(name, RowNameCapacity, u"%d", {row + 1});
}

void SetEquationCount(int32_t count) {
    const HWND grid = ControlOf(SystemGrid);
    systemPage.count = count;
    ShowCoefficientColumns(grid, 0, count, true);
    ShowCoefficientColumns(grid, count, RightSideColumn, false);
    SetCoefficientRows(grid, count, WriteRowName);
}

void CountChanged(HWND, int32_t count) {
    SetEquationCount(count);
}

// Also the columns that are hidden.
void ClearPage() {
    for (int32_t row = 0; row < systemPage.count; row++) {
        for (int32_t column = 0; column < SystemColumnCount; column++) {
            WriteCoefficient(ControlOf(SystemGrid), column, row, nullptr);
        }
    }
    SetWindowTextW(ControlOf(SystemOutput), L"");
}

// The number type and the precision.

NumberChoiceControls ChoiceControls() {
    return {.type = ControlOf(SystemType),
            .precision = ControlOf(SystemPrecision),
            .precisionLabel = ControlOf(SystemPrecisionLabel)};
}

void TypeChosen(HWND, int32_t type) {
    EnablePrecision(ChoiceControls(), type);
}

// The run.

void ReadCell(void*, int32_t row, int32_t column, char16_t* text) {
    ReadCoefficientText(ControlOf(SystemGrid), GridColumnOfSystem(column, systemPage.count), row,
                        text);
}

NumberSetup ReadSystemSetup() {
    const NumberChoice choice = ReadNumberChoice(ChoiceControls());
    systemPage.request = {.count = systemPage.count,
                          .type = choice.type,
                          .digits = choice.digits,
                          .grouped = settings.groupEquations,
                          .readCell = ReadCell,
                          .context = nullptr};
    return SystemNumberSetup(systemPage.request);
}

void PrepareSystem() {
    SetWindowTextW(ControlOf(SystemOutput), L"");
}

void AppendToOutput(void*, const char16_t* text) {
    AppendWindowText(ControlOf(SystemOutput), text);
}

void SolveSystem() {
    const WaitCursorScope wait;
    RunSystem(systemPage.request, AppendToOutput, nullptr);
}

constexpr PageTask SystemTask = {ReadSystemSetup, PrepareSystem, SolveSystem, [](bool) {},
                                 UiErrorCalculation};

// Files.

void TakeCount(void*, int32_t count) {
    ClearPage();
    ChooseNumericPosition(ControlOf(SystemCount), count);
}

void TakeCell(void*, int32_t row, int32_t column, const char16_t* text) {
    WriteCoefficient(ControlOf(SystemGrid), column, row, text);
}

void AskAndLoad() {
    ClearErrors();
    char16_t name[PathCapacity + 1];
    if (AskForCsvToOpen(systemPage.window, systemPage.dialogs, name)) {
        LoadSystemFile(name);
    }
}

HeapText TextOfCell(int32_t row, int32_t column) {
    return CopyCoefficientText(ControlOf(SystemGrid), column, row);
}

void AskAndSave() {
    ClearErrors();
    if (AskForCsvToSave(systemPage.window, systemPage.dialogs)) {
        SaveSystemFile();
    }
}

// The window.

void FillControls() {
    PrepareGrid();
    SetNumericRange(ControlOf(SystemCount), MinEquationCount, MaxEquationCount);
    SetNumericChanged(ControlOf(SystemCount), CountChanged);
    ChooseNumericPosition(ControlOf(SystemCount), MinEquationCount);
    BeginNumberChoice(ChoiceControls(), TypeChosen);
}

void HandleClick(HWND button) {
    if (button == ControlOf(SystemClear)) {
        ClearPage();
    } else if (button == ControlOf(SystemLoad)) {
        AskAndLoad();
    } else if (button == ControlOf(SystemSaveAs)) {
        AskAndSave();
    }
}

constexpr FormPageKind Kind = {
    .index = PageLinearSystems,
    .title = &UiText::TextLinSystemsLinearEquations,
    .size = SystemPageSize,
    .form = SystemForm,
    .count = SystemControlCount,
    .place =
        [](int32_t control, LayoutSize client) {
            return PlaceSystemControl(static_cast<SystemControl>(control), client);
        },
    .close = SystemClose,
    .click = HandleClick,
};
static_assert(Kind.count <= MaxPageControls);

LRESULT SystemPageProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    return HandleFormPage(systemPage, Kind, message, wParam, lParam, callDefault);
}

}  // namespace

void LoadSystemFile(const char16_t* name) {
    {
        const WaitCursorScope wait;
        ReadCsvFile(name, {.context = nullptr, .takeCount = TakeCount, .takeCell = TakeCell});
    }
    ReportUiError();
}

void SaveSystemFile() {
    {
        const WaitCursorScope wait;
        WriteCsvFile(systemPage.dialogs.savedName, systemPage.count, TextOfCell);
    }
    ReportUiError();
}

void CreateSystemPage() {
    systemPage = {};
    CreateFormPage(systemPage, Kind, SystemPageProc);
    FillControls();
    systemPage.run.startTask = &SystemTask;
    systemPage.run.controls = {.startButton = ControlOf(SystemSolve),
                               .startCaption = &UiText::TextAlgSolve};
    systemPage.run.states.rules = {StopNever, LeavesAtOnce};
    CompleteFormPage(systemPage, Kind);
}

}  // namespace tallymere
