// The file that the program was started from.
#pragma once

namespace tallymere {

/// Its full path, never cut, in a buffer of the process.
const char16_t* ProgramFile();

}  // namespace tallymere
