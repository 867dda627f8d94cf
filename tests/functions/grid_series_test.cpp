#include "functions/grid_series.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "core/limb_tools.h"
#include "core/real_layout.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// sum + x on the grid, as the series sees it.
struct GridSum {
    SeriesOutcome outcome;
    std::string text;
    Limb guard;
};

GridSum Add(std::string_view sumText, std::string_view termText, int64_t steps = 2) {
    RealBuffer sum(sumText);
    const RealBuffer x(termText);
    CoreScratchScope scratch;
    GridTerm term = MakeGridTerm(scratch, x, sum);
    term.steps = steps;
    GridSum result = {};
    result.outcome = GridAdd(sum, &result.guard, term);
    // A doubtful sum is no number any more.
    result.text = result.outcome == SeriesOutcome::Doubtful ? "" : PlainText(sum);
    return result;
}

// At 20 digits the last of 1 is 10^-19, and the limb below it ends at 10^-38.
TEST(GridAdd, AddsTheDigitsThatReachTheSum) {
    PrecisionScope scope(20);
    const GridSum sum = Add("1", "1.2345678901234567891e-9");
    EXPECT_EQ(sum.outcome, SeriesOutcome::Added);
    EXPECT_EQ(sum.text, "1.0000000012345678901e0");
    EXPECT_EQ(sum.guard, 2345678910000000000u);
}

TEST(GridAdd, TruncatesADifference) {
    PrecisionScope scope(20);
    const GridSum sum = Add("2", "-1.2345678901234567891e-9");
    EXPECT_EQ(sum.outcome, SeriesOutcome::Added);
    EXPECT_EQ(sum.text, "1.9999999987654321098e0");
    EXPECT_EQ(sum.guard, 7654321090000000000u);
}

TEST(GridAdd, GoesAwayFromZeroForANegativeSum) {
    PrecisionScope scope(20);
    EXPECT_EQ(Add("-1", "-1.2345678901234567891e-9").text, "-1.0000000012345678901e0");
    EXPECT_EQ(Add("-2", "1.2345678901234567891e-9").text, "-1.9999999987654321098e0");
}

TEST(GridAdd, EndsWithTheTermOfWhichOneDigitCounts) {
    PrecisionScope scope(20);
    EXPECT_EQ(Add("1", "1.05e-18").outcome, SeriesOutcome::Added);
    EXPECT_EQ(Add("1", "9.95e-19").outcome, SeriesOutcome::Last);
    EXPECT_EQ(Add("1", "9.95e-20").outcome, SeriesOutcome::Last);
    EXPECT_EQ(Add("1", "9.95e-20").text, "1e0");
}

// Digits just above or just below a unit of the sum's last digit may be on its other side in the
// steps of p digits.
TEST(GridAdd, DoubtsWhatIsNextToAUnit) {
    PrecisionScope scope(20);
    EXPECT_EQ(Add("1", "1e-9").outcome, SeriesOutcome::Doubtful);
    EXPECT_EQ(Add("1", "1.0000000000000000001e-9").outcome, SeriesOutcome::Doubtful);
    EXPECT_EQ(Add("1", "5e-19").outcome, SeriesOutcome::Doubtful);
    EXPECT_EQ(Add("1", "5.00000000001e-19").outcome, SeriesOutcome::Last);
    EXPECT_EQ(Add("1", "5.9999999999999999999e-19").outcome, SeriesOutcome::Doubtful);
}

// The error of the steps of p digits is in proportion to the term and to their number: it is
// 20 steps / 10^gap of the sum's last digit.
TEST(GridAdd, DoubtsMoreAfterMoreSteps) {
    PrecisionScope scope(20);
    EXPECT_EQ(Add("1", "1.0000000000100000000e-8", 1).outcome, SeriesOutcome::Doubtful);
    EXPECT_EQ(Add("1", "1.0000000000000001000e-9", 4).outcome, SeriesOutcome::Added);
    EXPECT_EQ(Add("1", "1.0000000000100000010e-9", 4).outcome, SeriesOutcome::Added);
    EXPECT_EQ(Add("1", "1.0000000000100000010e-9", 40000000).outcome, SeriesOutcome::Doubtful);
}

