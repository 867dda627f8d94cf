#include "support/exact_operations.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "formula/operation_dispatch.h"
#include "support/rational_testing.h"

namespace tallymere::testing_support {

namespace {

constexpr uint64_t Canary = 0xCA5CADEu;

}  // namespace

void PrintTo(const ExactOutcome& outcome, std::ostream* out) {
    *out << outcome.text << " code " << outcome.code << (outcome.inexact ? " inexact" : "");
}

ExactOutcome Apply(const Symbol& symbol, std::initializer_list<std::string_view> operands,
                   uint64_t stale) {
    std::vector<std::vector<uint64_t>> values;
    for (const std::string_view text : operands) {
        values.push_back(ExactWords(text));
        values.back().push_back(Canary);
    }
    auto before = values;
    std::vector<uint64_t> dest(values[0].size() - 1, stale);
    dest.push_back(Canary);

    FormulaEvaluator evaluator{};
    {
        const ContextCheck check;
        const CalcError code = numberContext.calcError;
        if (symbol.kind == TokenOperator) {
            ApplyBinaryOperator(evaluator, symbol.operation, values[0].data(), values[1].data());
            dest = values[0];
            before[0] = values[0];
        } else {
            std::vector<const uint64_t*> arguments;
            for (const std::vector<uint64_t>& value : values) {
                arguments.push_back(value.data());
            }
            CallFunction(evaluator, Token(symbol, 4, 6), dest.data(), arguments);
        }
        EXPECT_TRUE(code == CalcErrorNone || numberContext.calcError == code)
            << "a code that was there is kept";
        ExactOutcome outcome = {ValueText(dest.data()), TakeCode(), evaluator.inexactResult};
        if (numberContext.numberType == NumberTypeRational) {
            EXPECT_TRUE(IsResult(RationalAt(dest.data()), Terms::AsTheOperand));
        }
        EXPECT_EQ(values, before);
        EXPECT_EQ(dest.back(), Canary);
        EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
        return outcome;
    }
}

}  // namespace tallymere::testing_support
