// The functions of formulas in the number type rat that need more than a routine of exact/.
//
// function_table.cpp says which function has which routine. What has no fraction as its result is
// +0/1 and CalcErrorUndefined, or CalcErrorOverflow where it does not fit. The destination of a
// function of one argument may be that argument.
#pragma once

#include "exact/rational_number.h"

namespace tallymere {

/// dest = the logarithm of x to the base 2. x is a power of 2, or 1 over one.
void RationalLogTwo(RationalNumber* dest, const RationalNumber* x);

/// Likewise, to the base 10.
void RationalLogTen(RationalNumber* dest, const RationalNumber* x);

/// dest = x without its sign.
void RationalMagnitude(RationalNumber* dest, const RationalNumber* x);

/// dest = the integer part of x where its fraction is below 1/2 in magnitude. Where it is not, dest
/// is x itself moved away from 0 by 1, so round(5/2) is 7/2.
void RationalRound(RationalNumber* dest, const RationalNumber* x);

// dest = n (n - 1) ... (n - k + 1), for combinations divided by k!. k is an integer of 64 bits; n
// is any fraction. Polls for a stop: CalcErrorCancelled.
void RationalCombinations(RationalNumber* dest, const RationalNumber* n, const RationalNumber* k);
void RationalPermutations(RationalNumber* dest, const RationalNumber* n, const RationalNumber* k);

}  // namespace tallymere
