// Integer roots: the floor, and whether it is exact. A code that was noted before is kept.
//
// Method: the leading bits from the binary logarithm of x, then Newton's steps on whole numbers,
// always from above, of which each nearly doubles the bits; at the end one power tells whether the
// root is exact.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = floor(sqrt(x)); true when exact.
bool BigUintSquareRoot(uint64_t* dest, const uint64_t* x);

/// dest = floor of the n-th root of x; true when exact. An n that is no positive signed 64-bit
/// number leaves 1 for x > 1, inexact, and else x. n = 0 gives 0 and code 203, and false.
bool BigUintRoot(uint64_t* dest, const uint64_t* n, const uint64_t* x);
bool BigUintRootSmall(uint64_t* dest, int64_t n, const uint64_t* x);

}  // namespace tallymere
