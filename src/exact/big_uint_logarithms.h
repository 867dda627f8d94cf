// Integer logarithms: the floor, and whether it is exact. A code that was noted before is kept;
// x = 0, and a base of 0 or 1, give 0, code 200 and false.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = floor(log2 x).
bool BigUintLogTwo(uint64_t* dest, const uint64_t* x);

/// dest = floor(log10 x).
bool BigUintLogTen(uint64_t* dest, const uint64_t* x);

/// dest = floor(log x / log base). The leading bits decide, unless x is next to a power of the
/// base: then that power is worked out.
bool BigUintLog(uint64_t* dest, const uint64_t* base, const uint64_t* x);

/// The places behind the point of a BinaryLog.
inline constexpr int BinaryLogPlaces = 46;

/// log2 x for x >= 1 in units of 2^-46: never above the true value, and less than 2 units below it.
/// Method: the mantissa squared once for each binary place (Knuth, "The Art of Computer
/// Programming" 1, 1.2.2).
uint64_t BinaryLog(const uint64_t* x);

/// The same of a word x >= 1.
uint64_t BinaryLogOfWord(uint64_t x);

}  // namespace tallymere