// A term of the limbs given, the last of them below the sum.
GridTerm TermOf(ScratchScope& scratch, std::initializer_list<Limb> limbs) {
    GridTerm term = MakeGridTerm(scratch);
    EXPECT_EQ(static_cast<size_t>(term.length), limbs.size());
    std::copy(limbs.begin(), limbs.end(), term.limbs);
    term.lead = 0;
    while (term.limbs[term.lead] == 0) {
        term.lead++;
    }
    return term;
}

// By how many units of its last limb a term may be too small; more is in doubt.
constexpr Limb LargestTermError = 4096;

TEST(GridAdd, DoubtsWhatATermMayBeTooSmallBy) {
    PrecisionScope scope(57);
    const auto outcome = [](Limb below) {
        RealBuffer sum("1");
        CoreScratchScope scratch;
        Limb guard = 0;
        return GridAdd(sum, &guard, TermOf(scratch, {0, 5, 7, below}));
    };
    EXPECT_EQ(outcome(0), SeriesOutcome::Doubtful);
    EXPECT_EQ(outcome(LargestTermError), SeriesOutcome::Doubtful);
    EXPECT_EQ(outcome(LargestTermError + 1), SeriesOutcome::Added);
    EXPECT_EQ(outcome(LimbBase - LargestTermError - 1), SeriesOutcome::Added);
    EXPECT_EQ(outcome(LimbBase - LargestTermError), SeriesOutcome::Doubtful);
}

TEST(GridAdd, DoubtsATermNearToTheSumAndATermOfNothing) {
    PrecisionScope scope(20);
    EXPECT_EQ(Add("1", "1.2345678901234567891e-4").outcome, SeriesOutcome::Doubtful);
    EXPECT_EQ(Add("1", "1.2345678901234567891e-5").outcome, SeriesOutcome::Added);
    EXPECT_EQ(Add("1", "1e-60").outcome, SeriesOutcome::Doubtful);
}

TEST(GridAdd, DoubtsASumThatGainsOrLosesADigit) {
    for (int64_t p : {19, 20, 38}) {
        PrecisionScope scope(p);
        EXPECT_EQ(Add("9.9999999999", "1.2345678901234567e-9").outcome, SeriesOutcome::Doubtful);
        EXPECT_EQ(Add("1.0000000001", "-1.2345678901234567e-9").outcome, SeriesOutcome::Doubtful);
    }
}

bool CanHold(std::string_view sum, std::string_view power, std::string_view factor) {
    return GridCanHold(RealBuffer(sum), RealBuffer(power), RealBuffer(factor));
}

TEST(GridCanHold, WantsAFactorThatShrinksTheTermsFarBelowTheSum) {
    PrecisionScope scope(20);
    EXPECT_TRUE(CanHold("1", "1", "1e-6"));
    EXPECT_FALSE(CanHold("1", "1", "1e-5"));
    EXPECT_TRUE(CanHold("1", "9e-1", "1e-5"));
    EXPECT_TRUE(CanHold("1", "1e-9", "0.69"));
    EXPECT_FALSE(CanHold("1", "1e-9", "0.7"));
    EXPECT_FALSE(CanHold("1", "1e-9", "1"));
    EXPECT_FALSE(CanHold("1", "10", "1e-9"));
}

TEST(GridCanHold, RefusesSpecialValuesAndTheEndsOfTheRange) {
    PrecisionScope scope(20);
    for (const char* text :
         {"0", "-0", "inf", "nan", "1e4000000000000000000", "1e-4000000000000000000"}) {
        EXPECT_FALSE(CanHold(text, "1e-9", "1e-9")) << text;
        EXPECT_FALSE(CanHold("1", text, "1e-9")) << text;
        EXPECT_FALSE(CanHold("1", "1e-9", text)) << text;
    }
}

