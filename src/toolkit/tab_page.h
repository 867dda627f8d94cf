// Tab controls and their pages.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Makes a tab control without tabs. It is no tab stop. `place` is in logical units.
HWND CreateTabControl(HWND parent, const LayoutRect& place);

/// Adds a tab and its page. The page is the parent of the controls on it. It fills the tab control.
/// The window text of the page is always the title of its tab. Returns the page; null when no tab
/// could be added.
///
/// The page of the current tab is shown, any other is hidden. When the user changes the tab, the
/// owner of the tab control hides and shows the pages at TCN_SELCHANGING and TCN_SELCHANGE.
HWND AddTabPage(HWND tabControl, const char16_t* text);

/// The page of the current tab; null when there is none.
HWND CurrentTabPage(HWND tabControl);

}  // namespace tallymere
