#include "core/real_div_mod.h"

#include <algorithm>

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/real_multiply.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// The long division at work, limb by limb, on mantissas that are moved to a full first limb.
// Between two passes remainder[0] is 0 and the n limbs behind it hold a number below the divisor;
// only the first dividend may reach up to ten times the divisor.
struct LongDivision {
    int64_t limbs;         // n
    int64_t divisorLimbs;  // up to the divisor's last limb that is not 0
    Limb* divisor;         // n limbs, and a 0 behind them
    Limb* remainder;       // n + 1 limbs, and a 0 behind them
};

LongDivision StartDivision(CoreScratchScope& scratch, const Limb* a, const Limb* b) {
    const int64_t n = numberContext.realLimbs;
    LongDivision division = {n, n, scratch.Take(n + 1), scratch.Take(n + 2)};
    LimbsAlign(division.divisor, b, n);
    while (division.divisor[division.divisorLimbs - 1] == 0) {
        division.divisorLimbs--;
    }
    LimbsAlign(division.remainder + 1, a, n);
    division.divisor[n] = 0;
    division.remainder[0] = 0;
    division.remainder[n + 1] = 0;
    return division;
}

// remainder = remainder * 10^k, 0 <= k <= 19, up to where the quotient is a limb.
void MoveUp(const LongDivision& division, int64_t k) {
    Limb* remainder = division.remainder;
    if (k == DigitsPerLimb) {
        LimbsCopy(remainder, remainder + 1, division.limbs);
        remainder[division.limbs] = 0;
        return;
    }
    const Limb power = PowerOfTen(k);
    Limb carry = 0;
    for (int64_t i = division.limbs; i > 0; i--) {
        const LimbQuotient step = LimbStep(remainder[i], power, carry, 0);
        remainder[i] = step.remainder;
        carry = step.quotient;
    }
    remainder[0] = carry;
}

// The quotient of the first three of the limbs by the first two of the divisor: the quotient limb
// or 1 more. It cannot be less; and as the divisor is at least B^n / 10, leaving out its later
// limbs raises a quotient below B by less than 1. Method: Knuth, The Art of Computer Programming,
// volume 2, 4.3.1, algorithm D, step D3, whose correction runs up to about ten times here because
// the first limb is only sure to be B / 10 or more.
Limb EstimateQuotient(const LongDivision& division, const Limb* r) {
    const Limb* d = division.divisor;
    const Wide top = wide::Add(wide::Multiply(r[0], LimbBase), {0, r[1]});
    Limb quotient = r[0] >= d[0] ? LimbBase - 1 : wide::Divide(top, d[0]);
    Wide rest = wide::Subtract(top, wide::Multiply(quotient, d[0]));
    // While quotient * d[1] > rest * B + r[2]; a rest of B or more is beyond every such product.
    while (rest.high == 0 && rest.low < LimbBase &&
           !AtLeast(wide::Add(wide::Multiply(rest.low, LimbBase), {0, r[2]}),
                    wide::Multiply(quotient, d[1]))) {
        quotient--;
        rest = wide::Add(rest, {0, d[0]});
    }
    return quotient;
}

// limbs = limbs mod the divisor, for a number below B times the divisor, in one limb more than that
// has; the first becomes 0. Where that has one limb, a 0 is behind the number. Returns the
// quotient.
Limb ReduceLimbs(const LongDivision& division, Limb* limbs) {
    const int64_t length = division.divisorLimbs;
    const Limb quotient = EstimateQuotient(division, limbs);
    if (quotient == 0) {
        return 0;
    }
    Limb carry = 0;
    Limb borrow = 0;
    for (int64_t i = length - 1; i >= 0; i--) {
        const LimbQuotient step = LimbStep(division.divisor[i], quotient, carry, 0);
        limbs[i + 1] = SubtractLimbs(limbs[i + 1], step.remainder, borrow);
        carry = step.quotient;
    }
    const bool tooLarge = limbs[0] < carry + borrow;
    limbs[0] = 0;
    if (!tooLarge) {
        return quotient;
    }
    LimbsAdd(limbs + 1, limbs + 1, division.divisor, length);
    return quotient - 1;
}

// One pass: the next k digits of the quotient as an integer.
Limb DivideOnce(const LongDivision& division, int64_t k) {
    MoveUp(division, k);
    return ReduceLimbs(division, division.remainder);
}

// x = x * y mod the divisor, in as many limbs as that has. `product` has room for twice as many and
// one more.
void MultiplyModulo(const LongDivision& division, Limb* x, const Limb* y, Limb* product) {
    const int64_t length = division.divisorLimbs;
    LimbsClear(product, 2 * length + 1);
    for (int64_t i = length - 1; i >= 0; i--) {
        Limb carry = 0;
        for (int64_t j = length - 1; j >= 0; j--) {
            Limb& place = product[i + j + 1];
            const LimbQuotient step = LimbStep(x[i], y[j], carry, place);
            place = step.remainder;
            carry = step.quotient;
        }
        product[i] = carry;
    }
    // The first half is below the divisor, since both factors are.
    for (int64_t i = 0; i < length; i++) {
        ReduceLimbs(division, product + i);
    }
    LimbsCopy(x, product + length, length);
}

// How many of so many passes, whose quotients nobody wants, are to be made as one: all or none. A
// product takes about as long as two passes for each limb of the divisor.
int64_t PassesByPower(const LongDivision& division, int64_t passes) {
    if (passes <= 2 * division.divisorLimbs) {
        return 0;
    }
    const int64_t products = HighestBit(static_cast<uint64_t>(passes)) + 1;
    return passes > 2 * division.divisorLimbs * products ? passes : 0;
}

