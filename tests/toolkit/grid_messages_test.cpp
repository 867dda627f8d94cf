// The messages of the grid.
#include "layout/grid_memory_testing.h"
#include "toolkit/grid_page.h"
#include "toolkit/grid_table_messages.h"

namespace tallymere {
namespace {

using testing_support::Codes;
using testing_support::GridMemory;
using testing_support::heardOfGrid;
using testing_support::TextOf;

class GridMessages : public testing_support::GridTest {
protected:
    // The error of a message that answers -1.
    DWORD ErrorOf(UINT message, int64_t wParam = 0, int64_t lParam = 0) {
        SetLastError(0);
        EXPECT_EQ(Ask(message, wParam, lParam), -1) << message;
        return GetLastError();
    }
    DWORD ErrorOfCell(UINT message, int32_t column, int32_t row) {
        char16_t text[8] = u"x";
        const GridCellSpec spec = {column, row, text};
        return ErrorOf(message, 0, reinterpret_cast<LPARAM>(&spec));
    }

    std::u16string Header(UINT message, int64_t index) {
        char16_t text[64] = u"before";
        EXPECT_EQ(AskText(message, index, text), 0);
        return text;
    }
};

TEST_F(GridMessages, HaveTheirNumbers) {
    EXPECT_EQ(GridAddColumn, 1025u);
    EXPECT_EQ(GridAddRow, 1026u);
    EXPECT_EQ(GridSetEditable, 1027u);
    EXPECT_EQ(GridSetExtendLastColumn, 1028u);
    EXPECT_EQ(GridColumnCount, 1029u);
    EXPECT_EQ(GridGetColumnHeader, 1030u);
    EXPECT_EQ(GridGetColumnHeaderLength, 1031u);
    EXPECT_EQ(GridGetColumnType, 1032u);
    EXPECT_EQ(GridGetColumnWidth, 1033u);
    EXPECT_EQ(GridCursorColumn, 1034u);
    EXPECT_EQ(GridCursorRow, 1035u);
    EXPECT_EQ(GridHeaderHeight, 1036u);
    EXPECT_EQ(GridGetCellText, 1038u);
    EXPECT_EQ(GridGetCellLength, 1039u);
    EXPECT_EQ(GridRowCount, 1041u);
    EXPECT_EQ(GridGetRowHeader, 1042u);
    EXPECT_EQ(GridGetRowHeaderLength, 1043u);
    EXPECT_EQ(GridRowHeight, 1044u);
    EXPECT_EQ(GridRefresh, 1045u);
    EXPECT_EQ(GridClear, 1046u);
    EXPECT_EQ(GridSetCursorEdit, 1047u);
    EXPECT_EQ(GridSetAllowResize, 1048u);
    EXPECT_EQ(GridSetAutoWiden, 1049u);
    EXPECT_EQ(GridSetShowColumnLetters, 1050u);
    EXPECT_EQ(GridSetColumnHeader, 1051u);
    EXPECT_EQ(GridSetColumnWidth, 1052u);
    EXPECT_EQ(GridSetCursor, 1053u);
    EXPECT_EQ(GridSetDoubleBuffer, 1054u);
    EXPECT_EQ(GridSetSingleLine, 1055u);
    EXPECT_EQ(GridSetGridLineColour, 1056u);
    EXPECT_EQ(GridSetHeaderHeight, 1057u);
    EXPECT_EQ(GridSetHeaderFont, 1058u);
    EXPECT_EQ(GridSetHighlightBackground, 1059u);
    EXPECT_EQ(GridSetHighlightText, 1060u);
    EXPECT_EQ(GridSetCellText, 1062u);
    EXPECT_EQ(GridSetCellAlignment, 1063u);
    EXPECT_EQ(GridSetCellProtected, 1064u);
    EXPECT_EQ(GridSetProtectedBackground, 1065u);
    EXPECT_EQ(GridSetRowHeader, 1066u);
    EXPECT_EQ(GridSetHeaderColumnWidth, 1067u);
    EXPECT_EQ(GridSetRowHeight, 1068u);
    EXPECT_EQ(GridSetShowRowNumbers, 1069u);
    EXPECT_EQ(GridSetRowSelect, 1070u);
    EXPECT_EQ(GridSetTitleFont, 1071u);
    EXPECT_EQ(GridSetTitleHeight, 1072u);
    EXPECT_EQ(GridInsertRow, 1075u);
    EXPECT_EQ(GridDeleteRow, 1076u);
    EXPECT_EQ(GridHideColumn, 1077u);
    EXPECT_EQ((Codes{GridCursorMoved, GridEditorOpened, GridEditorClosed, GridKeyPressed,
                     GridFocusGained, GridFocusLost}),
              (Codes{3, 4, 5, 6, 18, 19}));
}

TEST_F(GridMessages, AreOfAClassWithoutBrush) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    EXPECT_TRUE(testing_support::HasClass(grid, u"SimpleGridCtl"));
    ASSERT_TRUE(GetClassInfoExW(programInstance, L"SimpleGridCtl", &windowClass));
    EXPECT_EQ(windowClass.style, UINT{CS_BYTEALIGNCLIENT});
    EXPECT_EQ(windowClass.hbrBackground, nullptr);
    EXPECT_EQ(Ask(WM_GETDLGCODE), DLGC_WANTALLKEYS);
    EXPECT_EQ(GetPropW(grid, L"lpInsData"), &Record());
    EXPECT_EQ(Record().parent, page);
    EXPECT_EQ(Record().instance, programInstance);
    EXPECT_NE(GetPropW(grid, ToWide(ControlDataProperty)), nullptr);
}

TEST_F(GridMessages, BeginEmpty) {
    MakeGrid(0, 0);
    EXPECT_EQ(Ask(GridColumnCount), 0);
    EXPECT_EQ(Ask(GridRowCount), 0);
    EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
    EXPECT_EQ(Ask(GridHeaderHeight), 21);
    EXPECT_EQ(Ask(GridRowHeight), 21);
    EXPECT_EQ(State().topRow, 1);
    EXPECT_EQ(State().leftColumn, 1);
    EXPECT_EQ(State().titleHeight, 0);
    EXPECT_EQ(Record().editWindow, nullptr);
    EXPECT_TRUE(State().isEditable && State().extendsLastColumn && Record().hasSingleLines);
    EXPECT_TRUE(Record().showsRowNumbers && Record().showsColumnLetters);
    EXPECT_TRUE(Record().isDoubleBuffered);
    EXPECT_FALSE(Record().autoWidens || State().allowsResize || State().isRowSelectActive);
    EXPECT_TRUE(GridStateIsConsistent(State()));
}

TEST_F(GridMessages, LengthsFollowTheResolution) {
    screenDpi = 144;
    MakeGrid(1, 1);
    EXPECT_EQ(Ask(GridHeaderHeight), 32);
    EXPECT_EQ(Ask(GridRowHeight), 32);
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 75);
    EXPECT_EQ(GridColumnWidth(State().table, 0), 75);
    EXPECT_EQ(Ask(GridSetColumnWidth, 0, 80), 0);
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 120);
    EXPECT_EQ(Ask(GridSetHeaderColumnWidth, 0, 40), 0);
    EXPECT_EQ(GridColumnWidth(State().table, 0), 60);
    EXPECT_EQ(Ask(GridSetRowHeight, 30), 0);
    EXPECT_EQ(Ask(GridRowHeight), 30);
}

