#include <algorithm>

#include "core/contract.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"
#include "exact/rational_arithmetic.h"

namespace tallymere {

namespace {

// Reads all of a and b before it writes, since either result may be an operand.
void DivideFractions(RationalNumber* quotient, RationalNumber* remainder, uint64_t sign,
                     const RationalNumber* a, const RationalNumber* b) {
    CoreScratchScope scratch;
    const int64_t limbs = numberContext.uintLimbs;
    const int64_t wide = 2 * limbs;
    uint64_t* dividend = scratch.Take(wide);
    uint64_t* divisor = scratch.Take(wide);
    uint64_t* denominator = scratch.Take(wide);
    BigUintMulFull(dividend, RationalNumerator(a), RationalDenominator(b));
    BigUintMulFull(divisor, RationalDenominator(a), RationalNumerator(b));
    BigUintMulFull(denominator, RationalDenominator(a), RationalDenominator(b));
    int64_t length;
    {
        UintWidthScope width(wide);
        length =
            std::max({BigUintLength(dividend), BigUintLength(divisor), BigUintLength(denominator)});
        InstallUintWidth(UintWidthForLimbs(length));
        BigUintDivide(quotient != nullptr ? divisor : nullptr,
                      remainder != nullptr ? dividend : nullptr, dividend, divisor);
        if (remainder != nullptr) {
            ReduceFraction(dividend, denominator);
        }
    }
    if (quotient != nullptr) {
        RationalFromUnsigned(quotient, 1, sign);
        BigUintResize(RationalNumerator(quotient), limbs, divisor, length);
    }
    if (remainder != nullptr) {
        remainder->sign = sign;
        BigUintResize(RationalNumerator(remainder), limbs, dividend, length);
        BigUintResize(RationalDenominator(remainder), limbs, denominator, length);
    }
}

}  // namespace

void RationalDivMod(RationalNumber* quotient, RationalNumber* remainder, const RationalNumber* a,
                    const RationalNumber* b) {
    TALLYMERE_REQUIRE(RationalHasValue(a) && RationalHasValue(b));
    TALLYMERE_REQUIRE(quotient == nullptr || quotient != remainder);
    TALLYMERE_REQUIRE(quotient == nullptr || remainder == nullptr ||
                      RationalsAreSameOrApart(quotient, remainder));
    TALLYMERE_REQUIRE(quotient == nullptr || (RationalsAreSameOrApart(quotient, a) &&
                                              RationalsAreSameOrApart(quotient, b)));
    TALLYMERE_REQUIRE(remainder == nullptr || (RationalsAreSameOrApart(remainder, a) &&
                                               RationalsAreSameOrApart(remainder, b)));
    CalcErrorScope codes;
    const uint64_t sign = RationalSign(a) ^ RationalSign(b);
    if (RationalIsZero(b)) {
        SetCalcError(CalcErrorExactDivisionByZero);
    } else if (RationalIsInteger(a) && RationalIsInteger(b)) {
        BigUintDivide(quotient != nullptr ? RationalNumerator(quotient) : nullptr,
                      remainder != nullptr ? RationalNumerator(remainder) : nullptr,
                      RationalNumerator(a), RationalNumerator(b));
        for (RationalNumber* result : {quotient, remainder}) {
            if (result != nullptr) {
                result->sign = sign;
                BigUintFromUnsigned(RationalDenominator(result), 1);
            }
        }
    } else {
        DivideFractions(quotient, remainder, sign, a, b);
    }
    for (RationalNumber* result : {quotient, remainder}) {
        if (result != nullptr) {
            RationalFailOnCode(result);
        }
    }
}

void RationalReciprocal(RationalNumber* dest, const RationalNumber* a) {
    TALLYMERE_REQUIRE(RationalHasValue(a) && RationalsAreSameOrApart(dest, a));
    CalcErrorScope codes;
    if (RationalIsZero(a)) {
        SetCalcError(CalcErrorExactDivisionByZero);
        RationalSetFailed(dest);
        return;
    }
    RationalCopy(dest, a);
    dest->sign = RationalSign(a);
    uint64_t* numerator = RationalNumerator(dest);
    std::swap_ranges(numerator, numerator + numberContext.uintLimbs, RationalDenominator(dest));
}

void RationalTrunc(RationalNumber* dest, const RationalNumber* a) {
    TALLYMERE_REQUIRE(RationalsAreSameOrApart(dest, a));
    CalcErrorScope codes;
    dest->sign = RationalSign(a);
    BigUintDivide(RationalNumerator(dest), nullptr, RationalNumerator(a), RationalDenominator(a));
    BigUintFromUnsigned(RationalDenominator(dest), 1);
    RationalFailOnCode(dest);
}

void RationalFraction(RationalNumber* dest, const RationalNumber* a) {
    TALLYMERE_REQUIRE(RationalsAreSameOrApart(dest, a));
    CalcErrorScope codes;
    dest->sign = RationalSign(a);
    BigUintDivide(nullptr, RationalNumerator(dest), RationalNumerator(a), RationalDenominator(a));
    BigUintCopy(RationalDenominator(dest), RationalDenominator(a));
    RationalFailOnCode(dest);
}

}  // namespace tallymere
