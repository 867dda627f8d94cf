#include "exact/rational_arithmetic.h"

#include <algorithm>
#include <numeric>

#include "core/contract.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_gcd.h"
#include "exact/big_uint_multiply.h"

namespace tallymere {

namespace {

// dest = |a + b| for magnitudes a and b with signs. Returns the sign of the sum. A sum of 0 has the
// sign of b if the signs differ.
uint64_t AddSigned(uint64_t* dest, const uint64_t* a, uint64_t signA, const uint64_t* b,
                   uint64_t signB) {
    if (signA == signB) {
        BigUintAdd(dest, a, b);
        return signA;
    }
    if (BigUintCompare(a, b) > 0) {
        BigUintSub(dest, a, b);
        return signA;
    }
    BigUintSub(dest, b, a);
    return signB;
}

// dest = a fraction whose parts have `limbs` limbs. Both parts are overwritten. They are reduced at
// the length of the longer one, because the greatest common divisor takes most of the time of an
// operation.
void StoreReduced(RationalNumber* dest, uint64_t sign, uint64_t* numerator, uint64_t* denominator,
                  int64_t limbs) {
    int64_t length;
    {
        UintWidthScope width(limbs);
        length = std::max({int64_t{1}, BigUintLength(numerator), BigUintLength(denominator)});
        InstallUintWidth(UintWidthForLimbs(length));
        ReduceFraction(numerator, denominator);
    }
    dest->sign = sign;
    BigUintResize(RationalNumerator(dest), numberContext.uintLimbs, numerator, length);
    BigUintResize(RationalDenominator(dest), numberContext.uintLimbs, denominator, length);
    RationalFailOnCode(dest);
}

// Divides a and *k by their greatest common divisor. Neither is 0.
void ReduceBySmall(uint64_t* a, uint64_t* k) {
    if (*k == 1 || BigUintEqualsSmall(a, 1)) {
        return;
    }
    uint64_t remainder = 0;
    BigUintDivideSmall(nullptr, &remainder, a, *k, 0);
    const uint64_t common = std::gcd(*k, remainder);
    if (common != 1) {
        BigUintDivideSmall(a, nullptr, a, common, 0);
        *k /= common;
    }
}

}  // namespace

void ReduceFraction(uint64_t* numerator, uint64_t* denominator) {
    TALLYMERE_REQUIRE(numerator != denominator && BigUintsAreSameOrApart(numerator, denominator));
    if (BigUintEqualsSmall(denominator, 1)) {
        return;
    }
    if (BigUintIsZero(numerator)) {
        BigUintFromUnsigned(denominator, 1);
        return;
    }
    if (BigUintIsZero(denominator)) {
        SetCalcError(CalcErrorExactDivisionByZero);
        return;
    }
    CoreScratchScope scratch;
    uint64_t* common = scratch.Take(numberContext.uintLimbs);
    BigUintGcdAllowingZero(common, numerator, denominator);
    if (!BigUintEqualsSmall(common, 1)) {
        BigUintDivideExact(numerator, numerator, common);
        BigUintDivideExact(denominator, denominator, common);
    }
}

void RationalAddSub(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b,
                    bool subtract) {
    TALLYMERE_REQUIRE(RationalHasValue(a) && RationalHasValue(b));
    TALLYMERE_REQUIRE(RationalsAreSameOrApart(dest, a) && RationalsAreSameOrApart(dest, b));
    const uint64_t signA = RationalSign(a);
    const uint64_t signB = RationalSign(b) ^ (subtract ? 1 : 0);
    CalcErrorScope codes;
    if (BigUintCompare(RationalDenominator(a), RationalDenominator(b)) == 0) {
        // The sum is not formed at a larger width, even if it would then reduce to one that fits.
        dest->sign = AddSigned(RationalNumerator(dest), RationalNumerator(a), signA,
                               RationalNumerator(b), signB);
        BigUintCopy(RationalDenominator(dest), RationalDenominator(a));
        ReduceFraction(RationalNumerator(dest), RationalDenominator(dest));
        RationalFailOnCode(dest);
        return;
    }
    CoreScratchScope scratch;
    const int64_t wide = 2 * numberContext.uintLimbs;
    uint64_t* denominator = scratch.Take(wide);
    uint64_t* left = scratch.Take(wide);
    uint64_t* right = scratch.Take(wide);
    BigUintMulFull(denominator, RationalDenominator(a), RationalDenominator(b));
    BigUintMulFull(left, RationalNumerator(a), RationalDenominator(b));
    BigUintMulFull(right, RationalNumerator(b), RationalDenominator(a));
    uint64_t sign;
    {
        UintWidthScope width(wide);
        sign = AddSigned(left, left, signA, right, signB);
    }
    StoreReduced(dest, sign, left, denominator, wide);
}

void RationalMulDiv(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b,
                    bool divide) {
    TALLYMERE_REQUIRE(RationalHasValue(a) && RationalHasValue(b));
    TALLYMERE_REQUIRE(RationalsAreSameOrApart(dest, a) && RationalsAreSameOrApart(dest, b));
    const uint64_t sign = RationalSign(a) ^ RationalSign(b);
    CalcErrorScope codes;
    if (divide && RationalIsZero(b)) {
        SetCalcError(CalcErrorExactDivisionByZero);
        RationalSetFailed(dest);
        return;
    }
    CoreScratchScope scratch;
    const int64_t wide = 2 * numberContext.uintLimbs;
    uint64_t* numerator = scratch.Take(wide);
    uint64_t* denominator = scratch.Take(wide);
    BigUintMulFull(numerator, RationalNumerator(a),
                   divide ? RationalDenominator(b) : RationalNumerator(b));
    BigUintMulFull(denominator, RationalDenominator(a),
                   divide ? RationalNumerator(b) : RationalDenominator(b));
    StoreReduced(dest, sign, numerator, denominator, wide);
}

void RationalScaleSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k, uint64_t d) {
    TALLYMERE_REQUIRE(RationalHasValue(a) && RationalsAreSameOrApart(dest, a));
    TALLYMERE_REQUIRE(std::gcd(k, d) == 1);
    CalcErrorScope codes;
    RationalCopy(dest, a);
    dest->sign = RationalSign(a);
    uint64_t* numerator = RationalNumerator(dest);
    uint64_t* denominator = RationalDenominator(dest);
    if (BigUintIsZero(numerator)) {
        d = 1;
    }
    if (d == 0) {
        SetCalcError(CalcErrorExactDivisionByZero);
    } else if (k == 0) {
        BigUintClear(numerator);
        BigUintFromUnsigned(denominator, 1);
    } else {
        ReduceBySmall(denominator, &k);
        if (d != 1) {
            ReduceBySmall(numerator, &d);
            BigUintMulSmall(denominator, denominator, d);
        }
        if (k != 1) {
            BigUintMulSmall(numerator, numerator, k);
        }
    }
    RationalFailOnCode(dest);
}

void RationalMulSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k) {
    RationalScaleSmall(dest, a, k, 1);
}

void RationalDivSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k) {
    RationalScaleSmall(dest, a, 1, k);
}

}  // namespace tallymere