TEST_F(GridMessages, KnowTheirId) {
    const HWND other =
        CreateWindowExW(0, ToWide(GridClass), L"Title", WS_CHILD, 0, 0, 10, 10, page,
                        reinterpret_cast<HMENU>(INT_PTR{77}), programInstance, nullptr);
    EXPECT_EQ(GridRecordOf(other)->id, 77);
    EXPECT_EQ(std::u16string(GridRecordOf(other)->title), u"Title");
    SendMessageW(other, WM_SETFOCUS, 0, 0);
    ASSERT_EQ(heardOfGrid.all.size(), 1u);
    EXPECT_EQ(heardOfGrid.all[0].header.idFrom, 77u);
    EXPECT_EQ(heardOfGrid.all[0].header.hwndFrom, other);
}

TEST_F(GridMessages, AddColumnsAndRows) {
    EXPECT_EQ(Ask(GridColumnCount), 3);
    EXPECT_EQ(Ask(GridRowCount), 4);
    EXPECT_EQ(AddColumn(u"fourth"), 3);
    EXPECT_EQ(AddColumn(nullptr, 0), 4);
    EXPECT_EQ(AskText(GridAddRow, 0, u"fifth"), 4);
    EXPECT_EQ(Ask(GridAddRow), 5);
    EXPECT_EQ(Ask(GridColumnCount), 5);
    EXPECT_EQ(Ask(GridRowCount), 6);
    EXPECT_EQ(Header(GridGetColumnHeader, 3), u"fourth");
    EXPECT_EQ(Header(GridGetColumnHeader, 4), u"");
    EXPECT_EQ(Header(GridGetRowHeader, 4), u"fifth");
    EXPECT_EQ(Read(3, 5), u"");
    EXPECT_EQ(ErrorOf(GridAddColumn), 13u);
}

