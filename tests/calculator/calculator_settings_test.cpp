#include "calculator/calculator_settings.h"

#include "calculator/calculator_sliders.h"
#include "calculator/calculator_testing.h"

namespace tallymere::testing_support {
namespace {

class CalculatorSettingsTest : public CalculatorTest {
protected:
    bool TakeDirty() { return std::exchange(record_.settingsDirty, false); }
    Settings record_;
};

TEST_F(CalculatorSettingsTest, StartsWithTheSettings) {
    record_.decimalPrecision = 50;
    record_.numberType = NumberTypeUint;
    record_.outputNumberBase = 16;
    StartCalculator(record_);
    EXPECT_EQ(calculator.calcPrecision, 50);
    EXPECT_EQ(calculator.calcWorkingDigits, 52);
    EXPECT_EQ(numberContext.precisionDigits, 52);
    EXPECT_EQ(calculator.calcResultType, NumberTypeUint);
    EXPECT_EQ(numberContext.numberType, NumberTypeUint);
    EXPECT_EQ(calculator.calcOutputBase, 16);
    EXPECT_EQ(numberContext.uintDigits, 20'000);
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_FALSE(calculator.ansAvailable);
    EXPECT_FALSE(TakeDirty());
}

TEST_F(CalculatorSettingsTest, TheStartSetsTheCalculatorBack) {
    calculator.ansAvailable = true;
    calculator.resultBracket = true;
    calculator.formulaTouched = true;
    calculator.resultForm = ResultFixed;
    calculator.calcResultText[0] = u'7';
    StartCalculator(record_);
    EXPECT_FALSE(calculator.ansAvailable);
    EXPECT_FALSE(calculator.resultBracket);
    EXPECT_FALSE(calculator.formulaTouched);
    EXPECT_EQ(calculator.resultForm, ResultAutomatic);
    EXPECT_EQ(calculator.calcResultText[0], 0);
}

TEST_F(CalculatorSettingsTest, TheFirstStartHasTenDigits) {
    StartCalculator(record_);
    EXPECT_EQ(record_.decimalPrecision, 10);
    EXPECT_EQ(calculator.calcPrecision, 10);
    EXPECT_TRUE(TakeDirty());
}

TEST_F(CalculatorSettingsTest, AnUnknownBaseIsTenAndStaysInTheSettings) {
    record_.decimalPrecision = 10;
    record_.numberType = NumberTypeUint;
    record_.outputNumberBase = 7;
    StartCalculator(record_);
    EXPECT_EQ(calculator.calcOutputBase, 10);
    EXPECT_EQ(record_.outputNumberBase, 7);
    EXPECT_FALSE(TakeDirty());
    // Choosing the base that is shown already is no change.
    ChooseOutputBase(record_, 10);
    EXPECT_EQ(record_.outputNumberBase, 7);
    EXPECT_FALSE(TakeDirty());
}

TEST_F(CalculatorSettingsTest, TheStartKeepsAnErrorThatIsPending) {
    record_.decimalPrecision = 10;
    SetUiError(UiErrorTextOverflow);
    StartCalculator(record_);
    EXPECT_EQ(PendingUiError(), UiErrorTextOverflow);
}

TEST_F(CalculatorSettingsTest, APrecisionOutsideTheLayoutsSetsACode) {
    record_.decimalPrecision = 10'004;
    StartCalculator(record_);
    EXPECT_EQ(numberContext.calcError, CalcErrorBadParameter);
    numberContext.calcError = CalcErrorNone;
    record_.decimalPrecision = 10'003;
    StartCalculator(record_);
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    EXPECT_EQ(numberContext.precisionDigits, 10'005);
}

TEST_F(CalculatorSettingsTest, AChosenPrecisionIsStoredAndTheResultStale) {
    Show(u"5");
    ChoosePrecision(record_, 25);
    EXPECT_EQ(record_.decimalPrecision, 25);
    EXPECT_TRUE(TakeDirty());
    EXPECT_EQ(numberContext.precisionDigits, 27);
    EXPECT_FALSE(calculator.resultValid);
    ChoosePrecision(record_, 25);
    EXPECT_FALSE(TakeDirty());
}

TEST_F(CalculatorSettingsTest, AnotherTypeIsStoredAndInForce) {
    Show(u"5");
    EXPECT_TRUE(ChooseNumberType(record_, NumberTypeUint, 8));
    EXPECT_EQ(record_.numberType, NumberTypeUint);
    EXPECT_TRUE(TakeDirty());
    EXPECT_EQ(calculator.calcOutputBase, 8);
    EXPECT_EQ(numberContext.numberType, NumberTypeUint);
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_TRUE(ChooseNumberType(record_, NumberTypeComplex, 8));
    EXPECT_EQ(calculator.calcOutputBase, 10);
}

TEST_F(CalculatorSettingsTest, TheSameTypeAgainChangesNothing) {
    Show(u"5");
    EXPECT_FALSE(ChooseNumberType(record_, NumberTypeReal, 10));
    EXPECT_FALSE(TakeDirty());
    EXPECT_TRUE(calculator.resultValid);
}

TEST_F(CalculatorSettingsTest, AnotherAngleIsStoredAndTheResultStays) {
    Show(u"5");
    EXPECT_TRUE(ChooseAngle(record_, AngleGon));
    EXPECT_EQ(record_.angleType, AngleGon);
    EXPECT_TRUE(TakeDirty());
    EXPECT_FALSE(ChooseAngle(record_, AngleGon));
    EXPECT_FALSE(TakeDirty());
    EXPECT_TRUE(calculator.resultValid);
}

TEST_F(CalculatorSettingsTest, AnotherBaseShowsTheResultAnew) {
    record_.numberType = NumberTypeUint;
    record_.decimalPrecision = 10;
    StartCalculator(record_);
    EXPECT_FALSE(ChooseOutputBase(record_, 2));
    EXPECT_EQ(record_.outputNumberBase, 2);
    EXPECT_TRUE(TakeDirty());
    EXPECT_EQ(Show(u"5"), u"0y101");
    EXPECT_TRUE(ChooseOutputBase(record_, 8));
    EXPECT_EQ(std::u16string(ShowResult({})), u"0t5");
    EXPECT_TRUE(TakeDirty());
    // The list may close on the row that was selected before; the result is shown all the same.
    EXPECT_TRUE(ChooseOutputBase(record_, 8));
    EXPECT_FALSE(TakeDirty());
}

TEST_F(CalculatorSettingsTest, TheCaseMattersForAValidResultInBaseSixteen) {
    record_.decimalPrecision = 10;
    record_.numberType = NumberTypeUint;
    record_.outputNumberBase = 16;
    StartCalculator(record_);
    EXPECT_FALSE(SwitchLetterCase(record_));
    EXPECT_TRUE(record_.useLowerCaseHex);
    EXPECT_TRUE(TakeDirty());
    EXPECT_EQ(Show(u"255", ResultAutomatic, StyleOfResult(record_)), u"0xff");
    EXPECT_TRUE(SwitchLetterCase(record_));
    EXPECT_FALSE(record_.useLowerCaseHex);
    EXPECT_EQ(std::u16string(ShowResult(StyleOfResult(record_))), u"0xFF");
    ChooseOutputBase(record_, 10);
    EXPECT_FALSE(SwitchLetterCase(record_));
    ChooseOutputBase(record_, 16);
    MarkResultStale();
    EXPECT_FALSE(SwitchLetterCase(record_));
}

TEST_F(CalculatorSettingsTest, TheStyleOfResultsIsInTheOptions) {
    record_.groupCalculator = true;
    EXPECT_TRUE(StyleOfResult(record_).groupDigits);
    EXPECT_FALSE(StyleOfResult(record_).lowerCaseHex);
    record_.groupEquations = record_.groupPrimes = true;
    record_.groupCalculator = false;
    record_.useLowerCaseHex = true;
    EXPECT_FALSE(StyleOfResult(record_).groupDigits);
    EXPECT_TRUE(StyleOfResult(record_).lowerCaseHex);
}

TEST_F(CalculatorSettingsTest, WhatFallsToRealStaysReal) {
    record_.decimalPrecision = 10;
    record_.numberType = NumberTypeRational;
    StartCalculator(record_);
    EXPECT_EQ(Show(u"sqrt(2)"), u"1.414213562");
    EXPECT_TRUE(evaluation.fellToReal);
    FollowFallToReal(record_);
    EXPECT_EQ(record_.numberType, NumberTypeReal);
    EXPECT_TRUE(TakeDirty());
    // Type and integers are in force already, and the result is valid.
    EXPECT_EQ(calculator.calcResultType, NumberTypeReal);
    EXPECT_EQ(calculator.calcIntegerDigits, 1);
    EXPECT_TRUE(calculator.resultValid);
    FollowFallToReal(record_);
    EXPECT_FALSE(TakeDirty());
}

TEST(CalculatorSlidersTest, PositionsAreTypesAndUnits) {
    const NumberType types[] = {NumberTypeUint, NumberTypeRational, NumberTypeReal,
                                NumberTypeComplex};
    for (int32_t i = 0; i < 4; i++) {
        EXPECT_EQ(TypeOfPosition(300'000 + i), types[i]);
        EXPECT_EQ(PositionOfType(types[i]), 300'000 + i);
    }
    const AngleType angles[] = {AngleDegrees, AngleRadians, AngleGon};
    for (int32_t i = 0; i < 3; i++) {
        EXPECT_EQ(AngleOfPosition(200'000 + i), angles[i]);
        EXPECT_EQ(PositionOfAngle(angles[i]), 200'000 + i);
    }
    EXPECT_EQ(FirstTypePosition, 300'000);
    EXPECT_EQ(LastTypePosition, 300'003);
    EXPECT_EQ(FirstAnglePosition, 200'000);
    EXPECT_EQ(LastAnglePosition, 200'002);
}

TEST(CalculatorSlidersTest, OnlyTrackingAndComingToRestCount) {
    for (int32_t news = 0; news < 20; news++) {
        EXPECT_EQ(MovesSlider(news), news == 5 || news == 8);
    }
}

}  // namespace
}  // namespace tallymere::testing_support
