#include "formula/operation_dispatch.h"

#include "core/complex_text.h"
#include "core/number_bases.h"
#include "core/number_context.h"
#include "core/real_rounding.h"
#include "core/real_text.h"
#include "exact/big_uint_text.h"
#include "exact/rational_text.h"
#include "formula/function_table.h"
#include "formula/operator_table.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

void CallRoutine(const FunctionCall& call) {
    const FunctionRoutine routine = RoutineOf(call.row.routines, numberContext.numberType);
    if (routine != nullptr) {
        routine(call);
    } else if (call.row.refusal != FormulaErrorNone) {
        SetFormulaError(call.evaluator, call.row.refusal, call.function);
    } else {
        ValueSetUnavailable(call.dest);
    }
}

}  // namespace

void ValueFromNumberText(uint64_t* dest, const char16_t* digits, int64_t length, uint32_t base,
                         uint64_t flags) {
    const auto textFlags = static_cast<uint32_t>(flags & (TextGroup | TextPlainSeparators));
    if (base != DecimalBase && numberContext.numberType != NumberTypeUint) {
        SetCalcError(CalcErrorSyntax);
        ValueSetInvalid(dest);
        return;
    }
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealRound(RealAt(dest), RealFromText(RealAt(dest), digits, length, textFlags));
            return;
        case NumberTypeComplex:
            ComplexFromText(ComplexAt(dest), digits, length, textFlags);
            return;
        case NumberTypeUint:
            BigUintFromText(dest, digits, length, textFlags | base);
            return;
        case NumberTypeRational:
            RationalFromText(RationalAt(dest), digits, length, textFlags);
            return;
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

void ApplyBinaryOperator(FormulaEvaluator& evaluator, OperatorId id, uint64_t* left,
                         const uint64_t* right) {
    const OperatorRoutine routine = RoutineOf(OperatorOf(id).routines, numberContext.numberType);
    if (routine != nullptr) {
        routine(evaluator, left, right);
    } else {
        ValueSetUnavailable(left);
    }
}

void ApplyFunction1(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* argument) {
    const FunctionRow& row = FunctionOf(function.function);
    TALLYMERE_REQUIRE(ArgumentCount(row) == 1);
    CallRoutine({evaluator, function, row, dest, {argument}});
}

void ApplyFunction2(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* first, const uint64_t* second) {
    const FunctionRow& row = FunctionOf(function.function);
    TALLYMERE_REQUIRE(ArgumentCount(row) == 2);
    CallRoutine({evaluator, function, row, dest, {first, second}});
}

void ApplyFunction3(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* first, const uint64_t* second, const uint64_t* third) {
    const FunctionRow& row = FunctionOf(function.function);
    TALLYMERE_REQUIRE(ArgumentCount(row) == 3);
    CallRoutine({evaluator, function, row, dest, {first, second, third}});
}

}  // namespace tallymere
