// What the system must do for the console.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace tallymere {

/// Makes input and output plain bytes, and UTF-8 where they are a terminal.
void PrepareStreams();

/// The arguments behind the program's name, in UTF-8 as far as they are valid text.
std::vector<std::string> ProgramArguments(int argc, char** argv);

/// True when somebody types at standard input.
bool InputIsTerminal();

/// True when somebody reads standard output or standard error as it is written.
bool OutputIsTerminal();
bool ErrorsAreTerminal();

/// What a person types to end the input.
extern const char* const EndOfInputKeys;

/// Waits for bytes of standard input and stores up to `size` of them, size >= 3. Returns how many:
/// 0 at the end of the input, -1 when it cannot be read.
int64_t ReadInput(char* bytes, size_t size);

struct OpenedFile {
    std::FILE* file;  ///< the caller closes it; null when it cannot be opened
    bool isMissing;   ///< there is none, or no such folder
};

/// Opens a file, whose path is in UTF-8, to read its bytes.
OpenedFile OpenFileForReading(const std::string& path);

/// Lets Ctrl+C call HandleInterrupt.
void CatchInterrupts();

}  // namespace tallymere
