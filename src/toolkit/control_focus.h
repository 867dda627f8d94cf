// Questions about real windows, for the decisions in layout/, and the moves of the focus.
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

/// The bits of a window's style.
uint32_t WindowStyle(HWND window);

bool IsPushButton(HWND window);
bool IsRadioButton(HWND window);

/// Whether a control has a use of its own for the Return key.
bool WantsReturn(HWND control);

/// Real windows as what layout/window_tree.h and layout/default_look.h ask about. The root is a
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

/// The last visible radio button of a group in a direction.
HWND RadioGroupEnd(HWND control, bool forward);

/// Gives the focus to a control. Of a group of radio buttons the checked one gets it, and when none
/// is checked, the first one, which is then checked.
void FocusControl(HWND control);

/// What the Tab key does in a control. Returns the window that has got the focus.
HWND FocusNextControl(HWND control, bool forward);

}  // namespace tallymere
