#include "algebra/polynomial_bounds.h"

#include <algorithm>

#include "core/limb.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

struct OperandBounds {
    PartSizes sizes[PolyCoefficients];
    PartSizes errors[PolyCoefficients];
    int64_t grid;  // all parts are multiples of 10 to that power
};

// The exponent of the last digit that is not 0.
int64_t LowestDigit(const RealNumber* x) {
    const Limb* limbs = RealLimbs(x);
    int64_t last = numberContext.realLimbs - 1;
    while (limbs[last] == 0) {
        last--;
    }
    int64_t zeros = DigitsPerLimb * (numberContext.realLimbs - 1 - last);
    for (Limb limb = limbs[last]; limb % 10 == 0; limb /= 10) {
        zeros++;
    }
    return RealExponent(x) - (numberContext.precisionDigits - 1) + zeros;
}

const RealNumber* PartOf(const uint64_t* value, int64_t part) {
    return RealAt(value + part * RealWords());
}

PartSizes SizesOfValue(const uint64_t* value) {
    PartSizes sizes = {MagnitudeOf(PartOf(value, 0)), {}};
    if (ValueRealParts() == 2) {
        sizes.imaginary = MagnitudeOf(PartOf(value, 1));
    }
    return sizes;
}

Magnitude Total(PartSizes sizes) {
    return sizes.real + sizes.imaginary;
}

OperandBounds BoundsOf(const PolyCalculation& calculation, int32_t k) {
    OperandBounds bounds = {.sizes = {}, .errors = {}, .grid = MaxBoundedExponent};
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        const uint64_t* value = calculation.operands[k].coefficients[i];
        bounds.sizes[i] = SizesOfValue(value);
        bounds.errors[i] = calculation.errors[k][i];
        for (int64_t part = 0; part < ValueRealParts(); part++) {
            const RealNumber* x = PartOf(value, part);
            if (!RealIsZero(x)) {
                bounds.grid = std::min(bounds.grid, LowestDigit(x));
            }
        }
    }
    return bounds;
}

void Add(OperandBounds& sum, const OperandBounds& b) {
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        sum.sizes[i] = sum.sizes[i] + b.sizes[i];
        sum.errors[i] = sum.errors[i] + b.errors[i];
    }
    sum.grid = std::min(sum.grid, b.grid);
}

// What a product is off when a and b are, which are so large as they are known.
PartSizes ErrorOfProduct(PartSizes a, PartSizes errorOfA, PartSizes b, PartSizes errorOfB) {
    return errorOfA * (b + errorOfB) + a * errorOfB;
}

void Multiply(OperandBounds& product, const OperandBounds& b) {
    const OperandBounds a = product;
    product = {.sizes = {}, .errors = {}, .grid = a.grid + b.grid};
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        for (int32_t j = 0; i + j <= MaxPolyDegree && !IsZero(Total(b.sizes[i])); j++) {
            PartSizes& size = product.sizes[i + j];
            PartSizes& error = product.errors[i + j];
            size = size + a.sizes[j] * b.sizes[i];
            error = error + ErrorOfProduct(a.sizes[j], a.errors[j], b.sizes[i], b.errors[i]);
        }
    }
}

void BoundWithoutDenominator(PolynomialBounds& bounds, const OperandBounds& result) {
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        bounds.result[i] = {.size = Total(result.sizes[i]),
                            .carried = result.errors[i],
                            .numeratorGrid = result.grid,
                            .denominatorGrid = 0,
                            .denominatorExponent = 0};
    }
}

// Bounds of the parts of 1 / w, also where w is off: |x| / (x^2 + y^2) and |y| / (x^2 + y^2). Parts
// other than 0 are larger than their errors.
PartSizes InverseSizes(PartSizes w, PartSizes error) {
    const Magnitude x = Excess(w.real, error.real);
    const Magnitude y = Excess(w.imaginary, error.imaginary);
    const Magnitude inverse = MakeMagnitude(1) / (x * x + y * y);
    return (w + error) * inverse;
}

