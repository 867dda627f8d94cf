#include "exact/big_uint_division.h"

#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/limb_division.h"

namespace tallymere {

namespace {

void ClearFrom(uint64_t* dest, int64_t index) {
    for (int64_t i = index; i < numberContext.uintLimbs; i++) {
        dest[i] = 0;
    }
}

}  // namespace

void BigUintDivide(uint64_t* quotient, uint64_t* remainder, const uint64_t* a, const uint64_t* b) {
    const int64_t la = BigUintLength(a);
    const int64_t lb = BigUintLength(b);
    if (lb <= 1) {
        uint64_t word = 0;
        BigUintDivideSmall(quotient, &word, a, b[0], 0);
        if (remainder != nullptr) {
            BigUintFromWord(remainder, word);
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
    const LimbDivisor divisor = PrepareDivisor(scratch.Take(lb), b, lb);
    uint64_t* rest = scratch.Take(la + 1);
    rest[la] = LimbsMoveLeft(rest, a, la, divisor.shift);
    LimbsDivide(quotient, rest, la + 1 - lb, divisor);
    if (quotient != nullptr) {
        ClearFrom(quotient, la + 1 - lb);
    }
    if (remainder != nullptr) {
        LimbsMoveRight(remainder, rest, lb, divisor.shift, 0);
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
                        [[maybe_unused]] uint64_t reciprocal) {
    uint64_t rest = 0;
    if (d == 0) {
        SetCalcError(CalcErrorExactDivisionByZero);
        if (quotient != nullptr) {
            BigUintClear(quotient);
        }
    } else {
        const int shift = 63 - HighestBit(d);
        const uint64_t top = d << shift;
        const uint64_t inverse = WordReciprocal(top);
        const int64_t n = numberContext.uintLimbs;
        for (int64_t i = n - 1; i >= 0; i--) {
            // The remainder so far and the limb, moved left with the divisor.
            const Wide value = shift == 0
                                   ? Wide{rest, a[i]}
                                   : Wide{(rest << shift) | (a[i] >> (64 - shift)), a[i] << shift};
            const LimbQuotient parts = DivideByWord(value, top, inverse);
            rest = parts.remainder >> shift;
            if (quotient != nullptr) {
                quotient[i] = parts.quotient;
            }
        }
    }
    if (remainder != nullptr) {
        *remainder = rest;
    }
}

}  // namespace tallymere
