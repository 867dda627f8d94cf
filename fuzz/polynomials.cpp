// Polynomials of low degrees: each operation gives what its plain twin gives, word by word, and the
// calculation with right digits gives sums, products and quotients as integers have them.
//
// Input: type, digits, "a" for the twins or "b" for integers; then exponent, degrees, coefficients.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "algebra/polynomial_testing.h"
#include "fuzz/harness_list.h"
#include "reference/polynomial_twins.h"

namespace tallymere::fuzz {

using namespace testing_support;
using reference::TwinPolynomial;

namespace {

constexpr int64_t MostDegree = 5;
constexpr int64_t MostDigits = 40;
constexpr int64_t Limbs = 6;
constexpr NumberType Types[] = {NumberTypeRational, NumberTypeReal, NumberTypeComplex};

// The constant first.
using Integers = std::vector<int64_t>;

TwinPolynomial WordsOf(const PolyNumbers& polynomial) {
    TwinPolynomial words;
    for (const uint64_t* value : polynomial.coefficients) {
        words.emplace_back(value, value + SizeOfNumber() / 8);
    }
    return words;
}

// A value of the type in force, as SetValue reads it.
std::string AnyValue(FuzzInput& input) {
    const int64_t number = input.Number(-99, 99);
    if (numberContext.numberType == NumberTypeRational) {
        const int64_t denominator = input.Number(1, 12);
        const int64_t common = std::gcd(number, denominator);
        const std::string numerator = std::to_string(number / common);
        return denominator == common ? numerator
                                     : numerator + "/" + std::to_string(denominator / common);
    }
    const std::string real = std::to_string(number) + "e" + std::to_string(input.Number(-4, 4));
    return numberContext.numberType == NumberTypeReal
               ? real
               : real + "," + std::to_string(input.Number(-99, 99));
}

void FillPolynomial(FuzzInput& input, PolyNumbers& dest) {
    for (int64_t i = input.Number(-1, MostDegree); i >= 0; i--) {
        SetValue(dest.coefficients[i], AnyValue(input));
    }
}

// Sums of fractions may leave a sign with a zero.
TwinPolynomial WithoutZeroSigns(TwinPolynomial polynomial) {
    for (reference::TwinValue& value : polynomial) {
        value[0] = ValueIsZero(value.data()) ? 0 : value[0];
    }
    return polynomial;
}

// What is divided is quotient times divisor and the rest; without rounding.
void ExpectPutBack(const TwinPolynomial& dividend, const TwinPolynomial& divisor,
                   const TwinPolynomial& quotient, const TwinPolynomial& remainder) {
    TwinPolynomial product;
    EXPECT_EQ(reference::TwinProduct(product, quotient, divisor, 1), PolyOutcome::Done);
    if (TakeCode() == CalcErrorNone) {
        EXPECT_EQ(WithoutZeroSigns(reference::TwinSum(product, remainder, false, 1)),
                  WithoutZeroSigns(dividend));
    }
}

void CompareWithTwins(FuzzInput& input, int64_t digits) {
    ScratchStackScope scope;
    PolyNumbers a = AllocPolynomial(scope);
    PolyNumbers b = AllocPolynomial(scope);
    PolyNumbers result = AllocPolynomial(scope);
    PolyNumbers remainder = AllocPolynomial(scope);
    const auto exponent = static_cast<uint64_t>(input.Number(1, 6));
    FillPolynomial(input, a);
    FillPolynomial(input, b);
    SCOPED_TRACE(PolynomialText(a) + " and " + PolynomialText(b));
    const TwinPolynomial first = WordsOf(a);
    const TwinPolynomial second = WordsOf(b);
    TwinPolynomial twin;
    for (const bool subtract : {false, true}) {
        AddPolynomials(result, a, b, subtract, digits);
        EXPECT_EQ(WordsOf(result), reference::TwinSum(first, second, subtract, digits));
    }
    EXPECT_EQ(MultiplyPolynomials(result, a, b, digits),
              reference::TwinProduct(twin, first, second, digits));
    EXPECT_EQ(WordsOf(result), twin);
    const PolyOutcome power = RaisePolynomial(result, a, exponent, digits);
    EXPECT_EQ(power, reference::TwinPower(twin, first, exponent, digits));
    EXPECT_TRUE(power != PolyOutcome::Done || WordsOf(result) == twin);

    TakeCode();  // fractions may overflow, on both sides alike
    TwinPolynomial twinRemainder;
    const PolyOutcome outcome = DividePolynomials(result, remainder, a, b, digits);
    const CalcError code = TakeCode();
    EXPECT_EQ(outcome, reference::TwinQuotient(twin, twinRemainder, first, second, digits));
    EXPECT_EQ(TakeCode(), code);
    EXPECT_EQ(WordsOf(result), twin);
    EXPECT_EQ(WordsOf(remainder), twinRemainder);
    if (numberContext.numberType == NumberTypeRational && code == CalcErrorNone) {
        ExpectPutBack(first, second, WordsOf(result), WordsOf(remainder));
    }
}

Integers AnyIntegers(FuzzInput& input) {
    Integers numbers(static_cast<size_t>(input.Number(1, MostDegree + 1)));
    for (int64_t& number : numbers) {
        number = input.Number(-999, 999);
    }
    return numbers;
}

// As Calculated reads it, the highest coefficient first.
std::string TextOf(const Integers& numbers) {
    std::string text;
    for (size_t i = numbers.size(); i-- > 0;) {
        text += std::to_string(numbers[i]) + (i > 0 ? ";" : "");
    }
    return text;
}

// As Calculated gives it.
std::string ShownText(const Integers& numbers) {
    ScratchStackScope scope;
    PolyNumbers polynomial = AllocPolynomial(scope);
    SetPolynomial(polynomial, TextOf(numbers));
    return PolynomialText(polynomial);
}

Integers Sum(Integers a, const Integers& b, int64_t sign) {
    a.resize(std::max(a.size(), b.size()));
    for (size_t i = 0; i < b.size(); i++) {
        a[i] += sign * b[i];
    }
    return a;
}

Integers Product(const Integers& a, const Integers& b) {
    Integers product(a.size() + b.size() - 1);
    for (size_t i = 0; i < a.size(); i++) {
        for (size_t k = 0; k < b.size(); k++) {
            product[i + k] += a[i] * b[k];
        }
    }
    return product;
}

void CalculateIntegers(FuzzInput& input, int64_t digits) {
    const Integers a = AnyIntegers(input);
    const Integers b = AnyIntegers(input);
    const auto calculate = [&](PolyOperator operation, const Integers& first) {
        return Calculated(operation, {TextOf(first), TextOf(b)}, digits);
    };
    EXPECT_EQ(calculate(PolyOperator::Plus, a), ShownText(Sum(a, b, 1)));
    EXPECT_EQ(calculate(PolyOperator::Minus, a), ShownText(Sum(a, b, -1)));
    EXPECT_EQ(calculate(PolyOperator::Times, a), ShownText(Product(a, b)));
    if (std::ranges::any_of(b, [](int64_t number) { return number != 0; })) {
        EXPECT_EQ(calculate(PolyOperator::Divide, Product(a, b)),
                  ShownText(a) + " rest " + ShownText({0}));
    }
}

}  // namespace

void FuzzPolynomials(FuzzInput& input) {
    const NumberType type = input.OneOf(Types);
    const int64_t digits = input.Number(10, MostDigits);
    const FormulaScope scope(digits + 3, type);
    InstallUintWidth(UintWidthForLimbs(Limbs));
    if (input.Choice(2) == 0) {
        CompareWithTwins(input, digits);
    } else {
        CalculateIntegers(input, digits);
    }
}

}  // namespace tallymere::fuzz
