// The settings file on disk: read once at the start, written whenever something changed.
//
// At any moment one whole file is there, the old or the new one, in its place or beside it: the new
// one is written beside the old one and then put in its place, and a whole one that was left beside
// by a program which was ended in between is put there at the next start. If the one in place was
// written later, by the user, it stays, and the one beside gets another name. Several programs in
// one session take turns, so the last one to write wins, with a whole file.
//
// What the file has in it is never an error. One that is there but cannot be read gives the
// defaults, and is kept under another name before anything takes its place.
#pragma once

#include <cstdint>

namespace tallymere {

/// The path of the file. The first call finds it and makes its folder if there is none; the path
/// then stays.
const char16_t* SettingsPath();

/// Reads the file into the settings, with the defaults when that fails. The text of the file stays
/// in memory, since the variables of the settings point into it. To be called once.
void LoadSettings();

/// Takes over the calculator's variables, if they changed, and writes the file if anything did.
/// Returns false if it could not be written: the old file is there, under its name or that of a
/// file which could not be read, and settingsDirty stays set. Nothing is said, so this serves at
/// the end of the system's session too, also while a page calculates.
bool SaveSettings();

/// The same, but a failure is said in a message box, and once: not again before a success. The menu
/// is there. While a page calculates nothing is said, because the errors are those of the run.
bool SaveSettingsOrReport();

/// The same at the end of the program. What was written before is written again, since another
/// program may have written meanwhile: the last one to end wins with all that it changed.
bool SaveSettingsAtEnd();

/// Says that the settings could not be written, however often it was said. No page calculates.
void ReportUnsavedSettings();

/// Waits before a file that somebody else may be holding is tried again; `tries` there were so far,
/// 1 or more. False to give up. Tests put a function in its place that does not wait.
using FileWaiter = bool (*)(int32_t tries);
extern FileWaiter waitForFile;

}  // namespace tallymere
