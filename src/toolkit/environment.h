// What all windows of the process are made with. The start of the program sets it, before the first
// window; from then on it is only read.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

/// The module of the program, for window classes and resources.
extern HINSTANCE programInstance;

/// The major version of Windows shifted left by 8 or'ed with the minor one, 0 when unknown.
extern uint32_t osVersionCode;

/// The first version whose group boxes are drawn well with controls inside of them.
inline constexpr uint32_t OsVersionVista = 0x0600;

/// Vertical pixels per logical inch of the screen.
extern int32_t screenDpi;

/// What every control is written in; null if the font could not be made, then the system's font.
extern HFONT defaultGuiFont;

/// The pixels of a length or position in logical units on the screen.
inline int32_t ToScreenPixels(int32_t units) {
    return ToPixels(units, screenDpi);
}

inline LayoutRect ToScreenPixels(const LayoutRect& units) {
    return ToPixels(units, screenDpi);
}

/// The logical units of a length or position in pixels of the screen.
inline int32_t FromScreenPixels(int32_t pixels) {
    return ToLogicalUnits(pixels, screenDpi);
}

/// Where a window stands in its parent's client area, in pixels; for a window without parent, on
/// the screen.
LayoutRect PlaceInParent(HWND window);

/// The size of a window's client area in pixels.
LayoutSize ClientSize(HWND window);

}  // namespace tallymere
