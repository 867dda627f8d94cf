// The cells of a grid.
#include "layout/grid_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "layout/column_letters.h"
#include "layout/grid_testing.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using testing_support::TestGrid;

TEST(GridList, StartsWithRoomForSixteenAndGrowsBySixteen) {
    GridList<int32_t> list = {};
    EXPECT_TRUE(GridListIsConsistent(list));
    for (int32_t i = 0; i < 33; i++) {
        ASSERT_TRUE(ReserveGridItem(list));
        EXPECT_EQ(list.capacity, i / 16 * 16 + 16) << i;
        InsertGridItem(list, i, i * 10);
        EXPECT_TRUE(GridListIsConsistent(list));
    }
    EXPECT_EQ(list.items[32], 320);
    FreeGridList(list);
    EXPECT_EQ(list.items, nullptr);
    EXPECT_EQ(list.capacity, 0);
    EXPECT_EQ(list.count, 0);
}

TEST(GridList, ItemsMoveAside) {
    GridList<int32_t> list = {};
    for (const int32_t item : {1, 2, 3}) {
        ASSERT_TRUE(ReserveGridItem(list));
        InsertGridItem(list, 0, item);
    }
    ASSERT_TRUE(ReserveGridItem(list));
    InsertGridItem(list, 1, 9);
    EXPECT_EQ(std::vector<int32_t>(list.items, list.items + list.count),
              (std::vector<int32_t>{3, 9, 2, 1}));
    RemoveGridItem(list, 2);
    EXPECT_EQ(std::vector<int32_t>(list.items, list.items + list.count),
              (std::vector<int32_t>{3, 9, 1}));
    FreeGridList(list);
}

TEST(GridList, AListThatDoesNotFitTogetherIsSeen) {
    int32_t item = 0;
    EXPECT_FALSE(GridListIsConsistent(GridList<int32_t>{16, &item, 17}));
    EXPECT_FALSE(GridListIsConsistent(GridList<int32_t>{16, &item, -1}));
    EXPECT_FALSE(GridListIsConsistent(GridList<int32_t>{15, &item, 0}));
    EXPECT_FALSE(GridListIsConsistent(GridList<int32_t>{16, nullptr, 0}));
    EXPECT_FALSE(GridListIsConsistent(GridList<int32_t>{0, &item, 0}));
}

TEST(GridTable, BeginsWithTheHeaders) {
    GridTable table;
    EXPECT_TRUE(GridTableIsConsistent(table));
    EXPECT_EQ(GridDataColumns(table), 0);
    EXPECT_EQ(GridDataRows(table), 0);
    EXPECT_EQ(ResetGridTable(table, 70), GridTableOutcome::Done);
    EXPECT_EQ(table.columns.count, 1);
    EXPECT_EQ(table.columns.items[0].type, -1);
    EXPECT_EQ(table.columns.items[0].cells.count, 1);
    EXPECT_EQ(GridColumnWidth(table, 0), 70);
    EXPECT_EQ(GridDataColumns(table), 0);
    EXPECT_EQ(GridDataRows(table), 0);
    EXPECT_TRUE(GridTableIsConsistent(table));
    FreeGridTable(table);
    EXPECT_EQ(table.columns.count, 0);
}

TEST(GridTable, AResetKeepsTheMemoryOfTheHeaderColumnAndSoCannotFail) {
    TestGrid grid(20, 20);
    grid.Write(0, 0, u"corner");
    grid.Column(0).isHidden = 1;
    grid.Cell(0, 0).alignment = GridAlignRight;
    const GridColumn* const columns = grid.state.table.columns.items;
    const GridCell* const cells = grid.Column(0).cells.items;
    EXPECT_EQ(ResetGridTable(grid.state.table, 60), GridTableOutcome::Done);
    EXPECT_EQ(grid.state.table.columns.items, columns);
    EXPECT_EQ(grid.Column(0).cells.items, cells);
    EXPECT_TRUE(GridTableIsConsistent(grid.state.table));
    EXPECT_EQ(GridDataColumns(grid.state.table), 0);
    EXPECT_EQ(GridDataRows(grid.state.table), 0);
    EXPECT_EQ(grid.Column(0).type, GridColumnHeader);
    EXPECT_EQ(GridColumnWidth(grid.state.table, 0), 60);
    EXPECT_EQ(grid.Text(0, 0), u"");
    EXPECT_EQ(grid.Cell(0, 0).alignment, GridAlignLeft);
}

TEST(GridTable, ANewCellIsEmptyAlignedByOneAndNotProtected) {
    TestGrid grid(1, 1);
    const GridCell& cell = grid.Cell(1, 1);
    EXPECT_EQ(cell.text, nullptr);
    EXPECT_EQ(cell.alignment, 1);
    EXPECT_EQ(cell.isProtected, 0);
    EXPECT_EQ(cell.reserved, 0u);
    EXPECT_EQ(grid.Column(1).reserved, 0u);
    EXPECT_EQ(grid.Column(1).isHidden, 0);
}

