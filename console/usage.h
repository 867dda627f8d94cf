// What the console says about itself.
#pragma once

namespace tallymere {

extern const char* const UsageText;
extern const char* const VersionText;

}  // namespace tallymere
