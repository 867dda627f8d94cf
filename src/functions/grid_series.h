// The terms of a power series on the digit grid of its sum.
//
// A series adds each term, a number of p digits, to a sum that is far larger, and only the digits
// of the term that reach the sum's last one count. So the terms are computed in fixed point, on the
// limbs of the sum and one limb below them: the terms get shorter as they get smaller, and nothing
// is shifted, aligned or normalised. Where that one limb leaves no doubt, the digits that a term
// adds are those of the truncated products and quotients of p digits that the series is made of,
// and the sum has the same digits. In the rare case of doubt the caller has to do those steps
// instead.
#pragma once

#include "core/real_number.h"
#include "core/scratch.h"

namespace tallymere {

/// A number on the grid of a sum: realLimbs limbs beside those of the sum and one more. The limbs
/// before `lead` stand for 0 and are not looked at.
struct GridTerm {
    Limb* limbs;
    int64_t length;
    int64_t lead;
    int64_t steps;  ///< products and quotients since it was a number, each truncated to p digits
    bool negative;
};

/// A number below 1 as a fraction: limbs[i] counts 10^(-19 (i + 1)). All before `lead` are 0.
struct GridFactor {
    Limb* limbs;
    int64_t length;
    int64_t lead;
    bool negative;
};

enum class SeriesOutcome {
    Added,
    Last,  ///< added, and the series ends by SeriesEnds
    Doubtful,
};

/// True when a series can go on from this sum and this power, whose product by `factor` makes the
/// next term, on the grid: the term is far enough below the sum, factor < 0.7, and nothing special
/// or with an exponent near the ends of the range.
bool GridCanHold(const RealNumber* sum, const RealNumber* power, const RealNumber* factor);

/// x on the grid of `sum`; |x| must not have a larger exponent than the sum.
GridTerm MakeGridTerm(ScratchScope& scratch, const RealNumber* x, const RealNumber* sum);

/// A term to be written by GridQuotient.
GridTerm MakeGridTerm(ScratchScope& scratch);

/// x, for |x| < 1.
GridFactor MakeGridFactor(ScratchScope& scratch, const RealNumber* x);

/// term = term * factor.
void GridMultiply(GridTerm& term, const GridFactor& factor);

/// dest = term / d for 1 <= d < UintDivisorLimit. dest may be term.
void GridQuotient(GridTerm& dest, const GridTerm& term, uint64_t d);

/// sum = sum + term, truncated; `guard` gets the limb below, whose last digits are not certain. A
/// doubtful sum is of no use any more.
SeriesOutcome GridAdd(RealNumber* sum, Limb* guard, const GridTerm& term);

}  // namespace tallymere
