// The Taylor series that several functions end in.
//
// All work at the layout in force. There is no limit on the number of terms, so the caller reduces
// x first. Raw: the guard limb is that of the last addition, and its last digits are not certain.
// Destinations may be x, but not one another.
//
// The digits are those of the plain steps: each term is a number of p digits, made from the one
// before by truncated products and quotients, and its sum with those before is truncated.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// The one test that ends a series, made after `term` was added to `sum`: one of them is zero or
/// another special value, or the term lies p - 1 digits or more below the sum.
inline bool SeriesEnds(const RealNumber* sum, const RealNumber* term) {
    return RealIsSpecial(sum) || RealIsSpecial(term) ||
           RealExponent(sum) - RealExponent(term) >= numberContext.precisionDigits - 1;
}

/// dest = e^x = 1 + x + x^2/2! + ...
Limb SeriesExp(RealNumber* dest, const RealNumber* x);

/// dest = artanh x = x + x^3/3 + x^5/5 + ... Returns the number of terms added to x, at least 1.
int64_t SeriesAtanh(RealNumber* dest, const RealNumber* x);

/// dest = arctan x = x - x^3/3 + x^5/5 - ...
Limb SeriesAtan(RealNumber* dest, const RealNumber* x);

/// dest = sin x = x - x^3/3! + x^5/5! - ... A zero comes out with the other sign.
Limb SeriesSin(RealNumber* dest, const RealNumber* x);

/// dest = cos x = 1 - x^2/2! + x^4/4! - ...
Limb SeriesCos(RealNumber* dest, const RealNumber* x);

/// dest = sinh x = x + x^3/3! + x^5/5! + ...
Limb SeriesSinh(RealNumber* dest, const RealNumber* x);

/// sin x and cos x from one sequence of terms, the sine as x times the series of sin x / x.
void SeriesSinCos(RealNumber* sine, RealNumber* cosine, const RealNumber* x);

/// sinh x and cosh x in the same way.
void SeriesSinhCosh(RealNumber* sinh, RealNumber* cosh, const RealNumber* x);

}  // namespace tallymere
