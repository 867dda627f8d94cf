#include "exact/rational_number.h"

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_gcd.h"

namespace tallymere {

void RationalSetZero(RationalNumber* dest) {
    RationalFromUnsigned(dest, 0, 0);
}

void RationalSetFailed(RationalNumber* dest) {
    RationalSetZero(dest);
    SetCalcError(CalcErrorUndefined);
}

void RationalFailOnCode(RationalNumber* dest) {
    if (numberContext.calcError != CalcErrorNone) {
        RationalSetFailed(dest);
    }
}

void RationalFromUnsigned(RationalNumber* dest, uint64_t k, uint64_t sign) {
    TALLYMERE_REQUIRE(sign <= 1);
    dest->sign = sign;
    BigUintFromUnsigned(RationalNumerator(dest), k);
    BigUintFromUnsigned(RationalDenominator(dest), 1);
}

void RationalCopy(RationalNumber* dest, const RationalNumber* src) {
    TALLYMERE_REQUIRE(RationalsAreSameOrApart(dest, src));
    dest->sign = src->sign;
    BigUintCopy(RationalNumerator(dest), RationalNumerator(src));
    BigUintCopy(RationalDenominator(dest), RationalDenominator(src));
}

void RationalNegate(RationalNumber* q) {
    q->sign ^= 1;
}

bool RationalIsZero(const RationalNumber* q) {
    return BigUintIsZero(RationalNumerator(q));
}

bool RationalIsWellFormed(const RationalNumber* q) {
    return q->sign <= 1 && RationalHasValue(q);
}

bool RationalHasValue(const RationalNumber* q) {
    return !BigUintIsZero(RationalDenominator(q));
}

bool RationalsAreSameOrApart(const RationalNumber* a, const RationalNumber* b) {
    return SameOrApart(&a->sign, &b->sign, RationalWords());
}

bool RationalIsInLowestTerms(const RationalNumber* q) {
    CoreScratchScope scratch;
    uint64_t* common = scratch.Take(numberContext.uintLimbs);
    BigUintGcdAllowingZero(common, RationalNumerator(q), RationalDenominator(q));
    return BigUintEqualsSmall(common, 1);
}

bool RationalIsInteger(const RationalNumber* q) {
    return BigUintEqualsSmall(RationalDenominator(q), 1);
}

}  // namespace tallymere
