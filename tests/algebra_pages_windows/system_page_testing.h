// The page of linear systems for a test, and hands for its controls.
#pragma once

#include <string>
#include <vector>

#include "algebra_pages/system_columns.h"
#include "algebra_pages/windows/system_page.h"
#include "core/scratch.h"
#include "shell/languages.h"
#include "shell/separators.h"
#include "shell/settings.h"
#include "shell/windows/program_windows.h"
#include "shell_windows/message_boxes.h"
#include "toolkit/grid_control.h"
#include "toolkit/number_type_control.h"
#include "toolkit/numeric_up_down.h"
#include "toolkit/test_dialog.h"

namespace tallymere::testing_support {

/// Makes the page, hidden, in English, with the separators "." and ",".
class SystemPageTest : public ToolkitTest {
protected:
    SystemPageTest() {
        CreateScratchStack();
        settings = Settings{};
        ApplySeparators(DecimalPoint, ThousandsComma);
        ClearErrors();
        Make();
    }
    ~SystemPageTest() override {
        EXPECT_EQ(*CurrentScratchStack().top, CurrentScratchStack().base);
        EXPECT_EQ(PendingUiError(), UiErrorNone);
        EXPECT_FALSE(StopRequested());
        Destroy();
        settings = Settings{};
        InstallLanguage(LanguageEnglish);
        DestroyScratchStack();
    }

    static void Make(Language language = LanguageEnglish) {
        InstallLanguage(language);
        CreateSystemPage();
    }
    static void MakeAgain(Language language, int32_t dpi = LogicalDpi) {
        Destroy();
        screenDpi = dpi;
        Make(language);
    }
    static void Destroy() {
        DestroyWindow(pageWindows[PageLinearSystems]);
        pageWindows[PageLinearSystems] = nullptr;
    }

    static HWND Control(SystemControl control) { return systemPage.controls[control]; }
    static std::u16string Text(SystemControl control) { return WholeText(Control(control)); }
    static std::u16string Output() { return Text(SystemOutput); }
    static bool IsEnabled(SystemControl control) {
        return IsWindowEnabled(Control(control)) != FALSE;
    }
    static void Click(SystemControl control) { SendMessageW(Control(control), BM_CLICK, 0, 0); }

    /// As a user does who types a number and presses Return.
    static void EnterNumber(SystemControl control, int32_t number) {
        const HWND edit = NumericEdit(Control(control));
        const std::string digits = std::to_string(number);
        const std::u16string text(digits.begin(), digits.end());
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
        PressKey(edit, VK_RETURN);
        TypeCharacter(edit, u'\r');
    }
    static std::u16string NumberOf(SystemControl control) {
        return WholeText(NumericEdit(Control(control)));
    }
    /// As a user does who chooses a row of the list.
    static void ChooseType(NumberType type) {
        SelectNumberType(Control(SystemType), type);
        const HWND list = NumberTypeList(Control(SystemType));
        SendMessageW(Control(SystemType), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(list));
    }

    // The grid.

    static LRESULT AskGrid(UINT message, int64_t wParam = 0, int64_t lParam = 0) {
        return SendMessageW(Control(SystemGrid), message, static_cast<WPARAM>(wParam), lParam);
    }
    static int32_t Rows() { return static_cast<int32_t>(AskGrid(GridRowCount)); }
    static void WriteCell(int32_t row, int32_t column, std::u16string text) {
        const GridCellSpec cell = {column, row, text.data()};
        ASSERT_EQ(AskGrid(GridSetCellText, 0, reinterpret_cast<LPARAM>(&cell)), 0);
    }
    static std::u16string Cell(int32_t row, int32_t column) {
        std::u16string text(static_cast<size_t>(AskGrid(GridGetCellLength, column, row)) + 1, u'?');
        const GridCellSpec cell = {column, row, text.data()};
        AskGrid(GridGetCellText, 0, reinterpret_cast<LPARAM>(&cell));
        text.pop_back();
        return text;
    }

    using Row = std::vector<std::u16string>;

    /// The columns that are shown, with what the grid has for all of its columns.
    static Row ShownColumns() {
        Row names;
        for (int32_t column = 0; column < AskGrid(GridColumnCount); column++) {
            if (AskGrid(GridGetColumnWidth, column) != 0) {
                std::u16string name(
                    static_cast<size_t>(AskGrid(GridGetColumnHeaderLength, column)) + 1, u'?');
                AskGrid(GridGetColumnHeader, column, reinterpret_cast<LPARAM>(name.data()));
                name.pop_back();
                names.push_back(name);
            }
        }
        return names;
    }
    static Row RowNames() {
        Row names;
        for (int32_t row = 0; row < Rows(); row++) {
            std::u16string name(static_cast<size_t>(AskGrid(GridGetRowHeaderLength, row)) + 1,
                                u'?');
            AskGrid(GridGetRowHeader, row, reinterpret_cast<LPARAM>(name.data()));
            name.pop_back();
            names.push_back(name);
        }
        return names;
    }
    /// The texts of the system, row by row.
    static std::vector<Row> Cells() {
        std::vector<Row> rows;
        for (int32_t row = 0; row < Rows(); row++) {
            rows.emplace_back();
            for (int32_t column = 0; column <= Rows(); column++) {
                rows.back().push_back(Cell(row, GridColumnOfSystem(column, Rows())));
            }
        }
        return rows;
    }
    static void WriteSystem(const std::vector<Row>& rows) {
        const auto count = static_cast<int32_t>(rows.size());
        EnterNumber(SystemCount, count);
        for (int32_t row = 0; row < count; row++) {
            for (int32_t column = 0; column <= count; column++) {
                WriteCell(row, GridColumnOfSystem(column, count),
                          rows[static_cast<size_t>(row)][static_cast<size_t>(column)]);
            }
        }
    }

    static std::u16string Solve(const std::vector<Row>& rows) {
        WriteSystem(rows);
        Click(SystemSolve);
        return Output();
    }
};

}  // namespace tallymere::testing_support
