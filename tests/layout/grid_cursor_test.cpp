// How the cursor of a grid walks over the cells.
#include "layout/grid_cursor.h"

#include <gtest/gtest.h>

#include "layout/grid_testing.h"

namespace tallymere {
namespace {

using testing_support::SmallGrid;
using testing_support::TestGrid;

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

}  // namespace
}  // namespace tallymere
