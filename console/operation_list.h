// The operators, constants and functions that formulas may hold, as --help lists them.
#pragma once

#include <string>

namespace tallymere {

/// The list in lines of at most 79 characters, UTF-8. It comes from the tables of the formulas:
/// operators by their level, functions by the number types that have them.
std::string OperationList();

}  // namespace tallymere
