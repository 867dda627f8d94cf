// What the dialogs that open and save CSV files offer and remember.
#pragma once

#include <cstdint>

#include "core/limits.h"

namespace tallymere {

/// What the dialogs remember from one time to the next, as long as the program runs.
struct CsvDialogs {
    char16_t savedName[PathCapacity + 1] = u"";  ///< as the last file was saved
    uint32_t openFilter = 1;                     ///< the kind of files that is shown, from 1
    uint32_t saveFilter = 1;
};

/// Gives a name ".csv" unless there is a "." behind its last "\". Where there is no room, less of
/// that is appended.
void AppendCsvExtension(char16_t (&name)[PathCapacity + 1]);

/// filter = the kinds of files that the dialogs offer, CSV files and all files, as the system wants
/// them: each text and each pattern ends with a 0, and so does the whole.
inline constexpr int64_t CsvFilterCapacity = 100;
void WriteCsvFilter(char16_t (&filter)[CsvFilterCapacity + 1]);

}  // namespace tallymere
