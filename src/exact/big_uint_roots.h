// Integer roots: the floor, and whether it is exact. A code that was noted before is kept.
//
// Method: the binary logarithm of x gives the leading bits. Newton's steps on whole numbers nearly
// double the correct bits each time; they come from above. One power at the end says whether the
// root is exact.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = floor(sqrt(x)). Returns true when exact.
bool BigUintSquareRoot(uint64_t* dest, const uint64_t* x);

/// dest = floor of the n-th root of x. Returns true when exact. n = 0 gives 0, CalcErrorUndefined
/// and false. An n that is negative or above 2^63 - 1 counts as a very large degree: 1 and false
/// for x > 1, else x and true.
bool BigUintRoot(uint64_t* dest, const uint64_t* n, const uint64_t* x);
bool BigUintRootSmall(uint64_t* dest, int64_t n, const uint64_t* x);

}  // namespace tallymere
