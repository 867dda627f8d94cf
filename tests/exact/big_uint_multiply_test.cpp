#include "exact/big_uint_multiply.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/scratch.h"
#include "exact/big_uint.h"
#include "reference/big_uint_multiply_twins.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

Outcome Product(std::string_view a, std::string_view b) {
    UintBuffer dest;
    BigUintMul(dest, UintBuffer(a), UintBuffer(b));
    return TakeOutcome(dest);
}

Outcome SmallProduct(std::string_view a, uint64_t k) {
    UintBuffer dest;
    BigUintMulSmall(dest, UintBuffer(a), k);
    return TakeOutcome(dest);
}

std::string FullProduct(std::string_view a, std::string_view b) {
    UintBuffer dest = UintBuffer::OfLimbs(2 * numberContext.uintLimbs);
    BigUintMulFull(dest, UintBuffer(a), UintBuffer(b));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    return dest.Text();
}

TEST(BigUintMul, OverflowsOneLimbAbove64Bits) {
    WidthScope scope(1);
    EXPECT_EQ(Product("2^32", "2^32"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Product("2^32", "2^32-1"), Silent("18446744069414584320"));
    EXPECT_EQ(Product("2^64-1", "1"), Silent("18446744073709551615"));
    EXPECT_EQ(Product("2^64-1", "2"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Product("3", "6148914691236517205"), Silent("18446744073709551615"));
}

TEST(BigUintMul, GivesZeroForAZeroFactor) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Product("0", "0"), Silent("0"));
        EXPECT_EQ(Product("0", "7"), Silent("0"));
        EXPECT_EQ(Product("7", "0"), Silent("0"));
        UintBuffer ones;
        std::fill_n(ones.Get(), limbs, ~uint64_t{0});
        UintBuffer dest;
        BigUintMul(dest, ones, UintBuffer("0"));
        EXPECT_EQ(TakeOutcome(dest), Silent("0"));
    }
}

TEST(BigUintMul, MultipliesByHandCheckedValues) {
    WidthScope scope(26);
    EXPECT_EQ(Product("123456789012345678901234567890", "987654321098765432109876543210"),
              Silent("121932631137021795226185032733622923332237463801111263526900"));
    // (2^100 + 7) (2^100 - 7) = 2^200 - 49.
    EXPECT_EQ(Product("2^100+7", "2^100-7"), UintValue("2^200-49"));
}

TEST(BigUintMul, TakesOneSignificantLimbMoreThanTheWidthWhenTheTopLimbIsZero) {
    WidthScope scope(2);
    // 2 and 1 significant limbs: three at a width of two.
    EXPECT_EQ(Product("2^64", "2^63"), UintValue("2^127"));
    EXPECT_EQ(Product("2^63", "2^64"), UintValue("2^127"));
    EXPECT_EQ(Product("2^64+1", "2^64-1"), UintValue("2^128-1"));
    EXPECT_EQ(Product("2^65", "2^63"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Product("2^63", "2^65"), Refused(CalcErrorOverflow));
}

TEST(BigUintMul, RefusesTwoSignificantLimbsMoreThanTheWidth) {
    WidthScope scope(2);
    EXPECT_EQ(Product("2^64", "2^64"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Product("2^128-1", "2^128-1"), Refused(CalcErrorOverflow));
}

TEST(BigUintMul, FitsOrOverflowsAtTheTopBitOfEveryWidth) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const int64_t bits = 64 * limbs;
        for (int64_t i : {int64_t{0}, int64_t{1}, bits / 2, bits - 64, bits - 1}) {
            const std::string low = TwoTo(i);
            const std::string high = TwoTo(bits - 1 - i);
            const std::string top = TwoTo(bits - 1);
            EXPECT_EQ(Product(low, high), UintValue(top));
            if (i > 0) {
                const std::string above = TwoTo(bits - i);
                EXPECT_EQ(Product(low, above), Refused(CalcErrorOverflow)) << low << " " << above;
            }
        }
    }
}

