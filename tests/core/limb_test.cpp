#include "core/limb.h"

#include <gtest/gtest.h>

#include <string>

#include "reference/limb_twins.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;
using reference::TenTo;

TEST(LimbTables, PowersOfTenFollowTheirRule) {
    for (int k = 0; k <= 19; k++) {
        EXPECT_EQ(PowerOfTen(k), TenTo(k));
    }
    EXPECT_EQ(LimbBase, 0x8AC7230489E80000u);
    EXPECT_EQ(HalfGuard, TenTo(18) * 5);
}

TEST(LimbTables, DivisionReciprocalsFollowTheirRule) {
    uint64_t d = 1;
    for (size_t k = 1; k <= 19; k++) {
        SCOPED_TRACE(k);
        d *= 5;
        const auto entry = limb_tables::DivisionReciprocals[k];
        // r = floor(2^(64+s) / d) + 1: (r - 1) * d <= 2^(64+s) < r * d. It is exact for dividends
        // below 2^(64-k) if r * d - 2^(64+s) <= 2^(s+k).
        const Wide power = {uint64_t{1} << entry.shift, 0};
        const Wide above = wide_portable::Multiply(entry.reciprocal, d);
        ASSERT_FALSE(AtLeast(power, above));
        const Wide excess = wide_portable::Subtract(above, power);
        EXPECT_TRUE(AtLeast({0, d}, excess));
        EXPECT_EQ(excess.high, 0u);
        EXPECT_LE(excess.low, uint64_t{1} << (entry.shift + static_cast<int>(k)));
    }
}

TEST(DigitCount, CountsAtEveryPowerOfTwoAndOfTen) {
    EXPECT_EQ(DigitCount(0), 0);
    for (int b = 0; b < 64; b++) {
        for (uint64_t v : {uint64_t{1} << b, (uint64_t{2} << b) - 1}) {
            EXPECT_EQ(DigitCount(v), static_cast<int64_t>(std::to_string(v).size())) << v;
        }
    }
    for (int k = 0; k <= 19; k++) {
        EXPECT_EQ(DigitCount(TenTo(k)), k + 1);
        EXPECT_EQ(DigitCount(TenTo(k) - 1), k);
    }
}

TEST(DivideByPowerOfTen, IsExactForEveryWord) {
    RandomSource random;
    for (int k = 0; k <= 19; k++) {
        const uint64_t d = TenTo(k);
        for (int round = 0; round < TestRounds(20000); round++) {
            uint64_t v = random.Word() >> random.Below(64);
            if (round % 4 == 0) {  // A multiple of 10^k and its neighbours.
                v = v / d * d + random.Below(3) - 1;
            }
            const LimbQuotient parts = DivideByPowerOfTen(v, k);
            ASSERT_EQ(parts.quotient, v / d) << v;
            ASSERT_EQ(parts.remainder, v % d) << v;
        }
        const LimbQuotient most = DivideByPowerOfTen(~uint64_t{0}, k);
        EXPECT_EQ(most.quotient, ~uint64_t{0} / d);
        EXPECT_EQ(most.remainder, ~uint64_t{0} % d);
    }
}

// quotient * LimbBase + remainder is x * y + c + w, and the remainder is a limb.
void ExpectStep(uint64_t x, uint64_t y, uint64_t c, uint64_t w) {
    const LimbQuotient step = LimbStep(x, y, c, w);
    ASSERT_LT(step.remainder, LimbBase);
    const Wide back =
        wide_portable::Add(wide_portable::Multiply(step.quotient, LimbBase), {0, step.remainder});
    const Wide value =
        wide_portable::Add(wide_portable::Add(wide_portable::Multiply(x, y), {0, c}), {0, w});
    ASSERT_EQ(back.high, value.high) << x << " * " << y << " + " << c << " + " << w;
    ASSERT_EQ(back.low, value.low) << x << " * " << y << " + " << c << " + " << w;
}

