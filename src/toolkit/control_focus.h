// What the decisions in layout/ ask about windows, answered for real windows; and the functions
// that move the focus.
#pragma once

#include <cstdint>

#include "layout/control_kinds.h"
#include "layout/window_tree.h"
#include "toolkit/win32.h"

namespace tallymere {

/// The name of a window's class, cut to ClassNameCapacity.
struct WindowClassName {
    explicit WindowClassName(HWND window);

    char16_t text[ClassNameCapacity];
};

/// The style bits of a window.
uint32_t WindowStyle(HWND window);

bool IsPushButton(HWND window);
bool IsRadioButton(HWND window);

/// True when a control uses the Return key itself.
bool WantsReturn(HWND control);

/// True when a control, such as a grid, handles all keys itself, Tab too. An edit control does not,
/// whatever it says: Tab leaves it.
bool WantsAllKeys(HWND control);

/// Real windows in the form that layout/window_tree.h and layout/default_look.h need. The root is a
/// window that is no child.
struct WindowsTree {
    using Window = HWND;

    HWND Parent(HWND window) const;
    HWND FirstChild(HWND window) const;
    HWND LastChild(HWND window) const;
    HWND NextSibling(HWND window) const;
    HWND PreviousSibling(HWND window) const;
    bool IsTabStop(HWND window) const;
    bool IsVisible(HWND window) const;
    bool IsRadioButton(HWND window) const;
    bool IsChecked(HWND button) const;
    bool IsPushButton(HWND window) const;
};

/// The next tab stop from a control or from the dialog; `control` itself when there is no other.
HWND NextTabStop(HWND control, bool forward);

/// The last visible radio button in a direction, in the group of `control`.
HWND RadioGroupEnd(HWND control, bool forward);

/// Gives the focus to a control. For a radio button, the checked button of its group gets it. When
/// none is checked, the first one is checked and gets it.
void FocusControl(HWND control);

/// Does what the Tab key does in a control. Returns the window that has the focus then.
HWND FocusNextControl(HWND control, bool forward);

/// Shows the focus rectangle of a control, after a key has moved the focus there.
void ShowFocusRectangle(HWND control);

}  // namespace tallymere
