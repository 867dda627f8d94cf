// Random polynomials for tests.
#pragma once

#include <algorithm>
#include <string>

#include "algebra/polynomial_testing.h"
#include "support/random_source.h"

namespace tallymere::testing_support {

/// Digits of one kind, the first of them not 0.
inline std::string RandomDigits(RandomSource& random, int64_t count) {
    std::string digits(1, static_cast<char>('1' + random.Below(9)));
    const uint64_t kind = random.Below(4);
    while (static_cast<int64_t>(digits.size()) < count) {
        digits += kind == 0 ? '0' : kind == 1 ? '9' : static_cast<char>('0' + random.Below(10));
    }
    return digits;
}

/// A number of a few digits, or of all that there are, often 0.
inline std::string RandomReal(RandomSource& random) {
    if (random.Below(5) == 0) {
        return "0";
    }
    const int64_t most = numberContext.precisionDigits;
    const int64_t few = std::min<int64_t>(most, 4);
    const int64_t count = random.Below(3) == 0 ? most : random.Between(1, few);
    const int64_t range = random.Below(20) == 0 ? 40 : 3;
    return (random.Below(2) == 0 ? "-" : "") + RandomDigits(random, count) + "e" +
           std::to_string(random.Between(-range, range));
}

/// A value of the number type in force, as SetPolynomial reads it.
inline std::string RandomValue(RandomSource& random) {
    if (numberContext.numberType == NumberTypeReal) {
        return RandomReal(random);
    }
    if (numberContext.numberType == NumberTypeComplex) {
        return RandomReal(random) + "," + RandomReal(random);
    }
    const int64_t numerator = random.Between(-99, 99);
    const int64_t denominator = random.Below(2) == 0 ? 1 : random.Between(1, 12);
    int64_t a = numerator < 0 ? -numerator : numerator;
    int64_t b = denominator;
    while (b != 0) {
        const int64_t rest = a % b;
        a = b;
        b = rest;
    }
    const std::string text = std::to_string(numerator / a);
    return denominator == a ? text : text + "/" + std::to_string(denominator / a);
}

/// Random coefficients up to a degree.
inline void FillPolynomial(RandomSource& random, PolyNumbers& dest, int64_t degree) {
    ClearPolynomial(dest);
    for (int64_t i = 0; i <= degree; i++) {
        SetValue(dest.coefficients[i], RandomValue(random));
    }
}

}  // namespace tallymere::testing_support
