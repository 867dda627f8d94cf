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
        : PageWindowTest({{index, create, &Page.run}}) {}

    static HWND Control(PageControl control) { return Page.controls[control]; }
    static std::u16string Text(PageControl control) { return WholeText(Control(control)); }
    static std::u16string Output() { return Text(Result); }
    static bool IsEnabled(PageControl control) {
        return IsWindowEnabled(Control(control)) != FALSE;
    }
    static void Click(PageControl control) { SendMessageW(Control(control), BM_CLICK, 0, 0); }

    /// Makes the client area so large, in logical units.
    static void Resize(LayoutSize client) {
        const LayoutRect window = PlaceInParent(Page.window);
        const LayoutSize inner = ClientSize(Page.window);
        SetWindowPos(Page.window, nullptr, 0, 0,
                     window.width - inner.width + ToScreenPixels(client.width),
                     window.height - inner.height + ToScreenPixels(client.height),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

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

    // The keyboard.

    /// Tab goes from each of these windows to the next one and from the last to the first, and with
    /// Shift the other way.
    static void ExpectTabOrder(const std::vector<HWND>& order) {
        ShowWindow(Page.window, SW_SHOW);
        SetFocus(order[0]);
        for (size_t i = 1; i <= order.size(); i++) {
            PressKey(GetFocus(), VK_TAB);
            EXPECT_EQ(GetFocus(), order[i % order.size()]) << i;
        }
        for (size_t i = order.size(); i-- > 0;) {
            PressKey(GetFocus(), VK_TAB, VK_SHIFT);
            EXPECT_EQ(GetFocus(), order[i]) << i;
        }
    }
};

}  // namespace tallymere::testing_support
