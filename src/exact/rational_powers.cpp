#include "exact/rational_powers.h"

#include "core/contract.h"
#include "core/limb.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_logarithms.h"
#include "exact/big_uint_powers.h"
#include "exact/big_uint_roots.h"
#include "exact/rational_arithmetic.h"

namespace tallymere {

namespace {

// A copy of an exponent or degree p / q. A copy, because the result may take the place of the
// number.
struct Exponent {
    uint64_t* p;
    uint64_t* q;
    bool negative;
    bool whole;  // q = 1
};

Exponent TakeExponent(CoreScratchScope& scratch, const RationalNumber* e) {
    const Exponent result = {scratch.Take(numberContext.uintLimbs),
                             scratch.Take(numberContext.uintLimbs), RationalSign(e) != 0,
                             RationalIsInteger(e)};
    BigUintCopy(result.p, RationalNumerator(e));
    BigUintCopy(result.q, RationalDenominator(e));
    return result;
}

bool IsNegative(const RationalNumber* x) {
    return RationalSign(x) != 0 && !RationalIsZero(x);
}

// q = q^p for both parts.
void RaiseParts(RationalNumber* q, const uint64_t* p) {
    BigUintPower(RationalNumerator(q), RationalNumerator(q), p);
    BigUintPower(RationalDenominator(q), RationalDenominator(q), p);
}

// The end of an operation: dest, or 1 / dest when `reciprocal` is true, is the result.
void Finish(RationalNumber* dest, bool reciprocal) {
    RationalFailOnCode(dest);
    if (reciprocal && numberContext.calcError == CalcErrorNone) {
        RationalReciprocal(dest, dest);
    }
}

// dest = 2^e or 10^e by the routine `power`.
void PowerOfSmall(RationalNumber* dest, const RationalNumber* e,
                  void (*power)(uint64_t*, const uint64_t*)) {
    TALLYMERE_REQUIRE(RationalHasValue(e) && RationalsAreSameOrApart(dest, e));
    CalcErrorScope codes;
    if (!RationalIsInteger(e)) {
        RationalSetFailed(dest);
        return;
    }
    const bool negative = RationalSign(e) != 0;
    dest->sign = 0;
    power(RationalNumerator(dest), RationalNumerator(e));
    BigUintFromUnsigned(RationalDenominator(dest), 1);
    Finish(dest, negative);
}

}  // namespace

void RationalPower(RationalNumber* dest, const RationalNumber* base, const RationalNumber* e) {
    TALLYMERE_REQUIRE(RationalHasValue(base) && RationalHasValue(e));
    TALLYMERE_REQUIRE(RationalsAreSameOrApart(dest, base) && RationalsAreSameOrApart(dest, e));
    CalcErrorScope codes;
    CoreScratchScope scratch;
    const Exponent exponent = TakeExponent(scratch, e);
    const uint64_t sign = RationalSign(base) & exponent.p[0];
    if (exponent.whole) {
        RationalCopy(dest, base);
    } else {
        // Kept on purpose: the radicand of both roots is q, the parts of the base are the degrees,
        // and the result is not reduced. So 1^(1/2) is 2/2. 4^(1/2) asks for the fourth root of 2
        // and is refused; callers turn to real numbers for such a power.
        if (IsNegative(base) ||
            !BigUintRoot(RationalNumerator(dest), RationalNumerator(base), exponent.q) ||
            !BigUintRoot(RationalDenominator(dest), RationalDenominator(base), exponent.q)) {
            RationalSetFailed(dest);
            return;
        }
    }
    dest->sign = sign;
    RaiseParts(dest, exponent.p);
    Finish(dest, exponent.negative);
}

void RationalPowerSmall(RationalNumber* dest, const RationalNumber* base, int64_t e) {
    TALLYMERE_REQUIRE(RationalHasValue(base) && RationalsAreSameOrApart(dest, base));
    CalcErrorScope codes;
    CoreScratchScope scratch;
    uint64_t* p = scratch.Take(numberContext.uintLimbs);
    BigUintFromUnsigned(p, IntegerMagnitude(e));
    RationalCopy(dest, base);
    dest->sign = RationalSign(base) & p[0];
    RaiseParts(dest, p);
    Finish(dest, e < 0);
}

void RationalPowerOfTwo(RationalNumber* dest, const RationalNumber* e) {
    PowerOfSmall(dest, e, BigUintPowerOfTwo);
}

void RationalPowerOfTen(RationalNumber* dest, const RationalNumber* e) {
    PowerOfSmall(dest, e, BigUintPowerOfTen);
}

void RationalSquareRoot(RationalNumber* dest, const RationalNumber* x) {
    TALLYMERE_REQUIRE(RationalHasValue(x) && RationalsAreSameOrApart(dest, x));
    CalcErrorScope codes;
    if (IsNegative(x) || !BigUintSquareRoot(RationalNumerator(dest), RationalNumerator(x)) ||
        !BigUintSquareRoot(RationalDenominator(dest), RationalDenominator(x))) {
        RationalSetFailed(dest);
        return;
    }
    dest->sign = RationalSign(x);
}

void RationalCubeRoot(RationalNumber* dest, const RationalNumber* x) {
    TALLYMERE_REQUIRE(RationalHasValue(x) && RationalsAreSameOrApart(dest, x));
    CalcErrorScope codes;
    if (!BigUintRootSmall(RationalNumerator(dest), 3, RationalNumerator(x)) ||
        !BigUintRootSmall(RationalDenominator(dest), 3, RationalDenominator(x))) {
        RationalSetFailed(dest);
        return;
    }
    dest->sign = RationalSign(x);
}

void RationalRoot(RationalNumber* dest, const RationalNumber* n, const RationalNumber* x) {
    TALLYMERE_REQUIRE(RationalHasValue(n) && RationalHasValue(x));
    TALLYMERE_REQUIRE(RationalsAreSameOrApart(dest, n) && RationalsAreSameOrApart(dest, x));
    CalcErrorScope codes;
    CoreScratchScope scratch;
    const Exponent degree = TakeExponent(scratch, n);
    const bool odd = degree.whole && (degree.p[0] & 1) != 0;
    if (RationalIsZero(n) || (IsNegative(x) && !odd) ||
        !BigUintRoot(RationalNumerator(dest), degree.p, RationalNumerator(x)) ||
        !BigUintRoot(RationalDenominator(dest), degree.p, RationalDenominator(x))) {
        RationalSetFailed(dest);
        return;
    }
    dest->sign = RationalSign(x);
    RaiseParts(dest, degree.q);
    Finish(dest, degree.negative);
}

void RationalLog(RationalNumber* dest, const RationalNumber* base, const RationalNumber* x) {
    TALLYMERE_REQUIRE(RationalHasValue(base) && RationalHasValue(x));
    TALLYMERE_REQUIRE(RationalsAreSameOrApart(dest, base) && RationalsAreSameOrApart(dest, x));
    CalcErrorScope codes;
    const bool whole = RationalIsInteger(x);
    const uint64_t* power = whole ? RationalNumerator(x) : RationalDenominator(x);
    const bool baseIsRight = RationalIsInteger(base) && RationalSign(base) == 0 &&
                             !BigUintIsZero(RationalNumerator(base)) &&
                             !BigUintEqualsSmall(RationalNumerator(base), 1);
    const bool argumentIsRight = RationalSign(x) == 0 && !RationalIsZero(x) &&
                                 (whole || BigUintEqualsSmall(RationalNumerator(x), 1));
    if (!baseIsRight || !argumentIsRight ||
        !BigUintLog(RationalNumerator(dest), RationalNumerator(base), power)) {
        RationalSetFailed(dest);
        return;
    }
    dest->sign = whole ? 0 : 1;
    BigUintFromUnsigned(RationalDenominator(dest), 1);
}

}  // namespace tallymere
