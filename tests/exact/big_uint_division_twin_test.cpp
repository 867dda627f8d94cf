// Quotients, greatest common divisors and modular powers against their plain twins.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_gcd.h"
#include "exact/big_uint_mod_power.h"
#include "reference/big_uint_division_twins.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using reference::TwinLimbs;

constexpr int64_t MostSmallWidth = 40;

// A divisor of so many limbs, or fewer, whose leading limbs are often those that make an estimate
// worst.
void FillDivisor(RandomSource& random, UintBuffer& b, int64_t limbs) {
    FillUint(random, b, limbs);
    if (limbs == 0) {
        return;
    }
    uint64_t* top = b.Get() + limbs - 1;
    switch (random.Below(8)) {
        case 0:
            *top = uint64_t{1} << 63;
            break;
        case 1:
            *top = ~uint64_t{0};
            break;
        case 2:
            *top = 1;
            break;
        case 3:
            *top = uint64_t{1} << 63;
            std::fill_n(b.Get(), limbs - 1, random.Below(2) == 0 ? ~uint64_t{0} : 0);
            break;
        default:
            break;
    }
}

// quotient * b plus a remainder at one of its ends or between, for a quotient that fits; with it
// the quotient limbs are often 0 or all ones.
void FillMultiple(RandomSource& random, UintBuffer& a, const UintBuffer& b) {
    const int64_t width = numberContext.uintLimbs;
    UintBuffer quotient;
    FillUint(random, quotient, random.Between(0, width - BigUintLength(b)));
    const TwinLimbs product = reference::TwinMulFull(quotient.Limbs(), b.Limbs());
    std::copy_n(product.begin(), width, a.Get());
    switch (random.Below(4)) {
        case 0:
            break;
        case 1:
            BigUintAddSmall(a, a, random.Below(2));
            break;
        case 2: {
            UintBuffer rest;
            BigUintSubOne(rest, b);
            BigUintAdd(a, a, rest);
            break;
        }
        default:
            BigUintSub(a, a, UintBuffer("1"));
            break;
    }
    // What overflowed is 0, which is an operand too.
    TakeCode();
}

void ExpectTwinQuotients(const UintBuffer& a, const UintBuffer& b) {
    const reference::TwinQuotient expected = reference::TwinDivide(a.Limbs(), b.Limbs());
    UintBuffer quotient;
    UintBuffer remainder;
    BigUintDivide(quotient, remainder, a, b);
    ASSERT_EQ(TakeCode(), expected.code);
    ASSERT_EQ(quotient.Limbs(), expected.quotient) << a.Text() << " / " << b.Text();
    ASSERT_EQ(remainder.Limbs(), expected.remainder) << a.Text() << " / " << b.Text();
}

void ExpectTwinQuotientsAt(RandomSource& random, int64_t width, int rounds) {
    WidthScope scope(width);
    for (int round = 0; round < rounds; round++) {
        UintBuffer a;
        UintBuffer b;
        FillDivisor(random, b, random.Between(0, width));
        if (random.Below(2) == 0) {
            FillMultiple(random, a, b);
        } else {
            FillUint(random, a);
        }
        ASSERT_NO_FATAL_FAILURE(ExpectTwinQuotients(a, b));
    }
}

TEST(BigUintDivisionTwins, HaveTheSameQuotientsAtEveryWidth) {
    RandomSource random;
    for (int64_t width = 1; width <= MostSmallWidth; width++) {
        ASSERT_NO_FATAL_FAILURE(ExpectTwinQuotientsAt(random, width, TestRounds(400)));
    }
}

TEST(BigUintDivisionTwins, HaveTheSameQuotientsAtLargeWidths) {
    RandomSource random;
    for (int64_t width : {65, 130, 520, 1039, 1040, 2078}) {
        ASSERT_NO_FATAL_FAILURE(ExpectTwinQuotientsAt(random, width, TestRounds(20)));
    }
}

