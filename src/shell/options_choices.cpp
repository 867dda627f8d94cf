#include "shell/options_choices.h"

#include "shell/ui_error.h"

namespace tallymere {

void ShowOptions(OptionsChoices& choices, const Settings& record) {
    choices.automaticSeparators = record.decimalSeparator == DecimalAutomatic ||
                                  record.thousandsSeparator == ThousandsAutomatic;
    if (!choices.automaticSeparators) {
        choices.decimalRow = record.decimalSeparator;
        choices.thousandsRow = record.thousandsSeparator;
    }
    choices.groupCalculator = record.groupCalculator;
    choices.groupEquations = record.groupEquations;
    choices.groupPrimes = record.groupPrimes;
    choices.language = record.language;
}

OptionsOutcome AcceptOptions(Settings& record, const OptionsChoices& choices) {
    int32_t decimal = DecimalAutomatic;
    int32_t thousands = ThousandsAutomatic;
    if (!choices.automaticSeparators) {
        decimal = choices.decimalRow;
        thousands = choices.thousandsRow;
        if (decimal == NoRow || thousands == NoRow || decimal == thousands) {
            SetUiError(UiErrorSeparators);
            return {false, false, false};
        }
    }
    ChangeSetting(record, &Settings::groupCalculator, choices.groupCalculator);
    ChangeSetting(record, &Settings::groupEquations, choices.groupEquations);
    ChangeSetting(record, &Settings::groupPrimes, choices.groupPrimes);
    const bool decimalChanged = ChangeSetting(record, &Settings::decimalSeparator, decimal);
    const bool thousandsChanged = ChangeSetting(record, &Settings::thousandsSeparator, thousands);
    return {true, decimalChanged || thousandsChanged,
            ChangeSetting(record, &Settings::language, choices.language)};
}

}  // namespace tallymere
