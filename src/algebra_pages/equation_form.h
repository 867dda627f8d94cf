// The controls of the Algebraic Equations page, and where they stand.
#pragma once

#include <algorithm>
#include <iterator>

#include "shell/form_control.h"

namespace tallymere {

/// The client area as it is made.
inline constexpr LayoutSize EquationPageSize = {600, 540};

enum EquationControl : int32_t {
    EquationDegreeField,
    EquationDegreeLabel,
    EquationModeList,  ///< EquationModeItems
    EquationModeLabel,
    EquationResultTypeList,  ///< EquationResultTypeItems
    EquationResultTypeLabel,
    EquationPrecision,
    EquationPrecisionLabel,
    EquationMultiplicity,  ///< checked at first
    EquationText,          ///< WriteEquationText
    EquationGrid,
    EquationOutput,
    EquationSolve,
    EquationClear,
    EquationClose,
    EquationControlCount,
};

/// The items of the lists; the first one is selected at first.
inline constexpr UiTextEntry EquationModeItems[] = {&UiText::TextAlgReal, &UiText::TextAlgComplex};
inline constexpr UiTextEntry EquationResultTypeItems[] = {&UiText::TextAlgApproximation,
                                                          &UiText::TextAlgExactValue};
inline constexpr int32_t ComplexModeItem = 1;
inline constexpr int32_t ExactValueItem = 1;

/// A 0 for x, y, width or height means that the layout of the page sets it, see
/// PlaceEquationControl.
inline constexpr FormControl EquationForm[] = {
    {FormWindow, FormNumericUpDown, {10, 10, 40, 20}, nullptr},
    {FormWindow, FormStatic, {55, 12, 45, 20}, &UiText::TextAlgDegree},
    {FormWindow, FormDropList, {10, 42, 105, 20}, nullptr},
    {FormWindow, FormStatic, {120, 45, 40, 20}, &UiText::TextAlgMode},
    {FormWindow, FormDropList, {10, 76, 105, 20}, nullptr},
    {FormWindow, FormStatic, {120, 79, 65, 20}, &UiText::TextAlgResultType},
    {FormWindow, FormNumericUpDown, {10, 110, 53, 20}, nullptr},
    {FormWindow, FormStatic, {65, 112, 65, 20}, &UiText::TextCalcPrecision},
    {FormWindow, FormCheckBox, {10, 140, 80, 20}, &UiText::TextAlgMultiplicity},
    {FormWindow, FormStatic, {200, 10, 0, 38}, nullptr},
    {FormWindow, FormGrid, {200, 48, 0, 0}, nullptr},
    {FormWindow, FormUnbrokenField, {10, 0, 0, 0}, nullptr},
    {FormWindow, FormPushButton, {10, 0, 75, 25}, &UiText::TextAlgSolve},
    {FormWindow, FormPushButton, {90, 0, 75, 25}, &UiText::TextLinClear},
    {FormWindow, FormPushButton, {0, 0, 75, 25}, &UiText::TextBtnClose},
};
static_assert(std::size(EquationForm) == EquationControlCount);

/// The columns of the grid, in logical units.
inline constexpr int32_t EquationLabelsWidth = 40;
inline constexpr int32_t EquationCoefficientsWidth = 120;  ///< before it reaches to the edge

/// Distances, in logical units.
inline constexpr int32_t EquationRightMargin = 10;  ///< to the right of grid, text and output
inline constexpr int32_t EquationOutputTop = 166;   ///< of the output, in a low window
inline constexpr int32_t EquationOutputRoom = 213;  ///< what the output leaves of the height
inline constexpr int32_t EquationGridHeight = 105;  ///< in a low window
inline constexpr int32_t EquationButtonsRoom = 33;  ///< from the lower edge to top of the buttons
inline constexpr int32_t EquationCloseRoom = 85;    ///< from the right edge to that of Close
inline constexpr int32_t EquationLowHeight = 420;   ///< a window below this height is low
inline constexpr int32_t EquationBaseHeight = 400;  ///< what a higher one has beyond this
inline constexpr int32_t EquationMaxExtraHeight = 125;  ///< goes to the grid, up to so much

/// The height that the grid has beyond that in a low window.
constexpr int32_t EquationExtraHeight(int32_t height) {
    return height < EquationLowHeight
               ? 0
               : std::min(height - EquationBaseHeight, EquationMaxExtraHeight);
}

/// The place of a control in a client area, both in logical units. In an area that is too small,
/// sizes are negative; the system treats them as 0.
constexpr LayoutRect PlaceEquationControl(EquationControl control, LayoutSize client) {
    LayoutRect place = EquationForm[control].place;
    const int32_t extra = EquationExtraHeight(client.height);
    switch (control) {
        case EquationText:
            place.width = client.width - place.x - EquationRightMargin;
            break;
        case EquationGrid:
            place.width = client.width - place.x - EquationRightMargin;
            place.height = EquationGridHeight + extra;
            break;
        case EquationOutput:
            place.y = EquationOutputTop + extra;
            place.width = client.width - place.x - EquationRightMargin;
            place.height = client.height - extra - EquationOutputRoom;
            break;
        case EquationClose:
            place.x = client.width - EquationCloseRoom;
            place.y = client.height - EquationButtonsRoom;
            break;
        case EquationSolve:
        case EquationClear:
            place.y = client.height - EquationButtonsRoom;
            break;
        case EquationDegreeField:
        case EquationDegreeLabel:
        case EquationModeList:
        case EquationModeLabel:
        case EquationResultTypeList:
        case EquationResultTypeLabel:
        case EquationPrecision:
        case EquationPrecisionLabel:
        case EquationMultiplicity:
        case EquationControlCount:
            break;
    }
    return place;
}

/// What EquationText shows for a degree: "Enter the coefficients of the equation ... = 0." in a
/// buffer of EquationTextCapacity + 1 characters.
inline constexpr int64_t EquationTextCapacity = 200;
void WriteEquationText(char16_t* buffer, int64_t degree);

}  // namespace tallymere
