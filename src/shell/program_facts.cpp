#include "shell/program_facts.h"

namespace tallymere {

// CMake defines the macros for this file. They are texts without prefix; the one before them makes
// both together UTF-16.
const char16_t* const ProgramVersion = u"" TALLYMERE_VERSION;
const char16_t* const ProgramBuildTime = u"" TALLYMERE_BUILD_TIME;

}  // namespace tallymere
