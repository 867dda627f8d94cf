// A table of text cells in columns and rows, with a header row, a header column, a title, scroll
// bars, columns that the mouse resizes, and an edit control inside the cell that is edited.
//
// The grid knows nothing of numbers: all cells are text. Everything is asked of it by the messages
// of GridMessage, and it tells its parent by WM_NOTIFY. Columns and rows in messages and
// notifications count from 0, the first one behind the headers. A column or row that is not there
// gives -1 and an error of GridError in GetLastError.
#pragma once

#include <cstdint>

#include "layout/grid_table.h"
#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

inline constexpr const char16_t* GridClass = u"SimpleGridCtl";

/// The property of the grid's window that points to its GridRecord, see toolkit/grid_record.h.
inline constexpr const char16_t* GridRecordProperty = u"lpInsData";

/// What a message takes for a new column. `type` is GridColumnText for cells that can be edited;
/// any other type but GridColumnHeader is text that is only read.
struct GridColumnSpec {
    int32_t type;
    const char16_t* header;  ///< is copied; null means no text
    void* reserved;
};

/// What a message takes for a cell. `text` is what is written, or the buffer that is filled; null
/// where only the place of the cell counts.
struct GridCellSpec {
    int32_t column;
    int32_t row;
    char16_t* text;
};

/// The messages. A flag is 0 or 1. Where no answer is named it is 0, or -1 for a bad index. Texts
/// are copied, and null is an empty text. Buffers must have room for the text and a 0. A column or
/// row for which there is no memory is not added: -1 with GridErrorNoMemory.
enum GridMessage : UINT {
    /// lParam: GridColumnSpec. Adds a column of empty cells. Answer: its index; -1 with
    /// GridErrorTooManyColumns when the letters of columns are used up.
    GridAddColumn = WM_USER + 1,
    /// lParam: header text. Adds a row to all columns. Answer: its index.
    GridAddRow = WM_USER + 2,
    /// wParam: flag. At first 1; with 0 no cell can be edited.
    GridSetEditable = WM_USER + 3,
    /// wParam: flag. At first 1: the rightmost column reaches to the edge of the window.
    GridSetExtendLastColumn = WM_USER + 4,
    /// Answer: count of columns without the header column.
    GridColumnCount = WM_USER + 5,
    /// wParam: column, lParam: buffer. Answer: 0, or -1 with GridErrorInvalidCell.
    GridGetColumnHeader = WM_USER + 6,
    /// wParam: column. Answer: characters, or -1 with GridErrorInvalidCell.
    GridGetColumnHeaderLength = WM_USER + 7,
    /// wParam: column. Answer: its type; -1 with GridErrorInvalidIndex.
    GridGetColumnType = WM_USER + 8,
    /// wParam: column. Answer: pixels, 0 for a hidden column; -1 with GridErrorInvalidIndex.
    GridGetColumnWidth = WM_USER + 9,
    /// Answer: column and row of the cursor.
    GridCursorColumn = WM_USER + 10,
    GridCursorRow = WM_USER + 11,
    /// Answer: pixels.
    GridHeaderHeight = WM_USER + 12,
    /// lParam: GridCellSpec. Copies the text into its buffer. Answer: its length, or -1.
    GridGetCellText = WM_USER + 14,
    /// wParam: column, -1 for the header column; lParam: row. Answer: the length of the text; 0 for
    /// a cell that is not there or in a column whose text is only read.
    GridGetCellLength = WM_USER + 15,
    /// Answer: count of rows without the header row.
    GridRowCount = WM_USER + 17,
    /// wParam: row, lParam: buffer. Answer: 0, or -1 with GridErrorInvalidCell.
    GridGetRowHeader = WM_USER + 18,
    /// wParam: row. Answer: characters, or -1 with GridErrorInvalidCell.
    GridGetRowHeaderLength = WM_USER + 19,
    /// Answer: pixels.
    GridRowHeight = WM_USER + 20,
    /// Paints the whole grid at once.
    GridRefresh = WM_USER + 21,
    /// Removes all columns and rows; cursor and view go to the first cell.
    GridClear = WM_USER + 22,
    /// wParam: flag, lParam: GridCellSpec. Moves the cursor and opens the editor, for flag 0 with
    /// the text of the cell, else empty. Answer: 0 or -1.
    GridSetCursorEdit = WM_USER + 23,
    /// wParam: flag. At first 0; with 1 the mouse resizes columns.
    GridSetAllowResize = WM_USER + 24,
    /// wParam: flag. At first 0; with 1 a column becomes as wide as a text that is put into it.
    GridSetAutoWiden = WM_USER + 25,
    /// wParam: flag. At first 1: A, B, C and so on stand in the header row; with 0 the headers.
    GridSetShowColumnLetters = WM_USER + 26,
    /// wParam: column, lParam: text. Answer: 0, or -1 with GridErrorInvalidCell.
    GridSetColumnHeader = WM_USER + 27,
    /// wParam: column, lParam: width in logical units; a negative one counts as 0.
    GridSetColumnWidth = WM_USER + 28,
    /// wParam: column, lParam: row. For a hidden column the next one that is shown gets the cursor.
    /// Answer: 0, or -1 with GridErrorInvalidIndex.
    GridSetCursor = WM_USER + 29,
    /// wParam: flag. At first 1: the grid is painted in memory first.
    GridSetDoubleBuffer = WM_USER + 30,
    /// wParam: flag. At first 1: a text has one line; with 0 it is wrapped.
    GridSetSingleLine = WM_USER + 31,
    /// wParam: COLORREF.
    GridSetGridLineColour = WM_USER + 32,
    /// wParam: pixels. A negative height is ignored.
    GridSetHeaderHeight = WM_USER + 33,
    /// wParam: HFONT, which stays the caller's.
    GridSetHeaderFont = WM_USER + 34,
    /// wParam: COLORREF.
    GridSetHighlightBackground = WM_USER + 35,
    GridSetHighlightText = WM_USER + 36,
    /// lParam: GridCellSpec. Answer: 0; -1 with GridErrorInvalidCell or GridErrorInvalidIndex.
    GridSetCellText = WM_USER + 38,
    /// wParam: alignment (GridAlignment), lParam: GridCellSpec. Only a column of the type
    /// GridColumnText takes it.
    GridSetCellAlignment = WM_USER + 39,
    /// wParam: flag, lParam: GridCellSpec. A protected cell cannot be edited by key or mouse.
    GridSetCellProtected = WM_USER + 40,
    /// wParam: COLORREF.
    GridSetProtectedBackground = WM_USER + 41,
    /// wParam: row, lParam: text. Answer: 0, or -1 with GridErrorInvalidCell.
    GridSetRowHeader = WM_USER + 42,
    /// lParam: width in logical units; a negative one counts as 0.
    GridSetHeaderColumnWidth = WM_USER + 43,
    /// wParam: pixels. 0 and less count as 1.
    GridSetRowHeight = WM_USER + 44,
    /// wParam: flag. At first 1: 1, 2, 3 and so on stand in the header column; with 0 the headers.
    GridSetShowRowNumbers = WM_USER + 45,
    /// wParam: mode, see GridRowSelectMode.
    GridSetRowSelect = WM_USER + 46,
    /// wParam: HFONT, which stays the caller's.
    GridSetTitleFont = WM_USER + 47,
    /// wParam: pixels. A negative height counts as 0. At first 0: no title is shown. The text of
    /// the title is the window text.
    GridSetTitleHeight = WM_USER + 48,
    /// wParam: row after which the new one comes, -1 for the top; lParam: header text. Answer: the
    /// index of the new row, or -1 with GridErrorInvalidIndex.
    GridInsertRow = WM_USER + 51,
    /// wParam: row. Answer: the new count of rows, or -1 with GridErrorInvalidIndex.
    GridDeleteRow = WM_USER + 52,
    /// wParam: column, lParam: flag. A hidden column has no width. When it had the cursor,
    /// that goes to the next column that is shown.
    GridHideColumn = WM_USER + 53,
    /// No message: what the next one is. 13, 16, 37, 49 and 50 stay free.
    GridMessageEnd,
};

