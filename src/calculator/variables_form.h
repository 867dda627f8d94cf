// The controls of the variables dialog.
#pragma once

#include <iterator>

#include "calculator/variable_table.h"
#include "shell/form_control.h"

namespace tallymere {

/// The size of the client area at first.
inline constexpr LayoutSize VariablesSize = {370, 230};

enum VariablesControl : int32_t {
    VariablesListLabel,
    VariablesList,
    VariablesNameLabel,
    VariablesName,  ///< takes VariableNameCharacters characters at most
    VariablesValueLabel,
    VariablesValue,
    VariablesAssign,
    VariablesTakeName,
    VariablesAdd,
    VariablesInsert,
    VariablesDelete,
    VariablesControlCount,
};

/// A 0 for y, width or height means that the layout of the dialog sets it, see
/// PlaceVariablesControl.
inline constexpr FormControl VariablesForm[] = {
    {FormWindow, FormStatic, {10, 10, 100, 20}, &UiText::TextVarVariables},
    {FormWindow, FormList, {10, 30, 120, 0}, nullptr},
    {FormWindow, FormStatic, {135, 10, 140, 20}, &UiText::TextVarName},
    {FormWindow, FormField, {135, 30, 120, 20}, nullptr},
    {FormWindow, FormStatic, {135, 60, 80, 20}, &UiText::TextVarStringValue},
    {FormWindow, FormMultilineField, {135, 80, 0, 0}, nullptr},
    {FormWindow, FormPushButton, {10, 0, 115, 25}, &UiText::TextVarAssignResult},
    {FormWindow, FormPushButton, {10, 0, 115, 25}, &UiText::TextVarTakeName},
    {FormWindow, FormPushButton, {130, 0, 115, 25}, &UiText::TextVarAddVariable},
    {FormWindow, FormPushButton, {130, 0, 115, 25}, &UiText::TextVarInsertVariable},
    {FormWindow, FormPushButton, {250, 0, 115, 25}, &UiText::TextVarDeleteVariable},
};
static_assert(std::size(VariablesForm) == VariablesControlCount);

/// Distances from the right or the lower edge of the client area.
inline constexpr int32_t VariablesRightMargin = 10;   ///< to the value box
inline constexpr int32_t VariablesButtonRoom = 65;    ///< to list and value box
inline constexpr int32_t VariablesUpperButtons = 58;  ///< to the top of the upper row of buttons
inline constexpr int32_t VariablesLowerButtons = 30;  ///< to the top of the lower row of buttons

/// The place of a control in a client area, both in logical units. List and value box fill the
/// area; the buttons stand in two rows at its bottom. In an area that is too small, sizes are
/// negative; the system treats them as 0.
constexpr LayoutRect PlaceVariablesControl(VariablesControl control, LayoutSize client) {
    LayoutRect place = VariablesForm[control].place;
    switch (control) {
        case VariablesList:
            place.height = client.height - VariablesButtonRoom - place.y;
            break;
        case VariablesValue:
            place.width = client.width - VariablesRightMargin - place.x;
            place.height = client.height - VariablesButtonRoom - place.y;
            break;
        case VariablesAssign:
        case VariablesAdd:
            place.y = client.height - VariablesUpperButtons;
            break;
        case VariablesTakeName:
        case VariablesInsert:
        case VariablesDelete:
            place.y = client.height - VariablesLowerButtons;
            break;
        case VariablesListLabel:
        case VariablesNameLabel:
        case VariablesName:
        case VariablesValueLabel:
        case VariablesControlCount:
            break;
    }
    return place;
}

/// Where the dialog is shown: beside the page. Both places are in pixels of the screen, at `dpi`.
constexpr LayoutPoint PlaceVariablesBeside(const LayoutRect& page, int32_t dpi) {
    return {page.x + page.width - ToPixels(5, dpi), page.y + ToPixels(50, dpi)};
}

}  // namespace tallymere
