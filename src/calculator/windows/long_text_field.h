// Multi-line fields that hold texts of tens of thousands of characters without a blank.
//
// A field lays out its lines anew from the place of a change to the end of the paragraph, and some
// systems look at the whole rest for each line: 10,000 digits at once take seconds. So texts are
// written in pieces, each behind the one before, which takes time in proportion to their length.
#pragma once

#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Replaces the text of a field, which cannot be undone; the caret is at its start then.
void WriteLongText(HWND field, const char16_t* text);

/// Moves and sizes a field, in pixels. Text, caret and selection stay.
void PlaceLongTextField(HWND field, const LayoutRect& place);

/// Pastes a long text from the clipboard at the end of a field, in place of the selection. False
/// where there is none or its place is another one; then the field pastes as fast by itself.
bool PasteLongText(HWND field);

}  // namespace tallymere
