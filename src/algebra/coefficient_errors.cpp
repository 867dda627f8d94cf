#include "algebra/coefficient_errors.h"

#include <algorithm>

#include "core/complex_arithmetic.h"

namespace tallymere {

namespace {

// True when a finite number in the layout in force has a long run of zeros or nines before its last
// digit.
bool HasLongRun(const RealNumber* x) {
    const int64_t digits = numberContext.precisionDigits;
    const int64_t least = std::max(digits / LongRunPart, LongRunDigits);
    int64_t run = 0;
    uint64_t runDigit = 0;
    int64_t digitsOfLimb = numberContext.topLimbDigits;
    for (int64_t i = 0; i < numberContext.realLimbs; i++) {
        for (int64_t k = digitsOfLimb - 1; k >= 0; k--) {
            const uint64_t digit = RealLimbs(x)[i] / PowerOfTen(k) % 10;
            if (digit != runDigit) {
                if (run >= least && (runDigit == 0 || runDigit == 9)) {
                    return true;
                }
                run = 0;
                runDigit = digit;
            }
            run++;
        }
        digitsOfLimb = DigitsPerLimb;
    }
    return false;
}

// Of a part in the layout in force.
Magnitude ErrorOfPart(const RealNumber* part) {
    const Limb last = RealLimbs(part)[numberContext.realLimbs - 1];
    if (RealIsZero(part) || last % PowerOfTen(SpareDigits) == 0 || HasLongRun(part)) {
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
