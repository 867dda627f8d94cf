// The controls of the Prime Factors page, where they stand and which of them can be used.
#pragma once

#include <iterator>

#include "layout/digit_count_layout.h"
#include "layout/number_base_layout.h"
#include "prime_pages/prime_layout.h"
#include "shell/form_control.h"

namespace tallymere {

/// The client area as it is made.
inline constexpr LayoutSize PrimeFactorsSize = {562, 316};

enum PrimeFactorsControl : int32_t {
    PrimeFactorsStartLabel,
    PrimeFactorsNumber,
    PrimeFactorsInputGroup,
    PrimeFactorsDigits,
    PrimeFactorsBase,
    PrimeFactorsModeGroup,
    PrimeFactorsFactors,  ///< selected at first
    PrimeFactorsDivisors,
    PrimeFactorsShowCount,
    PrimeFactorsIntervalGroup,
    PrimeFactorsInterval,
    PrimeFactorsOutput,
    PrimeFactorsStart,
    PrimeFactorsStop,
    PrimeFactorsClose,
    PrimeFactorsControlCount,
};

/// A 0 for y, width or height means that the layout of the page sets it, see
/// PlacePrimeFactorsControl.
inline constexpr FormControl PrimeFactorsForm[] = {
    {FormWindow, FormStatic, {15, 17, 30, 21}, &UiText::TextFactorsStart},
    {FormWindow, FormField, {47, 15, 0, 21}, nullptr},
    {FormWindow, FormGroupBox, {15, 43, 98, 85}, &UiText::TextPrimesInputOutput},
    {PrimeFactorsInputGroup,
     FormDigitCount,
     {9, 24, LayOutDigitCount(0).control.width, LayOutDigitCount(0).control.height},
     &UiText::TextCtlDigits},
    {PrimeFactorsInputGroup,
     FormNumberBase,
     {9, 45, NumberBaseSize.width, NumberBaseSize.height},
     &UiText::TextCtlBase},
    {FormWindow, FormGroupBox, {119, 43, 150, 85}, &UiText::TextFactorsMode},
    {PrimeFactorsModeGroup, FormRadioButton, {10, 15, 110, 21}, &UiText::TextFactorsPrimeFactors},
    {PrimeFactorsModeGroup, FormRadioButton, {10, 36, 120, 21}, &UiText::TextFactorsDivisors},
    {PrimeFactorsModeGroup, FormCheckBox, {10, 57, 120, 21}, &UiText::TextFactorsNumberDivisors},
    {FormWindow, FormGroupBox, {274, 43, 100, 50}, &UiText::TextFactorsIntervalSize},
    {PrimeFactorsIntervalGroup, FormField, {10, 20, 80, 20}, nullptr},
    {FormWindow, FormMultilineField, {15, 135, 0, 0}, nullptr},
    {FormWindow, FormPushButton, {15, 0, 75, 25}, &UiText::TextBtnStart},
    {FormWindow, FormPushButton, {105, 0, 75, 25}, &UiText::TextBtnStop},
    {FormWindow, FormPushButton, {0, 0, 85, 25}, &UiText::TextBtnClose},
};
static_assert(std::size(PrimeFactorsForm) == PrimeFactorsControlCount);

inline constexpr PrimeLayout PrimeFactorsLayout = {.number = PrimeFactorsNumber,
                                                   .output = PrimeFactorsOutput,
                                                   .outputRoom = 183,
                                                   .start = PrimeFactorsStart,
                                                   .stop = PrimeFactorsStop,
                                                   .close = PrimeFactorsClose};

/// The place of a control in its parent, in a client area, both in logical units.
constexpr LayoutRect PlacePrimeFactorsControl(PrimeFactorsControl control, LayoutSize client) {
    return PlacePrimeControl(PrimeFactorsLayout, control, PrimeFactorsForm[control].place, client);
}

/// Whether a control can be used while `mode`, one of the two radio buttons, is selected. The
/// number of divisors can be asked for with divisors alone.
constexpr bool IsEnabledInMode(PrimeFactorsControl control, PrimeFactorsControl mode) {
    return control != PrimeFactorsShowCount || mode == PrimeFactorsDivisors;
}

/// Whether a run disables a control. The base alone would change the numbers of the run, and would
/// report its errors.
constexpr bool IsDisabledDuringRun(PrimeFactorsControl control) {
    return control == PrimeFactorsBase;
}

}  // namespace tallymere
