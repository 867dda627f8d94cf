#include "functions/powers.h"

#include "core/contract.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/exponential.h"
#include "functions/guard_digits.h"
#include "functions/logarithm.h"
#include "functions/stored_constants.h"

namespace tallymere {

namespace {

// dest = dest * base^count; raw. Leaves some power in base.
Limb MultiplyByPower(RealNumber* dest, RealNumber* base, uint64_t count) {
    Limb guard = 0;
    while (count != 0) {
        if ((count & 1) != 0) {
            guard = RealMulRaw(dest, dest, base);
        }
        count >>= 1;
        // A square that nobody multiplies by could overflow.
        if (count != 0) {
            RealMulRaw(base, base, base);
        }
    }
    return guard;
}

// x^0: 1 for everything but an infinity.
void SetZerothPower(RealNumber* dest, const RealNumber* x) {
    if (RealIsInfinite(x)) {
        RealSetNaN(dest, CalcErrorUndefined);
    } else {
        RealSetOne(dest);
    }
}

// x^y for a zero or infinite x and a finite y, not 0.
void PowerOfSpecial(RealNumber* dest, const RealNumber* x, bool negativeY, bool oddY) {
    const uint64_t sign = oddY ? RealSign(x) : 0;
    if (RealIsInfinite(x) && !negativeY) {
        RealSetInfinity(dest, sign);
    } else if (RealIsInfinite(x) || !negativeY) {
        RealSetZero(dest, sign);
    } else {
        RealSetNaN(dest, CalcErrorUndefined);
    }
}

// x^y for an infinite y and any x but NaN.
void PowerToInfinity(RealNumber* dest, const RealNumber* x, const RealNumber* y) {
    if (RealIsZero(x) || RealSign(x) != 0) {
        RealSetNaN(dest, CalcErrorUndefined);
    } else if (RealSign(y) != 0) {
        RealSetZero(dest, 0);
    } else {
        RealSetInfinity(dest, 0);
    }
}

}  // namespace

Limb RealPowerInt(RealNumber* dest, const RealNumber* x, int64_t n) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
        return 0;
    }
    if (n == 0) {
        SetZerothPower(dest, x);
        return 0;
    }
    if (RealIsSpecial(x)) {
        PowerOfSpecial(dest, x, n < 0, n % 2 != 0);
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* base = RealAt(scratch.Take(RealWords()));
    RealCopy(base, x);
    RealSetOne(dest);
    const Limb guard = MultiplyByPower(dest, base, IntegerMagnitude(n));
    return n < 0 ? RealReciprocalAny(dest, dest) : guard;
}

void RealPowerIntRounded(RealNumber* dest, const RealNumber* x, int64_t n) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    const int64_t g = IntegerPowerGuardDigits(n);
    const int64_t limbs = numberContext.realLimbs;
    RoundedResult(dest, g, [&](RealNumber* power) {
        RealWiden(power, x, g, limbs, numberContext.realLimbs - limbs);
        RealPowerInt(power, power, n);
    });
}

Limb RealPowerOfTwo(RealNumber* dest, int64_t n) {
    const bool negative = n < 0;
    const uint64_t m = IntegerMagnitude(n);
    const uint64_t lowPower = uint64_t{1} << (m % 64);
    if ((m & 64) != 0) {
        LoadConstant(dest, negative ? ConstTwoPowMinus64 : ConstTwoPow64);
    } else {
        RealSetOne(dest);
    }
    const Limb guard = negative ? RealDivUint(dest, dest, lowPower, PowerOfTwoReciprocal)
                                : RealMulUint(dest, dest, lowPower);
    if (m < 128) {
        return guard;
    }
    CoreScratchScope scratch;
    RealNumber* base = RealAt(scratch.Take(RealWords()));
    LoadConstant(base, negative ? ConstTwoPowMinus128 : ConstTwoPow128);
    return MultiplyByPower(dest, base, m / 128);
}

void RealPowerOfTwoRounded(RealNumber* dest, int64_t n) {
    RoundedResult(dest, IntegerPowerGuardDigits(n),
                  [n](RealNumber* power) { RealPowerOfTwo(power, n); });
}

Limb RealPower(RealNumber* dest, const RealNumber* x, const RealNumber* y) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x) && RealIsWellFormed(y));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x) && RealSameOrApart(dest, y));
    if (RealIsZero(y)) {
        SetZerothPower(dest, x);
        return 0;
    }
    if (RealIsNaN(x) || RealIsNaN(y)) {
        RealSetNaN(dest);
        return 0;
    }
    if (RealIsInfinite(y)) {
        PowerToInfinity(dest, x, y);
        return 0;
    }
    const bool integer = RealIsInteger(y);
    const bool odd = integer && !RealIsEven(y);
    if (RealSign(x) != 0 && !integer && !RealIsZero(x)) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    if (RealIsSpecial(x)) {
        PowerOfSpecial(dest, x, RealSign(y) != 0, odd);
        return 0;
    }
    const uint64_t sign = odd ? RealSign(x) : 0;
    CoreScratchScope scratch;
    RealNumber* exponent = RealAt(scratch.Take(RealWords()));
    RealAbs(exponent, x);
    RealLn(exponent, exponent);
    RealMulRaw(exponent, exponent, y);
    const Limb guard = RealExpBase(dest, exponent, ExpOfE);
    RealSetSign(dest, sign);
    return guard;
}

void RealPowerRounded(RealNumber* dest, const RealNumber* x, const RealNumber* y) {
    RoundedBinary(dest, x, y, PowerGuardDigits(y), RealPower);
}

}  // namespace tallymere
