// The form of the page: what stands where.
#include "algebra_pages/equation_form.h"

#include <gtest/gtest.h>

#include <string>

#include "shell/languages.h"

namespace tallymere {
namespace {

LayoutRect Place(EquationControl control, int32_t width, int32_t height) {
    return PlaceEquationControl(control, {width, height});
}

TEST(EquationForm, HasItsControlsInPlace) {
    const FormControl& degree = EquationForm[EquationDegreeField];
    EXPECT_EQ(degree.place, (LayoutRect{10, 10, 40, 20}));
    EXPECT_EQ(degree.kind, FormNumericUpDown);
    EXPECT_EQ(EquationForm[EquationDegreeLabel].place, (LayoutRect{55, 12, 45, 20}));
    EXPECT_EQ(EquationForm[EquationModeList].place, (LayoutRect{10, 42, 105, 20}));
    EXPECT_EQ(EquationForm[EquationModeLabel].place, (LayoutRect{120, 45, 40, 20}));
    EXPECT_EQ(EquationForm[EquationResultTypeList].place, (LayoutRect{10, 76, 105, 20}));
    EXPECT_EQ(EquationForm[EquationResultTypeLabel].place, (LayoutRect{120, 79, 65, 20}));
    EXPECT_EQ(EquationForm[EquationPrecision].place, (LayoutRect{10, 110, 53, 20}));
    EXPECT_EQ(EquationForm[EquationPrecisionLabel].place, (LayoutRect{65, 112, 65, 20}));
    EXPECT_EQ(EquationForm[EquationMultiplicity].place, (LayoutRect{10, 140, 80, 20}));
    EXPECT_EQ(EquationForm[EquationMultiplicity].kind, FormCheckBox);
}

TEST(EquationForm, HasItsTexts) {
    InstallLanguage(LanguageEnglish);
    const auto text = [](EquationControl control) {
        return std::u16string(FormText(EquationForm[control]));
    };
    EXPECT_EQ(text(EquationDegreeLabel), u"Degree");
    EXPECT_EQ(text(EquationModeLabel), u"Mode");
    EXPECT_EQ(text(EquationResultTypeLabel), u"Result type");
    EXPECT_EQ(text(EquationPrecisionLabel), u"Precision");
    EXPECT_EQ(text(EquationMultiplicity), u"Multiplicity");
    EXPECT_EQ(text(EquationSolve), u"Solve");
    EXPECT_EQ(text(EquationClear), u"Clear");
    EXPECT_EQ(text(EquationClose), u"Close");
    EXPECT_EQ(std::u16string(uiText.*EquationModeItems[0]), u"real");
    EXPECT_EQ(std::u16string(uiText.*EquationModeItems[ComplexModeItem]), u"complex");
    EXPECT_EQ(std::u16string(uiText.*EquationResultTypeItems[0]), u"Approximation");
    EXPECT_EQ(std::u16string(uiText.*EquationResultTypeItems[ExactValueItem]), u"Exact value");
}

TEST(EquationForm, FillsALowWindow) {
    EXPECT_EQ(Place(EquationText, 700, 419), (LayoutRect{200, 10, 490, 38}));
    EXPECT_EQ(Place(EquationGrid, 700, 419), (LayoutRect{200, 48, 490, 105}));
    EXPECT_EQ(Place(EquationOutput, 700, 419), (LayoutRect{10, 166, 680, 206}));
    EXPECT_EQ(Place(EquationSolve, 700, 419), (LayoutRect{10, 386, 75, 25}));
    EXPECT_EQ(Place(EquationClear, 700, 419), (LayoutRect{90, 386, 75, 25}));
    EXPECT_EQ(Place(EquationClose, 700, 419), (LayoutRect{615, 386, 75, 25}));
    EXPECT_EQ(Place(EquationDegreeField, 700, 419), (LayoutRect{10, 10, 40, 20}));
}

TEST(EquationForm, GivesTheGridWhatAHigherWindowHas) {
    EXPECT_EQ(Place(EquationGrid, 700, 420), (LayoutRect{200, 48, 490, 125}));
    EXPECT_EQ(Place(EquationOutput, 700, 420), (LayoutRect{10, 186, 680, 187}));
    EXPECT_EQ(Place(EquationGrid, 700, 525).height, 230);
    EXPECT_EQ(Place(EquationOutput, 700, 525), (LayoutRect{10, 291, 680, 187}));
    EXPECT_EQ(Place(EquationGrid, 700, 526).height, 230);
    EXPECT_EQ(Place(EquationOutput, 700, 526), (LayoutRect{10, 291, 680, 188}));
}

TEST(EquationForm, SaysWhichEquationIsMeant) {
    InstallLanguage(LanguageEnglish);
    char16_t text[EquationTextCapacity + 1];
    WriteEquationText(text, 2);
    EXPECT_EQ(std::u16string(text),
              u"Enter the coefficients of the equation a2*x^2 + a1*x + a0 =\u00A00.");
    WriteEquationText(text, 10);
    EXPECT_EQ(std::u16string(text),
              u"Enter the coefficients of the equation a10*x^10 + a9*x^9 + ... + a1*x + a0 "
              u"=\u00A00.");
    InstallLanguage(LanguageGerman);
    WriteEquationText(text, 1);
    EXPECT_EQ(std::u16string(text),
              u"Geben Sie die Koeffizienten der Gleichung a1*x + a0 =\u00A00 ein.");
}

}  // namespace
}  // namespace tallymere
