#include "exact/big_uint_mod_power.h"

#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"

namespace tallymere {

void BigUintModPower(uint64_t* dest, const uint64_t* a, const uint64_t* e, const uint64_t* m) {
    if (BigUintIsZero(m)) {
        BigUintClear(dest);
        SetCalcError(CalcErrorExactDivisionByZero);
        return;
    }
    if (BigUintIsZero(e)) {
        BigUintFromWord(dest, BigUintIsWord(m, 1) ? 0 : 1);
        return;
    }
    const int64_t n = numberContext.uintLimbs;
    const int64_t bits = BigUintBitLength(e);
    CoreScratchScope scratch;
    uint64_t* base = scratch.Take(2 * n);
    uint64_t* modulus = scratch.Take(2 * n);
    uint64_t* power = scratch.Take(2 * n);
    BigUintResize(base, 2 * n, a, n);
    BigUintResize(modulus, 2 * n, m, n);
    {
        UintWidthScope width(2 * n);
        BigUintFromWord(power, 1);
        for (int64_t i = bits - 1; i >= 0; i--) {
            if (AbortRequested()) {
                SetCalcError(CalcErrorCancelled);
                BigUintClear(power);
                break;
            }
            BigUintMul(power, power, power);
            BigUintDivide(nullptr, power, power, modulus);
            if (BigUintBit(e, i) != 0) {
                BigUintMul(power, power, base);
                BigUintDivide(nullptr, power, power, modulus);
            }
        }
    }
    BigUintResize(dest, n, power, 2 * n);
}

}  // namespace tallymere
