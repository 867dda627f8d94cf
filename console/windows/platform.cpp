#include "console/platform.h"

#include <cerrno>

#include <fcntl.h>
#include <io.h>

#include <windows.h>

#include <shellapi.h>

#include "console/interrupt.h"

namespace tallymere {

namespace {

// What Ctrl+Z types.
constexpr char16_t EndOfInput = 0x1A;

// Like EncodeUtf8, but a surrogate without its partner keeps its own three bytes, which are no
// UTF-8: what is no text must stay recognisable as such.
void AppendBytes(std::string& bytes, std::wstring_view text) {
    for (size_t i = 0; i < text.size(); i++) {
        const wchar_t* unit = text.data() + i;
        const bool pair =
            IS_HIGH_SURROGATE(unit[0]) && i + 1 < text.size() && IS_LOW_SURROGATE(unit[1]);
        if (!pair && (IS_HIGH_SURROGATE(unit[0]) || IS_LOW_SURROGATE(unit[0]))) {
            bytes += static_cast<char>(0xE0 | (unit[0] >> 12));
            bytes += static_cast<char>(0x80 | ((unit[0] >> 6) & 0x3F));
            bytes += static_cast<char>(0x80 | (unit[0] & 0x3F));
            continue;
        }
        char encoded[4];
        const int count = WideCharToMultiByte(CP_UTF8, 0, unit, pair ? 2 : 1, encoded,
                                              sizeof(encoded), nullptr, nullptr);
        bytes.append(encoded, static_cast<size_t>(count));
        i += pair ? 1 : 0;
    }
}

// A terminal gives characters beyond ASCII reliably in UTF-16 only.
int64_t ReadTerminal(HANDLE input, char* bytes, size_t size) {
    // A pair of surrogates needs four bytes for two characters, all others three for one.
    static wchar_t text[4096];
    const DWORD wanted =
        static_cast<DWORD>(size / 3 < std::size(text) ? size / 3 : std::size(text));
    DWORD count = 0;
    do {
        SetLastError(ERROR_SUCCESS);
        if (ReadConsoleW(input, text, wanted, &count, nullptr) == 0) {
            return -1;
        }
        // Ctrl+C also breaks off the reading, before or after its handler is called.
    } while (count == 0 && GetLastError() == ERROR_OPERATION_ABORTED);
    if (count == 0 || text[0] == EndOfInput) {
        return 0;
    }
    std::string encoded;
    AppendBytes(encoded, {text, count});
    encoded.copy(bytes, size);
    return static_cast<int64_t>(encoded.size());
}

bool IsTerminal(DWORD stream) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

}  // namespace

const char* const EndOfInputKeys = "Ctrl+Z and Enter on an empty line";

void PrepareStreams() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

// The arguments of main are in the system's own encoding, and its start code replaces those with
// "*" and "?" in them by the names of files.
std::vector<std::string> ProgramArguments(int, char**) {
    std::vector<std::string> arguments;
    int count = 0;
    wchar_t** texts = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; texts != nullptr && i < count; i++) {
        AppendBytes(arguments.emplace_back(), texts[i]);
    }
    LocalFree(texts);
    return arguments;
}

bool InputIsTerminal() {
    return IsTerminal(STD_INPUT_HANDLE);
}

bool OutputIsTerminal() {
    return IsTerminal(STD_OUTPUT_HANDLE);
}

bool ErrorsAreTerminal() {
    return IsTerminal(STD_ERROR_HANDLE);
}

int64_t ReadInput(char* bytes, size_t size) {
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    if (InputIsTerminal()) {
        return ReadTerminal(input, bytes, size);
    }
    DWORD count = 0;
    if (ReadFile(input, bytes, static_cast<DWORD>(size), &count, nullptr) != 0) {
        return count;
    }
    return GetLastError() == ERROR_BROKEN_PIPE ? 0 : -1;
}

OpenedFile OpenFileForReading(const std::string& path) {
    const int length = MultiByteToWideChar(CP_UTF8, 0, path.c_str(), -1, nullptr, 0);
    std::wstring widePath(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, path.c_str(), -1, widePath.data(), length);
    std::FILE* file = _wfopen(widePath.c_str(), L"rb");
    return {file, file == nullptr && errno == ENOENT};
}

void CatchInterrupts() {
    const auto handler = [](DWORD event) -> BOOL {
        if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) {
            return FALSE;
        }
        HandleInterrupt();
        return TRUE;
    };
    SetConsoleCtrlHandler(handler, TRUE);
}

}  // namespace tallymere
