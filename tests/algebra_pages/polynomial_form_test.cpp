// The form of the page: what stands where, and what it offers.
#include "algebra_pages/polynomial_form.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <utility>

#include "algebra_pages/polynomial_names.h"
#include "shell/languages.h"

namespace tallymere {
namespace {

LayoutRect Place(PolynomialControl control, int32_t width, int32_t height) {
    return PlacePolynomialControl(control, {width, height});
}

std::u16string Text(PolynomialControl control) {
    return FormText(PolynomialForm[control]);
}

std::u16string Caption(PolynomialControl button) {
    char16_t caption[PolynomialCaptionCapacity + 1];
    WritePolynomialCaption(caption, button);
    return caption;
}

std::u16string Hint(int64_t degree) {
    char16_t hint[PolynomialHintCapacity + 1];
    WritePolynomialHint(hint, degree);
    return hint;
}

TEST(PolynomialForm, HasItsControlsInPlace) {
    const struct {
        PolynomialControl control;
        FormControlKind kind;
        LayoutRect place;
    } rows[] = {
        {PolynomialCountLabel, FormStatic, {10, 10, 120, 20}},
        {PolynomialCount, FormNumericUpDown, {10, 30, 40, 20}},
        {PolynomialDegreeLabel, FormStatic, {120, 10, 80, 20}},
        {PolynomialDegree, FormNumericUpDown, {120, 30, 40, 20}},
        {PolynomialTypeLabel, FormStatic, {200, 10, 95, 20}},
        {PolynomialType, FormNumberType, {200, 29, 70, 23}},
        {PolynomialPrecisionLabel, FormStatic, {300, 10, 100, 20}},
        {PolynomialPrecision, FormNumericUpDown, {300, 30, 55, 20}},
        {PolynomialHint, FormStatic, {10, 65, 680, 40}},
        {PolynomialGrid, FormGrid, {10, 105, 680, 157}},
        {PolynomialOutput, FormUnbrokenField, {10, 267, 680, 157}},
        {PolynomialPlus, FormPushButton, {10, 437, 25, 25}},
        {PolynomialMinus, FormPushButton, {40, 437, 25, 25}},
        {PolynomialPower, FormPushButton, {70, 437, 25, 25}},
        {PolynomialTimes, FormPushButton, {10, 467, 25, 25}},
        {PolynomialDivide, FormPushButton, {40, 467, 25, 25}},
        {PolynomialResultTo0, FormPushButton, {100, 437, 75, 25}},
        {PolynomialResultTo1, FormPushButton, {100, 467, 75, 25}},
        {PolynomialClear0, FormPushButton, {180, 437, 75, 25}},
        {PolynomialClear1, FormPushButton, {180, 467, 75, 25}},
        {PolynomialClearAll, FormPushButton, {260, 437, 105, 25}},
        {PolynomialClose, FormPushButton, {615, 467, 75, 25}},
    };
    static_assert(std::size(rows) == PolynomialControlCount);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.control);
        EXPECT_EQ(PolynomialForm[row.control].kind, row.kind);
        EXPECT_EQ(Place(row.control, 700, 500), row.place);
    }
}

TEST(PolynomialForm, SharesItsHeightBetweenGridAndOutput) {
    // What is left of an odd height goes to neither.
    EXPECT_EQ(Place(PolynomialGrid, 700, 501), (LayoutRect{10, 105, 680, 158}));
    EXPECT_EQ(Place(PolynomialOutput, 700, 501), (LayoutRect{10, 268, 680, 158}));
    EXPECT_EQ(Place(PolynomialGrid, 700, 502), (LayoutRect{10, 105, 680, 158}));
    EXPECT_EQ(Place(PolynomialOutput, 400, 1000), (LayoutRect{10, 517, 380, 407}));
    EXPECT_EQ(Place(PolynomialPlus, 400, 1000).y, 937);
    EXPECT_EQ(Place(PolynomialClose, 400, 1000), (LayoutRect{315, 967, 75, 25}));
}

