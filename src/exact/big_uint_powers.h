// Integer powers. A failure gives 0. A code that was noted before is kept.
//
// Method: square and multiply, from the highest bit of the exponent. No value on the way is larger
// than the result. So a power that fits is never refused.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = base^e; 0^0 is 1. CalcErrorOverflow when it does not fit.
void BigUintPower(uint64_t* dest, const uint64_t* base, const uint64_t* e);

/// The same. CalcErrorUndefined for a negative e.
void BigUintPowerSmall(uint64_t* dest, const uint64_t* base, int64_t e);

/// dest = base^e for e >= 1, and returns true. When it does not fit: dest = 0, returns false, and
/// notes no code.
bool BigUintPowerIfFits(uint64_t* dest, const uint64_t* base, int64_t e);

/// dest = 2^n. CalcErrorOverflow when it does not fit, CalcErrorUndefined for a negative n.
void BigUintPowerOfTwo(uint64_t* dest, const uint64_t* n);
void BigUintPowerOfTwoSmall(uint64_t* dest, int64_t n);

/// dest = 10^n. CalcErrorOverflow when it does not fit, CalcErrorUndefined for a negative n.
void BigUintPowerOfTen(uint64_t* dest, const uint64_t* n);
void BigUintPowerOfTenSmall(uint64_t* dest, int64_t n);

}  // namespace tallymere
