// What the Options dialog decides: how its controls show the settings, and what OK makes of them.
#pragma once

#include <cstdint>

#include "shell/settings.h"

namespace tallymere {

/// The position of a list in which no row is selected.
inline constexpr int32_t NoRow = -1;

/// What the controls of the dialog say; see shell/options_form.h for them.
struct OptionsChoices {
    bool automaticSeparators = false;  ///< while set, the lists and their labels are disabled
    int32_t decimalRow = NoRow;        ///< a DecimalSeparatorSetting
    int32_t thousandsRow = NoRow;      ///< a ThousandsSeparatorSetting
    bool groupCalculator = false;
    bool groupEquations = false;
    bool groupPrimes = false;
    Language language = LanguageAutomatic;  ///< of the button that is checked, automatic for none
};

/// The choices as they are when the dialog opens. With automatic separators the lists keep the rows
/// that they had.
void ShowOptions(OptionsChoices& choices, const Settings& record);

struct OptionsOutcome {
    bool accepted;           ///< the dialog may close
    bool separatorsChanged;  ///< they are to be applied
    bool languageChanged;    ///< a restart is to be offered
};

/// What OK does: takes the choices over into the settings, which are to be written if that changed
/// any. Without automatic separators there must be a row in both lists, and not the same; otherwise
/// UiErrorSeparators is raised and no choice is taken over.
OptionsOutcome AcceptOptions(Settings& record, const OptionsChoices& choices);

}  // namespace tallymere
