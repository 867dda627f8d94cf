#include "layout/grid_cell_layout.h"

#include <algorithm>

namespace tallymere {

namespace {

// Resolutions from which the margins differ.
constexpr int32_t LargeDpi = 120;
constexpr int32_t LargerDpi = 144;

struct Margins {
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
};

LayoutRect Inside(const LayoutRect& cell, const Margins& margins) {
    return {cell.x + margins.left, cell.y + margins.top,
            std::max(cell.width - margins.left - margins.right, 0),
            std::max(cell.height - margins.top - margins.bottom, 0)};
}

Margins EditorMargins(int32_t dpi) {
    if (dpi < LargeDpi) {
        return {1, 2, 1, 1};
    }
    return dpi < LargerDpi ? Margins{1, 1, 1, 2} : Margins{1, 0, 1, 3};
}

bool Raise(int32_t& length, int64_t wanted) {
    const auto enough = static_cast<int32_t>(std::min<int64_t>(wanted, MaxGridHeight));
    if (length >= enough) {
        return false;
    }
    length = enough;
    return true;
}

}  // namespace

LayoutRect GridTextPlace(const LayoutRect& cell, int32_t dpi) {
    const bool isLarge = dpi >= LargeDpi;
    return Inside(cell,
                  {GridTextLeftMargin, isLarge ? 3 : 2, GridTextRightMargin, isLarge ? 1 : 2});
}

LayoutRect GridEditorPlace(const LayoutRect& cell, int32_t dpi) {
    return Inside(cell, EditorMargins(dpi));
}

LayoutRect GridEditorTextPlace(LayoutSize editor, int32_t lineHeight) {
    const int32_t top = std::max((editor.height - lineHeight) / 2, 0);
    return {0, top, editor.width, std::max(editor.height - top, 0)};
}

int32_t CountGridLines(std::u16string_view text) {
    return static_cast<int32_t>(std::count(text.begin(), text.end(), u'\n')) + 1;
}

std::u16string_view TakeGridLine(std::u16string_view text, std::u16string_view& rest) {
    const size_t feed = text.find(u'\n');
    if (feed == std::u16string_view::npos) {
        rest = {};
        return text;
    }
    rest = text.substr(feed + 1);
    const std::u16string_view line = text.substr(0, feed);
    return line.ends_with(u'\r') ? line.substr(0, feed - 1) : line;
}

bool FitGridCell(GridState& state, int32_t column, int32_t row, const GridTextExtent& text) {
    constexpr int32_t HeightMargin = 5;
    GridColumn* const found = FindGridColumn(state.table, column);
    if (found == nullptr) {
        return false;
    }
    // The margins of the painted text count: a column that is narrower shows an ellipsis.
    const bool widened =
        Raise(found->width, int64_t{text.width} + GridTextLeftMargin + GridTextRightMargin);
    const bool heightened = Raise(row == 0 ? state.headerHeight : state.rowHeight,
                                  (int64_t{text.lineHeight} + HeightMargin) * text.lines);
    return widened || heightened;
}

}  // namespace tallymere
