// Greatest common divisor and least common multiple.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = gcd(a, b), where gcd(a, 0) = a and gcd(0, 0) = 0. Notes no code.
void BigUintGreatestDivisor(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = gcd(a, b). A zero argument has none here: 0 and code 203.
void BigUintGcd(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = lcm(a, b). 0 and code 203 for a zero argument, 0 and code 200 when it does not fit.
void BigUintLcm(uint64_t* dest, const uint64_t* a, const uint64_t* b);

}  // namespace tallymere
