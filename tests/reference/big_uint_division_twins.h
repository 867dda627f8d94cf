// Plain twins of division, greatest common divisor and modular power of exact integers.
//
// Long division in base 16 by a table of multiples of the divisor, Euclid's algorithm by it, and
// square and multiply by it: one step of the method at a time. Arrays hold the least significant
// limb first; all operands of a function have the same width, which is that of its result.
#pragma once

#include <cstdint>

#include "reference/big_uint_multiply_twins.h"

namespace tallymere::reference {

/// Quotient and remainder, and the code that their making notes.
struct TwinQuotient {
    TwinLimbs quotient;
    TwinLimbs remainder;
    CalcError code = CalcErrorNone;
};

TwinQuotient TwinDivide(const TwinLimbs& a, const TwinLimbs& b);

/// By one limb, through its reciprocal.
struct TwinSmallQuotient {
    TwinLimbs quotient;
    uint64_t remainder = 0;
    CalcError code = CalcErrorNone;
};

TwinSmallQuotient TwinDivideSmall(const TwinLimbs& a, uint64_t d);

TwinUint TwinGcd(const TwinLimbs& a, const TwinLimbs& b);

/// a^e mod m, without check points.
TwinUint TwinModPower(const TwinLimbs& a, const TwinLimbs& e, const TwinLimbs& m);

}  // namespace tallymere::reference
