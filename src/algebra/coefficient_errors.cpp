#include "algebra/coefficient_errors.h"

#include "core/complex_arithmetic.h"

namespace tallymere {

namespace {

// Of a part in the layout in force.
Magnitude ErrorOfPart(const RealNumber* part) {
    const Limb last = RealLimbs(part)[numberContext.realLimbs - 1];
    if (RealIsZero(part) || last % PowerOfTen(SpareDigits) == 0) {
        return {};
    }
    return MakeMagnitude(RoundedPartError, RealExponent(part) + 1 - numberContext.precisionDigits);
}

}  // namespace

CoefficientErrors FindCoefficientErrors(const Polynomial& polynomial) {
    const DigitsScope digits(polynomial.layout.digits);
    CoefficientErrors errors{};
    for (int64_t i = 0; i <= polynomial.degree; i++) {
        errors.real[i] = ErrorOfPart(RealPart(polynomial.coefficients[i]));
        errors.imaginary[i] = ErrorOfPart(ImaginaryPart(polynomial.coefficients[i]));
        errors.any = errors.any || !IsZero(errors.real[i]) || !IsZero(errors.imaginary[i]);
    }
    return errors;
}

void TakeErrorSizes(Magnitude* sizes, const CoefficientErrors& errors, int64_t degree) {
    for (int64_t i = 0; i <= degree; i++) {
        sizes[i] = errors.real[i] + errors.imaginary[i];
    }
}

PartShifts FindPartShifts(const CoefficientErrors& errors, int64_t degree, int64_t order,
                          const ComplexNumber* z, const ComplexNumber* inverse) {
    ScratchStackScope scope;
    // An error e of coefficient i moves the root by e * effect: the binomial coefficient of i over
    // `order`, z^(i - order) and `inverse`.
    ComplexNumber* effect = TakeComplex(scope);
    ComplexCopy(effect, inverse);
    PartShifts shifts{};
    for (int64_t i = order; i <= degree; i++) {
        const Magnitude x = MagnitudeOf(RealPart(effect));
        const Magnitude y = MagnitudeOf(ImaginaryPart(effect));
        shifts.real = shifts.real + errors.real[i] * x + errors.imaginary[i] * y;
        shifts.imaginary = shifts.imaginary + errors.real[i] * y + errors.imaginary[i] * x;
        ComplexMul(effect, effect, z);
        ComplexMulUint(effect, effect, static_cast<uint64_t>(i + 1));
        ComplexDivUint(effect, effect, static_cast<uint64_t>(i + 1 - order));
    }
    return shifts;
}

}  // namespace tallymere
