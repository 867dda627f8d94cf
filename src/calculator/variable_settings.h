// The calculator's variables on their way from the settings and back.
#pragma once

#include "shell/settings.h"

namespace tallymere {

/// Puts the variables of the settings behind those of the table, which is empty at the start of the
/// program, as far as there is room. Texts are copied; one that is too long ends in an ellipsis. An
/// empty name becomes "var??". The table does not count as changed.
void LoadVariables(const Settings& record);

/// If the table was changed, gives its variables to the settings, which are then to be written, and
/// the table counts as unchanged. The settings' texts are those in the table: they hold until it is
/// changed again, and then this has to be called once more before they are written.
void StoreVariables(Settings& record);

}  // namespace tallymere
