// Tab controls and their pages.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

/// A tab control without tabs and tab stop; `place` in logical units.
HWND CreateTabControl(HWND parent, const LayoutRect& place);

/// Adds a tab with a page, which is the parent of the controls on it and has the size that the tab
/// control leaves for it. The page of the current tab is shown, any other hidden; at
/// TCN_SELCHANGING and TCN_SELCHANGE that is up to the tab control's owner. The page's window text
/// is always the title of its tab. Null when no tab could be added.
HWND AddTabPage(HWND tabControl, const char16_t* text);

/// The page of the current tab, null without one.
HWND CurrentTabPage(HWND tabControl);

}  // namespace tallymere
