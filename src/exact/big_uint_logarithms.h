// Integer logarithms: the floor, and whether it is exact.
//
// x = 0 gives 0, false and CalcErrorOverflow, and so does a base of 0 or 1. A code that was noted
// before is kept.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = floor(log2 x). Returns true when x is a power of 2.
bool BigUintLogTwo(uint64_t* dest, const uint64_t* x);

/// dest = floor(log10 x). Returns true when x is a power of 10.
bool BigUintLogTen(uint64_t* dest, const uint64_t* x);

/// dest = floor(log x / log base). Returns true when x is a power of the base.
/// Method: the binary logarithms of x and base decide. When x is next to a power of the base they
/// cannot, and that power is calculated.
bool BigUintLog(uint64_t* dest, const uint64_t* base, const uint64_t* x);

/// The binary places behind the point of a BinaryLog.
inline constexpr int BinaryLogPlaces = 46;

/// The error of a BinaryLog in units of 2^-BinaryLogPlaces: it is never above the true value, and
/// less than this below it.
inline constexpr uint64_t BinaryLogErrorUnits = 2;

/// log2 x in units of 2^-BinaryLogPlaces, for x >= 1, with an error as BinaryLogErrorUnits says.
/// Method: the mantissa is squared once for each binary place (Knuth, "The Art of Computer
/// Programming" 1, 1.2.2).
uint64_t BinaryLog(const uint64_t* x);

/// The same for a machine integer x >= 1.
uint64_t BinaryLogSmall(uint64_t x);

}  // namespace tallymere
