// The window classes of the toolkit.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

/// A window class. Its cursor is the arrow, its background the colour of buttons. It lives as long
/// as the process.
struct ToolkitClass {
    const char16_t* name;
    WNDPROC procedure;
    UINT style;       ///< CS_ bits
    int32_t slots;    ///< count of slots of 8 bytes, for GetSlot and SetSlot
    bool registered;  ///< false at first
};

/// Registers a class on first use. A failure is not reported; the next call tries again.
void RegisterToolkitClass(ToolkitClass& toolkitClass);

/// The style of controls whose empty part may lie under their neighbours. They do not draw over
/// controls that were made before them.
inline constexpr DWORD BehindNeighbours = WS_CLIPSIBLINGS;

/// Makes a visible control of one of the toolkit's own classes. `place` is in logical units.
HWND CreateOwnControl(HWND parent, ToolkitClass& toolkitClass, const LayoutRect& place,
                      DWORD style = 0);

/// What a window class stores with each window: 8 bytes in each slot, 0 at first. `Value` is a
/// pointer, a function pointer or an integer.
template <typename Value>
Value GetSlot(HWND window, int32_t slot) {
    return (Value)GetWindowLongPtrW(window, slot * static_cast<int32_t>(sizeof(LONG_PTR)));
}

template <typename Value>
void SetSlot(HWND window, int32_t slot, Value value) {
    SetWindowLongPtrW(window, slot * static_cast<int32_t>(sizeof(LONG_PTR)), (LONG_PTR)value);
}

}  // namespace tallymere
