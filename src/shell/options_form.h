// The controls of the Options window.
#pragma once

#include <algorithm>
#include <array>
#include <iterator>

#include "shell/form_control.h"
#include "shell/languages.h"

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
    OptionsFirstLanguage,  ///< the others follow in the order of Languages
    OptionsOk = OptionsFirstLanguage + LanguageCount,
    OptionsCancel,
    OptionsControlCount,
};

/// The button of a language.
constexpr OptionsControl ButtonOfLanguage(Language language) {
    return static_cast<OptionsControl>(OptionsFirstLanguage + ColumnOfLanguage(language));
}

/// The place of a button of the group of languages, counted from the top.
constexpr LayoutRect LanguageButtonPlace(int32_t index) {
    return {8, 20 + 20 * index, 140, 20};
}

// Each row: the parent, the kind, the place in the parent, the text.
inline constexpr FormControl OptionsFormBeforeLanguages[] = {
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
    {OptionsLanguagePage,
     FormGroupBox,
     {5, 5, 165, 47 + 20 * LanguageCount},
     &UiText::TextOptLanguage2},
    {OptionsLanguageGroup, FormRadioButton, LanguageButtonPlace(0),
     &UiText::TextOptAutomaticSelection2},
};
static_assert(std::size(OptionsFormBeforeLanguages) == OptionsFirstLanguage);
inline constexpr FormControl OptionsFormBehindLanguages[] = {
    {FormWindow, FormPushButton, {5, OptionsSize.height - 33, 75, 25}, &UiText::TextBtnOK},
    {FormWindow,
     FormPushButton,
     {OptionsSize.width - 84, OptionsSize.height - 33, 75, 25},
     &UiText::TextBtnCancel},
};
static_assert(std::size(OptionsFormBehindLanguages) == OptionsControlCount - OptionsOk);

/// The whole form.
inline constexpr auto OptionsForm = [] {
    std::array<FormControl, OptionsControlCount> form = {};
    auto place = std::copy(std::begin(OptionsFormBeforeLanguages),
                           std::end(OptionsFormBeforeLanguages), form.begin());
    for (int32_t i = 0; i < LanguageCount; i++) {
        *place++ = {OptionsLanguageGroup, FormRadioButton, LanguageButtonPlace(1 + i),
                    Languages[i].buttonText};
    }
    std::copy(std::begin(OptionsFormBehindLanguages), std::end(OptionsFormBehindLanguages), place);
    return form;
}();

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
inline constexpr auto OptionsLanguageButtons = [] {
    std::array<OptionsLanguageButton, LanguageCount + 1> buttons = {};
    buttons[0] = {OptionsLanguageAutomatic, LanguageAutomatic};
    for (size_t i = 0; i < LanguageCount; i++) {
        buttons[i + 1] = {ButtonOfLanguage(Languages[i].language), Languages[i].language};
    }
    return buttons;
}();

}  // namespace tallymere
