#include "exact/rational_combinatorics.h"

#include "core/contract.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_combinatorics.h"
#include "exact/big_uint_gcd.h"
#include "exact/rational_arithmetic.h"

namespace tallymere {

namespace {

bool IsNaturalOrZero(const RationalNumber* x) {
    return RationalIsInteger(x) && (RationalSign(x) == 0 || RationalIsZero(x));
}

bool IsPositiveInteger(const RationalNumber* x) {
    return RationalIsInteger(x) && RationalSign(x) == 0 && !RationalIsZero(x);
}

// dest = dest * factor / i; changes `factor`. In a long product most factors have parts of one
// limb, which is faster.
void MultiplyStep(RationalNumber* dest, RationalNumber* factor, uint64_t i) {
    RationalDivSmall(factor, factor, i);
    const uint64_t* numerator = RationalNumerator(factor);
    const uint64_t* denominator = RationalDenominator(factor);
    if (BigUintFitsUnsigned(numerator) && BigUintFitsUnsigned(denominator)) {
        RationalScaleSmall(dest, dest, numerator[0], denominator[0]);
        dest->sign ^= RationalSign(factor);
    } else {
        RationalMulDiv(dest, dest, factor, false);
    }
}

// dest = (n - count + 1) ... (n - 1) n, and divided by count! unless `falling` is true. Ends early
// when a code is noted.
void MultiplySteps(RationalNumber* dest, const RationalNumber* n, uint64_t count, bool falling) {
    CoreScratchScope scratch;
    RationalNumber* position = RationalAt(scratch.Take(RationalWords()));
    RationalNumber* factor = RationalAt(scratch.Take(RationalWords()));
    RationalNumber* one = RationalAt(scratch.Take(RationalWords()));
    RationalFromUnsigned(one, 1, 0);
    RationalFromUnsigned(factor, count, 0);
    RationalAddSub(position, n, factor, true);
    RationalFromUnsigned(dest, 1, 0);
    for (uint64_t i = 1; i <= count && numberContext.calcError == CalcErrorNone; i++) {
        if (StopRequested()) {
            SetCalcError(CalcErrorCancelled);
            return;
        }
        RationalAddSub(position, position, one, false);
        RationalCopy(factor, position);
        MultiplyStep(dest, factor, falling ? 1 : i);
    }
}

// dest = combine(a, b).
void CombinePositiveIntegers(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b,
                             void (*combine)(uint64_t*, const uint64_t*, const uint64_t*)) {
    TALLYMERE_REQUIRE(RationalHasValue(a) && RationalHasValue(b));
    TALLYMERE_REQUIRE(RationalsAreSameOrApart(dest, a) && RationalsAreSameOrApart(dest, b));
    CalcErrorScope codes;
    if (!IsPositiveInteger(a) || !IsPositiveInteger(b)) {
        RationalSetFailed(dest);
        return;
    }
    dest->sign = 0;
    combine(RationalNumerator(dest), RationalNumerator(a), RationalNumerator(b));
    BigUintFromUnsigned(RationalDenominator(dest), 1);
    RationalFailOnCode(dest);
}

}  // namespace

void RationalFactorial(RationalNumber* dest, const RationalNumber* n) {
    TALLYMERE_REQUIRE(RationalHasValue(n) && RationalsAreSameOrApart(dest, n));
    CalcErrorScope codes;
    // A zero with a sign is refused too.
    if (!RationalIsInteger(n) || RationalSign(n) != 0) {
        RationalSetFailed(dest);
        return;
    }
    dest->sign = 0;
    BigUintFactorial(RationalNumerator(dest), RationalNumerator(n));
    BigUintFromUnsigned(RationalDenominator(dest), 1);
    RationalFailOnCode(dest);
}

void RationalBinomial(RationalNumber* dest, const RationalNumber* n, const RationalNumber* k,
                      bool falling) {
    TALLYMERE_REQUIRE(RationalHasValue(n) && RationalHasValue(k));
    TALLYMERE_REQUIRE(RationalsAreSameOrApart(dest, n) && RationalsAreSameOrApart(dest, k));
    CalcErrorScope codes;
    uint64_t count = 0;
    if (IsNaturalOrZero(n) && IsNaturalOrZero(k)) {
        dest->sign = 0;
        BigUintBinomial(RationalNumerator(dest), RationalNumerator(n), RationalNumerator(k),
                        falling);
        BigUintFromUnsigned(RationalDenominator(dest), 1);
    } else if (RationalToUnsigned(&count, k, IntegerExact)) {
        MultiplySteps(dest, n, count, falling);
    } else {
        SetCalcError(CalcErrorUndefined);
    }
    RationalFailOnCode(dest);
}

void RationalGcd(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b) {
    CombinePositiveIntegers(dest, a, b, BigUintGcd);
}

void RationalLcm(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b) {
    CombinePositiveIntegers(dest, a, b, BigUintLcm);
}

}  // namespace tallymere
