#include "algebra/polynomial_arithmetic.h"

#include "core/stop_request.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// True when both are the same values in memory.
bool IsSame(const PolyNumbers& a, const PolyNumbers& b) {
    return a.coefficients[0] == b.coefficients[0];
}

uint64_t* TakeValue(ScratchScope& scope) {
    return scope.Take(static_cast<int64_t>(SizeOfNumber()) / BytesPerWord);
}

// result += a * term * x^shift; `product` is memory for a value.
PolyOutcome AddMultiple(PolyNumbers& result, const PolyNumbers& a, int32_t degree,
                        const uint64_t* term, int32_t shift, uint64_t* product) {
    for (int32_t j = degree; j >= 0; j--) {
        if (shift + j > MaxPolyDegree) {
            return PolyOutcome::DegreeTooHigh;
        }
        uint64_t* sum = result.coefficients[shift + j];
        ValueMultiply(product, a.coefficients[j], term);
        ValueAdd(sum, sum, product);
    }
    return PolyOutcome::Done;
}

}  // namespace

PolyNumbers AllocPolynomial(ScratchScope& scope) {
    PolyNumbers polynomial = {};
    for (uint64_t*& coefficient : polynomial.coefficients) {
        coefficient = TakeValue(scope);
        ValueZero(coefficient);
    }
    return polynomial;
}

void ClearPolynomial(PolyNumbers& dest) {
    for (uint64_t* coefficient : dest.coefficients) {
        ValueZero(coefficient);
    }
}

void CopyPolynomial(PolyNumbers& dest, const PolyNumbers& source) {
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        ValueCopy(dest.coefficients[i], source.coefficients[i]);
    }
}

int32_t PolyDegree(const PolyNumbers& a) {
    int32_t degree = MaxPolyDegree;
    while (degree >= 0 && ValueIsZero(a.coefficients[degree])) {
        degree--;
    }
    return degree;
}

void RoundPolynomial(PolyNumbers& a, int64_t digits) {
    if (ValuesAreExact()) {
        return;
    }
    for (uint64_t* coefficient : a.coefficients) {
        NumberRoundDigits(coefficient, coefficient, digits);
    }
}

void AddPolynomials(PolyNumbers& result, const PolyNumbers& a, const PolyNumbers& b, bool subtract,
                    int64_t digits) {
    for (int32_t i = MaxPolyDegree; i >= 0; i--) {
        if (subtract) {
            ValueSubtract(result.coefficients[i], a.coefficients[i], b.coefficients[i]);
        } else {
            ValueAdd(result.coefficients[i], a.coefficients[i], b.coefficients[i]);
        }
    }
    RoundPolynomial(result, digits);
}

PolyOutcome MultiplyPolynomials(PolyNumbers& result, const PolyNumbers& a, const PolyNumbers& b,
                                int64_t digits) {
    if (IsSame(result, a) || IsSame(result, b)) {
        return PolyOutcome::SameObject;
    }
    ClearPolynomial(result);
    const int32_t degree = PolyDegree(a);
    ScratchStackScope scope;
    uint64_t* product = TakeValue(scope);
    for (int32_t i = MaxPolyDegree; i >= 0; i--) {
        if (StopRequested()) {
            return PolyOutcome::Stopped;
        }
        if (ValueIsZero(b.coefficients[i])) {
            continue;
        }
        const PolyOutcome outcome = AddMultiple(result, a, degree, b.coefficients[i], i, product);
        if (outcome != PolyOutcome::Done) {
            return outcome;
        }
    }
    RoundPolynomial(result, digits);
    return PolyOutcome::Done;
}

PolyOutcome MultiplyPolynomialBy(PolyNumbers& result, const PolyNumbers& b, int64_t digits) {
    ScratchStackScope scope;
    PolyNumbers factor = AllocPolynomial(scope);
    CopyPolynomial(factor, result);
    return MultiplyPolynomials(result, factor, b, digits);
}

PolyOutcome DividePolynomials(PolyNumbers& quotient, PolyNumbers& remainder, const PolyNumbers& a,
                              const PolyNumbers& b, int64_t digits) {
    if (IsSame(quotient, a) || IsSame(quotient, b) || IsSame(quotient, remainder)) {
        return PolyOutcome::Done;
    }
    TALLYMERE_REQUIRE(!IsSame(remainder, b));
    ClearPolynomial(quotient);
    CopyPolynomial(remainder, a);
    const int32_t divisorDegree = PolyDegree(b);
    PolyOutcome outcome = divisorDegree < 0 ? PolyOutcome::DivisionByZero : PolyOutcome::Done;
    ScratchStackScope scope;
    uint64_t* product = TakeValue(scope);
    for (int32_t k = PolyDegree(a); k >= divisorDegree && outcome == PolyOutcome::Done; k--) {
        uint64_t* term = quotient.coefficients[k - divisorDegree];
        ValueDivide(term, remainder.coefficients[k], b.coefficients[divisorDegree]);
        ValueZero(remainder.coefficients[k]);
        for (int32_t j = divisorDegree - 1; j >= 0; j--) {
            uint64_t* rest = remainder.coefficients[k - divisorDegree + j];
            ValueMultiply(product, b.coefficients[j], term);
            ValueSubtract(rest, rest, product);
        }
        if (StopRequested()) {
            outcome = PolyOutcome::Stopped;
        }
    }
    RoundPolynomial(quotient, digits);
    RoundPolynomial(remainder, digits);
    return outcome;
}

PolyOutcome ReadPolyExponent(uint64_t* exponent, const PolyNumbers& b) {
    int64_t constant = 0;
    *exponent = 0;
    if (PolyDegree(b) > 0 || !ValueToSigned(&constant, b.coefficients[0]) || constant < 0 ||
        static_cast<uint64_t>(constant) > MaxPolyExponent) {
        return PolyOutcome::ExponentRefused;
    }
    *exponent = static_cast<uint64_t>(constant);
    return PolyOutcome::Done;
}

PolyOutcome RaisePolynomial(PolyNumbers& result, const PolyNumbers& a, uint64_t exponent,
                            int64_t digits) {
    TALLYMERE_REQUIRE(exponent <= MaxPolyExponent);
    if (exponent == 0) {
        ClearPolynomial(result);
        ValueFromUnsigned(result.coefficients[0], 1);
        return PolyOutcome::Done;
    }
    CopyPolynomial(result, a);
    PolyOutcome outcome = PolyOutcome::Done;
    for (uint64_t k = 1; k < exponent && outcome == PolyOutcome::Done; k++) {
        outcome = MultiplyPolynomialBy(result, a, digits);
    }
    return outcome;
}

}  // namespace tallymere
