#include "functions/grid_series.h"

#include <algorithm>

#include "core/contract.h"
#include "core/limb_columns.h"
#include "core/limb_tools.h"
#include "core/real_compare.h"
#include "core/real_divide.h"

namespace tallymere {

namespace {

// The limb below the sum.
constexpr int64_t SpareLimbs = 1;

// An exponent that no term can bring to the end of the range.
constexpr int64_t LargestExponent = MaxExponent / 4;

// By how many units of its last limb a term is too small at most. A product leaves out the columns
// beyond the one behind the last limb, less than a unit for each of the 530 limbs of the longest
// term; every step cuts off another unit; and what was there before shrinks by the factor.
constexpr Limb TermError = 4096;

// A term has to lie that many digits below the sum, so that the error of the steps of p digits is
// small against the sum's last digit.
constexpr int64_t LeastGap = 5;

void SkipZeros(GridTerm& term) {
    while (term.lead < term.length && term.limbs[term.lead] == 0) {
        term.lead++;
    }
}

// By how many units of its last limb a term can differ from the number that the steps of p digits
// make. Each of them is off by about one unit in the last of its p digits at most, and 20 / 10^gap
// of the sum's last digit is twice that. False where the term lies too near to the sum.
bool StepError(const GridTerm& term, Limb* error) {
    const int64_t gap =
        numberContext.topLimbDigits + DigitsPerLimb * term.lead - DigitCount(term.limbs[term.lead]);
    if (gap < LeastGap) {
        return false;
    }
    const Limb units = 20 * static_cast<Limb>(term.steps);
    *error = TermError + units * PowerOfTen(std::max<int64_t>(DigitsPerLimb - gap, 0));
    return true;
}

}  // namespace

bool GridCanHold(const RealNumber* sum, const RealNumber* power, const RealNumber* factor) {
    TALLYMERE_REQUIRE(RealIsWellFormed(sum) && RealIsWellFormed(power) && RealIsWellFormed(factor));
    const auto moderate = [](const RealNumber* x) {
        return RealExponent(x) > -LargestExponent && RealExponent(x) < LargestExponent;
    };
    if (!moderate(sum) || !moderate(power) || !moderate(factor)) {
        return false;
    }
    const int64_t largestNext = RealExponent(power) + RealExponent(factor) + 1;
    return RealExponent(power) <= RealExponent(sum) &&
           RealExponent(sum) - largestNext >= LeastGap &&
           RealCompareScaled(factor, 7, -1, true) < 0;
}

GridTerm MakeGridTerm(ScratchScope& scratch) {
    const int64_t length = numberContext.realLimbs + SpareLimbs;
    return {scratch.Take(length), length, length, 0, false};
}

GridTerm MakeGridTerm(ScratchScope& scratch, const RealNumber* x, const RealNumber* sum) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x) && RealIsWellFormed(sum));
    const int64_t n = numberContext.realLimbs;
    GridTerm term = MakeGridTerm(scratch);
    LimbsCopy(term.limbs, RealLimbs(x), n);
    LimbsClear(term.limbs + n, SpareLimbs);
    LimbsShiftRightFar(term.limbs, term.limbs, term.length, RealExponent(sum) - RealExponent(x));
    term.lead = 0;
    term.negative = RealSign(x) != 0;
    SkipZeros(term);
    return term;
}

GridFactor MakeGridFactor(ScratchScope& scratch, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    const int64_t n = numberContext.realLimbs;
    GridTerm term = MakeGridTerm(scratch);
    LimbsShiftLeftDigits(term.limbs, RealLimbs(x), n, DigitsPerLimb - numberContext.topLimbDigits,
                         0);
    LimbsClear(term.limbs + n, SpareLimbs);
    LimbsShiftRightFar(term.limbs, term.limbs, term.length, -1 - RealExponent(x));
    term.lead = 0;
    SkipZeros(term);
    return {term.limbs, term.length, term.lead, RealSign(x) != 0};
}

void GridMultiply(GridTerm& term, const GridFactor& factor) {
    term.steps++;
    term.negative = term.negative != factor.negative;
    if (term.lead == term.length) {
        return;
    }
    // From the last column up, so that a limb is written when no column needs it any more. The
    // column behind the last limb only feeds the carries.
    ColumnSum column;
    for (int64_t c = term.length; c > term.lead; c--) {
        const int64_t count = c - factor.lead - term.lead;
        if (count > 0) {
            AddProducts(column, term.limbs + term.lead, factor.limbs + (c - 1 - term.lead), count);
        }
        const Limb limb = TakeLimb(column);
        if (c < term.length) {
            term.limbs[c] = limb;
        }
    }
    term.limbs[term.lead] = column.sum.low;
    SkipZeros(term);
}

void GridQuotient(GridTerm& dest, const GridTerm& term, uint64_t d) {
    TALLYMERE_REQUIRE(d >= 1 && d < UintDivisorLimit);
    dest.lead = term.lead;
    dest.steps = term.steps + 1;
    dest.negative = term.negative;
    LimbsDivideUint(dest.limbs + term.lead, term.limbs + term.lead, term.length - term.lead, 0, d,
                    0);
    SkipZeros(dest);
}

SeriesOutcome GridAdd(RealNumber* sum, Limb* guard, const GridTerm& term) {
    const int64_t n = numberContext.realLimbs;
    const int64_t t = numberContext.topLimbDigits;
    const bool subtract = term.negative != (RealSign(sum) != 0);
    Limb error = 0;
    if (term.lead == term.length || !StepError(term, &error)) {
        return SeriesOutcome::Doubtful;
    }
    const Limb below = term.limbs[n];
    if (below <= error || below >= LimbBase - TermError) {
        return SeriesOutcome::Doubtful;
    }
    *guard = subtract ? LimbBase - below : below;
    Limb* limbs = RealLimbs(sum);
    // A difference is truncated too: what lies below the last digit takes one more off it.
    Limb carry = subtract ? 1 : 0;
    int64_t i = n - 1;
    for (; i >= term.lead; i--) {
        limbs[i] = subtract ? SubtractLimbs(limbs[i], term.limbs[i], carry)
                            : AddLimbs(limbs[i], term.limbs[i], carry);
    }
    for (; carry != 0 && i >= 0; i--) {
        limbs[i] = subtract ? SubtractLimbs(limbs[i], 0, carry) : AddLimbs(limbs[i], 0, carry);
    }
    if (carry != 0 || limbs[0] < PowerOfTen(t - 1) || limbs[0] >= PowerOfTen(t)) {
        return SeriesOutcome::Doubtful;
    }
    const bool last = term.lead == n || (term.lead == n - 1 && term.limbs[n - 1] < 10);
    return last ? SeriesOutcome::Last : SeriesOutcome::Added;
}

}  // namespace tallymere
