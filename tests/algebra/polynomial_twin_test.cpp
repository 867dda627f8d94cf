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

// What an operation gives: its polynomials where it is done, and the code that it notes.
struct Answer {
    PolyOutcome outcome = PolyOutcome::Done;
    TwinPolynomial result;
    TwinPolynomial remainder;
    CalcError code = CalcErrorNone;
    bool operator==(const Answer&) const = default;
};

void PrintTo(const Answer& answer, std::ostream* out) {
    *out << OutcomeName(answer.outcome) << " code " << answer.code << " "
         << testing::PrintToString(answer.result) << " rest "
         << testing::PrintToString(answer.remainder);
}

// Sometimes the constant is so large or so small that a sum or a product with it notes a code.
void FillWithAnySize(RandomSource& random, PolyNumbers& dest, int64_t degree) {
    FillPolynomial(random, dest, degree);
    if (degree >= 0 && !ValuesAreExact() && random.Below(4) == 0) {
        const std::string sign = random.Below(3) == 0 ? "-" : "";
        SetValue(dest.coefficients[0],
                 RandomDigits(random, 3) + "e" + sign + "4611686018427387901");
    }
}

class TwinComparison {
public:
    explicit TwinComparison(int64_t digits) : digits_(digits) {}

    void CompareOne() {
        ScratchStackScope scope;
        a_ = AllocPolynomial(scope);
        b_ = AllocPolynomial(scope);
        result_ = AllocPolynomial(scope);
        remainder_ = AllocPolynomial(scope);
        const int64_t most = random_.Below(3) == 0 ? 20 : 5;
        FillWithAnySize(random_, a_, random_.Between(0, most));
        FillWithAnySize(random_, b_, random_.Between(-1, most));
        const TwinPolynomial a = WordsOf(a_);
        const TwinPolynomial b = WordsOf(b_);
        SCOPED_TRACE(PolynomialText(a_) + " and " + PolynomialText(b_));
        for (const bool subtract : {false, true}) {
            AddPolynomials(result_, a_, b_, subtract, digits_);
            Compare(PolyOutcome::Done, [&](Answer& twin) {
                twin.result = reference::TwinSum(a, b, subtract, digits_);
                return PolyOutcome::Done;
            });
        }
        Compare(MultiplyPolynomials(result_, a_, b_, digits_),
                [&](Answer& twin) { return reference::TwinProduct(twin.result, a, b, digits_); });
        Compare(DividePolynomials(result_, remainder_, a_, b_, digits_), [&](Answer& twin) {
            return reference::TwinQuotient(twin.result, twin.remainder, a, b, digits_);
        });
        const uint64_t exponent = random_.Between(1, 20);
        Compare(RaisePolynomial(result_, a_, exponent, digits_), [&](Answer& twin) {
            return reference::TwinPower(twin.result, a, exponent, digits_);
        });
    }

    void CompareMany() {
        const int rounds = TestRounds(100);
        for (int i = 0; i < rounds && !testing::Test::HasFailure(); i++) {
            CompareOne();
        }
    }

    // How many operations noted a code.
    int64_t Codes() const { return codes_; }

private:
    // Compares what an operation has just left with what `twin` writes and returns.
    template <typename Twin>
    void Compare(PolyOutcome outcome, Twin twin) {
        const Answer answer = {outcome, WordsOf(result_), WordsOf(remainder_), TakeCode()};
        Answer expected;
        expected.remainder = answer.remainder;  // which quotients alone change
        expected.outcome = twin(expected);
        expected.code = TakeCode();
        if (outcome == PolyOutcome::DegreeTooHigh) {
            expected.result = answer.result;  // terms that were added before
        }
        ASSERT_EQ(answer, expected);
        codes_ += answer.code != CalcErrorNone ? 1 : 0;
    }

    int64_t digits_;
    RandomSource random_;
    PolyNumbers a_{};
    PolyNumbers b_{};
    PolyNumbers result_{};
    PolyNumbers remainder_{};
    int64_t codes_ = 0;
};

TEST(PolynomialTwin, IsEqualWordByWord) {
    for (const int64_t digits : {5, 10, 16, 35, 54, 100}) {
        for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
            FormulaScope scope(digits + 3, type);
            TwinComparison comparison(digits);
            comparison.CompareMany();
            EXPECT_GT(comparison.Codes(), 0);
        }
    }
}

TEST(PolynomialTwin, IsEqualInFractions) {
    for (const int64_t limbs : {2, 26}) {
        FormulaScope scope(NumberTypeRational, limbs);
        TwinComparison comparison(10);
        do {
            comparison.CompareMany();
        } while (limbs == 2 && comparison.Codes() == 0);  // of 2 limbs many overflow
    }
}

}  // namespace
}  // namespace tallymere