TEST(BigUintMul, WritesOverItsOperands) {
    for (int64_t limbs : SmallUintWidths) {
        WidthScope scope(limbs);
        const UintBuffer a("4294967291");
        const UintBuffer b("4000000007");
        const std::string expected = "17179869194064771037";
        UintBuffer dest = a;
        BigUintMul(dest, dest, b);
        EXPECT_EQ(TakeOutcome(dest), Silent(expected));
        dest = b;
        BigUintMul(dest, a, dest);
        EXPECT_EQ(TakeOutcome(dest), Silent(expected));
        dest = b;
        BigUintMul(dest, dest, dest);
        EXPECT_EQ(TakeOutcome(dest), Silent("16000000056000000049"));
        // Overflow clears the operand as well.
        UintBuffer ones;
        std::fill_n(ones.Get(), limbs, ~uint64_t{0});
        BigUintMul(ones, ones, ones);
        EXPECT_EQ(TakeOutcome(ones), Refused(CalcErrorOverflow));
    }
}

TEST(BigUintMul, LeavesItsOperandsAlone) {
    WidthScope scope(26);
    const UintBuffer a("2^700-1");
    const UintBuffer b("2^900-1");
    const UintBuffer aBefore = a;
    const UintBuffer bBefore = b;
    UintBuffer dest;
    BigUintMul(dest, a, b);
    EXPECT_EQ(a, aBefore);
    EXPECT_EQ(b, bBefore);
}

TEST(BigUintMul, KeepsTheFirstCode) {
    WidthScope scope(1);
    SetCalcError(CalcErrorUndefined);
    EXPECT_EQ(Product("2^63", "2"), Refused(CalcErrorUndefined));
    SetCalcError(CalcErrorUndefined);
    EXPECT_EQ(Product("6", "7"), (Outcome{"42", CalcErrorUndefined}));
}

TEST(BigUintMul, IsItsTwinLimbByLimb) {
    RandomSource random;
    for (int64_t limbs : {1, 2, 3, 5, 8, 9, 16, 17, 26, 33, 65, 130, 520, 1039}) {
        WidthScope scope(limbs);
        const int rounds = TestRounds(limbs <= 65 ? 400 : limbs <= 130 ? 50 : 10);
        for (int round = 0; round < rounds; round++) {
            UintBuffer a;
            UintBuffer b;
            // Mostly lengths whose sum is the width or next to it.
            const int64_t la = random.Between(0, limbs);
            const int64_t lb = std::clamp<int64_t>(limbs - la + random.Between(-1, 2), 0, limbs);
            FillUint(random, a, la);
            FillUint(random, b, lb);
            const reference::TwinUint twin = reference::TwinMul(a.Limbs(), b.Limbs());
            UintBuffer dest;
            BigUintMul(dest, a, b);
            ASSERT_EQ(dest.Limbs(), twin.limbs);
            ASSERT_EQ(TakeCode(), twin.code);
            BigUintMul(dest, b, a);
            ASSERT_EQ(dest.Limbs(), twin.limbs);
            ASSERT_EQ(TakeCode(), twin.code);
            BigUintMul(a, a, b);
            ASSERT_EQ(a.Limbs(), twin.limbs);
            ASSERT_EQ(TakeCode(), twin.code);
        }
    }
}

TEST(BigUintMulFull, NeverOverflows) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const std::string most = TwoTo(64 * limbs, "-1");
        UintBuffer dest = UintBuffer::OfLimbs(2 * limbs);
        BigUintMulFull(dest, UintBuffer(most), UintBuffer(most));
        EXPECT_EQ(TakeCode(), CalcErrorNone);
        // (B^n - 1)^2 = B^2n - 2 B^n + 1.
        std::vector<uint64_t> square(static_cast<size_t>(2 * limbs), 0);
        square[0] = 1;
        std::fill(square.begin() + limbs, square.end(), ~uint64_t{0});
        square[static_cast<size_t>(limbs)]--;
        EXPECT_EQ(dest.Limbs(), square);
    }
}

TEST(BigUintMulFull, ClearsTheLimbsAboveTheProduct) {
    WidthScope scope(26);
    EXPECT_EQ(FullProduct("0", "0"), "0");
    EXPECT_EQ(FullProduct("0", "2^1664-1"), "0");
    EXPECT_EQ(FullProduct("2^1664-1", "0"), "0");
    EXPECT_EQ(FullProduct("6", "7"), "42");
    EXPECT_EQ(FullProduct("2^64", "2^64"), UintBuffer("2^128").Text());
}

