// Calls of the system that read and write files, each of which a test can make fail, or end the
// process.
#pragma once

#include <cstdint>

#include "toolkit/win32.h"

namespace tallymere::testing_support {

/// The functions that the code under test finds where it looks for those of the system.
extern "C" {
extern void* __imp_CreateFileW;
extern void* __imp_ReadFile;
extern void* __imp_WriteFile;
extern void* __imp_FlushFileBuffers;
extern void* __imp_CloseHandle;
extern void* __imp_MoveFileExW;
}

enum class FileCallEnd {
    Fails,        ///< the call does nothing and fails, but a handle is closed
    FailsAsDone,  ///< the call fails, though it has done what it should
    WritesHalf,   ///< likewise, but WriteFile succeeds with half of the bytes
    EndsProcess,  ///< the process ends in place of the call
};

/// While it lives, the calls of this process are counted, and the one of a number ends so.
class FileCalls {
public:
    static constexpr int Exit = 77;  ///< status of a process that ended

    explicit FileCalls(int number = 0, FileCallEnd end = FileCallEnd::Fails) {
        number_ = number;
        end_ = end;
        count = 0;
        bytesRead = 0;
        create_ = Replace(__imp_CreateFileW, Create);
        read_ = Replace(__imp_ReadFile, Read);
        write_ = Replace(__imp_WriteFile, Write);
        flush_ = Replace(__imp_FlushFileBuffers, Flush);
        close_ = Replace(__imp_CloseHandle, Close);
        move_ = Replace(__imp_MoveFileExW, Move);
    }
    ~FileCalls() {
        Replace(__imp_CreateFileW, create_);
        Replace(__imp_ReadFile, read_);
        Replace(__imp_WriteFile, write_);
        Replace(__imp_FlushFileBuffers, flush_);
        Replace(__imp_CloseHandle, close_);
        Replace(__imp_MoveFileExW, move_);
    }
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;

    static inline int count;  ///< of calls so far
    static inline uint64_t bytesRead;

private:
    // Puts another function where calls find one, and returns the one that was there.
    template <typename Function>
    static Function* Replace(void*& place, Function* function) {
        auto* const before = reinterpret_cast<Function*>(place);
        DWORD access = 0;
        VirtualProtect(&place, sizeof place, PAGE_READWRITE, &access);
        place = reinterpret_cast<void*>(function);
        VirtualProtect(&place, sizeof place, access, &access);
        return before;
    }

    // Whether the call is the one that ends otherwise.
    static bool IsIt() {
        count++;
        if (count == number_ && end_ == FileCallEnd::EndsProcess) {
            TerminateProcess(GetCurrentProcess(), Exit);
        }
        return count == number_;
    }
    template <typename Call>
    static BOOL EndOf(Call call) {
        if (!IsIt()) {
            return call();
        }
        if (end_ != FileCallEnd::Fails) {
            call();
        }
        SetLastError(ERROR_DISK_FULL);
        return FALSE;
    }

    static HANDLE WINAPI Create(LPCWSTR name, DWORD access, DWORD sharing,
                                SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD flags,
                                HANDLE like) {
        if (IsIt() && end_ == FileCallEnd::Fails) {
            SetLastError(ERROR_ACCESS_DENIED);
            return INVALID_HANDLE_VALUE;
        }
        return create_(name, access, sharing, security, disposition, flags, like);
    }
    static BOOL WINAPI Read(HANDLE file, LPVOID bytes, DWORD size, DWORD* read,
                            OVERLAPPED* overlapped) {
        return EndOf([=] {
            const BOOL done = read_(file, bytes, size, read, overlapped);
            bytesRead += *read;
            return done;
        });
    }
    static BOOL WINAPI Write(HANDLE file, LPCVOID bytes, DWORD size, DWORD* written,
                             OVERLAPPED* overlapped) {
        if (end_ == FileCallEnd::WritesHalf) {
            return write_(file, bytes, IsIt() ? size / 2 : size, written, overlapped);
        }
        return EndOf([=] { return write_(file, bytes, size, written, overlapped); });
    }
    static BOOL WINAPI Flush(HANDLE file) {
        return EndOf([=] { return flush_(file); });
    }
    static BOOL WINAPI Close(HANDLE handle) {
        const bool isIt = IsIt();
        return close_(handle) != FALSE && !isIt;
    }
    static BOOL WINAPI Move(LPCWSTR from, LPCWSTR to, DWORD flags) {
        return EndOf([=] { return move_(from, to, flags); });
    }

    static inline int number_;
    static inline FileCallEnd end_;
    static inline decltype(&CreateFileW) create_;
    static inline decltype(&ReadFile) read_;
    static inline decltype(&WriteFile) write_;
    static inline decltype(&FlushFileBuffers) flush_;
    static inline decltype(&CloseHandle) close_;
    static inline decltype(&MoveFileExW) move_;
};

}  // namespace tallymere::testing_support
