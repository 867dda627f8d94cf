#include "functions/stored_constants.h"

#include <algorithm>

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/real_add.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "functions/guard_digits.h"

namespace tallymere {

namespace {

constexpr int64_t PiGuardDigits = 2;

const Limb* ConstantLimbs(const StoredConstant& constant) {
    return reinterpret_cast<const Limb*>(&constant + 1);
}

}  // namespace

namespace stored_constants {

const LongConstant LongConstants[LongConstantCount] = {
#include "functions/stored_constant_limbs.inc"
};

const StoredConstantOf<2> TwoPow64 = {{2, 0, 0, 19}, {1844674407370955161u, 6000000000000000000u}};
const StoredConstantOf<3> TwoPow128 = {
    {3, 0, 0, 38}, {3402823669209384634u, 6337460743176821145u, 6000000000000000000u}};
const StoredConstantOf<3> TwoPowMinus64 = {
    {3, 0, 0, -20}, {5421010862427522170u, 372640043497085571u, 2890625000000000000u}};
const StoredConstantOf<5> TwoPowMinus128 = {
    {5, 0, 0, -39},
    {2938735877055718769u, 9218413430556141945u, 4666389193021880377u, 1879265696043148636u,
     8179321289062500000u}};

}  // namespace stored_constants

Limb LoadConstant(RealNumber* dest, const StoredConstant& constant) {
    const int64_t n = numberContext.realLimbs;
    const int64_t t = numberContext.topLimbDigits;
    const int64_t stored = constant.limbCount;
    const uint64_t sign = constant.sign != 0 ? 1 : 0;
    if (stored == 0) {
        RealSetZero(dest, sign);
        return 0;
    }
    const int64_t used = std::min(stored, n);
    const Limb* from = ConstantLimbs(constant);
    Limb* to = RealLimbs(dest);
    dest->header = MakeHeader(constant.exponent, sign);
    LimbsClear(to + used, n - used);
    if (t == DigitsPerLimb) {
        LimbsCopy(to, from, used);
        return stored > n ? from[n] : 0;
    }
    const Limb below = LimbsShiftRightDigits(to, from, used, DigitsPerLimb - t, 0);
    if (n > used) {
        to[used] = below;
        return 0;
    }
    return below;
}

void LoadLongPiQuarter(RealNumber* dest) {
    LoadConstant(dest, ConstPiQuarter);
    if (numberContext.precisionDigits > LongPiDigits / 2) {
        AddConstantMultiple(dest, ConstPiQuarterTail, 1);
    }
}

Limb LoadConstantMultiple(RealNumber* dest, const StoredConstant& constant, uint64_t k) {
    LoadConstant(dest, constant);
    return RealMulUint(dest, dest, k);
}

Limb AddConstantMultiple(RealNumber* sum, const StoredConstant& constant, int64_t k) {
    TALLYMERE_REQUIRE(k != 0 && RealIsWellFormed(sum));
    CoreScratchScope scratch;
    RealNumber* multiple = RealAt(scratch.Take(RealWords()));
    LoadConstantMultiple(multiple, constant, IntegerMagnitude(k));
    return RealAddRaw(sum, sum, multiple, k < 0);
}

void RealPi(RealNumber* dest) {
    RoundedResult(dest, PiGuardDigits,
                  [](RealNumber* pi) { LoadConstantMultiple(pi, ConstPiQuarter, 4); });
}

}  // namespace tallymere