// After j steps of the division all remainders are N / h^j, where h is the highest coefficient of
// the divisor and N is made of sums and products of the coefficients. In cplx both are multiplied
// by the conjugate of h^j.
CoefficientBounds AfterSteps(int64_t steps, int64_t products, const OperandBounds& a,
                             const OperandBounds& b, Magnitude highest, PartSizes size,
                             PartSizes error) {
    const int64_t factors = steps * ValueRealParts();
    return {.size = Total(size),
            .carried = error,
            .numeratorGrid = a.grid + (products + factors - steps) * b.grid,
            .denominatorGrid = factors * b.grid,
            .denominatorExponent = factors * (highest.exponent + 1)};
}

void BoundQuotient(PolynomialBounds& bounds, const PolyCalculation& calculation) {
    const OperandBounds a = BoundsOf(calculation, 0);
    const OperandBounds b = BoundsOf(calculation, 1);
    const int32_t degree = PolyDegree(calculation.operands[0]);
    const int32_t divisorDegree = PolyDegree(calculation.operands[1]);
    const Magnitude highest = Total(b.sizes[divisorDegree]);
    const PartSizes highestError = b.errors[divisorDegree];
    const PartSizes inverse = InverseSizes(b.sizes[divisorDegree], highestError);
    OperandBounds rest = a;
    int64_t steps = 0;
    for (int32_t k = degree; k >= divisorDegree; k--) {
        const PartSizes term = rest.sizes[k] * inverse;
        const PartSizes error = (rest.errors[k] + term * highestError) * inverse;
        bounds.result[k - divisorDegree] = AfterSteps(steps + 1, steps, a, b, highest, term, error);
        steps++;
        rest.sizes[k] = {};
        rest.errors[k] = {};
        for (int32_t j = 0; j < divisorDegree; j++) {
            const int32_t at = k - divisorDegree + j;
            rest.sizes[at] = rest.sizes[at] + b.sizes[j] * term;
            rest.errors[at] =
                rest.errors[at] + ErrorOfProduct(b.sizes[j], b.errors[j], term, error);
        }
    }
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        bounds.remainder[i] =
            AfterSteps(steps, steps, a, b, highest, rest.sizes[i], rest.errors[i]);
    }
}

}  // namespace

bool OperandsAreBounded(const PolyCalculation& calculation) {
    for (int32_t k = 0; k < calculation.count; k++) {
        for (const uint64_t* coefficient : calculation.operands[k].coefficients) {
            for (int64_t part = 0; part < ValueRealParts(); part++) {
                const RealNumber* x = PartOf(coefficient, part);
                if (!RealIsZero(x) && (RealIsSpecial(x) || RealExponent(x) > MaxBoundedExponent ||
                                       RealExponent(x) < -MaxBoundedExponent)) {
                    return false;
                }
            }
        }
    }
    return true;
}

PolynomialBounds FindPolynomialBounds(const PolyCalculation& calculation) {
    TALLYMERE_REQUIRE(OperandsAreBounded(calculation));
    PolynomialBounds bounds = {};
    if (calculation.operation == PolyOperator::Divide) {
        BoundQuotient(bounds, calculation);
        return bounds;
    }
    const OperandBounds first = BoundsOf(calculation, 0);
    OperandBounds result = first;
    if (calculation.operation == PolyOperator::Power) {
        for (uint64_t k = 1; k < calculation.exponent; k++) {
            Multiply(result, first);
        }
    } else {
        for (int32_t k = 1; k < calculation.count; k++) {
            const OperandBounds operand = BoundsOf(calculation, k);
            if (calculation.operation == PolyOperator::Times) {
                Multiply(result, operand);
            } else {
                Add(result, operand);
            }
        }
    }
    BoundWithoutDenominator(bounds, result);
    return bounds;
}

}  // namespace tallymere