TEST(PolynomialForm, HasItsTexts) {
    InstallLanguage(LanguageEnglish);
    EXPECT_EQ(Text(PolynomialCountLabel), u"Polynomial count");
    EXPECT_EQ(Text(PolynomialDegreeLabel), u"Max. degree");
    EXPECT_EQ(Text(PolynomialTypeLabel), u"Number type");
    EXPECT_EQ(Text(PolynomialPrecisionLabel), u"Precision");
    EXPECT_EQ(Text(PolynomialPlus), u"+");
    EXPECT_EQ(Text(PolynomialMinus), u"\u2013");
    EXPECT_EQ(Text(PolynomialPower), u"^");
    EXPECT_EQ(Text(PolynomialTimes), u"*");
    EXPECT_EQ(Text(PolynomialDivide), u"/");
    EXPECT_EQ(Text(PolynomialClearAll), u"Clear polynomials");
    EXPECT_EQ(Text(PolynomialClose), u"Close");
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(Text(PolynomialCountLabel), u"Anzahl Polynome");
    EXPECT_EQ(Text(PolynomialDegreeLabel), u"Max. Grad");
    EXPECT_EQ(Text(PolynomialTypeLabel), u"Zahlentyp");
    EXPECT_EQ(Text(PolynomialPrecisionLabel), u"Genauigkeit");
    EXPECT_EQ(Text(PolynomialClearAll), u"Polynome leeren");
}

TEST(PolynomialForm, NamesThePolynomialOfAButton) {
    InstallLanguage(LanguageEnglish);
    EXPECT_EQ(Caption(PolynomialResultTo0), u"Result \u2192 P0");
    EXPECT_EQ(Caption(PolynomialResultTo1), u"Result \u2192 P1");
    EXPECT_EQ(Caption(PolynomialClear0), u"Clear P0");
    EXPECT_EQ(Caption(PolynomialClear1), u"Clear P1");
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(Caption(PolynomialResultTo0), u"Erg. \u2192 P0");
    EXPECT_EQ(Caption(PolynomialClear1), u"P1 leeren");
}

TEST(PolynomialForm, HasAButtonForEachOperator) {
    const std::pair<PolynomialControl, PolyOperator> buttons[] = {
        {PolynomialPlus, PolyOperator::Plus},     {PolynomialMinus, PolyOperator::Minus},
        {PolynomialPower, PolyOperator::Power},   {PolynomialTimes, PolyOperator::Times},
        {PolynomialDivide, PolyOperator::Divide},
    };
    ASSERT_EQ(std::size(buttons), std::size(PolynomialOperators));
    for (size_t i = 0; i < std::size(buttons); i++) {
        EXPECT_EQ(PolynomialOperators[i].control, buttons[i].first);
        EXPECT_EQ(PolynomialOperators[i].operation, buttons[i].second);
    }
    EXPECT_EQ(std::u16string(PolynomialOperatorFont.name), u"Verdana");
    EXPECT_EQ(PolynomialOperatorFont.height, 13);
}

TEST(PolynomialForm, HasTheHighestPowerInTheFirstColumn) {
    EXPECT_EQ(ColumnOfPower(20), 0);
    EXPECT_EQ(ColumnOfPower(13), 7);
    EXPECT_EQ(ColumnOfPower(0), 20);
}

TEST(PolynomialForm, NamesEachPolynomial) {
    EXPECT_EQ(std::u16string(NameOfPolynomial(0).text), u"P0(x)");
    EXPECT_EQ(std::u16string(NameOfPolynomial(9).text), u"P9(x)");
    EXPECT_EQ(std::u16string(NameOfPolynomial(10).text), u"P10(x)");
    EXPECT_EQ(std::u16string(NameOfPolynomial(MaxPolynomials - 1).text), u"P11(x)");
}

TEST(PolynomialForm, SaysWhichCoefficientsAreMeant) {
    InstallLanguage(LanguageEnglish);
    EXPECT_EQ(Hint(2),
              u"Enter the coefficients of the polynomials Pi(x) = a2*x^2 + a1*x + a0 into the data "
              u"grid. Empty text cells are read as 0.");
    EXPECT_EQ(Hint(20),
              u"Enter the coefficients of the polynomials Pi(x) = a20*x^20 + a19*x^19 + ... + a1*x "
              u"+ a0 into the data grid. Empty text cells are read as 0.");
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(Hint(1),
              u"Geben Sie die Koeffizienten der Polynome Pi(x) = a1*x + a0 in das Datengitter ein. "
              u"Leere Textzellen werden als 0 eingelesen.");
}

}  // namespace
}  // namespace tallymere
