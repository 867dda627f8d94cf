#include "exact/lehmer_step.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/wide_arithmetic.h"
#include "exact/big_uint.h"
#include "exact/big_uint_gcd.h"
#include "reference/big_uint_division_twins.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

LeadingLimbs Leading(const UintBuffer& x) {
    const int64_t n = x.LimbCount();
    return {x.Get()[n - 1], x.Get()[n - 2], x.Get()[n - 3]};
}

// Two numbers x >= y of the full width whose quotients are small, or large, or follow no rule.
void FillPair(RandomSource& random, UintBuffer& x, UintBuffer& y) {
    FillUint(random, x);
    FillUint(random, y);
    if (random.Below(3) == 0) {
        // Next to each other but for a few low bits.
        y = x;
        y.Get()[random.Below(static_cast<uint64_t>(y.LimbCount()))] ^= random.Word();
    }
    if (BigUintCompare(x, y) < 0) {
        std::swap(x, y);
    }
}

TEST(LehmerStep, KeepsTheGreatestCommonDivisorAndMakesBothSmaller) {
    RandomSource random;
    int steps = 0;
    for (int64_t limbs : {3, 4, 9}) {
        WidthScope scope(limbs);
        for (int round = 0; round < TestRounds(1'000); round++) {
            UintBuffer x;
            UintBuffer y;
            FillPair(random, x, y);
            LehmerFactors factors;
            if (x.Get()[limbs - 1] == 0 || !FindLehmerFactors(factors, Leading(x), Leading(y))) {
                continue;
            }
            steps++;
            for (uint64_t factor : {factors.keepX, factors.takeY, factors.keepY, factors.takeX}) {
                ASSERT_EQ(factor >> 62, 0u);
            }
            const Wide determinant =
                wide_portable::Subtract(wide_portable::Multiply(factors.keepX, factors.keepY),
                                        wide_portable::Multiply(factors.takeX, factors.takeY));
            ASSERT_EQ(determinant.high, 0u);
            ASSERT_EQ(determinant.low, 1u);
            ASSERT_TRUE(LehmerFactorsAreWellFormed(factors));
            UintBuffer a = x;
            UintBuffer b = y;
            ApplyLehmerFactors(a, b, limbs, factors);
            ASSERT_FALSE(BigUintIsZero(a));
            ASSERT_FALSE(BigUintIsZero(b));
            ASSERT_EQ(BigUintCompare(a, b), factors.swaps ? -1 : 1);
            ASSERT_LE(BigUintCompare(factors.swaps ? b : a, y), 0);
            const auto twin = [](const UintBuffer& p, const UintBuffer& q) {
                return reference::TwinGcd(p.Limbs(), q.Limbs());
            };
            ASSERT_EQ(twin(a, b).limbs, twin(x, y).limbs) << x.Text() << " " << y.Text();
        }
    }
    EXPECT_GT(steps, TestRounds(1'000) / 4);
}

// The limbs that are not looked at must not matter: the factors hold for all zeros and all ones
// there.
TEST(LehmerStep, IsSureOfItsFactorsWhateverFollowsTheLeadingLimbs) {
    RandomSource random;
    WidthScope scope(5);
    for (int round = 0; round < TestRounds(20'000); round++) {
        UintBuffer x;
        UintBuffer y;
        FillPair(random, x, y);
        LehmerFactors factors;
        if (x.Get()[4] == 0 || !FindLehmerFactors(factors, Leading(x), Leading(y))) {
            continue;
        }
        for (uint64_t low : {uint64_t{0}, ~uint64_t{0}}) {
            UintBuffer a = x;
            UintBuffer b = y;
            for (int i = 0; i < 2; i++) {
                a.Get()[i] = low;
                b.Get()[i] = ~low;
            }
            ApplyLehmerFactors(a, b, 5, factors);
            // A negative result would have its highest bits set.
            ASSERT_EQ(BigUintCompare(a, b), factors.swaps ? -1 : 1) << x.Text() << " " << y.Text();
            ASSERT_LE(BigUintCompare(factors.swaps ? b : a, x), 0);
            ASSERT_FALSE(BigUintIsZero(factors.swaps ? a : b));
        }
    }
}

TEST(LehmerFactors, AreWellFormedWithADeterminantOf1AndOneBitToSpare) {
    EXPECT_TRUE(LehmerFactorsAreWellFormed({3, 2, 1, 1, true}));
    EXPECT_TRUE(LehmerFactorsAreWellFormed({1, 0, 1, 0, false}));
    EXPECT_FALSE(LehmerFactorsAreWellFormed({2, 3, 1, 1, false}));
    EXPECT_FALSE(LehmerFactorsAreWellFormed({3, 1, 1, 1, false}));
    const uint64_t tooLarge = uint64_t{1} << 63;
    EXPECT_TRUE(LehmerFactorsAreWellFormed({1, tooLarge - 1, 1, 0, false}));
    EXPECT_FALSE(LehmerFactorsAreWellFormed({1, tooLarge, 1, 0, false}));
    EXPECT_FALSE(LehmerFactorsAreWellFormed({1, 0, 1, tooLarge, false}));
    EXPECT_FALSE(LehmerFactorsAreWellFormed({tooLarge + 1, tooLarge, 1, 1, false}));
}

TEST(LehmerStep, FindsNoStepWhereTheLeadingLimbsTellNone) {
    LehmerFactors factors;
    const uint64_t high = uint64_t{1} << 63;
    // Equal; y two limbs shorter; a quotient above 2^32.
    EXPECT_FALSE(FindLehmerFactors(factors, {high, 5, 7}, {high, 5, 5}));
    EXPECT_FALSE(FindLehmerFactors(factors, {high, 5, 5}, {0, 0, ~uint64_t{0}}));
    EXPECT_FALSE(FindLehmerFactors(factors, {high, 5, 5}, {1u << 20, 5, 5}));
    // The remainder may be 0.
    EXPECT_FALSE(FindLehmerFactors(factors, {high, 0, 0}, {high / 2, 0, 0}));
    EXPECT_TRUE(FindLehmerFactors(factors, {high, 0, 0}, {high / 8 * 5, 0, 0}));
}

}  // namespace
}  // namespace tallymere
