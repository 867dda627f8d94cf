#include "functions/hypotenuse.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "functions/guard_digits.h"
#include "functions/roots.h"

namespace tallymere {

namespace {

constexpr int64_t HypotenuseGuardDigits = 3;

}  // namespace

Limb RealHypot(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    TALLYMERE_REQUIRE(RealIsWellFormed(a) && RealIsWellFormed(b));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, a) && RealSameOrApart(dest, b));
    if (RealIsNaN(a) || RealIsNaN(b)) {
        RealSetNaN(dest);
        return 0;
    }
    if (RealIsInfinite(a) || RealIsInfinite(b)) {
        RealSetInfinity(dest, 0);
        return 0;
    }
    if (RealIsZero(a) || RealIsZero(b)) {
        RealAbs(dest, RealIsZero(a) ? b : a);
        return 0;
    }
    const int64_t exponent = RealExponent(a);
    const int64_t difference = RealExponent(b) - exponent;
    const int64_t p = numberContext.precisionDigits;
    if (difference > p || difference < -p) {
        RealAbs(dest, difference > 0 ? b : a);
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* squareA = RealAt(scratch.Take(RealWords()));
    RealNumber* squareB = RealAt(scratch.Take(RealWords()));
    RealCopy(squareA, a);
    squareA->header = MakeHeader(0, 0);
    RealCopy(squareB, b);
    squareB->header = MakeHeader(difference, 0);
    RealMulRaw(squareA, squareA, squareA);
    RealMulRaw(squareB, squareB, squareB);
    RealAddRaw(squareA, squareA, squareB, false);
    const Limb guard = RealSqrt(dest, squareA);
    RealSetExponent(dest, RealExponent(dest) + exponent);
    return guard;
}

void RealHypotRounded(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RoundedBinary(dest, a, b, HypotenuseGuardDigits, RealHypot);
}

}  // namespace tallymere
