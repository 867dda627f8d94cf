// The controls with which a page lets its user choose the numbers.
#pragma once

#include "algebra_pages/number_choice.h"
#include "toolkit/number_type_control.h"
#include "toolkit/win32.h"

namespace tallymere {

struct NumberChoiceControls {
    HWND type;  ///< FormNumberType
    HWND precision;
    HWND precisionLabel;
};

/// Puts the range and the first choice into new controls. `typeChosen` of the page has to call
/// EnablePrecision.
void BeginNumberChoice(const NumberChoiceControls& controls, NumberTypeChosen typeChosen);

/// Enables the precision and its label for a NumberType that has digits, else disables both.
void EnablePrecision(const NumberChoiceControls& controls, int32_t type);

NumberChoice ReadNumberChoice(const NumberChoiceControls& controls);

}  // namespace tallymere
