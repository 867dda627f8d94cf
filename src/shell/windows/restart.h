// A new start of the program, which is how a change of language takes effect.
#pragma once

namespace tallymere {

/// Writes the settings, starts the program's own file anew and lets this process end. Settings that
/// could not be written are reported, and nothing else happens.
void RestartProgram();

}  // namespace tallymere
