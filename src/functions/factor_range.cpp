#include "functions/factor_range.h"

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// A group needs 19 leading digits, and 19 trailing ones in a limb of their own.
constexpr int64_t GroupingLimbs = 2;

// Factors that are to be taken together. With M the mantissa that they meet, as an integer of p
// digits, and M' the one that they leave if each of them truncates,
//
//     M' = (M * product - lost) / 10^dropped
//
// and the division is exact. How many digits a factor drops shows in the leading digits of the
// mantissa, and which ones they are in the last digits, so M itself is not needed before the group
// is complete.
struct FactorGroup {
    uint64_t product = 1;       // below 10^19
    int64_t productDigits = 0;  // the digits of all factors, a bound for those of the product
    int64_t dropped = 0;        // at most productDigits
    Wide lost = {0, 0};         // below 10^dropped times ten times the number of factors
    uint64_t leading;           // the first 19 digits are at least this
    uint64_t leadingLimit;      // and less than this
    uint64_t trailing;          // the last 19 - dropped digits
};

FactorGroup StartGroup(const RealNumber* x) {
    FactorGroup group;
    group.leading = RealLeadingDigits(RealLimbs(x), DigitsPerLimb);
    group.leadingLimit = group.leading + 1;
    group.trailing = RealLimbs(x)[numberContext.realLimbs - 1];
    return group;
}

// value / 10^k, rounded down, for 0 <= k <= 19 and a quotient that fits 64 bits.
uint64_t DropDigits(Wide value, int64_t k) {
    const LimbQuotient parts = DivideByLimbBase(value);
    return parts.quotient * PowerOfTen(DigitsPerLimb - k) +
           DivideByPowerOfTen(parts.remainder, k).quotient;
}

// a * b modulo 10^k for limbs and 0 <= k <= 19.
uint64_t MultiplyLastDigits(uint64_t a, uint64_t b, int64_t k) {
    return DivideByPowerOfTen(DivideByLimbBase(wide::Multiply(a, b)).remainder, k).remainder;
}

// Takes one more factor into the group, or returns false if it has no room or if the leading digits
// leave open how many digits the product has.
bool TakeFactor(FactorGroup& group, uint64_t factor) {
    const int64_t digits = DigitCount(factor);
    if (group.productDigits + digits > DigitsPerLimb) {
        return false;
    }
    const Wide least = wide::Multiply(group.leading, factor);
    const Wide limit = wide::Multiply(group.leadingLimit, factor);
    const Wide carries = wide::Multiply(PowerOfTen(DigitsPerLimb - 1), PowerOfTen(digits));
    const bool drops = AtLeast(least, carries);
    if (!drops && AtLeast(limit, carries)) {
        return false;
    }
    const int64_t dropped = drops ? digits : digits - 1;
    group.leading = DropDigits(least, dropped);
    group.leadingLimit = DropDigits(limit, dropped) + 1;

    const int64_t known = DigitsPerLimb - group.dropped;
    const LimbQuotient last =
        DivideByPowerOfTen(MultiplyLastDigits(group.trailing, factor, known), dropped);
    group.trailing = last.quotient;
    const Wide carried = wide::Multiply(group.lost.low, factor);
    const Wide moved = {carried.high + group.lost.high * factor, carried.low};
    group.lost = wide::Add(moved, wide::Multiply(last.remainder, PowerOfTen(group.dropped)));

    group.product *= factor;
    group.productDigits += digits;
    group.dropped += dropped;
    return true;
}

// x = x times the group.
void ApplyGroup(RealNumber* x, const FactorGroup& group) {
    const int64_t n = numberContext.realLimbs;
    Limb* limbs = RealLimbs(x);
    CoreScratchScope scratch;
    Limb* product = scratch.Take(n + 1);
    Limb carry = 0;
    for (int64_t i = n - 1; i >= 0; i--) {
        const LimbQuotient step = LimbStep(limbs[i], group.product, carry, 0);
        product[i + 1] = step.remainder;
        carry = step.quotient;
    }
    product[0] = carry;
    const LimbQuotient lost = DivideByLimbBase(group.lost);
    Limb borrow = 0;
    product[n] = SubtractLimbs(product[n], lost.remainder, borrow);
    product[n - 1] = SubtractLimbs(product[n - 1], lost.quotient, borrow);
    for (int64_t i = n - 2; borrow != 0; i--) {
        product[i] = SubtractLimbs(product[i], 0, borrow);
    }
    LimbsShiftRightDigits(product, product, n + 1, group.dropped, 0);
    LimbsCopy(limbs, product + 1, n);
    RealSetExponent(x, RealExponent(x) + group.dropped);
}

}  // namespace

Limb RealMulRange(RealNumber* dest, uint64_t from, uint64_t to) {
    TALLYMERE_REQUIRE(from >= 1 && to < UINT64_MAX);
    TALLYMERE_REQUIRE(RealIsWellFormed(dest));
    // The last factor stands alone, for the sake of its guard limb.
    Limb guard = 0;
    for (uint64_t next = from; next <= to;) {
        uint64_t taken = 0;
        if (numberContext.realLimbs >= GroupingLimbs && !RealIsSpecial(dest)) {
            FactorGroup group = StartGroup(dest);
            while (next < to && !StopRequested() && TakeFactor(group, next)) {
                next++;
                taken++;
            }
            if (taken > 0) {
                ApplyGroup(dest, group);
            }
        }
        if (taken == 0) {
            guard = RealMulUint(dest, dest, next);
            next++;
        }
        if (StopRequested()) {
            RealSetNaN(dest, CalcErrorCancelled);
            return 0;
        }
    }
    return guard;
}

}  // namespace tallymere
