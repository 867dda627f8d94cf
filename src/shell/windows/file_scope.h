// An open file that is closed on every way out.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// Owns the file; INVALID_HANDLE_VALUE for none.
class FileScope {
public:
    explicit FileScope(HANDLE opened) : file(opened) {}
    ~FileScope() {
        if (file != INVALID_HANDLE_VALUE) {
            CloseHandle(file);
        }
    }
    FileScope(const FileScope&) = delete;
    FileScope& operator=(const FileScope&) = delete;

    const HANDLE file;
};

}  // namespace tallymere
