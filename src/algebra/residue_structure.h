// What whole numbers tell of the roots of a polynomial, without looking at any of them: how many
// different ones there are, and how many lie mirror-wise to a line.
//
// Both are degrees of greatest common divisors. They are taken modulo three primes of 63 bits, each
// in the field that also has a square root of -1. A prime that divides the highest coefficient is
// passed over. With any other one the degree is never too small, and it is too large only where the
// prime divides one particular integer, not 0, that depends on the polynomial. So the least of the
// degrees is taken. For a polynomial that is not made for it, the chance that a prime is wrong is
// about 10^-19, and the chance that all are wrong is about 10^-57. Who knows the primes can make a
// polynomial of some 60 digits for which they are wrong: its roots are then taken as equal, or a
// part as 0 or as the middle between two results, although the difference is small. Where all three
// primes divide the highest coefficient, the degree counts as 0: nothing is taken as equal then
// before all digits have been looked at. A factor of multiplicity above 1 stands in the polynomial
// and its derivative (Yun, SYMSAC 1976).
#pragma once

#include "algebra/polynomial.h"

namespace tallymere {

/// Which part of a number is meant.
enum class NumberPart { Real, Imaginary };

/// The number of different roots of a polynomial of degree 1 or more. It is never too large, except
/// where the degree of the divisor counts as 0.
int64_t CountDistinctRoots(const Polynomial& polynomial);

/// The number of roots, with multiplicity, whose mirror image is a root of the same multiplicity
/// (of two that differ in multiplicity, the smaller one counts for both): mirrored at the line on
/// which the named part is `position`, a number in the layout in force. It is never
/// too small, except where the degree of the divisor counts as 0.
int64_t CountMirroredRoots(const Polynomial& polynomial, NumberPart part,
                           const RealNumber* position);

}  // namespace tallymere
