#include "formula/complex_evaluation.h"

#include "formula/angles.h"
#include "formula/real_evaluation.h"
#include "functions/complex_modulus.h"
#include "functions/complex_roots.h"
#include "functions/inverse_trigonometric.h"

namespace tallymere {

namespace {

static_assert(FunctionArgDegrees == FunctionArg + 1 && FunctionArgGon == FunctionArg + 2);

void Angle(RealNumber* dest, const ComplexNumber* z, AngleUnit unit) {
    RealAtan2Rounded(dest, ImaginaryPart(z), RealPart(z));
    AngleFromRadians(dest, dest, unit);
}

// The degree and the branch of a root are integers, so a value that is not real is out of bounds.
bool IsRootIndex(ComplexNumber* dest, const ComplexNumber* index) {
    if (!ComplexIsReal(index)) {
        ComplexSetNaN(dest, CalcErrorUndefined);
        return false;
    }
    return true;
}

}  // namespace

void ComplexApplyFunction1(FormulaEvaluator& evaluator, const FormulaToken& function,
                           ComplexNumber* dest, const ComplexNumber* z) {
    switch (function.id) {
        case FunctionAbs:
            ComplexAbs(dest, z);
            return;
        case FunctionArg:
        case FunctionArgDegrees:
        case FunctionArgGon:
            Angle(RealPart(dest), z, static_cast<AngleUnit>(function.id - FunctionArg));
            break;
        case FunctionRealPart:
            RealCopy(RealPart(dest), RealPart(z));
            break;
        case FunctionImaginaryPart:
            RealCopy(RealPart(dest), ImaginaryPart(z));
            break;
        case FunctionTrunc:
        case FunctionFrac:
        case FunctionRound:
            RealApplyFunction1(evaluator, function, RealPart(dest), RealPart(z));
            RealApplyFunction1(evaluator, function, ImaginaryPart(dest), ImaginaryPart(z));
            return;
        default:
            if (!ComplexIsReal(z)) {
                ComplexSetNaN(dest, CalcErrorComplexNotAllowed);
                return;
            }
            RealApplyFunction1(evaluator, function, RealPart(dest), RealPart(z));
    }
    ComplexClearImaginaryPart(dest);
}

void ComplexApplyFunction2(uint32_t functionId, ComplexNumber* dest, const ComplexNumber* a,
                           const ComplexNumber* b) {
    switch (functionId) {
        case FunctionComplexSqrt:
            if (IsRootIndex(dest, b)) {
                ComplexSqrtBranch(dest, a, RealPart(b));
            }
            break;
        case FunctionComplexCbrt:
            if (IsRootIndex(dest, b)) {
                ComplexCbrtBranch(dest, a, RealPart(b));
            }
            break;
        default:
            if (!ComplexIsReal(a) || !ComplexIsReal(b)) {
                ComplexSetNaN(dest, CalcErrorComplexNotAllowed);
                return;
            }
            RealApplyFunction2(functionId, RealPart(dest), RealPart(a), RealPart(b));
            ComplexClearImaginaryPart(dest);
    }
}

void ComplexApplyFunction3(uint32_t functionId, ComplexNumber* dest, const ComplexNumber* a,
                           const ComplexNumber* b, const ComplexNumber* c) {
    if (functionId != FunctionComplexRoot) {
        ComplexSetNaN(dest, CalcErrorUnknownType);
    } else if (IsRootIndex(dest, a) && IsRootIndex(dest, c)) {
        ComplexRootBranch(dest, RealPart(a), b, RealPart(c));
    }
}

}  // namespace tallymere
