// A plain twin of the product of exact integers, one product of limbs at a time.
//
// It shares nothing with the program but the names of its types. Arrays hold the least significant
// limb first.
#pragma once

#include <cstdint>
#include <vector>

#include "core/calc_error.h"

namespace tallymere::reference {

/// A value of some width and the code that its making notes.
struct TwinUint {
    std::vector<uint64_t> limbs;
    CalcError code = CalcErrorNone;
};

/// a * b at the width of a and b; 0 and code 200 when it does not fit.
TwinUint TwinMul(const std::vector<uint64_t>& a, const std::vector<uint64_t>& b);

/// The product of a and b in as many limbs as both have together.
std::vector<uint64_t> TwinMulFull(const std::vector<uint64_t>& a, const std::vector<uint64_t>& b);

}  // namespace tallymere::reference
