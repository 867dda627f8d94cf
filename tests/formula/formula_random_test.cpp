// Random formulas against a second evaluator of the same grammar: values, and for what is no
// formula the error with its place.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "core/number_bases.h"
#include "formula/formula_error.h"
#include "formula/formula_lexer.h"
#include "formula/function_table.h"
#include "formula/operator_table.h"
#include "support/formula_generator.h"
#include "support/formula_model.h"
#include "support/formula_testing.h"
#include "support/number_types.h"

namespace tallymere {
namespace {

using namespace testing_support;

class RandomFormulas : public ::testing::Test {
protected:
    // Compares the two evaluators on a formula and counts how it ended.
    void Compare(const std::u16string& text) {
        const Variables& variables = RandomFormulaVariables();
        const FormulaOutcome expected = PredictFormula(text, variables);
        const FormulaOutcome actual = Evaluate(text, variables);
        compared_++;
        endings_[actual.error]++;
        ASSERT_EQ(actual, expected) << Printable(text) << " at " << numberContext.precisionDigits
                                    << " digits in type " << numberContext.numberType;
    }

    // Runs `rounds` formulas in both types, at each of some precisions.
    template <typename Make>
    void CompareMany(int rounds, Make make) {
        for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
            for (const int64_t p : {1, 3, 19, 20, 38, 57}) {
                FormulaScope scope(p, type);
                for (int i = TestRounds(rounds / 2); i > 0; i--) {
                    std::u16string text = make();
                    KeepShort(text);
                    Compare(text);
                    if (HasFatalFailure()) {
                        return;
                    }
                }
            }
        }
    }

    // What a test is worth shows in how often it saw an ending.
    void ExpectSeen(std::initializer_list<uint32_t> errors) {
        for (const uint32_t error : errors) {
            EXPECT_GE(endings_[error], TestRounds(100)) << error;
        }
    }

    RandomSource random_;
    int compared_ = 0;
    std::map<uint32_t, int> endings_;
};

TEST_F(RandomFormulas, HaveTheValueOrErrorOfTheGrammar) {
    CompareMany(40'000,
                [this] { return RandomFormula(random_, static_cast<int>(random_.Below(5))); });
    ExpectSeen({FormulaErrorNone, FormulaErrorOperationFailed, FormulaErrorArgumentCount,
                FormulaErrorNeedsComplex, FormulaErrorBadNumber, FormulaErrorNotAvailable,
                FormulaErrorUndefinedName, FormulaErrorVariableFailed});
    EXPECT_GT(endings_[FormulaErrorNone], compared_ / 2) << "most formulas are good";
}

TEST_F(RandomFormulas, ThatAreMangledHaveTheErrorOfTheirFirstFault) {
    CompareMany(60'000, [this] {
        std::u16string text = RandomFormula(random_, static_cast<int>(random_.Below(4)));
        Mangle(random_, text);
        return text;
    });
    ExpectSeen({FormulaErrorNone, FormulaErrorSyntax, FormulaErrorLeftParenMissing,
                FormulaErrorUnexpectedEnd, FormulaErrorOperationFailed, FormulaErrorArgumentCount,
                FormulaErrorNeedsComplex, FormulaErrorBadNumber, FormulaErrorUndefinedName,
                FormulaErrorVariableFailed});
}

TEST_F(RandomFormulas, ThatAreNestedDeeplyMeetTheLimitOfTheStack) {
    CompareMany(5'000, [this] {
        std::u16string text = RandomNest(random_);
        if (random_.Below(3) == 0) {
            Mangle(random_, text);
        }
        return text;
    });
    ExpectSeen({FormulaErrorNone, FormulaErrorTooComplicated, FormulaErrorLeftParenMissing,
                FormulaErrorUnexpectedEnd});
}

// The generator has by hand the functions and operators that want operands of their own, and the
// bases.
class GeneratedFormulas : public ::testing::TestWithParam<NumberType> {
protected:
    // Notes what a formula is made of.
    void Note(const std::u16string& text) {
        FormulaEvaluator evaluator{};
        evaluator.text = text.c_str();
        evaluator.flags = TextGroup;
        FormulaToken token{};
        uint64_t position = 0;
        do {
            NextFormulaToken(evaluator, token, position);
            if (token.kind == TokenFunction) {
                functions_.insert(token.function);
            } else if (token.kind == TokenOperator) {
                operators_.insert(token.operation);
            } else if (token.kind == TokenValue) {
                bases_.insert(NumberBaseOfPrefix(text.c_str() + token.position).base);
            }
        } while (token.kind != TokenEnd);
    }

    static constexpr char OfTheGenerator[] = " in tests/support/formula_generator.cpp";

    std::set<FunctionId> functions_;
    std::set<OperatorId> operators_;
    std::set<int32_t> bases_;
};

TEST_P(GeneratedFormulas, ThatHaveAValueHaveEveryFunctionOperatorAndBase) {
    FormulaScope scope(GetParam(), 26);
    RandomSource random;
    for (int i = 0; i < 30'000; i++) {
        std::u16string text = RandomFormula(random, 3);
        KeepShort(text);
        if (Evaluate(text, RandomFormulaVariables()).error == FormulaErrorNone) {
            Note(text);
        }
    }
    // In uint, frac has no value, and that of round depends on what was calculated before.
    const auto isGenerated = [](const FunctionRow& row) {
        const std::u16string name = row.name;
        return RoutineOf(row.routines, GetParam()) != nullptr &&
               (GetParam() != NumberTypeUint || (name != u"frac" && name != u"round"));
    };
    for (const FunctionRow& row : FunctionTable) {
        EXPECT_EQ(functions_.contains(row.id), isGenerated(row))
            << Printable(row.name) << OfTheGenerator;
    }
    for (const OperatorRow& row : OperatorTable) {
        EXPECT_EQ(operators_.contains(row.id), RoutineOf(row.routines, GetParam()) != nullptr)
            << Printable(row.spelling) << OfTheGenerator;
    }
    for (const NumberBase& row : NumberBases) {
        EXPECT_EQ(bases_.contains(row.base),
                  row.base == DecimalBase || GetParam() == NumberTypeUint)
            << row.base << OfTheGenerator;
    }
}

std::string NameOfTest(const ::testing::TestParamInfo<NumberType>& info) {
    constexpr const char* names[] = {"uint", "rat", "real", "cplx"};
    return names[info.index];
}

INSTANTIATE_TEST_SUITE_P(Types, GeneratedFormulas, ::testing::ValuesIn(AllNumberTypes), NameOfTest);

}  // namespace
}  // namespace tallymere
