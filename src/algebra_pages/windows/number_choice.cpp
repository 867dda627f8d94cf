#include "algebra_pages/windows/number_choice.h"

#include "toolkit/numeric_up_down.h"

namespace tallymere {

void BeginNumberChoice(const NumberChoiceControls& controls, NumberTypeChosen typeChosen) {
    SetNumericPosition(controls.precision, DefaultDigits);
    SetNumericRange(controls.precision, MinChosenDigits, MaxChosenDigits);
    SetNumberTypeChosen(controls.type, typeChosen);
}

void EnablePrecision(const NumberChoiceControls& controls, int32_t type) {
    const bool hasDigits = NumberTypeHasDigits(static_cast<NumberType>(type));
    EnableWindow(controls.precision, hasDigits ? TRUE : FALSE);
    EnableWindow(controls.precisionLabel, hasDigits ? TRUE : FALSE);
}

NumberChoice ReadNumberChoice(const NumberChoiceControls& controls) {
    return {.type = static_cast<NumberType>(SelectedNumberType(controls.type)),
            .digits = NumericPosition(controls.precision)};
}

}  // namespace tallymere
