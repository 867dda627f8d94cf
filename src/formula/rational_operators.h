// The operators of formulas in the number type rat.
//
// operator_table.cpp says which operator has which routine.
#pragma once

#include "exact/rational_number.h"

namespace tallymere {

// a = a (operator) b, exact. What is no fraction is +0/1 with CalcErrorUndefined, or with
// CalcErrorOverflow where it does not fit.

void RationalAddTo(RationalNumber* a, const RationalNumber* b);
void RationalSubtractFrom(RationalNumber* a, const RationalNumber* b);
void RationalMultiplyBy(RationalNumber* a, const RationalNumber* b);

/// A division by 0 is CalcErrorExactDivisionByZero, but 0/0 is 0 without a code: divisors of one
/// limb are divided by in a way of their own, which finds nothing to do in a 0.
void RationalDivideBy(RationalNumber* a, const RationalNumber* b);

/// The remainder, with the sign of the quotient: 7 mod (-2) is -1. CalcErrorExactDivisionByZero for
/// b = 0.
void RationalReduceModulo(RationalNumber* a, const RationalNumber* b);

/// The power. Where b is a fraction the result need not be in lowest terms; see RationalPower.
void RationalRaiseTo(RationalNumber* a, const RationalNumber* b);

}  // namespace tallymere
