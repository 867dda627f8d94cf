// Logical units: pixels at 96 dots per inch. All sizes and positions are written in logical units.
// They are converted to pixels of the screen only when a window is placed.
#pragma once

#include <cstdint>

namespace tallymere {

/// The dots per inch at which one logical unit is one pixel.
inline constexpr int32_t LogicalDpi = 96;

/// The pixels of a length or position at `dpi` > 0, rounded to the nearest, halves away from zero.
/// The result must fit 32 bits.
constexpr int32_t ToPixels(int32_t units, int32_t dpi) {
    constexpr int64_t half = LogicalDpi / 2;
    const int64_t scaled = int64_t{units} * dpi;
    return static_cast<int32_t>((units < 0 ? scaled - half : scaled + half) / LogicalDpi);
}

/// The logical units of a length or position in pixels at `dpi` > 0, rounded in the same way. At 96
/// dpi or more it takes back what ToPixels did. The result must fit 32 bits.
constexpr int32_t ToLogicalUnits(int32_t pixels, int32_t dpi) {
    const int64_t half = dpi / 2;
    const int64_t scaled = int64_t{pixels} * LogicalDpi;
    return static_cast<int32_t>((pixels < 0 ? scaled - half : scaled + half) / dpi);
}

struct LayoutPoint {
    int32_t x;
    int32_t y;

    bool operator==(const LayoutPoint&) const = default;
};

struct LayoutSize {
    int32_t width;
    int32_t height;

    bool operator==(const LayoutSize&) const = default;
};

/// A place in the parent's client area.
struct LayoutRect {
    int32_t x;
    int32_t y;
    int32_t width;
    int32_t height;

    bool operator==(const LayoutRect&) const = default;
};

/// Converts each of the four numbers by itself. So two rectangles that touch in logical units may
/// be a pixel apart.
constexpr LayoutRect ToPixels(const LayoutRect& units, int32_t dpi) {
    return {ToPixels(units.x, dpi), ToPixels(units.y, dpi), ToPixels(units.width, dpi),
            ToPixels(units.height, dpi)};
}

}  // namespace tallymere
