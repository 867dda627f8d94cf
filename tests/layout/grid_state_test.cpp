// What fits together in a grid, and which cells can be edited.
#include "layout/grid_state.h"

#include <gtest/gtest.h>

#include "layout/grid_testing.h"

namespace tallymere {
namespace {

using testing_support::SmallGrid;

TEST(GridState, WhatDoesNotFitTogetherIsSeen) {
    const auto breaks = [](void (*change)(GridState&)) {
        SmallGrid grid;
        EXPECT_TRUE(GridStateIsConsistent(grid.state));
        change(grid.state);
        return !GridStateIsConsistent(grid.state);
    };
    EXPECT_TRUE(breaks([](GridState& state) { state.clientWidth = -1; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.clientHeight = -1; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.rowHeight = 0; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.headerHeight = -1; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.titleHeight = -1; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.topRow = 0; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.topRow = 11; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.leftColumn = 5; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.cursorRow = 11; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.cursorColumn = 0; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.isRowSelectActive = true; }));
    EXPECT_TRUE(breaks([](GridState& state) { state.table.columns.items[1].width = -1; }));
}

TEST(GridState, ClampsCursorAndView) {
    SmallGrid grid;
    grid.state.topRow = 12;
    grid.state.leftColumn = 7;
    grid.state.cursorRow = 13;
    grid.state.cursorColumn = 6;
    ClampGridState(grid.state);
    EXPECT_EQ(grid.state.topRow, 10);
    EXPECT_EQ(grid.state.leftColumn, 4);
    EXPECT_EQ(grid.state.cursorRow, 10);
    EXPECT_EQ(grid.state.cursorColumn, 4);
    FreeGridTable(grid.state.table);
    ClampGridState(grid.state);
    EXPECT_TRUE(GridStateIsConsistent(grid.state));
    EXPECT_EQ(grid.state.cursorRow, 1);
}

TEST(GridState, WhatCanBeEdited) {
    SmallGrid grid;
    GridState& state = grid.state;
    EXPECT_TRUE(CanEditGridCell(state, 1, 1));
    EXPECT_FALSE(CanEditGridCell(state, 1, 0));
    EXPECT_FALSE(CanEditGridCell(state, 0, 1));
    EXPECT_FALSE(CanEditGridCell(state, 5, 1));
    EXPECT_FALSE(CanEditGridCell(state, 1, 11));
    grid.Cell(1, 1).isProtected = 1;
    EXPECT_FALSE(CanEditGridCell(state, 1, 1));
    EXPECT_TRUE(CanEditGridCell(state, 1, 2));
    grid.Column(2).type = 0;
    EXPECT_FALSE(CanEditGridCell(state, 2, 1));
    grid.Column(3).isHidden = 1;
    EXPECT_FALSE(CanEditGridCell(state, 3, 1));
    grid.Column(3).isHidden = 0;
    EXPECT_TRUE(CanEditGridCell(state, 3, 1));
    state.isEditable = false;
    EXPECT_FALSE(CanEditGridCell(state, 3, 1));
    state.isEditable = true;
    state.isRowSelectActive = true;
    EXPECT_FALSE(CanEditGridCell(state, 3, 1));
}

}  // namespace
}  // namespace tallymere
