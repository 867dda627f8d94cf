// What the console says about itself.
#pragma once

#include <cstdint>
#include <string>

namespace tallymere {

/// How the help explains --base of a list with these bits of NumberBaseStyle, up to the column in
/// which the explanation itself begins.
std::string BaseOptionUsage(uint32_t listStyle);

/// How the help explains the options of TextOptionList.
std::string TextOptionUsage();

/// The help, in UTF-8, with the values and limits of the program in it.
std::string UsageText();

/// One line with the program's name and version.
std::string VersionText();

}  // namespace tallymere
