// The settings file as text: one walk over its sections and keys, for reading and for writing.
//
// The order of the lines is part of the format:
//
//     [options]
//     language = (automatic)
//     ...
//     [scientific_calculator]
//     angle_type = rad
//     ...
//     variable00 = name;value
//     [hints]
//     show_welcome_hint = 1
//
// The reader expects every key at its place. When a key is not there, its setting keeps the default
// and the reader stays at the line. So a line in the wrong place hides all keys up to its own. A
// section line only moves the reader on. A missing or wrong line is never an error.
#pragma once

#include <cstdint>
#include <string_view>

#include "shell/settings.h"
#include "shell/text_sink.h"

namespace tallymere {

/// Reads all settings from the text of a file, which ends with a 0 character. The empty text gives
/// the defaults. settingsDirty is false afterwards. The text is changed: 0 characters replace line
/// ends. The variables point into it, so it must live as long as they do.
///
/// Only U+0020 is a blank. Blanks may stand in front of a line and around its first "=". A value
/// ends before a carriage return or a line feed. The character behind a carriage return counts as
/// the line feed, whatever it is.
void ReadSettings(Settings& record, char16_t* text);

/// Appends the text of a file with these settings. All lines end with carriage return and line
/// feed. A line end inside a text of a variable becomes a blank, because the reader would take it
/// for the end of the line. Formulas read it as a blank anyway. A sink of capacity 0 counts the
/// characters.
void WriteSettings(TextSink& sink, const Settings& record);

/// True for a name of a variable that the file gives back as it is: it has no ";", which ends a
/// name there, no line end, and no blank at its ends.
bool SettingsKeepName(std::u16string_view name);

/// True if reading these bytes of a file and writing them again gives the same bytes. WriteSettings
/// makes only such files, save for names that SettingsKeepName refuses; a part of one, or one with
/// a gap, is none. False also if there is no memory to find out.
bool IsWholeSettingsFile(const uint8_t* bytes, int64_t byteCount);

}  // namespace tallymere
