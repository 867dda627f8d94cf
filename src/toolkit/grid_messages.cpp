#include "toolkit/grid_messages.h"

#include <algorithm>
#include <iterator>

#include "toolkit/environment.h"
#include "toolkit/grid_editor.h"
#include "toolkit/grid_keyboard.h"
#include "toolkit/grid_scroll_bars.h"
#include "toolkit/grid_table_messages.h"

namespace tallymere {

namespace {

template <bool GridState::*flag>
LRESULT SetFlag(const GridCall& call) {
    call.state.*flag = call.Flag();
    return RepaintForGridCall(call);
}

template <bool GridRecord::*flag>
LRESULT SetFlag(const GridCall& call) {
    call.grid.*flag = call.Flag();
    return RepaintForGridCall(call);
}

template <COLORREF GridColours::*colour>
LRESULT SetColour(const GridCall& call) {
    call.grid.colours.*colour = static_cast<COLORREF>(call.wParam);
    return RepaintForGridCall(call);
}

template <HFONT GridRecord::*font>
LRESULT SetFont(const GridCall& call) {
    call.grid.*font = reinterpret_cast<HFONT>(call.wParam);
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

LRESULT SetWidth(const GridCall& call) {
    return call.TableIndex() >= 1 ? SetGridWidth(call, call.TableIndex(), call.lParam)
                                  : FailGridCall(GridErrorInvalidIndex);
}

LRESULT SetHeaderHeight(const GridCall& call) {
    if (call.Number() >= 0) {
        call.state.headerHeight = std::min(call.Number(), MaxGridHeight);
    }
    return RepaintForGridCall(call);
}

LRESULT SetTitleHeight(const GridCall& call) {
    call.state.titleHeight = std::clamp(call.Number(), 0, MaxGridHeight);
    return RepaintForGridCall(call);
}

// What answers a message.
struct GridAnswer {
    GridMessage message;
    LRESULT (*answer)(const GridCall& call);
};

constexpr GridAnswer Answers[] = {
    {GridAddColumn, AddGridColumn},
    {GridAddRow, AddGridRow},
    {GridSetEditable, SetFlag<&GridState::isEditable>},
    {GridSetExtendLastColumn, SetFlag<&GridState::extendsLastColumn>},
    {GridColumnCount,
     [](const GridCall& call) -> LRESULT { return GridDataColumns(call.state.table); }},
    {GridGetColumnHeader,
     [](const GridCall& call) { return GetGridHeader(call, call.TableIndex(), 0); }},
    {GridGetColumnHeaderLength,
     [](const GridCall& call) { return GetGridHeaderLength(call, call.TableIndex(), 0); }},
    {GridGetColumnType, GetGridColumnType},
    {GridGetColumnWidth, GetGridWidth},
    {GridCursorColumn, [](const GridCall& call) -> LRESULT { return call.state.cursorColumn - 1; }},
    {GridCursorRow, [](const GridCall& call) -> LRESULT { return call.state.cursorRow - 1; }},
    {GridHeaderHeight, [](const GridCall& call) -> LRESULT { return call.state.headerHeight; }},
    {GridGetCellText, GetGridCellText},
    {GridGetCellLength, GetGridCellLength},
    {GridRowCount, [](const GridCall& call) -> LRESULT { return GridDataRows(call.state.table); }},
    {GridGetRowHeader,
     [](const GridCall& call) { return GetGridHeader(call, 0, call.TableIndex()); }},
    {GridGetRowHeaderLength,
     [](const GridCall& call) { return GetGridHeaderLength(call, 0, call.TableIndex()); }},
    {GridRowHeight, [](const GridCall& call) -> LRESULT { return call.state.rowHeight; }},
    {GridRefresh, Refresh},
    {GridClear, Clear},
    {GridSetCursorEdit, SetCursorEdit},
    {GridSetAllowResize, SetFlag<&GridState::allowsResize>},
    {GridSetAutoWiden, SetFlag<&GridRecord::autoWidens>},
    {GridSetShowColumnLetters, SetFlag<&GridRecord::showsColumnLetters>},
    {GridSetColumnHeader,
     [](const GridCall& call) { return SetGridHeader(call, call.TableIndex(), 0); }},
    {GridSetColumnWidth, SetWidth},
    {GridSetCursor,
     [](const GridCall& call) { return SetCursorOn(call, call.Number(), call.lParam); }},
    {GridSetDoubleBuffer, SetFlag<&GridRecord::isDoubleBuffered>},
    {GridSetSingleLine, SetFlag<&GridRecord::hasSingleLines>},
    {GridSetGridLineColour, SetColour<&GridColours::gridLine>},
    {GridSetHeaderHeight, SetHeaderHeight},
    {GridSetHeaderFont, SetFont<&GridRecord::headerFont>},
    {GridSetHighlightBackground, SetColour<&GridColours::highlightBackground>},
    {GridSetHighlightText, SetColour<&GridColours::highlightText>},
    {GridSetCellText, SetGridCellText},
    {GridSetCellAlignment, AlignGridCell},
    {GridSetCellProtected, ProtectGridCell},
    {GridSetProtectedBackground, SetColour<&GridColours::protectedBackground>},
    {GridSetRowHeader,
     [](const GridCall& call) { return SetGridHeader(call, 0, call.TableIndex()); }},
    {GridSetHeaderColumnWidth,
     [](const GridCall& call) { return SetGridWidth(call, 0, call.lParam); }},
    {GridSetRowHeight, SetRowHeight},
    {GridSetShowRowNumbers, SetFlag<&GridRecord::showsRowNumbers>},
    {GridSetRowSelect, SetRowSelect},
    {GridSetTitleFont, SetFont<&GridRecord::titleFont>},
    {GridSetTitleHeight, SetTitleHeight},
    {GridInsertRow,
     [](const GridCall& call) { return InsertGridRow(call, call.TableIndex() + 1); }},
    {GridDeleteRow, DeleteGridRow},
    {GridHideColumn, HideGridColumn},
};
static_assert(std::is_sorted(std::begin(Answers), std::end(Answers),
                             [](const GridAnswer& a, const GridAnswer& b) {
                                 return a.message < b.message;
                             }));
// A message without a row would go to Windows.
constexpr UINT FreeMessages = 5;
static_assert(Answers[0].message == GridAddColumn &&
              std::size(Answers) + FreeMessages == GridMessageEnd - GridAddColumn);

// Null for a message of Windows.
const GridAnswer* FindAnswer(UINT message) {
    const auto* const found = std::lower_bound(
        std::begin(Answers), std::end(Answers), message,
        [](const GridAnswer& answer, UINT wanted) { return answer.message < wanted; });
    return found != std::end(Answers) && found->message == message ? found : nullptr;
}

}  // namespace

bool HandleGridMessage(GridRecord& grid, UINT message, WPARAM wParam, LPARAM lParam,
                       LRESULT& result) {
    const GridAnswer* const found = FindAnswer(message);
    if (found == nullptr) {
        return false;
    }
    result = found->answer({grid, grid.state, wParam, lParam});
    // What the message changed may take the right to edit from the cell that is being edited.
    if (!CanEditGridCursor(grid.state)) {
        const DWORD error = GetLastError();
        CommitGridEditor(grid);
        SetLastError(error);
    }
    return true;
}

}  // namespace tallymere
