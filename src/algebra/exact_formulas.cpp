#include "algebra/exact_formulas.h"

#include "algebra/exact_root.h"
#include "algebra/silent_codes.h"
#include "algebra/square_factor.h"
#include "core/contract.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"
#include "exact/rational_arithmetic.h"
#include "numtheory/factorize_number.h"

namespace tallymere {

namespace {

RationalNumber* TakeRational(ScratchScope& scratch) {
    return RationalAt(scratch.Take(RationalWords()));
}

void EmptyText(SolutionSet& solutions, int64_t slot) {
    solutions.exactTexts[slot][0] = u'\0';
}

RootOutcome PutBothRoots(SolutionSet& solutions, int64_t slot1, const ExactRoot& root1,
                         int64_t slot2, const ExactRoot& root2, int64_t digits) {
    const RootOutcome first = PutExactRoot(solutions, slot1, root1, digits);
    const RootOutcome second = PutExactRoot(solutions, slot2, root2, digits);
    return first != RootOutcome::Found ? first : second;
}

// x = p +- sqrt(d) / (2 a2), or p +- sqrt(-d) / (2 a2) i, solves an equation of degree 2.
struct QuadraticTerms {
    RationalNumber* p;             // -a1 / (2 a2)
    RationalNumber* d;             // a1^2 - 4 a2 a0
    RationalNumber* twiceHighest;  // 2 a2
};

QuadraticTerms MakeTerms(ScratchScope& scratch, const ExactPolynomial& list) {
    const QuadraticTerms terms = {TakeRational(scratch), TakeRational(scratch),
                                  TakeRational(scratch)};
    CoreScratchScope inner;
    RationalNumber* product = TakeRational(inner);
    RationalMulDiv(product, list.coefficients[2], list.coefficients[0], false);
    RationalMulSmall(product, product, 4);
    RationalMulDiv(terms.d, list.coefficients[1], list.coefficients[1], false);
    RationalAddSub(terms.d, terms.d, product, true);
    RationalMulSmall(terms.twiceHighest, list.coefficients[2], 2);
    RationalMulDiv(terms.p, list.coefficients[1], terms.twiceHighest, true);
    RationalNegate(terms.p);
    return terms;
}

// factor * sqrt(radicand) = sqrt(|d|), where no square but 1 divides the integer `radicand`. False
// when a stop was requested.
//
// With d = N / M = A^2 B / (C^2 E) that is A / (C E) * sqrt(B E). It is in lowest terms, because d
// is.
bool SplitSquareRoot(RationalNumber* factor, uint64_t* radicand, const RationalNumber* d) {
    CoreScratchScope scratch;
    uint64_t* rest = scratch.Take(numberContext.uintLimbs);
    factor->sign = 0;
    if (!SplitSquareFactor(RationalNumerator(factor), radicand, RationalNumerator(d)) ||
        !SplitSquareFactor(RationalDenominator(factor), rest, RationalDenominator(d))) {
        return false;
    }
    BigUintMul(RationalDenominator(factor), RationalDenominator(factor), rest);
    BigUintMul(radicand, radicand, rest);
    return true;
}

// Two different roots, as SolveExactQuadratic has them. What does not fit is noted, and nothing is
// put into the slots then.
RootOutcome PutDifferentRoots(SolutionSet& solutions, int64_t slot1, int64_t slot2,
                              const QuadraticTerms& terms, const SilentCodesScope& codes,
                              int64_t digits) {
    CoreScratchScope scratch;
    RationalNumber* q = TakeRational(scratch);
    RationalNumber* other = TakeRational(scratch);
    uint64_t* r = scratch.Take(numberContext.uintLimbs);
    if (!SplitSquareRoot(q, r, terms.d)) {
        return RootOutcome::Stopped;
    }
    RationalMulDiv(q, q, terms.twiceHighest, true);
    const bool imaginary = RationalSign(terms.d) != 0;
    const bool areFractions = BigUintEqualsSmall(r, 1) && !imaginary;
    if (areFractions) {
        RationalAddSub(other, terms.p, q, true);
        RationalAddSub(q, terms.p, q, false);
    } else {
        RationalCopy(other, q);
        RationalNegate(other);
    }
    if (!codes.NoneNoted()) {
        return RootOutcome::Found;
    }
    return areFractions
               ? PutBothRoots(solutions, slot1, FractionRoot(q), slot2, FractionRoot(other), digits)
               : PutBothRoots(solutions, slot1, {terms.p, q, r, imaginary}, slot2,
                              {terms.p, other, r, imaginary}, digits);
}

}  // namespace

RootOutcome SolveExactLinear(SolutionSet& solutions, const ExactPolynomial& list, int64_t slot,
                             int64_t digits) {
    TALLYMERE_REQUIRE(numberContext.uintLimbs == FactorLimbs);
    TALLYMERE_REQUIRE(ExactPolynomialIsWellFormed(list) && list.degree == 1);
    TALLYMERE_REQUIRE(slot >= 0 && slot < solutions.count);
    TALLYMERE_REQUIRE(digits >= 1 && digits <= numberContext.precisionDigits);
    const SilentCodesScope codes;
    CoreScratchScope scratch;
    RationalNumber* root = TakeRational(scratch);
    RationalMulDiv(root, list.coefficients[0], list.coefficients[1], true);
    RationalNegate(root);
    EmptyText(solutions, slot);
    if (!codes.NoneNoted()) {
        return RootOutcome::Found;
    }
    return PutExactRoot(solutions, slot, FractionRoot(root), digits);
}

RootOutcome SolveExactQuadratic(SolutionSet& solutions, const ExactPolynomial& list, int64_t slot1,
                                int64_t slot2, int64_t digits) {
    TALLYMERE_REQUIRE(numberContext.uintLimbs == FactorLimbs);
    TALLYMERE_REQUIRE(ExactPolynomialIsWellFormed(list) && list.degree == 2);
    TALLYMERE_REQUIRE(slot1 >= 0 && slot1 < solutions.count);
    TALLYMERE_REQUIRE(slot2 >= 0 && slot2 < solutions.count && slot2 != slot1);
    TALLYMERE_REQUIRE(digits >= 1 && digits <= numberContext.precisionDigits);
    const SilentCodesScope codes;
    CoreScratchScope scratch;
    const QuadraticTerms terms = MakeTerms(scratch, list);
    EmptyText(solutions, slot1);
    EmptyText(solutions, slot2);
    if (!codes.NoneNoted()) {
        return RootOutcome::Found;
    }
    if (RationalIsZero(terms.d)) {
        const ExactRoot root = FractionRoot(terms.p);
        return PutBothRoots(solutions, slot1, root, slot2, root, digits);
    }
    return PutDifferentRoots(solutions, slot1, slot2, terms, codes, digits);
}

}  // namespace tallymere
