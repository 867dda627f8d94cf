// BigUint: the exact unsigned integer of a width set at run time.
//
// A BigUint is a bare array of NumberContext::uintLimbs 64-bit limbs, least significant first. It
// carries neither length nor sign, so it means something only at the width at which it was made;
// BigUintResize moves it to another. The width is changed through UintWidthScope. Where limbs of
// base 10^19 stand beside its own, as in conversions, its own are called words.
//
// Overflow never wraps: a result that does not fit is 0 and notes a code. In all operations the
// destination comes first and may be an operand; where nothing else is said it may not overlap one
// otherwise. Operations read the width in force; the memory of all arrays is the caller's. None of
// them clears a code.
#pragma once

#include <cstdint>

#include "core/number_context.h"

namespace tallymere {

/// Bits of a limb of a BigUint.
inline constexpr int64_t BitsPerUintLimb = 64;

void BigUintClear(uint64_t* dest);
void BigUintCopy(uint64_t* dest, const uint64_t* src);

/// What stands where an operation failed: 0, and the code unless one is noted already.
void BigUintSetFailed(uint64_t* dest, CalcError code);

/// dest = k.
void BigUintFromWord(uint64_t* dest, uint64_t k);

/// The limbs of a up to its highest that is not 0; 0 for a = 0.
int64_t BigUintLength(const uint64_t* a);

/// Index of the highest set bit plus 1; 0 for a = 0.
int64_t BigUintBitLength(const uint64_t* a);

/// Bit `index` of a, 0 or 1; 0 <= index < 64 uintLimbs.
inline uint64_t BigUintBit(const uint64_t* a, int64_t index) {
    return (a[index / BitsPerUintLimb] >> (index % BitsPerUintLimb)) & 1;
}

bool BigUintIsZero(const uint64_t* a);

/// True when a = k.
bool BigUintIsWord(const uint64_t* a, uint64_t k);

/// True when a fits one limb, which is a[0].
bool BigUintFitsWord(const uint64_t* a);

/// True when a < 2^63.
bool BigUintFitsSigned(const uint64_t* a);

/// -1, 0 or 1 as a is below, equal to or above b.
int BigUintCompare(const uint64_t* a, const uint64_t* b);

/// dest = a + b. 0 and code 200 on a carry out of the top limb.
void BigUintAdd(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = a + k. 0 and code 200 on a carry out of the top limb.
void BigUintAddSmall(uint64_t* dest, const uint64_t* a, uint64_t k);

/// dest = a - b. 0 and code 200 for a < b.
void BigUintSub(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = a - 1. 0 and code 200 for a = 0.
void BigUintSubOne(uint64_t* dest, const uint64_t* a);

/// Copies a value of srcLimbs limbs to destLimbs limbs, whatever the width in force; the arrays may
/// overlap in any way. Code 100 and nothing written for a count of 0. Narrowing that would lose a
/// limb gives 0 and code 200.
void BigUintResize(uint64_t* dest, int64_t destLimbs, const uint64_t* src, int64_t srcLimbs);

/// dest = a shifted right by 0 <= n <= 64 bits; `out`, which may be null, takes the n bits that
/// fall out, as a number. 0 and code 203 for an n above 64, `out` included. dest and a may overlap
/// in any way.
void BigUintShiftRightOut(uint64_t* dest, uint64_t* out, const uint64_t* a, uint64_t n);

/// dest = a shifted right by n bits; 0 for n of 2^31 and above. 0 and code 203 for a negative n.
/// dest and a may overlap in any way.
void BigUintShiftRight(uint64_t* dest, const uint64_t* a, int64_t n);

/// dest = a shifted left by 1 <= n <= 63 bits. 0 and code 203 for another n. With `check`, bits
/// that would leave at the top give 0 and code 200; without, they are lost.
void BigUintShiftLeft(uint64_t* dest, const uint64_t* a, int64_t n, bool check);

}  // namespace tallymere
