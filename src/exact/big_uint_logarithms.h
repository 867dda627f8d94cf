// Integer logarithms: the floor, and whether it is exact. A code that was noted before is kept;
// x = 0, and a base of 0 or 1, give 0, code 200 and false.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = floor(log2 x).
bool BigUintLogTwo(uint64_t* dest, const uint64_t* x);

/// dest = floor(log10 x).
bool BigUintLogTen(uint64_t* dest, const uint64_t* x);

/// dest = floor(log x / log base).
bool BigUintLog(uint64_t* dest, const uint64_t* base, const uint64_t* x);

}  // namespace tallymere
