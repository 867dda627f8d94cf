#include "exact/big_uint_division.h"

#include <algorithm>
#include <bit>

#include "core/contract.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/limb_division.h"

namespace tallymere {

namespace {

// Clears the limbs from `index` up.
void ClearFrom(uint64_t* dest, int64_t index) {
    std::fill(dest + index, dest + numberContext.uintLimbs, uint64_t{0});
}

// WordReciprocal(d) for a d with its highest bit set that is no power of two. `reciprocal` is
// DivisorReciprocal of the divisor before it was shifted. That is floor(2^127 / d), so all bits of
// the result are known but the last.
uint64_t RefineReciprocal(uint64_t d, uint64_t reciprocal) {
    const uint64_t refined = 2 * reciprocal;
    const Wide product = wide::Add(wide::Multiply(refined, d), {d, 0});
    return refined + (AtLeast({0, d}, wide::Subtract({0, 0}, product)) ? 0 : 1);
}

// quotient = floor(a / d), and returns a mod d, for an a of n limbs, n >= 1, and a d that is no
// power of two. quotient may be null. `reciprocal` is DivisorReciprocal(d).
uint64_t DivideLimbsByWord(uint64_t* quotient, const uint64_t* a, int64_t n, uint64_t d,
                           uint64_t reciprocal) {
    const int shift = 63 - HighestBit(d);
    const uint64_t divisor = d << shift;
    const uint64_t inverse = RefineReciprocal(divisor, reciprocal);
    // a is shifted left like d, limb by limb. Two shifts, since one shift by 64 is undefined.
    const auto fromBelow = [shift](uint64_t limb) { return (limb >> 1) >> (63 - shift); };
    uint64_t limb = a[n - 1];
    uint64_t rest = fromBelow(limb);
    for (int64_t i = n - 1; i >= 0; i--) {
        const uint64_t below = i > 0 ? a[i - 1] : 0;
        const LimbQuotient parts =
            DivideByWord({rest, (limb << shift) | fromBelow(below)}, divisor, inverse);
        rest = parts.remainder;
        limb = below;
        if (quotient != nullptr) {
            quotient[i] = parts.quotient;
        }
    }
    return rest >> shift;
}

}  // namespace

void BigUintDivide(uint64_t* quotient, uint64_t* remainder, const uint64_t* a, const uint64_t* b) {
    TALLYMERE_REQUIRE(quotient == nullptr || quotient != remainder);
    TALLYMERE_REQUIRE(quotient == nullptr || remainder == nullptr ||
                      BigUintsAreSameOrApart(quotient, remainder));
    TALLYMERE_REQUIRE(quotient == nullptr ||
                      (BigUintsAreSameOrApart(quotient, a) && BigUintsAreSameOrApart(quotient, b)));
    TALLYMERE_REQUIRE(remainder == nullptr || (BigUintsAreSameOrApart(remainder, a) &&
                                               BigUintsAreSameOrApart(remainder, b)));
    const int64_t la = BigUintLength(a);
    const int64_t lb = BigUintLength(b);
    if (lb <= 1) {
        uint64_t word = 0;
        BigUintDivideSmall(quotient, &word, a, b[0], 0);
        if (remainder != nullptr) {
            BigUintFromUnsigned(remainder, word);
        }
        return;
    }
    if (la < lb) {
        if (remainder != nullptr) {
            BigUintCopy(remainder, a);
        }
        if (quotient != nullptr) {
            BigUintClear(quotient);
        }
        return;
    }
    CoreScratchScope scratch;
    const UintLimbDivisor divisor = PrepareDivisor(scratch.Take(lb), b, lb);
    uint64_t* rest = scratch.Take(la + 1);
    rest[la] = UintLimbsShiftLeft(rest, a, la, divisor.shift);
    UintLimbsDivide(quotient, rest, la + 1 - lb, divisor);
    if (quotient != nullptr) {
        ClearFrom(quotient, la + 1 - lb);
    }
    if (remainder != nullptr) {
        UintLimbsShiftRight(remainder, rest, lb, divisor.shift);
        ClearFrom(remainder, lb);
    }
}

bool BigUintDivideExact(uint64_t* quotient, const uint64_t* a, const uint64_t* b) {
    CoreScratchScope scratch;
    uint64_t* remainder = scratch.Take(numberContext.uintLimbs);
    BigUintDivide(quotient, remainder, a, b);
    return BigUintIsZero(remainder);
}

void BigUintDivideSmall(uint64_t* quotient, uint64_t* remainder, const uint64_t* a, uint64_t d,
                        uint64_t reciprocal) {
    TALLYMERE_REQUIRE(reciprocal == 0 || (d != 0 && reciprocal == DivisorReciprocal(d)));
    TALLYMERE_REQUIRE(quotient == nullptr || BigUintsAreSameOrApart(quotient, a));
    const int64_t n = BigUintLength(a);
    uint64_t rest = 0;
    if (d == 0) {
        SetCalcError(CalcErrorExactDivisionByZero);
    }
    if (d == 0 || n == 0) {
        if (quotient != nullptr) {
            BigUintClear(quotient);
        }
    } else if (std::has_single_bit(d)) {
        rest = a[0] & (d - 1);
        if (quotient != nullptr) {
            BigUintShiftRight(quotient, a, HighestBit(d));
        }
    } else {
        rest = DivideLimbsByWord(quotient, a, n, d,
                                 reciprocal != 0 ? reciprocal : DivisorReciprocal(d));
        if (quotient != nullptr) {
            ClearFrom(quotient, n);
        }
    }
    if (remainder != nullptr) {
        *remainder = rest;
    }
}

}  // namespace tallymere
