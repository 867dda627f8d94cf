#include "formula/operation_dispatch.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/formula_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The error of a call with zeros for arguments; what the operation makes of them does not matter.
uint32_t ErrorOfCall(NumberType type, uint32_t functionId, int argumentCount) {
    FieldScope<int64_t> limbs(numberContext.uintLimbs, 3);
    FormulaScope scope(20, type);
    std::vector<uint64_t> dest(SizeOfNumber() / 8);
    std::vector<uint64_t> zero(SizeOfNumber() / 8);
    ValueZero(dest.data());
    ValueZero(zero.data());
    FormulaEvaluator evaluator{};
    const FormulaToken function = {functionId, 4, 6, dest.data()};
    const uint64_t* x = zero.data();
    if (argumentCount == 1) {
        ApplyFunction1(evaluator, function, dest.data(), x);
    } else if (argumentCount == 2) {
        ApplyFunction2(evaluator, function, dest.data(), x, x);
    } else {
        ApplyFunction3(evaluator, function, dest.data(), x, x, x);
    }
    TakeCode();
    return evaluator.error;
}

TEST(OperationDispatch, RefusesComplexFunctionsInEveryOtherType) {
    for (const NumberType type : {NumberTypeReal, NumberTypeUint, NumberTypeRational}) {
        for (const uint32_t id : {FunctionArg, FunctionArgDegrees, FunctionArgGon, FunctionRealPart,
                                  FunctionImaginaryPart}) {
            EXPECT_EQ(ErrorOfCall(type, id, 1), uint32_t{FormulaErrorNeedsComplex}) << id;
            EXPECT_EQ(ErrorOfCall(NumberTypeComplex, id, 1), uint32_t{FormulaErrorNone}) << id;
        }
        for (const uint32_t id : {FunctionComplexSqrt, FunctionComplexCbrt}) {
            EXPECT_EQ(ErrorOfCall(type, id, 2), uint32_t{FormulaErrorNeedsComplex}) << id;
            EXPECT_EQ(ErrorOfCall(NumberTypeComplex, id, 2), uint32_t{FormulaErrorNone}) << id;
        }
        EXPECT_EQ(ErrorOfCall(type, FunctionComplexRoot, 3), uint32_t{FormulaErrorNeedsComplex});
    }
    EXPECT_EQ(ErrorOfCall(NumberTypeComplex, FunctionComplexRoot, 3), uint32_t{FormulaErrorNone});
}

TEST(OperationDispatch, RefusesPowmodInEveryTypeButUint) {
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex, NumberTypeRational}) {
        EXPECT_EQ(ErrorOfCall(type, FunctionPowMod, 3), uint32_t{FormulaErrorNotAvailable});
    }
    EXPECT_EQ(ErrorOfCall(NumberTypeUint, FunctionPowMod, 3), uint32_t{FormulaErrorNone});
}

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
    ApplyBinaryOperator(evaluator, OperatorAdd, &dest, &x);
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    const FormulaToken abs = {FunctionAbs, 0, 3, &dest};
    ApplyFunction1(evaluator, abs, &dest, &x);
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    const FormulaToken root = {FunctionRoot, 0, 4, &dest};
    ApplyFunction2(evaluator, root, &dest, &x, &x);
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    ApplyFunction3(evaluator, root, &dest, &x, &x, &x);
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    EXPECT_EQ(dest, 99u);
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
}

}  // namespace
}  // namespace tallymere
