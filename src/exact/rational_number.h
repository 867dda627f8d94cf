// RationalNumber: the exact fraction.
//
// A record is a sign word and, behind it, two BigUint of the width in force: the magnitudes of
// numerator and denominator. Bit 0 of the sign word is 1 for a negative number.
//
// Normal form: the two have no common factor, the denominator is not 0, and a zero has the
// denominator 1. A zero may have a sign, as some sums leave it. Only powers with a fraction for
// their exponent leave common factors (exact/rational_powers.h), and what keeps them.
//
// The memory of a record is the caller's: RationalWords() words anywhere. Destinations come first
// and may be operands, but may not overlap one otherwise. CoreScratch has room for the operations
// at widths of up to 1,039 limbs.
#pragma once

#include <cstdint>

#include "core/number_context.h"

namespace tallymere {

/// The sign word of a record; numerator and denominator follow it in memory.
struct RationalNumber {
    uint64_t sign;
};

/// Words of one record at the width in force.
inline int64_t RationalWords() {
    return 2 * numberContext.uintLimbs + 1;
}

inline uint64_t* RationalNumerator(RationalNumber* q) {
    return &q->sign + 1;
}
inline const uint64_t* RationalNumerator(const RationalNumber* q) {
    return &q->sign + 1;
}
inline uint64_t* RationalDenominator(RationalNumber* q) {
    return &q->sign + 1 + numberContext.uintLimbs;
}
inline const uint64_t* RationalDenominator(const RationalNumber* q) {
    return &q->sign + 1 + numberContext.uintLimbs;
}

/// The record that lies in `words`.
inline RationalNumber* RationalAt(uint64_t* words) {
    return reinterpret_cast<RationalNumber*>(words);
}
inline const RationalNumber* RationalAt(const uint64_t* words) {
    return reinterpret_cast<const RationalNumber*>(words);
}

/// 1 for a negative number, also for a zero with a sign; else 0.
inline uint64_t RationalSign(const RationalNumber* q) {
    return q->sign & 1;
}

/// +0/1.
void RationalSetZero(RationalNumber* dest);

/// What stands where an operation failed: +0/1, and code 203 unless one is noted already.
void RationalSetFailed(RationalNumber* dest);

/// RationalSetFailed where a code is noted: how an operation ends that has put earlier codes aside.
void RationalFailOnCode(RationalNumber* dest);

/// k/1 with the sign 0 or 1.
void RationalFromWord(RationalNumber* dest, uint64_t k, uint64_t sign);

void RationalCopy(RationalNumber* dest, const RationalNumber* src);

/// Flips the sign, also of a zero.
void RationalNegate(RationalNumber* q);

bool RationalIsZero(const RationalNumber* q);

/// True when the denominator is 1.
bool RationalIsInteger(const RationalNumber* q);

}  // namespace tallymere
