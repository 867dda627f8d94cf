// The painting of a field with a long text, where the system is too slow for it.
//
// The control of Wine walks through all lines of its text several times for each row that it
// paints: half a second for seven rows of a million lines, and seconds for a tall field. So, where
// it has taken long once, the rows in view are painted here, from the text where it lies. On
// Windows the control paints by itself.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// When the system took longer to paint a field, in milliseconds, its rows are painted here from
/// then on. Tests lower it.
extern double longestSystemPainting;

/// A field has this property once the system was slow with it.
inline constexpr const char16_t* SlowPaintingProperty = u"cwl_SlowPainting";

/// Handles WM_PAINT of an edit control that may have soft breaks. `wParam` is 0, or a device
/// context to paint on instead. What rows from here could show in another way than the system's own
/// is left to the system: characters that need more than to be put side by side, a field that
/// cannot be used.
LRESULT PaintLongText(HWND field, WPARAM wParam);

/// Removes the property. Call it at WM_NCDESTROY.
void ForgetSlowPainting(HWND field);

}  // namespace tallymere
