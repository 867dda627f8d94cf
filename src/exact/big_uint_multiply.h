// Products of BigUint values.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = a * k in one pass. 0 and CalcErrorOverflow when it does not fit.
void BigUintMulSmall(uint64_t* dest, const uint64_t* a, uint64_t k);

/// dest = a * b. 0 and CalcErrorOverflow when it does not fit.
void BigUintMul(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = a * b in 2 uintLimbs limbs, all of which are written. dest may be the array of a or b if
/// that has so many limbs. Always fits.
void BigUintMulFull(uint64_t* dest, const uint64_t* a, const uint64_t* b);

}  // namespace tallymere
