// Random formulas of the types uint and rat against a second evaluator on integers and fractions of
// GMP: values, lost remainders, and for what is no formula the error with its place.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "formula/formula_error.h"
#include "support/formula_exact_oracle.h"
#include "support/formula_generator.h"
#include "support/formula_model.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int64_t Widths[] = {1, 2, 26, 65};

class ExactFormulas : public ::testing::TestWithParam<NumberType> {
protected:
    void Compare(const std::u16string& text) {
        const Variables& variables = RandomFormulaVariables();
        const ModelArithmetic& arithmetic =
            GetParam() == NumberTypeUint ? UintArithmetic : RationalArithmetic;
        const FormulaOutcome expected = PredictFormula(text, variables, arithmetic);
        FormulaOutcome actual = Evaluate(text, variables);
        if (actual.error != FormulaErrorNone) {
            // What was lost before is of no interest.
            actual.inexact = false;
        }
        compared_++;
        endings_[actual.error]++;
        inexact_ += actual.inexact ? 1 : 0;
        ASSERT_EQ(actual, expected) << Printable(text) << " at " << numberContext.uintLimbs
                                    << " limbs in type " << numberContext.numberType;
    }

    template <typename Make>
    void CompareMany(int rounds, Make make) {
        for (const int64_t limbs : Widths) {
            const FormulaScope scope(GetParam(), limbs);
            for (int i = TestRounds(rounds); i > 0; i--) {
                Compare(make());
                if (HasFatalFailure()) {
                    return;
                }
            }
        }
    }

    void ExpectSeen(std::initializer_list<uint32_t> errors) {
        for (const uint32_t error : errors) {
            EXPECT_GE(endings_[error], TestRounds(100)) << error;
        }
    }

    RandomSource random_;
    int compared_ = 0;
    int inexact_ = 0;
    std::map<uint32_t, int> endings_;
};

TEST_P(ExactFormulas, HaveTheValueOrErrorOfTheGrammar) {
    CompareMany(30'000,
                [this] { return RandomFormula(random_, static_cast<int>(random_.Below(5))); });
    ExpectSeen({FormulaErrorNone, FormulaErrorOperationFailed, FormulaErrorArgumentCount,
                FormulaErrorNeedsComplex, FormulaErrorBadNumber, FormulaErrorUndefinedName,
                FormulaErrorVariableFailed});
    EXPECT_GT(endings_[FormulaErrorNone], compared_ / 4);
    if (GetParam() == NumberTypeUint) {
        EXPECT_GT(inexact_, TestRounds(5'000));
    } else {
        ExpectSeen({FormulaErrorNotAvailable});
        EXPECT_EQ(inexact_, 0);
    }
}

TEST_P(ExactFormulas, ThatAreMangledHaveTheErrorOfTheirFirstFault) {
    CompareMany(40'000, [this] {
        std::u16string text = RandomFormula(random_, static_cast<int>(random_.Below(4)));
        Mangle(random_, text);
        return text;
    });
    ExpectSeen({FormulaErrorNone, FormulaErrorSyntax, FormulaErrorLeftParenMissing,
                FormulaErrorUnexpectedEnd, FormulaErrorOperationFailed, FormulaErrorArgumentCount,
                FormulaErrorNeedsComplex, FormulaErrorBadNumber, FormulaErrorUndefinedName,
                FormulaErrorVariableFailed});
}

TEST_P(ExactFormulas, ThatAreNestedDeeplyMeetTheLimitOfTheStack) {
    CompareMany(5'000, [this] { return RandomNest(random_); });
    ExpectSeen({FormulaErrorNone, FormulaErrorTooComplicated});
}

INSTANTIATE_TEST_SUITE_P(Types, ExactFormulas,
                         ::testing::Values(NumberTypeUint, NumberTypeRational),
                         [](const auto& type) {
                             return type.param == NumberTypeUint ? "uint" : "rat";
                         });

}  // namespace
}  // namespace tallymere
