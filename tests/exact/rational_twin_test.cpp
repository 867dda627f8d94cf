// The faster ways of fractions against plain ones, word for word, also out of lowest terms.
#include <gtest/gtest.h>

#include <algorithm>

#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"
#include "exact/rational_arithmetic.h"
#include "exact/rational_combinatorics.h"
#include "reference/rational_twins.h"
#include "support/rational_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using namespace reference;

constexpr int64_t Widths[] = {1, 2, 3, 26, 65, 520};

int RoundsAt(int64_t limbs) {
    return TestRounds(limbs <= 3 ? 20'000 : limbs <= 65 ? 1'000 : 20);
}

// Any parts but a denominator of 0: now and then equal, often with a common factor.
void FillUnreduced(RandomSource& random, RationalNumber* dest) {
    uint64_t* numerator = RationalNumerator(dest);
    uint64_t* denominator = RationalDenominator(dest);
    dest->sign = random.Below(2);
    FillUint(random, numerator);
    FillUint(random, denominator);
    if (random.Below(4) == 0) {
        const uint64_t common = random.Below(1000) + 1;
        FillUint(random, numerator, numberContext.uintLimbs - 1);
        FillUint(random, denominator, numberContext.uintLimbs - 1);
        BigUintMulSmall(numerator, numerator, common);
        BigUintMulSmall(denominator, denominator, common);
    }
    if (random.Below(16) == 0) {
        BigUintCopy(numerator, denominator);
    }
    if (BigUintIsZero(denominator)) {
        BigUintFromUnsigned(denominator, 1);
    }
}

uint64_t RandomWord(RandomSource& random) {
    switch (random.Below(4)) {
        case 0:
            return random.Below(5);
        case 1:
            return uint64_t{1} << random.Below(64);
        case 2:
            return 0 - random.Below(5);
        default:
            return random.Word() >> random.Below(64);
    }
}

// A partner of a: as FillUnreduced, equal in value, or off by a unit in one part.
void FillNear(RandomSource& random, RationalNumber* dest, const RationalNumber* a) {
    FillUnreduced(random, dest);
    if (random.Below(2) == 0) {
        RationalCopy(dest, a);
        if (random.Below(2) == 0) {
            dest->sign ^= 1;
        }
        uint64_t* parts[] = {RationalNumerator(dest), RationalDenominator(dest)};
        for (uint64_t* part : parts) {
            if (random.Below(2) == 0) {
                part[0] ^= 2;
            }
        }
        if (BigUintIsZero(parts[1])) {
            BigUintFromUnsigned(parts[1], 1);
        }
    }
}

TEST(RationalTwin, ReducesAsEuclid) {
    RandomSource random;
    for (const int64_t limbs : Widths) {
        WidthScope scope(limbs);
        for (int round = RoundsAt(limbs); round > 0; round--) {
            RationalBuffer q;
            FillUnreduced(random, q);
            RationalBuffer twin = q;
            ReduceFraction(RationalNumerator(q), RationalDenominator(q));
            TwinReduceFraction(RationalNumerator(twin), RationalDenominator(twin));
            ASSERT_EQ(q, twin);
            ASSERT_TRUE(IsResult(q));
        }
    }
}

TEST(RationalTwin, MultipliesAndDividesByAWordAsByAnInteger) {
    RandomSource random;
    for (const int64_t limbs : Widths) {
        WidthScope scope(limbs);
        for (int round = RoundsAt(limbs); round > 0; round--) {
            RationalBuffer a;
            RationalBuffer dest;
            RationalBuffer twin;
            FillUnreduced(random, a);
            const uint64_t k = RandomWord(random);
            RationalMulSmall(dest, a, k);
            const CalcError productCode = TakeCode();
            TwinRationalMulSmall(twin, a, k);
            ASSERT_EQ(dest, twin) << ::testing::PrintToString(a) << " times " << k;
            ASSERT_EQ(productCode, TakeCode());
            RationalDivSmall(dest, a, k);
            const CalcError quotientCode = TakeCode();
            TwinRationalDivSmall(twin, a, k);
            ASSERT_EQ(dest, twin) << ::testing::PrintToString(a) << " by " << k;
            ASSERT_EQ(quotientCode, TakeCode());
        }
    }
}

TEST(RationalTwin, ComparesAsByTheCrossProducts) {
    RandomSource random;
    for (const int64_t limbs : Widths) {
        WidthScope scope(limbs);
        for (int round = RoundsAt(limbs); round > 0; round--) {
            RationalBuffer a;
            RationalBuffer b;
            FillUnreduced(random, a);
            FillNear(random, b, a);
            for (const bool ignoreSign : {false, true}) {
                ASSERT_EQ(RationalCompare(a, b, ignoreSign), TwinRationalCompare(a, b, ignoreSign))
                    << ::testing::PrintToString(a) << " and " << ::testing::PrintToString(b);
            }
            const uint64_t k = RandomWord(random);
            RationalFromUnsigned(b, k, random.Below(2));
            ASSERT_EQ(RationalCompareSmall(a, k, b->sign != 0), TwinRationalCompare(a, b, false))
                << ::testing::PrintToString(a) << " and " << ::testing::PrintToString(b);
        }
    }
}

TEST(RationalTwin, CountsAsByFullProducts) {
    RandomSource random;
    for (const int64_t limbs : {1, 2, 3, 26}) {
        WidthScope scope(limbs);
        for (int round = TestRounds(limbs <= 3 ? 2000 : 100); round > 0; round--) {
            RationalBuffer n;
            RationalBuffer k;
            FillRational(random, n, random.Between(0, std::min<int64_t>(limbs, 2)));
            // Natural numbers are counted as such.
            if (RationalIsZero(n)) {
                RationalFromUnsigned(n, 1, 1);
            } else if (RationalIsInteger(n)) {
                n->sign = 1;
            }
            const uint64_t count = random.Below(40);
            RationalFromUnsigned(k, count, 0);
            for (const bool falling : {false, true}) {
                RationalBuffer dest;
                RationalBuffer twin;
                RationalBinomial(dest, n, k, falling);
                const CalcError code = TakeCode();
                TwinRationalBinomial(twin, n, count, falling);
                ASSERT_EQ(TakeCode(), code);
                ASSERT_EQ(dest, twin) << ::testing::PrintToString(n) << " over " << count;
                ASSERT_TRUE(IsResult(dest));
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
