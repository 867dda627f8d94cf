// What the functions of the pages need of the program around them.
#pragma once

#include "console/text_options.h"

namespace tallymere {

/// Makes a ScratchStack and installs language and separators; at its end the ScratchStack is gone.
/// There is one in a process.
class ConsoleSetupScope {
public:
    explicit ConsoleSetupScope(const TextOptions& options);
    ~ConsoleSetupScope();
    ConsoleSetupScope(const ConsoleSetupScope&) = delete;
    ConsoleSetupScope& operator=(const ConsoleSetupScope&) = delete;
};

}  // namespace tallymere
