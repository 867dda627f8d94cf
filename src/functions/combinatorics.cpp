#include "functions/combinatorics.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/guard_digits.h"

namespace tallymere {

namespace {

constexpr int64_t CountingGuardDigits = 19;

enum class Counting { Combinations, Permutations };

bool IsPositiveInteger(const RealNumber* x) {
    return RealIsInteger(x) && RealSign(x) == 0 && !RealIsZero(x);
}

// n or k is NaN, infinite or zero.
void CountSpecial(RealNumber* dest, const RealNumber* n, const RealNumber* k) {
    if (RealIsNaN(n) || RealIsNaN(k)) {
        RealSetNaN(dest);
    } else if (RealIsInfinite(n) || RealIsInfinite(k)) {
        RealSetNaN(dest, CalcErrorUndefined);
    } else if (RealIsZero(k)) {
        RealSetOne(dest);
    } else if (IsPositiveInteger(k)) {
        RealSetZero(dest, RealIsEven(k) ? 0 : RealSign(n));
    } else {
        RealSetNaN(dest, CalcErrorUndefined);
    }
}

// dest = (d + 1) (d + 2) ... (d + count), for combinations divided by count!; raw.
void MultiplySteps(RealNumber* dest, const RealNumber* d, uint64_t count, Counting counting) {
    CoreScratchScope scratch;
    RealNumber* factor = RealAt(scratch.Take(RealWords()));
    RealNumber* one = RealAt(scratch.Take(RealWords()));
    RealCopy(factor, d);
    RealSetOne(one);
    // Machine integers give the same product: with the guard digits a number has two limbs at
    // least, so that no digit of such a factor is lost and none of its columns is left out.
    uint64_t start = 0;
    const bool fits = RealToUint(&start, d, IntegerExact) && count <= UINT64_MAX - start;
    RealSetOne(dest);
    for (uint64_t i = 1; i <= count && !RealIsSpecial(dest); i++) {
        if (StopRequested()) {
            RealSetNaN(dest, CalcErrorCancelled);
            return;
        }
        if (fits) {
            RealMulUint(dest, dest, start + i);
        } else {
            RealAddRaw(factor, factor, one, false);
            RealMulRaw(dest, dest, factor);
        }
        if (counting == Counting::Combinations) {
            RealDivUint(dest, dest, i);
        }
    }
}

// Raw, at the layout in force; the guard limb is not wanted.
void Count(RealNumber* dest, const RealNumber* n, const RealNumber* k, Counting counting) {
    if (RealIsSpecial(n) || RealIsSpecial(k)) {
        CountSpecial(dest, n, k);
        return;
    }
    CoreScratchScope scratch;
    RealNumber* d = RealAt(scratch.Take(RealWords()));
    RealAddRaw(d, n, k, true);
    const bool wholeN = IsPositiveInteger(n);
    if (wholeN && RealSign(d) != 0) {
        if (IsPositiveInteger(k)) {
            RealSetZero(dest, 0);
        } else {
            RealSetNaN(dest, CalcErrorUndefined);
        }
        return;
    }
    const bool shorter = counting == Counting::Combinations && wholeN && RealCompare(d, k) < 0;
    uint64_t count = 0;
    if (!RealToUint(&count, shorter ? d : k, IntegerExact)) {
        RealSetNaN(dest, CalcErrorUndefined);
        return;
    }
    if (shorter) {
        RealCopy(d, k);
    }
    MultiplySteps(dest, d, count, counting);
}

Limb CountCombinations(RealNumber* dest, const RealNumber* n, const RealNumber* k) {
    Count(dest, n, k, Counting::Combinations);
    return 0;
}

Limb CountPermutations(RealNumber* dest, const RealNumber* n, const RealNumber* k) {
    Count(dest, n, k, Counting::Permutations);
    return 0;
}

}  // namespace

void RealCombinations(RealNumber* dest, const RealNumber* n, const RealNumber* k) {
    RoundedBinary(dest, n, k, CountingGuardDigits, CountCombinations);
}

void RealPermutations(RealNumber* dest, const RealNumber* n, const RealNumber* k) {
    RoundedBinary(dest, n, k, CountingGuardDigits, CountPermutations);
}

Limb RealGcd(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    TALLYMERE_REQUIRE(RealIsWellFormed(a) && RealIsWellFormed(b));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, a) && RealSameOrApart(dest, b));
    if (RealIsNaN(a) || RealIsNaN(b)) {
        RealSetNaN(dest);
        return 0;
    }
    if (!IsPositiveInteger(a) || !IsPositiveInteger(b)) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* divisor = RealAt(scratch.Take(RealWords()));
    RealNumber* remainder = RealAt(scratch.Take(RealWords()));
    RealNumber* next = RealAt(scratch.Take(RealWords()));
    RealCopy(divisor, b);
    RealDivMod(nullptr, remainder, a, divisor);
    while (!RealIsSpecial(remainder)) {
        RealDivMod(nullptr, next, divisor, remainder);
        RealNumber* spare = divisor;
        divisor = remainder;
        remainder = next;
        next = spare;
    }
    if (RealIsNaN(remainder)) {
        RealSetNaN(dest, CalcErrorUndefined);
    } else {
        RealCopy(dest, divisor);
    }
    return 0;
}

Limb RealLcm(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    TALLYMERE_REQUIRE(RealIsWellFormed(a) && RealIsWellFormed(b));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, a) && RealSameOrApart(dest, b));
    CoreScratchScope scratch;
    RealNumber* quotient = RealAt(scratch.Take(RealWords()));
    RealGcd(quotient, a, b);
    RealDivMod(quotient, nullptr, a, quotient);
    return RealMulRaw(dest, quotient, b);
}

}  // namespace tallymere
