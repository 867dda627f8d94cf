// A file that gets a new content as a whole. The content is written beside the old file, flushed to
// the disk, and put in its place, so whatever ends the writing leaves the old file as it was.
//
//     FileReplacement replacement(path);
//     replacement.Write(bytes, count);
//     if (!replacement.Finish()) { ... }
#pragma once

#include <cstdint>

#include "core/limits.h"
#include "shell/beside_path.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Puts a file in the place of the one of `path`, if there is one, in one step: whatever ends it
/// leaves the old file or the new one there. False if that failed, such as for a file that may only
/// be read; both files are as they were.
bool PutInPlace(const char16_t* path, const char16_t* newFile);

/// One that ends its life before Finish leaves nothing behind.
class FileReplacement {
public:
    /// Opens the file beside the one of `path`, which has at most PathCapacity characters and must
    /// live as long as this. Nobody else can open it meanwhile. A file that has the name of the one
    /// beside is not replaced: Finish fails.
    explicit FileReplacement(const char16_t* path);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// Appends to the new content. False if that failed, now or before.
    bool Write(const void* bytes, uint32_t count);

    /// Puts the new content in the place of the old one; to be called once. False if anything
    /// failed: the old file is there unchanged, or still none.
    bool Finish();

private:
    void Close();

    const char16_t* path_;
    char16_t beside_[BesidePathCapacity + 1];
    HANDLE file_;
    bool isThere_;    ///< the file beside
    bool succeeded_;  ///< so far
};

}  // namespace tallymere
