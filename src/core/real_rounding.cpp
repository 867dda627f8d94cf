#include "core/real_rounding.h"

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/real_compare.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// Adds `amount`, at most LimbBase less the limb, to one limb of a finite number and carries
// upwards. A carry out of the leading digit raises the exponent, which may make the number
// infinite.
void AddToLimb(RealNumber* x, int64_t index, Limb amount) {
    Limb* limbs = RealLimbs(x);
    while (index > 0) {
        limbs[index] += amount;
        if (limbs[index] < LimbBase) {
            return;
        }
        limbs[index] = 0;
        amount = 1;
        index--;
    }
    const int64_t t = numberContext.topLimbDigits;
    limbs[0] += amount;
    if (limbs[0] >= PowerOfTen(t)) {
        limbs[0] = PowerOfTen(t - 1);
        RealSetExponent(x, RealExponent(x) + 1);
    }
}

// The place of a mantissa digit.
struct DigitPlace {
    int64_t limb;
    int64_t below;  // digits of the same limb that stand behind it, 0 to 18
};

// Finds digit `index`, counted from 0 for the leading one, 0 <= index < p.
DigitPlace LocateDigit(int64_t index) {
    const int64_t fromFullLimb = index + DigitsPerLimb - numberContext.topLimbDigits;
    return {fromFullLimb / DigitsPerLimb, DigitsPerLimb - 1 - fromFullLimb % DigitsPerLimb};
}

// Clears the last `digits` digits of a limb and all limbs behind it; returns what the limb lost.
Limb CutLimb(Limb* limbs, int64_t index, int64_t digits) {
    const Limb lost = DivideByPowerOfTen(limbs[index], digits).remainder;
    limbs[index] -= lost;
    LimbsClear(limbs + index + 1, numberContext.realLimbs - index - 1);
    return lost;
}

// Exponents from 0 to this one leave digits on both sides of the decimal point.
int64_t LastFractionExponent() {
    return numberContext.precisionDigits - 2;
}

}  // namespace

void RealRound(RealNumber* x, Limb guard) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x) && guard < LimbBase);
    if (numberContext.noRounding != 0 || RealIsSpecial(x)) {
        return;
    }
    // Every other guard limb rounds up, so only the rare carry is worth a branch.
    const int64_t last = numberContext.realLimbs - 1;
    Limb* limbs = RealLimbs(x);
    const Limb limit = last == 0 ? PowerOfTen(numberContext.topLimbDigits) : LimbBase;
    const Limb unit = guard >= HalfGuard ? 1 : 0;
    if (limbs[last] + unit < limit) {
        limbs[last] += unit;
    } else {
        AddToLimb(x, last, unit);
    }
}

void RealRoundDigits(RealNumber* dest, const RealNumber* x, int64_t d) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    TALLYMERE_REQUIRE(!RealIsSpecial(x) && d >= 1);
    RealCopy(dest, x);
    if (d >= numberContext.precisionDigits) {
        return;
    }
    // The limb of the first digit to go decides: what it loses is half a unit or not whatever
    // stands in later limbs. Where all 19 digits of it go the unit is LimbBase, which
    // carries into the limb above.
    const DigitPlace cut = LocateDigit(d);
    const int64_t dropped = cut.below + 1;
    const Limb unit = PowerOfTen(dropped);
    Limb* limbs = RealLimbs(dest);
    const Limb lost = CutLimb(limbs, cut.limb, dropped);
    if (lost < unit / 2 || numberContext.noRounding != 0) {
        return;
    }
    AddToLimb(dest, cut.limb, unit);
}

void RealRoundDigitsAny(RealNumber* dest, const RealNumber* x, int64_t d) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (d < 1) {
        RealSetNaN(dest, CalcErrorUndefined);
    } else if (RealIsSpecial(x)) {
        RealCopy(dest, x);
    } else {
        RealRoundDigits(dest, x, d);
    }
}

bool RealIsInteger(const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    if (RealIsSpecial(x)) {
        return RealIsZero(x);
    }
    const int64_t exponent = RealExponent(x);
    if (exponent < 0) {
        return false;
    }
    if (exponent > LastFractionExponent()) {
        return true;
    }
    const DigitPlace units = LocateDigit(exponent);
    const Limb* limbs = RealLimbs(x);
    return DivideByPowerOfTen(limbs[units.limb], units.below).remainder == 0 &&
           LimbsAreZero(limbs + units.limb + 1, numberContext.realLimbs - units.limb - 1);
}

bool RealIsEven(const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    if (RealIsSpecial(x)) {
        return RealIsZero(x);
    }
    const int64_t exponent = RealExponent(x);
    if (exponent < 0 || exponent >= numberContext.precisionDigits) {
        return true;
    }
    const DigitPlace units = LocateDigit(exponent);
    return DivideByPowerOfTen(RealLimbs(x)[units.limb], units.below).quotient % 2 == 0;
}

void RealIntegerPart(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (!RealIsSpecial(x) && RealExponent(x) < 0) {
        RealSetZero(dest, RealSign(x));
        return;
    }
    RealCopy(dest, x);
    if (RealIsSpecial(x) || RealExponent(x) > LastFractionExponent()) {
        return;
    }
    const DigitPlace units = LocateDigit(RealExponent(x));
    CutLimb(RealLimbs(dest), units.limb, units.below);
}

void RealRoundToInteger(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    const uint64_t sign = RealSign(x);
    if (RealIsSpecial(x)) {
        RealCopy(dest, x);
    } else if (RealExponent(x) >= 0) {
        RealRoundDigits(dest, x, RealExponent(x) + 1);
    } else if (RealCompareScaled(x, 5, -1, true) >= 0) {
        RealSetOne(dest);
        RealSetSign(dest, sign);
    } else {
        RealSetZero(dest, sign);
    }
}

void RealFractionPart(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
        return;
    }
    const int64_t exponent = RealExponent(x);
    if (RealIsSpecial(x) || exponent > LastFractionExponent()) {
        RealSetZero(dest, RealSign(x));
        return;
    }
    if (exponent < 0) {
        RealCopy(dest, x);
        return;
    }
    const int64_t n = numberContext.realLimbs;
    const uint64_t sign = RealSign(x);
    const DigitPlace units = LocateDigit(exponent);
    CoreScratchScope scratch;
    Limb* fraction = scratch.Take(n);
    LimbsCopy(fraction, RealLimbs(x), n);
    LimbsClear(fraction, units.limb);
    fraction[units.limb] = DivideByPowerOfTen(fraction[units.limb], units.below).remainder;
    int64_t shift = 0;
    LimbsNormalise(RealLimbs(dest), fraction, n, &shift, 0);
    if (RealLimbs(dest)[0] == 0) {
        RealSetZero(dest, sign);
        return;
    }
    RealSetExponentAndSign(dest, exponent - shift, sign);
}

}  // namespace tallymere
