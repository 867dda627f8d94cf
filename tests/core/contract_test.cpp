#include "core/contract.h"

#include <gtest/gtest.h>

#include "core/complex_arithmetic.h"
#include "core/digit_text.h"
#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "core/text_writer.h"
#include "core/word_division.h"
#include "support/complex_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int Half(int even) {
    TALLYMERE_REQUIRE(even % 2 == 0);
    return even / 2;
}

TEST(Contract, CanStandInAConstantExpression) {
    constexpr int half = Half(6);
    EXPECT_EQ(half, 3);
}

TEST(Contract, IsEvaluatedInCheckingBuildsOnly) {
    int evaluations = 0;
    TALLYMERE_REQUIRE(++evaluations == 1);
    EXPECT_EQ(evaluations, ContractsAreChecked ? 1 : 0);
}

#ifdef TALLYMERE_CHECK_CONTRACTS

TEST(Contract, StopsTheProgramWithFileLineAndCondition) {
    EXPECT_DEATH(static_cast<void>(Half(7)),
                 "contract_test\\.cpp:[0-9]+: contract broken: even % 2 == 0");
}

constexpr const char* Broken = "contract broken";

TEST(Contract, OfArithmeticIsThatOperandsAreWellFormed) {
    PrecisionScope scope(39);
    const RealBuffer one("1");
    RealBuffer malformed = one;
    malformed.Limbs()[2] = LimbBase;
    RealBuffer dest;
    EXPECT_DEATH(RealAdd(dest, one, malformed), Broken);
    EXPECT_DEATH(RealMul(dest, malformed, one), Broken);
    EXPECT_DEATH(RealDiv(dest, one, malformed), Broken);
    EXPECT_DEATH(RealRound(malformed, 0), Broken);
    ComplexBuffer z("1 1");
    RealCopy(ImaginaryPart(z.Get()), one);
    RealLimbs(ImaginaryPart(z.Get()))[0] = 0;
    ComplexBuffer product;
    EXPECT_DEATH(ComplexMul(product, z, z), Broken);
}

TEST(Contract, OfArithmeticIsThatRecordsAreTheSameOrApart) {
    PrecisionScope scope(39);
    uint64_t words[16] = {};
    RealNumber* const first = RealAt(words);
    RealNumber* const shifted = RealAt(words + 1);
    RealNumber* const apart = RealAt(words + RealWords());
    RealSetOne(first);
    RealSetOne(apart);
    RealAdd(first, first, first);
    RealAdd(apart, first, first);
    EXPECT_EQ(PlainText(apart), "4e0");
    EXPECT_DEATH(RealAdd(shifted, first, first), Broken);
}

TEST(Contract, OfTheContextIsThatItsLayoutsAreConsistent) {
    EXPECT_DEATH(InstallRealLayout({16, 1, 15}), Broken);
    EXPECT_DEATH(InstallRealLayout({20, 2, 20}), Broken);
    EXPECT_DEATH(InstallUintWidth({20, 1}), Broken);
    EXPECT_DEATH(static_cast<void>(LayoutForDigits(0)), Broken);
}

TEST(Contract, OfScratchIsThatMarksAreGivenBackInOrder) {
    uint64_t* const mark = numberContext.scratchTop;
    CoreScratchScope scope;
    scope.Take(4);
    EXPECT_DEATH(ScratchRelease(coreScratch, numberContext.scratchTop + 1), Broken);
    EXPECT_DEATH(ScratchRelease(coreScratch, coreScratch.base - 1), Broken);
    EXPECT_LT(mark, numberContext.scratchTop);
}

TEST(Contract, OfHelpersIsThatArgumentsAreInRange) {
    char16_t text[] = u"12345678901234567890";
    EXPECT_DEATH(static_cast<void>(DecimalRunValue(text, 20)), Broken);
    EXPECT_DEATH(static_cast<void>(PowerOfTen(20)), Broken);
    EXPECT_DEATH(static_cast<void>(PowerOfTenDivider(0)), Broken);
    EXPECT_DEATH(static_cast<void>(ComputeDivisorReciprocal(0)), Broken);
    TextWriter writer = {2, -1, text};
    EXPECT_DEATH(WriteChar(writer, u'x'), Broken);
    RealBuffer x("1");
    EXPECT_DEATH(RealDivUint(x, x, 7, DivisorReciprocal(9)), Broken);
}

#else

TEST(Contract, IsGoneFromOtherBuilds) {
    EXPECT_EQ(Half(7), 3);
}

#endif

}  // namespace
}  // namespace tallymere
