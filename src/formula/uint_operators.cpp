#include "formula/uint_operators.h"

#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"
#include "exact/big_uint_powers.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

void Multiply(uint64_t* a, const uint64_t* b) {
    if (BigUintFitsWord(a)) {
        BigUintMulSmall(a, b, a[0]);
    } else if (BigUintFitsWord(b)) {
        BigUintMulSmall(a, a, b[0]);
    } else {
        BigUintMul(a, a, b);
    }
}

void Power(uint64_t* a, const uint64_t* b) {
    if (BigUintIsWord(a, 2)) {
        BigUintPowerOfTwo(a, b);
    } else if (BigUintIsWord(a, 10)) {
        BigUintPowerOfTen(a, b);
    } else {
        BigUintPower(a, a, b);
    }
}

}  // namespace

void UintApplyOperator(FormulaEvaluator& evaluator, uint32_t operatorId, uint64_t* a,
                       const uint64_t* b) {
    switch (operatorId) {
        case OperatorAdd:
            BigUintAdd(a, a, b);
            break;
        case OperatorSubtract:
            BigUintSub(a, a, b);
            break;
        case OperatorMultiply:
            Multiply(a, b);
            break;
        case OperatorDivide:
            NoteExactness(evaluator, BigUintDivideExact(a, a, b));
            break;
        case OperatorPower:
            Power(a, b);
            break;
        case OperatorMod:
            BigUintDivide(nullptr, a, a, b);
            break;
        default:
            ValueSetUnavailable(a);
    }
}

}  // namespace tallymere
