// The series on the grid of their sum against their plain twins: the same limbs for every argument.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "functions/roots.h"
#include "functions/series.h"
#include "reference/series_twins.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

struct Layout {
    int64_t digits;
    int rounds;
};

// Every limb count from 1 to 40 with every t, and samples up to the longest.
std::vector<Layout> Layouts() {
    std::vector<Layout> layouts;
    for (int64_t p = 1; p <= 760; p += p < 120 ? 1 : 7) {
        layouts.push_back({p, TestRounds(p < 120 ? 50 : 5)});
    }
    for (int64_t p : {1000, 1007, 2000}) {
        layouts.push_back({p, 1});
    }
    return layouts;
}

// An argument with a magnitude from 10^lowest to less than 10^(highest + 1), mostly near the upper
// end. Some have few digits, so that terms end in zeros, and some are all nines.
void FillArgument(RandomSource& random, RealNumber* x, int64_t lowest, int64_t highest) {
    FillReal(random, x, 1);
    const int64_t low = random.Below(4) == 0 ? lowest : highest - 2;
    x->header = MakeHeader(random.Between(low, highest), RealSign(x));
}

// Every series of x against its twin.
void ExpectTwins(const RealBuffer& x) {
    SCOPED_TRACE(PlainText(x));
    RealBuffer actual;
    RealBuffer expected;
    SeriesExp(actual, x);
    reference::SeriesExp(expected, x);
    ASSERT_EQ(actual, expected) << "exp";
    EXPECT_EQ(SeriesAtanh(actual, x), reference::SeriesAtanh(expected, x));
    ASSERT_EQ(actual, expected) << "artanh";
    SeriesAtan(actual, x);
    reference::SeriesAtan(expected, x);
    ASSERT_EQ(actual, expected) << "arctan";
    SeriesSin(actual, x);
    reference::SeriesSin(expected, x);
    ASSERT_EQ(actual, expected) << "sin";
    SeriesCos(actual, x);
    reference::SeriesCos(expected, x);
    ASSERT_EQ(actual, expected) << "cos";
    SeriesSinh(actual, x);
    reference::SeriesSinh(expected, x);
    ASSERT_EQ(actual, expected) << "sinh";
    RealBuffer otherActual;
    RealBuffer otherExpected;
    SeriesSinCos(actual, otherActual, x);
    reference::SeriesSinCos(expected, otherExpected, x);
    ASSERT_EQ(actual, expected) << "sin of the pair";
    ASSERT_EQ(otherActual, otherExpected) << "cos of the pair";
    SeriesSinhCosh(actual, otherActual, x);
    reference::SeriesSinhCosh(expected, otherExpected, x);
    ASSERT_EQ(actual, expected) << "sinh of the pair";
    ASSERT_EQ(otherActual, otherExpected) << "cosh of the pair";
}

TEST(SeriesTwins, HaveTheSameLimbsForReducedArguments) {
    RandomSource random;
    for (const Layout& layout : Layouts()) {
        PrecisionScope scope(layout.digits);
        for (int round = 0; round < layout.rounds; round++) {
            RealBuffer x;
            FillArgument(random, x, -layout.digits - 3, -3);
            ASSERT_NO_FATAL_FAILURE(ExpectTwins(x));
        }
    }
}

TEST(SeriesTwins, HaveTheSameLimbsInTheLongestLayout) {
    RandomSource random;
    RealLayoutScope layout;
    InstallRealLayout(LayoutForDigits(MaxPrecisionDigits + MaxGuardDigits));
    RealBuffer x;
    FillArgument(random, x, -6, -3);
    ASSERT_NO_FATAL_FAILURE(ExpectTwins(x));
}

// Up to 0.7, beyond which the series of artanh gets very long.
TEST(SeriesTwins, HaveTheSameLimbsForLargeArguments) {
    RandomSource random;
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(40); round++) {
            RealBuffer x;
            FillReal(random, x, 1);
            const bool below = RealLeadingDigits(x.Limbs(), 1) < 7;
            x.Get()->header = MakeHeader(below ? -1 : -2, RealSign(x));
            ASSERT_NO_FATAL_FAILURE(ExpectTwins(x));
        }
    }
}

// x for which x^n / d is a number that ends on the last digit of 1, as nearly as x can: the terms
// of the plain steps then lie on either side of that digit.
RealBuffer ArgumentOfTerm(RandomSource& random, int64_t n, uint64_t d) {
    const int64_t p = numberContext.precisionDigits;
    const int64_t digits = random.Between(1, std::max<int64_t>(p - 5, 1));
    RealBuffer x;
    FillReal(random, x, 0);
    RealSetSign(x, 0);
    RealRoundDigits(x, x, digits);
    RealSetExponent(x, digits - p);
    RealMulUint(x, x, d);
    RealRootInt(x, n, x);
    return x;
}

TEST(SeriesTwins, HaveTheSameLimbsForTermsThatEndOnADigitOfTheSum) {
    struct Term {
        int64_t n;
        uint64_t d;
    };
    RandomSource random;
    for (int64_t p = 6; p <= 120; p++) {
        PrecisionScope scope(p);
        for (const Term term : {Term{2, 2}, Term{2, 6}, Term{2, 3}, Term{3, 6}, Term{4, 24},
                                Term{4, 120}, Term{4, 5}, Term{6, 720}, Term{6, 7}, Term{8, 9}}) {
            for (int round = 0; round < TestRounds(5); round++) {
                RealBuffer x = ArgumentOfTerm(random, term.n, term.d);
                if (RealExponent(x) > -2) {
                    continue;
                }
                ASSERT_NO_FATAL_FAILURE(ExpectTwins(x));
                Limb& last = x.Limbs()[x.LimbCount() - 1];
                if (last < PowerOfTen(numberContext.topLimbDigits) - 1) {
                    last++;
                    ASSERT_NO_FATAL_FAILURE(ExpectTwins(x));
                }
            }
        }
    }
}

// Powers of few digits leave nothing below the digits of a term, which is as doubtful as it gets.
TEST(SeriesTwins, AgreeWhereTermsAreExact) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* text : {"1e-3", "-1e-4", "1e-5", "-1e-9", "2e-6", "5e-7", "0", "-0"}) {
            ASSERT_NO_FATAL_FAILURE(ExpectTwins(RealBuffer(text)));
        }
    }
}

// A sum that carries into its leading digit moves on its grid.
TEST(SeriesTwins, AgreeWhereTheSumGainsOrLosesADigit) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        RealBuffer x("9e-3");
        for (int64_t i = 0; i < x.LimbCount(); i++) {
            x.Limbs()[i] = LimbBase - 1;
        }
        x.Limbs()[0] = PowerOfTen(numberContext.topLimbDigits) - 1;
        for (uint64_t sign : {0u, 1u}) {
            RealSetSign(x, sign);
            ASSERT_NO_FATAL_FAILURE(ExpectTwins(x));
        }
    }
}

TEST(SeriesTwins, AgreeAtTheEndsOfTheExponentRange) {
    for (int64_t p : {9, 20, 57}) {
        PrecisionScope scope(p);
        for (const char* text : {"1e-4611686018427387903", "7.25e-2305843009213693951",
                                 "7.25e-2305843009213693952", "-3e-1152921504606846976"}) {
            ASSERT_NO_FATAL_FAILURE(ExpectTwins(RealBuffer(text)));
        }
    }
}

}  // namespace
}  // namespace tallymere
