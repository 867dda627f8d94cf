#include "formula/operation_dispatch.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/formula_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

// What stands where a number could not be read is a value of the type.
TEST(OperationDispatch, ReadsNumbersOfOtherBasesInUintAlone) {
    FieldScope<int64_t> limbs(numberContext.uintLimbs, 3);
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex, NumberTypeRational}) {
        FormulaScope scope(20, type);
        std::vector<uint64_t> invalid(SizeOfNumber() / 8);
        ValueSetInvalid(invalid.data());
        for (const uint32_t base : {2u, 8u, 16u}) {
            std::vector<uint64_t> dest(invalid.size(), 99);
            ValueFromNumberText(dest.data(), u"101", 3, base, TextGroup);
            EXPECT_EQ(dest, invalid) << type;
            EXPECT_EQ(TakeCode(), CalcErrorSyntax) << type;
        }
    }
}

// There is no value of such a type to be written.
TEST(OperationDispatch, HasNothingForAnUnknownType) {
    FormulaScope scope;
    FieldScope<NumberType> type(numberContext.numberType, static_cast<NumberType>(3));
    FormulaEvaluator evaluator{};
    uint64_t dest = 99;
    const uint64_t x = 1;
    ValueFromNumberText(&dest, u"1", 1, 10, TextGroup);
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    ApplyBinaryOperator(evaluator, OperatorId::Add, &dest, &x);
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    CallFunction(evaluator, Token(FunctionId::Abs, 0, 3), &dest, {&x});
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    CallFunction(evaluator, Token(FunctionId::Root, 0, 4), &dest, {&x, &x});
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    EXPECT_EQ(dest, 99u);
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
}

}  // namespace
}  // namespace tallymere