TEST(LimbStep, SplitsEveryProductOfLimbsWithCarries) {
    RandomSource random;
    constexpr uint64_t extremes[] = {0, 1, LimbBase / 2, LimbBase - 2, LimbBase - 1};
    for (uint64_t x : extremes) {
        for (uint64_t y : extremes) {
            for (uint64_t c : extremes) {
                for (uint64_t w : extremes) {
                    ExpectStep(x, y, c, w);
                }
            }
        }
    }
    for (int round = 0; round < TestRounds(300000); round++) {
        const auto limb = [&] {
            return random.Below(4) == 0 ? LimbBase - 1 - random.Below(3) : random.Below(LimbBase);
        };
        ExpectStep(limb(), limb(), limb(), limb());
        // One factor may be any word.
        ExpectStep(limb(), ~random.Below(1000), limb(), 0);
        // Values just below, at and above a multiple of the base.
        ExpectStep(LimbBase - 1, random.Word(), limb(), random.Below(3));
    }
}

TEST(DivideByWord, IsExactAroundEveryMultiple) {
    RandomSource random;
    for (int round = 0; round < TestRounds(300000); round++) {
        const uint64_t top = uint64_t{1} << 63;
        const uint64_t d = random.Below(4) == 0   ? top + random.Below(3)
                           : random.Below(3) == 0 ? ~random.Below(3)
                                                  : random.Word() | top;
        const uint64_t quotient = random.Below(5) == 0 ? ~random.Below(3) : random.Word();
        const uint64_t remainder = random.Below(2) == 0
                                       ? random.Below(d)
                                       : (random.Below(2) == 0 ? random.Below(3) : d - 1);
        const Wide value = wide_portable::Add(wide_portable::Multiply(quotient, d), {0, remainder});
        const LimbQuotient parts = DivideByWord(value, d, WordReciprocal(d));
        ASSERT_EQ(parts.quotient, quotient) << d;
        ASSERT_EQ(parts.remainder, remainder) << d;
    }
}

TEST(DivideByLimbBase, IsExactAroundEveryMultiple) {
    RandomSource random;
    for (int round = 0; round < TestRounds(300000); round++) {
        const uint64_t quotient = random.Below(5) == 0 ? ~random.Below(3) : random.Word();
        const uint64_t remainder = random.Below(2) == 0
                                       ? random.Below(LimbBase)
                                       : (random.Below(2) == 0 ? random.Below(3) : LimbBase - 1);
        const Wide value =
            wide_portable::Add(wide_portable::Multiply(quotient, LimbBase), {0, remainder});
        ASSERT_LT(value.high, LimbBase);
        const LimbQuotient parts = DivideByLimbBase(value);
        ASSERT_EQ(parts.quotient, quotient);
        ASSERT_EQ(parts.remainder, remainder);
    }
}

TEST(AddAndSubtractLimbs, CarryAndBorrowAtTheBase) {
    RandomSource random;
    for (int round = 0; round < TestRounds(200000); round++) {
        const auto limb = [&] {
            return random.Below(3) == 0   ? LimbBase - 1 - random.Below(2)
                   : random.Below(3) == 0 ? random.Below(2)
                                          : random.Below(LimbBase);
        };
        const Limb a = limb();
        const Limb b = random.Below(4) == 0 ? LimbBase - 1 - a : limb();
        for (Limb incoming : {0, 1}) {
            Limb carry = incoming;
            const Limb sum = AddLimbs(a, b, carry);
            ASSERT_LT(sum, LimbBase);
            ASSERT_LE(carry, 1u);
            // Modulo 2^64 both sides agree, and with both below 2 * LimbBase so do the values.
            ASSERT_EQ(sum + (carry != 0 ? LimbBase : 0), a + b + incoming);
            ASSERT_EQ(carry != 0, a >= LimbBase - b || a + b + incoming == LimbBase);
            Limb borrow = incoming;
            const Limb difference = SubtractLimbs(a, b, borrow);
            ASSERT_LT(difference, LimbBase);
            ASSERT_EQ(difference - (borrow != 0 ? LimbBase : 0), a - b - incoming);
            ASSERT_EQ(borrow != 0, a < b || (a == b && incoming != 0));
        }
    }
}

}  // namespace
}  // namespace tallymere
