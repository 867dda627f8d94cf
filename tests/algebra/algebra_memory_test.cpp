// What the root finder takes of the ScratchStack at its longest: always within its bounds, and
// given back.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/equation_testing.h"
#include "support/memory_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(AlgebraMemory, StaysWithinItsBounds) {
    const ScratchStackOwner stack;
    const CoreScratchCount count;
    // x^10 - 2 (10^2000 x - 1)^2: two roots are nearer than the most digits show. With full
    // coefficients beside, they are looked at with all digits.
    const std::string full = "0." + std::string(9'999, '7');
    const std::vector<std::string> coefficients{
        "-2", "4e2000", "-2e4000", "0", "0", "0", "0", "0", "0", full + " " + full, "1"};
    EXPECT_EQ(RootsOf(coefficients, 750).size(), 9u);
    ExpectMostOfScratchStack("SolvePolynomial", 310'688);
    ExpectMostOfCoreScratch("SolvePolynomial", 78'680);
}

}  // namespace
}  // namespace tallymere
