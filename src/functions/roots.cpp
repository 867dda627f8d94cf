#include "functions/roots.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/exponential.h"
#include "functions/guard_digits.h"
#include "functions/logarithm.h"
#include "functions/root_seeds.h"

namespace tallymere {

namespace {

constexpr int64_t SquareRootGuardDigits = 2;
constexpr int64_t CubeRootGuardDigits = 3;
constexpr int64_t RootGuardDigits = 5;

// The leading digits by which an argument is scaled.
constexpr int64_t ScalingDigits = 3;

// The root's last factor for an argument of this exponent, 0 or 1, and leading digits: divided by
// its square the argument lies in [1, 4).
uint64_t SquareRootFactor(int64_t exponent, uint64_t leading) {
    if (exponent == 0) {
        return leading >= 400 ? 2 : 1;
    }
    if (leading >= 250) {
        return 5;
    }
    return leading < 160 ? 2 : 3;
}

// The same for an exponent of 0 to 2: divided by the factor's cube the argument lies in [1, 8).
uint64_t CubeRootFactor(int64_t exponent, uint64_t leading) {
    switch (exponent) {
        case 0:
            return leading < 800 ? 1 : 2;
        case 1:
            return leading < 640 ? 2 : 4;
        default:
            return leading < 512 ? 4 : 8;
    }
}

// The passes of Newton's iteration, each of which doubles the digits, from a seed that holds these
// tenths of a digit to the precision in force.
int PassCount(int64_t seedTenths) {
    int passes = 0;
    for (int64_t tenths = seedTenths; tenths < 10 * numberContext.precisionDigits; tenths *= 2) {
        passes++;
    }
    return passes;
}

// Writes a seed of 19 digits as a number in [1, 10).
void SetSeed(RealNumber* dest, uint64_t seed) {
    RealSetLeading(RealLimbs(dest), seed);
    dest->header = MakeHeader(0, 0);
}

// The root of an odd or even degree where x is special or has none: true if dest has been written.
bool RootOfSpecial(RealNumber* dest, const RealNumber* x, bool odd) {
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
    } else if (RealIsZero(x)) {
        RealCopy(dest, x);
    } else if (RealSign(x) != 0 && !odd) {
        RealSetNaN(dest, CalcErrorUndefined);
    } else if (RealIsInfinite(x)) {
        RealCopy(dest, x);
    } else {
        return false;
    }
    return true;
}

// dest = e^(ln |x| / n) with the sign of x; divide(l) divides l by n.
template <typename Divide>
Limb RootByLogarithm(RealNumber* dest, const RealNumber* x, Divide divide) {
    const uint64_t sign = RealSign(x);
    CoreScratchScope scratch;
    RealNumber* logarithm = RealAt(scratch.Take(RealWords()));
    RealAbs(logarithm, x);
    RealLn(logarithm, logarithm);
    divide(logarithm);
    const Limb guard = RealExpBase(dest, logarithm, ExpOfE);
    RealSetSign(dest, sign);
    return guard;
}

}  // namespace

Limb RealSqrt(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealSign(x) != 0 && !RealIsNaN(x) && !RealIsZero(x)) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    if (RealIsSpecial(x)) {
        RealCopy(dest, x);
        return 0;
    }
    const int64_t halfExponent = RealExponent(x) >> 1;
    CoreScratchScope scratch;
    RealNumber* scaled = RealAt(scratch.Take(RealWords()));
    RealNumber* quotient = RealAt(scratch.Take(RealWords()));
    RealCopy(scaled, x);
    scaled->header = MakeHeader(RealExponent(x) & 1, 0);
    const uint64_t factor =
        SquareRootFactor(RealExponent(scaled), RealLeadingDigits(RealLimbs(scaled), ScalingDigits));
    RealDivUint(scaled, scaled, factor * factor);
    SetSeed(dest, SquareRootSeed(RealLeadingDigits(RealLimbs(scaled), DigitsPerLimb)));
    for (int passes = PassCount(SquareRootSeedTenths); passes > 0; passes--) {
        RealDivRaw(quotient, scaled, dest);
        RealAddRaw(dest, dest, quotient, false);
        RealDivUint(dest, dest, 2);
    }
    RealSetExponent(dest, RealExponent(dest) + halfExponent);
    return RealMulUint(dest, dest, factor);
}

void RealSqrtRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, SquareRootGuardDigits, RealSqrt);
}

Limb RealCbrt(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsSpecial(x)) {
        RealCopy(dest, x);
        return 0;
    }
    const uint64_t sign = RealSign(x);
    const int64_t remainder = ((RealExponent(x) % 3) + 3) % 3;
    const int64_t thirdOfExponent = (RealExponent(x) - remainder) / 3;
    CoreScratchScope scratch;
    RealNumber* scaled = RealAt(scratch.Take(RealWords()));
    RealNumber* quotient = RealAt(scratch.Take(RealWords()));
    RealCopy(scaled, x);
    scaled->header = MakeHeader(remainder, 0);
    const uint64_t factor =
        CubeRootFactor(remainder, RealLeadingDigits(RealLimbs(scaled), ScalingDigits));
    RealDivUint(scaled, scaled, factor * factor * factor);
    SetSeed(dest, CubeRootSeed(RealLeadingDigits(RealLimbs(scaled), DigitsPerLimb)));
    for (int passes = PassCount(CubeRootSeedTenths); passes > 0; passes--) {
        RealMulRaw(quotient, dest, dest);
        RealDivRaw(quotient, scaled, quotient);
        RealMulUint(dest, dest, 2);
        RealAddRaw(dest, dest, quotient, false);
        RealDivUint(dest, dest, 3);
    }
    RealSetExponent(dest, RealExponent(dest) + thirdOfExponent);
    const Limb guard = RealMulUint(dest, dest, factor);
    RealSetSign(dest, sign);
    return guard;
}

void RealCbrtRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, CubeRootGuardDigits, RealCbrt);
}

Limb RealRoot(RealNumber* dest, const RealNumber* n, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(n) && RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, n) && RealSameOrApart(dest, x));
    if (RealIsNaN(n)) {
        RealSetNaN(dest);
        return 0;
    }
    if (RealIsSpecial(n) || RealSign(n) != 0 || !RealIsInteger(n)) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    if (RootOfSpecial(dest, x, !RealIsEven(n))) {
        return 0;
    }
    return RootByLogarithm(dest, x,
                           [n](RealNumber* logarithm) { RealDivRaw(logarithm, logarithm, n); });
}

void RealRootRounded(RealNumber* dest, const RealNumber* n, const RealNumber* x) {
    RoundedBinary(dest, n, x, RootGuardDigits, RealRoot);
}

Limb RealRootInt(RealNumber* dest, int64_t n, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (n <= 0) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    if (RootOfSpecial(dest, x, n % 2 != 0)) {
        return 0;
    }
    return RootByLogarithm(dest, x, [n](RealNumber* logarithm) {
        RealDivUint(logarithm, logarithm, static_cast<uint64_t>(n));
    });
}

}  // namespace tallymere
