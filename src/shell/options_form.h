// The controls of the Options window.
#pragma once

#include <iterator>

#include "shell/form_control.h"
#include "shell/ui_text.h"

namespace tallymere {

/// The client area.
inline constexpr LayoutSize OptionsSize = {370, 330};

enum OptionsControl : int32_t {
    OptionsTabs,
    OptionsNumberPage,
    OptionsSeparatorGroup,
    OptionsAutomaticSeparators,
    OptionsDecimalLabel,
    OptionsDecimalList,
    OptionsThousandsLabel,
    OptionsThousandsList,
    OptionsGroupingLabel,
    OptionsGroupingCalculator,
    OptionsGroupingEquations,
    OptionsGroupingPrimes,
    OptionsLanguagePage,
    OptionsLanguageGroup,
    OptionsLanguageAutomatic,
    OptionsLanguageEnglish,
    OptionsLanguageGerman,
    OptionsOk,
    OptionsCancel,
    OptionsControlCount,
};

// Each row: the parent, the kind, the place in the parent, the text.
inline constexpr FormControl OptionsForm[] = {
    {FormWindow, FormTabControl, {5, 8, 358, 280}, nullptr},
    {OptionsTabs, FormTabPage, {}, &UiText::TextOptNumberPresentation},
    {OptionsNumberPage, FormGroupBox, {5, 5, 338, 190}, &UiText::TextOptDecimalThousandsSeparator},
    {OptionsSeparatorGroup, FormCheckBox, {8, 20, 175, 20}, &UiText::TextOptAutomaticSelection},
    {OptionsSeparatorGroup, FormStatic, {8, 47, 130, 20}, &UiText::TextOptDecimalSeparator},
    {OptionsSeparatorGroup, FormDropList, {140, 45, 190, 20}, nullptr},
    {OptionsSeparatorGroup, FormStatic, {8, 72, 130, 20}, &UiText::TextOptThousandsSeparator},
    {OptionsSeparatorGroup, FormDropList, {140, 70, 190, 20}, nullptr},
    {OptionsSeparatorGroup, FormStatic, {8, 105, 250, 20}, &UiText::TextOptUseThousandsSeparator},
    {OptionsSeparatorGroup, FormCheckBox, {8, 125, 160, 20}, &UiText::TextOptScientificCalculator},
    {OptionsSeparatorGroup, FormCheckBox, {8, 145, 160, 20}, &UiText::TextOptEquationsPolynomials},
    {OptionsSeparatorGroup, FormCheckBox, {8, 165, 160, 20}, &UiText::TextOptPrimeNumbersFactors},
    {OptionsTabs, FormTabPage, {}, &UiText::TextOptLanguage},
    {OptionsLanguagePage, FormGroupBox, {5, 5, 165, 87}, &UiText::TextOptLanguage2},
    {OptionsLanguageGroup, FormRadioButton, {8, 20, 140, 20}, &UiText::TextOptAutomaticSelection2},
    {OptionsLanguageGroup, FormRadioButton, {8, 40, 140, 20}, &UiText::TextOptEnglish},
    {OptionsLanguageGroup, FormRadioButton, {8, 60, 140, 20}, &UiText::TextOptGerman},
    {FormWindow, FormPushButton, {5, OptionsSize.height - 33, 75, 25}, &UiText::TextBtnOK},
    {FormWindow,
     FormPushButton,
     {OptionsSize.width - 84, OptionsSize.height - 33, 75, 25},
     &UiText::TextBtnCancel},
};
static_assert(std::size(OptionsForm) == OptionsControlCount);

/// The rows of the two lists. The number of a row is the value of its setting, see
/// DecimalSeparatorSetting and ThousandsSeparatorSetting.
inline constexpr UiTextEntry OptionsDecimalRows[] = {
    &UiText::TextOptPoint,
    &UiText::TextOptComma,
};
inline constexpr UiTextEntry OptionsThousandsRows[] = {
    &UiText::TextOptPoint,
    &UiText::TextOptComma,
    &UiText::TextOptApostrophe,
    &UiText::TextOptNarrowSpaceU202F,
};

/// The radio buttons of the language settings.
struct OptionsLanguageButton {
    OptionsControl button;
    Language language;
};
inline constexpr OptionsLanguageButton OptionsLanguageButtons[] = {
    {OptionsLanguageAutomatic, LanguageAutomatic},
    {OptionsLanguageEnglish, LanguageEnglish},
    {OptionsLanguageGerman, LanguageGerman},
};

}  // namespace tallymere
