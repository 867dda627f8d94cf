// The edit control inside the cell of the cursor.
//
// It is made when a cell is edited for the first time, and again after the cursor has moved. While
// it is not open it is hidden. It gives what it does not handle itself to the grid.
#pragma once

#include <string_view>

#include "toolkit/grid_record.h"

namespace tallymere {

/// The id of the edit control, and the code of the WM_COMMAND by which it asks the grid to store
/// its text.
inline constexpr int GridEditorId = 2001;
inline constexpr WORD GridEditorDone = 777;

/// The property of the edit control that has its procedure from before it was subclassed.
inline constexpr const char16_t* GridEditorProcProperty = u"Wprc";

/// Opens the editor on the cell of the cursor, with a text and the caret behind it, and gives it
/// the focus. An open editor is committed first, so the text must not be that of a cell then. Does
/// nothing on a cell that cannot be edited.
void OpenGridEditor(GridRecord& grid, std::u16string_view text);

/// Stores the text of an open editor in the cell and hides it. If it had the focus, the grid gets
/// it.
void CommitGridEditor(GridRecord& grid);

/// Hides an open editor and leaves the cell as it is. If the editor had the focus, the grid gets
/// it.
void CancelGridEditor(GridRecord& grid);

/// Destroys the edit control, open or not.
void DestroyGridEditor(GridRecord& grid);

/// Puts an open editor into its cell, after the cell has moved.
void PlaceGridEditor(GridRecord& grid);

}  // namespace tallymere
