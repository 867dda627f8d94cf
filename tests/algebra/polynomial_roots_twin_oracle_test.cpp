// The roots against those of the plain iteration, with PARI as the judge.
#include <gtest/gtest.h>

#include <algorithm>

#include "reference/polynomial_root_twins.h"
#include "support/equation_oracle.h"
#include "support/equation_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using Texts = std::vector<std::string>;

class PolynomialRootsTwin : public ::testing::Test {
protected:
    RandomSource random_;

private:
    ScratchStackOwner stack_;
};

// With zeros that have no sign, as ours.
Texts TwinRoots(const Texts& coefficients, int64_t digits, uint32_t flags) {
    Texts roots = RootsBy(reference::TwinSolvePolynomial, coefficients, digits, flags);
    for (std::string& root : roots) {
        const size_t space = root.find(' ');
        if (root.compare(space + 1, 2, "-0") == 0) {
            root.erase(space + 1, 1);
        }
        if (root.compare(0, 3, "-0 ") == 0) {
            root.erase(0, 1);
        }
    }
    return roots;
}

// Integers of one digit as coefficients.
Texts SmallPolynomial(RandomSource& random, int64_t degree, bool isComplex) {
    Texts coefficients;
    for (int64_t i = 0; i < degree; i++) {
        std::string text = std::to_string(random.Between(-9, 9));
        if (isComplex) {
            text += " " + std::to_string(random.Between(-9, 9));
        }
        coefficients.push_back(text);
    }
    coefficients.push_back(std::to_string(random.Between(1, 9)));
    return coefficients;
}

// Ours are always those of PARI. The twin has the same ones, unless it ends without an answer,
// drops a part below 0.1 that still moves, or leaves noise.
TEST_F(PolynomialRootsTwin, AreTheSameWhereTheTwinIsRight) {
    const int rounds = TestRounds(60);
    int64_t equal = 0;
    int64_t all = 0;
    for (int64_t degree = 1; degree <= MaxEquationDegree; degree++) {
        for (int i = 0; i < rounds; i++) {
            const Texts coefficients = SmallPolynomial(random_, degree, i % 3 == 0);
            const int64_t digits = random_.Between(5, 30);
            const Texts ours = RootsOf(coefficients, digits, KeepEqualRoots);
            Texts sorted = ours;
            std::sort(sorted.begin(), sorted.end());
            EXPECT_EQ(sorted, RootsByPari(PolynomialText(coefficients), digits, digits + 60))
                << ::testing::PrintToString(coefficients) << " at " << digits << " digits";
            equal += ours == TwinRoots(coefficients, digits, KeepEqualRoots) ? 1 : 0;
            all++;
        }
    }
    EXPECT_GT(equal, all * 3 / 4) << "of " << all;
}

// The same with all flags, for equations with simple real roots, which the twin finds.
TEST_F(PolynomialRootsTwin, AreMergedAndLeftOutAlike) {
    const Texts cubic{"6", "-5", "-2", "1"};
    const Texts quartic{"-4", "0", "3", "0", "1"};
    for (uint32_t flags = 0; flags < 4; flags++) {
        EXPECT_EQ(RootsOf(cubic, 10, flags), TwinRoots(cubic, 10, flags)) << flags;
        EXPECT_EQ(RootsOf(quartic, 10, flags), TwinRoots(quartic, 10, flags)) << flags;
    }
}

TEST_F(PolynomialRootsTwin, AreFoundWhereTheTwinGivesUp) {
    EXPECT_EQ(TwinRoots({"-1e40", "0", "1"}, 5, 0), Texts{"NotConverged"});
    EXPECT_EQ(RootsOf({"-1e40", "0", "1"}, 5), (Texts{"-1e20 0", "1e20 0"}));
    // Its second value for the first root is the start of the second one.
    EXPECT_EQ(TwinRoots({"-2", "0", "1"}, 10, 0), Texts{"CalcErrorOverflow"});
    EXPECT_EQ(RootsOf({"-2", "0", "1"}, 10), (Texts{"-1.414213562e0 0", "1.414213562e0 0"}));
}

}  // namespace
}  // namespace tallymere
