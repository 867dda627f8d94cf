// Integer powers. A code that was noted before is kept; a failure gives 0.
//
// Method: square and multiply from the highest bit of the exponent. A power that fits is never
// refused, as nothing larger than it is worked out on the way.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = base^e; 0^0 is 1. Code 200 when it does not fit.
void BigUintPower(uint64_t* dest, const uint64_t* base, const uint64_t* e);

/// The same; a negative e gives code 203.
void BigUintPowerSmall(uint64_t* dest, const uint64_t* base, int64_t e);

/// dest = base^e, e >= 1, and true; or 0 and false, but no code, when it does not fit.
bool BigUintPowerIfFits(uint64_t* dest, const uint64_t* base, int64_t e);

/// dest = 2^n. Code 200 when it does not fit, 203 for a negative n.
void BigUintPowerOfTwo(uint64_t* dest, const uint64_t* n);
void BigUintPowerOfTwoSmall(uint64_t* dest, int64_t n);

/// dest = 10^n. Code 200 when it does not fit, 203 for a negative n.
void BigUintPowerOfTen(uint64_t* dest, const uint64_t* n);
void BigUintPowerOfTenSmall(uint64_t* dest, int64_t n);

}  // namespace tallymere
