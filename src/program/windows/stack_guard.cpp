// What the compiler's stack protector wants of a program: a value that lies behind the arrays of a
// function while it runs, and what ends the process when the value has changed by then. The
// compiler's own library would load others for its random number, before the program could say
// where they may come from.
#include <cstdint>

#include "toolkit/win32.h"

// The compiler knows both by these names.
extern "C" {

void* __stack_chk_guard = nullptr;

[[noreturn]] void __stack_chk_fail() {
    // The system's request to end at once. Handlers of exceptions are not asked, since what they
    // need may be overwritten.
    asm volatile("int $0x29" : : "c"(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE));
    __builtin_unreachable();
}

}  // extern "C"

namespace {

// The finisher of SplitMix64: each bit of the result depends on all bits of the value.
uint64_t MixBits(uint64_t value) {
    value = (value ^ (value >> 30)) * 0xBF58'476D'1CE4'E5B9;
    value = (value ^ (value >> 27)) * 0x94D0'49BB'1331'11EB;
    return value ^ (value >> 31);
}

// Before all other constructors. A function with a guard must not see it change, so this one and
// those that it is called by have none.
__attribute__((constructor(101), no_stack_protector)) void ChooseStackGuard() {
    // 32 random bits of the process, from the system. It has them without loading anything.
    auto value = reinterpret_cast<uintptr_t>(EncodePointer(nullptr));
    LARGE_INTEGER ticks = {};
    QueryPerformanceCounter(&ticks);
    value = MixBits(value ^ static_cast<uint64_t>(ticks.QuadPart));
    // Where the stack is, differs between processes too.
    value = MixBits(value ^ reinterpret_cast<uintptr_t>(&ticks));
    // A text that runs over would have to hold the 0 as well, where it ends.
    value &= ~uintptr_t{0xFF};
    __stack_chk_guard = reinterpret_cast<void*>(value);
}

}  // namespace
