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
// The reader expects every key at its place. One that is not there leaves its setting at the
// default and the position where it is, so that a line out of place hides all keys up to its own. A
// section line only moves the position: one that is missing or wrong is no error, as nothing is.
#pragma once

#include "shell/settings.h"
#include "shell/text_sink.h"

namespace tallymere {

/// Takes all settings from the text of a file, which ends at a 0 character; the empty text gives
/// the defaults. The settings equal the file then. The variables point into the text, which is
/// changed (0 characters take the place of line ends) and must live as long as they.
///
/// Only U+0020 is a blank, and blanks may stand before a line and around its first "=". A value
/// ends before a carriage return or a line feed. The character behind a carriage return is taken
/// for the line feed, whatever it is.
void ReadSettings(Settings& record, char16_t* text);

/// Appends the text of a file with these settings; all lines end in carriage return and line feed.
/// A line end within a text of a variable becomes a blank, as which formulas read it: it would cut
/// the file short for the reader. A sink of capacity 0 tells how long the text is.
void WriteSettings(TextSink& sink, const Settings& record);

}  // namespace tallymere
