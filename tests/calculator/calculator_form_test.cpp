#include "calculator/calculator_form.h"

#include <gtest/gtest.h>

#include <iterator>

#include "support/number_types.h"

namespace tallymere::testing_support {
namespace {

using T = UiText;

struct ExpectedControl {
    ContainerControl index;
    FormControl control;
};

const ExpectedControl Expected[] = {
    {ContainerTypeSlider, {-1, FormSlider, {19, 15, 70, 21}, nullptr}},
    {ContainerTypeUint, {-1, FormStatic, {11, 0, 22, 15}, nullptr}},
    {ContainerTypeRat, {-1, FormStatic, {36, 0, 22, 15}, &T::TextCalcRat}},
    {ContainerTypeReal, {-1, FormStatic, {54, 0, 22, 15}, &T::TextCalcReal}},
    {ContainerTypeCplx, {-1, FormStatic, {81, 0, 25, 15}, &T::TextCalcCplx}},
    {ContainerPrecisionLabel, {-1, FormStatic, {115, 0, 70, 20}, &T::TextCalcPrecision}},
    {ContainerPrecision, {-1, FormNumericUpDown, {115, 16, 65, 19}, nullptr}},
    {ContainerAngleSlider, {-1, FormSlider, {203, 15, 55, 21}, nullptr}},
    {ContainerAngleDeg, {-1, FormStatic, {195, 0, 20, 15}, nullptr}},
    {ContainerAngleRad, {-1, FormStatic, {220, 0, 20, 15}, nullptr}},
    {ContainerAngleGon, {-1, FormStatic, {243, 0, 22, 15}, nullptr}},
    {ContainerBracketMark, {-1, FormStatic, {345, 0, 40, 20}, nullptr}},
    {ContainerDigitCount, {-1, FormDigitCount, {292, 0, 98, 35}, &T::TextCtlDigits}},
    {ContainerNumberBase, {-1, FormNumberBase, {120, 0, 98, 42}, &T::TextCalcOutputBase}},
    {ContainerCaseKey, {-1, FormPushButton, {210, 5, 38, 25}, nullptr}},
};

bool IsKey(int32_t control) {
    return control >= ContainerFirstKey && control < ContainerFirstKey + 72;
}

TEST(CalculatorFormTest, ThePageHasTwoFieldsAndASplitterBetweenThem) {
    EXPECT_EQ(CalculatorSize, (LayoutSize{370, 355}));
    EXPECT_EQ(CalculatorContainer, (LayoutRect{0, 0, 370, 250}));
    ASSERT_EQ(std::size(CalculatorForm), 4u);
    EXPECT_EQ(CalculatorForm[CalculatorFocusSink].kind, FormFocusSink);
    EXPECT_EQ(CalculatorForm[CalculatorFocusSink].place, (LayoutRect{0, 0, 0, 0}));
    EXPECT_EQ(CalculatorForm[CalculatorFormula].kind, FormMultilineField);
    EXPECT_EQ(CalculatorForm[CalculatorFormula].place, (LayoutRect{10, 10, 0, 0}));
    EXPECT_EQ(CalculatorForm[CalculatorSplitter].kind, FormSplitter);
    EXPECT_EQ(CalculatorForm[CalculatorSplitter].place, (LayoutRect{10, 0, 0, 4}));
    EXPECT_EQ(CalculatorForm[CalculatorSplitter].style, SplitterUpAndDown);
    EXPECT_EQ(CalculatorForm[CalculatorResult].kind, FormMultilineField);
    EXPECT_EQ(CalculatorForm[CalculatorResult].place.x, 10);
    for (const FormControl& control : CalculatorForm) {
        EXPECT_EQ(control.parent, FormWindow);
        EXPECT_EQ(std::u16string(FormText(control)), u"");
    }
}

TEST(CalculatorFormTest, FieldsAreWrittenInVerdana) {
    EXPECT_EQ(std::u16string(CalculatorFieldFont.name), u"Verdana");
    EXPECT_EQ(CalculatorFieldFont.height, 19);
    EXPECT_EQ(StaleResultColour, (RgbColour{128, 128, 128}));
    EXPECT_EQ(CurrentLabelColour, (RgbColour{139, 0, 0}));
}

TEST(CalculatorFormTest, TheContainerHasItsControlsInPlace) {
    ASSERT_EQ(std::size(Expected) + 72, ContainerForm.size());
    for (const ExpectedControl& expected : Expected) {
        const FormControl& control = ContainerForm[static_cast<size_t>(expected.index)];
        EXPECT_EQ(control.parent, expected.control.parent) << expected.index;
        EXPECT_EQ(control.kind, expected.control.kind) << expected.index;
        EXPECT_EQ(control.place, expected.control.place) << expected.index;
        EXPECT_EQ(control.text, expected.control.text) << expected.index;
    }
}

TEST(CalculatorFormTest, SomeTextsAreTheSameInEveryLanguage) {
    for (const Language language : {LanguageEnglish, LanguageGerman}) {
        InstallLanguage(language);
        EXPECT_EQ(std::u16string(FormText(ContainerForm[ContainerTypeUint])), u"uint");
        EXPECT_EQ(std::u16string(FormText(ContainerForm[ContainerAngleDeg])), u"deg");
        EXPECT_EQ(std::u16string(FormText(ContainerForm[ContainerAngleRad])), u"rad");
        EXPECT_EQ(std::u16string(FormText(ContainerForm[ContainerAngleGon])), u"gon");
        EXPECT_EQ(std::u16string(FormText(ContainerForm[ContainerBracketMark])), u"[ ]");
        EXPECT_EQ(std::u16string(FormText(ContainerForm[ContainerCaseKey])), u"Aa");
    }
    EXPECT_EQ(std::u16string(FormText(ContainerForm[ContainerTypeCplx])), u"kplx");
}

TEST(CalculatorFormTest, OwnControlsHaveTheirStyles) {
    EXPECT_EQ(ContainerForm[ContainerDigitCount].style, DigitCountLabelAbove);
    EXPECT_EQ(ContainerForm[ContainerNumberBase].style,
              NumberBaseTwoLineLabel | NumberBaseOffersAll);
}

TEST(CalculatorFormTest, KeysStandInEightRowsOfNine) {
    for (int32_t row = 0; row < 8; row++) {
        for (int32_t column = 0; column < 9; column++) {
            const FormControl& key =
                ContainerForm[static_cast<size_t>(ContainerFirstKey + 9 * row + column)];
            EXPECT_EQ(key.kind, FormPushButton);
            EXPECT_EQ(key.place, (LayoutRect{10 + 39 * column, 38 + 26 * row, 38, 25}));
        }
    }
    // The last key still lies within the container.
    const LayoutRect last = KeyPlace(71);
    EXPECT_LE(last.x + last.width, CalculatorContainer.width);
    EXPECT_LE(last.y + last.height, CalculatorContainer.height);
}

TEST(CalculatorFormTest, ControlsAreThereByNumberType) {
    for (const NumberType type : AllNumberTypes) {
        const bool isUint = type == NumberTypeUint;
        const bool hasAngles = type == NumberTypeReal || type == NumberTypeComplex;
        for (int32_t i = 0; i < ContainerControlCount; i++) {
            bool expected = true;
            if (i == ContainerPrecisionLabel || i == ContainerPrecision) {
                expected = !isUint;
            } else if (i >= ContainerAngleSlider && i <= ContainerAngleGon) {
                expected = hasAngles;
            } else if (i == ContainerDigitCount || i == ContainerNumberBase ||
                       i == ContainerCaseKey) {
                expected = isUint;
            }
            EXPECT_EQ(IsShownForType(static_cast<ContainerControl>(i), type), expected)
                << i << ", type " << type;
        }
    }
}

TEST(CalculatorFormTest, WhatShowsAtTheSamePlaceNeverShowsTogether) {
    for (const NumberType type : AllNumberTypes) {
        EXPECT_NE(IsShownForType(ContainerPrecision, type),
                  IsShownForType(ContainerNumberBase, type));
        EXPECT_FALSE(IsShownForType(ContainerAngleSlider, type) &&
                     IsShownForType(ContainerCaseKey, type));
    }
}

TEST(CalculatorFormTest, ARunDisablesWhatChangesTheNumbers) {
    for (int32_t i = 0; i < ContainerControlCount; i++) {
        const bool expected = i == ContainerTypeSlider || i == ContainerAngleSlider ||
                              i == ContainerPrecision || i == ContainerNumberBase ||
                              i == ContainerCaseKey;
        EXPECT_EQ(IsDisabledDuringRun(static_cast<ContainerControl>(i)), expected) << i;
        EXPECT_FALSE(IsKey(i) && expected);
    }
}

}  // namespace
}  // namespace tallymere::testing_support
