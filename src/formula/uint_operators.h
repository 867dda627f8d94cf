// The operators of formulas in the number type uint that need more than a routine of exact/.
//
// operator_table.cpp says which operator has which routine.
#pragma once

#include <cstdint>

namespace tallymere {

// a = a (operator) b. A result that does not fit is 0 and CalcErrorOverflow.

/// An operand of one limb multiplies the limbs of the other one in one pass.
void UintMultiplyBy(uint64_t* a, const uint64_t* b);

/// The remainder; 0 and CalcErrorExactDivisionByZero for b = 0.
void UintReduceModulo(uint64_t* a, const uint64_t* b);

/// The power; 0^0 is 1.
void UintRaiseTo(uint64_t* a, const uint64_t* b);

}  // namespace tallymere
