// Products: of limb arrays, of two numbers, of a number and a machine integer.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// The n limbs of the mantissa product a * b in normal form, n = realLimbs, both operands in normal
/// form; the digit below them goes to *guard. Returns 1 if the product had to be moved up one
/// digit, else 0. The product is short: with a brought to a full first limb, limb products that lie
/// wholly below column n + 1 are left out. product may be a or b.
int LimbsMultiply(int64_t n, Limb* product, Limb* guard, const Limb* a, const Limb* b);

/// The two steps of LimbsMultiply, for one operand in several products: brings the n limbs of a
/// normal form to a full first limb, and multiplies an operand that was brought there.
void LimbsAlign(Limb* dest, const Limb* src, int64_t n);
int LimbsMultiplyAligned(int64_t n, Limb* product, Limb* guard, const Limb* aligned, const Limb* b);

/// dest = a * b; raw. Zero times infinity gives NaN and CalcErrorUndefined.
Limb RealMulRaw(RealNumber* dest, const RealNumber* a, const RealNumber* b);

/// dest = a * b, rounded, without guard digits.
void RealMul(RealNumber* dest, const RealNumber* a, const RealNumber* b);

/// dest = x * k; raw. Infinity times 0 gives NaN and CalcErrorUndefined.
Limb RealMulUint(RealNumber* dest, const RealNumber* x, uint64_t k);

}  // namespace tallymere
