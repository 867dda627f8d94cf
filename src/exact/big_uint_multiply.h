// Products of BigUint values, by the schoolbook method at every size.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = a * k in one pass. 0 and code 200 when it does not fit.
void BigUintMulSmall(uint64_t* dest, const uint64_t* a, uint64_t k);

/// dest = a * b. 0 and code 200 when it does not fit.
void BigUintMul(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// The full product: dest has 2 uintLimbs limbs, all of which are written.
void BigUintMulFull(uint64_t* dest, const uint64_t* a, const uint64_t* b);

}  // namespace tallymere
