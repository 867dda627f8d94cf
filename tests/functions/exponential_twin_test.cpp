// Exponential and logarithm against their plain twins: the same limbs for every argument.
#include <gtest/gtest.h>

#include "core/real_integer.h"
#include "functions/logarithm.h"
#include "functions/reduction_tables.h"
#include "reference/exponential_twins.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

void ExpectExpTwins(const RealBuffer& x) {
    for (const ExpMode mode : {ExpOfTen, ExpOfE, ExpOfTwo}) {
        RealBuffer actual;
        RealBuffer expected;
        RealExpBase(actual, x, mode);
        reference::TwinExp(expected, x, mode);
        ASSERT_EQ(actual, expected) << PlainText(x) << " in mode " << mode;
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

void ExpectLnTwin(const RealBuffer& x) {
    RealBuffer actual;
    RealBuffer expected;
    RealLn(actual, x);
    reference::TwinLn(expected, x);
    ASSERT_EQ(actual, expected) << PlainText(x);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

// A number with these nine leading digits and a tail that random rounding cannot cross.
RealBuffer WithLeadingDigits(uint64_t digits, int64_t exponent, uint64_t tail) {
    RealBuffer x;
    RealSetLeading(x.Limbs(), digits * PowerOfTen(10) + tail);
    for (int64_t i = 1; i < x.LimbCount(); i++) {
        x.Limbs()[i] = 0;
    }
    x.Get()->header = MakeHeader(exponent, 0);
    return x;
}

TEST(ExponentialTwins, HaveTheSameLimbs) {
    RandomSource random;
    for (int64_t p :
         {1, 2, 3, 5, 8, 9, 10, 13, 18, 19, 20, 25, 37, 38, 39, 57, 58, 100, 190, 400}) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(p < 100 ? 200 : 20); round++) {
            RealBuffer x;
            FillReal(random, x, 0);
            x.Get()->header = MakeHeader(random.Between(-7, 4), RealSign(x));
            ASSERT_NO_FATAL_FAILURE(ExpectExpTwins(x));
            x.Get()->header = MakeHeader(random.Between(-4, 3), 0);
            ASSERT_NO_FATAL_FAILURE(ExpectLnTwin(x));
        }
    }
}

// The digits next below a threshold, those of it, with whatever follows, and those next above.
template <typename Check>
void OnBothSides(uint64_t digits, int64_t exponent, Check check) {
    for (uint64_t step : {0, 1, 2}) {
        for (uint64_t tail : {uint64_t{0}, uint64_t{1'234'567}, PowerOfTen(10) - 1'000}) {
            ASSERT_NO_FATAL_FAILURE(check(WithLeadingDigits(digits + step - 1, exponent, tail)));
        }
    }
}

TEST(ExponentialTwins, TakeTheSameStepsOnBothSidesOfEveryThreshold) {
    for (int64_t p : {9, 12, 19, 20, 30, 57}) {
        PrecisionScope scope(p);
        for (const ExpReductionTable& table : ExpReductionTables) {
            for (int64_t k = 0; k < table.thresholdCount; k++) {
                for (uint64_t sign : {0, 1}) {
                    OnBothSides(table.thresholds[k].digits, table.thresholds[k].exponent,
                                [sign](RealBuffer x) {
                                    RealSetSign(x, sign);
                                    ExpectExpTwins(x);
                                });
                }
            }
        }
        for (const LnReductionTable& table : LnReductionTables) {
            for (int64_t k = 1; k < table.entryCount; k++) {
                OnBothSides(table.upper[k], 0, ExpectLnTwin);
                OnBothSides(table.lower[k], -1, ExpectLnTwin);
            }
        }
        // The square root of ten.
        OnBothSides(316'227'766, 0, ExpectLnTwin);
    }
}

}  // namespace
}  // namespace tallymere
