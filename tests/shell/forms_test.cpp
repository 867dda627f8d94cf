#include <gtest/gtest.h>

#include <span>
#include <string>
#include <utility>

#include "shell/about_form.h"
#include "shell/number_type_rows.h"
#include "shell/options_form.h"
#include "shell/separators.h"

namespace tallymere {
namespace {

// Languages behind English and German.
constexpr int32_t MoreLanguages = LanguageCount - 2;

struct ExpectedControl {
    int32_t index;
    FormControl control;
};

void ExpectControl(const ExpectedControl& expected, const FormControl& actual) {
    SCOPED_TRACE("control " + std::to_string(expected.index));
    EXPECT_EQ(actual.parent, expected.control.parent);
    EXPECT_EQ(actual.kind, expected.control.kind);
    EXPECT_EQ(actual.place, expected.control.place);
    EXPECT_EQ(actual.text, expected.control.text);
}

bool CanHaveChildren(FormControlKind kind) {
    return kind == FormTabControl || kind == FormTabPage || kind == FormGroupBox;
}

void ExpectParentsBeforeChildren(std::span<const FormControl> form) {
    for (int32_t i = 0; i < static_cast<int32_t>(form.size()); i++) {
        ASSERT_LT(form[i].parent, i);
        ASSERT_GE(form[i].parent, FormWindow);
        if (form[i].parent != FormWindow) {
            EXPECT_TRUE(CanHaveChildren(form[form[i].parent].kind)) << i;
        }
        EXPECT_EQ(form[i].kind == FormTabPage,
                  form[i].parent != FormWindow && form[form[i].parent].kind == FormTabControl)
            << i;
    }
}

TEST(OptionsFormTest, HasItsControlsInPlace) {
    using T = UiText;
    const ExpectedControl expected[] = {
        {OptionsTabs, {FormWindow, FormTabControl, {5, 8, 358, 280}, nullptr}},
        {OptionsNumberPage, {OptionsTabs, FormTabPage, {}, &T::TextOptNumberPresentation}},
        {OptionsSeparatorGroup,
         {OptionsNumberPage, FormGroupBox, {5, 5, 338, 190}, &T::TextOptDecimalThousandsSeparator}},
        {OptionsAutomaticSeparators,
         {OptionsSeparatorGroup, FormCheckBox, {8, 20, 175, 20}, &T::TextOptAutomaticSelection}},
        {OptionsDecimalLabel,
         {OptionsSeparatorGroup, FormStatic, {8, 47, 130, 20}, &T::TextOptDecimalSeparator}},
        {OptionsDecimalList, {OptionsSeparatorGroup, FormDropList, {140, 45, 190, 20}, nullptr}},
        {OptionsThousandsLabel,
         {OptionsSeparatorGroup, FormStatic, {8, 72, 130, 20}, &T::TextOptThousandsSeparator}},
        {OptionsThousandsList, {OptionsSeparatorGroup, FormDropList, {140, 70, 190, 20}, nullptr}},
        {OptionsGroupingLabel,
         {OptionsSeparatorGroup, FormStatic, {8, 105, 250, 20}, &T::TextOptUseThousandsSeparator}},
        {OptionsGroupingCalculator,
         {OptionsSeparatorGroup, FormCheckBox, {8, 125, 160, 20}, &T::TextOptScientificCalculator}},
        {OptionsGroupingEquations,
         {OptionsSeparatorGroup, FormCheckBox, {8, 145, 160, 20}, &T::TextOptEquationsPolynomials}},
        {OptionsGroupingPrimes,
         {OptionsSeparatorGroup, FormCheckBox, {8, 165, 160, 20}, &T::TextOptPrimeNumbersFactors}},
        {OptionsLanguagePage, {OptionsTabs, FormTabPage, {}, &T::TextOptLanguage}},
        {OptionsLanguageGroup,
         {OptionsLanguagePage,
          FormGroupBox,
          {5, 5, 165, 87 + 20 * MoreLanguages},
          &T::TextOptLanguage2}},
        {OptionsLanguageAutomatic,
         {OptionsLanguageGroup, FormRadioButton, {8, 20, 140, 20}, &T::TextOptAutomaticSelection2}},
        {ButtonOfLanguage(LanguageEnglish),
         {OptionsLanguageGroup, FormRadioButton, {8, 40, 140, 20}, &T::TextOptEnglish}},
        {ButtonOfLanguage(LanguageGerman),
         {OptionsLanguageGroup, FormRadioButton, {8, 60, 140, 20}, &T::TextOptGerman}},
        {OptionsOk, {FormWindow, FormPushButton, {5, 297, 75, 25}, &T::TextBtnOK}},
        {OptionsCancel, {FormWindow, FormPushButton, {286, 297, 75, 25}, &T::TextBtnCancel}},
    };
    EXPECT_EQ(OptionsSize, (LayoutSize{370, 330}));
    ASSERT_EQ(std::size(expected) + MoreLanguages, std::size(OptionsForm));
    for (const ExpectedControl& control : expected) {
        ExpectControl(control, OptionsForm[control.index]);
    }
}

TEST(OptionsFormTest, ParentsComeBeforeTheirChildren) {
    ExpectParentsBeforeChildren(OptionsForm);
}

TEST(OptionsFormTest, ControlsLieWithinTheirParents) {
    for (const FormControl& control : OptionsForm) {
        if (control.kind == FormTabPage) {
            continue;
        }
        LayoutSize room = OptionsSize;
        if (control.parent != FormWindow && OptionsForm[control.parent].kind == FormGroupBox) {
            room = {OptionsForm[control.parent].place.width,
                    OptionsForm[control.parent].place.height};
        } else if (control.parent != FormWindow) {
            room = {OptionsForm[OptionsTabs].place.width, OptionsForm[OptionsTabs].place.height};
        }
        EXPECT_GE(control.place.x, 0);
        EXPECT_GE(control.place.y, 0);
        EXPECT_LE(control.place.x + control.place.width, room.width);
        EXPECT_LE(control.place.y + control.place.height, room.height);
    }
}

TEST(OptionsFormTest, RowsOfTheListsAreTheValuesOfTheSettings) {
    ASSERT_EQ(std::size(OptionsDecimalRows), 2u);
    EXPECT_EQ(OptionsDecimalRows[DecimalPoint], &UiText::TextOptPoint);
    EXPECT_EQ(OptionsDecimalRows[DecimalComma], &UiText::TextOptComma);
    ASSERT_EQ(std::size(OptionsThousandsRows), 4u);
    EXPECT_EQ(OptionsThousandsRows[ThousandsPoint], &UiText::TextOptPoint);
    EXPECT_EQ(OptionsThousandsRows[ThousandsComma], &UiText::TextOptComma);
    EXPECT_EQ(OptionsThousandsRows[ThousandsApostrophe], &UiText::TextOptApostrophe);
    EXPECT_EQ(OptionsThousandsRows[ThousandsNarrowSpace], &UiText::TextOptNarrowSpaceU202F);
}

TEST(OptionsFormTest, EachLanguageHasTheButtonWithItsName) {
    const std::pair<Language, UiTextEntry> expected[] = {
        {LanguageAutomatic, &UiText::TextOptAutomaticSelection2},
        {LanguageEnglish, &UiText::TextOptEnglish},
        {LanguageGerman, &UiText::TextOptGerman},
    };
    ASSERT_EQ(std::size(OptionsLanguageButtons), std::size(expected) + MoreLanguages);
    for (size_t i = 0; i < std::size(expected); i++) {
        const auto& [button, language] = OptionsLanguageButtons[i];
        EXPECT_EQ(language, expected[i].first);
        EXPECT_EQ(OptionsForm[button].kind, FormRadioButton);
        EXPECT_EQ(OptionsForm[button].text, expected[i].second);
    }
}

TEST(AboutFormTest, HasItsControlsInPlace) {
    using T = UiText;
    const ExpectedControl expected[] = {
        {AboutTitle, {FormWindow, FormStatic, {80, 25, 330, 40}, nullptr}},
        {AboutNotice, {FormWindow, FormStatic, {15, 75, 380, 180}, &T::TextAboutFreewareYouCanUse}},
        {AboutDate, {FormWindow, FormStatic, {15, 165, 350, 20}, &T::TextAboutCreationDate}},
        {AboutHolder, {FormWindow, FormStatic, {15, 190, 410, 20}, &T::TextAbout}},
        {AboutEMail, {FormWindow, FormStatic, {15, 215, 410, 20}, &T::TextAboutEMail}},
        {AboutHomepage,
         {FormWindow, FormMultilineButton, {10, 240, 105, 47}, &T::TextAboutHomepage}},
        {AboutDonate, {FormWindow, FormOwnerDrawnButton, {159, 240, 92, 47}, &T::TextAboutDonate}},
        {AboutClose, {FormWindow, FormPushButton, {295, 240, 105, 47}, &T::TextBtnOK}},
    };
    EXPECT_EQ(AboutSize, (LayoutSize{410, 295}));
    EXPECT_EQ(AboutIconPixels, (LayoutRect{15, 13, 48, 48}));
    ASSERT_EQ(std::size(expected), std::size(AboutForm));
    for (const ExpectedControl& control : expected) {
        ExpectControl(control, AboutForm[control.index]);
    }
}

TEST(AboutFormTest, AllControlsLieInTheWindowItself) {
    ExpectParentsBeforeChildren(AboutForm);
    for (const FormControl& control : AboutForm) {
        EXPECT_EQ(control.parent, FormWindow);
    }
}

TEST(AboutFormTest, TheButtonsStandSideBySideWithoutTouching) {
    const LayoutRect& homepage = AboutForm[AboutHomepage].place;
    const LayoutRect& donate = AboutForm[AboutDonate].place;
    const LayoutRect& close = AboutForm[AboutClose].place;
    EXPECT_LT(homepage.x + homepage.width, donate.x);
    EXPECT_LT(donate.x + donate.width, close.x);
    EXPECT_LT(close.x + close.width, AboutSize.width);
}

TEST(Forms, ATextIsThatOfTheEntryElseTheFixedOneElseEmpty) {
    InstallLanguage(LanguageGerman);
    const LayoutRect place = {1, 2, 3, 4};
    EXPECT_EQ(std::u16string(FormText({0, FormStatic, place, &UiText::TextBtnClose})),
              u"Schlie\u00DFen");
    EXPECT_EQ(std::u16string(FormText({0, FormStatic, place, nullptr, u"deg"})), u"deg");
    EXPECT_EQ(std::u16string(FormText({0, FormStatic, place, nullptr})), u"");
}

TEST(Forms, ClientSizesComeBackUnchangedFromEveryUsualScreen) {
    for (const int32_t dpi : {96, 120, 144, 168, 192, 240, 288}) {
        for (const LayoutSize size : {OptionsSize, AboutSize}) {
            EXPECT_EQ(ToLogicalUnits(ToPixels(size.width, dpi), dpi), size.width);
            EXPECT_EQ(ToLogicalUnits(ToPixels(size.height, dpi), dpi), size.height);
        }
    }
}

TEST(NumberTypeRowsTest, OfferFractionsRealAndComplexNumbers) {
    FillUiTextEnglish();
    const auto rows = NumberTypeRows();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(std::u16string(rows[0].text), uiText.TextCtlRational);
    EXPECT_EQ(rows[0].value, 11);
    EXPECT_EQ(std::u16string(rows[1].text), uiText.TextCtlReal);
    EXPECT_EQ(rows[1].value, 1);
    EXPECT_EQ(std::u16string(rows[2].text), uiText.TextCtlComplex);
    EXPECT_EQ(rows[2].value, 2);
}

}  // namespace
}  // namespace tallymere
