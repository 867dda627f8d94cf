#include "calculator/calculator_layout.h"

namespace tallymere {

namespace {

constexpr int32_t SideMargins = 20;
// The height that is not for the fields: the space above and below them, and the splitter.
constexpr int32_t HeightOfNoFields = 20;
constexpr int32_t LowestField = 20;

int32_t ScaledHeight(int32_t height, double scale) {
    return static_cast<int32_t>(height * scale + 0.5);
}

}  // namespace

CalculatorLayout LayOutCalculator(LayoutSize client, FieldHeights current) {
    if (current.formula == 0 || current.result == 0) {
        current = {1, 1};
    }
    const int32_t area = client.height - CalculatorContainer.height;
    const int32_t width = client.width - SideMargins;
    const double scale =
        static_cast<double>(area - HeightOfNoFields) / (current.formula + current.result);

    CalculatorLayout layout;
    layout.formula = CalculatorForm[CalculatorFormula].place;
    layout.formula.width = width;
    layout.formula.height = ScaledHeight(current.formula, scale);
    layout.splitter = CalculatorForm[CalculatorSplitter].place;
    layout.splitter.y = layout.formula.y + layout.formula.height;
    layout.splitter.width = width;
    layout.result = CalculatorForm[CalculatorResult].place;
    layout.result.y = layout.splitter.y + layout.splitter.height;
    layout.result.width = width;
    layout.result.height = ScaledHeight(current.result, scale);
    layout.container = CalculatorContainer;
    layout.container.y = area;
    return layout;
}

bool MoveCalculatorSplitter(FieldHeights& heights, int32_t difference, int32_t dpi) {
    const FieldHeights moved = {heights.formula + difference, heights.result - difference};
    const int32_t lowest = ToPixels(LowestField, dpi);
    if (moved.formula < lowest || moved.result < lowest) {
        return false;
    }
    heights = moved;
    return true;
}

}  // namespace tallymere
