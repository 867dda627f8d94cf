// From an error of the program to a line of output.
#pragma once

#include <cstdint>
#include <string>

namespace tallymere {

/// "error CODE: MESSAGE" of the pending error, which is cleared. A position other than 0 stands
/// behind the code.
std::string TakeErrorLine(uint64_t position = 0);

/// The same for a code and a message that are no pending error.
std::string ErrorLine(uint64_t code, uint64_t position, const char16_t* message);

}  // namespace tallymere
