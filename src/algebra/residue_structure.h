// What is exactly true of the roots of a polynomial, without looking at any of them: how many
// different ones there are, and how many lie mirror-wise to a line.
//
// Both are degrees of greatest common divisors. They are taken modulo one prime of 63 bits, in the
// field that also has a square root of -1. Such a degree is never too small, and it is too large
// only where the prime divides one particular integer that depends on the polynomial: for a
// polynomial that is not made for it, with a chance of less than 10^-16. A factor of multiplicity
// above 1 stands in the polynomial and its derivative (Yun, SYMSAC 1976).
#pragma once

#include "algebra/polynomial.h"

namespace tallymere {

/// Which part of a number is meant.
enum class NumberPart { Real, Imaginary };

/// The number of different roots of a polynomial of degree 1 or more.
int64_t CountDistinctRoots(const Polynomial& polynomial);

/// The number of roots, with multiplicity, whose mirror image is a root of the same multiplicity
/// (of two that differ in multiplicity, the smaller one counts for both): mirrored at the line on
/// which the named part is `position`, a number in the layout in force.
int64_t CountMirroredRoots(const Polynomial& polynomial, NumberPart part,
                           const RealNumber* position);

}  // namespace tallymere