// The limbs of 0.0999... * 0.6999...^turns, both numbers with `nines` limbs behind the point.
std::vector<Limb> ProductOfNines(int64_t limbs, int64_t nines, int turns) {
    RealLayoutScope layout;
    InstallRealLayout(LayoutForDigits(DigitsPerLimb * limbs));
    RealBuffer x("9e-1");
    std::fill_n(x.Limbs(), nines, LimbBase - 1);
    CoreScratchScope scratch;
    GridTerm term = MakeGridTerm(scratch, x, RealBuffer("1"));
    x.Limbs()[0] = 7 * PowerOfTen(18) - 1;
    const GridFactor factor = MakeGridFactor(scratch, x);
    for (int turn = 0; turn < turns; turn++) {
        GridMultiply(term, factor);
    }
    EXPECT_EQ(term.steps, turns);
    return {term.limbs, term.limbs + term.length};
}

// Nines lose most, and in the longest layout more products lie below the last limb than in any
// other. Three limbs more show by how much.
TEST(GridMultiply, IsTooSmallByLessThanADoubt) {
    constexpr int64_t longest = 529;
    for (int turns : {1, 2, 40}) {
        const std::vector<Limb> product = ProductOfNines(longest, longest, turns);
        const std::vector<Limb> exact = ProductOfNines(longest + 3, longest, turns);
        std::vector<Limb> error(product.size());
        LimbsSubtract(error.data(), exact.data(), product.data(), longest + 1, 0);
        EXPECT_TRUE(LimbsAreZero(error.data(), longest));
        EXPECT_GE(error.back(), static_cast<Limb>(longest - 2));
        EXPECT_LT(error.back(), LargestTermError / 2);
    }
}

TEST(GridMultiply, HasTheSignOfTheProduct) {
    PrecisionScope scope(20);
    for (const char* text : {"0.25", "-0.25"}) {
        CoreScratchScope scratch;
        const RealBuffer one("1");
        const GridFactor factor = MakeGridFactor(scratch, RealBuffer(text));
        GridTerm positive = MakeGridTerm(scratch, RealBuffer("1e-9"), one);
        GridTerm negative = MakeGridTerm(scratch, RealBuffer("-1e-9"), one);
        GridMultiply(positive, factor);
        GridMultiply(negative, factor);
        EXPECT_EQ(positive.negative, factor.negative);
        EXPECT_EQ(negative.negative, !factor.negative);
    }
}

// The quotients are those of school division for every kind of divisor.
TEST(GridQuotient, DividesByEveryDivisor) {
    RandomSource random;
    for (int64_t p : {19, 57, 190}) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(2000); round++) {
            CoreScratchScope scratch;
            GridTerm term = MakeGridTerm(scratch);
            FillLimbs(random, term.limbs, term.length);
            term.lead = 0;
            uint64_t d = 1 + random.Below((uint64_t{1} << (1 + random.Below(30))) - 1);
            if (random.Below(4) == 0) {
                d = uint64_t{1} << random.Below(30);
            }
            GridTerm quotient = MakeGridTerm(scratch);
            GridQuotient(quotient, term, d);
            EXPECT_EQ(quotient.steps, term.steps + 1);
            uint64_t remainder = 0;
            for (int64_t i = 0; i < term.length; i++) {
                // remainder * 10^19 + limb = d * quotient + the next remainder.
                const Wide value = wide_portable::Add(wide_portable::Multiply(remainder, LimbBase),
                                                      {0, term.limbs[i]});
                const Wide back = wide_portable::Multiply(d, quotient.limbs[i]);
                const Wide rest = wide_portable::Subtract(value, back);
                ASSERT_EQ(rest.high, 0u);
                ASSERT_LT(rest.low, d);
                remainder = rest.low;
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
