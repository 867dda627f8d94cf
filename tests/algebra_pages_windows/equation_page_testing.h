// The Algebraic Equations page for a test, and hands for its controls.
#pragma once

#include <string>
#include <vector>

#include "algebra_pages/windows/equation_page.h"
#include "shell_windows/page_window_testing.h"
#include "toolkit/grid_control.h"
#include "toolkit/grid_record.h"
#include "toolkit/numeric_up_down.h"

namespace tallymere::testing_support {

class EquationPageTest : public PageWindowTest {
protected:
    EquationPageTest()
        : PageWindowTest({{PageAlgebraicEquations, CreateEquationPage, &equationPage.run}}) {}

    static HWND Control(EquationControl control) { return equationPage.controls[control]; }
    static std::u16string Text(EquationControl control) { return WholeText(Control(control)); }
    static std::u16string Output() { return Text(EquationOutput); }
    static bool IsEnabled(EquationControl control) {
        return IsWindowEnabled(Control(control)) != FALSE;
    }
    static void Click(EquationControl control) { SendMessageW(Control(control), BM_CLICK, 0, 0); }
    static void Select(EquationControl list, int32_t item) {
        SendMessageW(Control(list), CB_SETCURSEL, static_cast<WPARAM>(item), 0);
    }

    /// As a user does who types a number and presses Return.
    static void EnterNumber(EquationControl control, const char16_t* number) {
        const HWND edit = NumericEdit(Control(control));
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(number));
        PressKey(edit, VK_RETURN);
        TypeCharacter(edit, u'\r');
    }
    static std::u16string NumberOf(EquationControl control) {
        return WholeText(NumericEdit(Control(control)));
    }
    static void ChooseDegree(int32_t degree) {
        const std::string number = std::to_string(degree);
        EnterNumber(EquationDegreeField, std::u16string(number.begin(), number.end()).c_str());
    }

    // The grid.

    static LRESULT AskGrid(UINT message, int64_t wParam = 0, int64_t lParam = 0) {
        return SendMessageW(Control(EquationGrid), message, static_cast<WPARAM>(wParam), lParam);
    }
    static int32_t Rows() { return static_cast<int32_t>(AskGrid(GridRowCount)); }
    static void WriteCell(int32_t row, std::u16string text) {
        const GridCellSpec cell = {0, row, text.data()};
        ASSERT_EQ(AskGrid(GridSetCellText, 0, reinterpret_cast<LPARAM>(&cell)), 0);
    }
    static std::u16string Cell(int32_t row) {
        std::u16string text(static_cast<size_t>(AskGrid(GridGetCellLength, 0, row)) + 1, u'?');
        const GridCellSpec cell = {0, row, text.data()};
        AskGrid(GridGetCellText, 0, reinterpret_cast<LPARAM>(&cell));
        text.pop_back();
        return text;
    }
    static std::vector<std::u16string> Cells() {
        std::vector<std::u16string> cells;
        for (int32_t row = 0; row < Rows(); row++) {
            cells.push_back(Cell(row));
        }
        return cells;
    }
    static std::u16string RowHeader(int32_t row) {
        std::u16string text(static_cast<size_t>(AskGrid(GridGetRowHeaderLength, row)) + 1, u'?');
        AskGrid(GridGetRowHeader, row, reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        return text;
    }
    /// From the highest coefficient down; the degree becomes that of the equation.
    static void WriteEquation(const std::vector<std::u16string>& coefficients) {
        ChooseDegree(static_cast<int32_t>(coefficients.size()) - 1);
        for (size_t i = 0; i < coefficients.size(); i++) {
            WriteCell(static_cast<int32_t>(i), coefficients[i]);
        }
    }
    /// The edit control in a cell; null while none is open.
    static HWND OpenEditor() {
        const GridRecord& grid = *GridRecordOf(Control(EquationGrid));
        return grid.isEditorOpen ? grid.editWindow : nullptr;
    }
    /// As a user does who clicks a cell and types.
    static void TypeIntoCell(int32_t row, const std::u16string& text) {
        ShowWindow(equationPage.window, SW_SHOW);
        SetFocus(Control(EquationGrid));
        const GridCellSpec cell = {0, row, nullptr};
        ASSERT_EQ(AskGrid(GridSetCursorEdit, 0, reinterpret_cast<LPARAM>(&cell)), 0);
        ASSERT_NE(OpenEditor(), nullptr);
        for (const char16_t c : text) {
            TypeCharacter(OpenEditor(), c);
        }
    }

    // Runs.

    static PagePhase Phase() { return equationPage.run.states.phase; }

    static void Finish() { PageWindowTest::Finish(equationPage.run); }

    /// Clicks Solve and returns the output at the end of the run.
    static std::u16string Solve() {
        Click(EquationSolve);
        Finish();
        return Output();
    }
    static std::u16string Solve(const std::vector<std::u16string>& coefficients) {
        WriteEquation(coefficients);
        return Solve();
    }
};

}  // namespace tallymere::testing_support
