// Division of BigUint values. A divisor of 0 gives 0 for quotient and remainder, and
// CalcErrorExactDivisionByZero.
#pragma once

#include <cstdint>

#include "core/word_division.h"

namespace tallymere {

/// quotient = floor(a / b), remainder = a mod b. Either may be null; they must not
/// overlap.
void BigUintDivide(uint64_t* quotient, uint64_t* remainder, const uint64_t* a, const uint64_t* b);

/// quotient = floor(a / b). Returns true when the division is exact, that is, when the remainder is
/// 0; it is for b = 0 too. The name means a question, and not, as elsewhere, that the caller knows
/// the division to be exact.
bool BigUintDivideExact(uint64_t* quotient, const uint64_t* a, const uint64_t* b);

/// quotient = floor(a / d), *remainder = a mod d; either may be null. `reciprocal` is
/// DivisorReciprocal(d), or 0 to have it looked up.
void BigUintDivideSmall(uint64_t* quotient, uint64_t* remainder, const uint64_t* a, uint64_t d,
                        uint64_t reciprocal);

}  // namespace tallymere
