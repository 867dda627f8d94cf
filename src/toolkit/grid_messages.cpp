#include "toolkit/grid_messages.h"

#include <algorithm>

#include "toolkit/environment.h"
#include "toolkit/grid_editor.h"
#include "toolkit/grid_keyboard.h"
#include "toolkit/grid_scroll_bars.h"
#include "toolkit/grid_table_messages.h"

namespace tallymere {

namespace {

LRESULT SetFlag(const GridCall& call, bool& flag) {
    flag = call.Flag();
    return RepaintForGridCall(call);
}

LRESULT SetColour(const GridCall& call, COLORREF& colour) {
    colour = static_cast<COLORREF>(call.wParam);
    return RepaintForGridCall(call);
}

LRESULT SetFont(const GridCall& call, HFONT& font) {
    font = reinterpret_cast<HFONT>(call.wParam);
    return RepaintForGridCall(call);
}

LRESULT Clear(const GridCall& call) {
    DestroyGridEditor(call.grid);
    ResetGridTable(call.state.table, ToScreenPixels(NewGridColumnWidth));
    ClampGridState(call.state);
    call.state.isRowSelectActive = call.state.rowSelectMode == GridRowSelectNow;
    return RepaintForGridCall(call);
}

bool HasCell(const GridState& state, int64_t column, int64_t row) {
    return column >= 0 && row >= 0 && column < GridDataColumns(state.table) &&
           row < GridDataRows(state.table);
}

LRESULT SetCursorOn(const GridCall& call, int64_t column, int64_t row) {
    if (!HasCell(call.state, column, row)) {
        return FailGridCall(GridErrorInvalidIndex);
    }
    // A cursor that nobody sees would take keys.
    MoveGridCursor(call.grid,
                   {ShownGridColumnAt(call.state.table, static_cast<int32_t>(column) + 1),
                    static_cast<int32_t>(row) + 1});
    return 0;
}

LRESULT SetCursorEdit(const GridCall& call) {
    const GridCellSpec* const cell = call.Cell();
    if (cell == nullptr) {
        return FailGridCall(GridErrorInvalidCell);
    }
    const LRESULT result = SetCursorOn(call, cell->column, cell->row);
    if (result == 0) {
        OpenGridEditorByKey(call.grid, !call.Flag());
    }
    return result;
}

LRESULT SetRowHeight(const GridCall& call) {
    call.state.rowHeight = std::clamp(call.Number(), 1, MaxGridHeight);
    ShowGridCursor(call.grid);
    return RepaintForGridCall(call);
}

LRESULT SetRowSelect(const GridCall& call) {
    call.state.rowSelectMode = call.Number();
    if (call.Number() == GridRowSelectNow || call.Number() == GridRowSelectOff) {
        call.state.isRowSelectActive = call.Number() == GridRowSelectNow;
    }
    return RepaintForGridCall(call);
}

LRESULT Refresh(const GridCall& call) {
    RepaintForGridCall(call);
    UpdateWindow(call.grid.window);
    return 0;
}

LRESULT Answer(const GridCall& call, GridMessage message) {
    GridRecord& grid = call.grid;
    GridState& state = call.state;
    switch (message) {
        case GridAddColumn:
            return AddGridColumn(call);
        case GridAddRow:
            return AddGridRow(call);
        case GridSetEditable:
            return SetFlag(call, state.isEditable);
        case GridSetExtendLastColumn:
            return SetFlag(call, state.extendsLastColumn);
        case GridColumnCount:
            return GridDataColumns(state.table);
        case GridGetColumnHeader:
            return GetGridHeader(call, call.TableIndex(), 0);
        case GridGetColumnHeaderLength:
            return GetGridHeaderLength(call, call.TableIndex(), 0);
        case GridGetColumnType:
            return GetGridColumnType(call);
        case GridGetColumnWidth:
            return GetGridWidth(call);
        case GridCursorColumn:
            return state.cursorColumn - 1;
        case GridCursorRow:
            return state.cursorRow - 1;
        case GridHeaderHeight:
            return state.headerHeight;
        case GridGetCellText:
            return GetGridCellText(call);
        case GridGetCellLength:
            return GetGridCellLength(call);
        case GridRowCount:
            return GridDataRows(state.table);
        case GridGetRowHeader:
            return GetGridHeader(call, 0, call.TableIndex());
        case GridGetRowHeaderLength:
            return GetGridHeaderLength(call, 0, call.TableIndex());
        case GridRowHeight:
            return state.rowHeight;
        case GridRefresh:
            return Refresh(call);
        case GridClear:
            return Clear(call);
        case GridSetCursorEdit:
            return SetCursorEdit(call);
        case GridSetAllowResize:
            return SetFlag(call, state.allowsResize);
        case GridSetAutoWiden:
            return SetFlag(call, grid.autoWidens);
        case GridSetShowColumnLetters:
            return SetFlag(call, grid.showsColumnLetters);
        case GridSetColumnHeader:
            return SetGridHeader(call, call.TableIndex(), 0);
        case GridSetColumnWidth:
            return call.TableIndex() >= 1 ? SetGridWidth(call, call.TableIndex(), call.lParam)
                                          : FailGridCall(GridErrorInvalidIndex);
        case GridSetCursor:
            return SetCursorOn(call, call.Number(), call.lParam);
        case GridSetDoubleBuffer:
            return SetFlag(call, grid.isDoubleBuffered);
        case GridSetSingleLine:
            return SetFlag(call, grid.hasSingleLines);
        case GridSetGridLineColour:
            return SetColour(call, grid.colours.gridLine);
        case GridSetHeaderHeight:
            if (call.Number() >= 0) {
                state.headerHeight = std::min(call.Number(), MaxGridHeight);
            }
            return RepaintForGridCall(call);
        case GridSetHeaderFont:
            return SetFont(call, grid.headerFont);
        case GridSetHighlightBackground:
            return SetColour(call, grid.colours.highlightBackground);
        case GridSetHighlightText:
            return SetColour(call, grid.colours.highlightText);
        case GridSetCellText:
            return SetGridCellText(call);
        case GridSetCellAlignment:
            return AlignGridCell(call);
        case GridSetCellProtected:
            return ProtectGridCell(call);
        case GridSetProtectedBackground:
            return SetColour(call, grid.colours.protectedBackground);
        case GridSetRowHeader:
            return SetGridHeader(call, 0, call.TableIndex());
        case GridSetHeaderColumnWidth:
            return SetGridWidth(call, 0, call.lParam);
        case GridSetRowHeight:
            return SetRowHeight(call);
        case GridSetShowRowNumbers:
            return SetFlag(call, grid.showsRowNumbers);
        case GridSetRowSelect:
            return SetRowSelect(call);
        case GridSetTitleFont:
            return SetFont(call, grid.titleFont);
        case GridSetTitleHeight:
            state.titleHeight = std::clamp(call.Number(), 0, MaxGridHeight);
            return RepaintForGridCall(call);
        case GridInsertRow:
            return InsertGridRow(call, call.TableIndex() + 1);
        case GridDeleteRow:
            return DeleteGridRow(call);
        case GridHideColumn:
            return HideGridColumn(call);
    }
    return 0;
}

bool IsGridMessage(UINT message) {
    return message >= GridAddColumn && message <= GridHideColumn;
}

}  // namespace

bool HandleGridMessage(GridRecord& grid, UINT message, WPARAM wParam, LPARAM lParam,
                       LRESULT& result) {
    if (!IsGridMessage(message)) {
        return false;
    }
    result = Answer({grid, grid.state, wParam, lParam}, static_cast<GridMessage>(message));
    // What the message changed may take the right to edit from the cell that is being edited.
    if (!CanEditGridCursor(grid.state)) {
        const DWORD error = GetLastError();
        CommitGridEditor(grid);
        SetLastError(error);
    }
    return true;
}

}  // namespace tallymere
