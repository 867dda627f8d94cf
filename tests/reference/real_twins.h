// Plain twins of the operations on numbers, built on the twins of the limb operations.
//
// A twin reads records in the current layout and gives its result by value, guard limb and noted
// code included; it changes neither the context nor its operands. Operands are finite and not zero
// except where a twin says otherwise.
#pragma once

#include <cstdint>

#include "core/real_number.h"
#include "reference/limb_twins.h"

namespace tallymere::reference {

/// A finite number by its parts, or a special value by its exponent and first limb.
struct Real {
    int64_t exponent = 0;
    uint64_t sign = 0;
    Limbs limbs;
};

struct RealResult {
    Real value;
    uint64_t guard = 0;
    CalcError code = CalcErrorNone;
};

struct DivModResult {
    Real quotient;
    Real remainder;
    CalcError code = CalcErrorNone;
};

Real Read(const RealNumber* x);
bool IsSpecial(const Real& x);

/// a + b or a - b; a and b may be the zero that a factor has become.
RealResult Add(const Real& a, const Real& b, bool subtract);
/// a * b; a and b may be the zero that a factor has become.
RealResult Multiply(const Real& a, const Real& b);
RealResult MultiplyByUint(const Real& x, uint64_t k);
RealResult DivideByUint(const Real& x, uint64_t d);
RealResult Reciprocal(const Real& x);
RealResult Divide(const Real& a, const Real& b);
DivModResult DivMod(const Real& a, const Real& b);

}  // namespace tallymere::reference
