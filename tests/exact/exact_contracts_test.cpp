// What exact numbers require of their caller stops a checking build, and does not stop the others.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/contract.h"
#include "exact/big_uint.h"
#include "exact/big_uint_combinatorics.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_gcd.h"
#include "exact/big_uint_logarithms.h"
#include "exact/big_uint_mod_power.h"
#include "exact/big_uint_multiply.h"
#include "exact/big_uint_powers.h"
#include "exact/big_uint_roots.h"
#include "exact/lehmer_step.h"
#include "exact/limb_division.h"
#include "exact/radix_conversion.h"
#include "exact/radix_digits.h"
#include "exact/rational_arithmetic.h"
#include "exact/rational_combinatorics.h"
#include "exact/rational_powers.h"
#include "support/rational_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

#ifdef TALLYMERE_CHECK_CONTRACTS

// Memory of three values of two limbs, so that values can overlap.
class ExactContracts : public ::testing::Test {
protected:
    WidthScope width_{2};
    std::vector<uint64_t> words_ = std::vector<uint64_t>(32, 1);
    uint64_t* a_ = words_.data();
    uint64_t* overlapping_ = words_.data() + 1;
    uint64_t* b_ = words_.data() + 10;
};

TEST_F(ExactContracts, RefuseAWidthThatNoIntegerHas) {
    const auto clearAtWidth = [this](UintWidth width) {
        numberContext.uintDigits = width.digits;
        numberContext.uintLimbs = width.limbs;
        BigUintClear(a_);
    };
    EXPECT_DEATH(clearAtWidth({0, 0}), "BigUintWidthIsWellFormed");
    EXPECT_DEATH(clearAtWidth({19, MaxWorkingUintLimbs + 1}), "BigUintWidthIsWellFormed");
    EXPECT_DEATH(clearAtWidth({39, 2}), "BigUintWidthIsWellFormed");
    EXPECT_DEATH(clearAtWidth({-1, 2}), "BigUintWidthIsWellFormed");
}

