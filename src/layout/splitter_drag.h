// The bar between two fields that is dragged to share their room. All lengths are pixels.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"

namespace tallymere {

/// Along which axis a bar moves.
enum SplitterOrientation : int32_t {
    SplitterUpAndDown = 0,
    SplitterLeftAndRight = 1,
};

/// One drag of a bar; positions are in the coordinates of the bar's parent, which does not move.
struct SplitterDrag {
    SplitterOrientation orientation;
    LayoutPoint mouse;  ///< where the mouse was last seen
};

/// Notes where the mouse is now and returns how far it came along the axis. Whoever is asked may
/// refuse the move; it is not caught up later, and from then on bar and mouse are apart by it.
constexpr int32_t TrackSplitter(SplitterDrag& drag, LayoutPoint mouse) {
    const int32_t difference =
        drag.orientation == SplitterLeftAndRight ? mouse.x - drag.mouse.x : mouse.y - drag.mouse.y;
    drag.mouse = mouse;
    return difference;
}

/// Where a bar stands after a move that was accepted.
constexpr LayoutPoint MovedSplitter(SplitterOrientation orientation, LayoutPoint bar,
                                    int32_t difference) {
    return orientation == SplitterLeftAndRight ? LayoutPoint{bar.x + difference, bar.y}
                                               : LayoutPoint{bar.x, bar.y + difference};
}

}  // namespace tallymere