TEST_F(GridMessages, RefuseMoreColumnsThanThereAreLetters) {
    EXPECT_EQ(State().table.columnLimit, 475'254);
    State().table.columnLimit = 4;
    EXPECT_EQ(AddColumn(u"fourth"), 3);
    SetLastError(0);
    EXPECT_EQ(AddColumn(u"fifth"), -1);
    EXPECT_EQ(GetLastError(), 14u);
    EXPECT_EQ(Ask(GridColumnCount), 4);
}

TEST_F(GridMessages, TellHeaders) {
    EXPECT_EQ(AskText(GridSetColumnHeader, 1, u"second"), 0);
    EXPECT_EQ(AskText(GridSetRowHeader, 2, u"third row"), 0);
    EXPECT_EQ(Header(GridGetColumnHeader, 1), u"second");
    EXPECT_EQ(Header(GridGetRowHeader, 2), u"third row");
    EXPECT_EQ(Ask(GridGetColumnHeaderLength, 1), 6);
    EXPECT_EQ(Ask(GridGetRowHeaderLength, 2), 9);
    EXPECT_EQ(Ask(GridSetColumnHeader, 1), 0);
    EXPECT_EQ(Ask(GridGetColumnHeaderLength, 1), 0);
    char16_t text[8];
    for (const int64_t index : {-1, 4, 1000, INT32_MAX, INT32_MIN}) {
        for (const UINT message : {GridGetColumnHeader, GridGetColumnHeaderLength, GridGetRowHeader,
                                   GridGetRowHeaderLength, GridSetColumnHeader, GridSetRowHeader}) {
            EXPECT_EQ(ErrorOf(message, index, reinterpret_cast<LPARAM>(text)), 13u) << index;
        }
    }
    EXPECT_EQ(ErrorOf(GridGetColumnHeader, 3, reinterpret_cast<LPARAM>(text)), 13u);
    EXPECT_EQ(ErrorOf(GridGetColumnHeader, 0), 13u);
}

TEST_F(GridMessages, TellColumns) {
    AddColumn(u"", 5);
    EXPECT_EQ(Ask(GridGetColumnType, 0), 1);
    EXPECT_EQ(Ask(GridGetColumnType, 3), 5);
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 50);
    EXPECT_EQ(Ask(GridSetColumnWidth, 0, 90), 0);
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 90);
    EXPECT_EQ(Ask(GridSetColumnWidth, 0, -7), 0);
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 0);
    EXPECT_EQ(Ask(GridHideColumn, 1, 1), 0);
    EXPECT_EQ(Ask(GridGetColumnWidth, 1), 0);
    EXPECT_EQ(Ask(GridHideColumn, 1, 0), 0);
    EXPECT_EQ(Ask(GridGetColumnWidth, 1), 50);
    EXPECT_EQ(Ask(GridSetHeaderColumnWidth, 0, 44), 0);
    EXPECT_EQ(GridColumnWidth(State().table, 0), 44);
    for (const int64_t index : {-1, 4, INT32_MAX, INT32_MIN}) {
        for (const UINT message :
             {GridGetColumnType, GridGetColumnWidth, GridSetColumnWidth, GridHideColumn}) {
            EXPECT_EQ(ErrorOf(message, index, 1), 1413u) << message << " " << index;
        }
    }
    EXPECT_EQ(GridColumnWidth(State().table, 0), 44);
}

TEST_F(GridMessages, TellCells) {
    EXPECT_EQ(Write(1, 2, u"text"), 0);
    EXPECT_EQ(Read(1, 2), u"text");
    EXPECT_EQ(Ask(GridGetCellLength, 1, 2), 4);
    EXPECT_EQ(Ask(GridGetCellLength, 0, 0), 0);
    EXPECT_EQ(AskCell(GridSetCellText, 0, 1, 2), 0);
    EXPECT_EQ(Read(1, 2), u"");
    char16_t buffer[8] = u"before";
    const GridCellSpec spec = {1, 2, buffer};
    EXPECT_EQ(Ask(GridGetCellText, 0, reinterpret_cast<LPARAM>(&spec)), 0);
    EXPECT_EQ(buffer[0], u'\0');
    for (const UINT message :
         {GridGetCellText, GridSetCellText, GridSetCellAlignment, GridSetCellProtected}) {
        EXPECT_EQ(ErrorOfCell(message, 3, 0), 1413u) << message;
        EXPECT_EQ(ErrorOfCell(message, 0, 4), 1413u) << message;
        EXPECT_EQ(ErrorOfCell(message, INT32_MAX, INT32_MAX), 1413u) << message;
        EXPECT_EQ(ErrorOfCell(message, -1, 0), 13u) << message;
        EXPECT_EQ(ErrorOfCell(message, 0, -1), 13u) << message;
        EXPECT_EQ(ErrorOf(message), 13u) << message;
    }
    SetLastError(0);
    EXPECT_EQ(AskCell(GridGetCellText, 0, 0, 0), -1);
    EXPECT_EQ(GetLastError(), 13u);
    for (const auto& [column, row] :
         {std::pair{3, 0}, {0, 4}, {-1, 4}, {-2, 0}, {0, -1}, {-1, -1}}) {
        EXPECT_EQ(Ask(GridGetCellLength, column, row), 0);
    }
    EXPECT_EQ(Ask(GridGetCellLength, -1, 0), 3);
}

TEST_F(GridMessages, AColumnThatIsOnlyReadHasTextsButNoLengths) {
    AddColumn(u"", 0);
    EXPECT_EQ(Write(3, 1, u"text"), 0);
    EXPECT_EQ(Read(3, 1), u"text");
    EXPECT_EQ(Ask(GridGetCellLength, 3, 1), 0);
}

TEST_F(GridMessages, SetAlignmentAndProtection) {
    AddColumn(u"", 0);
    EXPECT_EQ(AskCell(GridSetCellAlignment, 3, 1, 2), 0);
    EXPECT_EQ(FindGridCell(State().table, 2, 3)->alignment, 3);
    EXPECT_EQ(AskCell(GridSetCellAlignment, 3, 3, 2), 0);
    EXPECT_EQ(FindGridCell(State().table, 4, 3)->alignment, 1);
    EXPECT_EQ(AskCell(GridSetCellProtected, 1, 1, 2), 0);
    EXPECT_EQ(FindGridCell(State().table, 2, 3)->isProtected, 1);
    EXPECT_EQ(AskCell(GridSetCellProtected, 0, 1, 2), 0);
    EXPECT_EQ(FindGridCell(State().table, 2, 3)->isProtected, 0);
}