TEST(GridTable, ColumnsAddedLaterHaveAllRows) {
    TestGrid grid(2, 40);
    EXPECT_EQ(AddGridTableColumn(grid.state.table, 7, u"third", 33), GridTableOutcome::Done);
    EXPECT_EQ(GridDataColumns(grid.state.table), 3);
    EXPECT_EQ(grid.Column(3).cells.count, 41);
    EXPECT_EQ(grid.Column(3).type, 7);
    EXPECT_EQ(grid.Column(3).width, 33);
    EXPECT_EQ(grid.Text(3, 0), u"third");
    EXPECT_EQ(grid.Text(3, 40), u"");
    EXPECT_TRUE(GridTableIsConsistent(grid.state.table));
}

TEST(GridTable, RowsGoInBetweenWithTheirHeader) {
    TestGrid grid(2, 2);
    grid.Write(1, 1, u"a");
    grid.Write(2, 2, u"d");
    ASSERT_EQ(InsertGridTableRow(grid.state.table, 2, u"between"), GridTableOutcome::Done);
    EXPECT_EQ(GridDataRows(grid.state.table), 3);
    EXPECT_EQ(grid.Text(0, 2), u"between");
    EXPECT_EQ(grid.Text(1, 1), u"a");
    EXPECT_EQ(grid.Text(1, 2), u"");
    EXPECT_EQ(grid.Text(2, 3), u"d");
    ASSERT_EQ(InsertGridTableRow(grid.state.table, 1, u"top"), GridTableOutcome::Done);
    EXPECT_EQ(grid.Text(0, 1), u"top");
    EXPECT_EQ(grid.Text(1, 2), u"a");
    EXPECT_EQ(grid.Text(1, 0), u"head");
    DeleteGridTableRow(grid.state.table, 1);
    EXPECT_EQ(grid.Text(1, 1), u"a");
    DeleteGridTableRow(grid.state.table, 2);
    EXPECT_EQ(grid.Text(2, 2), u"d");
    EXPECT_EQ(GridDataRows(grid.state.table), 2);
    EXPECT_TRUE(GridTableIsConsistent(grid.state.table));
}

TEST(GridTable, CellsThatAreNotThereAreNotFound) {
    TestGrid grid(2, 3);
    EXPECT_NE(FindGridCell(grid.state.table, 2, 3), nullptr);
    EXPECT_NE(FindGridCell(grid.state.table, 0, 0), nullptr);
    EXPECT_EQ(FindGridCell(grid.state.table, 3, 3), nullptr);
    EXPECT_EQ(FindGridCell(grid.state.table, 2, 4), nullptr);
    EXPECT_EQ(FindGridCell(grid.state.table, -1, 0), nullptr);
    EXPECT_EQ(FindGridCell(grid.state.table, 0, -1), nullptr);
    EXPECT_EQ(FindGridColumn(grid.state.table, 3), nullptr);
    EXPECT_EQ(FindGridColumn(grid.state.table, -1), nullptr);
    EXPECT_EQ(GridCellText(nullptr), u"");
    EXPECT_EQ(GridColumnWidth(grid.state.table, 3), 0);
}

TEST(GridTable, AHiddenColumnHasNoWidth) {
    TestGrid grid(1, 1);
    EXPECT_EQ(GridColumnWidth(grid.state.table, 1), 50);
    grid.Column(1).isHidden = 1;
    EXPECT_EQ(GridColumnWidth(grid.state.table, 1), 0);
    EXPECT_EQ(grid.Column(1).width, 50);
}

TEST(GridTable, ATextIsCopiedAlsoFromItself) {
    char16_t* owned = nullptr;
    std::u16string text = u"first";
    StoreGridText(owned, text);
    text[0] = u'x';
    EXPECT_EQ(std::u16string_view(owned), u"first");
    StoreGridText(owned, std::u16string_view(owned).substr(2));
    EXPECT_EQ(std::u16string_view(owned), u"rst");
    StoreGridText(owned, {});
    EXPECT_EQ(owned, nullptr);
}

TEST(GridTable, ATextWithoutMemoryIsEmpty) {
    char16_t* owned = nullptr;
    StoreGridText(owned, u"before");
    // No text is so long; it is not read, since there is no room for it.
    StoreGridText(owned, std::u16string_view(u"x", SIZE_MAX / 2));
    EXPECT_EQ(owned, nullptr);
}

