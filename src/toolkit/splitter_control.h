// The bar between two fields. Dragging it makes one field larger and the other smaller.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "layout/splitter_drag.h"
#include "toolkit/win32.h"

namespace tallymere {

inline constexpr const char16_t* SplitterClass = u"SplitterControl";

/// Window properties: a SplitterOrientation, and the SplitterMovingEvent.
inline constexpr const char16_t* SplitterOrientationProperty = u"Orientation";
inline constexpr const char16_t* SplitterMovingProperty = u"SplitterMovingEvent";

/// Called before the bar moves along its axis by `difference` pixels, which is not 0. Resizes the
/// neighbours and returns true, or returns false, and the bar does not move.
using SplitterMovingEvent = bool (*)(HWND splitter, int32_t difference);

/// Makes the control. `place` is in logical units. With null for `moving` the bar never moves.
HWND CreateSplitter(HWND parent, const LayoutRect& place, SplitterOrientation orientation,
                    SplitterMovingEvent moving);

/// Sets the function that is called; null for a bar that never moves.
void SetSplitterMoving(HWND splitter, SplitterMovingEvent moving);

}  // namespace tallymere
