#include "console/ending.h"

#include <cstdio>

#include "console/interrupt.h"
#include "console/output.h"

namespace tallymere {

namespace {

void Report(const char* problem) {
    std::fprintf(stderr, "tallymere-console: %s\n", problem);
}

}  // namespace

ExitStatus PrintText(const std::string& text) {
    GatherOutput(text);
    return FlushOutput() ? AllSucceeded : ReportWriteFailure();
}

ExitStatus ReportBadOptions(const std::string& problem) {
    Report(problem.c_str());
    return BadOptions;
}

ExitStatus ReportReadFailure() {
    Report("the input cannot be read");
    return SomethingFailed;
}

ExitStatus ReportWriteFailure() {
    if (Interrupted()) {
        return EndedByInterrupt;
    }
    Report("the output cannot be written");
    return SomethingFailed;
}

}  // namespace tallymere
