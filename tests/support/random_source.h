// Random numbers for tests: the same on every platform, with a seed that a failure names.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

namespace tallymere::testing_support {

/// A test's random numbers, from TestSeed. While it lives every failure message names the seed.
class RandomSource {
public:
    RandomSource();

    uint64_t Word() { return engine_(); }

    /// 0 to bound - 1, for bound >= 1; near enough to uniform for a test.
    uint64_t Below(uint64_t bound) { return engine_() % bound; }

    /// low to high, both included.
    int64_t Between(int64_t low, int64_t high) {
        return low + static_cast<int64_t>(Below(static_cast<uint64_t>(high - low) + 1));
    }

private:
    uint64_t seed_;
    std::mt19937_64 engine_;
    ::testing::ScopedTrace trace_;
};

/// The rounds of a random test: `optimised`, or a fifth of it (at least 1) under a sanitizer.
int TestRounds(int optimised);

}  // namespace tallymere::testing_support
