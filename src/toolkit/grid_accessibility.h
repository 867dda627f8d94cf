// What a screen reader hears of a grid: the cell of the cursor, and the edit control in it, by the
// headers of column and row and by the text.
//
// A cell is a child of the grid. Its number counts the cells row by row, from 1.
#pragma once

#include "toolkit/grid_record.h"

namespace tallymere {

/// Answer WM_GETOBJECT for OBJID_CLIENT, of the grid and of the edit control in it.
LRESULT AnswerGridObject(HWND grid, WPARAM wParam);
LRESULT AnswerGridEditorObject(HWND editor, WPARAM wParam);

/// Tells that the cell of the cursor has the focus, if the grid has it.
void TellGridFocus(const GridRecord& grid);

/// Tells that the text of the cell of the cursor has changed.
void TellGridValue(const GridRecord& grid);

}  // namespace tallymere