TEST_F(GridMessages, AProtectedCellStillTakesTextsOfThePage) {
    AskCell(GridSetCellProtected, 1, 0, 0);
    EXPECT_EQ(Write(0, 0, u"told"), 0);
    EXPECT_EQ(Read(0, 0), u"told");
}

TEST_F(GridMessages, InsertAndDeleteRows) {
    for (int32_t row = 0; row < 4; row++) {
        Write(0, row, {static_cast<char16_t>(u'a' + row)});
    }
    EXPECT_EQ(AskText(GridInsertRow, -1, u"top"), 0);
    EXPECT_EQ(Header(GridGetRowHeader, 0), u"top");
    EXPECT_EQ(Read(0, 0) + Read(0, 1) + Read(0, 4), u"ad");
    EXPECT_EQ(AskText(GridInsertRow, 1, u"between"), 2);
    EXPECT_EQ(Header(GridGetRowHeader, 2), u"between");
    EXPECT_EQ(AskText(GridInsertRow, 5, u"last"), 6);
    EXPECT_EQ(Ask(GridRowCount), 7);
    EXPECT_EQ(Ask(GridDeleteRow, 2), 6);
    EXPECT_EQ(Ask(GridDeleteRow, 0), 5);
    EXPECT_EQ(Read(0, 0) + Read(0, 1) + Read(0, 2) + Read(0, 3) + Read(0, 4), u"abcd");
    for (const int64_t row : {-2, 5, 1000, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(ErrorOf(GridInsertRow, row), 1413u) << row;
    }
    for (const int64_t row : {-1, 5, 1000, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(ErrorOf(GridDeleteRow, row), 1413u) << row;
    }
    EXPECT_EQ(Ask(GridRowCount), 5);
}

TEST_F(GridMessages, DeletingTheRowOfTheCursorKeepsItInTheTable) {
    Ask(GridSetCursor, 1, 3);
    testing_support::GridTest::Forget();
    EXPECT_EQ(Ask(GridDeleteRow, 3), 3);
    EXPECT_EQ(Cursor(), (GridPlace{1, 2}));
    EXPECT_EQ(heardOfGrid.codes, Codes{3});
    for (int64_t rows = 2; rows >= 0; rows--) {
        EXPECT_EQ(Ask(GridDeleteRow, 0), rows);
    }
    EXPECT_EQ(Cursor(), (GridPlace{1, 0}));
    EXPECT_TRUE(GridStateIsConsistent(State()));
}

TEST_F(GridMessages, DeletingTheLastRowStoresAndClosesTheEditorFirst) {
    AskCell(GridSetCursorEdit, 1, 0, 3);
    SetWindowTextW(Editor(), L"stored");
    std::u16string stored;
    heardOfGrid.react = [&](UINT code) {
        if (code == GridEditorClosed) {
            stored = Read(0, 3);
        }
    };
    EXPECT_EQ(Ask(GridDeleteRow, 3), 3);
    EXPECT_EQ(stored, u"stored");
    EXPECT_FALSE(IsEditing());
}

TEST_F(GridMessages, ClearGoesBackToTheStart) {
    Ask(GridSetHeaderColumnWidth, 0, 90);
    AskCell(GridSetCursorEdit, 0, 2, 3);
    State().topRow = 2;
    State().leftColumn = 2;
    testing_support::GridTest::Forget();
    EXPECT_EQ(Ask(GridClear), 0);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(Ask(GridColumnCount), 0);
    EXPECT_EQ(Ask(GridRowCount), 0);
    EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
    EXPECT_EQ(State().topRow, 1);
    EXPECT_EQ(State().leftColumn, 1);
    EXPECT_EQ(GridColumnWidth(State().table, 0), 50);
    EXPECT_TRUE(GridStateIsConsistent(State()));
    AddColumn(u"again");
    Ask(GridAddRow);
    EXPECT_EQ(Write(0, 0, u"1"), 0);
}

TEST_F(GridMessages, SetTheCursor) {
    EXPECT_EQ(Ask(GridSetCursor, 2, 3), 0);
    EXPECT_EQ(Cursor(), (GridPlace{2, 3}));
    EXPECT_EQ(heardOfGrid.codes, Codes{3});
    EXPECT_EQ(heardOfGrid.all[0].column, 2);
    EXPECT_EQ(heardOfGrid.all[0].row, 3);
    EXPECT_EQ(heardOfGrid.all[0].columnType, 1);
    EXPECT_EQ(Ask(GridSetCursor, 2, 3), 0);
    EXPECT_EQ(heardOfGrid.codes, Codes{3});
    EXPECT_FALSE(IsEditing());
    for (const auto& [column, row] :
         {std::pair<int64_t, int64_t>{3, 0}, {0, 4}, {-1, 0}, {0, -1}}) {
        EXPECT_EQ(ErrorOf(GridSetCursor, column, row), 1413u);
        EXPECT_EQ(
            ErrorOfCell(GridSetCursorEdit, static_cast<int32_t>(column), static_cast<int32_t>(row)),
            1413u);
    }
    EXPECT_EQ(ErrorOf(GridSetCursorEdit), 13u);
    EXPECT_EQ(Cursor(), (GridPlace{2, 3}));
}

TEST_F(GridMessages, SettingTheCursorStoresWhatIsEdited) {
    AskCell(GridSetCursorEdit, 1, 0, 0);
    SetWindowTextW(Editor(), L"new");
    Forget();
    EXPECT_EQ(Ask(GridSetCursor, 1, 1), 0);
    EXPECT_EQ(Read(0, 0), u"new");
    EXPECT_EQ(GetFocus(), grid);
    EXPECT_EQ(heardOfGrid.codes, (Codes{18, 5, 3}));
}

TEST_F(GridMessages, TheCursorStaysInATableThatThePageShortensMeanwhile) {
    AskCell(GridSetCursorEdit, 1, 0, 0);
    heardOfGrid.react = [this](UINT code) {
        if (code == GridEditorClosed) {
            Ask(GridDeleteRow, 3);
        }
    };
    Ask(GridSetCursor, 1, 3);
    EXPECT_EQ(Cursor(), (GridPlace{1, 2}));
    EXPECT_TRUE(GridStateIsConsistent(State()));
}

TEST_F(GridMessages, SetTheCursorAndEdit) {
    Write(1, 2, u"text");
    EXPECT_EQ(AskCell(GridSetCursorEdit, 0, 1, 2), 0);
    EXPECT_EQ(Cursor(), (GridPlace{1, 2}));
    EXPECT_EQ(Edited(), "text");
    // The cursor moves, the grid sends itself Shift, loses the focus to the editor and opens it.
    EXPECT_EQ(heardOfGrid.codes, (Codes{3, 6, 4}));
    EXPECT_EQ(heardOfGrid.all[1].key, uint32_t{VK_SHIFT});
    EXPECT_EQ(AskCell(GridSetCursorEdit, 1, 1, 2), 0);
    EXPECT_EQ(Edited(), "");
    EXPECT_EQ(Read(1, 2), u"text");
}

TEST_F(GridMessages, DoNotEditWhatCannotBeEdited) {
    AddColumn(u"", 0);
    AskCell(GridSetCellProtected, 1, 0, 0);
    AskCell(GridSetCursorEdit, 0, 0, 0);
    EXPECT_EQ(Edited(), "not edited");
    AskCell(GridSetCursorEdit, 0, 3, 0);
    EXPECT_EQ(Edited(), "not edited");
    Ask(GridSetEditable, 0);
    AskCell(GridSetCursorEdit, 0, 1, 0);
    EXPECT_EQ(Edited(), "not edited");
    Ask(GridSetEditable, 1);
    AskCell(GridSetCursorEdit, 0, 1, 0);
    EXPECT_EQ(Edited(), "");
    Ask(GridSetRowSelect, 3);
    EXPECT_EQ(Edited(), "not edited");
    AskCell(GridSetCursorEdit, 0, 1, 1);
    EXPECT_EQ(Edited(), "not edited");
}

TEST_F(GridMessages, AnEditorClosesWhenItsCellMayNoLongerBeEdited) {
    const std::function<void()> changes[] = {
        [this] { Ask(GridSetEditable, 0); },
        [this] { AskCell(GridSetCellProtected, 1, 0, 0); },
        [this] { Ask(GridHideColumn, 0, 1); },
        [this] { Ask(GridInsertRow, -1); },
    };
    for (const auto& change : changes) {
        Ask(GridSetEditable, 1);
        AskCell(GridSetCellProtected, 0, 0, 0);
        Ask(GridHideColumn, 0, 0);
        AskCell(GridSetCursorEdit, 1, 0, 0);
        ASSERT_TRUE(IsEditing());
        SetWindowTextW(Editor(), L"kept");
        change();
        EXPECT_FALSE(IsEditing());
        EXPECT_EQ(GetFocus(), grid);
    }
    EXPECT_EQ(Read(0, 1), u"kept");
}

TEST_F(GridMessages, TheCursorLeavesAHiddenColumn) {
    Ask(GridSetCursor, 1, 2);
    Forget();
    Ask(GridHideColumn, 0, 1);
    EXPECT_EQ(Cursor(), (GridPlace{1, 2}));
    Ask(GridHideColumn, 1, 1);
    EXPECT_EQ(Cursor(), (GridPlace{2, 2}));
    EXPECT_EQ(heardOfGrid.codes, Codes{3});
    Ask(GridHideColumn, 0, 0);
    Ask(GridHideColumn, 2, 1);
    EXPECT_EQ(Cursor(), (GridPlace{0, 2}));
    Ask(GridHideColumn, 0, 1);
    EXPECT_EQ(Cursor(), (GridPlace{0, 2}));
    SetFocus(grid);
    Press('7');
    EXPECT_EQ(Edited(), "not edited");
    Ask(GridHideColumn, 2, 0);
    EXPECT_EQ(Cursor(), (GridPlace{2, 2}));
}

TEST_F(GridMessages, SetHeights) {
    EXPECT_EQ(Ask(GridSetHeaderHeight, 33), 0);
    EXPECT_EQ(Ask(GridHeaderHeight), 33);
    Ask(GridSetHeaderHeight, -1);
    EXPECT_EQ(Ask(GridHeaderHeight), 33);
    Ask(GridSetHeaderHeight, 0);
    EXPECT_EQ(Ask(GridHeaderHeight), 0);
    Ask(GridSetRowHeight, 0);
    EXPECT_EQ(Ask(GridRowHeight), 1);
    Ask(GridSetRowHeight, -5);
    EXPECT_EQ(Ask(GridRowHeight), 1);
    Ask(GridSetTitleHeight, 30);
    EXPECT_EQ(State().titleHeight, 30);
    Ask(GridSetTitleHeight, -3);
    EXPECT_EQ(State().titleHeight, 0);
}

TEST_F(GridMessages, ARowHeightKeepsTheCursorInView) {
    Ask(GridSetCursor, 0, 3);
    Ask(GridSetRowHeight, 100);
    // 300 - 21 pixels hold two rows.
    EXPECT_EQ(State().topRow, 3);
}

TEST_F(GridMessages, SetTheRowSelectMode) {
    Ask(GridSetRowSelect, 1);
    EXPECT_EQ(State().rowSelectMode, 1);
    EXPECT_FALSE(State().isRowSelectActive);
    Ask(GridSetRowSelect, 3);
    EXPECT_TRUE(State().isRowSelectActive);
    Ask(GridSetRowSelect, 0);
    EXPECT_FALSE(State().isRowSelectActive);
}

TEST_F(GridMessages, KeepFontsAndColours) {
    const auto font = reinterpret_cast<HFONT>(GetStockObject(ANSI_FIXED_FONT));
    const auto other = reinterpret_cast<HFONT>(GetStockObject(SYSTEM_FIXED_FONT));
    EXPECT_EQ(Record().cellFont, nullptr);
    Ask(WM_SETFONT, reinterpret_cast<intptr_t>(font), TRUE);
    EXPECT_EQ(Record().cellFont, font);
    EXPECT_EQ(Record().headerFont, font);
    EXPECT_EQ(Record().titleFont, font);
    EXPECT_EQ(Ask(WM_GETFONT), reinterpret_cast<LRESULT>(font));
    Ask(GridSetHeaderFont, reinterpret_cast<intptr_t>(other));
    EXPECT_EQ(Record().headerFont, other);
    EXPECT_EQ(Record().titleFont, font);
    Ask(GridSetTitleFont, reinterpret_cast<intptr_t>(other));
    EXPECT_EQ(Record().titleFont, other);
    EXPECT_EQ(Record().cellFont, font);
    Ask(GridSetGridLineColour, RGB(1, 2, 3));
    Ask(GridSetHighlightBackground, RGB(4, 5, 6));
    Ask(GridSetHighlightText, RGB(7, 8, 9));
    Ask(GridSetProtectedBackground, RGB(10, 11, 12));
    EXPECT_EQ(Record().colours.gridLine, RGB(1, 2, 3));
    EXPECT_EQ(Record().colours.highlightBackground, RGB(4, 5, 6));
    EXPECT_EQ(Record().colours.highlightText, RGB(7, 8, 9));
    EXPECT_EQ(Record().colours.protectedBackground, RGB(10, 11, 12));
}

TEST_F(GridMessages, AnOpenEditorTakesTheFont) {
    AskCell(GridSetCursorEdit, 0, 0, 0);
    const auto font = reinterpret_cast<LPARAM>(GetStockObject(ANSI_FIXED_FONT));
    Ask(WM_SETFONT, font, TRUE);
    EXPECT_EQ(SendMessageW(Editor(), WM_GETFONT, 0, 0), font);
    Ask(GridSetCursor, 1, 1);
    AskCell(GridSetCursorEdit, 0, 0, 0);
    EXPECT_EQ(SendMessageW(Editor(), WM_GETFONT, 0, 0), font);
}

TEST_F(GridMessages, FlagsAreKept) {
    const struct {
        UINT message;
        bool* flag;
    } flags[] = {{GridSetEditable, &State().isEditable},
                 {GridSetExtendLastColumn, &State().extendsLastColumn},
                 {GridSetAllowResize, &State().allowsResize},
                 {GridSetAutoWiden, &Record().autoWidens},
                 {GridSetShowColumnLetters, &Record().showsColumnLetters},
                 {GridSetDoubleBuffer, &Record().isDoubleBuffered},
                 {GridSetSingleLine, &Record().hasSingleLines},
                 {GridSetShowRowNumbers, &Record().showsRowNumbers}};
    for (const auto& [message, flag] : flags) {
        EXPECT_EQ(Ask(message, 0), 0);
        EXPECT_FALSE(*flag) << message;
        EXPECT_EQ(Ask(message, 1), 0);
        EXPECT_TRUE(*flag) << message;
    }
}

TEST_F(GridMessages, WhatChangesTheGridIsPaintedAgain) {
    const UINT messages[] = {GridSetExtendLastColumn,
                             GridSetShowColumnLetters,
                             GridSetSingleLine,
                             GridSetGridLineColour,
                             GridSetHeaderFont,
                             GridSetTitleFont,
                             GridSetHighlightText,
                             GridSetShowRowNumbers,
                             GridSetTitleHeight,
                             GridSetHighlightBackground,
                             GridSetProtectedBackground,
                             GridSetHeaderHeight,
                             GridSetColumnWidth,
                             GridSetColumnHeader,
                             GridSetRowHeader,
                             GridAddRow,
                             GridHideColumn,
                             WM_SETTEXT,
                             WM_SETFONT};
    for (const UINT message : messages) {
        ValidateRect(grid, nullptr);
        EXPECT_FALSE(GetUpdateRect(grid, nullptr, FALSE));
        Ask(message);
        EXPECT_TRUE(GetUpdateRect(grid, nullptr, FALSE)) << message;
    }
    ValidateRect(grid, nullptr);
    Write(0, 0, u"1");
    EXPECT_TRUE(GetUpdateRect(grid, nullptr, FALSE));
    Ask(GridRefresh);
    EXPECT_FALSE(GetUpdateRect(grid, nullptr, FALSE));
    Ask(GridSetDoubleBuffer, 0);
    EXPECT_TRUE(GetUpdateRect(grid, nullptr, FALSE));
    Ask(GridRefresh);
    EXPECT_FALSE(GetUpdateRect(grid, nullptr, FALSE));
}

TEST_F(GridMessages, AutoWidenMakesRoomForATextAndKeepsIt) {
    const std::u16string wide(30, u'8');
    Write(0, 0, wide);
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), 50);
    Ask(GridSetAutoWiden, 1);
    Write(0, 0, wide);
    const LRESULT width = Ask(GridGetColumnWidth, 0);
    EXPECT_GT(width, 100);
    Write(0, 0, wide + u"\n" + wide);
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), width);
    const LRESULT height = Ask(GridRowHeight);
    EXPECT_GT(height, 30);
    EXPECT_EQ(Ask(GridHeaderHeight), 21);
    Write(0, 0, u"8");
    EXPECT_EQ(Ask(GridGetColumnWidth, 0), width);
    EXPECT_EQ(Ask(GridRowHeight), height);
}

