#include "toolkit/grid_record.h"

#include <algorithm>

#include "layout/column_letters.h"
#include "layout/decimal_text.h"
#include "layout/grid_cell_layout.h"
#include "layout/grid_scrolling.h"
#include "toolkit/environment.h"
#include "toolkit/grid_accessibility.h"
#include "toolkit/grid_editor.h"
#include "toolkit/grid_scroll_bars.h"
#include "toolkit/text_measure.h"
#include "toolkit/window_class.h"

namespace tallymere {

namespace {

bool WidensFor(const GridRecord& grid, int32_t row) {
    return grid.autoWidens || row == 0;
}

GridTextExtent ExtentOf(const GridRecord& grid, int32_t row, std::u16string_view text) {
    const TextMeasure measure(grid.window, row == 0 ? grid.headerFont : grid.cellFont);
    GridTextExtent extent = {0, measure.LineHeight(), CountGridLines(text)};
    while (!text.empty()) {
        extent.width = std::max(extent.width, measure.WidthOf(TakeGridLine(text, text)));
    }
    return extent;
}

}  // namespace

GridMessageScope::~GridMessageScope() {
    grid.messageDepth--;
    if (grid.isDestroyed && grid.messageDepth == 0) {
        // A message that was under way may have put something into it.
        FreeGridTable(grid.state.table);
        StoreGridText(grid.title, {});
        delete &grid;
    }
}

GridRecord* GridRecordOf(HWND grid) {
    return GetSlot<GridRecord*>(grid, GridRecordSlot);
}

void NotifyGridParent(GridRecord& grid, GridNotificationCode code, uint32_t key, HWND otherWindow) {
    if (grid.isDestroyed) {
        return;
    }
    const GridColumn* const column = FindGridColumn(grid.state.table, grid.state.cursorColumn);
    GridNotification notification = {.header = {grid.window, static_cast<UINT_PTR>(grid.id), code},
                                     .column = grid.state.cursorColumn - 1,
                                     .row = grid.state.cursorRow - 1,
                                     .columnType = column != nullptr ? column->type : 0,
                                     .key = key,
                                     .otherWindow = otherWindow};
    SendMessageW(grid.parent, WM_NOTIFY, notification.header.idFrom,
                 reinterpret_cast<LPARAM>(&notification));
}

void RepaintGrid(GridRecord& grid) {
    PlaceGridEditor(grid);
    // An open editor paints itself, and would flicker if it did so with every change.
    RedrawWindow(grid.window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN);
}

void UpdateGridSize(GridRecord& grid) {
    const LayoutSize size = ClientSize(grid.window);
    grid.state.clientWidth = size.width;
    grid.state.clientHeight = size.height;
}

bool StoreGridCell(GridRecord& grid, int32_t column, int32_t row, std::u16string_view text) {
    GridCell* const cell = FindGridCell(grid.state.table, column, row);
    if (cell == nullptr) {
        return false;
    }
    StoreGridText(cell->text, text);
    if (WidensFor(grid, row)) {
        FitGridCell(grid.state, column, row, ExtentOf(grid, row, GridCellText(cell)));
    }
    RepaintGrid(grid);
    return true;
}

std::u16string_view ShownGridHeader(const GridRecord& grid, int32_t column, int32_t row,
                                    char16_t* text) {
    if (row == 0 && column > 0 && grid.showsColumnLetters) {
        const ColumnLetters letters = ColumnLettersOf(column);
        std::copy_n(letters.text, letters.length, text);
        return {text, static_cast<size_t>(letters.length)};
    }
    if (column == 0 && row > 0 && grid.showsRowNumbers) {
        const DecimalText number = DecimalTextOf(row);
        std::copy_n(number.text, number.length, text);
        return {text, static_cast<size_t>(number.length)};
    }
    return GridCellText(FindGridCell(grid.state.table, column, row));
}

void MoveGridCursor(GridRecord& grid, const GridPlace& place) {
    CommitGridEditor(grid);
    GridState& state = grid.state;
    if (place != GridPlace{state.cursorColumn, state.cursorRow}) {
        DestroyGridEditor(grid);
        state.cursorColumn = place.column;
        state.cursorRow = place.row;
        // The page may have taken rows out when it heard of the text.
        ClampGridState(state);
        NotifyGridParent(grid, GridCursorMoved);
        TellGridFocus(grid);
    }
    ShowGridCursor(grid);
}

}  // namespace tallymere
