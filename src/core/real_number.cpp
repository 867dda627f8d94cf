#include "core/real_number.h"

#include "core/contract.h"
#include "core/limb_tools.h"

namespace tallymere {

namespace {

void SetSpecial(RealNumber* dest, SpecialMark mark, uint64_t sign) {
    dest->header = MakeHeader(SpecialExponent, sign);
    LimbsClear(RealLimbs(dest), numberContext.realLimbs);
    RealLimbs(dest)[0] = mark;
}

}  // namespace

bool RealIsWellFormed(const RealNumber* x, RealLayout layout) {
    const int64_t n = layout.limbs;
    const Limb* limbs = RealLimbs(x);
    if (RealIsSpecial(x)) {
        return limbs[0] <= MarkNaN && LimbsAreZero(limbs + 1, n - 1);
    }
    const int64_t t = layout.topDigits;
    if (limbs[0] < PowerOfTen(t - 1) || limbs[0] >= PowerOfTen(t)) {
        return false;
    }
    for (int64_t i = 1; i < n; i++) {
        if (limbs[i] >= LimbBase) {
            return false;
        }
    }
    return true;
}

void RealSetZero(RealNumber* dest, uint64_t sign) {
    TALLYMERE_REQUIRE(sign <= 1);
    SetSpecial(dest, MarkZero, sign);
}

void RealSetInfinity(RealNumber* dest, uint64_t sign) {
    TALLYMERE_REQUIRE(sign <= 1);
    SetSpecial(dest, MarkInfinity, sign);
}

void RealSetNaN(RealNumber* dest) {
    SetSpecial(dest, MarkNaN, 0);
}

void RealSetNaN(RealNumber* dest, CalcError code) {
    SetCalcError(code);
    RealSetNaN(dest);
}

void RealSetOverflow(RealNumber* dest, uint64_t sign) {
    RealSetInfinity(dest, sign);
    if (numberContext.reportOverflow != 0) {
        SetCalcError(CalcErrorOverflow);
    }
}

void RealSetUnderflow(RealNumber* dest, uint64_t sign) {
    RealSetZero(dest, sign);
    if (numberContext.reportUnderflow != 0) {
        SetCalcError(CalcErrorUnderflow);
    }
}

void RealSetOne(RealNumber* dest) {
    dest->header = MakeHeader(0, 0);
    LimbsClear(RealLimbs(dest), numberContext.realLimbs);
    RealLimbs(dest)[0] = PowerOfTen(numberContext.topLimbDigits - 1);
}

void RealSetSign(RealNumber* x, uint64_t sign) {
    TALLYMERE_REQUIRE(sign <= 1);
    x->header = (x->header & ~uint64_t{1}) | sign;
}

void RealNegate(RealNumber* x) {
    if (!RealIsNaN(x)) {
        x->header ^= 1;
    }
}

void RealCopy(RealNumber* dest, const RealNumber* src) {
    TALLYMERE_REQUIRE(RealSameOrApart(dest, src));
    dest->header = src->header;
    LimbsCopy(RealLimbs(dest), RealLimbs(src), numberContext.realLimbs);
}

void RealAbs(RealNumber* dest, const RealNumber* x) {
    RealCopy(dest, x);
    RealSetSign(dest, 0);
}

bool RealSetExponent(RealNumber* x, int64_t exponent) {
    return RealSetExponentAndSign(x, exponent, RealSign(x));
}

bool RealSetExponentAndSign(RealNumber* x, int64_t exponent, uint64_t sign) {
    TALLYMERE_REQUIRE(sign <= 1);
    if (exponent > MaxExponent) {
        RealSetOverflow(x, sign);
        return false;
    }
    if (exponent < MinExponent) {
        RealSetUnderflow(x, sign);
        return false;
    }
    x->header = MakeHeader(exponent, sign);
    return true;
}

}  // namespace tallymere
