// The Polynomial Calculation page for a test, and hands for its controls.
#pragma once

#include <string>
#include <vector>

#include "algebra_pages/windows/polynomial_page.h"
#include "shell_windows/page_window_testing.h"
#include "toolkit/grid_control.h"
#include "toolkit/grid_record.h"
#include "toolkit/number_type_control.h"
#include "toolkit/numeric_up_down.h"

namespace tallymere::testing_support {

class PolynomialPageTest : public PageWindowTest {
protected:
    PolynomialPageTest()
        : PageWindowTest({{PagePolynomialCalculation, CreatePolynomialPage, &polynomialPage.run}}) {
    }

    static HWND Control(PolynomialControl control) { return polynomialPage.controls[control]; }
    static std::u16string Text(PolynomialControl control) { return WholeText(Control(control)); }
    static std::u16string Output() { return Text(PolynomialOutput); }
    static bool IsEnabled(PolynomialControl control) {
        return IsWindowEnabled(Control(control)) != FALSE;
    }
    static void Click(PolynomialControl control) { SendMessageW(Control(control), BM_CLICK, 0, 0); }

    /// As a user does who types a number and presses Return.
    static void EnterNumber(PolynomialControl control, int32_t number) {
        const HWND edit = NumericEdit(Control(control));
        const std::string digits = std::to_string(number);
        const std::u16string text(digits.begin(), digits.end());
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
        PressKey(edit, VK_RETURN);
        TypeCharacter(edit, u'\r');
    }
    static std::u16string NumberOf(PolynomialControl control) {
        return WholeText(NumericEdit(Control(control)));
    }
    /// As a user does who chooses a row of the list.
    static void ChooseType(NumberType type) {
        SelectNumberType(Control(PolynomialType), type);
        SendMessageW(Control(PolynomialType), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(NumberTypeList(Control(PolynomialType))));
    }

    // The grid.

    using Row = std::vector<std::u16string>;

    static LRESULT AskGrid(UINT message, int64_t wParam = 0, int64_t lParam = 0) {
        return SendMessageW(Control(PolynomialGrid), message, static_cast<WPARAM>(wParam), lParam);
    }
    static int32_t Rows() { return static_cast<int32_t>(AskGrid(GridRowCount)); }
    static void WriteCell(int32_t row, int32_t power, std::u16string text) {
        const GridCellSpec cell = {ColumnOfPower(power), row, text.data()};
        ASSERT_EQ(AskGrid(GridSetCellText, 0, reinterpret_cast<LPARAM>(&cell)), 0);
    }
    static std::u16string Cell(int32_t row, int32_t power) {
        const int32_t column = ColumnOfPower(power);
        std::u16string text(static_cast<size_t>(AskGrid(GridGetCellLength, column, row)) + 1, u'?');
        const GridCellSpec cell = {column, row, text.data()};
        AskGrid(GridGetCellText, 0, reinterpret_cast<LPARAM>(&cell));
        text.pop_back();
        return text;
    }
    /// All cells of a row, from the highest power down.
    static Row Cells(int32_t row) {
        Row cells;
        for (int32_t power = MaxPolyDegree; power >= 0; power--) {
            cells.push_back(Cell(row, power));
        }
        return cells;
    }
    /// From the highest power down; all other coefficients become empty.
    static void WritePolynomial(int32_t row, const Row& coefficients) {
        const auto degree = static_cast<int32_t>(coefficients.size()) - 1;
        for (int32_t power = 0; power <= MaxPolyDegree; power++) {
            WriteCell(row, power,
                      power <= degree ? coefficients[static_cast<size_t>(degree - power)] : u"");
        }
    }
    /// A row as Cells gives it.
    static Row Padded(const Row& coefficients) {
        Row cells(MaxPolyDegree + 1 - coefficients.size());
        cells.insert(cells.end(), coefficients.begin(), coefficients.end());
        return cells;
    }
    /// The edit control in a cell; null while none is open.
    static HWND OpenEditor() {
        const GridRecord& grid = *GridRecordOf(Control(PolynomialGrid));
        return grid.isEditorOpen ? grid.editWindow : nullptr;
    }
    /// As a user does who clicks a cell and types.
    static void TypeIntoCell(int32_t row, int32_t power, const std::u16string& text) {
        ShowWindow(polynomialPage.window, SW_SHOW);
        SetFocus(Control(PolynomialGrid));
        const GridCellSpec cell = {ColumnOfPower(power), row, nullptr};
        ASSERT_EQ(AskGrid(GridSetCursorEdit, 0, reinterpret_cast<LPARAM>(&cell)), 0);
        ASSERT_NE(OpenEditor(), nullptr);
        for (const char16_t c : text) {
            TypeCharacter(OpenEditor(), c);
        }
    }

    /// Clicks the button of an operator and returns the output.
    static std::u16string Calculate(PolynomialControl button) {
        Click(button);
        return Output();
    }
    /// Likewise for two polynomials.
    static std::u16string Calculate(const Row& first, PolynomialControl button, const Row& second) {
        WritePolynomial(0, first);
        WritePolynomial(1, second);
        return Calculate(button);
    }
    static bool CanTakeResult() {
        EXPECT_EQ(IsEnabled(PolynomialResultTo0), IsEnabled(PolynomialResultTo1));
        return IsEnabled(PolynomialResultTo0);
    }
};

}  // namespace tallymere::testing_support
