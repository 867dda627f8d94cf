#include "algebra/exact_polynomial.h"

#include "algebra/silent_codes.h"
#include "core/contract.h"
#include "exact/big_uint.h"
#include "exact/rational_arithmetic.h"

namespace tallymere {

bool ExactPolynomialIsWellFormed(const ExactPolynomial& polynomial) {
    if (polynomial.degree < 0 || polynomial.degree > MaxEquationDegree) {
        return false;
    }
    for (int64_t i = 0; i <= polynomial.degree; i++) {
        const RationalNumber* coefficient = polynomial.coefficients[i];
        if (!RationalIsWellFormed(coefficient) || !RationalIsInLowestTerms(coefficient)) {
            return false;
        }
    }
    return !RationalIsZero(polynomial.coefficients[polynomial.degree]);
}

ExactPolynomial TakeExactPolynomial(ScratchScope& scratch, int64_t degree) {
    TALLYMERE_REQUIRE(degree >= 0 && degree <= MaxEquationDegree);
    ExactPolynomial polynomial = {degree, {}};
    for (int64_t i = 0; i <= degree; i++) {
        polynomial.coefficients[i] = RationalAt(scratch.Take(RationalWords()));
    }
    return polynomial;
}

bool ClearDenominators(ExactPolynomial& dest, const ExactPolynomial& polynomial) {
    TALLYMERE_REQUIRE(ExactPolynomialIsWellFormed(polynomial));
    const SilentCodesScope codes;
    CoreScratchScope scratch;
    RationalNumber* factor = RationalAt(scratch.Take(RationalWords()));
    dest.degree = polynomial.degree;
    for (int64_t i = 0; i <= dest.degree; i++) {
        RationalCopy(dest.coefficients[i], polynomial.coefficients[i]);
    }
    for (int64_t i = 0; i <= dest.degree && codes.NoneNoted(); i++) {
        if (RationalIsInteger(dest.coefficients[i])) {
            continue;
        }
        RationalFromUnsigned(factor, 1, 0);
        BigUintCopy(RationalNumerator(factor), RationalDenominator(dest.coefficients[i]));
        for (int64_t k = 0; k <= dest.degree; k++) {
            RationalMulDiv(dest.coefficients[k], dest.coefficients[k], factor, false);
        }
    }
    return codes.NoneNoted();
}

bool DeflateByRoot(ExactPolynomial& quotient, const ExactPolynomial& polynomial,
                   const RationalNumber* root) {
    TALLYMERE_REQUIRE(ExactPolynomialIsWellFormed(polynomial) && polynomial.degree >= 1);
    const SilentCodesScope codes;
    CoreScratchScope scratch;
    RationalNumber* value = RationalAt(scratch.Take(RationalWords()));
    quotient.degree = polynomial.degree - 1;
    RationalCopy(value, polynomial.coefficients[polynomial.degree]);
    for (int64_t i = quotient.degree; i >= 0; i--) {
        RationalCopy(quotient.coefficients[i], value);
        RationalMulDiv(value, value, root, false);
        RationalAddSub(value, value, polynomial.coefficients[i], false);
    }
    return codes.NoneNoted() && RationalIsZero(value);
}

}  // namespace tallymere