TEST_F(GridMessages, HeadersOfColumnsAlwaysHaveRoom) {
    const std::u16string wide(30, u'8');
    AskText(GridSetColumnHeader, 1, wide.c_str());
    EXPECT_GT(Ask(GridGetColumnWidth, 1), 100);
    EXPECT_EQ(AddColumn(wide.c_str()), 3);
    EXPECT_EQ(Ask(GridGetColumnWidth, 3), Ask(GridGetColumnWidth, 1));
    AskText(GridSetRowHeader, 1, wide.c_str());
    EXPECT_EQ(GridColumnWidth(State().table, 0), 50);
    AskText(GridSetColumnHeader, 1, u"1\n2\n3");
    EXPECT_GT(Ask(GridHeaderHeight), 45);
    EXPECT_EQ(Ask(GridRowHeight), 21);
}

TEST_F(GridMessages, TheLargestIndexHasARowBehindIt) {
    const GridCall call = {Record(), State(), static_cast<WPARAM>(INT32_MAX), 0};
    EXPECT_LT(call.TableIndex(), INT32_MAX);
    EXPECT_EQ(ErrorOf(GridInsertRow, INT32_MAX), DWORD{GridErrorInvalidIndex});
    EXPECT_EQ(Ask(GridRowCount), 4);
}