TEST_F(ExactContracts, RefuseIntegersThatOverlapInPart) {
    EXPECT_DEATH(BigUintCopy(overlapping_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintAdd(overlapping_, b_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintSub(overlapping_, a_, b_), "SameOrApart");
    EXPECT_DEATH(BigUintShiftLeft(overlapping_, a_, 1, true), "SameOrApart");
    EXPECT_DEATH(BigUintMulSmall(overlapping_, a_, 3), "SameOrApart");
    EXPECT_DEATH(BigUintMul(overlapping_, b_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintMulFull(overlapping_, a_, b_), "Apart");
    EXPECT_DEATH(BigUintDivide(b_, b_, a_, a_), "quotient != remainder");
    EXPECT_DEATH(BigUintDivide(b_, overlapping_, a_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintDivide(a_, overlapping_, b_, b_), "SameOrApart");
    EXPECT_DEATH(BigUintFactorial(overlapping_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintBinomial(overlapping_, a_, b_, false), "SameOrApart");
    EXPECT_DEATH(BigUintBinomial(overlapping_, b_, a_, true), "SameOrApart");
    EXPECT_DEATH(BigUintGcdAllowingZero(overlapping_, a_, b_), "SameOrApart");
    EXPECT_DEATH(BigUintGcd(overlapping_, b_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintLcm(overlapping_, a_, b_), "SameOrApart");
    EXPECT_DEATH(BigUintLogTwo(overlapping_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintLogTen(overlapping_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintLog(overlapping_, a_, b_), "SameOrApart");
    EXPECT_DEATH(BigUintModPower(overlapping_, a_, b_, b_), "SameOrApart");
    EXPECT_DEATH(BigUintModPower(overlapping_, b_, a_, b_), "SameOrApart");
    EXPECT_DEATH(BigUintModPower(overlapping_, b_, b_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintPower(overlapping_, b_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintPowerSmall(overlapping_, a_, 3), "SameOrApart");
    EXPECT_DEATH(BigUintPowerOfTwo(overlapping_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintPowerOfTen(overlapping_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintSquareRoot(overlapping_, a_), "SameOrApart");
    EXPECT_DEATH(BigUintRoot(overlapping_, a_, b_), "SameOrApart");
}

TEST_F(ExactContracts, RefuseMachineIntegersOutOfRange) {
    EXPECT_DEATH(BigUintBit(a_, -1), "index >= 0");
    EXPECT_DEATH(BigUintPowerIfFits(b_, a_, 0), "e >= 1");
    EXPECT_DEATH(BinaryLogSmall(0), "x >= 1");
    EXPECT_DEATH(BigUintResize(b_, -1, a_, 2), "destLimbs >= 0");
    EXPECT_DEATH(BigUintDivideSmall(b_, nullptr, a_, 10, 12345), "reciprocal");
}

TEST_F(ExactContracts, RefuseLimbsThatMakeNoDivision) {
    b_[1] = 0;
    EXPECT_DEATH(PrepareDivisor(b_, b_, 2), "b\\[n - 1\\] != 0");
    b_[1] = 5;
    const UintLimbDivisor divisor = PrepareDivisor(b_, b_, 2);
    a_[2] = ~uint64_t{0};
    EXPECT_DEATH(UintLimbsDivide(nullptr, a_, 1, divisor), "IsBelow");
    a_[2] = 0;
    EXPECT_DEATH(UintLimbsDivide(a_ + 2, a_, 1, divisor), "Apart\\(quotient, m, r");
    EXPECT_DEATH(UintLimbsDivide(b_ + 1, a_, 1, divisor), "Apart\\(quotient, m, divisor");
    std::fill_n(b_ - 2, 2, 0);
    EXPECT_DEATH(UintLimbsDivide(nullptr, b_ - 2, 1, divisor), "Apart\\(r");
    EXPECT_DEATH(UintLimbsShiftLeft(b_, a_, 2, 64), "shift <= 63");
    EXPECT_DEATH(UintLimbsShiftLeft(a_, overlapping_, 2, 1), "Apart");
    EXPECT_DEATH(UintLimbsShiftRight(overlapping_, a_, 2, 1), "Apart");
}

TEST_F(ExactContracts, RefuseAStepThatMakesANumberNegative) {
    const LehmerFactors factors = {1, 1, 1, 0, false};
    LehmerFactors found;
    EXPECT_DEATH(FindLehmerFactors(found, {0, 1, 1}, {0, 0, 1}), "x.high > 0");
    EXPECT_DEATH(FindLehmerFactors(found, {1, 1, 1}, {1, 1, 2}), "IsAtLeast");
    a_[0] = 4;
    b_[0] = 5;
    EXPECT_DEATH(ApplyLehmerFactors(a_, b_, 1, factors), "carryX == 0");
    EXPECT_DEATH(ApplyLehmerFactors(b_, a_, 1, {1, 1, 1, 1, false}), "WellFormed");
    EXPECT_DEATH(ApplyLehmerFactors(a_, overlapping_, 2, factors), "Apart");
}

TEST_F(ExactContracts, RefuseAGrowingIntegerWithAZeroOnTop) {
    a_[1] = 0;
    GrowingInteger x = {a_, 3, 2};
    EXPECT_DEATH(MultiplyAdd(x, 2, 0), "GrowingIntegerIsWellFormed");
    EXPECT_DEATH(MultiplyByPowerOfTen(x, 2), "GrowingIntegerIsWellFormed");
    x.length = 1;
    EXPECT_DEATH(MultiplyAdd(x, 0, 0), "factor >= 1");
    EXPECT_DEATH(AppendDecimalLimbs(x, b_, -1), "count >= 0");
}

TEST_F(ExactContracts, RefuseWhatIsNoRadix) {
    GrowingInteger x = {a_, 3, 0};
    EXPECT_DEATH(MostDigitsOfRadix(2, 1), "IsRadix");
    EXPECT_DEATH(MostDigitsOfRadix(-1, 2), "m >= 0");
    EXPECT_DEATH(AppendDigitsOfRadix(x, u"0", 1, HighestBase + 1), "IsRadix");
    EXPECT_DEATH(AppendDigitsOfRadix(x, u"0", -1, 12), "length >= 0");
    char16_t room[200];
    EXPECT_DEATH(TakeDigitsOfRadix(room + 200, a_, 0, u"0"), "IsRadix");
}

TEST_F(ExactContracts, RefuseDecimalLimbsThatOverlapTheirWords) {
    EXPECT_DEATH(WordsToDecimalLimbs(a_ + 4, a_, 2), "Apart");
}

TEST_F(ExactContracts, RefuseFractionsWithoutAValue) {
    RationalBuffer q("3/0");
    RationalBuffer one("1");
    RationalBuffer dest;
    EXPECT_DEATH(RationalAddSub(dest, one, q, false), "RationalHasValue");
    EXPECT_DEATH(RationalMulDiv(dest, q, one, true), "RationalHasValue");
    EXPECT_DEATH(RationalMulSmall(dest, q, 2), "RationalHasValue");
    EXPECT_DEATH(RationalReciprocal(dest, q), "RationalHasValue");
    EXPECT_DEATH(RationalCompare(one, q, true), "RationalHasValue");
    EXPECT_DEATH(RationalSquareRoot(dest, q), "RationalHasValue");
    EXPECT_DEATH(RationalPowerOfTwo(dest, q), "RationalHasValue");
    EXPECT_DEATH(RationalFactorial(dest, q), "RationalHasValue");
    EXPECT_DEATH(RationalGcd(dest, one, q), "RationalHasValue");
    EXPECT_DEATH(RationalFromUnsigned(dest, 1, 2), "sign <= 1");
    EXPECT_DEATH(RationalScaleSmall(dest, one, 4, 6), "gcd");
}

TEST_F(ExactContracts, RefuseFractionsThatOverlapInPart) {
    RationalNumber* a = RationalAt(a_);
    RationalNumber* overlapping = RationalAt(overlapping_);
    RationalNumber* b = RationalAt(b_);
    EXPECT_DEATH(RationalCopy(overlapping, a), "SameOrApart");
    EXPECT_DEATH(RationalAddSub(overlapping, b, a, false), "SameOrApart");
    EXPECT_DEATH(RationalDivMod(b, b, a, a), "quotient != remainder");
    EXPECT_DEATH(RationalDivMod(b, overlapping, a, a), "SameOrApart");
    EXPECT_DEATH(RationalDivMod(a, overlapping, b, b), "SameOrApart");
    EXPECT_DEATH(RationalPowerOfTen(overlapping, a), "SameOrApart");
    EXPECT_DEATH(RationalFactorial(overlapping, a), "SameOrApart");
    EXPECT_DEATH(RationalLcm(overlapping, b, a), "SameOrApart");
    EXPECT_DEATH(ReduceFraction(a_, a_), "numerator != denominator");
    EXPECT_DEATH(ReduceFraction(a_, overlapping_), "SameOrApart");
}

#else

TEST(ExactContracts, CostNothingWhereTheyAreNotChecked) {
    WidthScope scope(2);
    RationalBuffer q;
    RationalFromUnsigned(q, 3, 2);
    EXPECT_EQ(q->sign, 2u);
}

#endif

}  // namespace
}  // namespace tallymere
