#include "toolkit/grid_messages.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "layout/grid_cursor.h"
#include "layout/grid_scrolling.h"
#include "toolkit/environment.h"
#include "toolkit/grid_editor.h"
#include "toolkit/grid_keyboard.h"
#include "toolkit/grid_scroll_bars.h"

namespace tallymere {

namespace {

// A message on its way to the grid.
struct GridCall {
    GridRecord& grid;
    GridState& state;
    WPARAM wParam;
    LPARAM lParam;

    // A number or flag in wParam.
    int32_t Number() const { return static_cast<int32_t>(wParam); }
    bool Flag() const { return wParam != 0; }
    // Columns and rows of messages count from 0, in the table from 1.
    int32_t Place() const { return static_cast<int32_t>(std::min<int64_t>(Number(), Most) + 1); }
    std::u16string_view Text() const {
        const auto* text = reinterpret_cast<const char16_t*>(lParam);
        return text != nullptr ? text : std::u16string_view();
    }
    const GridCellSpec* Cell() const { return reinterpret_cast<const GridCellSpec*>(lParam); }

    static constexpr int64_t Most = INT32_MAX - 1;
};

LRESULT Fail(GridError error) {
    SetLastError(error);
    return -1;
}

// Answers a message that has changed what the grid shows.
LRESULT Repaint(const GridCall& call) {
    RepaintGrid(call.grid);
    return 0;
}

LRESULT SetFlag(const GridCall& call, bool& flag) {
    flag = call.Flag();
    return Repaint(call);
}

LRESULT SetColour(const GridCall& call, COLORREF& colour) {
    colour = static_cast<COLORREF>(call.wParam);
    return Repaint(call);
}

LRESULT SetFont(const GridCall& call, HFONT& font) {
    font = reinterpret_cast<HFONT>(call.wParam);
    return Repaint(call);
}

// The cell of a GridCellSpec; null when there is none, and why.
GridCell* SpecifiedCell(const GridCall& call, GridError& error) {
    const GridCellSpec* const spec = call.Cell();
    error = GridErrorInvalidCell;
    if (spec == nullptr || spec->column < 0 || spec->row < 0) {
        return nullptr;
    }
    error = GridErrorInvalidIndex;
    if (spec->column >= GridDataColumns(call.state.table) ||
        spec->row >= GridDataRows(call.state.table)) {
        return nullptr;
    }
    return FindGridCell(call.state.table, spec->column + 1, spec->row + 1);
}

LRESULT GetText(std::u16string_view text, char16_t* buffer) {
    if (buffer == nullptr) {
        return Fail(GridErrorInvalidCell);
    }
    *std::copy(text.begin(), text.end(), buffer) = 0;
    return static_cast<LRESULT>(text.size());
}

LRESULT GetHeader(const GridCall& call, int32_t column, int32_t row) {
    const GridCell* const cell = FindGridCell(call.state.table, column, row);
    if (cell == nullptr || column + row < 1) {
        return Fail(GridErrorInvalidCell);
    }
    return std::min<LRESULT>(GetText(GridCellText(cell), reinterpret_cast<char16_t*>(call.lParam)),
                             0);
}

LRESULT GetHeaderLength(const GridCall& call, int32_t column, int32_t row) {
    const GridCell* const cell = FindGridCell(call.state.table, column, row);
    return cell != nullptr && column + row >= 1 ? static_cast<LRESULT>(GridCellText(cell).size())
                                                : Fail(GridErrorInvalidCell);
}

LRESULT SetHeader(const GridCall& call, int32_t column, int32_t row) {
    return column + row >= 1 && StoreGridCell(call.grid, column, row, call.Text())
               ? 0
               : Fail(GridErrorInvalidCell);
}

LRESULT AddColumn(const GridCall& call) {
    const auto* const spec = reinterpret_cast<const GridColumnSpec*>(call.lParam);
    if (spec == nullptr) {
        return Fail(GridErrorInvalidCell);
    }
    if (AddGridTableColumn(call.state.table, spec->type, {}, ToScreenPixels(NewGridColumnWidth)) !=
        GridTableOutcome::Done) {
        return Fail(GridErrorTooManyColumns);
    }
    const int32_t count = GridDataColumns(call.state.table);
    StoreGridCell(call.grid, count, 0,
                  spec->header != nullptr ? spec->header : std::u16string_view());
    return count - 1;
}

LRESULT InsertRow(const GridCall& call, int32_t position) {
    // The cell of an open editor may move.
    CommitGridEditor(call.grid);
    if (position < 1 || position > GridDataRows(call.state.table) + 1) {
        return Fail(GridErrorInvalidIndex);
    }
    if (call.state.table.columns.count == 0 ||
        InsertGridTableRow(call.state.table, position, {}) != GridTableOutcome::Done) {
        return Fail(GridErrorTooManyColumns);
    }
    StoreGridCell(call.grid, 0, position, call.Text());
    return position - 1;
}

LRESULT DeleteRow(const GridCall& call) {
    CommitGridEditor(call.grid);
    const int32_t row = call.Place();
    if (row < 1 || row > GridDataRows(call.state.table)) {
        return Fail(GridErrorInvalidIndex);
    }
    DeleteGridTableRow(call.state.table, row);
    const int32_t rows = GridDataRows(call.state.table);
    const int32_t lastRow = std::max(rows, 1);
    call.state.topRow = std::min(call.state.topRow, lastRow);
    if (call.state.cursorRow > lastRow) {
        MoveGridCursor(call.grid, {call.state.cursorColumn, lastRow});
    }
    RepaintGrid(call.grid);
    return rows;
}

LRESULT Clear(const GridCall& call) {
    DestroyGridEditor(call.grid);
    ResetGridTable(call.state.table, ToScreenPixels(NewGridColumnWidth));
    ClampGridState(call.state);
    call.state.isRowSelectActive = call.state.rowSelectMode == GridRowSelectNow;
    return Repaint(call);
}

// A cursor that nobody sees would take keys.
void LeaveHiddenColumn(const GridCall& call) {
    const GridState& state = call.state;
    if (GridColumnWidth(state.table, state.cursorColumn) > 0) {
        return;
    }
    const int32_t right = NextGridColumn(state.table, state.cursorColumn, GridForward);
    const int32_t column = right != state.cursorColumn
                               ? right
                               : NextGridColumn(state.table, state.cursorColumn, GridBackward);
    if (column != state.cursorColumn) {
        MoveGridCursor(call.grid, {column, state.cursorRow});
    }
}

LRESULT HideColumn(const GridCall& call) {
    if (call.Place() == call.state.cursorColumn) {
        CommitGridEditor(call.grid);
    }
    GridColumn* const column = FindGridColumn(call.state.table, call.Place());
    if (column == nullptr || call.Place() < 1) {
        return Fail(GridErrorInvalidIndex);
    }
    column->isHidden = call.lParam != 0 ? 1 : 0;
    LeaveHiddenColumn(call);
    return Repaint(call);
}

LRESULT GetWidth(const GridCall& call) {
    return call.Place() >= 1 && FindGridColumn(call.state.table, call.Place()) != nullptr
               ? GridColumnWidth(call.state.table, call.Place())
               : Fail(GridErrorInvalidIndex);
}

LRESULT SetWidth(const GridCall& call, int32_t place, int64_t units) {
    GridColumn* const column = FindGridColumn(call.state.table, place);
    if (column == nullptr) {
        return Fail(GridErrorInvalidIndex);
    }
    // Wider than any screen, and its pixels fit 32 bits.
    constexpr int64_t MostUnits = 1'000'000;
    column->width = ToScreenPixels(static_cast<int32_t>(std::clamp<int64_t>(units, 0, MostUnits)));
    return Repaint(call);
}

LRESULT GetType(const GridCall& call) {
    const GridColumn* const column = FindGridColumn(call.state.table, call.Place());
    return column != nullptr && call.Place() >= 1 ? column->type : Fail(GridErrorInvalidIndex);
}

LRESULT GetCellText(const GridCall& call) {
    GridError error = {};
    const GridCell* const cell = SpecifiedCell(call, error);
    return cell != nullptr ? GetText(GridCellText(cell), call.Cell()->text) : Fail(error);
}

// Columns that are only read have no length here, though their text can be asked for.
LRESULT GetCellLength(const GridCall& call) {
    const GridColumn* const column = FindGridColumn(call.state.table, call.Place());
    const int32_t row = static_cast<int32_t>(std::clamp<int64_t>(call.lParam, -1, GridCall::Most));
    if (column == nullptr || (column->type != GridColumnText && column->type != GridColumnHeader)) {
        return 0;
    }
    const GridCell* const cell = call.Place() >= 1 && row >= 0
                                     ? FindGridCell(call.state.table, call.Place(), row + 1)
                                     : nullptr;
    return static_cast<LRESULT>(GridCellText(cell).size());
}

LRESULT SetCellText(const GridCall& call) {
    GridError error = {};
    if (SpecifiedCell(call, error) == nullptr) {
        return Fail(error);
    }
    const GridCellSpec& spec = *call.Cell();
    StoreGridCell(call.grid, spec.column + 1, spec.row + 1,
                  spec.text != nullptr ? spec.text : std::u16string_view());
    return 0;
}

LRESULT SetCellAlignment(const GridCall& call) {
    GridError error = {};
    GridCell* const cell = SpecifiedCell(call, error);
    if (cell == nullptr) {
        return Fail(error);
    }
    if (FindGridColumn(call.state.table, call.Cell()->column + 1)->type == GridColumnText) {
        cell->alignment = call.Number();
    }
    return Repaint(call);
}

LRESULT SetCellProtected(const GridCall& call) {
    GridError error = {};
    GridCell* const cell = SpecifiedCell(call, error);
    if (cell == nullptr) {
        return Fail(error);
    }
    cell->isProtected = call.Flag() ? 1 : 0;
    return Repaint(call);
}

bool HasCell(const GridState& state, int64_t column, int64_t row) {
    return column >= 0 && row >= 0 && column < GridDataColumns(state.table) &&
           row < GridDataRows(state.table);
}

LRESULT SetCursorOn(const GridCall& call, int64_t column, int64_t row) {
    if (!HasCell(call.state, column, row)) {
        return Fail(GridErrorInvalidIndex);
    }
    MoveGridCursor(call.grid, {static_cast<int32_t>(column) + 1, static_cast<int32_t>(row) + 1});
    return 0;
}

LRESULT SetCursorEdit(const GridCall& call) {
    const GridCellSpec* const cell = call.Cell();
    if (cell == nullptr) {
        return Fail(GridErrorInvalidCell);
    }
    const LRESULT result = SetCursorOn(call, cell->column, cell->row);
    if (result == 0) {
        OpenGridEditorByKey(call.grid, !call.Flag());
    }
    return result;
}

LRESULT SetRowHeight(const GridCall& call) {
    call.state.rowHeight = std::max(call.Number(), 1);
    ShowGridCursor(call.grid);
    return Repaint(call);
}

LRESULT SetRowSelect(const GridCall& call) {
    call.state.rowSelectMode = call.Number();
    if (call.Number() == GridRowSelectNow || call.Number() == GridRowSelectOff) {
        call.state.isRowSelectActive = call.Number() == GridRowSelectNow;
    }
    return Repaint(call);
}

LRESULT Refresh(const GridCall& call) {
    Repaint(call);
    UpdateWindow(call.grid.window);
    return 0;
}

LRESULT Answer(const GridCall& call, GridMessage message) {
    GridRecord& grid = call.grid;
    GridState& state = call.state;
    switch (message) {
        case GridAddColumn:
            return AddColumn(call);
        case GridAddRow:
            return InsertRow(call, GridDataRows(state.table) + 1);
        case GridSetEditable:
            return SetFlag(call, state.isEditable);
        case GridSetExtendLastColumn:
            return SetFlag(call, state.extendsLastColumn);
        case GridColumnCount:
            return GridDataColumns(state.table);
        case GridGetColumnHeader:
            return GetHeader(call, call.Place(), 0);
        case GridGetColumnHeaderLength:
            return GetHeaderLength(call, call.Place(), 0);
        case GridGetColumnType:
            return GetType(call);
        case GridGetColumnWidth:
            return GetWidth(call);
        case GridCursorColumn:
            return state.cursorColumn - 1;
        case GridCursorRow:
            return state.cursorRow - 1;
        case GridHeaderHeight:
            return state.headerHeight;
        case GridGetCellText:
            return GetCellText(call);
        case GridGetCellLength:
            return GetCellLength(call);
        case GridRowCount:
            return GridDataRows(state.table);
        case GridGetRowHeader:
            return GetHeader(call, 0, call.Place());
        case GridGetRowHeaderLength:
            return GetHeaderLength(call, 0, call.Place());
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
            return SetHeader(call, call.Place(), 0);
        case GridSetColumnWidth:
            return call.Place() >= 1 ? SetWidth(call, call.Place(), call.lParam)
                                     : Fail(GridErrorInvalidIndex);
        case GridSetCursor:
            return SetCursorOn(call, call.Number(), call.lParam);
        case GridSetDoubleBuffer:
            return SetFlag(call, grid.isDoubleBuffered);
        case GridSetSingleLine:
            return SetFlag(call, grid.hasSingleLines);
        case GridSetGridLineColour:
            return SetColour(call, grid.colours.gridLine);
        case GridSetHeaderHeight:
            state.headerHeight = call.Number() >= 0 ? call.Number() : state.headerHeight;
            return Repaint(call);
        case GridSetHeaderFont:
            return SetFont(call, grid.headerFont);
        case GridSetHighlightBackground:
            return SetColour(call, grid.colours.highlightBackground);
        case GridSetHighlightText:
            return SetColour(call, grid.colours.highlightText);
        case GridSetCellText:
            return SetCellText(call);
        case GridSetCellAlignment:
            return SetCellAlignment(call);
        case GridSetCellProtected:
            return SetCellProtected(call);
        case GridSetProtectedBackground:
            return SetColour(call, grid.colours.protectedBackground);
        case GridSetRowHeader:
            return SetHeader(call, 0, call.Place());
        case GridSetHeaderColumnWidth:
            return SetWidth(call, 0, call.lParam);
        case GridSetRowHeight:
            return SetRowHeight(call);
        case GridSetShowRowNumbers:
            return SetFlag(call, grid.showsRowNumbers);
        case GridSetRowSelect:
            return SetRowSelect(call);
        case GridSetTitleFont:
            return SetFont(call, grid.titleFont);
        case GridSetTitleHeight:
            state.titleHeight = std::max(call.Number(), 0);
            return Repaint(call);
        case GridInsertRow:
            return InsertRow(call, call.Place() + 1);
        case GridDeleteRow:
            return DeleteRow(call);
        case GridHideColumn:
            return HideColumn(call);
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
    if (!CanEditGridCell(grid.state, grid.state.cursorColumn, grid.state.cursorRow)) {
        const DWORD error = GetLastError();
        CommitGridEditor(grid);
        SetLastError(error);
    }
    return true;
}

}  // namespace tallymere
