// The arithmetic of polynomials beside its plain twin, word by word.
#include <gtest/gtest.h>

#include "algebra/polynomial_random.h"
#include "reference/polynomial_twins.h"

namespace tallymere {
namespace {

using namespace testing_support;
using reference::TwinPolynomial;

TwinPolynomial WordsOf(const PolyNumbers& polynomial) {
    TwinPolynomial words;
    for (const uint64_t* value : polynomial.coefficients) {
        words.emplace_back(value, value + SizeOfNumber() / 8);
    }
    return words;
}

struct Quotient {
    PolyOutcome outcome;
    TwinPolynomial quotient;
    TwinPolynomial remainder;
    bool operator==(const Quotient&) const = default;
};

void CompareOne(RandomSource& random, int64_t digits) {
    ScratchStackScope scope;
    PolyNumbers a = AllocPolynomial(scope);
    PolyNumbers b = AllocPolynomial(scope);
    PolyNumbers result = AllocPolynomial(scope);
    PolyNumbers remainder = AllocPolynomial(scope);
    const int64_t most = random.Below(3) == 0 ? 20 : 5;
    FillPolynomial(random, a, random.Between(0, most));
    FillPolynomial(random, b, random.Between(-1, most));
    SCOPED_TRACE(PolynomialText(a) + " and " + PolynomialText(b));
    const TwinPolynomial first = WordsOf(a);
    const TwinPolynomial second = WordsOf(b);
    TwinPolynomial twin;
    for (const bool subtract : {false, true}) {
        AddPolynomials(result, a, b, subtract, digits);
        ASSERT_EQ(WordsOf(result), reference::TwinSum(first, second, subtract, digits));
    }
    PolyOutcome outcome = MultiplyPolynomials(result, a, b, digits);
    ASSERT_EQ(outcome, reference::TwinProduct(twin, first, second, digits));
    if (outcome == PolyOutcome::Done) {
        ASSERT_EQ(WordsOf(result), twin);
    }
    Quotient expected;
    expected.outcome =
        reference::TwinQuotient(expected.quotient, expected.remainder, first, second, digits);
    outcome = DividePolynomials(result, remainder, a, b, digits);
    ASSERT_EQ((Quotient{outcome, WordsOf(result), WordsOf(remainder)}), expected);
    const uint64_t exponent = random.Between(1, 20);
    outcome = RaisePolynomial(result, a, exponent, digits);
    ASSERT_EQ(outcome, reference::TwinPower(twin, first, exponent, digits));
    if (outcome == PolyOutcome::Done) {
        ASSERT_EQ(WordsOf(result), twin);
    }
    TakeCode();  // fractions may overflow, on both sides alike
}

TEST(PolynomialTwin, IsEqualWordByWord) {
    for (const int64_t digits : {5, 10, 16, 35, 54, 100}) {
        for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
            FormulaScope scope(digits + 3, type);
            RandomSource random;
            const int rounds = TestRounds(100);
            for (int i = 0; i < rounds && !testing::Test::HasFailure(); i++) {
                CompareOne(random, digits);
            }
        }
    }
    FormulaScope scope(NumberTypeRational, 26);
    RandomSource random;
    const int rounds = TestRounds(100);
    for (int i = 0; i < rounds && !testing::Test::HasFailure(); i++) {
        CompareOne(random, 10);
    }
}

}  // namespace
}  // namespace tallymere
