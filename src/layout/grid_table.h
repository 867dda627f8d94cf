// The cells of a grid: columns of equal length, stored by column.
//
// Column 0 of the table is the header column, and row 0 of each column its header. So what users
// know as the first cell is column 1, row 1. The table owns all its memory.
#pragma once

#include <cstdint>
#include <string_view>

#include "layout/grid_list.h"

namespace tallymere {

/// The most columns behind the header column: their letters run from A to ZZZZ.
inline constexpr int32_t MaxGridColumns = 26 + 26 * 26 + 26 * 26 * 26 + 26 * 26 * 26 * 26;

/// The width of a new column in logical units.
inline constexpr int32_t NewGridColumnWidth = 50;

/// Types of columns. Any other number is text that is only read.
enum GridColumnType : int32_t {
    GridColumnHeader = -1,  ///< the header column
    GridColumnText = 1,     ///< cells that can be edited
};

/// How text stands in a cell. Any other number is left.
enum GridAlignment : int32_t {
    GridAlignLeft = 1,
    GridAlignRight = 3,
};

/// What a click into the header column does. Any other number but GridRowSelectOff is
/// GridRowSelectOnClick.
enum GridRowSelectMode : int32_t {
    GridRowSelectOff = 0,
    GridRowSelectOnClick = 1,  ///< it selects the row; Right goes back to cells
    GridRowSelectNow = 3,      ///< rows are selected from now on
};

struct GridCell {
    char16_t* text;  ///< on the heap, ended by 0; null for an empty text
    uint64_t reserved;
    int32_t alignment;  ///< GridAlignment
    int32_t isProtected;
};

struct GridColumn {
    int32_t type;   ///< GridColumnType
    int32_t width;  ///< in pixels, also while it is hidden
    uint64_t reserved;
    GridList<GridCell> cells;
    int32_t isHidden;
};

struct GridTable {
    GridList<GridColumn> columns = {};
    int32_t columnLimit = MaxGridColumns;  ///< lower in tests only
};

enum class GridTableOutcome { Done, TooManyColumns, NoMemory };

/// True when all columns have the same number of cells and all lists are in order.
bool GridTableIsConsistent(const GridTable& table);

/// Frees all memory of a table: it has neither columns nor rows then.
void FreeGridTable(GridTable& table);

/// Makes a table of the header column and the header row alone. `width` of the header column is in
/// pixels. A table that has a header column keeps the memory of that one, so it is always Done;
/// without memory for a first one the table has no column at all.
GridTableOutcome ResetGridTable(GridTable& table, int32_t width);

/// Counts without the headers.
int32_t GridDataColumns(const GridTable& table);
int32_t GridDataRows(const GridTable& table);

/// Adds a column of empty cells behind all others, of which the header column must be one; `width`
/// is in pixels. Unless it is Done, the table is as before.
GridTableOutcome AddGridTableColumn(GridTable& table, int32_t type, std::u16string_view header,
                                    int32_t width);

/// Adds a row of empty cells at a position from 1 to the count of rows plus 1, whose cell of the
/// header column is `header`. Without memory the table is as before.
GridTableOutcome InsertGridTableRow(GridTable& table, int32_t position, std::u16string_view header);

/// Takes out a row, 1 to the count of rows.
void DeleteGridTableRow(GridTable& table, int32_t row);

/// A cell or a column of the table, headers included; null where there is none.
GridColumn* FindGridColumn(const GridTable& table, int32_t column);
GridCell* FindGridCell(const GridTable& table, int32_t column, int32_t row);

/// The text of a cell; empty for null.
std::u16string_view GridCellText(const GridCell* cell);

/// Replaces a text on the heap by a copy of another one, which may be part of it. Without memory it
/// is empty.
void StoreGridText(char16_t*& owned, std::u16string_view text);

/// The width that counts, in pixels: 0 for a hidden column and for none.
int32_t GridColumnWidth(const GridTable& table, int32_t column);

}  // namespace tallymere
