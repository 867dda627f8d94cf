// Scroll bars of a grid, and the view that follows them and the cursor.
#include "layout/grid_scrolling.h"

#include <gtest/gtest.h>

#include "layout/grid_testing.h"

namespace tallymere {
namespace {

using testing_support::SmallGrid;
using testing_support::TestGrid;

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

}  // namespace
}  // namespace tallymere
