#include "shell/windows/program_file.h"

#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere {

namespace {

// No path of Windows is longer, the terminating 0 not counted.
constexpr DWORD LongestPath = 32'767;

}  // namespace

const char16_t* ProgramFile() {
    static char16_t path[LongestPath + 1];
    GetModuleFileNameW(nullptr, ToWide(path), LongestPath + 1);
    return path;
}

}  // namespace tallymere
