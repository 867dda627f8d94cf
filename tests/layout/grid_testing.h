// Grids without a window, for tests.
#pragma once

#include <string_view>

#include "layout/grid_state.h"

namespace tallymere::testing_support {

/// A grid of editable columns of 50 pixels, which owns its table.
struct TestGrid {
    TestGrid(int32_t columns, int32_t rows) {
        ResetGridTable(state.table, 50);
        for (int32_t i = 0; i < columns; i++) {
            AddGridTableColumn(state.table, GridColumnText, u"head", 50);
        }
        for (int32_t i = 0; i < rows; i++) {
            InsertGridTableRow(state.table, i + 1, u"row");
        }
        state.clientWidth = 1000;
        state.clientHeight = 1000;
    }
    ~TestGrid() { FreeGridTable(state.table); }
    TestGrid(const TestGrid&) = delete;
    TestGrid& operator=(const TestGrid&) = delete;

    GridColumn& Column(int32_t column) { return *FindGridColumn(state.table, column); }
    GridCell& Cell(int32_t column, int32_t row) { return *FindGridCell(state.table, column, row); }
    void Write(int32_t column, int32_t row, std::u16string_view text) {
        StoreGridText(Cell(column, row).text, text);
    }
    std::u16string_view Text(int32_t column, int32_t row) {
        return GridCellText(FindGridCell(state.table, column, row));
    }

    GridState state;
};

/// A grid of 4 columns and 10 rows of 20 pixels, a header row of 30 and a title of 40.
struct SmallGrid : TestGrid {
    SmallGrid() : TestGrid(4, 10) {
        state.rowHeight = 20;
        state.headerHeight = 30;
        state.titleHeight = 40;
        state.clientWidth = 160;
        state.clientHeight = 155;
        state.extendsLastColumn = false;
        Column(2).width = 30;
    }
};

}  // namespace tallymere::testing_support
