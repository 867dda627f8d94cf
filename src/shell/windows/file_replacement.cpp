#include "shell/windows/file_replacement.h"

#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

// Some systems would put another file in its place.
bool IsReadOnly(const char16_t* path) {
    const DWORD attributes = GetFileAttributesW(ToWide(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

}  // namespace

bool PutInPlace(const char16_t* path, const char16_t* newFile) {
    return !IsReadOnly(path) &&
           MoveFileExW(ToWide(newFile), ToWide(path),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
}

FileReplacement::FileReplacement(const char16_t* path) : path_(path) {
    FormatBesidePath(beside_, path);
    file_ = NamesBesideFile(path) ? INVALID_HANDLE_VALUE
                                  : CreateFileW(ToWide(beside_), GENERIC_WRITE, 0, nullptr,
                                                CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    succeeded_ = isThere_ = file_ != INVALID_HANDLE_VALUE;
}

FileReplacement::~FileReplacement() {
    Close();
    if (isThere_) {
        DeleteFileW(ToWide(beside_));
    }
}

bool FileReplacement::Write(const void* bytes, uint32_t count) {
    DWORD written = 0;
    succeeded_ = succeeded_ && WriteFile(file_, bytes, count, &written, nullptr) != FALSE &&
                 written == count;
    return succeeded_;
}

bool FileReplacement::Finish() {
    // What a disk tells late, such as that it is full, it tells here.
    succeeded_ = succeeded_ && FlushFileBuffers(file_) != FALSE;
    Close();
    succeeded_ = succeeded_ && PutInPlace(path_, beside_);
    isThere_ = isThere_ && !succeeded_;
    return succeeded_;
}

void FileReplacement::Close() {
    if (file_ != INVALID_HANDLE_VALUE) {
        succeeded_ = CloseHandle(file_) != FALSE && succeeded_;
        file_ = INVALID_HANDLE_VALUE;
    }
}

}  // namespace tallymere
