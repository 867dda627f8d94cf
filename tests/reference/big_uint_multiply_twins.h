// A plain twin of the product of exact integers, one product of limbs at a time.
//
// It shares nothing with the program but the names of its types. Arrays hold the least significant
// limb first.
#pragma once

#include <cstdint>
#include <vector>

#include "core/calc_error.h"

namespace tallymere::reference {

using TwinLimbs = std::vector<uint64_t>;

/// A value of some width and the code that its making notes.
struct TwinUint {
    TwinLimbs limbs;
    CalcError code = CalcErrorNone;
};

/// a * b at the width of a and b; 0 and CalcErrorOverflow when it does not fit.
TwinUint TwinMul(const TwinLimbs& a, const TwinLimbs& b);

/// The product of a and b in as many limbs as both have together.
TwinLimbs TwinMulFull(const TwinLimbs& a, const TwinLimbs& b);

}  // namespace tallymere::reference