TEST(BigUintMulFull, WritesOverItsOperands) {
    WidthScope scope(2);
    const UintBuffer b("2^128-1");
    UintBuffer dest = UintBuffer::OfLimbs(4);
    UintFromPlainText(dest, "2^127+1");
    const std::string expected = FullProduct("2^127+1", "2^128-1");
    BigUintMulFull(dest, dest, b);
    EXPECT_EQ(TakeOutcome(dest), Silent(expected));
    UintFromPlainText(dest, "2^127+1");
    BigUintMulFull(dest, b, dest);
    EXPECT_EQ(TakeOutcome(dest), Silent(expected));
    UintFromPlainText(dest, "2^128-1");
    BigUintMulFull(dest, dest, dest);
    EXPECT_EQ(TakeOutcome(dest), Silent(FullProduct("2^128-1", "2^128-1")));
}

TEST(BigUintMulFull, IsItsTwinLimbByLimb) {
    RandomSource random;
    for (int64_t limbs : {1, 2, 3, 7, 8, 9, 26, 65, 130, 520, 1039}) {
        WidthScope scope(limbs);
        for (int round = 0; round < TestRounds(limbs <= 130 ? 100 : 5); round++) {
            UintBuffer a;
            UintBuffer b;
            FillUint(random, a);
            FillUint(random, b);
            UintBuffer dest = UintBuffer::OfLimbs(2 * limbs);
            BigUintMulFull(dest, a, b);
            ASSERT_EQ(dest.Limbs(), reference::TwinMulFull(a.Limbs(), b.Limbs()));
            BigUintMulFull(dest, a, a);
            ASSERT_EQ(dest.Limbs(), reference::TwinMulFull(a.Limbs(), a.Limbs()));
        }
    }
}

TEST(BigUintMulSmall, OverflowsOnANonZeroFinalCarry) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const std::string most = TwoTo(64 * limbs, "-1");
        EXPECT_EQ(SmallProduct(most, 1), UintValue(most));
        EXPECT_EQ(SmallProduct(most, 2), Refused(CalcErrorOverflow));
        EXPECT_EQ(SmallProduct(most, ~uint64_t{0}), Refused(CalcErrorOverflow));
        EXPECT_EQ(SmallProduct(TwoTo(64 * limbs - 2), 2), UintValue(TwoTo(64 * limbs - 1)));
        EXPECT_EQ(SmallProduct(TwoTo(64 * limbs - 2), 4), Refused(CalcErrorOverflow));
    }
}

TEST(BigUintMulSmall, TakesAnyFactorOf64Bits) {
    WidthScope scope(2);
    EXPECT_EQ(SmallProduct("0", ~uint64_t{0}), Silent("0"));
    EXPECT_EQ(SmallProduct("2^128-1", 0), Silent("0"));
    EXPECT_EQ(SmallProduct("6", 7), Silent("42"));
    // (2^64 - 1)^2 = 2^128 - 2^65 + 1.
    EXPECT_EQ(SmallProduct("2^64-1", ~uint64_t{0}),
              Silent("340282366920938463426481119284349108225"));
    EXPECT_EQ(SmallProduct("2^64+1", ~uint64_t{0}), UintValue("2^128-1"));
}

TEST(BigUintMulSmall, WritesOverItsOperand) {
    WidthScope scope(26);
    UintBuffer a("2^1000-1");
    const Outcome expected = SmallProduct("2^1000-1", 1'000'003);
    BigUintMulSmall(a, a, 1'000'003);
    EXPECT_EQ(TakeOutcome(a), expected);
}

TEST(BigUintMulSmall, IsTheProductWithOneLimb) {
    RandomSource random;
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (int round = 0; round < TestRounds(limbs <= 65 ? 500 : 50); round++) {
            UintBuffer a;
            UintBuffer k;
            FillUint(random, a, random.Between(0, limbs));
            FillUint(random, k, 1);
            UintBuffer small;
            UintBuffer product;
            BigUintMulSmall(small, a, k[0]);
            const Outcome smallOutcome = TakeOutcome(small);
            BigUintMul(product, a, k);
            ASSERT_EQ(smallOutcome, TakeOutcome(product));
        }
    }
}

TEST(BigUintMul, TakesTheProductAloneFromCoreScratchWhereItIsShort) {
    WidthScope scope(65);
    coreScratch.highWaterWords = 0;
    UintBuffer dest;
    BigUintMul(dest, UintBuffer("2^1500"), UintBuffer("2^1501"));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_LE(coreScratch.highWaterWords, 66 + ScratchGapWords);
}

}  // namespace
}  // namespace tallymere
