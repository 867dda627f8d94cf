#include "formula/uint_operators.h"

#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"
#include "exact/big_uint_powers.h"

namespace tallymere {

void UintMultiplyBy(uint64_t* a, const uint64_t* b) {
    if (BigUintFitsUnsigned(a)) {
        BigUintMulSmall(a, b, a[0]);
    } else if (BigUintFitsUnsigned(b)) {
        BigUintMulSmall(a, a, b[0]);
    } else {
        BigUintMul(a, a, b);
    }
}

void UintRaiseTo(uint64_t* a, const uint64_t* b) {
    if (BigUintEqualsSmall(a, 2)) {
        BigUintPowerOfTwo(a, b);
    } else if (BigUintEqualsSmall(a, 10)) {
        BigUintPowerOfTen(a, b);
    } else {
        BigUintPower(a, a, b);
    }
}

void UintReduceModulo(uint64_t* a, const uint64_t* b) {
    BigUintDivide(nullptr, a, a, b);
}

}  // namespace tallymere
