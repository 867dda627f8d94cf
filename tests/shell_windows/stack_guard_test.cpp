// What notices that an array on the stack was written past its end: src/program/windows/.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "toolkit/win32.h"

extern "C" void* __stack_chk_guard;

namespace tallymere {
namespace {

constexpr DWORD StatusStackBufferOverrun = 0xC000'0409;

// Fills an array of eight bytes with so many, as product code is compiled.
__attribute__((noinline, stack_protect)) void FillEight(volatile size_t count) {
    char array[8];
    // The compiler must not know where the writing ends.
    for (volatile char* place = array; count > 0; count = count - 1) {
        *place++ = 'x';
    }
}

TEST(StackGuard, EndsTheProcessThatWroteTooFar) {
    FillEight(8);
    EXPECT_EXIT(
        FillEight(9),
        [](int status) { return static_cast<DWORD>(status) == StatusStackBufferOverrun; }, "");
}

TEST(StackGuard, IsRandomAndBeginsWithAZero) {
    const auto guard = reinterpret_cast<uintptr_t>(__stack_chk_guard);
    EXPECT_EQ(guard & 0xFF, 0u);
    // As good as impossible for a random number, the rule for one that was never chosen.
    EXPECT_NE(guard >> 32, 0u);
    EXPECT_NE(guard & 0xFFFF'FF00, 0u);
}

}  // namespace
}  // namespace tallymere
