#include "core/number_setup.h"

#include <gtest/gtest.h>

#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr NumberSetup Fractions = {NumberTypeRational, 100, UintWidthForLimbs(26), {-7, 50}};

void ExpectInForce(const NumberSetup& setup) {
    EXPECT_EQ(numberContext.numberType, setup.type);
    EXPECT_EQ(numberContext.precisionDigits, setup.digits);
    EXPECT_EQ(numberContext.realLimbs, (setup.digits + 18) / 19);
    EXPECT_EQ(numberContext.topLimbDigits, setup.digits - 19 * numberContext.realLimbs + 19);
    EXPECT_EQ(numberContext.uintDigits, setup.width.digits);
    EXPECT_EQ(numberContext.uintLimbs, setup.width.limbs);
    EXPECT_EQ(numberContext.fixedExponentLow, setup.window.low);
    EXPECT_EQ(numberContext.fixedExponentHigh, setup.window.high);
}

TEST(NumberSetup, HasTheStartValuesOfTheContextButForTheType) {
    const NumberSetup setup;
    const NumberContext fresh;
    EXPECT_EQ(setup.type, NumberTypeReal);
    EXPECT_EQ(setup.digits, fresh.precisionDigits);
    EXPECT_EQ(setup.width.digits, fresh.uintDigits);
    EXPECT_EQ(setup.width.limbs, fresh.uintLimbs);
    EXPECT_EQ(setup.window.low, fresh.fixedExponentLow);
    EXPECT_EQ(setup.window.high, fresh.fixedExponentHigh);
}

TEST(NumberSetup, TakesItsWidthFromDigitsOrLimbs) {
    EXPECT_EQ(UintWidthForDigits(20'000).limbs, 1'039);
    EXPECT_EQ(UintWidthForDigits(20'000).digits, 20'000);
    EXPECT_EQ(UintWidthForLimbs(2).digits, 38);
    EXPECT_EQ(UintWidthForLimbs(26).digits, 500);
    EXPECT_EQ(UintWidthForLimbs(65).digits, 1'252);
}

TEST(NumberSetupScope, InstallsEveryPartAndPutsEveryPartBack) {
    const ContextCheck check;
    {
        const NumberSetupScope scope(Fractions);
        ExpectInForce(Fractions);
        {
            const NumberSetup inner = {NumberTypeComplex,
                                       10'005,
                                       UintWidthForDigits(38'531),
                                       {-MaxFixedExponent, MaxFixedExponent}};
            const NumberSetupScope innerScope(inner);
            ExpectInForce(inner);
        }
        ExpectInForce(Fractions);
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(NumberSetupScope, PutsBackWhatIsInstalledInIt) {
    const ContextCheck check;
    const NumberSetupScope scope;
    EXPECT_TRUE(InstallNumberSetup(Fractions));
    ExpectInForce(Fractions);
}

TEST(NumberSetupScope, PutsBackANumberTypeThatIsNone) {
    const FieldScope<NumberType> none(numberContext.numberType, NumberTypeNone);
    { const NumberSetupScope scope(Fractions); }
    EXPECT_EQ(numberContext.numberType, NumberTypeNone);
}

TEST(NumberSetupScope, AreCounted) {
    EXPECT_EQ(NumberSetupScopeCount(), 0);
    {
        const NumberSetupScope outer;
        const NumberSetupScope inner(Fractions);
        EXPECT_EQ(NumberSetupScopeCount(), 2);
    }
    EXPECT_EQ(NumberSetupScopeCount(), 0);
}

TEST(InstallNumberSetup, LeavesAPartThatIsOutOfRangeAndInstallsTheOthers) {
    const ContextCheck check;
    const NumberSetupScope before(Fractions);
    for (const int64_t digits : {int64_t{0}, int64_t{-1}, int64_t{10'006}, INT64_MAX}) {
        const NumberSetupScope scope(Fractions);
        EXPECT_FALSE(InstallNumberSetup({NumberTypeReal, digits, UintWidthForLimbs(2), {-1, 1}}));
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        ExpectInForce({NumberTypeReal, Fractions.digits, UintWidthForLimbs(2), {-1, 1}});
    }
    for (const int64_t limbs : {int64_t{0}, int64_t{-1}, MaxUintLimbs + 1}) {
        const NumberSetupScope scope(Fractions);
        EXPECT_FALSE(InstallNumberSetup({NumberTypeUint, 30, {5, limbs}, {-1, 1}}));
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        ExpectInForce({NumberTypeUint, 30, Fractions.width, {-1, 1}});
    }
    for (const NotationWindow window :
         {NotationWindow{-4, MaxFixedExponent + 1}, NotationWindow{-MaxFixedExponent - 1, 10}}) {
        const NumberSetupScope scope(Fractions);
        EXPECT_FALSE(InstallNumberSetup({NumberTypeUint, 30, UintWidthForLimbs(2), window}));
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        ExpectInForce({NumberTypeUint, 30, UintWidthForLimbs(2), Fractions.window});
    }
}

}  // namespace
}  // namespace tallymere
