#include "calculator/calculator_state.h"

#include <cmath>

#include "calculator/calculator_testing.h"
#include "support/real_testing.h"
#include "values/value_operations.h"

namespace tallymere::testing_support {
namespace {

class CalculatorStateTest : public CalculatorTest {};

TEST_F(CalculatorStateTest, StartsAsRealWithTenDigits) {
    const CalculatorState fresh;
    EXPECT_EQ(fresh.calcPrecision, 10);
    EXPECT_EQ(fresh.calcWorkingDigits, 12);
    EXPECT_EQ(fresh.calcResultType, NumberTypeReal);
    EXPECT_EQ(fresh.calcOutputBase, 10);
    EXPECT_EQ(fresh.resultForm, ResultAutomatic);
    EXPECT_FALSE(fresh.ansAvailable || fresh.resultValid || fresh.resultBracket);
    EXPECT_EQ(fresh.calcResultText[0], 0);
}

TEST_F(CalculatorStateTest, WorksWithTwoDigitsMoreThanThePrecision) {
    for (const int64_t precision : {1, 10, 17, 18, 19, 36, 1000, 10000}) {
        SCOPED_TRACE(precision);
        ApplyPrecision(precision);
        EXPECT_EQ(calculator.calcPrecision, precision);
        EXPECT_EQ(calculator.calcWorkingDigits, precision + 2);
        EXPECT_EQ(numberContext.precisionDigits, precision + 2);
        const int64_t limbs = (precision + 2 + 18) / 19;
        EXPECT_EQ(numberContext.realLimbs, limbs);
        EXPECT_EQ(numberContext.topLimbDigits, precision + 2 - limbs * 19 + 19);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST_F(CalculatorStateTest, RefusesAPrecisionPastTheCore) {
    ApplyPrecision(10'003);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(numberContext.precisionDigits, 10'005);
    for (const int64_t precision : {int64_t{10'004}, int64_t{1} << 61}) {
        ApplyPrecision(precision);
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        EXPECT_EQ(numberContext.precisionDigits, 10'005);
        EXPECT_EQ(calculator.calcPrecision, precision);
    }
}

TEST_F(CalculatorStateTest, EachTypeHasItsIntegerWidth) {
    const struct {
        NumberType type;
        int64_t digits, limbs;
    } cases[] = {{NumberTypeReal, 1, 1},
                 {NumberTypeComplex, 1, 1},
                 {NumberTypeUint, 20'000, 1'039},
                 {NumberTypeRational, 10'000, 520}};
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.type);
        ApplyNumberType(expected.type, 10);
        EXPECT_EQ(calculator.calcResultType, expected.type);
        EXPECT_EQ(numberContext.numberType, expected.type);
        EXPECT_EQ(calculator.calcIntegerDigits, expected.digits);
        EXPECT_EQ(numberContext.uintDigits, expected.digits);
        EXPECT_EQ(numberContext.uintLimbs, expected.limbs);
    }
}

TEST_F(CalculatorStateTest, OnlyUintHasAnotherBaseThanTen) {
    for (const int64_t base : {2, 8, 10, 16}) {
        ApplyNumberType(NumberTypeUint, base);
        EXPECT_EQ(calculator.calcOutputBase, base);
        for (const NumberType type : {NumberTypeReal, NumberTypeComplex, NumberTypeRational}) {
            ApplyNumberType(type, base);
            EXPECT_EQ(calculator.calcOutputBase, 10);
        }
    }
}

TEST_F(CalculatorStateTest, ANewSettingMakesTheResultStale) {
    calculator.resultValid = true;
    ApplyPrecision(20);
    EXPECT_FALSE(calculator.resultValid);
    calculator.resultValid = true;
    ApplyNumberType(NumberTypeRational, 10);
    EXPECT_FALSE(calculator.resultValid);
}

TEST_F(CalculatorStateTest, PutsItsSettingsInForceAfterAnotherPage) {
    ApplyPrecision(30);
    ApplyNumberType(NumberTypeRational, 10);
    calculator.resultValid = true;
    InstallRealLayout(LayoutForDigits(5));
    numberContext.numberType = NumberTypeComplex;
    numberContext.uintDigits = 7;
    numberContext.uintLimbs = 3;
    RestoreCalcContext();
    EXPECT_EQ(numberContext.precisionDigits, 32);
    EXPECT_EQ(numberContext.realLimbs, 2);
    EXPECT_EQ(numberContext.topLimbDigits, 13);
    EXPECT_EQ(numberContext.numberType, NumberTypeRational);
    EXPECT_EQ(numberContext.uintDigits, 10'000);
    EXPECT_EQ(numberContext.uintLimbs, 520);
    EXPECT_TRUE(calculator.resultValid);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST_F(CalculatorStateTest, RefusesIntegersOfMoreThanTwoThousandLimbs) {
    // 38531 * 891723283 / 2^34 is just below 2000, to which one limb is added.
    calculator.calcIntegerDigits = 38'531;
    RestoreCalcContext();
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(numberContext.uintLimbs, 2'000);
    numberContext.uintDigits = 7;
    numberContext.uintLimbs = 3;
    calculator.calcIntegerDigits = 38'532;
    RestoreCalcContext();
    EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
    EXPECT_EQ(numberContext.uintDigits, 7);
    EXPECT_EQ(numberContext.uintLimbs, 3);
}

TEST_F(CalculatorStateTest, LimbsSufficeForTheDigitsWithOneToSpareAtMost) {
    for (int64_t digits = 1; digits <= 38'500; digits++) {
        const auto exact = std::ceil(static_cast<long double>(digits) * std::log2(10.0L) / 64);
        const auto limbs = static_cast<long double>(UintLimbsForDigits(digits));
        ASSERT_GE(limbs, exact) << digits;
        ASSERT_LE(limbs, exact + 1) << digits;
    }
}

TEST_F(CalculatorStateTest, AnEvaluationBeginsWithAStaleResultAndNoForm) {
    calculator.resultValid = true;
    calculator.ansAvailable = true;
    calculator.resultForm = ResultScientific;
    BeginEvaluation();
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_EQ(calculator.resultForm, ResultAutomatic);
    EXPECT_TRUE(calculator.ansAvailable);
}

TEST_F(CalculatorStateTest, AResetForgetsTheResultAndKeepsSettingsAndErrors) {
    ApplyPrecision(25);
    Show(u"5", ResultScientific);
    calculator.resultBracket = calculator.formulaTouched = true;
    SetUiError(UiErrorInternal);
    ResetCalculator();
    EXPECT_FALSE(calculator.ansAvailable);
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_FALSE(calculator.resultBracket);
    EXPECT_FALSE(calculator.formulaTouched);
    EXPECT_EQ(calculator.resultForm, ResultAutomatic);
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"");
    EXPECT_EQ(calculator.calcPrecision, 25);
    EXPECT_EQ(PendingUiError(), UiErrorInternal);
}

TEST_F(CalculatorStateTest, AnInstalledTypeIsInForceAndLeavesTheMarkOfTheResult) {
    calculator.resultValid = true;
    InstallNumberType(NumberTypeRational, 16);
    EXPECT_EQ(numberContext.numberType, NumberTypeRational);
    EXPECT_EQ(numberContext.uintDigits, 10'000);
    EXPECT_EQ(calculator.calcOutputBase, 10);
    EXPECT_TRUE(calculator.resultValid);
}

TEST_F(CalculatorStateTest, AResultOfAnyTypeHasRoom) {
    ApplyPrecision(10'003);
    for (const NumberType type :
         {NumberTypeReal, NumberTypeComplex, NumberTypeUint, NumberTypeRational}) {
        ApplyNumberType(type, 10);
        EXPECT_LE(SizeOfNumber(), sizeof(calculator.calcResult));
    }
}

}  // namespace
}  // namespace tallymere::testing_support
