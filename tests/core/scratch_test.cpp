#include "core/scratch.h"

#include <gtest/gtest.h>

#include <thread>

#include "core/number_context.h"

namespace tallymere {
namespace {

TEST(CoreScratch, HasItsSizeAndLiesInTheContext) {
    EXPECT_EQ(CoreScratchBytes, 160'000);
    // A checked build has more room, for the gaps between blocks.
    EXPECT_GE((coreScratch.end - coreScratch.base) * BytesPerWord, CoreScratchBytes);
    EXPECT_EQ(coreScratch.top, &numberContext.scratchTop);
    EXPECT_EQ(numberContext.scratchBase, coreScratch.base);
    EXPECT_EQ(numberContext.scratchTop, coreScratch.base);
}

TEST(CoreScratch, HandsOutBlocksInOrderAndTakesThemAllBack) {
    uint64_t* const start = numberContext.scratchTop;
    {
        CoreScratchScope outer;
        uint64_t* first = outer.Take(10);
        EXPECT_EQ(first, start);
        EXPECT_EQ(numberContext.scratchTop, first + 10 + ScratchGapWords);
        uint64_t* inner = nullptr;
        {
            CoreScratchScope scope;
            inner = scope.Take(5);
            EXPECT_EQ(inner, first + 10 + ScratchGapWords);
            inner[4] = 7;
        }
        EXPECT_EQ(numberContext.scratchTop, inner);
        EXPECT_EQ(outer.Take(0), inner);
    }
    EXPECT_EQ(numberContext.scratchTop, start);
}

TEST(CoreScratch, RemembersTheMostThatWasTaken) {
    const int64_t before = coreScratch.highWaterWords;
    coreScratch.highWaterWords = 0;
    {
        CoreScratchScope outer;
        outer.Take(10);
        {
            CoreScratchScope inner;
            inner.Take(20);
        }
        outer.Take(5);
    }
    EXPECT_EQ(coreScratch.highWaterWords, 30 + 2 * ScratchGapWords);
    coreScratch.highWaterWords = before;
}

TEST(ScratchStack, BelongsToItsThread) {
    const auto work = [](ScratchArea** area) {
        CreateScratchStack();
        *area = &CurrentScratchStack();
        ScratchArea& own = CurrentScratchStack();
        EXPECT_EQ(*own.top, own.base);
        EXPECT_GE((own.end - own.base) * BytesPerWord, 1'200'000);
        {
            ScratchStackScope scope;
            uint64_t* block = scope.Take(1'200'000 / BytesPerWord);
            EXPECT_EQ(block, own.base);
            block[1'200'000 / BytesPerWord - 1] = 7;
        }
        EXPECT_EQ(*own.top, own.base);
        DestroyScratchStack();
        EXPECT_EQ(CurrentScratchStack().base, nullptr);
    };
    ScratchArea* first = nullptr;
    ScratchArea* second = nullptr;
    std::thread other([&] {
        work(&first);
        std::thread inner([&] { work(&second); });
        inner.join();
    });
    other.join();
    EXPECT_NE(first, second);
}

#ifndef _WIN32  // There an aborted program would show a message box.
TEST(ScratchDeathTest, StopsTheProgramRatherThanHandOutMoreThanThereIs) {
    const int64_t all = coreScratch.end - coreScratch.base;
    EXPECT_DEATH(CoreScratchScope().Take(all + 1), "CoreScratch is exhausted");
    EXPECT_DEATH(CoreScratchScope().Take(-1), "CoreScratch is exhausted");
    EXPECT_DEATH(CoreScratchScope().Take(INT64_MAX), "CoreScratch is exhausted");
    EXPECT_DEATH(
        {
            CreateScratchStack();
            ScratchStackScope().Take(ScratchStackBytes);
        },
        "ScratchStack is exhausted");
}
#endif

}  // namespace
}  // namespace tallymere
