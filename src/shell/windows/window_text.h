// Texts of windows.
#pragma once

#include "shell/scratch_text.h"
#include "toolkit/win32.h"

namespace tallymere {

/// The text of a window, at most `capacity` characters; one that is longer is cut and ends in an
/// ellipsis. `isCut`, which may be null, tells whether that happened. Any thread may ask.
const char16_t* TakeWindowText(ScratchScope& scope, HWND window, int64_t capacity, bool* isCut);

/// The same on an area, until that is given back.
const char16_t* TakeWindowText(ScratchArea& area, HWND window, int64_t capacity, bool* isCut);

/// Puts a text at the end of a field.
void AppendWindowText(HWND field, const char16_t* text);

}  // namespace tallymere