TEST_F(GridMessages, ANewRowComesBehindThoseOfThePage) {
    AskCell(GridSetCursorEdit, 0, 1, 1);
    heardOfGrid.react = [this](UINT code) {
        if (code == GridEditorClosed) {
            EXPECT_EQ(Ask(GridAddRow), 4);
        }
    };
    EXPECT_EQ(Ask(GridAddRow), 5);
    AskCell(GridSetCursorEdit, 0, 1, 1);
    heardOfGrid.react = [this](UINT code) {
        if (code == GridEditorClosed) {
            EXPECT_EQ(Ask(GridDeleteRow, 5), 5);
        }
    };
    EXPECT_EQ(Ask(GridAddRow), 5);
}

TEST_F(GridMessages, MessagesAboutRowsThatFailLeaveTheEditorOpen) {
    AskCell(GridSetCursorEdit, 0, 1, 1);
    for (const int32_t row : {-2, 4, INT32_MAX}) {
        EXPECT_EQ(ErrorOf(GridInsertRow, row), DWORD{GridErrorInvalidIndex});
        EXPECT_EQ(ErrorOf(GridDeleteRow, row), DWORD{GridErrorInvalidIndex});
    }
    EXPECT_TRUE(IsEditing());
}

TEST_F(GridMessages, HeightsHaveAnEnd) {
    AskCell(GridSetCursorEdit, 0, 1, 1);
    for (const UINT message : {GridSetRowHeight, GridSetHeaderHeight, GridSetTitleHeight}) {
        Ask(message, INT32_MAX);
    }
    EXPECT_EQ(Ask(GridRowHeight), 1'000'000);
    EXPECT_EQ(Ask(GridHeaderHeight), 1'000'000);
    EXPECT_EQ(State().titleHeight, 1'000'000);
    UpdateWindow(grid);
    EXPECT_TRUE(GridStateIsConsistent(State()));
}