TEST(BigUintDivisionTwins, HaveTheSameQuotientsByAWord) {
    RandomSource random;
    for (int64_t width = 1; width <= MostSmallWidth; width++) {
        WidthScope scope(width);
        for (int round = 0; round < TestRounds(500); round++) {
            UintBuffer a;
            FillUint(random, a);
            UintBuffer divisor;
            FillDivisor(random, divisor, 1);
            uint64_t d = divisor.Get()[0];
            if (random.Below(3) == 0) {
                d = random.Below(2'010);
            }
            const reference::TwinSmallQuotient expected = reference::TwinDivideSmall(a.Limbs(), d);
            UintBuffer quotient;
            uint64_t remainder = 0;
            BigUintDivideSmall(quotient, &remainder, a, d,
                               random.Below(2) == 0 ? 0 : DivisorReciprocal(d));
            ASSERT_EQ(TakeCode(), expected.code);
            ASSERT_EQ(quotient.Limbs(), expected.quotient) << a.Text() << " / " << d;
            ASSERT_EQ(remainder, expected.remainder) << a.Text() << " / " << d;
        }
    }
}

void ExpectTwinDivisorsAt(RandomSource& random, int64_t width, int rounds) {
    WidthScope scope(width);
    for (int round = 0; round < rounds; round++) {
        UintBuffer a;
        UintBuffer b;
        if (random.Below(2) == 0) {
            FillUint(random, a, random.Between(0, width));
            FillUint(random, b, random.Between(0, width));
        } else {
            // Two multiples of one number.
            UintBuffer common;
            FillDivisor(random, common, random.Between(0, width));
            FillMultiple(random, a, common);
            FillMultiple(random, b, common);
        }
        const reference::TwinUint expected = reference::TwinGcd(a.Limbs(), b.Limbs());
        UintBuffer divisor;
        BigUintGcd(divisor, a, b);
        ASSERT_EQ(TakeCode(), expected.code);
        ASSERT_EQ(divisor.Limbs(), expected.limbs) << a.Text() << "\n" << b.Text();
    }
}

TEST(BigUintDivisionTwins, HaveTheSameGreatestDivisors) {
    RandomSource random;
    for (int64_t width = 1; width <= MostSmallWidth; width++) {
        ASSERT_NO_FATAL_FAILURE(ExpectTwinDivisorsAt(random, width, TestRounds(40)));
    }
    ASSERT_NO_FATAL_FAILURE(ExpectTwinDivisorsAt(random, 130, TestRounds(5)));
    ASSERT_NO_FATAL_FAILURE(ExpectTwinDivisorsAt(random, 520, 1));
}

void ExpectTwinPowersAt(RandomSource& random, int64_t width, uint64_t exponentBits, int rounds) {
    WidthScope scope(width);
    for (int round = 0; round < rounds; round++) {
        UintBuffer a;
        UintBuffer e;
        UintBuffer m;
        FillUint(random, a);
        FillUint(random, e, std::min<int64_t>(width, 4));
        BigUintShiftRight(
            e, e,
            std::max<int64_t>(
                0, BigUintBitLength(e) - static_cast<int64_t>(random.Below(exponentBits + 1))));
        FillDivisor(random, m, random.Below(3) == 0 ? random.Between(0, width) : width);
        const reference::TwinUint expected =
            reference::TwinModPower(a.Limbs(), e.Limbs(), m.Limbs());
        UintBuffer power;
        BigUintModPower(power, a, e, m);
        ASSERT_EQ(TakeCode(), expected.code);
        ASSERT_EQ(power.Limbs(), expected.limbs)
            << a.Text() << " ^ " << e.Text() << " mod " << m.Text();
    }
}

TEST(BigUintDivisionTwins, HaveTheSameModularPowers) {
    RandomSource random;
    for (int64_t width = 1; width <= MostSmallWidth; width++) {
        const int rounds = TestRounds(width <= 4 ? 200 : 10);
        ASSERT_NO_FATAL_FAILURE(ExpectTwinPowersAt(random, width, width <= 4 ? 256 : 40, rounds));
    }
    for (int64_t width : {65, 520, 1039}) {
        ASSERT_NO_FATAL_FAILURE(ExpectTwinPowersAt(random, width, 8, TestRounds(3)));
    }
}

}  // namespace
}  // namespace tallymere
