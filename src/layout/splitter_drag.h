// The bar between two fields. Dragging it makes one field larger and the other smaller. All lengths
// are pixels.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"

namespace tallymere {

/// The axis along which a bar moves.
enum SplitterOrientation : int32_t {
    SplitterUpAndDown = 0,
    SplitterLeftAndRight = 1,
};

/// One drag of a bar. Positions are coordinates of the bar's parent, because the parent does not
/// move.
struct SplitterDrag {
    SplitterOrientation orientation;
    LayoutPoint mouse;  ///< the last known position of the mouse
};

/// Notes the new position of the mouse and returns how far it moved along the axis. When the page
/// refuses the move, the bar does not make up for it later: it stays behind the mouse by that
/// distance.
constexpr int32_t TrackSplitter(SplitterDrag& drag, LayoutPoint mouse) {
    const int32_t difference =
        drag.orientation == SplitterLeftAndRight ? mouse.x - drag.mouse.x : mouse.y - drag.mouse.y;
    drag.mouse = mouse;
    return difference;
}

/// The new position of a bar after an accepted move.
constexpr LayoutPoint MovedSplitter(SplitterOrientation orientation, LayoutPoint bar,
                                    int32_t difference) {
    return orientation == SplitterLeftAndRight ? LayoutPoint{bar.x + difference, bar.y}
                                               : LayoutPoint{bar.x, bar.y + difference};
}

}  // namespace tallymere
