#include "formula/uint_evaluation.h"

#include <algorithm>

#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_combinatorics.h"
#include "exact/big_uint_gcd.h"
#include "exact/big_uint_logarithms.h"
#include "exact/big_uint_mod_power.h"
#include "exact/big_uint_roots.h"
#include "exact/rational_arithmetic.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// "frac" has no way of its own for integers: it takes the words for those of a fraction. What
// stands behind them counts as 0, so the denominator is 0 and the function fails for every operand.
// It stays so, as an integer has no fraction that a formula could be after.
void FractionOfWords(uint64_t* dest, const uint64_t* x) {
    ScratchStackScope scope;
    uint64_t* words = scope.Take(RationalWords());
    std::fill_n(std::copy_n(x, numberContext.uintLimbs, words), numberContext.uintLimbs + 1, 0);
    RationalFraction(RationalAt(words), RationalAt(words));
    BigUintCopy(dest, words);
}

}  // namespace

void UintApplyFunction1(FormulaEvaluator& evaluator, uint32_t functionId, uint64_t* dest,
                        const uint64_t* x) {
    switch (functionId) {
        case FunctionSqrt:
            NoteExactness(evaluator, BigUintSquareRoot(dest, x));
            break;
        case FunctionCbrt:
            NoteExactness(evaluator, BigUintRootSmall(dest, 3, x));
            break;
        case FunctionLog2:
            NoteExactness(evaluator, BigUintLogTwo(dest, x));
            break;
        case FunctionLog10:
            NoteExactness(evaluator, BigUintLogTen(dest, x));
            break;
        case FunctionAbs:
        case FunctionTrunc:
            BigUintCopy(dest, x);
            break;
        case FunctionFrac:
            FractionOfWords(dest, x);
            break;
        case FunctionRound:
            // An integer needs no rounding, and so little is done that dest is not even written.
            // It stays so: whoever rounds integers learns from the result that it means nothing.
            break;
        case FunctionFact:
            BigUintFactorial(dest, x);
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

void UintApplyFunction2(FormulaEvaluator& evaluator, uint32_t functionId, uint64_t* dest,
                        const uint64_t* a, const uint64_t* b) {
    switch (functionId) {
        case FunctionRoot:
            NoteExactness(evaluator, BigUintRoot(dest, a, b));
            break;
        case FunctionLogX:
            NoteExactness(evaluator, BigUintLog(dest, a, b));
            break;
        case FunctionNcr:
            BigUintBinomial(dest, a, b, false);
            break;
        case FunctionNpr:
            BigUintBinomial(dest, a, b, true);
            break;
        case FunctionGcd:
            BigUintGcd(dest, a, b);
            break;
        case FunctionLcm:
            BigUintLcm(dest, a, b);
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

void UintApplyFunction3(uint32_t functionId, uint64_t* dest, const uint64_t* a, const uint64_t* b,
                        const uint64_t* c) {
    if (functionId == FunctionPowMod) {
        BigUintModPower(dest, a, b, c);
    } else {
        ValueSetUnavailable(dest);
    }
}

}  // namespace tallymere
