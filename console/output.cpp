#include "console/output.h"

#include <algorithm>
#include <cstdio>
#include <mutex>

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

}  // namespace tallymere
