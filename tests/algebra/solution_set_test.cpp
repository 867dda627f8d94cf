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
    SolutionRoom room;
    Fill(room.Set(), {"2 1", "2 -1", "1 -3", "1 2", "5 0", "-7 0", "1 -2", "-9 -4", "5 -0", "0 0"});
    SortRoots(room.Set());
    EXPECT_EQ(room.Texts(),
              (Texts{"-7e0 0 [6]", "0 0 [10]", "5e0 0 [5]", "5e0 -0 [9]", "-9e0 -4e0 [8]",
                     "1e0 -2e0 [7]", "1e0 2e0 [4]", "1e0 -3e0 [3]", "2e0 -1e0 [2]", "2e0 1e0"}));
    EXPECT_EQ(room.Set().exactTexts[0][0], u'f');
    EXPECT_EQ(room.Set().exactTexts[9][0], u'a');
}

TEST(SolutionSet, MergesNeighboursThatAgreeToTheLastDigit) {
    const PrecisionScope scope(20);
    SolutionRoom room;
    Fill(room.Set(), {"1 0", "1 0", "1.0000000000000000001 0", "2 -1", "2 1", "2 1", "2 1"});
    room.Set().exactTexts[1][0] = u'a';
    room.Set().exactTexts[5][0] = u'e';
    room.Set().exactTexts[6][0] = u'e';
    MergeEqualRoots(room.Set());
    EXPECT_EQ(room.Texts(), (Texts{"1e0 0 [3]", "1.0000000000000000001e0 0 [3]", "2e0 -1e0 [4]",
                                   "2e0 1e0 [18]"}));
    EXPECT_EQ(room.Set().exactTexts[0][0], u'a');
    EXPECT_EQ(room.Set().exactTexts[3][0], u'e');
    // All pointers are still there.
    for (int64_t i = 0; i < MaxEquationDegree; i++) {
        for (int64_t j = 0; j < i; j++) {
            EXPECT_NE(room.Set().values[i], room.Set().values[j]);
            EXPECT_NE(room.Set().exactTexts[i], room.Set().exactTexts[j]);
        }
    }
}

TEST(SolutionSet, KeepsRootsApartWhoseTextsDiffer) {
    const PrecisionScope scope(20);
    SolutionRoom room;
    Fill(room.Set(), {"1 0", "1 0", "1 0", "1 0"});
    room.Set().exactTexts[2][0] = u'a';
    room.Set().exactTexts[3][0] = u'b';
    MergeEqualRoots(room.Set());
    EXPECT_EQ(room.Texts(), (Texts{"1e0 0 [4]", "1e0 0 [6]"}));
    EXPECT_EQ(room.Set().exactTexts[0][0], u'a');
    EXPECT_EQ(room.Set().exactTexts[1][0], u'b');
}

TEST(SolutionSet, DropsRootsThatAreNotReal) {
    const PrecisionScope scope(20);
    SolutionRoom room;
    Fill(room.Set(), {"1 0", "2 0", "1 1e-300", "2 1"});
    DropNonRealRoots(room.Set());
    EXPECT_EQ(room.Texts(), (Texts{"1e0 0", "2e0 0 [2]"}));
    Fill(room.Set(), {"1 1"});
    DropNonRealRoots(room.Set());
    EXPECT_EQ(room.Set().count, 0);
}

TEST(SolutionSet, MayBeEmptyOrFailed) {
    const PrecisionScope scope(20);
    SolutionRoom room;
    for (const int64_t count : {int64_t{-1}, int64_t{0}}) {
        room.Set().count = count;
        SortRoots(room.Set());
        MergeEqualRoots(room.Set());
        DropNonRealRoots(room.Set());
        EXPECT_EQ(room.Set().count, count);
        EXPECT_TRUE(SolutionSetIsWellFormed(room.Set()));
    }
    room.Set().count = 11;
    EXPECT_FALSE(SolutionSetIsWellFormed(room.Set()));
    Fill(room.Set(), {"1 0"});
    room.Set().multiplicities[0] = 0;
    EXPECT_FALSE(SolutionSetIsWellFormed(room.Set()));
}

}  // namespace
}  // namespace tallymere
