// The controls of the Prime Numbers page, where they stand and which of them can be used.
#pragma once

#include <iterator>

#include "layout/digit_count_layout.h"
#include "layout/number_base_layout.h"
#include "prime_pages/prime_layout.h"
#include "prime_pages/prime_run.h"
#include "shell/form_control.h"

namespace tallymere {

/// The client area as it is made.
inline constexpr LayoutSize PrimeNumbersSize = {650, 368};

enum PrimeNumbersControl : int32_t {
    PrimeNumbersStartLabel,
    PrimeNumbersNumber,
    PrimeNumbersInputGroup,
    PrimeNumbersDigits,
    PrimeNumbersBase,
    PrimeNumbersModeGroup,
    PrimeNumbersIntervalMode,  ///< selected at first
    PrimeNumbersNextPrime,
    PrimeNumbersTest,
    // The buttons are one group for Tab and the arrow keys only if no other control is made between
    // them. Else two of them could be selected at a time.
    PrimeNumbersInterval,
    PrimeNumbersMethodGroup,
    PrimeNumbersExact,  ///< selected at first
    PrimeNumbersProbabilistic,
    PrimeNumbersOutput,
    PrimeNumbersStart,
    PrimeNumbersStop,
    PrimeNumbersClose,
    PrimeNumbersControlCount,
};

/// A 0 for y, width or height means that the layout of the page sets it, see
/// PlacePrimeNumbersControl. The methods get their texts from WritePrimeMethodText.
inline constexpr FormControl PrimeNumbersForm[] = {
    {FormWindow, FormStatic, {15, 17, 30, 21}, &UiText::TextFactorsStart},
    {FormWindow, FormMultilineField, {47, 15, 0, 61}, nullptr},
    {FormWindow, FormGroupBox, {15, 83, 98, 85}, &UiText::TextPrimesInputOutput},
    {PrimeNumbersInputGroup,
     FormDigitCount,
     {9, 24, LayOutDigitCount(0).control.width, LayOutDigitCount(0).control.height},
     &UiText::TextCtlDigits},
    {PrimeNumbersInputGroup,
     FormNumberBase,
     {9, 45, NumberBaseSize.width, NumberBaseSize.height},
     &UiText::TextCtlBase},
    {FormWindow, FormGroupBox, {119, 83, 210, 85}, &UiText::TextFactorsMode},
    {PrimeNumbersModeGroup, FormRadioButton, {10, 15, 110, 21}, &UiText::TextPrimesIntervalSize},
    {PrimeNumbersModeGroup, FormRadioButton, {10, 36, 120, 21}, &UiText::TextPrimesNextPrimeNumber},
    {PrimeNumbersModeGroup, FormRadioButton, {10, 57, 120, 21}, &UiText::TextPrimesPrimeNumberTest},
    {PrimeNumbersModeGroup, FormField, {120, 16, 80, 20}, nullptr, InitialPrimeInterval},
    {FormWindow, FormGroupBox, {335, 83, 240, 65}, &UiText::TextPrimesMethod},
    {PrimeNumbersMethodGroup, FormRadioButton, {10, 15, 225, 21}, nullptr},
    {PrimeNumbersMethodGroup, FormRadioButton, {10, 36, 225, 21}, nullptr},
    {FormWindow, FormMultilineField, {15, 175, 0, 0}, nullptr},
    {FormWindow, FormPushButton, {15, 0, 75, 25}, &UiText::TextBtnStart},
    {FormWindow, FormPushButton, {105, 0, 75, 25}, &UiText::TextBtnStop},
    {FormWindow, FormPushButton, {0, 0, 85, 25}, &UiText::TextBtnClose},
};
static_assert(std::size(PrimeNumbersForm) == PrimeNumbersControlCount);

inline constexpr PrimeLayout PrimeNumbersLayout = {.number = PrimeNumbersNumber,
                                                   .output = PrimeNumbersOutput,
                                                   .outputRoom = 223,
                                                   .start = PrimeNumbersStart,
                                                   .stop = PrimeNumbersStop,
                                                   .close = PrimeNumbersClose};

/// The place of a control in its parent, in a client area, both in logical units.
constexpr LayoutRect PlacePrimeNumbersControl(PrimeNumbersControl control, LayoutSize client) {
    return PlacePrimeControl(PrimeNumbersLayout, control, PrimeNumbersForm[control].place, client);
}

/// Whether a run disables a control. The base would change the numbers of the run and report its
/// errors. Mode and method are disabled as groups, and each control in them so that it shows.
constexpr bool IsDisabledDuringRun(PrimeNumbersControl control) {
    const int32_t parent = PrimeNumbersForm[control].parent;
    return control == PrimeNumbersBase || control == PrimeNumbersModeGroup ||
           control == PrimeNumbersMethodGroup || parent == PrimeNumbersModeGroup ||
           parent == PrimeNumbersMethodGroup;
}

/// The longest text of a method, in characters.
inline constexpr int64_t PrimeMethodTextCapacity = 79;

/// Writes the text of PrimeNumbersExact or PrimeNumbersProbabilistic, with the numbers of digits
/// that the method takes. `text` has room for PrimeMethodTextCapacity characters and a 0; one that
/// is longer ends in an ellipsis and raises UiErrorTextOverflow. Any other control has no such
/// text, and the result is empty.
void WritePrimeMethodText(char16_t* text, PrimeNumbersControl control);

}  // namespace tallymere
