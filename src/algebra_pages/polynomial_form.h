// The controls of the Polynomial Calculation page, where they stand, and what they offer.
#pragma once

#include <cstdint>
#include <iterator>

#include "algebra/polynomial_calculation.h"
#include "core/contract.h"
#include "layout/font_form.h"
#include "shell/form_control.h"

namespace tallymere {

/// The client area as it is made.
inline constexpr LayoutSize PolynomialPageSize = {600, 540};

enum PolynomialControl : int32_t {
    PolynomialCountLabel,
    PolynomialCount,
    PolynomialDegreeLabel,
    PolynomialDegree,
    PolynomialTypeLabel,
    PolynomialType,
    PolynomialPrecisionLabel,
    PolynomialPrecision,
    PolynomialHint,  ///< WritePolynomialHint
    PolynomialGrid,
    PolynomialOutput,
    PolynomialPlus,
    PolynomialMinus,
    PolynomialPower,
    PolynomialTimes,
    PolynomialDivide,
    PolynomialResultTo0,  ///< this one and those up to PolynomialClear1: WritePolynomialCaption
    PolynomialResultTo1,
    PolynomialClear0,
    PolynomialClear1,
    PolynomialClearAll,
    PolynomialClose,
    PolynomialControlCount,
};

/// A 0 for x, y, width or height means that the layout of the page sets it, see
/// PlacePolynomialControl. The text of a button for one polynomial is the format of its caption.
inline constexpr FormControl PolynomialForm[] = {
    {FormWindow, FormStatic, {10, 10, 120, 20}, &UiText::TextPolyPolynomialCount},
    {FormWindow, FormNumericUpDown, {10, 30, 40, 20}, nullptr},
    {FormWindow, FormStatic, {120, 10, 80, 20}, &UiText::TextPolyMaxDegree},
    {FormWindow, FormNumericUpDown, {120, 30, 40, 20}, nullptr},
    // Reaches beyond its list, since some fonts need more for its text.
    {FormWindow, FormStatic, {200, 10, 95, 20}, &UiText::TextLinNumberType},
    {FormWindow, FormNumberType, {200, 29, 70, 23}, nullptr},
    {FormWindow, FormStatic, {300, 10, 100, 20}, &UiText::TextCalcPrecision},
    {FormWindow, FormNumericUpDown, {300, 30, 55, 20}, nullptr},
    {FormWindow, FormStatic, {10, 65, 0, 40}, nullptr},
    {FormWindow, FormGrid, {10, 105, 0, 0}, nullptr},
    {FormWindow, FormUnbrokenField, {10, 0, 0, 0}, nullptr},
    {FormWindow, FormPushButton, {10, 0, 25, 25}, nullptr, u"+"},
    {FormWindow, FormPushButton, {40, 0, 25, 25}, nullptr, u"\u2013"},
    {FormWindow, FormPushButton, {70, 0, 25, 25}, nullptr, u"^"},
    {FormWindow, FormPushButton, {10, 0, 25, 25}, nullptr, u"*"},
    {FormWindow, FormPushButton, {40, 0, 25, 25}, nullptr, u"/"},
    {FormWindow, FormPushButton, {100, 0, 75, 25}, &UiText::TextPolyResult},
    {FormWindow, FormPushButton, {100, 0, 75, 25}, &UiText::TextPolyResult},
    {FormWindow, FormPushButton, {180, 0, 75, 25}, &UiText::TextPolyClear},
    {FormWindow, FormPushButton, {180, 0, 75, 25}, &UiText::TextPolyClear},
    {FormWindow, FormPushButton, {260, 0, 105, 25}, &UiText::TextPolyClearPolynomials},
    {FormWindow, FormPushButton, {0, 0, 75, 25}, &UiText::TextBtnClose},
};
static_assert(std::size(PolynomialForm) == PolynomialControlCount);

/// The buttons of operators, and their font.
struct PolynomialOperatorButton {
    PolynomialControl control;
    PolyOperator operation;
};
inline constexpr PolynomialOperatorButton PolynomialOperators[] = {
    {PolynomialPlus, PolyOperator::Plus},     {PolynomialMinus, PolyOperator::Minus},
    {PolynomialPower, PolyOperator::Power},   {PolynomialTimes, PolyOperator::Times},
    {PolynomialDivide, PolyOperator::Divide},
};
inline constexpr FontForm PolynomialOperatorFont = {u"Verdana", 13};

/// Distances, in logical units.
inline constexpr int32_t PolynomialMargins = 20;        ///< left and right of text, grid and output
inline constexpr int32_t PolynomialButtonsHeight = 70;  ///< what both rows of buttons take
inline constexpr int32_t PolynomialGap = 5;             ///< below the grid and below the output
inline constexpr int32_t PolynomialUpperRoom = 63;  ///< from the lower edge to the top of the row
inline constexpr int32_t PolynomialLowerRoom = 33;
inline constexpr int32_t PolynomialCloseRoom = 85;  ///< from the right edge to that of Close

/// The place of a control in a client area, both in logical units. In an area that is too small,
/// sizes are negative; the system treats them as 0.
constexpr LayoutRect PlacePolynomialControl(PolynomialControl control, LayoutSize client) {
    LayoutRect place = PolynomialForm[control].place;
    const int32_t top = PolynomialForm[PolynomialGrid].place.y;
    const int32_t half = (client.height - top - PolynomialButtonsHeight) / 2;
    switch (control) {
        case PolynomialHint:
            place.width = client.width - PolynomialMargins;
            break;
        case PolynomialGrid:
            place.width = client.width - PolynomialMargins;
            place.height = half - PolynomialGap;
            break;
        case PolynomialOutput:
            place.y = top + half;
            place.width = client.width - PolynomialMargins;
            place.height = half - PolynomialGap;
            break;
        case PolynomialPlus:
        case PolynomialMinus:
        case PolynomialPower:
        case PolynomialResultTo0:
        case PolynomialClear0:
        case PolynomialClearAll:
            place.y = client.height - PolynomialUpperRoom;
            break;
        case PolynomialTimes:
        case PolynomialDivide:
        case PolynomialResultTo1:
        case PolynomialClear1:
            place.y = client.height - PolynomialLowerRoom;
            break;
        case PolynomialClose:
            place.x = client.width - PolynomialCloseRoom;
            place.y = client.height - PolynomialLowerRoom;
            break;
        case PolynomialCountLabel:
        case PolynomialCount:
        case PolynomialDegreeLabel:
        case PolynomialDegree:
        case PolynomialTypeLabel:
        case PolynomialType:
        case PolynomialPrecisionLabel:
        case PolynomialPrecision:
        case PolynomialControlCount:
            break;
    }
    return place;
}

/// The grid: a row for each polynomial, and a column for each coefficient, that of the highest
/// power first.
inline constexpr int32_t PolynomialColumnWidth = 80;
inline constexpr int32_t PolynomialLabelWidth = 40;

constexpr int32_t ColumnOfPower(int32_t power) {
    TALLYMERE_REQUIRE(power >= 0 && power <= MaxPolyDegree);
    return MaxPolyDegree - power;
}

/// What PolynomialHint shows for a highest degree: "Enter the coefficients of the polynomials
/// Pi(x) = ..." in a buffer of PolynomialHintCapacity + 1 characters.
inline constexpr int64_t PolynomialHintCapacity = 250;
void WritePolynomialHint(char16_t* buffer, int64_t degree);

/// The caption of a button for one polynomial, PolynomialResultTo0 to PolynomialClear1, such as
/// "Clear P0", in a buffer of PolynomialCaptionCapacity + 1 characters.
inline constexpr int64_t PolynomialCaptionCapacity = 31;
void WritePolynomialCaption(char16_t* buffer, PolynomialControl button);

/// The polynomial of such a button.
constexpr int32_t PolynomialOfButton(PolynomialControl button) {
    TALLYMERE_REQUIRE(button >= PolynomialResultTo0 && button <= PolynomialClear1);
    return button == PolynomialResultTo0 || button == PolynomialClear0 ? 0 : 1;
}

}  // namespace tallymere
