#include "algebra/exponent_scaling.h"

#include <algorithm>
#include <cmath>

#include "core/contract.h"

namespace tallymere {

namespace {

int64_t ExponentOf(const ComplexNumber* z) {
    // The exponent of a zero is the least of all.
    return std::max(RealExponent(RealPart(z)), RealExponent(ImaginaryPart(z)));
}

// The result of exponent + i * order - shift, where that is within +-ScaledExponents; true then.
// `*above` says where it lies otherwise.
bool ShiftExponent(int64_t* result, bool* above, int64_t exponent, int64_t i, int64_t order,
                   uint64_t shift, double shiftSize) {
    const double size = static_cast<double>(exponent) +
                        static_cast<double>(i) * static_cast<double>(order) - shiftSize;
    *above = size > 0;
    if (std::fabs(size) > static_cast<double>(ScaledExponents)) {
        return false;
    }
    // Modulo 2^64, where steps on the way may leave the range.
    *result = static_cast<int64_t>(static_cast<uint64_t>(exponent) +
                                   static_cast<uint64_t>(i) * static_cast<uint64_t>(order) - shift);
    return true;
}

}  // namespace

bool ScaleExponents(Polynomial& polynomial, int64_t* order) {
    const DigitsScope digits(polynomial.layout.digits);
    TALLYMERE_REQUIRE(PolynomialIsWellFormed(polynomial) && polynomial.degree >= 1);
    TALLYMERE_REQUIRE(!ComplexIsZero(polynomial.coefficients[0]));
    const int64_t n = polynomial.degree;
    const int64_t highest = ExponentOf(polynomial.coefficients[n]);
    *order = (ExponentOf(polynomial.coefficients[0]) - highest) / n;
    const uint64_t shift =
        static_cast<uint64_t>(highest) + static_cast<uint64_t>(n) * static_cast<uint64_t>(*order);
    const double shiftSize =
        static_cast<double>(highest) + static_cast<double>(n) * static_cast<double>(*order);
    for (int64_t i = 0; i <= n; i++) {
        for (RealNumber* part :
             {RealPart(polynomial.coefficients[i]), ImaginaryPart(polynomial.coefficients[i])}) {
            if (RealIsZero(part)) {
                continue;
            }
            int64_t exponent = 0;
            bool above = false;
            if (ShiftExponent(&exponent, &above, RealExponent(part), i, *order, shift, shiftSize)) {
                RealSetExponent(part, exponent);
            } else if (above) {
                return false;
            } else {
                RealSetZero(part, 0);
            }
        }
    }
    return true;
}

void ScaleNumber(RealNumber* x, int64_t order) {
    if (RealIsZero(x) || order == 0) {
        return;
    }
    // A sum that leaves the range of a word lies far outside that of exponents.
    const int64_t exponent = RealExponent(x);
    if (order > 0 ? exponent > MaxExponent - std::min(order, MaxExponent)
                  : exponent < MinExponent - std::max(order, MinExponent)) {
        RealSetExponent(x, order > 0 ? MaxExponent + 1 : MinExponent - 1);
    } else {
        RealSetExponent(x, exponent + order);
    }
}

}  // namespace tallymere
