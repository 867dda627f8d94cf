#include "exact/big_uint_powers.h"

#include "core/contract.h"
#include "core/limb.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"

namespace tallymere {

// Goes from the highest bit of e down. Every value on the way is a power of the base that is no
// larger than the result. So nothing overflows unless the result does.
bool BigUintPowerIfFits(uint64_t* dest, const uint64_t* base, int64_t e) {
    TALLYMERE_REQUIRE(e >= 1);
    const CalcErrorScope codes;
    CoreScratchScope scratch;
    uint64_t* factor = scratch.Take(numberContext.uintLimbs);
    BigUintCopy(factor, base);
    BigUintCopy(dest, base);
    const uint64_t bits = static_cast<uint64_t>(e);
    for (int i = HighestBit(bits) - 1; i >= 0 && numberContext.calcError == CalcErrorNone; i--) {
        BigUintMul(dest, dest, dest);
        if ((bits >> i & 1) != 0) {
            BigUintMul(dest, factor, dest);
        }
    }
    const bool fits = numberContext.calcError == CalcErrorNone;
    numberContext.calcError = CalcErrorNone;
    return fits;
}

void BigUintPowerSmall(uint64_t* dest, const uint64_t* base, int64_t e) {
    if (e == 0) {
        BigUintFromUnsigned(dest, 1);
    } else if (e < 0) {
        BigUintSetFailed(dest, CalcErrorUndefined);
    } else if (!BigUintPowerIfFits(dest, base, e)) {
        BigUintSetFailed(dest, CalcErrorOverflow);
    }
}

void BigUintPower(uint64_t* dest, const uint64_t* base, const uint64_t* e) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, base) && BigUintsAreSameOrApart(dest, e));
    if (BigUintFitsSigned(e)) {
        BigUintPowerSmall(dest, base, static_cast<int64_t>(e[0]));
    } else if (BigUintIsZero(base) || BigUintEqualsSmall(base, 1)) {
        BigUintCopy(dest, base);
    } else {
        BigUintSetFailed(dest, CalcErrorOverflow);
    }
}

void BigUintPowerOfTwo(uint64_t* dest, const uint64_t* n) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, n));
    if (BigUintFitsSigned(n)) {
        BigUintPowerOfTwoSmall(dest, static_cast<int64_t>(n[0]));
    } else {
        BigUintSetFailed(dest, CalcErrorOverflow);
    }
}

void BigUintPowerOfTwoSmall(uint64_t* dest, int64_t n) {
    if (n < 0) {
        BigUintSetFailed(dest, CalcErrorUndefined);
    } else if (n >= BitsPerUintLimb * numberContext.uintLimbs) {
        BigUintSetFailed(dest, CalcErrorOverflow);
    } else {
        BigUintClear(dest);
        dest[n / BitsPerUintLimb] = uint64_t{1} << (n % BitsPerUintLimb);
    }
}

void BigUintPowerOfTen(uint64_t* dest, const uint64_t* n) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, n));
    if (BigUintFitsSigned(n)) {
        BigUintPowerOfTenSmall(dest, static_cast<int64_t>(n[0]));
    } else {
        BigUintSetFailed(dest, CalcErrorOverflow);
    }
}

// Like BigUintPowerIfFits, but the start is a power of ten from the table of one-limb powers.
void BigUintPowerOfTenSmall(uint64_t* dest, int64_t n) {
    if (n < 0) {
        BigUintSetFailed(dest, CalcErrorUndefined);
        return;
    }
    const CalcErrorScope codes;
    int left = 0;
    while (n >> left > DigitsPerLimb) {
        left++;
    }
    BigUintFromUnsigned(dest, PowerOfTen(n >> left));
    while (left > 0 && numberContext.calcError == CalcErrorNone) {
        left--;
        BigUintMul(dest, dest, dest);
        if ((n >> left & 1) != 0) {
            BigUintMulSmall(dest, dest, 10);
        }
    }
}

}  // namespace tallymere
