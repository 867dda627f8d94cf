// Plain forms of the operations on fractions that the program carries out in faster ways; the
// results must be the same word for word, also for operands out of lowest terms.
#pragma once

#include "exact/rational_number.h"

namespace tallymere::reference {

/// ReduceFraction by Euclid's algorithm on remainders.
void TwinReduceFraction(uint64_t* numerator, uint64_t* denominator);

/// RationalMulSmall and RationalDivSmall with k as an integer of the width in force.
void TwinRationalMulSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k);
void TwinRationalDivSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k);

/// RationalCompare by the cross products.
int TwinRationalCompare(const RationalNumber* a, const RationalNumber* b, bool ignoreSign);

/// RationalBinomial of any n, factor by factor with RationalMulDiv.
void TwinRationalBinomial(RationalNumber* dest, const RationalNumber* n, uint64_t k, bool falling);

}  // namespace tallymere::reference
