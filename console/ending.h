// Ways to end: each says what there is to say and returns the exit status.
#pragma once

#include <string>

#include "console/exit_status.h"

namespace tallymere {

/// Writes a text, and whatever was gathered before it.
ExitStatus PrintText(const std::string& text);

/// Say on standard error what went wrong. `problem` is one line without its end.
ExitStatus ReportBadOptions(const std::string& problem);
ExitStatus ReportReadFailure();

/// Likewise of output that cannot be written. After Ctrl+C it says nothing: that also breaks off
/// the writing when nobody reads what was written before.
ExitStatus ReportWriteFailure();

}  // namespace tallymere