TEST_F(GridMessages, TheCursorGoesBesideAHiddenColumn) {
    Ask(GridHideColumn, 1, 1);
    EXPECT_EQ(Ask(GridSetCursor, 1, 2), 0);
    EXPECT_EQ(Cursor(), (GridPlace{2, 2}));
    Ask(GridHideColumn, 2, 1);
    EXPECT_EQ(Ask(GridSetCursor, 2, 1), 0);
    EXPECT_EQ(Cursor(), (GridPlace{0, 1}));
    Ask(GridHideColumn, 0, 1);
    EXPECT_EQ(Ask(GridSetCursor, 1, 0), 0);
    EXPECT_EQ(Cursor(), (GridPlace{1, 0}));
}

TEST_F(GridMessages, MissingMemoryHasAnErrorOfItsOwn) {
    EXPECT_EQ(GridErrorOf(GridTableOutcome::NoMemory), 8u);
    EXPECT_EQ(GridErrorOf(GridTableOutcome::TooManyColumns), 14u);
    while (Ask(GridRowCount) < 15) {
        AskText(GridAddRow, 0, u"row");
    }
    const GridColumnSpec spec = {GridColumnText, u"head", nullptr};
    {
        const GridMemory none(0);
        EXPECT_EQ(ErrorOf(GridAddRow), 8u);
        EXPECT_EQ(ErrorOf(GridInsertRow, -1), 8u);
        EXPECT_EQ(ErrorOf(GridAddColumn, 0, reinterpret_cast<LPARAM>(&spec)), 8u);
    }
    EXPECT_EQ(Ask(GridRowCount), 15);
    EXPECT_EQ(Ask(GridColumnCount), 3);
    EXPECT_EQ(Ask(GridAddRow), 15);
}

