// The variables dialog.
#pragma once

namespace tallymere {

/// Makes variablesWindow, hidden, which the calculator page owns, and takes the variables of the
/// settings over.
void CreateVariablesWindow();

}  // namespace tallymere