// The remainder after so many passes: remainder * B^passes mod the divisor, by squaring from the
// highest bit of `passes` on. The limbs of the remainder behind those of the divisor are 0. Polls
// the stop request once for each bit; false after a stop.
bool SkipPasses(const LongDivision& division, int64_t passes) {
    if (passes == 0) {
        return true;
    }
    const int64_t length = division.divisorLimbs;
    CoreScratchScope scratch;
    Limb* product = scratch.Take(2 * length + 1);
    // With the 0 behind it, it is B times as large.
    Limb* power = scratch.Take(length + 2);
    LimbsClear(power, length + 2);
    power[length - 1] = 1;
    for (int bit = HighestBit(static_cast<uint64_t>(passes)); bit >= 0; bit--) {
        if (StopRequested()) {
            return false;
        }
        MultiplyModulo(division, power, power, product);
        if ((passes >> bit & 1) != 0) {
            ReduceLimbs(division, power);
            LimbsCopy(power, power + 1, length + 1);
        }
    }
    MultiplyModulo(division, division.remainder + 1, power, product);
    return true;
}

// Either result may be unwanted.
void SetBothNaN(RealNumber* quotient, RealNumber* remainder) {
    if (quotient != nullptr) {
        RealSetNaN(quotient);
    }
    if (remainder != nullptr) {
        RealSetNaN(remainder);
    }
}

void DivModSpecial(RealNumber* quotient, RealNumber* remainder, const RealNumber* a,
                   const RealNumber* b) {
    const uint64_t sign = RealSign(a) ^ RealSign(b);
    if (RealIsZero(a) && !RealIsSpecial(b)) {
        if (quotient != nullptr) {
            RealSetZero(quotient, sign);
        }
        if (remainder != nullptr) {
            RealSetZero(remainder, sign);
        }
        return;
    }
    if (!RealIsNaN(a) && !RealIsNaN(b)) {
        SetCalcError(CalcErrorUndefined);
    }
    SetBothNaN(quotient, remainder);
}

void StoreRemainder(RealNumber* dest, const LongDivision& division, int64_t divisorExponent,
                    uint64_t sign) {
    const int64_t aligned = DigitsPerLimb - numberContext.topLimbDigits;
    int64_t shift = 0;
    LimbsNormalise(RealLimbs(dest), division.remainder + 1, division.limbs, &shift, 0);
    if (RealLimbs(dest)[0] == 0) {
        RealSetZero(dest, sign);
    } else {
        RealSetExponentAndSign(dest, divisorExponent - aligned - shift, sign);
    }
}

}  // namespace

void RealDivMod(RealNumber* quotient, RealNumber* remainder, const RealNumber* a,
                const RealNumber* b) {
    TALLYMERE_REQUIRE(RealIsWellFormed(a) && RealIsWellFormed(b));
    TALLYMERE_REQUIRE(RealOutputsAreApart(quotient, remainder, a) &&
                      RealOutputsAreApart(quotient, remainder, b));
    if (RealIsSpecial(a) || RealIsSpecial(b)) {
        DivModSpecial(quotient, remainder, a, b);
        return;
    }
    const int64_t n = numberContext.realLimbs;
    const uint64_t sign = RealSign(a) ^ RealSign(b);
    const int64_t divisorExponent = RealExponent(b);
    const bool startsBelow = LimbsCompare(RealLimbs(a), RealLimbs(b), n) < 0;
    const int64_t exponent = RealExponent(a) - divisorExponent - (startsBelow ? 1 : 0);
    if (exponent < 0) {
        if (remainder != nullptr) {
            RealCopy(remainder, a);
        }
        if (quotient != nullptr) {
            RealSetZero(quotient, sign);
        }
        return;
    }

    CoreScratchScope scratch;
    RealNumber* digits = RealAt(scratch.Take(RealWords()));
    LimbsClear(RealLimbs(digits), n);
    if (!RealSetExponentAndSign(digits, exponent, sign)) {
        SetBothNaN(quotient, remainder);
        return;
    }
    // Each pass makes one limb of the quotient: t digits for the first, then 19. Where a's mantissa
    // is not below b's the first of all digits stands there without a move. Digits past the
    // precision matter for the remainder alone. Where they are many, all but the last few are
    // skipped by a power of 10.
    const LongDivision division = StartDivision(scratch, RealLimbs(a), RealLimbs(b));
    int64_t wanted = numberContext.topLimbDigits;
    int64_t ready = startsBelow ? 0 : 1;
    int64_t left = exponent + 1;
    for (int64_t limb = 0; left > 0; limb++) {
        const int64_t skipped = limb == n ? PassesByPower(division, (left - 1) / DigitsPerLimb) : 0;
        if (StopRequested() || !SkipPasses(division, skipped)) {
            SetCalcError(CalcErrorCancelled);
            SetBothNaN(quotient, remainder);
            return;
        }
        left -= skipped * DigitsPerLimb;
        const int64_t made = std::min(wanted, left);
        const Limb part = DivideOnce(division, made - ready);
        if (limb < n) {
            RealLimbs(digits)[limb] = part * PowerOfTen(wanted - made);
        }
        left -= made;
        wanted = DigitsPerLimb;
        ready = 0;
    }
    if (quotient != nullptr) {
        RealCopy(quotient, digits);
    }
    if (remainder != nullptr) {
        StoreRemainder(remainder, division, divisorExponent, sign);
    }
}

}  // namespace tallymere
