#include "layout/grid_table.h"

#include <algorithm>
#include <limits>

#include "core/contract.h"

namespace tallymere {

namespace {

constexpr GridCell NewCell = {
    .text = nullptr, .reserved = 0, .alignment = GridAlignLeft, .isProtected = 0};

// Rows with the header row.
int32_t AllRows(const GridTable& table) {
    return table.columns.count != 0 ? table.columns.items[0].cells.count : 0;
}

void FreeCells(GridColumn& column) {
    for (int32_t row = 0; row < column.cells.count; row++) {
        std::free(column.cells.items[row].text);
    }
    FreeGridList(column.cells);
}

// Adds a column of `rows` empty cells. Unless it is Done, the table is as before.
GridTableOutcome AppendColumn(GridTable& table, int32_t type, int32_t width, int32_t rows) {
    GridColumn column = {.type = type, .width = width, .reserved = 0, .cells = {}, .isHidden = 0};
    for (int32_t row = 0; row < rows; row++) {
        if (!ReserveGridItem(column.cells)) {
            FreeCells(column);
            return GridTableOutcome::NoMemory;
        }
        InsertGridItem(column.cells, row, NewCell);
    }
    if (!ReserveGridItem(table.columns)) {
        FreeCells(column);
        return GridTableOutcome::NoMemory;
    }
    InsertGridItem(table.columns, table.columns.count, column);
    return GridTableOutcome::Done;
}

}  // namespace

bool GridTableIsConsistent(const GridTable& table) {
    if (!GridListIsConsistent(table.columns) || GridDataColumns(table) > table.columnLimit) {
        return false;
    }
    const int32_t rows = AllRows(table);
    return std::all_of(table.columns.items, table.columns.items + table.columns.count,
                       [rows](const GridColumn& column) {
                           return GridListIsConsistent(column.cells) &&
                                  column.cells.count == rows && column.width >= 0;
                       });
}

void FreeGridTable(GridTable& table) {
    for (int32_t column = 0; column < table.columns.count; column++) {
        FreeCells(table.columns.items[column]);
    }
    FreeGridList(table.columns);
}

GridTableOutcome ResetGridTable(GridTable& table, int32_t width) {
    if (table.columns.count == 0) {
        return AppendColumn(table, GridColumnHeader, width, 1);
    }
    for (int32_t column = 1; column < table.columns.count; column++) {
        FreeCells(table.columns.items[column]);
    }
    table.columns.count = 1;
    GridColumn& header = table.columns.items[0];
    for (int32_t row = 0; row < header.cells.count; row++) {
        std::free(header.cells.items[row].text);
    }
    header.cells.count = 1;
    header.cells.items[0] = NewCell;
    header.width = width;
    header.isHidden = 0;
    return GridTableOutcome::Done;
}

int32_t GridDataColumns(const GridTable& table) {
    return std::max(table.columns.count - 1, 0);
}

int32_t GridDataRows(const GridTable& table) {
    return std::max(AllRows(table) - 1, 0);
}

GridTableOutcome AddGridTableColumn(GridTable& table, int32_t type, std::u16string_view header,
                                    int32_t width) {
    TALLYMERE_REQUIRE(width >= 0 && AllRows(table) >= 1);
    if (GridDataColumns(table) >= table.columnLimit) {
        return GridTableOutcome::TooManyColumns;
    }
    const GridTableOutcome outcome = AppendColumn(table, type, width, AllRows(table));
    if (outcome == GridTableOutcome::Done) {
        StoreGridText(FindGridCell(table, table.columns.count - 1, 0)->text, header);
    }
    return outcome;
}

GridTableOutcome InsertGridTableRow(GridTable& table, int32_t position,
                                    std::u16string_view header) {
    TALLYMERE_REQUIRE(position >= 1 && position <= AllRows(table));
    for (int32_t column = 0; column < table.columns.count; column++) {
        if (!ReserveGridItem(table.columns.items[column].cells)) {
            return GridTableOutcome::NoMemory;
        }
    }
    for (int32_t column = 0; column < table.columns.count; column++) {
        InsertGridItem(table.columns.items[column].cells, position, NewCell);
    }
    StoreGridText(FindGridCell(table, 0, position)->text, header);
    return GridTableOutcome::Done;
}

void DeleteGridTableRow(GridTable& table, int32_t row) {
    TALLYMERE_REQUIRE(row >= 1 && row < AllRows(table));
    for (int32_t column = 0; column < table.columns.count; column++) {
        GridList<GridCell>& cells = table.columns.items[column].cells;
        std::free(cells.items[row].text);
        RemoveGridItem(cells, row);
    }
}

GridColumn* FindGridColumn(const GridTable& table, int32_t column) {
    return column >= 0 && column < table.columns.count ? &table.columns.items[column] : nullptr;
}

GridCell* FindGridCell(const GridTable& table, int32_t column, int32_t row) {
    const GridColumn* const found = FindGridColumn(table, column);
    return found != nullptr && row >= 0 && row < found->cells.count ? &found->cells.items[row]
                                                                    : nullptr;
}

std::u16string_view GridCellText(const GridCell* cell) {
    return cell != nullptr && cell->text != nullptr ? cell->text : std::u16string_view();
}

void StoreGridText(char16_t*& owned, std::u16string_view text) {
    char16_t* copy = nullptr;
    constexpr size_t MaxLength = std::numeric_limits<size_t>::max() / sizeof(char16_t) - 1;
    if (!text.empty() && text.size() <= MaxLength) {
        copy =
            static_cast<char16_t*>(allocateForGrid(nullptr, (text.size() + 1) * sizeof(char16_t)));
    }
    if (copy != nullptr) {
        *std::copy(text.begin(), text.end(), copy) = 0;
    }
    std::free(owned);
    owned = copy;
}

int32_t GridColumnWidth(const GridTable& table, int32_t column) {
    const GridColumn* const found = FindGridColumn(table, column);
    return found != nullptr && found->isHidden == 0 ? found->width : 0;
}

}  // namespace tallymere