TEST_F(GridMessages, ATextWithoutMemoryIsEmpty) {
    Write(1, 1, u"old");
    AskCell(GridSetCursorEdit, 0, 1, 1);
    SetWindowTextW(Editor(), L"typed");
    const GridMemory none(0);
    EXPECT_EQ(Write(0, 0, u"new"), 0);
    EXPECT_EQ(Read(0, 0), u"");
    SetFocus(before);
    EXPECT_EQ(Read(1, 1), u"");
    EXPECT_EQ(heardOfGrid.codes.back(), 5u);
}

TEST_F(GridMessages, AGridWithoutMemoryIsNotMade) {
    for (int64_t blocks = 0; blocks < 2; blocks++) {
        const GridMemory memory(blocks);
        EXPECT_EQ(CreateWindowExW(0, ToWide(GridClass), nullptr, WS_CHILD, 0, 0, 10, 10, page,
                                  nullptr, programInstance, nullptr),
                  nullptr)
            << blocks;
    }
}

TEST_F(GridMessages, OtherNumbersMeanNothing) {
    for (const UINT message : {1024u, 1037u, 1040u, 1061u, 1073u, 1074u, 1078u}) {
        EXPECT_EQ(Ask(message, 1, 1), 0) << message;
    }
    EXPECT_EQ(heardOfGrid.codes, Codes{});
    EXPECT_EQ(Ask(GridColumnCount), 3);
}

TEST_F(GridMessages, TheWindowTextIsTheTitle) {
    EXPECT_EQ(Record().title, nullptr);
    SetWindowTextW(grid, L"Title");
    EXPECT_EQ(std::u16string(Record().title), u"Title");
    EXPECT_EQ(TextOf(grid), "Title");
    SetWindowTextW(grid, L"");
    EXPECT_EQ(Record().title, nullptr);
}

TEST_F(GridMessages, APageMayDestroyTheGridWhenItHearsOfSomething) {
    for (const UINT code : {6u, 3u, 4u, 5u, 18u, 19u}) {
        MakeGrid(3, 3);
        SetFocus(grid);
        heardOfGrid.react = [this, code](UINT heard) {
            if (heard == code) {
                DestroyWindow(grid);
            }
        };
        Press(VK_DOWN);
        Press(VK_DOWN);
        Press('1');
        PressCharacter(VK_RETURN, u'\r');
        if (IsWindow(grid)) {
            SetFocus(before);
            SetFocus(grid);
        }
        heardOfGrid.react = nullptr;
        EXPECT_FALSE(IsWindow(grid)) << code;
        SetFocus(before);
    }
}

TEST_F(GridMessages, APageMayClearTheGridWhenItHearsOfSomething) {
    for (const UINT code : {6u, 3u, 4u, 5u, 18u, 19u}) {
        MakeGrid(3, 3);
        heardOfGrid.react = [this, code](UINT heard) {
            if (heard == code) {
                Ask(GridClear);
            }
        };
        SetFocus(grid);
        ClickCell(2, 2);
        Press(VK_DOWN);
        Press('1');
        PressCharacter(VK_RETURN, u'\r');
        SetFocus(before);
        heardOfGrid.react = nullptr;
        EXPECT_EQ(Ask(GridColumnCount), 0) << code;
        EXPECT_TRUE(GridStateIsConsistent(State()));
    }
}

}  // namespace
}  // namespace tallymere
