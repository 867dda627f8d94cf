// Greatest common divisor and least common multiple.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = gcd(a, b), where gcd(a, 0) = a and gcd(0, 0) = 0. Notes no code.
/// Method: Lehmer's steps (exact/lehmer_step.h), and a step of Euclid where they find none.
void BigUintGcdAllowingZero(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = gcd(a, b). A zero argument is refused: 0 and CalcErrorUndefined.
void BigUintGcd(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = lcm(a, b). 0 and CalcErrorUndefined for a zero argument. 0 and CalcErrorOverflow when it
/// does not fit.
void BigUintLcm(uint64_t* dest, const uint64_t* a, const uint64_t* b);

}  // namespace tallymere
