// Memory of the heap that a test can make run out.
#pragma once

#include <atomic>
#include <cstddef>

#include "toolkit/win32.h"

namespace tallymere::testing_support {

/// The functions that the code under test, and `new` with it, finds where it looks for them.
extern "C" {
extern void* __imp_malloc;
extern void* __imp_calloc;
}

/// While it lives, the blocks that the process asks for are counted, and that of a number is not
/// given. Containers of the test itself must not grow meanwhile.
class FailingMemory {
public:
    /// Counts blocks of at least so many bytes. Number 0 is given all of them.
    explicit FailingMemory(int number = 0, size_t leastBytes = 0) {
        number_ = number;
        leastBytes_ = leastBytes;
        count = 0;
        malloc_ = Replace(__imp_malloc, Malloc);
        calloc_ = Replace(__imp_calloc, Calloc);
    }
    ~FailingMemory() {
        Replace(__imp_malloc, malloc_);
        Replace(__imp_calloc, calloc_);
    }
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    static inline std::atomic<int> count;  ///< of blocks so far

private:
    using MallocFunction = void*(size_t);
    using CallocFunction = void*(size_t, size_t);

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

    static bool IsIt(size_t bytes) { return bytes >= leastBytes_ && ++count == number_; }
    static void* Malloc(size_t bytes) { return IsIt(bytes) ? nullptr : malloc_(bytes); }
    static void* Calloc(size_t items, size_t bytes) {
        return IsIt(items * bytes) ? nullptr : calloc_(items, bytes);
    }

    static inline int number_;
    static inline size_t leastBytes_;
    static inline MallocFunction* malloc_;
    static inline CallocFunction* calloc_;
};

}  // namespace tallymere::testing_support
