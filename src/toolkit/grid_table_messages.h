// The messages of a grid that are about its columns, rows and cells. Each function answers one of
// GridMessage, see toolkit/grid_control.h.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "toolkit/grid_record.h"

namespace tallymere {

/// A message on its way to the grid.
struct GridCall {
    GridRecord& grid;
    GridState& state;
    WPARAM wParam;
    LPARAM lParam;

    /// A number or flag in wParam.
    int32_t Number() const { return static_cast<int32_t>(wParam); }
    bool Flag() const { return wParam != 0; }
    /// The column or row in wParam as the table counts it: messages count from 0, the table from 1.
    int32_t TableIndex() const {
        return static_cast<int32_t>(std::min<int64_t>(Number(), Most) + 1);
    }
    std::u16string_view Text() const {
        const auto* text = reinterpret_cast<const char16_t*>(lParam);
        return text != nullptr ? text : std::u16string_view();
    }
    const GridCellSpec* Cell() const { return reinterpret_cast<const GridCellSpec*>(lParam); }

    /// The largest index that counts, so that the row behind the one of TableIndex() fits too.
    static constexpr int64_t Most = INT32_MAX - 2;
};

/// Answers a message that cannot be carried out.
inline LRESULT FailGridCall(GridError error) {
    SetLastError(error);
    return -1;
}

/// Why a column or row is not added; `outcome` is not Done.
constexpr GridError GridErrorOf(GridTableOutcome outcome) {
    return outcome == GridTableOutcome::NoMemory ? GridErrorNoMemory : GridErrorTooManyColumns;
}

/// Answers a message that has changed what the grid shows.
inline LRESULT RepaintForGridCall(const GridCall& call) {
    RepaintGrid(call.grid);
    return 0;
}

/// The headers: of a column with row 0, of a row with column 0. Both count as in the table.
LRESULT GetGridHeader(const GridCall& call, int32_t column, int32_t row);
LRESULT GetGridHeaderLength(const GridCall& call, int32_t column, int32_t row);
LRESULT SetGridHeader(const GridCall& call, int32_t column, int32_t row);

LRESULT AddGridColumn(const GridCall& call);
LRESULT HideGridColumn(const GridCall& call);
LRESULT GetGridColumnType(const GridCall& call);
LRESULT GetGridWidth(const GridCall& call);

/// `column` is that of the table, so 0 is the header column.
LRESULT SetGridWidth(const GridCall& call, int32_t column, int64_t units);

LRESULT AddGridRow(const GridCall& call);

/// `position` is where the new row will be in the table.
LRESULT InsertGridRow(const GridCall& call, int32_t position);
LRESULT DeleteGridRow(const GridCall& call);

LRESULT GetGridCellText(const GridCall& call);
LRESULT GetGridCellLength(const GridCall& call);
LRESULT SetGridCellText(const GridCall& call);
LRESULT AlignGridCell(const GridCall& call);
LRESULT ProtectGridCell(const GridCall& call);

}  // namespace tallymere
