// Where the program's files lie: the settings of the user and the help pages beside the program.
#pragma once

#include <cstdint>

#include "core/limits.h"
#include "shell/ui_text.h"

namespace tallymere {

// Each function writes a text that ends at a 0. One that does not fit its buffer ends in an
// ellipsis and raises UiErrorTextOverflow.

/// The folder of the settings below the user's folder for the data of programs.
void FormatSettingsFolder(char16_t (&folder)[PathCapacity + 1], const char16_t* userFolder);

/// The settings file in its folder; with the empty folder it lies in the root of the drive.
void FormatSettingsFile(char16_t (&path)[PathCapacity + 1], const char16_t* folder);

/// Where a settings file is kept that could not be read: beside its place, with ".bad" behind its
/// name, and a number if there are several. `number` is 1 to MaxUnreadFiles.
inline constexpr int32_t MaxUnreadFiles = 9;
inline constexpr int64_t UnreadPathCapacity = PathCapacity + 5;
void FormatUnreadFile(char16_t (&path)[UnreadPathCapacity + 1], const char16_t* settingsFile,
                      int32_t number);

/// The folder of all help beside the program, whose full path is given.
void FormatHelpFolder(char16_t (&folder)[PathCapacity + 1], const char16_t* programFile);

/// What a web address of a file begins with; the path stands behind it.
inline constexpr char16_t FileScheme[] = u"file:///";
inline constexpr int64_t FileSchemeCharacters = int64_t{sizeof(FileScheme) / sizeof(char16_t)} - 1;

/// The web address of the first help page in a language, in the folder of all help.
void FormatHelpAddress(char16_t (&address)[PathCapacity + 1], const char16_t* helpFolder,
                       Language language);

}  // namespace tallymere
