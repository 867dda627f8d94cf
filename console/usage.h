// What the console says about itself.
#pragma once

#include <string>

namespace tallymere {

/// The help, in UTF-8, with the values and limits of the program in it.
std::string UsageText();

/// One line with the program's name and version.
std::string VersionText();

}  // namespace tallymere
