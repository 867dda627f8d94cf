// The controls of the page of linear systems, and where they stand.
#pragma once

#include <cstdint>
#include <iterator>

#include "shell/form_control.h"

namespace tallymere {

/// The client area as it is made.
inline constexpr LayoutSize SystemPageSize = {600, 540};

enum SystemControl : int32_t {
    SystemCountLabel,
    SystemCount,
    SystemTypeLabel,
    SystemType,
    SystemPrecisionLabel,
    SystemPrecision,
    SystemHint,
    SystemGrid,
    SystemOutput,
    SystemSolve,
    SystemClear,
    SystemLoad,
    SystemSaveAs,
    SystemClose,
    SystemControlCount,
};

/// A 0 for x, y, width or height means that the layout of the page sets it, see
/// PlaceSystemControl.
inline constexpr FormControl SystemForm[] = {
    {FormWindow, FormStatic, {10, 10, 150, 20}, &UiText::TextLinEquationCount},
    {FormWindow, FormNumericUpDown, {10, 30, 40, 20}, nullptr},
    // Reaches beyond its list, since some fonts need more for its text.
    {FormWindow, FormStatic, {140, 10, 95, 20}, &UiText::TextLinNumberType},
    {FormWindow, FormNumberType, {140, 29, 70, 23}, nullptr},
    {FormWindow, FormStatic, {240, 10, 100, 20}, &UiText::TextCalcPrecision},
    {FormWindow, FormNumericUpDown, {240, 30, 55, 20}, nullptr},
    {FormWindow, FormStatic, {10, 62, 0, 40}, &UiText::TextLinEnterCoefficientsAiNumber},
    {FormWindow, FormGrid, {10, 102, 0, 0}, nullptr},
    {FormWindow, FormUnbrokenField, {10, 0, 0, 0}, nullptr},
    {FormWindow, FormPushButton, {10, 0, 75, 25}, &UiText::TextAlgSolve},
    {FormWindow, FormPushButton, {90, 0, 75, 25}, &UiText::TextLinClear},
    {FormWindow, FormPushButton, {170, 0, 75, 25}, &UiText::TextLinLoad},
    {FormWindow, FormPushButton, {250, 0, 80, 25}, &UiText::TextLinSaveAs},
    {FormWindow, FormPushButton, {0, 0, 75, 25}, &UiText::TextBtnClose},
};
static_assert(std::size(SystemForm) == SystemControlCount);

/// Of the grid, in logical units.
inline constexpr int32_t SystemLabelWidth = 40;
inline constexpr int32_t SystemColumnWidth = 80;

/// Distances, in logical units.
inline constexpr int32_t SystemMargins = 20;        ///< left and right of hint, grid and output
inline constexpr int32_t SystemButtonsHeight = 40;  ///< what the buttons take
inline constexpr int32_t SystemGap = 5;             ///< below the grid and below the output
inline constexpr int32_t SystemButtonsRoom = 33;  ///< from the lower edge to the top of the buttons
inline constexpr int32_t SystemCloseRoom = 85;    ///< from the right edge to that of Close

/// The place of a control in a client area, both in logical units. In an area that is too small,
/// sizes are negative; the system treats them as 0.
constexpr LayoutRect PlaceSystemControl(SystemControl control, LayoutSize client) {
    LayoutRect place = SystemForm[control].place;
    const int32_t top = SystemForm[SystemGrid].place.y;
    const int32_t half = (client.height - top - SystemButtonsHeight) / 2;
    switch (control) {
        case SystemHint:
            place.width = client.width - SystemMargins;
            break;
        case SystemGrid:
            place.width = client.width - SystemMargins;
            place.height = half - SystemGap;
            break;
        case SystemOutput:
            place.y = top + half;
            place.width = client.width - SystemMargins;
            place.height = half - SystemGap;
            break;
        case SystemSolve:
        case SystemClear:
        case SystemLoad:
        case SystemSaveAs:
            place.y = client.height - SystemButtonsRoom;
            break;
        case SystemClose:
            place.x = client.width - SystemCloseRoom;
            place.y = client.height - SystemButtonsRoom;
            break;
        case SystemCountLabel:
        case SystemCount:
        case SystemTypeLabel:
        case SystemType:
        case SystemPrecisionLabel:
        case SystemPrecision:
        case SystemControlCount:
            break;
    }
    return place;
}

}  // namespace tallymere
