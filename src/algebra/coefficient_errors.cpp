#include "algebra/coefficient_errors.h"

#include <algorithm>

#include "core/complex_arithmetic.h"
#include "core/contract.h"

namespace tallymere {

namespace {

// True when digits of a finite number in the layout in force are not 0 behind the first so many.
bool GoesOnBehind(const RealNumber* x, int64_t digits) {
    int64_t behind = numberContext.precisionDigits - digits;
    for (int64_t i = numberContext.realLimbs - 1; i >= 0 && behind > 0; i--) {
        const int64_t ofLimb = std::min(behind, DigitsPerLimb);
        const Limb limb = RealLimbs(x)[i];
        if (ofLimb < DigitsPerLimb ? limb % PowerOfTen(ofLimb) != 0 : limb != 0) {
            return true;
        }
        behind -= ofLimb;
    }
    return false;
}

// Of a part in the layout in force.
Magnitude ErrorOfPart(const RealNumber* part, CoefficientDigits counts) {
    if (RealIsZero(part) || !GoesOnBehind(part, counts.exact)) {
        return {};
    }
    return MakeMagnitude(1, RealExponent(part) + 1 - counts.known);
}

}  // namespace

CoefficientErrors FindCoefficientErrors(const Polynomial& polynomial, CoefficientDigits counts) {
    TALLYMERE_REQUIRE(counts.known >= 1 && counts.known <= counts.exact);
    const DigitsScope digits(polynomial.layout.digits);
    CoefficientErrors errors{};
    errors.knownDigits = counts.known;
    for (int64_t i = 0; i <= polynomial.degree; i++) {
        errors.real[i] = ErrorOfPart(RealPart(polynomial.coefficients[i]), counts);
        errors.imaginary[i] = ErrorOfPart(ImaginaryPart(polynomial.coefficients[i]), counts);
        errors.any = errors.any || !IsZero(errors.real[i]) || !IsZero(errors.imaginary[i]);
    }
    return errors;
}

void FindErrorSizes(Magnitude* sizes, const CoefficientErrors& errors, int64_t degree) {
    for (int64_t i = 0; i <= degree; i++) {
        sizes[i] = errors.real[i] + errors.imaginary[i];
    }
}

PartSizes FindPartShifts(const CoefficientErrors& errors, int64_t degree, int64_t order,
                         const ComplexNumber* z, const ComplexNumber* inverse) {
    TALLYMERE_REQUIRE(degree <= MaxEquationDegree && order >= 0 && order <= degree);
    ScratchStackScope scope;
    // An error e of coefficient i moves the root by e * effect: the binomial coefficient of i over
    // `order`, z^(i - order) and `inverse`.
    ComplexNumber* effect = TakeComplex(scope);
    ComplexCopy(effect, inverse);
    PartSizes shifts{};
    for (int64_t i = order; i <= degree; i++) {
        shifts = shifts + PartSizes{errors.real[i], errors.imaginary[i]} * PartSizesOf(effect);
        ComplexMul(effect, effect, z);
        ComplexMulUint(effect, effect, static_cast<uint64_t>(i + 1));
        ComplexDivUint(effect, effect, static_cast<uint64_t>(i + 1 - order));
    }
    return shifts;
}

}  // namespace tallymere
