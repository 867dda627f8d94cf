#include "core/real_compare.h"

#include "core/contract.h"
#include "core/limb_tools.h"

namespace tallymere {

namespace {

int SignedResult(uint64_t sign) {
    return sign != 0 ? -1 : 1;
}

// The result for a NaN or infinite x against any integer.
int CompareSpecialWithInteger(const RealNumber* x, uint64_t sign) {
    return RealIsNaN(x) ? 1 : SignedResult(sign);
}

// -1, 0 or 1 as the magnitude of a finite non-zero x is below, equal to or above the number with
// the digits of k > 0 as its mantissa and the exponent e. Only the first `kept` digits of k count.
int CompareMagnitude(const RealNumber* x, uint64_t k, int64_t e, int64_t kept) {
    if (RealExponent(x) != e) {
        return RealExponent(x) < e ? -1 : 1;
    }
    const int64_t n = numberContext.realLimbs;
    const int64_t t = numberContext.topLimbDigits;
    int64_t digits = DigitCount(k);
    if (digits > kept) {
        k = DivideByPowerOfTen(k, digits - kept).quotient;
        digits = kept;
    }
    Limb first;
    Limb second = 0;
    if (digits <= t) {
        first = k * PowerOfTen(t - digits);
    } else {
        const LimbQuotient parts = DivideByPowerOfTen(k, digits - t);
        first = parts.quotient;
        second = parts.remainder * PowerOfTen(DigitsPerLimb - (digits - t));
    }
    const Limb* limbs = RealLimbs(x);
    if (limbs[0] != first) {
        return limbs[0] < first ? -1 : 1;
    }
    const Limb next = n > 1 ? limbs[1] : 0;
    if (next != second) {
        return next < second ? -1 : 1;
    }
    return n > 2 && !LimbsAreZero(limbs + 2, n - 2) ? 1 : 0;
}

// Compares x, taken with `sign`, with the number of sign `integerSign` that has the first `kept`
// digits of k as its mantissa and e as its exponent.
int CompareWithInteger(const RealNumber* x, uint64_t sign, uint64_t k, uint64_t integerSign,
                       int64_t e, int64_t kept) {
    if (RealIsSpecial(x) && !RealIsZero(x)) {
        return CompareSpecialWithInteger(x, sign);
    }
    if (k == 0) {
        return RealIsZero(x) ? 0 : SignedResult(sign);
    }
    if (RealIsZero(x)) {
        return -SignedResult(integerSign);
    }
    if (sign != integerSign) {
        return SignedResult(sign);
    }
    return CompareMagnitude(x, k, e, kept) * SignedResult(sign);
}

}  // namespace

int RealCompare(const RealNumber* a, const RealNumber* b, bool ignoreSign) {
    TALLYMERE_REQUIRE(RealIsWellFormed(a) && RealIsWellFormed(b));
    if (RealIsNaN(a) || RealIsNaN(b)) {
        return 1;
    }
    const uint64_t signA = ignoreSign ? 0 : RealSign(a);
    const uint64_t signB = ignoreSign ? 0 : RealSign(b);
    if (RealIsZero(a)) {
        return RealIsZero(b) ? 0 : -SignedResult(signB);
    }
    if (RealIsZero(b) || signA != signB) {
        return SignedResult(signA);
    }
    if (RealIsInfinite(a)) {
        return RealIsInfinite(b) ? 0 : SignedResult(signA);
    }
    if (RealIsInfinite(b)) {
        return -SignedResult(signB);
    }
    int magnitude;
    if (RealExponent(a) != RealExponent(b)) {
        magnitude = RealExponent(a) < RealExponent(b) ? -1 : 1;
    } else {
        magnitude = LimbsCompare(RealLimbs(a), RealLimbs(b), numberContext.realLimbs);
    }
    return magnitude * SignedResult(signA);
}

int RealCompareInt(const RealNumber* x, int64_t k) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    const uint64_t sign = k < 0 ? 1 : 0;
    const uint64_t magnitude = IntegerMagnitude(k);
    return CompareWithInteger(x, RealSign(x), magnitude, sign, DigitCount(magnitude) - 1,
                              numberContext.topLimbDigits);
}

int RealCompareUint(const RealNumber* x, uint64_t k, bool ignoreSign) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    return CompareWithInteger(x, ignoreSign ? 0 : RealSign(x), k, 0, DigitCount(k) - 1,
                              DigitCount(k));
}

int RealCompareScaled(const RealNumber* x, uint64_t k, int64_t e, bool ignoreSign) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    if (k >= PowerOfTen(18)) {
        SetCalcError(CalcErrorUndefined);
        return 1;
    }
    return CompareWithInteger(x, ignoreSign ? 0 : RealSign(x), k, 0, e, DigitCount(k));
}

}  // namespace tallymere
