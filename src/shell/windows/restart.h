// A new start of the program, which is how a change of language takes effect.
#pragma once

namespace tallymere {

/// Writes the settings, starts the program's own file anew and lets this process end. Settings that
/// cannot be written are reported each time, and nothing else happens.
void RestartProgram();

}  // namespace tallymere
