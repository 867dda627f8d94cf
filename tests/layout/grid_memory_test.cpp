// Tables of cells without memory: each change is made whole or not at all.
#include "layout/grid_memory_testing.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "layout/grid_testing.h"

namespace tallymere {
namespace {

using testing_support::GridMemory;
using testing_support::TestGrid;

std::vector<std::u16string> TextsOf(const TestGrid& grid) {
    std::vector<std::u16string> texts;
    for (int32_t column = 0; column <= GridDataColumns(grid.state.table); column++) {
        for (int32_t row = 0; row <= GridDataRows(grid.state.table); row++) {
            texts.emplace_back(GridCellText(FindGridCell(grid.state.table, column, row)));
        }
    }
    return texts;
}

// A change to a table of 15 columns and rows, so that both lists are full, with one block more of
// memory at each attempt. Returns how many blocks it takes.
int64_t BlocksUntilDone(const std::function<GridTableOutcome(GridTable&)>& change) {
    for (int64_t blocks = 0;; blocks++) {
        TestGrid grid(15, 15);
        grid.Write(15, 15, u"last");
        const std::vector<std::u16string> before = TextsOf(grid);
        const GridMemory memory(blocks);
        const GridTableOutcome outcome = change(grid.state.table);
        EXPECT_TRUE(GridTableIsConsistent(grid.state.table)) << blocks;
        if (outcome == GridTableOutcome::Done) {
            return blocks;
        }
        EXPECT_EQ(outcome, GridTableOutcome::NoMemory);
        EXPECT_EQ(TextsOf(grid), before) << blocks;
        EXPECT_TRUE(GridMemory::HasFailed());
    }
}

TEST(GridMemory, AColumnIsAddedWholeOrNotAtAll) {
    // Its cells and the list of columns; without more, its header is empty.
    EXPECT_EQ(BlocksUntilDone([](GridTable& table) {
                  return AddGridTableColumn(table, GridColumnText, u"head", 50);
              }),
              2);
}

TEST(GridMemory, ARowIsInsertedWholeOrNotAtAll) {
    // The cells of each column.
    EXPECT_EQ(
        BlocksUntilDone([](GridTable& table) { return InsertGridTableRow(table, 1, u"first"); }),
        16);
}

TEST(GridMemory, AfterAFailureTheTableTakesWhatItRefused) {
    TestGrid grid(15, 15);
    {
        const GridMemory memory(5);
        ASSERT_EQ(InsertGridTableRow(grid.state.table, 3, u"row"), GridTableOutcome::NoMemory);
    }
    ASSERT_EQ(InsertGridTableRow(grid.state.table, 3, u"new"), GridTableOutcome::Done);
    EXPECT_EQ(grid.Text(0, 3), u"new");
    EXPECT_EQ(grid.Text(0, 4), u"row");
    ASSERT_EQ(AddGridTableColumn(grid.state.table, GridColumnText, u"more", 50),
              GridTableOutcome::Done);
    EXPECT_EQ(grid.Text(16, 0), u"more");
    EXPECT_TRUE(GridTableIsConsistent(grid.state.table));
}

TEST(GridMemory, ATableNeedsItForItsHeaderColumnAlone) {
    GridTable table = {};
    for (int64_t blocks = 0; blocks < 2; blocks++) {
        const GridMemory memory(blocks);
        EXPECT_EQ(ResetGridTable(table, 50), GridTableOutcome::NoMemory) << blocks;
        EXPECT_EQ(table.columns.count, 0);
        EXPECT_TRUE(GridTableIsConsistent(table));
    }
    EXPECT_EQ(ResetGridTable(table, 50), GridTableOutcome::Done);
    const GridMemory none(0);
    EXPECT_EQ(ResetGridTable(table, 50), GridTableOutcome::Done);
    FreeGridTable(table);
}

TEST(GridMemory, ATextIsEmptyWithoutIt) {
    TestGrid grid(1, 1);
    grid.Write(1, 1, u"old");
    const GridMemory none(0);
    grid.Write(1, 1, u"new");
    EXPECT_EQ(grid.Text(1, 1), u"");
}

}  // namespace
}  // namespace tallymere
