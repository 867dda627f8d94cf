#include "functions/hyperbolic.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "functions/exponential.h"
#include "functions/guard_digits.h"
#include "functions/logarithm.h"
#include "functions/roots.h"
#include "functions/series.h"
#include "functions/stored_constants.h"

namespace tallymere {

namespace {

constexpr int64_t HyperbolicGuardDigits = 3;

// dest = x - 1 / 2 x^3 / 3 + (1 3) / (2 4) x^5 / 5 - ..., each term without its last factor made
// from the one before; raw.
Limb SeriesAsinh(RealNumber* dest, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealNumber* term = RealAt(scratch.Take(RealWords()));
    RealMulRaw(square, x, x);
    RealCopy(term, x);
    if (dest != x) {
        RealCopy(dest, x);
    }
    Limb guard = 0;
    uint64_t j = 1;
    do {
        RealMulRaw(term, term, square);
        RealMulUint(term, term, j * j);
        j += 2;
        RealDivUint(term, term, (j - 1) * j);
        RealNegate(term);
        guard = RealAddRaw(dest, dest, term, false);
    } while (!SeriesEnds(dest, term));
    return guard;
}

// dest = (E - 1 / E) / 2 for E = e^x, or the sum with `plus`; raw.
Limb HalfOfExponentials(RealNumber* dest, const RealNumber* x, bool plus) {
    CoreScratchScope scratch;
    RealNumber* power = RealAt(scratch.Take(RealWords()));
    RealNumber* inverse = RealAt(scratch.Take(RealWords()));
    RealExpBase(power, x, ExpOfE);
    RealReciprocalAny(inverse, power);
    RealAddRaw(power, power, inverse, !plus);
    return RealDivUint(dest, power, 2);
}

// dest = ln 2 + ln x: what the inverse functions come to where x^2 +- 1 is x^2; raw.
Limb LnOfTwice(RealNumber* dest, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* ln2 = RealAt(scratch.Take(RealWords()));
    LoadConstant(ln2, ConstLn2);
    RealLn(dest, x);
    return RealAddRaw(dest, ln2, dest, false);
}

// True where the last digit of x^2 lies above the units.
bool SquareSwallowsOne(const RealNumber* x) {
    return 2 * RealExponent(x) >= numberContext.precisionDigits;
}

// dest = sqrt(x^2 + 1), or sqrt(x^2 - 1) with `minus`; raw. dest must not be x.
void SqrtNextToSquare(RealNumber* dest, const RealNumber* x, bool minus) {
    CoreScratchScope scratch;
    RealNumber* one = RealAt(scratch.Take(RealWords()));
    RealSetOne(one);
    RealMulRaw(dest, x, x);
    RealAddRaw(dest, dest, one, minus);
    RealSqrt(dest, dest);
}

}  // namespace

Limb RealSinh(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsSpecial(x)) {
        RealCopy(dest, x);
        return 0;
    }
    const bool belowHalf = RealCompareScaled(x, 5, -1, true) < 0;
    return belowHalf ? SeriesSinh(dest, x) : HalfOfExponentials(dest, x, false);
}

Limb RealCosh(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsInfinite(x)) {
        RealSetInfinity(dest, 0);
        return 0;
    }
    return HalfOfExponentials(dest, x, true);
}

Limb RealTanh(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsNaN(x) || RealIsZero(x)) {
        RealCopy(dest, x);
        return 0;
    }
    const int64_t p = numberContext.precisionDigits;
    const uint64_t saturated = static_cast<uint64_t>(295 * p / 256 + 1);
    if (RealCompareUint(x, saturated, true) >= 0) {
        const uint64_t sign = RealSign(x);
        RealSetOne(dest);
        RealSetSign(dest, sign);
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* above = RealAt(scratch.Take(RealWords()));
    RealNumber* below = RealAt(scratch.Take(RealWords()));
    if (RealExponent(x) < -1) {
        SeriesSinhCosh(above, below, x);
    } else {
        RealNumber* one = RealAt(scratch.Take(RealWords()));
        RealSetOne(one);
        RealMulUint(above, x, 2);
        RealExpBase(above, above, ExpOfE);
        RealAddRaw(below, above, one, false);
        RealAddRaw(above, above, one, true);
    }
    return RealDivRaw(dest, above, below);
}

Limb RealAsinh(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsSpecial(x)) {
        RealCopy(dest, x);
        return 0;
    }
    const uint64_t sign = RealSign(x);
    CoreScratchScope scratch;
    RealNumber* magnitude = RealAt(scratch.Take(RealWords()));
    RealAbs(magnitude, x);
    Limb guard = 0;
    if (RealExponent(x) < -1) {
        guard = SeriesAsinh(dest, magnitude);
    } else if (SquareSwallowsOne(x)) {
        guard = LnOfTwice(dest, magnitude);
    } else {
        RealNumber* root = RealAt(scratch.Take(RealWords()));
        SqrtNextToSquare(root, magnitude, false);
        RealAddRaw(root, magnitude, root, false);
        guard = RealLn(dest, root);
    }
    RealSetSign(dest, sign);
    return guard;
}

Limb RealAcosh(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
        return 0;
    }
    if (RealCompareUint(x, 1) < 0) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    if (RealIsInfinite(x)) {
        RealSetInfinity(dest, 0);
        return 0;
    }
    if (SquareSwallowsOne(x)) {
        return LnOfTwice(dest, x);
    }
    CoreScratchScope scratch;
    RealNumber* root = RealAt(scratch.Take(RealWords()));
    SqrtNextToSquare(root, x, true);
    if (RealCompareScaled(x, 11, 0) >= 0) {
        RealAddRaw(root, x, root, false);
        return RealLn(dest, root);
    }
    // Next to 1 the logarithm of 1 + y keeps the digits of a small y = (x - 1) + root. It refuses a
    // y of 0.5 or more, which is reached at x = 1.0833; changing over later than that is kept, and
    // with it that there is no result from there up to 1.1.
    RealNumber* excess = RealAt(scratch.Take(RealWords()));
    RealSetOne(excess);
    RealAddRaw(excess, x, excess, true);
    RealAddRaw(excess, excess, root, false);
    return RealLnSmall(dest, excess);
}

Limb RealAtanh(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsNaN(x) || RealIsZero(x)) {
        RealCopy(dest, x);
        return 0;
    }
    const int size = RealCompareUint(x, 1, true);
    if (size > 0) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    if (size == 0) {
        RealSetOverflow(dest, RealSign(x));
        return 0;
    }
    if (RealExponent(x) < -2) {
        SeriesAtanh(dest, x);
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* one = RealAt(scratch.Take(RealWords()));
    RealNumber* ratio = RealAt(scratch.Take(RealWords()));
    RealSetOne(one);
    RealAddRaw(ratio, one, x, false);
    RealAddRaw(one, one, x, true);
    RealDivRaw(ratio, ratio, one);
    RealLn(ratio, ratio);
    return RealDivUint(dest, ratio, 2);
}

void RealSinhRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArgumentGuardDigits(x), RealSinh);
}

void RealCoshRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArgumentGuardDigits(x), RealCosh);
}

void RealTanhRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, HyperbolicGuardDigits, RealTanh);
}

void RealAsinhRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, HyperbolicGuardDigits, RealAsinh);
}

void RealAcoshRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, HyperbolicGuardDigits, RealAcosh);
}

void RealAtanhRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, HyperbolicGuardDigits, RealAtanh);
}

}  // namespace tallymere
