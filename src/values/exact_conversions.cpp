#include "values/exact_conversions.h"

#include <algorithm>

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/real_divide.h"
#include "core/real_layout.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/limb_division.h"
#include "exact/radix_conversion.h"

namespace tallymere {

namespace {

// dest = the integer part of a finite |x| >= 1. False when it does not fit.
bool IntegerFromLimbs(GrowingInteger& dest, const RealNumber* x) {
    const int64_t n = numberContext.realLimbs;
    const int64_t p = numberContext.precisionDigits;
    const int64_t exponent = RealExponent(x);
    CoreScratchScope scratch;
    Limb* integer = scratch.Take(n);
    LimbsShiftRightFar(integer, RealLimbs(x), n, std::max<int64_t>(p - exponent - 1, 0));
    const int64_t places = std::max<int64_t>(exponent - p + 1, 0);
    return AppendDecimalLimbs(dest, integer, n) && MultiplyByPowerOfTen(dest, places);
}

// Puts a precision and a width in force until the end of the scope.
class ConversionScope {
public:
    // Out of range: notes CalcErrorBadParameter and changes nothing.
    ConversionScope(int64_t digits, int64_t limbs)
        : valid_(IsPrecision(digits) && limbs >= 1 && limbs <= MaxUintLimbs) {
        if (valid_) {
            InstallRealLayout(LayoutForDigits(digits));
            InstallUintWidth(UintWidthForLimbs(limbs));
        } else {
            SetCalcError(CalcErrorBadParameter);
        }
    }
    ConversionScope(const ConversionScope&) = delete;
    ConversionScope& operator=(const ConversionScope&) = delete;

