// What the root finder takes of the ScratchStack at its longest: always within its bounds, and
// given back.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "core/scratch.h"
#include "support/equation_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Holds the most that was taken to the size of the area and to the bytes that docs/architecture.md
// names. Checked builds take more, for the gaps.
void Check(const char* name, int64_t words, int64_t expectedBytes, int64_t size) {
    const int64_t bytes = words * BytesPerWord;
    EXPECT_LT(bytes, size) << name;
    if (!CheckedScratch) {
        EXPECT_EQ(bytes, expectedBytes) << name;
    }
    std::printf("%-40s %8d bytes\n", name, static_cast<int>(bytes));
}

TEST(AlgebraMemory, StaysWithinItsBounds) {
    const ScratchStackOwner stack;
    const int64_t usual = coreScratch.highWaterWords;
    coreScratch.highWaterWords = 0;
    // x^10 - 2 (10^2000 x - 1)^2: two roots are nearer than the most digits show. With full
    // coefficients beside, they are looked at with all digits.
    const std::string full = "0." + std::string(9'999, '7');
    const std::vector<std::string> coefficients{
        "-2", "4e2000", "-2e4000", "0", "0", "0", "0", "0", "0", full + " " + full, "1"};
    EXPECT_EQ(RootsOf(coefficients, 750).size(), 9u);
    Check("ScratchStack: SolvePolynomial", CurrentScratchStack().highWaterWords, 310'688,
          ScratchStackBytes);
    Check("CoreScratch: SolvePolynomial", coreScratch.highWaterWords, 42'224, CoreScratchBytes);
    coreScratch.highWaterWords = std::max(usual, coreScratch.highWaterWords);
}

}  // namespace
}  // namespace tallymere