/// What a failed message leaves in GetLastError.
enum GridError : DWORD {
    GridErrorNoMemory = ERROR_NOT_ENOUGH_MEMORY,
    GridErrorInvalidCell = 13,     ///< no GridCellSpec, a negative index, or no such header
    GridErrorTooManyColumns = 14,  ///< see MaxGridColumns in layout/grid_table.h
    GridErrorInvalidIndex = 1413,  ///< no such column or row
};

/// The codes of the grid's notifications.
enum GridNotificationCode : UINT {
    GridCursorMoved = 3,
    GridEditorOpened = 4,
    GridEditorClosed = 5,  ///< the text is in the cell
    GridKeyPressed = 6,    ///< comes before the grid handles the key
    GridFocusGained = 18,
    GridFocusLost = 19,
};

/// The lParam of a notification. Column and row are those of the cursor.
struct GridNotification {
    NMHDR header;  ///< window, id and GridNotificationCode
    int32_t column;
    int32_t row;
    int32_t columnType;
    uint32_t key;      ///< with GridKeyPressed: the code of the key
    HWND otherWindow;  ///< with GridFocusGained and GridFocusLost: who had or gets the focus
};

/// Registers the window class, for a grid that is made without CreateGrid.
void RegisterGridClass();

/// Makes a visible grid that is a tab stop and a control of the toolkit. `place` is in logical
/// units. `style` has further WS_ bits.
HWND CreateGrid(HWND parent, const LayoutRect& place, DWORD style = 0, DWORD extendedStyle = 0);

}  // namespace tallymere
