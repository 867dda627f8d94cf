#include "exact/big_uint_gcd.h"

#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"

namespace tallymere {

namespace {

// True, with dest cleared and a code noted, when one of the two is 0.
bool RefuseZero(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    if (!BigUintIsZero(a) && !BigUintIsZero(b)) {
        return false;
    }
    BigUintClear(dest);
    SetCalcError(CalcErrorUndefined);
    return true;
}

}  // namespace

void BigUintGreatestDivisor(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    const int64_t n = numberContext.uintLimbs;
    CoreScratchScope scratch;
    uint64_t* x = scratch.Take(n);
    uint64_t* y = scratch.Take(n);
    BigUintCopy(x, a);
    BigUintCopy(y, b);
    while (!BigUintIsZero(y)) {
        BigUintDivide(nullptr, x, x, y);
        uint64_t* const larger = y;
        y = x;
        x = larger;
    }
    BigUintCopy(dest, x);
}

void BigUintGcd(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    if (!RefuseZero(dest, a, b)) {
        BigUintGreatestDivisor(dest, a, b);
    }
}

void BigUintLcm(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    if (RefuseZero(dest, a, b)) {
        return;
    }
    CoreScratchScope scratch;
    uint64_t* factor = scratch.Take(numberContext.uintLimbs);
    BigUintGreatestDivisor(factor, a, b);
    BigUintDivide(factor, nullptr, a, factor);
    BigUintMul(dest, factor, b);
}

}  // namespace tallymere
