#include "algebra/solution_set.h"

#include <gtest/gtest.h>

#include "support/equation_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using Texts = std::vector<std::string>;

// Entries with these values, each with a text and a multiplicity that name it.
void Fill(SolutionSet& solutions, const Texts& values) {
    solutions.count = static_cast<int64_t>(values.size());
    for (int64_t i = 0; i < solutions.count; i++) {
        ComplexCopy(solutions.values[i], ComplexBuffer(values[static_cast<size_t>(i)]));
        solutions.exactTexts[i][0] = static_cast<char16_t>(u'a' + i);
        solutions.exactTexts[i][1] = 0;
        solutions.multiplicities[i] = i + 1;
    }
}

TEST(SolutionSet, SortsByRealityAndParts) {
    const PrecisionScope scope(20);
    SolutionBuffer solutions;
    Fill(solutions.Set(),
         {"2 1", "2 -1", "1 -3", "1 2", "5 0", "-7 0", "1 -2", "-9 -4", "5 -0", "0 0"});
    SortRoots(solutions.Set());
    EXPECT_EQ(solutions.Texts(),
              (Texts{"-7e0 0 [6]", "0 0 [10]", "5e0 0 [5]", "5e0 -0 [9]", "-9e0 -4e0 [8]",
                     "1e0 -2e0 [7]", "1e0 2e0 [4]", "1e0 -3e0 [3]", "2e0 -1e0 [2]", "2e0 1e0"}));
    EXPECT_EQ(solutions.Set().exactTexts[0][0], u'f');
    EXPECT_EQ(solutions.Set().exactTexts[9][0], u'a');
}

TEST(SolutionSet, MergesNeighboursThatAgreeToTheLastDigit) {
    const PrecisionScope scope(20);
    SolutionBuffer solutions;
    Fill(solutions.Set(), {"1 0", "1 0", "1.0000000000000000001 0", "2 -1", "2 1", "2 1", "2 1"});
    solutions.Set().exactTexts[1][0] = u'a';
    solutions.Set().exactTexts[5][0] = u'e';
    solutions.Set().exactTexts[6][0] = u'e';
    MergeEqualRoots(solutions.Set());
    EXPECT_EQ(solutions.Texts(), (Texts{"1e0 0 [3]", "1.0000000000000000001e0 0 [3]",
                                        "2e0 -1e0 [4]", "2e0 1e0 [18]"}));
    EXPECT_EQ(solutions.Set().exactTexts[0][0], u'a');
    EXPECT_EQ(solutions.Set().exactTexts[3][0], u'e');
    // All pointers are still there.
    for (int64_t i = 0; i < MaxEquationDegree; i++) {
        for (int64_t j = 0; j < i; j++) {
            EXPECT_NE(solutions.Set().values[i], solutions.Set().values[j]);
            EXPECT_NE(solutions.Set().exactTexts[i], solutions.Set().exactTexts[j]);
        }
    }
}

TEST(SolutionSet, KeepsRootsApartWhoseTextsDiffer) {
    const PrecisionScope scope(20);
    SolutionBuffer solutions;
    Fill(solutions.Set(), {"1 0", "1 0", "1 0", "1 0"});
    solutions.Set().exactTexts[2][0] = u'a';
    solutions.Set().exactTexts[3][0] = u'b';
    MergeEqualRoots(solutions.Set());
    EXPECT_EQ(solutions.Texts(), (Texts{"1e0 0 [4]", "1e0 0 [6]"}));
    EXPECT_EQ(solutions.Set().exactTexts[0][0], u'a');
    EXPECT_EQ(solutions.Set().exactTexts[1][0], u'b');
}

TEST(SolutionSet, DropsRootsThatAreNotReal) {
    const PrecisionScope scope(20);
    SolutionBuffer solutions;
    Fill(solutions.Set(), {"1 0", "2 0", "1 1e-300", "2 1"});
    DropNonRealRoots(solutions.Set());
    EXPECT_EQ(solutions.Texts(), (Texts{"1e0 0", "2e0 0 [2]"}));
    Fill(solutions.Set(), {"1 1"});
    DropNonRealRoots(solutions.Set());
    EXPECT_EQ(solutions.Set().count, 0);
}

TEST(SolutionSet, MayBeEmptyOrFailed) {
    const PrecisionScope scope(20);
    SolutionBuffer solutions;
    for (const int64_t count : {int64_t{-1}, int64_t{0}}) {
        solutions.Set().count = count;
        SortRoots(solutions.Set());
        MergeEqualRoots(solutions.Set());
        DropNonRealRoots(solutions.Set());
        EXPECT_EQ(solutions.Set().count, count);
        EXPECT_TRUE(SolutionSetIsWellFormed(solutions.Set()));
    }
    solutions.Set().count = 11;
    EXPECT_FALSE(SolutionSetIsWellFormed(solutions.Set()));
    Fill(solutions.Set(), {"1 0"});
    solutions.Set().multiplicities[0] = 0;
    EXPECT_FALSE(SolutionSetIsWellFormed(solutions.Set()));
}

}  // namespace
}  // namespace tallymere
