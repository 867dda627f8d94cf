// Where cells stand, which scroll bars there are, how the cursor walks.
#include "layout/grid_geometry.h"

#include <gtest/gtest.h>

#include "layout/grid_cell_layout.h"
#include "layout/grid_cursor.h"
#include "layout/grid_mouse.h"
#include "layout/grid_scrolling.h"
#include "layout/grid_testing.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using testing_support::TestGrid;

// A grid of 4 columns and 10 rows of 20 pixels, a header row of 30 and a title of 40.
struct SmallGrid : TestGrid {
    SmallGrid() : TestGrid(4, 10) {
        state.rowHeight = 20;
        state.headerHeight = 30;
        state.titleHeight = 40;
        state.clientWidth = 160;
        state.clientHeight = 155;
        state.extendsLastColumn = false;
        Column(2).width = 30;
    }
};

TEST(GridGeometry, RowsStandBelowTitleAndHeader) {
    SmallGrid grid;
    EXPECT_EQ(GridRowTop(grid.state, 0), 40);
    EXPECT_EQ(GridRowTop(grid.state, 1), 70);
    EXPECT_EQ(GridRowTop(grid.state, 3), 110);
    grid.state.topRow = 3;
    EXPECT_EQ(GridRowTop(grid.state, 0), 40);
    EXPECT_EQ(GridRowTop(grid.state, 3), 70);
    EXPECT_EQ(GridRowTop(grid.state, 1), 30);
}

TEST(GridGeometry, ColumnsStandBesideTheHeaderColumn) {
    SmallGrid grid;
    EXPECT_EQ(GridColumnLeft(grid.state, 0), 0);
    EXPECT_EQ(GridColumnLeft(grid.state, 1), 50);
    EXPECT_EQ(GridColumnLeft(grid.state, 3), 130);
    grid.state.leftColumn = 2;
    EXPECT_EQ(GridColumnLeft(grid.state, 0), 0);
    EXPECT_EQ(GridColumnLeft(grid.state, 3), 80);
    EXPECT_EQ(GridColumnLeft(grid.state, 1), 0);
    grid.Column(2).isHidden = 1;
    EXPECT_EQ(GridColumnLeft(grid.state, 3), 50);
}

TEST(GridGeometry, ACellHasTheWidthOfItsColumnAndTheHeightOfItsRow) {
    SmallGrid grid;
    EXPECT_EQ(GridCellPlace(grid.state, 2, 2), (LayoutRect{100, 90, 30, 20}));
    EXPECT_EQ(GridCellPlace(grid.state, 0, 0), (LayoutRect{0, 40, 50, 30}));
    EXPECT_EQ(GridCellPlace(grid.state, 0, 1), (LayoutRect{0, 70, 50, 20}));
}

TEST(GridGeometry, TheRightmostColumnReachesToTheEdge) {
    SmallGrid grid;
    grid.state.extendsLastColumn = true;
    grid.state.clientWidth = 300;
    EXPECT_EQ(GridCellPlace(grid.state, 4, 1), (LayoutRect{180, 70, 120, 20}));
    EXPECT_EQ(GridCellPlace(grid.state, 3, 1).width, 50);
    grid.Column(4).isHidden = 1;
    EXPECT_EQ(GridCellPlace(grid.state, 3, 1), (LayoutRect{130, 70, 170, 20}));
    EXPECT_EQ(GridCellPlace(grid.state, 4, 1).width, 0);
    grid.state.clientWidth = 140;
    EXPECT_EQ(GridCellPlace(grid.state, 3, 1).width, 50);
    grid.state.clientWidth = 300;
    grid.state.extendsLastColumn = false;
    EXPECT_EQ(GridCellPlace(grid.state, 3, 1).width, 50);
}

TEST(GridGeometry, WithoutColumnsTheHeaderColumnKeepsItsWidth) {
    TestGrid grid(0, 2);
    EXPECT_EQ(RightmostGridColumn(grid.state.table), 0);
    EXPECT_EQ(GridCellPlace(grid.state, 0, 1).width, 50);
    EXPECT_EQ(ColumnAtX(grid.state, 60), -1);
}

