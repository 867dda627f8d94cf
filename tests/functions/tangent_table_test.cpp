#include "functions/tangent_table.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "core/real_add.h"
#include "core/scratch.h"
#include "functions/tangent_testing.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

std::string NextTangentNumber(TangentTable& table) {
    TangentStep(table);
    TangentStep(table);
    return PlainText(TangentRow(table, 0));
}

TEST(TangentTable, StartsAtTheFirstTangentNumber) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        TangentTableScope owner;
        ASSERT_TRUE(owner.HasMemory());
        EXPECT_EQ(owner.Table().steps, 1);
        EXPECT_EQ(owner.Table().length, 1);
        EXPECT_EQ(PlainText(TangentRow(owner.Table(), 0)), "1e0");
    }
}

TEST(TangentTable, GivesTangentNumbersAfterEverySecondStep) {
    for (int64_t p : {18, 19, 20, 37, 38, 39, 57, 100, 1000, 10000}) {
        PrecisionScope scope(p);
        TangentTableScope owner;
        TangentTable& table = owner.Table();
        for (const char* number :
             {"2e0", "1.6e1", "2.72e2", "7.936e3", "3.53792e5", "2.2368256e7", "1.903757312e9",
              "2.09865342976e11", "2.9088885112832e13", "4.951498053124096e15"}) {
            EXPECT_EQ(NextTangentNumber(table), number);
        }
    }
}

TEST(TangentTable, HoldsOneLineOfTheTriangle) {
    PrecisionScope scope(16);
    TangentTableScope owner;
    TangentTable& table = owner.Table();
    const auto line = [&table] {
        std::string text;
        for (int64_t i = 0; i < table.length; i++) {
            text += PlainText(TangentRow(table, i)) + " ";
        }
        return text;
    };
    TangentStep(table);
    EXPECT_EQ(line(), "1e0 ");
    TangentStep(table);
    EXPECT_EQ(line(), "2e0 2e0 1e0 ");
    TangentStep(table);
    EXPECT_EQ(line(), "2e0 4e0 5e0 ");
    TangentStep(table);
    EXPECT_EQ(line(), "1.6e1 1.6e1 1.4e1 1e1 5e0 ");
    EXPECT_EQ(table.steps, 5);
    EXPECT_EQ(table.length, 5);
}

// The same steps, every sum at the whole length of the records.
void PlainStep(std::vector<RealBuffer>& rows, bool upwards) {
    const size_t length = rows.size();
    if (upwards) {
        for (size_t i = 1; i < length; i++) {
            RealAddRaw(rows[i], rows[i], rows[i - 1], false);
        }
        return;
    }
    rows.resize(length + 2, rows[length - 1]);
    for (size_t i = length; i >= 1; i--) {
        RealAddRaw(rows[i], rows[i - 1], rows[i + 1], false);
    }
    rows[0] = rows[1];
}

TEST(TangentTable, IsWordForWordTheTableOfWholeSums) {
    for (int64_t p : {1, 2, 9, 16, 18, 19, 20, 37, 38, 39, 57, 100, 300, 1000}) {
        PrecisionScope scope(p);
        TangentTableScope owner;
        TangentTable& table = owner.Table();
        std::vector<RealBuffer> rows = {RealBuffer("1")};
        const size_t bytes = static_cast<size_t>(RealWords()) * sizeof(uint64_t);
        for (int step = 2; step <= TestRounds(300); step++) {
            TangentStep(table);
            PlainStep(rows, step % 2 == 0);
            ASSERT_EQ(table.length, static_cast<int64_t>(rows.size()));
            for (size_t i = 0; i < rows.size(); i++) {
                const auto row = static_cast<int64_t>(i);
                ASSERT_EQ(std::memcmp(TangentRow(table, row), rows[i].Get(), bytes), 0)
                    << step << " " << i;
            }
        }
    }
}

TEST(TangentTable, TruncatesWhatDoesNotFit) {
    // From the line 272 272 256 224 178 122 61 the sums are 272 544 800 1020 1190 1310 1370, and
    // back from 1370 2740 4050 5240 6260 7060 7600 to 7870, not 7936.
    PrecisionScope scope(3);
    TangentTableScope owner;
    for (const char* number : {"2e0", "1.6e1", "2.72e2", "7.87e3"}) {
        EXPECT_EQ(NextTangentNumber(owner.Table()), number);
    }
}

TEST(TangentTable, EndsAtItsLastRow) {
    PrecisionScope scope(2);
    TangentTableScope owner;
    TangentTable& table = owner.Table();
    for (int k = 2; k <= 1500; k++) {
        TangentStep(table);
        TangentStep(table);
        ASSERT_FALSE(RealIsSpecial(TangentRow(table, 0)));
    }
    EXPECT_EQ(table.length, 2999);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    TangentStep(table);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    const std::string second = PlainText(TangentRow(table, 1));
    const std::string last = PlainText(TangentRow(table, 2998));
    TangentStep(table);
    EXPECT_EQ(PlainText(TangentRow(table, 0)), "nan");
    EXPECT_EQ(TakeCode(), CalcErrorCapacity);
    EXPECT_EQ(table.length, 2999);
    EXPECT_EQ(table.steps, 3001);
    EXPECT_EQ(PlainText(TangentRow(table, 1)), second);
    EXPECT_EQ(PlainText(TangentRow(table, 2998)), last);
}

TEST(TangentTable, GivesItsMemoryBack) {
    TangentMemoryWatch watch;
    for (int64_t p : {1, 19, 20, 10000}) {
        PrecisionScope scope(p);
        {
            TangentTableScope owner;
            EXPECT_EQ(watch.Bytes(), 3000u * static_cast<size_t>(RealWords()) * 8u);
            EXPECT_EQ(watch.BlocksHeld(), 1);
        }
        EXPECT_EQ(watch.BlocksHeld(), 0);
    }
    EXPECT_EQ(watch.BlocksTaken(), 4);
}

TEST(TangentTable, SaysThatThereIsNoMemory) {
    TangentMemoryWatch watch;
    watch.Refuse();
    PrecisionScope scope(20);
    {
        TangentTableScope owner;
        EXPECT_FALSE(owner.HasMemory());
    }
    EXPECT_EQ(watch.BlocksHeld(), 0);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

}  // namespace
}  // namespace tallymere
