// RationalNumber: the exact fraction.
//
// A record is a sign word and two BigUint of the width in force behind it: the magnitudes of
// numerator and denominator. The sign word is 1 for a negative number, else 0.
//
// Well-formed: the sign word is 0 or 1, and the denominator is not 0. A zero may have a sign; some
// sums leave one.
//
// Lowest terms: numerator and denominator have no common factor, so a zero has the denominator 1.
// Every result is in lowest terms, with one exception: a power with a fraction as exponent
// (exact/rational_powers.h). An operation on such an operand may keep its common factor.
//
// Operations read only the lowest bit of a sign word and write 0 or 1. An operand must have a
// denominator other than 0, unless an operation says what it does without one.
//
// The caller owns the memory of a record: RationalWords() words, anywhere. Destinations come first.
// They may be operands, but may not overlap one in part. CoreScratch has room for the operations at
// widths of up to 1,039 limbs.
#pragma once

#include <cstdint>

#include "core/number_context.h"

namespace tallymere {

/// The sign word of a record; numerator and denominator follow it in memory.
struct RationalNumber {
    uint64_t sign;
};

/// The 64-bit words of one record at the width in force.
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

/// The record in the memory `words`.
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

/// Marks a failed result: dest = +0/1, and notes CalcErrorUndefined unless a code is noted already.
void RationalSetFailed(RationalNumber* dest);

/// Makes dest a failed result if a code is noted, and otherwise does nothing. An operation calls it
/// at its end, within a CalcErrorScope: there a noted code can only come from the operation itself.
void RationalFailOnCode(RationalNumber* dest);

/// dest = k/1 with a sign word of 0 or 1.
void RationalFromUnsigned(RationalNumber* dest, uint64_t k, uint64_t sign);

/// Copies all words as they are, also those of a record that is not well-formed.
void RationalCopy(RationalNumber* dest, const RationalNumber* src);

/// Flips the sign, also of a zero.
void RationalNegate(RationalNumber* q);

bool RationalIsZero(const RationalNumber* q);

/// True when the denominator is 1. In lowest terms that is so for every integer.
bool RationalIsInteger(const RationalNumber* q);

/// True when the record has the invariant above: a sign word of 0 or 1, a denominator other than 0.
bool RationalIsWellFormed(const RationalNumber* q);

/// True when the denominator is not 0, so that the record denotes a number.
bool RationalHasValue(const RationalNumber* q);

/// True when a and b are the same record, or do not overlap.
bool RationalsAreSameOrApart(const RationalNumber* a, const RationalNumber* b);

/// True when numerator and denominator have no common factor. Takes the time of a greatest common
/// divisor.
bool RationalIsInLowestTerms(const RationalNumber* q);

}  // namespace tallymere
