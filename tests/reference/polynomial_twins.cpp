#include "reference/polynomial_twins.h"

#include "core/complex_arithmetic.h"
#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "exact/rational_arithmetic.h"

namespace tallymere::reference {

namespace {

bool IsReal() {
    return numberContext.numberType == NumberTypeReal;
}
bool IsComplex() {
    return numberContext.numberType == NumberTypeComplex;
}

TwinValue Zero() {
    TwinValue value;
    if (IsReal()) {
        value.resize(static_cast<size_t>(RealWords()));
        RealSetZero(RealAt(value.data()), 0);
    } else if (IsComplex()) {
        value.resize(static_cast<size_t>(ComplexWords()));
        ComplexSetZero(ComplexAt(value.data()), 0);
    } else {
        value.resize(static_cast<size_t>(RationalWords()));
        RationalSetZero(RationalAt(value.data()));
    }
    return value;
}

bool IsZero(const TwinValue& value) {
    return IsReal()      ? RealIsZero(RealAt(value.data()))
           : IsComplex() ? ComplexIsZero(ComplexAt(value.data()))
                         : RationalIsZero(RationalAt(value.data()));
}

TwinValue Calculate(const TwinValue& a, char operation, const TwinValue& b) {
    TwinValue dest = Zero();
    if (IsReal()) {
        const RealRoundedBinary routine = operation == '+'   ? RealAdd
                                          : operation == '-' ? RealSub
                                          : operation == '*' ? RealMul
                                                             : RealDiv;
        routine(RealAt(dest.data()), RealAt(a.data()), RealAt(b.data()));
    } else if (IsComplex()) {
        const auto routine = operation == '+'   ? ComplexAdd
                             : operation == '-' ? ComplexSub
                             : operation == '*' ? ComplexMul
                                                : ComplexDiv;
        routine(ComplexAt(dest.data()), ComplexAt(a.data()), ComplexAt(b.data()));
    } else {
        const bool isSum = operation == '+' || operation == '-';
        const auto routine = isSum ? RationalAddSub : RationalMulDiv;
        routine(RationalAt(dest.data()), RationalAt(a.data()), RationalAt(b.data()),
                operation == '-' || operation == '/');
    }
    return dest;
}

TwinPolynomial Rounded(TwinPolynomial a, int64_t digits) {
    for (TwinValue& value : a) {
        if (IsReal()) {
            RealRoundDigitsAny(RealAt(value.data()), RealAt(value.data()), digits);
        } else if (IsComplex()) {
            ComplexRoundDigits(ComplexAt(value.data()), ComplexAt(value.data()), digits);
        }
    }
    return a;
}

int DegreeOf(const TwinPolynomial& a) {
    int degree = 20;
    while (degree >= 0 && IsZero(a[static_cast<size_t>(degree)])) {
        degree--;
    }
    return degree;
}

}  // namespace

TwinPolynomial TwinSum(const TwinPolynomial& a, const TwinPolynomial& b, bool subtract,
                       int64_t digits) {
    TwinPolynomial sum;
    for (size_t i = 0; i <= 20; i++) {
        sum.push_back(Calculate(a[i], subtract ? '-' : '+', b[i]));
    }
    return Rounded(sum, digits);
}

PolyOutcome TwinProduct(TwinPolynomial& product, const TwinPolynomial& a, const TwinPolynomial& b,
                        int64_t digits) {
    product.assign(21, Zero());
    for (int i = 20; i >= 0; i--) {
        const TwinValue& factor = b[static_cast<size_t>(i)];
        for (int j = DegreeOf(a); j >= 0 && !IsZero(factor); j--) {
            if (i + j > 20) {
                return PolyOutcome::DegreeTooHigh;
            }
            TwinValue& sum = product[static_cast<size_t>(i + j)];
            sum = Calculate(sum, '+', Calculate(a[static_cast<size_t>(j)], '*', factor));
        }
    }
    product = Rounded(product, digits);
    return PolyOutcome::Done;
}

PolyOutcome TwinQuotient(TwinPolynomial& quotient, TwinPolynomial& remainder,
                         const TwinPolynomial& a, const TwinPolynomial& b, int64_t digits) {
    quotient.assign(21, Zero());
    remainder = a;
    const int degree = DegreeOf(b);
    for (int k = DegreeOf(a); k >= degree && degree >= 0; k--) {
        const TwinValue term =
            Calculate(remainder[static_cast<size_t>(k)], '/', b[static_cast<size_t>(degree)]);
        remainder[static_cast<size_t>(k)] = Zero();
        for (int j = degree - 1; j >= 0; j--) {
            TwinValue& rest = remainder[static_cast<size_t>(k - degree + j)];
            rest = Calculate(rest, '-', Calculate(b[static_cast<size_t>(j)], '*', term));
        }
        quotient[static_cast<size_t>(k - degree)] = term;
    }
    quotient = Rounded(quotient, digits);
    remainder = Rounded(remainder, digits);
    return degree < 0 ? PolyOutcome::DivisionByZero : PolyOutcome::Done;
}

PolyOutcome TwinPower(TwinPolynomial& power, const TwinPolynomial& a, uint64_t exponent,
                      int64_t digits) {
    power = a;
    for (uint64_t k = 1; k < exponent; k++) {
        const TwinPolynomial factor = power;
        const PolyOutcome outcome = TwinProduct(power, factor, a, digits);
        if (outcome != PolyOutcome::Done) {
            return outcome;
        }
    }
    return PolyOutcome::Done;
}

}  // namespace tallymere::reference
