// What stands where inside a cell of a grid, and how large a cell must be for its text. All lengths
// but those of the margins are in pixels of the screen.
#pragma once

#include <cstdint>
#include <string_view>

#include "layout/grid_state.h"
#include "layout/logical_units.h"

namespace tallymere {

/// The room beside a text, in pixels at any resolution.
inline constexpr int32_t GridTextLeftMargin = 5;
inline constexpr int32_t GridTextRightMargin = 2;

/// The place of the text in a cell at a place.
LayoutRect GridTextPlace(const LayoutRect& cell, int32_t dpi);

/// The place of the edit control in a cell at a place.
LayoutRect GridEditorPlace(const LayoutRect& cell, int32_t dpi);

/// The place of one line of text inside the edit control, in the middle of its height.
LayoutRect GridEditorTextPlace(LayoutSize editor, int32_t lineHeight);

/// A text as it is measured line by line.
struct GridTextExtent {
    int32_t width;  ///< of the widest line
    int32_t lineHeight;
    int32_t lines;  ///< at least 1
};

/// Counts the lines of a text, which line feeds part.
int32_t CountGridLines(std::u16string_view text);

/// The line at the start of a text, without the characters that end it. `rest` is what comes behind
/// the line feed.
std::u16string_view TakeGridLine(std::u16string_view text, std::u16string_view& rest);

/// Widens a column and makes all rows, or the header row, higher until a text fits its cell.
/// Nothing becomes smaller. True when something has changed.
bool FitGridCell(GridState& state, int32_t column, int32_t row, const GridTextExtent& text);

}  // namespace tallymere
