// Where the cells of a grid stand, and which cell stands where.
#include "layout/grid_geometry.h"

#include <gtest/gtest.h>

#include "layout/grid_testing.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using testing_support::SmallGrid;
using testing_support::TestGrid;

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

}  // namespace
}  // namespace tallymere
