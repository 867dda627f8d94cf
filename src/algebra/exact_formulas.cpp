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

// dest = a1^2 - 4 a2 a0.
void SetDiscriminant(RationalNumber* dest, const ExactPolynomial& list) {
    CoreScratchScope scratch;
    RationalNumber* product = TakeRational(scratch);
    RationalMulDiv(product, list.coefficients[2], list.coefficients[0], false);
    RationalMulSmall(product, product, 4);
    RationalMulDiv(dest, list.coefficients[1], list.coefficients[1], false);
    RationalAddSub(dest, dest, product, true);
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

}  // namespace

RootOutcome SolveExactLinear(SolutionSet& solutions, const ExactPolynomial& list, int64_t slot,
                             int64_t digits) {
    TALLYMERE_REQUIRE(numberContext.uintLimbs == FactorLimbs);
    TALLYMERE_REQUIRE(ExactPolynomialIsWellFormed(list) && list.degree == 1);
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
    const SilentCodesScope codes;
    CoreScratchScope scratch;
    RationalNumber* d = TakeRational(scratch);
    RationalNumber* twiceLeading = TakeRational(scratch);
    RationalNumber* p = TakeRational(scratch);
    RationalNumber* q = TakeRational(scratch);
    uint64_t* r = scratch.Take(numberContext.uintLimbs);

    SetDiscriminant(d, list);
    RationalMulSmall(twiceLeading, list.coefficients[2], 2);
    RationalMulDiv(p, list.coefficients[1], twiceLeading, true);
    RationalNegate(p);
    EmptyText(solutions, slot1);
    EmptyText(solutions, slot2);
    if (!codes.NoneNoted()) {
        return RootOutcome::Found;
    }
    if (RationalIsZero(d)) {
        return PutBothRoots(solutions, slot1, FractionRoot(p), slot2, FractionRoot(p), digits);
    }
    if (!SplitSquareRoot(q, r, d)) {
        return RootOutcome::Stopped;
    }
    RationalMulDiv(q, q, twiceLeading, true);

    RationalNumber* root1 = TakeRational(scratch);
    RationalNumber* root2 = TakeRational(scratch);
    const bool imaginary = RationalSign(d) != 0;
    if (BigUintEqualsSmall(r, 1) && !imaginary) {
        RationalAddSub(root1, p, q, false);
        RationalAddSub(root2, p, q, true);
        return codes.NoneNoted() ? PutBothRoots(solutions, slot1, FractionRoot(root1), slot2,
                                                FractionRoot(root2), digits)
                                 : RootOutcome::Found;
    }
    if (!codes.NoneNoted()) {
        return RootOutcome::Found;
    }
    RationalCopy(root2, q);
    RationalNegate(root2);
    return PutBothRoots(solutions, slot1, {p, q, r, imaginary}, slot2, {p, root2, r, imaginary},
                        digits);
}

}  // namespace tallymere
