#include "algebra/polynomial_bounds.h"

#include <algorithm>

#include "core/limb.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

struct OperandBounds {
    Magnitude sizes[PolyCoefficients];
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

Magnitude SizeOfValue(const uint64_t* value) {
    Magnitude size;
    for (int64_t part = 0; part < ValueRealParts(); part++) {
        size = size + MagnitudeOf(PartOf(value, part));
    }
    return size;
}

OperandBounds BoundsOf(const PolyNumbers& a) {
    OperandBounds bounds = {.sizes = {}, .grid = MaxBoundedExponent};
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        bounds.sizes[i] = SizeOfValue(a.coefficients[i]);
        for (int64_t part = 0; part < ValueRealParts(); part++) {
            const RealNumber* x = PartOf(a.coefficients[i], part);
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
    }
    sum.grid = std::min(sum.grid, b.grid);
}

void Multiply(OperandBounds& product, const OperandBounds& b) {
    const OperandBounds a = product;
    product = {.sizes = {}, .grid = a.grid + b.grid};
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        for (int32_t j = 0; i + j <= MaxPolyDegree; j++) {
            Magnitude& size = product.sizes[i + j];
            size = size + a.sizes[j] * b.sizes[i];
        }
    }
}

void BoundWithoutDenominator(PolynomialBounds& bounds, const OperandBounds& result) {
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        bounds.result[i] = {.size = result.sizes[i],
                            .numeratorGrid = result.grid,
                            .denominatorGrid = 0,
                            .denominatorExponent = 0};
    }
}

// A bound of |1 / w|: (|x| + |y|) / (x^2 + y^2).
Magnitude InverseSize(const uint64_t* w) {
    Magnitude squares;
    for (int64_t part = 0; part < ValueRealParts(); part++) {
        const Magnitude size = MagnitudeOf(PartOf(w, part));
        squares = squares + size * size;
    }
    return SizeOfValue(w) / squares;
}

// After j steps of the division all remainders are N / h^j, where h is the highest coefficient of
// the divisor and N is made of sums and products of the coefficients. In cplx both are multiplied
// by the conjugate of h^j.
CoefficientBounds AfterSteps(int64_t steps, int64_t products, const OperandBounds& a,
                             const OperandBounds& b, Magnitude highest, Magnitude size) {
    const int64_t factors = steps * ValueRealParts();
    return {.size = size,
            .numeratorGrid = a.grid + (products + factors - steps) * b.grid,
            .denominatorGrid = factors * b.grid,
            .denominatorExponent = factors * (highest.exponent + 1)};
}

void BoundQuotient(PolynomialBounds& bounds, const PolyNumbers& dividend,
                   const PolyNumbers& divisor) {
    const OperandBounds a = BoundsOf(dividend);
    const OperandBounds b = BoundsOf(divisor);
    const int32_t degree = PolyDegree(dividend);
    const int32_t divisorDegree = PolyDegree(divisor);
    const Magnitude highest = b.sizes[divisorDegree];
    const Magnitude inverse = InverseSize(divisor.coefficients[divisorDegree]);
    OperandBounds rest = a;
    int64_t steps = 0;
    for (int32_t k = degree; k >= divisorDegree; k--) {
        const Magnitude term = rest.sizes[k] * inverse;
        bounds.result[k - divisorDegree] = AfterSteps(steps + 1, steps, a, b, highest, term);
        steps++;
        rest.sizes[k] = {};
        for (int32_t j = 0; j < divisorDegree; j++) {
            Magnitude& size = rest.sizes[k - divisorDegree + j];
            size = size + b.sizes[j] * term;
        }
    }
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        bounds.remainder[i] = AfterSteps(steps, steps, a, b, highest, rest.sizes[i]);
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
        BoundQuotient(bounds, calculation.operands[0], calculation.operands[1]);
        return bounds;
    }
    const OperandBounds first = BoundsOf(calculation.operands[0]);
    OperandBounds result = first;
    if (calculation.operation == PolyOperator::Power) {
        for (uint64_t k = 1; k < calculation.exponent; k++) {
            Multiply(result, first);
        }
    } else {
        for (int32_t k = 1; k < calculation.count; k++) {
            const OperandBounds operand = BoundsOf(calculation.operands[k]);
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