TEST(GridTable, TakesTheColumnsFromAToZZZZAndNoMore) {
    EXPECT_EQ(MaxGridColumns, 475'254);
    GridTable table;
    ASSERT_EQ(ResetGridTable(table, 50), GridTableOutcome::Done);
    // Room for all at once: where a block cannot grow in its place, growing by 16 copies for
    // minutes.
    GridList<GridColumn>& columns = table.columns;
    columns.capacity = (MaxGridColumns / GridListStep + 1) * GridListStep;
    columns.items = static_cast<GridColumn*>(
        std::realloc(columns.items, static_cast<size_t>(columns.capacity) * sizeof(GridColumn)));
    ASSERT_NE(columns.items, nullptr);
    for (int32_t i = 0; i < MaxGridColumns; i++) {
        ASSERT_EQ(AddGridTableColumn(table, GridColumnText, {}, 50), GridTableOutcome::Done) << i;
    }
    EXPECT_EQ(AddGridTableColumn(table, GridColumnText, {}, 50), GridTableOutcome::TooManyColumns);
    EXPECT_EQ(GridDataColumns(table), MaxGridColumns);
    EXPECT_EQ(std::u16string_view(ColumnLettersOf(MaxGridColumns).text), u"ZZZZ");
    FreeGridTable(table);
}

TEST(GridTable, AnInconsistentTableIsSeen) {
    TestGrid grid(2, 2);
    EXPECT_TRUE(GridTableIsConsistent(grid.state.table));
    grid.Column(1).cells.count--;
    EXPECT_FALSE(GridTableIsConsistent(grid.state.table));
    grid.Column(1).cells.count++;
    grid.Column(2).width = -1;
    EXPECT_FALSE(GridTableIsConsistent(grid.state.table));
    grid.Column(2).width = 0;
    grid.state.table.columnLimit = 1;
    EXPECT_FALSE(GridTableIsConsistent(grid.state.table));
    EXPECT_EQ(AddGridTableColumn(grid.state.table, 1, {}, 1), GridTableOutcome::TooManyColumns);
    grid.state.table.columnLimit = 3;
    EXPECT_EQ(AddGridTableColumn(grid.state.table, 1, {}, 1), GridTableOutcome::Done);
}

TEST(GridTable, RandomChangesMatchAPlainModel) {
    testing_support::RandomSource random;
    TestGrid grid(0, 0);
    GridTable& table = grid.state.table;
    std::vector<std::vector<std::u16string>> model(1, std::vector<std::u16string>(1));
    for (int i = 0; i < testing_support::TestRounds(3000); i++) {
        const auto rows = static_cast<int32_t>(model[0].size()) - 1;
        const std::u16string text(random.Below(5), static_cast<char16_t>(u'a' + random.Below(26)));
        switch (random.Below(5)) {
            case 0:
                ASSERT_EQ(AddGridTableColumn(table, 1, text, 50), GridTableOutcome::Done);
                model.emplace_back(rows + 1)[0] = text;
                break;
            case 1: {
                const auto position = static_cast<int32_t>(random.Between(1, rows + 1));
                ASSERT_EQ(InsertGridTableRow(table, position, text), GridTableOutcome::Done);
                for (auto& column : model) {
                    column.insert(column.begin() + position, u"");
                }
                model[0][position] = text;
                break;
            }
            case 2:
                if (rows > 0) {
                    const auto row = static_cast<int32_t>(random.Between(1, rows));
                    DeleteGridTableRow(table, row);
                    for (auto& column : model) {
                        column.erase(column.begin() + row);
                    }
                }
                break;
            default: {
                const auto column = static_cast<int32_t>(random.Below(model.size()));
                const auto row = static_cast<int32_t>(random.Between(0, rows));
                grid.Write(column, row, text);
                model[column][row] = text;
                break;
            }
        }
        if (model.size() > 40) {
            ASSERT_EQ(ResetGridTable(table, 50), GridTableOutcome::Done);
            model.assign(1, std::vector<std::u16string>(1));
        }
        ASSERT_TRUE(GridTableIsConsistent(table));
        ASSERT_EQ(GridDataColumns(table) + 1, static_cast<int32_t>(model.size()));
        for (size_t column = 0; column < model.size(); column++) {
            ASSERT_EQ(grid.Column(column).cells.count, static_cast<int32_t>(model[column].size()));
            for (size_t row = 0; row < model[column].size(); row++) {
                ASSERT_EQ(grid.Text(column, row), model[column][row]);
            }
        }
    }
}

std::u16string Letters(int32_t column) {
    const ColumnLetters letters = ColumnLettersOf(column);
    EXPECT_EQ(std::u16string_view(letters.text).size(), static_cast<size_t>(letters.length));
    return letters.text;
}

TEST(ColumnLetters, CountWithoutAZero) {
    EXPECT_EQ(Letters(1), u"A");
    EXPECT_EQ(Letters(26), u"Z");
    EXPECT_EQ(Letters(27), u"AA");
    EXPECT_EQ(Letters(52), u"AZ");
    EXPECT_EQ(Letters(53), u"BA");
    EXPECT_EQ(Letters(702), u"ZZ");
    EXPECT_EQ(Letters(703), u"AAA");
    EXPECT_EQ(Letters(18278), u"ZZZ");
    EXPECT_EQ(Letters(18279), u"AAAA");
    EXPECT_EQ(Letters(475254), u"ZZZZ");
}

TEST(ColumnLetters, EachColumnComesBehindTheOneBefore) {
    std::u16string before;
    for (int32_t column = 1; column <= MaxGridColumns; column++) {
        const std::u16string letters = Letters(column);
        ASSERT_TRUE(letters.size() > before.size() ||
                    (letters.size() == before.size() && letters > before))
            << column;
        before = letters;
    }
}

}  // namespace
}  // namespace tallymere
