// What keys do in a grid, carried out; layout/grid_keys.h decides.
#pragma once

#include "toolkit/grid_record.h"

namespace tallymere {

/// Handles WM_KEYDOWN, after the page has heard of it. False when the system must still handle the
/// key.
bool HandleGridKey(GridRecord& grid, WPARAM key, LPARAM flags);

/// Handles WM_CHAR. An open editor gets the character: it was meant for it, or comes behind one
/// that has opened it.
void HandleGridCharacter(GridRecord& grid, WPARAM character, LPARAM flags);

/// Opens the editor on the cell of the cursor with its text, if the cell can be edited.
void OpenGridEditorWithText(GridRecord& grid);

/// Opens the editor on the cell of the cursor, if it can be edited, by a key that the grid sends
/// itself: with the text of the cell, or empty.
void OpenGridEditorByKey(GridRecord& grid, bool withText);

}  // namespace tallymere
