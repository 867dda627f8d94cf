// What the runs of the prime pages take of the ScratchStack and of CoreScratch at their largest
// input: always within bounds, and given back.
#include <algorithm>
#include <cstdio>
#include <functional>

#include "factor_run_testing.h"
#include "prime_run_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The figures stand in the log of the run and in docs/architecture.md.
void Measure(const char* name, int64_t mostOfStack, const std::function<RunResult()>& run) {
    ScratchArea& stack = CurrentScratchStack();
    const int64_t usual = coreScratch.highWaterWords;
    stack.highWaterWords = 0;
    coreScratch.highWaterWords = 0;
    EXPECT_EQ(run().error, UiErrorNone) << name;
    const int64_t ofStack = stack.highWaterWords * BytesPerWord;
    const int64_t ofCore = coreScratch.highWaterWords * BytesPerWord;
    EXPECT_LE(ofStack, mostOfStack) << name;
    EXPECT_LT(ofCore, CoreScratchBytes) << name;
    std::printf("%-40s ScratchStack %8d bytes, CoreScratch %6d bytes\n", name,
                static_cast<int>(ofStack), static_cast<int>(ofCore));
    coreScratch.highWaterWords = std::max(usual, coreScratch.highWaterWords);
}

class PrimeRunMemory : public PrimeRunTest {};

TEST_F(PrimeRunMemory, StaysWithinItsBounds) {
    const uint32_t flags = PrimePrintFlags(10, true);
    Measure("exact interval", 1'200'000,
            [&] { return Interval("1000000000000000000", 1'000'000, ExactMethod, flags); });
    Measure("probabilistic interval", 100'000,
            [&] { return Interval("1000000000000", 600'000, ProbabilisticMethod, flags); });
    Measure("probabilistic test, longest number", 10'000,
            [&] { return Run(ProbabilisticMethod, TestMode, "2^4160-1", OtherModes, flags); });
}

class FactorRunMemory : public FactorRunTest {};

TEST_F(FactorRunMemory, StaysWithinItsBounds) {
    const uint32_t flags = PrimePrintFlags(10, true);
    Measure("prime factors", 10'000, [&] { return Run(Factors, "2^128-200", 20, flags); });
    Measure("16,384 divisors", 10'000,
            [&] { return Run(Divisors, "13082761331670030", 1, flags); });
}

}  // namespace
}  // namespace tallymere
