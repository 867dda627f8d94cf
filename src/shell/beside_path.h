// The file into which a new content is written, before it takes the place of another file.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/limits.h"

namespace tallymere {

/// Its name. It is one for all files of a folder, so a program that is ended while it writes leaves
/// one file at most, which the next one to write there takes.
inline constexpr char16_t BesideName[] = u"~tallymere.new";

/// A path may become longer than others by this name and by VerbatimShare, which lets Windows take
/// such a path.
inline constexpr char16_t VerbatimDrive[] = u"\\\\?\\";
inline constexpr char16_t VerbatimShare[] = u"\\\\?\\UNC";
inline constexpr int64_t BesidePathCapacity = PathCapacity + 21;

/// True when the name at the end of a path means the file beside, whose old content could not be
/// kept: letters count alike in both cases, and Windows drops dots and spaces behind a name.
bool NamesBesideFile(std::u16string_view path);

/// beside = the file in the folder of `path`, which has at most PathCapacity characters and ends
/// with a 0. Only a path that begins with a drive or a share can become longer than PathCapacity.
void FormatBesidePath(char16_t (&beside)[BesidePathCapacity + 1], const char16_t* path);

}  // namespace tallymere
