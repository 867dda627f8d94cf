// The bar between two fields that is dragged to share their room.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "layout/splitter_drag.h"
#include "toolkit/win32.h"

namespace tallymere {

inline constexpr const char16_t* SplitterClass = u"SplitterControl";

/// Properties of the window: a SplitterOrientation, and the function to be asked.
inline constexpr const char16_t* SplitterOrientationProperty = u"Orientation";
inline constexpr const char16_t* SplitterMovingProperty = u"SplitterMovingEvent";

/// Asked before the bar moves by `difference` pixels, not 0, along its axis: resizes the neighbours
/// and returns true, or refuses.
using SplitterMovingEvent = bool (*)(HWND splitter, int32_t difference);

/// `place` in logical units. With null for `moving` the bar does not move.
HWND CreateSplitter(HWND parent, const LayoutRect& place, SplitterOrientation orientation,
                    SplitterMovingEvent moving);

/// Null for a bar that does not move.
void SetSplitterMoving(HWND splitter, SplitterMovingEvent moving);

}  // namespace tallymere
