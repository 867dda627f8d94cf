// What tests of the memory that calculations take share: the most that was taken of an area is held
// to its size and to the bytes that docs/architecture.md names.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>

#include "core/number_context.h"
#include "core/scratch.h"

namespace tallymere::testing_support {

/// Counts anew what is taken of CoreScratch. At the end the most of all tests stands there again.
class CoreScratchCount {
public:
    CoreScratchCount() { coreScratch.highWaterWords = 0; }
    ~CoreScratchCount() {
        coreScratch.highWaterWords = std::max(usual_, coreScratch.highWaterWords);
    }
    CoreScratchCount(const CoreScratchCount&) = delete;
    CoreScratchCount& operator=(const CoreScratchCount&) = delete;

private:
    const int64_t usual_ = coreScratch.highWaterWords;
};

/// Holds the most that was taken of an area, in words, to its size and to these bytes. Checked
/// builds take more, for the gaps.
inline void ExpectMost(const std::string& name, int64_t words, int64_t expectedBytes,
                       int64_t size) {
    const int64_t bytes = words * BytesPerWord;
    EXPECT_LT(bytes, size) << name;
    if (!CheckedScratch) {
        EXPECT_EQ(bytes, expectedBytes) << name;
    }
    std::printf("%-45s %8d bytes\n", name.c_str(), static_cast<int>(bytes));
}

/// Likewise of CoreScratch since its CoreScratchCount began. All of it must have been given back.
inline void ExpectMostOfCoreScratch(const std::string& work, int64_t expectedBytes) {
    ExpectMost("CoreScratch: " + work, coreScratch.highWaterWords, expectedBytes, CoreScratchBytes);
    EXPECT_EQ(numberContext.scratchTop, numberContext.scratchBase) << work;
}

/// Likewise of the ScratchStack since it was made. All of it must have been given back.
inline void ExpectMostOfScratchStack(const std::string& work, int64_t expectedBytes) {
    const ScratchArea& stack = CurrentScratchStack();
    ExpectMost("ScratchStack: " + work, stack.highWaterWords, expectedBytes, ScratchStackBytes);
    EXPECT_EQ(*stack.top, stack.base) << work;
}

}  // namespace tallymere::testing_support
