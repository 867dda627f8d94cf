// The record of a grid: what it shows, see layout/grid_state.h, and what it needs of Windows. The
// files toolkit/grid_*.cpp hand it to each other.
#pragma once

#include <cstdint>
#include <string_view>

#include "layout/grid_cursor.h"
#include "layout/grid_state.h"
#include "toolkit/grid_control.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Colours. CLR_INVALID is the system's colour for this use.
struct GridColours {
    COLORREF protectedBackground = CLR_INVALID;
    COLORREF highlightBackground = CLR_INVALID;
    COLORREF gridLine = CLR_INVALID;
    COLORREF highlightText = CLR_INVALID;
    COLORREF normalBackground = CLR_INVALID;
};

/// While the mouse drags the edge of a column.
struct GridResizing {
    bool isActive = false;
    int32_t column = 0;
    int32_t widthAtStart = 0;
    int32_t xAtStart = 0;
};

/// Lives on the heap from WM_CREATE to WM_DESTROY, and until the last message that is being handled
/// then has ended.
struct GridRecord {
    HINSTANCE instance = nullptr;
    HWND parent = nullptr;
    HWND window = nullptr;
    HWND editWindow = nullptr;  ///< the edit control inside a cell; null for none
    int32_t id = 0;
    GridState state = {};
    char16_t* title = nullptr;  ///< on the heap; null for an empty one
    int32_t textHeight = 0;     ///< of the font of cells, since the grid last had the focus
    int32_t wheelTurned = 0;    ///< turns of the wheel that have not scrolled a line yet
    GridColours colours = {};
    HFONT cellFont = nullptr;  ///< fonts are the page's
    HFONT headerFont = nullptr;
    HFONT titleFont = nullptr;
    bool hasFocus = false;
    bool showsRowNumbers = true;
    bool showsColumnLetters = true;
    bool hasSingleLines = true;
    bool autoWidens = false;
    bool isDoubleBuffered = true;
    bool isEditorOpen = false;
    bool skipsSize = false;  ///< scroll bars are being shown or hidden
    GridResizing resizing = {};
    int32_t messageDepth = 0;  ///< messages that are being handled, one inside the other
    bool isDestroyed = false;
};

/// Counts the messages that are being handled, of the grid and of its editor, and frees a destroyed
/// grid behind the last one. Whatever calls the page needs one around it.
struct GridMessageScope {
    explicit GridMessageScope(GridRecord& record) : grid(record) { grid.messageDepth++; }
    ~GridMessageScope();

    GridMessageScope(const GridMessageScope&) = delete;
    GridMessageScope& operator=(const GridMessageScope&) = delete;

    GridRecord& grid;
};

/// The slot of the window that has the same pointer as GridRecordProperty. Wine asks its server for
/// each property, and a page that fills its grid sends a thousand messages.
inline constexpr int32_t GridRecordSlot = 0;

/// The record of a grid; null when that is destroyed.
GridRecord* GridRecordOf(HWND grid);

/// Tells the page of the grid, unless that is destroyed. The page may do anything then, so whoever
/// calls it must not keep pointers into the table.
void NotifyGridParent(GridRecord& grid, GridNotificationCode code, uint32_t key = 0,
                      HWND otherWindow = nullptr);

/// Marks the whole grid to be painted again, and puts an open editor in its place.
void RepaintGrid(GridRecord& grid);

/// Reads the size of the client area anew.
void UpdateGridSize(GridRecord& grid);

/// Stores a text in a cell, headers included, and makes room for it where that is asked for. False
/// when there is no such cell.
bool StoreGridCell(GridRecord& grid, int32_t column, int32_t row, std::u16string_view text);

/// A place as Windows writes it.
constexpr RECT RectOf(const LayoutRect& place) {
    return {place.x, place.y, place.x + place.width, place.y + place.height};
}

/// What a header cell shows: the letters of the column or the number of the row, or its own text.
/// `text` must have room for 16 characters, in which the result may lie.
std::u16string_view ShownGridHeader(const GridRecord& grid, int32_t column, int32_t row,
                                    char16_t* text);

/// Puts the cursor on a cell, ends the editor for that, and tells the page if the cursor has moved.
/// The cell then is in view.
void MoveGridCursor(GridRecord& grid, const GridPlace& place);

}  // namespace tallymere
