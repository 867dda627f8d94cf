#include "console/output.h"

#include <algorithm>
#include <cstdio>
#include <mutex>

#include "console/interrupt.h"
#include "console/platform.h"

namespace tallymere {

namespace {

constexpr size_t MostGathered = 65'536;

// Everything below belongs to whoever holds it.
std::mutex outputMutex;
std::string gathered;
bool isAtLineStart = true;
bool hasFailed = false;
size_t progressLength = 0;  // of the line of progress that is shown

void ReplaceProgress(const std::string& line) {
    // Blanks cover what is left of a longer line before.
    std::string shown = line;
    shown.resize(std::max(line.size(), progressLength), ' ');
    std::fprintf(stderr, "\r%s\r%s", shown.c_str(), line.c_str());
    std::fflush(stderr);
    progressLength = line.size();
}

bool FlushGathered() {
    if (!gathered.empty()) {
        if (progressLength != 0) {
            ReplaceProgress({});
        }
        hasFailed = hasFailed ||
                    std::fwrite(gathered.data(), 1, gathered.size(), stdout) != gathered.size() ||
                    std::fflush(stdout) != 0;
        gathered.clear();
    }
    return !hasFailed;
}

}  // namespace

bool GatherOutput(std::string_view text) {
    const std::scoped_lock lock(outputMutex);
    if (!text.empty()) {
        isAtLineStart = text.back() == '\n';
    }
    gathered += text;
    return gathered.size() < MostGathered ? !hasFailed : FlushGathered();
}

bool FlushOutput() {
    const std::scoped_lock lock(outputMutex);
    return FlushGathered();
}

bool WriteOutput(std::string_view text) {
    return GatherOutput(text) && FlushOutput();
}

bool OutputIsAtLineStart() {
    const std::scoped_lock lock(outputMutex);
    return isAtLineStart;
}

void ShowProgress(const std::string& line) {
    const std::scoped_lock lock(outputMutex);
    if (line.size() + progressLength > 0 && ErrorsAreTerminal() &&
        (isAtLineStart || !OutputIsTerminal())) {
        ReplaceProgress(line);
    }
}

int ReportBrokenStream(const char* problem) {
    std::fprintf(stderr, "tallymere-console: %s\n", problem);
    return SomethingFailed;
}

// Ctrl+C also breaks off the writing when nobody reads what was written before.
int ReportWriteFailure() {
    if (Interrupted()) {
        return InterruptedStatus;
    }
    return ReportBrokenStream("the output cannot be written");
}

int ReportBadOptions(const std::string& problem) {
    std::fprintf(stderr, "tallymere-console: %s\n", problem.c_str());
    return BadOptions;
}

int PrintText(const std::string& text) {
    return WriteOutput(text) ? AllSucceeded : ReportWriteFailure();
}

}  // namespace tallymere
