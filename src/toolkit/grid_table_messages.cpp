#include "toolkit/grid_table_messages.h"

#include "layout/grid_cursor.h"
#include "toolkit/environment.h"
#include "toolkit/grid_editor.h"

namespace tallymere {

namespace {

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
        return FailGridCall(GridErrorInvalidCell);
    }
    *std::copy(text.begin(), text.end(), buffer) = 0;
    return static_cast<LRESULT>(text.size());
}

// A cursor that nobody sees would take keys.
void LeaveHiddenColumn(const GridCall& call) {
    const GridState& state = call.state;
    const int32_t column = ShownGridColumnAt(state.table, state.cursorColumn);
    if (column != state.cursorColumn) {
        MoveGridCursor(call.grid, {column, state.cursorRow});
    }
}

}  // namespace

LRESULT GetGridHeader(const GridCall& call, int32_t column, int32_t row) {
    const GridCell* const cell = FindGridCell(call.state.table, column, row);
    if (cell == nullptr || column + row < 1) {
        return FailGridCall(GridErrorInvalidCell);
    }
    return std::min<LRESULT>(GetText(GridCellText(cell), reinterpret_cast<char16_t*>(call.lParam)),
                             0);
}

LRESULT GetGridHeaderLength(const GridCall& call, int32_t column, int32_t row) {
    const GridCell* const cell = FindGridCell(call.state.table, column, row);
    return cell != nullptr && column + row >= 1 ? static_cast<LRESULT>(GridCellText(cell).size())
                                                : FailGridCall(GridErrorInvalidCell);
}

LRESULT SetGridHeader(const GridCall& call, int32_t column, int32_t row) {
    return column + row >= 1 && StoreGridCell(call.grid, column, row, call.Text())
               ? 0
               : FailGridCall(GridErrorInvalidCell);
}

LRESULT AddGridColumn(const GridCall& call) {
    const auto* const spec = reinterpret_cast<const GridColumnSpec*>(call.lParam);
    if (spec == nullptr) {
        return FailGridCall(GridErrorInvalidCell);
    }
    const GridTableOutcome outcome =
        AddGridTableColumn(call.state.table, spec->type, {}, ToScreenPixels(NewGridColumnWidth));
    if (outcome != GridTableOutcome::Done) {
        return FailGridCall(GridErrorOf(outcome));
    }
    const int32_t count = GridDataColumns(call.state.table);
    StoreGridCell(call.grid, count, 0,
                  spec->header != nullptr ? spec->header : std::u16string_view());
    return count - 1;
}

LRESULT AddGridRow(const GridCall& call) {
    // The page may add or take out rows when it hears of the text, so they are counted after it.
    CommitGridEditor(call.grid);
    return InsertGridRow(call, GridDataRows(call.state.table) + 1);
}

LRESULT InsertGridRow(const GridCall& call, int32_t position) {
    const auto canInsert = [&call, position] {
        // A grid that the page has destroyed has no column at all.
        return !call.grid.isDestroyed && position >= 1 &&
               position <= GridDataRows(call.state.table) + 1;
    };
    // The cell of an open editor may move. The page may take out rows when it hears of the text.
    if (canInsert()) {
        CommitGridEditor(call.grid);
    }
    if (!canInsert()) {
        return FailGridCall(GridErrorInvalidIndex);
    }
    const GridTableOutcome outcome = InsertGridTableRow(call.state.table, position, {});
    if (outcome != GridTableOutcome::Done) {
        return FailGridCall(GridErrorOf(outcome));
    }
    StoreGridCell(call.grid, 0, position, call.Text());
    return position - 1;
}

LRESULT DeleteGridRow(const GridCall& call) {
    const int32_t row = call.TableIndex();
    const auto canDelete = [&call, row] {
        return row >= 1 && row <= GridDataRows(call.state.table);
    };
    if (canDelete()) {
        CommitGridEditor(call.grid);
    }
    if (!canDelete()) {
        return FailGridCall(GridErrorInvalidIndex);
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

LRESULT HideGridColumn(const GridCall& call) {
    if (call.TableIndex() == call.state.cursorColumn) {
        CommitGridEditor(call.grid);
    }
    GridColumn* const column = FindGridColumn(call.state.table, call.TableIndex());
    if (column == nullptr || call.TableIndex() < 1) {
        return FailGridCall(GridErrorInvalidIndex);
    }
    column->isHidden = call.lParam != 0 ? 1 : 0;
    LeaveHiddenColumn(call);
    return RepaintForGridCall(call);
}

LRESULT GetGridWidth(const GridCall& call) {
    return call.TableIndex() >= 1 && FindGridColumn(call.state.table, call.TableIndex()) != nullptr
               ? GridColumnWidth(call.state.table, call.TableIndex())
               : FailGridCall(GridErrorInvalidIndex);
}

LRESULT SetGridWidth(const GridCall& call, int32_t place, int64_t units) {
    GridColumn* const column = FindGridColumn(call.state.table, place);
    if (column == nullptr) {
        return FailGridCall(GridErrorInvalidIndex);
    }
    // Wider than any screen, and its pixels fit 32 bits.
    constexpr int64_t MostUnits = 1'000'000;
    column->width = ToScreenPixels(static_cast<int32_t>(std::clamp<int64_t>(units, 0, MostUnits)));
    return RepaintForGridCall(call);
}

LRESULT GetGridColumnType(const GridCall& call) {
    const GridColumn* const column = FindGridColumn(call.state.table, call.TableIndex());
    return column != nullptr && call.TableIndex() >= 1 ? column->type
                                                       : FailGridCall(GridErrorInvalidIndex);
}

LRESULT GetGridCellText(const GridCall& call) {
    GridError error = {};
    const GridCell* const cell = SpecifiedCell(call, error);
    return cell != nullptr ? GetText(GridCellText(cell), call.Cell()->text) : FailGridCall(error);
}

// Columns that are only read have no length here, though their text can be asked for.
LRESULT GetGridCellLength(const GridCall& call) {
    const GridColumn* const column = FindGridColumn(call.state.table, call.TableIndex());
    const int32_t row = static_cast<int32_t>(std::clamp<int64_t>(call.lParam, -1, GridCall::Most));
    if (column == nullptr || (column->type != GridColumnText && column->type != GridColumnHeader)) {
        return 0;
    }
    const GridCell* const cell =
        row >= 0 ? FindGridCell(call.state.table, call.TableIndex(), row + 1) : nullptr;
    return static_cast<LRESULT>(GridCellText(cell).size());
}

LRESULT SetGridCellText(const GridCall& call) {
    GridError error = {};
    if (SpecifiedCell(call, error) == nullptr) {
        return FailGridCall(error);
    }
    const GridCellSpec& spec = *call.Cell();
    StoreGridCell(call.grid, spec.column + 1, spec.row + 1,
                  spec.text != nullptr ? spec.text : std::u16string_view());
    return 0;
}

LRESULT AlignGridCell(const GridCall& call) {
    GridError error = {};
    GridCell* const cell = SpecifiedCell(call, error);
    if (cell == nullptr) {
        return FailGridCall(error);
    }
    if (FindGridColumn(call.state.table, call.Cell()->column + 1)->type == GridColumnText) {
        cell->alignment = call.Number();
    }
    return RepaintForGridCall(call);
}

LRESULT ProtectGridCell(const GridCall& call) {
    GridError error = {};
    GridCell* const cell = SpecifiedCell(call, error);
    if (cell == nullptr) {
        return FailGridCall(error);
    }
    cell->isProtected = call.Flag() ? 1 : 0;
    return RepaintForGridCall(call);
}

}  // namespace tallymere
