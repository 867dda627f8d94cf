#include "formula/operation_dispatch.h"

#include "core/complex_text.h"
#include "core/number_context.h"
#include "core/real_rounding.h"
#include "core/real_text.h"
#include "exact/big_uint_text.h"
#include "exact/rational_text.h"
#include "formula/complex_evaluation.h"
#include "formula/complex_operators.h"
#include "formula/rational_evaluation.h"
#include "formula/rational_operators.h"
#include "formula/real_evaluation.h"
#include "formula/real_operators.h"
#include "formula/uint_evaluation.h"
#include "formula/uint_operators.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

bool NeedsComplexType(uint32_t functionId) {
    switch (functionId) {
        case FunctionComplexSqrt:
        case FunctionComplexCbrt:
        case FunctionComplexRoot:
        case FunctionArg:
        case FunctionArgDegrees:
        case FunctionArgGon:
        case FunctionRealPart:
        case FunctionImaginaryPart:
            return true;
        default:
            return false;
    }
}

// False, with the error noted, when the number type does not have the function by rule.
bool TypeHasFunction(FormulaEvaluator& evaluator, const FormulaToken& function) {
    if (NeedsComplexType(function.id) && numberContext.numberType != NumberTypeComplex) {
        SetFormulaError(evaluator, FormulaErrorNeedsComplex, function);
        return false;
    }
    if (function.id == FunctionPowMod && numberContext.numberType != NumberTypeUint) {
        SetFormulaError(evaluator, FormulaErrorNotAvailable, function);
        return false;
    }
    return true;
}

}  // namespace

void ValueFromNumberText(uint64_t* dest, const char16_t* digits, int64_t length, uint32_t base,
                         uint64_t flags) {
    const auto textFlags = static_cast<uint32_t>(flags & (TextGroup | TextNeutral));
    if (base != 10 && numberContext.numberType != NumberTypeUint) {
        SetCalcError(CalcErrorSyntax);
        ValueSetInvalid(dest);
        return;
    }
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealRound(RealAt(dest), RealFromText(RealAt(dest), digits, length, textFlags));
            break;
        case NumberTypeComplex:
            ComplexFromText(ComplexAt(dest), digits, length, textFlags);
            break;
        case NumberTypeUint:
            BigUintFromText(dest, digits, length, textFlags | base);
            break;
        case NumberTypeRational:
            RationalFromText(RationalAt(dest), digits, length, textFlags);
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

void ApplyBinaryOperator(FormulaEvaluator& evaluator, uint32_t operatorId, uint64_t* left,
                         const uint64_t* right) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealApplyOperator(operatorId, RealAt(left), RealAt(right));
            break;
        case NumberTypeComplex:
            ComplexApplyOperator(operatorId, ComplexAt(left), ComplexAt(right));
            break;
        case NumberTypeUint:
            UintApplyOperator(evaluator, operatorId, left, right);
            break;
        case NumberTypeRational:
            RationalApplyOperator(operatorId, RationalAt(left), RationalAt(right));
            break;
        default:
            ValueSetUnavailable(left);
    }
}

void ApplyFunction1(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* argument) {
    if (!TypeHasFunction(evaluator, function)) {
        return;
    }
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealApplyFunction1(evaluator, function, RealAt(dest), RealAt(argument));
            break;
        case NumberTypeComplex:
            ComplexApplyFunction1(evaluator, function, ComplexAt(dest), ComplexAt(argument));
            break;
        case NumberTypeUint:
            UintApplyFunction1(evaluator, function.id, dest, argument);
            break;
        case NumberTypeRational:
            RationalApplyFunction1(function.id, RationalAt(dest), RationalAt(argument));
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

void ApplyFunction2(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* first, const uint64_t* second) {
    if (!TypeHasFunction(evaluator, function)) {
        return;
    }
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealApplyFunction2(function.id, RealAt(dest), RealAt(first), RealAt(second));
            break;
        case NumberTypeComplex:
            ComplexApplyFunction2(function.id, ComplexAt(dest), ComplexAt(first),
                                  ComplexAt(second));
            break;
        case NumberTypeUint:
            UintApplyFunction2(evaluator, function.id, dest, first, second);
            break;
        case NumberTypeRational:
            RationalApplyFunction2(function.id, RationalAt(dest), RationalAt(first),
                                   RationalAt(second));
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

void ApplyFunction3(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                    const uint64_t* first, const uint64_t* second, const uint64_t* third) {
    if (!TypeHasFunction(evaluator, function)) {
        return;
    }
    switch (numberContext.numberType) {
        case NumberTypeComplex:
            ComplexApplyFunction3(function.id, ComplexAt(dest), ComplexAt(first), ComplexAt(second),
                                  ComplexAt(third));
            break;
        case NumberTypeUint:
            UintApplyFunction3(function.id, dest, first, second, third);
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

}  // namespace tallymere
