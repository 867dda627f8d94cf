#include "core/real_div_mod.h"

#include "core/limb_tools.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

constexpr int LargestDigit = 9;

// The working remainder and the multiples 1 to 9 of the divisor's mantissa, each of `limbs` limbs.
// Where the first limb of a number is full an extra limb in front takes what a multiple has more.
struct QuotientDigitTable {
    int64_t limbs;
    int64_t frontLimbs;  // 1 if topLimbDigits is 19, else 0
    Limb* remainder;
    Limb* multiples[LargestDigit + 1];  // entry 0 is unused
};

QuotientDigitTable MakeDigitTable(CoreScratchScope& scratch, const Limb* a, const Limb* b) {
    const int64_t n = numberContext.realLimbs;
    QuotientDigitTable table{};
    table.frontLimbs = numberContext.topLimbDigits == DigitsPerLimb ? 1 : 0;
    table.limbs = n + table.frontLimbs;
    table.remainder = scratch.Take(table.limbs);
    table.remainder[0] = 0;
    LimbsCopy(table.remainder + table.frontLimbs, a, n);
    for (int digit = 1; digit <= LargestDigit; digit++) {
        Limb* multiple = scratch.Take(table.limbs);
        table.multiples[digit] = multiple;
        if (digit == 1) {
            multiple[0] = 0;
            LimbsCopy(multiple + table.frontLimbs, b, n);
        } else {
            LimbsAdd(multiple, table.multiples[digit - 1], table.multiples[1], table.limbs);
        }
    }
    return table;
}

// The largest digit whose multiple does not exceed the remainder.
int FindDigit(const QuotientDigitTable& table) {
    const auto reaches = [&](int digit) {
        return LimbsCompare(table.remainder, table.multiples[digit], table.limbs) >= 0;
    };
    if (!reaches(5)) {
        if (reaches(3)) {
            return reaches(4) ? 4 : 3;
        }
        if (reaches(2)) {
            return 2;
        }
        return reaches(1) ? 1 : 0;
    }
    if (reaches(7)) {
        if (reaches(8)) {
            return reaches(9) ? 9 : 8;
        }
        return 7;
    }
    return reaches(6) ? 6 : 5;
}

// What the two results have in common: either may be unwanted.
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

void StoreRemainder(RealNumber* dest, const QuotientDigitTable& table, int64_t divisorExponent,
                    uint64_t sign) {
    const int64_t n = numberContext.realLimbs;
    int64_t shift = 0;
    LimbsNormalise(RealLimbs(dest), table.remainder + table.frontLimbs, n, &shift, 0);
    if (RealLimbs(dest)[0] == 0) {
        RealSetZero(dest, sign);
    } else {
        RealSetExponentAndSign(dest, divisorExponent - shift, sign);
    }
}

}  // namespace

void RealDivMod(RealNumber* quotient, RealNumber* remainder, const RealNumber* a,
                const RealNumber* b) {
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
    const QuotientDigitTable table = MakeDigitTable(scratch, RealLimbs(a), RealLimbs(b));
    int64_t limb = 0;
    int64_t place = numberContext.topLimbDigits - 1;
    for (int64_t made = 0; made <= exponent; made++) {
        if (AbortRequested()) {
            SetCalcError(CalcErrorCancelled);
            SetBothNaN(quotient, remainder);
            return;
        }
        if (made > 0 || startsBelow) {
            LimbsShiftLeftDigits(table.remainder, table.remainder, table.limbs, 1, 0);
        }
        const int digit = FindDigit(table);
        // Digits past the precision are worked out and dropped, for the remainder's sake.
        if (limb < n) {
            RealLimbs(digits)[limb] += static_cast<Limb>(digit) * PowerOfTen(place);
            if (place > 0) {
                place--;
            } else {
                place = DigitsPerLimb - 1;
                limb++;
            }
        }
        if (digit > 0) {
            LimbsSubtract(table.remainder, table.remainder, table.multiples[digit], table.limbs, 0);
        }
    }
    if (quotient != nullptr) {
        RealCopy(quotient, digits);
    }
    if (remainder != nullptr) {
        StoreRemainder(remainder, table, divisorExponent, sign);
    }
}

}  // namespace tallymere