    bool Valid() const { return valid_; }

private:
    RealLayoutScope layout_;
    UintWidthScope width_;
    bool valid_;
};

}  // namespace

Limb RealFromBigUint(RealNumber* dest, const uint64_t* words, int64_t m) {
    TALLYMERE_REQUIRE(m >= 0);
    TALLYMERE_REQUIRE(UintLimbsAreApart(&dest->header, RealWords(), words, m));
    while (m > 0 && words[m - 1] == 0) {
        m--;
    }
    if (m == 0) {
        RealSetZero(dest, 0);
        return 0;
    }
    const int64_t n = numberContext.realLimbs;
    CoreScratchScope scratch;
    const int64_t area = MaxDecimalLimbs(m);
    Limb* end = scratch.Take(area) + area;
    const int64_t count = WordsToDecimalLimbs(end, words, m);
    const Limb* first = end - count;
    const int64_t used = std::min(count, n);
    Limb* to = RealLimbs(dest);
    LimbsCopy(to, first, used);
    LimbsClear(to + used, n - used);
    const Limb below = count > n ? first[n] : 0;
    const int64_t digits = DigitCount(first[0]);
    const int64_t shift = numberContext.topLimbDigits - digits;
    const Limb guard = shift >= 0 ? LimbsShiftLeftDigits(to, to, n, shift, below)
                                  : LimbsShiftRightDigits(to, to, n, -shift, below);
    RealSetExponentAndSign(dest, DigitsPerLimb * (count - 1) + digits - 1, 0);
    return guard;
}

void BigUintFromReal(uint64_t* dest, int64_t m, const RealNumber* x) {
    TALLYMERE_REQUIRE(m >= 0);
    TALLYMERE_REQUIRE(UintLimbsAreApart(dest, m, &x->header, RealWords()));
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    std::fill_n(dest, m, 0);
    if (RealIsNaN(x)) {
        SetCalcError(CalcErrorUndefined);
        return;
    }
    if (RealIsZero(x) || (!RealIsInfinite(x) && RealExponent(x) < 0)) {
        return;
    }
    GrowingInteger integer = {dest, m, 0};
    if (RealIsInfinite(x) || !IntegerFromLimbs(integer, x)) {
        std::fill_n(dest, m, 0);
        SetCalcError(CalcErrorOverflow);
    }
}

// Error of the quotient: let v = 10^-(p + guard digits). Numerator and denominator are cut off by
// less than 10 v, relatively. RealDivRaw takes the reciprocal of the denominator, which is less
// than 20.2 v under its value or less than 10.2 v over it. The product is cut off by less than 10 v
// once more. Together the quotient is less than 41 v under the true one, or less than 21 v over it.
void RealFromRational(RealNumber* dest, const RationalNumber* q) {
    TALLYMERE_REQUIRE(UintLimbsAreApart(&dest->header, RealWords(), &q->sign, RationalWords()));
    const int64_t oldLimbs = numberContext.realLimbs;
    const int64_t width = numberContext.uintLimbs;
    const RealLayout wide = WidenedLayout(RationalQuotientGuardDigits);
    const int64_t increase = wide.limbs - oldLimbs;
    CoreScratchScope scratch;
    RealNumber* quotient = RealAt(scratch.Take(wide.limbs + 1));
    {
        RealLayoutScope layout;
        InstallRealLayout(wide);
        RealFromBigUint(quotient, RationalNumerator(q), width);
        RealSetSign(quotient, RationalSign(q));
        const uint64_t* denominator = RationalDenominator(q);
        if (!BigUintFitsUnsigned(denominator)) {
            RealNumber* divisor = RealAt(scratch.Take(wide.limbs + 1));
            RealFromBigUint(divisor, denominator, width);
            RealDivRaw(quotient, quotient, divisor);
        } else if (denominator[0] != 1) {
            RealDivUint(quotient, quotient, denominator[0]);
        }
    }
    RealRound(dest, RealNarrow(dest, quotient, RationalQuotientGuardDigits, oldLimbs, increase));
}

void ConvertRealToUint(uint64_t* dest, int64_t limbs, const RealNumber* x, int64_t digits) {
    CalcErrorScope codes;
    ConversionScope scope(digits, limbs);
    if (!scope.Valid()) {
        return;
    }
    TALLYMERE_REQUIRE(UintLimbsAreApart(dest, limbs, &x->header, RealWords()));
    const bool isNatural = RealIsZero(x) || (RealIsInteger(x) && RealSign(x) == 0);
    if (!isNatural) {
        BigUintSetFailed(dest, CalcErrorUndefined);
        return;
    }
    BigUintFromReal(dest, limbs, x);
}

void ConvertRealToRational(RationalNumber* dest, int64_t limbs, const RealNumber* x,
                           int64_t digits) {
    CalcErrorScope codes;
    ConversionScope scope(digits, limbs);
    if (!scope.Valid()) {
        return;
    }
    TALLYMERE_REQUIRE(UintLimbsAreApart(&dest->sign, RationalWords(), &x->header, RealWords()));
    if (!RealIsInteger(x)) {
        RationalSetFailed(dest);
        return;
    }
    dest->sign = RealSign(x);
    BigUintFromReal(RationalNumerator(dest), limbs, x);
    BigUintFromUnsigned(RationalDenominator(dest), 1);
    RationalFailOnCode(dest);
}

void ConvertRationalToReal(RealNumber* dest, int64_t digits, const RationalNumber* q,
                           int64_t limbs) {
    ConversionScope scope(digits, limbs);
    if (scope.Valid()) {
        RealFromRational(dest, q);
    }
}

void ConvertRationalToComplex(ComplexNumber* dest, int64_t digits, const RationalNumber* q,
                              int64_t limbs) {
    ConversionScope scope(digits, limbs);
    if (scope.Valid()) {
        TALLYMERE_REQUIRE(
            UintLimbsAreApart(&dest->realHeader, ComplexWords(), &q->sign, RationalWords()));
        RealFromRational(RealPart(dest), q);
        ComplexClearImaginaryPart(dest);
    }
}

}  // namespace tallymere
