#include "calculator/calculator_layout.h"

#include <gtest/gtest.h>

namespace tallymere::testing_support {
namespace {

FieldHeights HeightsOf(const CalculatorLayout& layout) {
    return {layout.formula.height, layout.result.height};
}

TEST(CalculatorLayoutTest, AtFirstTheFieldsAreOfTheSameHeight) {
    const CalculatorLayout layout = LayOutCalculator(CalculatorSize, {0, 0});
    EXPECT_EQ(layout.formula, (LayoutRect{10, 10, 350, 43}));
    EXPECT_EQ(layout.splitter, (LayoutRect{10, 53, 350, 4}));
    EXPECT_EQ(layout.result, (LayoutRect{10, 57, 350, 43}));
    EXPECT_EQ(layout.container, (LayoutRect{0, 105, 370, 250}));
}

TEST(CalculatorLayoutTest, TheFieldsKeepTheirRatio) {
    const CalculatorLayout layout = LayOutCalculator({800, 570}, {30, 90});
    EXPECT_EQ(layout.formula, (LayoutRect{10, 10, 780, 75}));
    EXPECT_EQ(layout.splitter, (LayoutRect{10, 85, 780, 4}));
    EXPECT_EQ(layout.result, (LayoutRect{10, 89, 780, 225}));
    EXPECT_EQ(layout.container, (LayoutRect{0, 320, 370, 250}));
}

TEST(CalculatorLayoutTest, HeightsAreRoundedEachByItself) {
    // 85 * 1 / 4 and 85 * 3 / 4; then halves, which go up.
    EXPECT_EQ(HeightsOf(LayOutCalculator({370, 355}, {20, 60})), (FieldHeights{21, 64}));
    EXPECT_EQ(HeightsOf(LayOutCalculator({370, 355}, {50, 50})), (FieldHeights{43, 43}));
    EXPECT_EQ(HeightsOf(LayOutCalculator({370, 356}, {50, 50})), (FieldHeights{43, 43}));
}

TEST(CalculatorLayoutTest, OneFieldWithoutHeightMakesBothTheSame) {
    EXPECT_EQ(HeightsOf(LayOutCalculator({370, 470}, {0, 77})), (FieldHeights{100, 100}));
    EXPECT_EQ(HeightsOf(LayOutCalculator({370, 470}, {77, 0})), (FieldHeights{100, 100}));
}

TEST(CalculatorLayoutTest, ThereAndBackTheRatioIsAsBefore) {
    const FieldHeights heights = {60, 180};
    const FieldHeights wide = HeightsOf(LayOutCalculator({1920, 1050}, heights));
    EXPECT_EQ(wide, (FieldHeights{195, 585}));
    EXPECT_EQ(HeightsOf(LayOutCalculator({370, 510}, wide)), heights);
}

TEST(CalculatorLayoutTest, WithoutRoomTheFieldsHaveNoHeight) {
    EXPECT_EQ(HeightsOf(LayOutCalculator({120, 270}, {50, 50})), (FieldHeights{0, 0}));
    // Lower still they are negative, which windows take as none, and the container rises.
    const CalculatorLayout layout = LayOutCalculator({10, 0}, {50, 50});
    EXPECT_EQ(HeightsOf(layout), (FieldHeights{-134, -134}));
    EXPECT_EQ(layout.formula.width, -10);
    EXPECT_EQ(layout.container.y, -250);
}

TEST(CalculatorLayoutTest, TheLayoutFillsTheClientAreaToOneUnit) {
    for (int32_t height = 300; height < 1500; height += 7) {
        for (const FieldHeights current : {FieldHeights{1, 1}, {20, 300}, {333, 21}, {40, 41}}) {
            const CalculatorLayout layout = LayOutCalculator({640, height}, current);
            const int32_t end = layout.result.y + layout.result.height;
            EXPECT_NEAR(end + 6, layout.container.y, 1);
            EXPECT_EQ(layout.container.y + layout.container.height, height);
        }
    }
}

TEST(CalculatorLayoutTest, TheSplitterMovesHeightFromOneFieldToTheOther) {
    FieldHeights heights = {43, 43};
    EXPECT_TRUE(MoveCalculatorSplitter(heights, 10, 96));
    EXPECT_EQ(heights, (FieldHeights{53, 33}));
    EXPECT_TRUE(MoveCalculatorSplitter(heights, -25, 96));
    EXPECT_EQ(heights, (FieldHeights{28, 58}));
}

TEST(CalculatorLayoutTest, TheSplitterStopsWhereAFieldIsTwentyUnitsHigh) {
    for (const int32_t dpi : {96, 120, 144, 192}) {
        const int32_t lowest = 20 * dpi / 96;
        FieldHeights heights = {100, 100};
        EXPECT_FALSE(MoveCalculatorSplitter(heights, 101 - lowest, dpi));
        EXPECT_FALSE(MoveCalculatorSplitter(heights, lowest - 101, dpi));
        EXPECT_EQ(heights, (FieldHeights{100, 100}));
        EXPECT_TRUE(MoveCalculatorSplitter(heights, 100 - lowest, dpi));
        EXPECT_EQ(heights, (FieldHeights{200 - lowest, lowest}));
        EXPECT_TRUE(MoveCalculatorSplitter(heights, 2 * lowest - 200, dpi));
        EXPECT_EQ(heights, (FieldHeights{lowest, 200 - lowest}));
    }
}

TEST(CalculatorLayoutTest, FieldsThatAreTooLowAlreadyDoNotMoveEitherWay) {
    FieldHeights heights = {10, 10};
    EXPECT_FALSE(MoveCalculatorSplitter(heights, 1, 96));
    EXPECT_FALSE(MoveCalculatorSplitter(heights, -1, 96));
    EXPECT_EQ(heights, (FieldHeights{10, 10}));
}

}  // namespace
}  // namespace tallymere::testing_support
