// The variables dialog.
#pragma once

namespace tallymere {

/// Makes variablesWindow, hidden, which the calculator page owns and must be there. It shows the
/// variables that the page has taken over from the settings.
void CreateVariablesWindow();

}  // namespace tallymere
