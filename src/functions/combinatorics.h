// Combinations, permutations, greatest common divisor and least common multiple.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// dest = the number of combinations, n (n - 1) ... (n - k + 1) / k!, with 19 guard digits,
/// rounded; for an integer n within UsualErrorBound (functions/error_bounds.h). k is a non-negative
/// integer below 2^64; n may be any finite number. The factors are counted up from n - k, so digits
/// of a fraction that n - k has no room for are lost. Of C(n, k) = C(n, n - k) the shorter product
/// is worked out, also for a k that exceeds 64 bits.
///
///   n                        k                       result
///   NaN, or any              any, or NaN             NaN, no code
///   infinite                 any                     NaN and CalcErrorUndefined
///   any                      infinite                NaN and CalcErrorUndefined
///   finite                   0                       1
///   zero                     positive integer        zero: -0 for n = -0 and an odd k, else +0
///   non-negative integer     integer above n         0
///   any                      negative or a fraction  NaN and CalcErrorUndefined
///
/// Each factor is one step, which polls the stop request: NaN and CalcErrorCancelled. A result
/// outside the range ends the product: infinity and CalcErrorOverflow if reportOverflow, or a zero.
void RealCombinations(RealNumber* dest, const RealNumber* n, const RealNumber* k);

/// dest = the number of permutations, n (n - 1) ... (n - k + 1); all else as above, but k has to
/// fit 64 bits.
void RealPermutations(RealNumber* dest, const RealNumber* n, const RealNumber* k);

/// dest = the greatest common divisor, by Euclid's algorithm on exact remainders; exact, so the
/// guard limb is 0. Both must be finite integers above 0: anything else gives NaN and
/// CalcErrorUndefined, NaN on either side gives NaN and no code. Polls the stop request in each
/// remainder: NaN and CalcErrorCancelled.
Limb RealGcd(RealNumber* dest, const RealNumber* a, const RealNumber* b);

/// dest = the least common multiple, a / gcd(a, b) * b; raw: digits that do not fit are cut, also
/// those of the quotient. Operands and codes as for RealGcd.
Limb RealLcm(RealNumber* dest, const RealNumber* a, const RealNumber* b);

}  // namespace tallymere
