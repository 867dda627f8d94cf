// What tests of the pages with a grid of coefficients share: one page, and hands for its controls.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "shell_windows/page_window_testing.h"
#include "toolkit/grid_control.h"
#include "toolkit/grid_record.h"
#include "toolkit/number_type_control.h"
#include "toolkit/numeric_up_down.h"

namespace tallymere::testing_support {

/// `Page` is the record of the page. `Grid` and `Result` are two of its controls.
template <auto& Page, auto Grid, auto Result>
class CoefficientPageTest : public PageWindowTest {
protected:
    using PageControl = decltype(Grid);

    CoefficientPageTest(PageIndex index, void (*create)())
        : PageWindowTest({{index, create, &Page}}) {}

    static HWND Control(PageControl control) { return Page.controls[control]; }
    static std::u16string Text(PageControl control) { return WholeText(Control(control)); }
    static std::u16string Output() { return Text(Result); }
    static bool IsEnabled(PageControl control) {
        return IsWindowEnabled(Control(control)) != FALSE;
    }
    static void Click(PageControl control) { SendMessageW(Control(control), BM_CLICK, 0, 0); }

    static void Resize(LayoutSize client) { PageWindowTest::Resize(Page, client); }

    // Numeric controls and the list of number types.

    /// As a user does who types a number and presses Return.
    static void EnterNumber(PageControl control, int32_t number) {
        const HWND edit = NumericEdit(Control(control));
        const std::string digits = std::to_string(number);
        const std::u16string text(digits.begin(), digits.end());
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
        PressKey(edit, VK_RETURN);
        TypeCharacter(edit, u'\r');
    }
    static std::u16string NumberOf(PageControl control) {
        return WholeText(NumericEdit(Control(control)));
    }
    using Range = std::pair<int, int>;
    static Range RangeOf(PageControl numeric) {
        int low = -1;
        int high = -1;
        SendMessageW(NumericSpin(Control(numeric)), UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                     reinterpret_cast<LPARAM>(&high));
        return {low, high};
    }
    /// As a user does who chooses a row of a list of number types.
    static void ChooseTypeIn(PageControl list, NumberType type) {
        SelectNumberType(Control(list), type);
        SendMessageW(Control(list), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(NumberTypeList(Control(list))));
    }

    // The grid.

    using Row = std::vector<std::u16string>;

    static LRESULT AskGrid(UINT message, int64_t wParam = 0, int64_t lParam = 0) {
        return SendMessageW(Control(Grid), message, static_cast<WPARAM>(wParam), lParam);
    }
    static int32_t Rows() { return static_cast<int32_t>(AskGrid(GridRowCount)); }
    static void WriteGridCell(int32_t row, int32_t column, std::u16string text) {
        const GridCellSpec cell = {column, row, text.data()};
        ASSERT_EQ(AskGrid(GridSetCellText, 0, reinterpret_cast<LPARAM>(&cell)), 0);
    }
    static std::u16string GridCell(int32_t row, int32_t column) {
        std::u16string text(static_cast<size_t>(AskGrid(GridGetCellLength, column, row)) + 1, u'?');
        const GridCellSpec cell = {column, row, text.data()};
        AskGrid(GridGetCellText, 0, reinterpret_cast<LPARAM>(&cell));
        text.pop_back();
        return text;
    }
    static std::u16string RowName(int32_t row) {
        std::u16string name(static_cast<size_t>(AskGrid(GridGetRowHeaderLength, row)) + 1, u'?');
        AskGrid(GridGetRowHeader, row, reinterpret_cast<LPARAM>(name.data()));
        name.pop_back();
        return name;
    }
    static Row RowNames() {
        Row names;
        for (int32_t row = 0; row < Rows(); row++) {
            names.push_back(RowName(row));
        }
        return names;
    }
    static std::u16string ColumnName(int32_t column) {
        std::u16string name(static_cast<size_t>(AskGrid(GridGetColumnHeaderLength, column)) + 1,
                            u'?');
        AskGrid(GridGetColumnHeader, column, reinterpret_cast<LPARAM>(name.data()));
        name.pop_back();
        return name;
    }
    /// The names of all columns that are wider than 0.
    static Row ShownColumns() {
        Row names;
        for (int32_t column = 0; column < AskGrid(GridColumnCount); column++) {
            if (AskGrid(GridGetColumnWidth, column) != 0) {
                names.push_back(ColumnName(column));
            }
        }
        return names;
    }
    /// The edit control in a cell; null while none is open.
    static HWND OpenEditor() {
        const GridRecord& grid = *GridRecordOf(Control(Grid));
        return grid.isEditorOpen ? grid.editWindow : nullptr;
    }
    /// As a user does who clicks a cell and types.
    static void TypeIntoGridCell(int32_t row, int32_t column, const std::u16string& text) {
        ShowWindow(Page.window, SW_SHOW);
        SetFocus(Control(Grid));
        const GridCellSpec cell = {column, row, nullptr};
        ASSERT_EQ(AskGrid(GridSetCursorEdit, 0, reinterpret_cast<LPARAM>(&cell)), 0);
        ASSERT_NE(OpenEditor(), nullptr);
        for (const char16_t c : text) {
            TypeCharacter(OpenEditor(), c);
        }
    }

    // What a page is to do.

    static void ExpectNotToBeLaidOutWhileMinimised() {
        PageWindowTest::ExpectNotToBeLaidOutWhileMinimised(Page, Control(Result));
    }
    static void ExpectCloseToHide(PageControl close) {
        PageWindowTest::ExpectCloseToHide(Page, Control(close));
    }
    static void ExpectTabOrder(const std::vector<HWND>& order) {
        PageWindowTest::ExpectTabOrder(Page, order);
    }
    /// The result has many lines, and scrolls sideways where one is too long.
    static void ExpectUnbrokenLines() {
        const uint32_t wanted =
            ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP;
        EXPECT_EQ(WindowStyle(Control(Result)) & wanted, wanted);
    }
};

}  // namespace tallymere::testing_support
