#include "algebra/polynomial.h"

#include "core/complex_arithmetic.h"
#include "core/contract.h"
#include "core/real_layout.h"
#include "core/real_rounding.h"
#include "core/stop_request.h"

namespace tallymere {

namespace {

// Binomial coefficients of at most MaxEquationDegree, 252 at most.
uint64_t Binomial(int64_t n, int64_t k) {
    uint64_t value = 1;
    for (int64_t i = 1; i <= k; i++) {
        value = value * static_cast<uint64_t>(n - k + i) / static_cast<uint64_t>(i);
    }
    return value;
}

}  // namespace

bool RealIsFinite(const RealNumber* x) {
    return !RealIsSpecial(x) || RealIsZero(x);
}

bool ComplexIsFinite(const ComplexNumber* z) {
    return RealIsFinite(RealPart(z)) && RealIsFinite(ImaginaryPart(z));
}

ComplexNumber* TakeComplex(ScratchScope& scope, int64_t digits) {
    return ComplexAt(scope.Take(2 * (LayoutForDigits(digits).limbs + 1)));
}

ComplexNumber* TakeComplex(ScratchScope& scope) {
    return ComplexAt(scope.Take(ComplexWords()));
}

void ConvertComplex(ComplexNumber* dest, const ComplexNumber* src, RealLayout source) {
    const RealNumber* imaginary = RealAt(&src->realHeader + source.limbs + 1);
    RealRound(RealPart(dest), RealConvertLayout(RealPart(dest), RealPart(src), source));
    RealRound(ImaginaryPart(dest), RealConvertLayout(ImaginaryPart(dest), imaginary, source));
}

bool PolynomialIsWellFormed(const Polynomial& polynomial) {
    const DigitsScope digits(polynomial.layout.digits);
    if (polynomial.degree < 0 || polynomial.degree > MaxEquationDegree) {
        return false;
    }
    for (int64_t i = 0; i <= polynomial.degree; i++) {
        const ComplexNumber* coefficient = polynomial.coefficients[i];
        if (!ComplexIsWellFormed(coefficient) || !ComplexIsFinite(coefficient)) {
            return false;
        }
    }
    return !ComplexIsZero(polynomial.coefficients[polynomial.degree]);
}

Polynomial TakePolynomial(ScratchScope& scope, int64_t degree) {
    TALLYMERE_REQUIRE(degree >= 0 && degree <= MaxEquationDegree);
    Polynomial polynomial{degree, CurrentRealLayout(), {}};
    for (int64_t i = 0; i <= degree; i++) {
        polynomial.coefficients[i] = TakeComplex(scope);
    }
    return polynomial;
}

Polynomial CopyPolynomial(ScratchScope& scope, const Polynomial& polynomial) {
    return MakeDerivative(scope, polynomial, 0);
}

Polynomial MakeDerivative(ScratchScope& scope, const Polynomial& polynomial, int64_t order) {
    TALLYMERE_REQUIRE(order >= 0 && order <= polynomial.degree);
    Polynomial derivative = TakePolynomial(scope, polynomial.degree - order);
    for (int64_t i = 0; i <= derivative.degree; i++) {
        ComplexNumber* coefficient = derivative.coefficients[i];
        ConvertComplex(coefficient, polynomial.coefficients[i + order], polynomial.layout);
        if (order > 0) {
            ComplexMulUint(coefficient, coefficient, Binomial(i + order, order));
        }
    }
    return derivative;
}

bool EvaluatePolynomial(ComplexNumber* value, ComplexNumber* derivative,
                        const Polynomial& polynomial, const ComplexNumber* z) {
    ComplexCopy(value, polynomial.coefficients[polynomial.degree]);
    if (derivative != nullptr) {
        ComplexSetZero(derivative, 0);
    }
    for (int64_t i = polynomial.degree - 1; i >= 0; i--) {
        if (StopRequested()) {
            return false;
        }
        if (derivative != nullptr) {
            ComplexMul(derivative, derivative, z);
            ComplexAdd(derivative, derivative, value);
        }
        ComplexMul(value, value, z);
        ComplexAdd(value, value, polynomial.coefficients[i]);
    }
    return true;
}

Magnitude EvaluateSizes(const Magnitude* sizes, int64_t degree, Magnitude z) {
    Magnitude sum = sizes[degree];
    for (int64_t i = degree - 1; i >= 0; i--) {
        sum = sum * z + sizes[i];
    }
    return sum;
}

void FindSizes(Magnitude* sizes, const Polynomial& polynomial) {
    const DigitsScope digits(polynomial.layout.digits);
    for (int64_t i = 0; i <= polynomial.degree; i++) {
        sizes[i] = MagnitudeOf(polynomial.coefficients[i]);
    }
}

bool ExpandAround(Polynomial& polynomial, const ComplexNumber* z) {
    ScratchStackScope scope;
    ComplexNumber* product = TakeComplex(scope);
    for (int64_t j = 0; j < polynomial.degree; j++) {
        for (int64_t i = polynomial.degree - 1; i >= j; i--) {
            if (StopRequested()) {
                return false;
            }
            ComplexMul(product, polynomial.coefficients[i + 1], z);
            ComplexAdd(polynomial.coefficients[i], polynomial.coefficients[i], product);
        }
    }
    return true;
}

void ExpandSizes(Magnitude* sizes, int64_t degree, Magnitude z) {
    for (int64_t j = 0; j < degree; j++) {
        for (int64_t i = degree - 1; i >= j; i--) {
            sizes[i] = sizes[i] + sizes[i + 1] * z;
        }
    }
}

}  // namespace tallymere
