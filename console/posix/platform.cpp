#include "console/platform.h"

#include <cerrno>
#include <csignal>

#include <unistd.h>

#include "console/interrupt.h"

namespace tallymere {

const char* const EndOfInputKeys = "Ctrl+D on an empty line";

void PrepareStreams() {}

std::vector<std::string> ProgramArguments(int argc, char** argv) {
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

bool InputIsTerminal() {
    return isatty(STDIN_FILENO) != 0;
}

bool OutputIsTerminal() {
    return isatty(STDOUT_FILENO) != 0;
}

bool ErrorsAreTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

int64_t ReadInput(char* bytes, size_t size) {
    ssize_t count = 0;
    do {
        count = read(STDIN_FILENO, bytes, size);
    } while (count < 0 && errno == EINTR);
    return count;
}

OpenedFile OpenFileForReading(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    return {file, file == nullptr && (errno == ENOENT || errno == ENOTDIR)};
}

void CatchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = [](int) { HandleInterrupt(); };
    // An output that waits for its reader goes on and loses nothing.
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
}

}  // namespace tallymere
