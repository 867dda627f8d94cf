// What all windows of the process need to be made. The start of the program sets it before the
// first window. From then on it is only read.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

/// The module of the program, for window classes and resources.
extern HINSTANCE programInstance;

/// The version of Windows: 256 times the major version plus the minor version; 0 when unknown.
extern uint32_t osVersionCode;

/// Whether the system is Wine. Its edit control is slow with long texts and gets help, which that
/// of Windows does not need: see toolkit/long_text_field.h.
extern bool isWine;

/// The first version whose group boxes draw the controls inside them well.
inline constexpr uint32_t OsVersionVista = 0x0600;

/// Dots per inch of the screen: pixels per logical inch, measured vertically.
extern int32_t screenDpi;

/// The font of every control. Null when it could not be made; controls use the system's font then.
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

/// The place of a window in its parent's client area, in pixels. For a window without parent it is
/// the place on the screen.
LayoutRect PlaceInParent(HWND window);

/// The size of a window's client area in pixels.
LayoutSize ClientSize(HWND window);

/// The same in logical units.
LayoutSize LogicalClientSize(HWND window);

}  // namespace tallymere
