// Moves the calculator's variables from the settings to the table and back.
#pragma once

#include "shell/settings.h"

namespace tallymere {

/// Appends the variables of the settings to the table, as many as fit. The table is empty at the
/// start of the program. Texts are copied. A text that is too long ends with an ellipsis. An empty
/// name becomes "var??". The table does not count as changed. Without memory the program ends.
void LoadVariables(const Settings& record);

/// If the table was changed, puts its variables into the settings and sets settingsDirty. The table
/// counts as unchanged then. The settings point to the texts of the table. So after another change
/// of the table this must be called again before the settings are written.
void StoreVariables(Settings& record);

}  // namespace tallymere
