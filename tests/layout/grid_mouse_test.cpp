// What the mouse takes hold of in a grid.
#include "layout/grid_mouse.h"

#include <gtest/gtest.h>

#include "layout/grid_testing.h"

namespace tallymere {
namespace {

using testing_support::SmallGrid;

TEST(GridMouse, TakesHoldOfAnEdgeWithinTenPixels) {
    SmallGrid grid;
    grid.state.allowsResize = true;
    const auto resized = [&grid](int32_t x, int32_t y = 50) {
        return ResizedGridColumn(grid.state, {x, y});
    };
    EXPECT_EQ(resized(39), -1);
    EXPECT_EQ(resized(40), 0);
    EXPECT_EQ(resized(60), 0);
    EXPECT_EQ(resized(61), -1);
    EXPECT_EQ(resized(90), 1);
    EXPECT_EQ(resized(110), 1);
    EXPECT_EQ(resized(120), 2);
    EXPECT_EQ(resized(230), 4);
    EXPECT_EQ(resized(240), 4);
    EXPECT_EQ(resized(241), -1);
    EXPECT_EQ(resized(60, 39), -1);
    EXPECT_EQ(resized(60, 70), -1);
    EXPECT_EQ(resized(-1), -1);
    grid.Column(2).width = 12;  // edges at 100 and 112
    EXPECT_EQ(resized(104), 1);
    EXPECT_EQ(resized(107), 2);
    grid.Column(2).width = 0;
    EXPECT_EQ(resized(100), 2);
    grid.Column(2).isHidden = 1;
    EXPECT_EQ(resized(100), 1);
    grid.state.allowsResize = false;
    EXPECT_EQ(resized(100), -1);
}

TEST(GridMouse, AColumnThatReachesToTheEdgeHasNone) {
    SmallGrid grid;
    grid.state.allowsResize = true;
    grid.state.extendsLastColumn = true;
    grid.state.clientWidth = 400;
    EXPECT_EQ(ResizedGridColumn(grid.state, {230, 50}), -1);
    EXPECT_EQ(ResizedGridColumn(grid.state, {395, 50}), -1);
    EXPECT_EQ(ResizedGridColumn(grid.state, {180, 50}), 3);
    grid.state.clientWidth = 225;
    EXPECT_EQ(ResizedGridColumn(grid.state, {224, 50}), 4);
}

TEST(GridMouse, AScrolledGridHasItsEdgesWhereTheyAreSeen) {
    SmallGrid grid;
    grid.state.allowsResize = true;
    grid.state.leftColumn = 3;
    EXPECT_EQ(ResizedGridColumn(grid.state, {50, 50}), 0);
    EXPECT_EQ(ResizedGridColumn(grid.state, {100, 50}), 3);
}

TEST(GridMouse, ADraggedWidthIsNeverNegative) {
    EXPECT_EQ(DraggedGridWidth(50, 100, 120), 70);
    EXPECT_EQ(DraggedGridWidth(50, 100, 50), 0);
    EXPECT_EQ(DraggedGridWidth(50, 100, 0), 0);
}

TEST(GridMouse, AClickGoesToACell) {
    SmallGrid grid;
    const auto click = [&grid](int32_t x, int32_t y) { return ClickInGrid(grid.state, {x, y}); };
    EXPECT_TRUE(click(110, 95).movesCursor);
    EXPECT_FALSE(click(110, 95).selectsRow);
    EXPECT_EQ(click(110, 95).place, (GridPlace{2, 2}));
    for (const LayoutPoint point : {LayoutPoint{20, 95}, {110, 50}, {110, 10}, {240, 95}}) {
        EXPECT_FALSE(click(point.x, point.y).movesCursor) << point.x;
    }
    grid.state.rowSelectMode = GridRowSelectOnClick;
    grid.state.cursorColumn = 3;
    EXPECT_TRUE(click(20, 95).movesCursor);
    EXPECT_TRUE(click(20, 95).selectsRow);
    EXPECT_EQ(click(20, 95).place, (GridPlace{3, 2}));
    EXPECT_FALSE(click(20, 50).movesCursor);
    EXPECT_FALSE(click(110, 95).selectsRow);
}

}  // namespace
}  // namespace tallymere
