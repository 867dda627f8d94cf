// The settings file on disk: read once at the start, written at the end if something changed.
//
// Nothing about it ever reaches the user. A file that cannot be read gives the defaults, and one
// that cannot be written is dropped.
#pragma once

namespace tallymere {

/// The path of the file. The first call finds it and makes its folder if there is none; the path
/// then stays.
const char16_t* SettingsPath();

/// Reads the file into the settings, with the defaults when that fails. The text of the file stays
/// in memory, since the variables of the settings point into it. To be called once.
void LoadSettings();

/// Takes over the calculator's variables, if they changed, and writes the file if anything did.
void SaveSettings();

}  // namespace tallymere
