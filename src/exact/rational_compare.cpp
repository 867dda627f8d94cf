#include "core/contract.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"
#include "exact/rational_arithmetic.h"

namespace tallymere {

namespace {

// -1, 0 or 1 as a * b is below, equal to or above c * d.
int CompareProducts(const uint64_t* a, const uint64_t* b, const uint64_t* c, const uint64_t* d) {
    const bool leftIsZero = BigUintIsZero(a) || BigUintIsZero(b);
    const bool rightIsZero = BigUintIsZero(c) || BigUintIsZero(d);
    if (leftIsZero || rightIsZero) {
        return (rightIsZero ? 1 : 0) - (leftIsZero ? 1 : 0);
    }
    // A product has as many bits as its factors together, or one less.
    const int64_t left = BigUintBitLength(a) + BigUintBitLength(b);
    const int64_t right = BigUintBitLength(c) + BigUintBitLength(d);
    if (left > right + 1) {
        return 1;
    }
    if (right > left + 1) {
        return -1;
    }
    CoreScratchScope scratch;
    const int64_t wide = 2 * numberContext.uintLimbs;
    uint64_t* leftProduct = scratch.Take(wide);
    uint64_t* rightProduct = scratch.Take(wide);
    BigUintMulFull(leftProduct, a, b);
    BigUintMulFull(rightProduct, c, d);
    UintWidthScope width(wide);
    return BigUintCompare(leftProduct, rightProduct);
}

int CompareMagnitudes(const RationalNumber* a, const RationalNumber* b) {
    if (BigUintCompare(RationalDenominator(a), RationalDenominator(b)) == 0) {
        return BigUintCompare(RationalNumerator(a), RationalNumerator(b));
    }
    return CompareProducts(RationalNumerator(a), RationalDenominator(b), RationalNumerator(b),
                           RationalDenominator(a));
}

}  // namespace

int RationalCompare(const RationalNumber* a, const RationalNumber* b, bool ignoreSign) {
    TALLYMERE_REQUIRE(RationalHasValue(a) && RationalHasValue(b));
    const uint64_t signA = ignoreSign ? 0 : RationalSign(a);
    const uint64_t signB = ignoreSign ? 0 : RationalSign(b);
    if (signA == signB) {
        const int order = CompareMagnitudes(a, b);
        return signA == 0 ? order : -order;
    }
    if (RationalIsZero(a) && RationalIsZero(b)) {
        return 0;
    }
    return signA == 0 ? 1 : -1;
}

int RationalCompareSmall(const RationalNumber* a, uint64_t k, bool negative) {
    CoreScratchScope scratch;
    RationalNumber* b = RationalAt(scratch.Take(RationalWords()));
    RationalFromUnsigned(b, k, negative ? 1 : 0);
    return RationalCompare(a, b, false);
}

bool RationalToUnsigned(uint64_t* out, const RationalNumber* a, uint32_t flags) {
    TALLYMERE_REQUIRE(RationalHasValue(a));
    *out = 0;
    if ((flags & AllowFraction) == 0 && !RationalIsInteger(a)) {
        return false;
    }
    CoreScratchScope scratch;
    uint64_t* whole = scratch.Take(numberContext.uintLimbs);
    BigUintDivide(whole, nullptr, RationalNumerator(a), RationalDenominator(a));
    const bool negative = RationalSign(a) != 0 && !BigUintIsZero(whole);
    if (!BigUintFitsUnsigned(whole) || (negative && (flags & AllowNegative) == 0)) {
        return false;
    }
    *out = whole[0];
    return true;
}

bool RationalToSigned(int64_t* out, const RationalNumber* q) {
    const bool negative = RationalSign(q) != 0;
    const uint64_t limit = (uint64_t{1} << 63) - (negative ? 0 : 1);
    uint64_t magnitude = 0;
    const bool fits = RationalToUnsigned(&magnitude, q, AllowNegative) && magnitude <= limit;
    *out = fits ? static_cast<int64_t>(negative ? 0 - magnitude : magnitude) : 0;
    return fits;
}

}  // namespace tallymere