TEST(GridGeometry, PlacesFarAwayStayInThirtyTwoBits) {
    SmallGrid grid;
    grid.state.rowHeight = 1'000'000;
    EXPECT_EQ(GridCellPlace(grid.state, 1, 100'000).y, 1'000'000'000);
    grid.state.topRow = 100'000;
    EXPECT_EQ(GridCellPlace(grid.state, 1, 1).y, -1'000'000'000);
}

TEST(GridGeometry, PartlyShownRowsAndColumnsAreVisible) {
    SmallGrid grid;
    // 85 pixels are left for rows of 20, and 110 for columns of 50, 30, 50.
    EXPECT_EQ(VisibleGridRows(grid.state).first, 1);
    EXPECT_EQ(VisibleGridRows(grid.state).last, 5);
    EXPECT_EQ(VisibleGridColumns(grid.state).first, 1);
    EXPECT_EQ(VisibleGridColumns(grid.state).last, 3);
    grid.state.clientHeight = 150;
    EXPECT_EQ(VisibleGridRows(grid.state).last, 4);
    grid.state.clientWidth = 130;
    EXPECT_EQ(VisibleGridColumns(grid.state).last, 2);
    grid.state.topRow = 9;
    grid.state.leftColumn = 4;
    EXPECT_EQ(VisibleGridRows(grid.state).first, 9);
    EXPECT_EQ(VisibleGridRows(grid.state).last, 10);
    EXPECT_EQ(VisibleGridColumns(grid.state).last, 4);
    grid.state.clientHeight = 70;
    EXPECT_EQ(VisibleGridRows(grid.state).last, 8);
    grid.state.clientHeight = 0;
    grid.state.clientWidth = 50;
    EXPECT_EQ(VisibleGridRows(grid.state).last, 8);
    EXPECT_EQ(VisibleGridColumns(grid.state).last, 3);
}

TEST(GridGeometry, FindsTheRowAtAHeight) {
    SmallGrid grid;
    const auto rowAt = [&grid](int32_t y) { return RowAtY(grid.state, y); };
    EXPECT_EQ(rowAt(-1), -1);
    EXPECT_EQ(rowAt(39), -1);
    EXPECT_EQ(rowAt(40), 0);
    EXPECT_EQ(rowAt(69), 0);
    EXPECT_EQ(rowAt(70), 1);
    EXPECT_EQ(rowAt(89), 1);
    EXPECT_EQ(rowAt(90), 2);
    EXPECT_EQ(rowAt(269), 10);
    EXPECT_EQ(rowAt(270), -1);
    grid.state.topRow = 4;
    EXPECT_EQ(rowAt(70), 4);
}

TEST(GridGeometry, FindsTheColumnAtAPlace) {
    SmallGrid grid;
    const auto columnAt = [&grid](int32_t x) { return ColumnAtX(grid.state, x); };
    EXPECT_EQ(columnAt(-1), -1);
    EXPECT_EQ(columnAt(0), 0);
    EXPECT_EQ(columnAt(49), 0);
    EXPECT_EQ(columnAt(50), 1);
    EXPECT_EQ(columnAt(99), 1);
    EXPECT_EQ(columnAt(100), 2);
    EXPECT_EQ(columnAt(130), 3);
    EXPECT_EQ(columnAt(229), 4);
    EXPECT_EQ(columnAt(230), -1);
    grid.Column(2).isHidden = 1;
    EXPECT_EQ(columnAt(100), 3);
    grid.state.leftColumn = 3;
    EXPECT_EQ(columnAt(50), 3);
    grid.state.extendsLastColumn = true;
    EXPECT_EQ(columnAt(900), 4);
    grid.Column(4).isHidden = 1;
    EXPECT_EQ(columnAt(900), 3);
}

TEST(GridGeometry, EveryVisibleCellIsFoundAtItsPlace) {
    testing_support::RandomSource random;
    for (int i = 0; i < testing_support::TestRounds(200); i++) {
        TestGrid grid(static_cast<int32_t>(random.Between(1, 9)),
                      static_cast<int32_t>(random.Between(1, 30)));
        GridState& state = grid.state;
        state.rowHeight = static_cast<int32_t>(random.Between(1, 40));
        state.titleHeight = static_cast<int32_t>(random.Below(50));
        state.clientWidth = static_cast<int32_t>(random.Below(700));
        state.clientHeight = static_cast<int32_t>(random.Below(500));
        state.extendsLastColumn = random.Below(2) != 0;
        for (int32_t column = 1; column <= GridDataColumns(state.table); column++) {
            grid.Column(column).width = static_cast<int32_t>(random.Below(90));
            grid.Column(column).isHidden = random.Below(4) == 0 ? 1 : 0;
        }
        state.topRow = static_cast<int32_t>(random.Between(1, GridDataRows(state.table)));
        state.leftColumn = static_cast<int32_t>(random.Between(1, GridDataColumns(state.table)));
        ASSERT_TRUE(GridStateIsConsistent(state));
        const GridRange rows = VisibleGridRows(state);
        const GridRange columns = VisibleGridColumns(state);
        for (int32_t row = rows.first; row <= rows.last; row++) {
            for (int32_t column = columns.first; column <= columns.last; column++) {
                const LayoutRect place = GridCellPlace(state, column, row);
                ASSERT_EQ(RowAtY(state, place.y), row);
                ASSERT_EQ(RowAtY(state, place.y + place.height - 1), row);
                ASSERT_LT(place.y, state.clientHeight);
                if (place.width > 0) {
                    ASSERT_EQ(ColumnAtX(state, place.x), column);
                    ASSERT_EQ(ColumnAtX(state, place.x + place.width - 1), column);
                    ASSERT_LT(place.x, state.clientWidth);
                }
            }
        }
        ASSERT_GE(GridRowTop(state, rows.last + 1),
                  rows.last < GridDataRows(state.table) ? state.clientHeight : 0);
    }
}

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

TEST(GridScrolling, BarsComeWhenCellsDoNotFit) {
    SmallGrid grid;
    const auto needed = [&grid](int32_t width, int32_t height) {
        return NeededGridBars(grid.state, {{width, height}, 15, 10});
    };
    // All cells take 230 by 270.
    EXPECT_EQ(needed(230, 270), (GridBars{false, false}));
    EXPECT_EQ(needed(245, 269), (GridBars{true, false}));
    EXPECT_EQ(needed(229, 280), (GridBars{false, true}));
    EXPECT_EQ(needed(244, 269), (GridBars{true, true}));
    EXPECT_EQ(needed(229, 279), (GridBars{true, true}));
    EXPECT_EQ(needed(0, 0), (GridBars{true, true}));
    grid.Column(4).isHidden = 1;
    EXPECT_EQ(needed(180, 270), (GridBars{false, false}));
}

TEST(GridScrolling, RangesAndPositionsBeginAtOne) {
    SmallGrid grid;
    // 4 rows of 20 fit 155 - 70.
    EXPECT_EQ(GridRowsPerPage(grid.state), 4);
    EXPECT_EQ(VerticalGridScroll(grid.state).last, 7);
    EXPECT_EQ(VerticalGridScroll(grid.state).position, 1);
    EXPECT_EQ(HorizontalGridScroll(grid.state).last, 4);
    grid.state.topRow = 5;
    grid.state.leftColumn = 3;
    EXPECT_EQ(VerticalGridScroll(grid.state).position, 5);
    EXPECT_EQ(HorizontalGridScroll(grid.state).position, 3);
    grid.Column(2).isHidden = 1;
    EXPECT_EQ(HorizontalGridScroll(grid.state).last, 3);
    EXPECT_EQ(HorizontalGridScroll(grid.state).position, 2);
    grid.state.clientHeight = 0;
    EXPECT_EQ(GridRowsPerPage(grid.state), 1);
    EXPECT_EQ(VerticalGridScroll(grid.state).last, 10);
}

TEST(GridScrolling, StepsStayInTheRange) {
    SmallGrid grid;
    GridState& state = grid.state;
    const auto rows = [&state](GridScrollStep step, int32_t position = 0) {
        const bool moved = ScrollGridRows(state, step, position);
        return moved ? state.topRow : -state.topRow;
    };
    EXPECT_EQ(rows(GridScrollStep::LineBack), -1);
    EXPECT_EQ(rows(GridScrollStep::LineOn), 2);
    EXPECT_EQ(rows(GridScrollStep::PageOn), 6);
    EXPECT_EQ(rows(GridScrollStep::PageOn), 7);
    EXPECT_EQ(rows(GridScrollStep::LineOn), -7);
    EXPECT_EQ(rows(GridScrollStep::PageBack), 3);
    EXPECT_EQ(rows(GridScrollStep::LineBack), 2);
    EXPECT_EQ(rows(GridScrollStep::End), 7);
    EXPECT_EQ(rows(GridScrollStep::Start), 1);
    EXPECT_EQ(rows(GridScrollStep::Position, 5), 5);
    EXPECT_EQ(rows(GridScrollStep::Position, 99), 7);
    EXPECT_EQ(rows(GridScrollStep::Position, -3), 1);
}

TEST(GridScrolling, ColumnsAreScrolledWithoutTheHiddenOnes) {
    TestGrid grid(6, 2);
    GridState& state = grid.state;
    state.clientWidth = 160;
    grid.Column(1).isHidden = 1;
    grid.Column(3).isHidden = 1;
    const auto columns = [&state](GridScrollStep step, int32_t position = 0) {
        const bool moved = ScrollGridColumns(state, step, position);
        return moved ? state.leftColumn : -state.leftColumn;
    };
    EXPECT_EQ(columns(GridScrollStep::Start), 2);
    EXPECT_EQ(columns(GridScrollStep::LineOn), 4);
    EXPECT_EQ(columns(GridScrollStep::LineBack), 2);
    EXPECT_EQ(columns(GridScrollStep::PageOn), 5);
    // A page has the columns that are shown, but for one.
    EXPECT_EQ(columns(GridScrollStep::PageBack), 4);
    EXPECT_EQ(columns(GridScrollStep::PageBack), 2);
    EXPECT_EQ(columns(GridScrollStep::End), 6);
    EXPECT_EQ(columns(GridScrollStep::Position, 2), 4);
    EXPECT_EQ(columns(GridScrollStep::Position, 2), -4);
}

TEST(GridScrolling, TheViewGoesBackWhenThereIsRoom) {
    SmallGrid grid;
    grid.state.topRow = 10;
    grid.state.leftColumn = 3;
    ClampGridView(grid.state);
    EXPECT_EQ(grid.state.topRow, 7);
    EXPECT_EQ(grid.state.leftColumn, 3);
    grid.state.clientWidth = 230;
    grid.state.clientHeight = 270;
    ClampGridView(grid.state);
    EXPECT_EQ(grid.state.topRow, 1);
    EXPECT_EQ(grid.state.leftColumn, 1);
}

TEST(GridScrolling, TheViewFollowsTheCursor) {
    SmallGrid grid;
    GridState& state = grid.state;
    state.cursorRow = 4;
    KeepGridCursorInView(state);
    EXPECT_EQ(state.topRow, 1);
    state.cursorRow = 5;
    KeepGridCursorInView(state);
    EXPECT_EQ(state.topRow, 2);
    state.cursorRow = 10;
    KeepGridCursorInView(state);
    EXPECT_EQ(state.topRow, 7);
    state.cursorRow = 3;
    KeepGridCursorInView(state);
    EXPECT_EQ(state.topRow, 3);
    state.cursorColumn = 3;  // ends at 180 of 160
    KeepGridCursorInView(state);
    EXPECT_EQ(state.leftColumn, 2);
    state.cursorColumn = 4;
    KeepGridCursorInView(state);
    EXPECT_EQ(state.leftColumn, 3);
    state.cursorColumn = 1;
    KeepGridCursorInView(state);
    EXPECT_EQ(state.leftColumn, 1);
}

TEST(GridScrolling, AWindowWithoutRoomForARowIsNotScrolledDown) {
    SmallGrid grid;
    grid.state.clientHeight = 89;
    grid.state.cursorRow = 6;
    KeepGridCursorInView(grid.state);
    EXPECT_EQ(grid.state.topRow, 1);
    grid.state.clientHeight = 90;
    KeepGridCursorInView(grid.state);
    EXPECT_EQ(grid.state.topRow, 6);
}

TEST(GridScrolling, AColumnWiderThanTheWindowStandsAtItsLeftEdge) {
    SmallGrid grid;
    grid.Column(3).width = 900;
    grid.state.cursorColumn = 3;
    KeepGridCursorInView(grid.state);
    EXPECT_EQ(grid.state.leftColumn, 3);
}

TEST(GridScrolling, TheWheelKeepsWhatIsLessThanALine) {
    int32_t turned = 0;
    EXPECT_EQ(TakeGridWheelLines(turned, 60), 0);
    EXPECT_EQ(TakeGridWheelLines(turned, 60), 1);
    EXPECT_EQ(turned, 0);
    EXPECT_EQ(TakeGridWheelLines(turned, -250), -2);
    EXPECT_EQ(turned, -10);
    EXPECT_EQ(TakeGridWheelLines(turned, 370), 3);
    EXPECT_EQ(turned, 0);
}

TEST(GridCursor, SkipsHiddenAndEmptyColumns) {
    TestGrid grid(6, 3);
    const GridTable& table = grid.state.table;
    grid.Column(1).isHidden = 1;
    grid.Column(3).isHidden = 1;
    grid.Column(4).width = 0;
    EXPECT_EQ(NextGridColumn(table, 2, GridForward), 5);
    EXPECT_EQ(NextGridColumn(table, 5, GridBackward), 2);
    EXPECT_EQ(NextGridColumn(table, 2, GridBackward), 2);
    EXPECT_EQ(NextGridColumn(table, 6, GridForward), 6);
    EXPECT_EQ(NextGridColumn(table, 0, GridForward), 2);
}

TEST(GridCursor, MovesStayInTheTable) {
    SmallGrid grid;
    GridState& state = grid.state;
    state.cursorRow = 5;
    state.cursorColumn = 2;
    const auto moved = [&state](GridMove move) { return MovedGridCursor(state, move); };
    EXPECT_EQ(moved(GridMove::RowUp), (GridPlace{2, 4}));
    EXPECT_EQ(moved(GridMove::RowDown), (GridPlace{2, 6}));
    EXPECT_EQ(moved(GridMove::PageUp), (GridPlace{2, 1}));
    EXPECT_EQ(moved(GridMove::PageDown), (GridPlace{2, 9}));
    EXPECT_EQ(moved(GridMove::ColumnLeft), (GridPlace{1, 5}));
    EXPECT_EQ(moved(GridMove::ColumnRight), (GridPlace{3, 5}));
    EXPECT_EQ(moved(GridMove::FirstColumn), (GridPlace{1, 5}));
    EXPECT_EQ(moved(GridMove::LastColumn), (GridPlace{4, 5}));
    state.cursorRow = 9;
    EXPECT_EQ(moved(GridMove::PageDown).row, 10);
    state.cursorRow = 2;
    EXPECT_EQ(moved(GridMove::PageUp).row, 1);
    state.cursorRow = 1;
    EXPECT_EQ(moved(GridMove::RowUp).row, 1);
    state.cursorRow = 10;
    EXPECT_EQ(moved(GridMove::RowDown).row, 10);
    grid.Column(1).isHidden = 1;
    grid.Column(4).isHidden = 1;
    EXPECT_EQ(moved(GridMove::FirstColumn).column, 2);
    EXPECT_EQ(moved(GridMove::LastColumn).column, 3);
}

TEST(GridCursor, StaysWhereThereIsNothing) {
    TestGrid grid(0, 0);
    for (const GridMove move : {GridMove::RowUp, GridMove::RowDown, GridMove::PageUp,
                                GridMove::PageDown, GridMove::ColumnLeft, GridMove::ColumnRight,
                                GridMove::FirstColumn, GridMove::LastColumn}) {
        EXPECT_EQ(MovedGridCursor(grid.state, move), (GridPlace{1, 1}));
    }
}

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
