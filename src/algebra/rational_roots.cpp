#include "algebra/rational_roots.h"

#include <algorithm>
#include <utility>

#include "algebra/exact_formulas.h"
#include "algebra/exact_root.h"
#include "algebra/silent_codes.h"
#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/rational_arithmetic.h"
#include "numtheory/factorize_number.h"
#include "values/exact_conversions.h"

namespace tallymere {

namespace {

RealNumber* TakeReal(ScratchScope& scratch) {
    return RealAt(scratch.Take(RealWords()));
}

// candidate = x rounded to so many digits. False when that is no integer, or does not fit.
bool RoundToInteger(RationalNumber* candidate, const RealNumber* x, int64_t digits) {
    const SilentCodesScope codes;
    CoreScratchScope scratch;
    RealNumber* rounded = TakeReal(scratch);
    RealRoundDigitsAny(rounded, x, digits);
    ConvertRealToRational(candidate, numberContext.uintLimbs, rounded,
                          numberContext.precisionDigits);
    return codes.NoneNoted();
}

// candidate = the fraction with this denominator that is next to x, if so many digits show it.
bool RoundToFraction(RationalNumber* candidate, const RealNumber* x, const uint64_t* denominator,
                     int64_t digits) {
    CoreScratchScope scratch;
    RealNumber* product = TakeReal(scratch);
    RealRound(product, RealFromBigUint(product, denominator, numberContext.uintLimbs));
    RealMul(product, product, x);
    if (!RoundToInteger(candidate, product, digits)) {
        return false;
    }
    BigUintCopy(RationalDenominator(candidate), denominator);
    ReduceFraction(RationalNumerator(candidate), RationalDenominator(candidate));
    return true;
}

// Divides the polynomial, with integers as coefficients, by x - root for the fraction `root` next
// to the value x. False when that is no root of it. Any fraction that is one has a denominator that
// divides the highest coefficient.
bool DeflateByValue(ExactPolynomial& quotient, RationalNumber* root,
                    const ExactPolynomial& polynomial, const RealNumber* x, int64_t digits) {
    if (RoundToInteger(root, x, digits) && DeflateByRoot(quotient, polynomial, root)) {
        return true;
    }
    const uint64_t* highest = RationalNumerator(polynomial.coefficients[polynomial.degree]);
    return RoundToFraction(root, x, highest, digits) && DeflateByRoot(quotient, polynomial, root);
}

// Exchanges the value in the slot for that of a later real one, if that is nearer to the root.
// Values that differ in their last digits alone lead to the same fraction.
void SwapInNearestValue(SolutionSet& solutions, int64_t slot, const RationalNumber* root) {
    CoreScratchScope scratch;
    RealNumber* exact = TakeReal(scratch);
    RealNumber* least = TakeReal(scratch);
    RealNumber* distance = TakeReal(scratch);
    RealFromRational(exact, root);
    RealSub(least, RealPart(solutions.values[slot]), exact);
    for (int64_t other = slot + 1; other < solutions.count; other++) {
        if (!ComplexIsReal(solutions.values[other])) {
            continue;
        }
        RealSub(distance, RealPart(solutions.values[other]), exact);
        if (RealCompare(distance, least, true) < 0) {
            std::swap(solutions.values[slot], solutions.values[other]);
            RealCopy(least, distance);
        }
    }
}

bool AllTextsAreEmpty(const SolutionSet& solutions) {
    return std::all_of(solutions.exactTexts, solutions.exactTexts + solutions.count,
                       [](const char16_t* text) { return text[0] == 0; });
}

}  // namespace

RootOutcome FindExactRoots(SolutionSet& solutions, const ExactPolynomial& list, int64_t digits) {
    TALLYMERE_REQUIRE(numberContext.uintLimbs == FactorLimbs);
    TALLYMERE_REQUIRE(digits >= MinExactDigits && digits <= numberContext.precisionDigits);
    TALLYMERE_REQUIRE(ExactPolynomialIsWellFormed(list));
    TALLYMERE_REQUIRE(SolutionSetIsWellFormed(solutions) && solutions.count <= list.degree);
    TALLYMERE_REQUIRE(AllTextsAreEmpty(solutions));
    CoreScratchScope scratch;
    ExactPolynomial rest = TakeExactPolynomial(scratch, list.degree);
    ExactPolynomial quotient = TakeExactPolynomial(scratch, list.degree);
    RationalNumber* root = RationalAt(scratch.Take(RationalWords()));
    if (!ClearDenominators(rest, list)) {
        return RootOutcome::Found;
    }
    int64_t left[MaxEquationDegree];
    int64_t leftCount = 0;
    for (int64_t slot = 0; slot < solutions.count; slot++) {
        const ComplexNumber* value = solutions.values[slot];
        if (ComplexIsReal(value) &&
            DeflateByValue(quotient, root, rest, RealPart(value), digits - ExactRoundingGap)) {
            std::swap(rest, quotient);
            SwapInNearestValue(solutions, slot, root);
            const RootOutcome outcome = PutExactRoot(solutions, slot, FractionRoot(root), digits);
            if (outcome != RootOutcome::Found) {
                return outcome;
            }
        } else {
            left[leftCount++] = slot;
        }
    }
    if (rest.degree > leftCount) {
        return RootOutcome::Internal;
    }
    if (rest.degree == 1) {
        return SolveExactLinear(solutions, rest, left[0], digits);
    }
    if (rest.degree == 2) {
        return SolveExactQuadratic(solutions, rest, left[0], left[1], digits);
    }
    return RootOutcome::Found;
}

}  // namespace tallymere
