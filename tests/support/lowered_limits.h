// Guards that lower a limit of the program for a test and put it back.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "core/scratch.h"

namespace tallymere::testing_support {

#ifdef TALLYMERE_ADJUSTABLE_LIMITS
/// Lowers a limit of core/limits.h that is declared with TALLYMERE_LIMIT.
class LoweredLimit {
public:
    LoweredLimit(int64_t& limit, int64_t value) : limit_(limit), saved_(limit) {
        EXPECT_LE(value, limit) << "arrays have the length of the product's limit";
        limit_ = value;
    }
    ~LoweredLimit() { limit_ = saved_; }
    LoweredLimit(const LoweredLimit&) = delete;
    LoweredLimit& operator=(const LoweredLimit&) = delete;

private:
    int64_t& limit_;
    int64_t saved_;
};
#endif

/// Leaves no more than `words` words in a scratch area, in every build.
class LoweredScratch {
public:
    LoweredScratch(ScratchArea& area, int64_t words) : area_(area), saved_(area.end) {
        EXPECT_LE(words, area.end - *area.top);
        area_.end = *area_.top + words;
    }
    ~LoweredScratch() { area_.end = saved_; }
    LoweredScratch(const LoweredScratch&) = delete;
    LoweredScratch& operator=(const LoweredScratch&) = delete;

private:
    ScratchArea& area_;
    uint64_t* saved_;
};

}  // namespace tallymere::testing_support
