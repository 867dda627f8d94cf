// What stands where inside a cell of a grid, and how cells grow.
#include "layout/grid_cell_layout.h"

#include <gtest/gtest.h>

#include <string>

#include "layout/grid_geometry.h"
#include "layout/grid_testing.h"

namespace tallymere {
namespace {

using testing_support::SmallGrid;

TEST(GridCellLayout, TextAndEditorStandInsideTheCell) {
    const LayoutRect cell = {100, 200, 80, 21};
    EXPECT_EQ(GridTextPlace(cell, 96), (LayoutRect{105, 202, 73, 17}));
    EXPECT_EQ(GridTextPlace(cell, 119), (LayoutRect{105, 202, 73, 17}));
    EXPECT_EQ(GridTextPlace(cell, 120), (LayoutRect{105, 203, 73, 17}));
    EXPECT_EQ(GridTextPlace(cell, 192), (LayoutRect{105, 203, 73, 17}));
    EXPECT_EQ(GridEditorPlace(cell, 96), (LayoutRect{101, 202, 78, 18}));
    EXPECT_EQ(GridEditorPlace(cell, 119), (LayoutRect{101, 202, 78, 18}));
    EXPECT_EQ(GridEditorPlace(cell, 120), (LayoutRect{101, 201, 78, 18}));
    EXPECT_EQ(GridEditorPlace(cell, 143), (LayoutRect{101, 201, 78, 18}));
    EXPECT_EQ(GridEditorPlace(cell, 144), (LayoutRect{101, 200, 78, 18}));
    EXPECT_EQ(GridTextPlace({0, 0, 3, 2}, 96).width, 0);
    EXPECT_EQ(GridTextPlace({0, 0, 3, 2}, 96).height, 0);
}

TEST(GridCellLayout, ALineStandsInTheMiddleOfTheEditor) {
    EXPECT_EQ(GridEditorTextPlace({78, 18}, 13), (LayoutRect{0, 2, 78, 16}));
    EXPECT_EQ(GridEditorTextPlace({78, 10}, 13), (LayoutRect{0, 0, 78, 10}));
}

TEST(GridCellLayout, LinesArePartedByLineFeeds) {
    EXPECT_EQ(CountGridLines(u""), 1);
    EXPECT_EQ(CountGridLines(u"a\nb\r\nc"), 3);
    std::u16string_view rest = u"one\r\ntwo\nthree";
    EXPECT_EQ(TakeGridLine(rest, rest), u"one");
    EXPECT_EQ(TakeGridLine(rest, rest), u"two");
    EXPECT_EQ(TakeGridLine(rest, rest), u"three");
    EXPECT_EQ(rest, u"");
    rest = u"\nx";
    EXPECT_EQ(TakeGridLine(rest, rest), u"");
    EXPECT_EQ(rest, u"x");
}

TEST(GridCellLayout, ACellGrowsToItsTextAndNeverShrinks) {
    SmallGrid grid;
    EXPECT_TRUE(FitGridCell(grid.state, 1, 1, {.width = 60, .lineHeight = 13, .lines = 1}));
    EXPECT_EQ(grid.Column(1).width, 67);
    EXPECT_EQ(grid.state.rowHeight, 20);
    EXPECT_EQ(GridTextPlace(GridCellPlace(grid.state, 1, 1), 96).width, 60);
    EXPECT_TRUE(FitGridCell(grid.state, 1, 1, {.width = 10, .lineHeight = 16, .lines = 2}));
    EXPECT_EQ(grid.Column(1).width, 67);
    EXPECT_EQ(grid.state.rowHeight, 42);
    EXPECT_EQ(grid.state.headerHeight, 30);
    EXPECT_FALSE(FitGridCell(grid.state, 1, 1, {.width = 10, .lineHeight = 16, .lines = 2}));
    EXPECT_TRUE(FitGridCell(grid.state, 1, 0, {.width = 10, .lineHeight = 26, .lines = 1}));
    EXPECT_EQ(grid.state.headerHeight, 31);
    EXPECT_EQ(grid.state.rowHeight, 42);
    EXPECT_FALSE(FitGridCell(grid.state, 9, 1, {.width = 900, .lineHeight = 90, .lines = 1}));
}

}  // namespace
}  // namespace tallymere
