#include "formula/real_evaluation.h"

#include "core/real_rounding.h"
#include "formula/angles.h"
#include "functions/combinatorics.h"
#include "functions/exponential.h"
#include "functions/factorial.h"
#include "functions/hyperbolic.h"
#include "functions/logarithm.h"
#include "functions/roots.h"

namespace tallymere {

namespace {

void RoundedGcd(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RealRound(dest, RealGcd(dest, a, b));
}

void RoundedLcm(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RealRound(dest, RealLcm(dest, a, b));
}

// Null for a function that has no routine of its own.
RealRoundedUnary FindUnaryRoutine(uint32_t functionId) {
    switch (functionId) {
        case FunctionSqrt:
            return RealSqrtRounded;
        case FunctionCbrt:
            return RealCbrtRounded;
        case FunctionLn:
            return RealLnRounded;
        case FunctionLog2:
            return RealLog2Rounded;
        case FunctionLog10:
            return RealLog10Rounded;
        case FunctionExp:
            return RealExpRounded;
        case FunctionAbs:
            return RealAbs;
        case FunctionSinh:
            return RealSinhRounded;
        case FunctionCosh:
            return RealCoshRounded;
        case FunctionTanh:
            return RealTanhRounded;
        case FunctionAsinh:
            return RealAsinhRounded;
        case FunctionAcosh:
            return RealAcoshRounded;
        case FunctionAtanh:
            return RealAtanhRounded;
        case FunctionFact:
            return RealFactorialRounded;
        case FunctionTrunc:
            return RealIntegerPart;
        case FunctionFrac:
            return RealFractionPart;
        case FunctionRound:
            return RealRoundToInteger;
        default:
            return nullptr;
    }
}

RealRoundedBinary FindBinaryRoutine(uint32_t functionId) {
    switch (functionId) {
        case FunctionRoot:
            return RealRootRounded;
        case FunctionLogX:
            return RealLogRounded;
        case FunctionNcr:
            return RealCombinations;
        case FunctionNpr:
            return RealPermutations;
        case FunctionGcd:
            return RoundedGcd;
        case FunctionLcm:
            return RoundedLcm;
        default:
            return nullptr;
    }
}

}  // namespace

void RealApplyFunction1(FormulaEvaluator& evaluator, const FormulaToken& function, RealNumber* dest,
                        const RealNumber* x) {
    if (IsCircularFunction(function.id)) {
        ApplyCircularFunction(evaluator, function, dest, x);
    } else if (const RealRoundedUnary routine = FindUnaryRoutine(function.id)) {
        routine(dest, x);
    } else {
        RealSetNaN(dest, CalcErrorUnknownType);
    }
}

void RealApplyFunction2(uint32_t functionId, RealNumber* dest, const RealNumber* a,
                        const RealNumber* b) {
    if (const RealRoundedBinary routine = FindBinaryRoutine(functionId)) {
        routine(dest, a, b);
    } else {
        RealSetNaN(dest, CalcErrorUnknownType);
    }
}

}  // namespace tallymere
