// What tests of systems of linear equations share: a system as texts of its cells, and what the
// page shows for it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "algebra_pages/system_run.h"

namespace tallymere::testing_support {

/// The texts of the cells, row by row, each row with its right side at the end.
using SystemTexts = std::vector<std::vector<std::string>>;

/// The text of the result in UTF-8, with LF alone at the ends of its lines, and behind it
/// "error CODE ARGUMENTS" where an error is pending, which is taken. Needs a ScratchStack.
std::string ShownSystem(const SystemTexts& cells, NumberType type, int64_t digits = 10,
                        bool grouped = false);

}  // namespace tallymere::testing_support
