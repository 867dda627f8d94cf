// BigUint: the exact unsigned integer. Its width is set at run time.
//
// A BigUint is a bare array of NumberContext::uintLimbs limbs of 64 bits, least significant first.
// It carries neither length nor sign. So it means something only at the width at which it was made;
// BigUintResize takes it to another width. Whoever changes the width does so through
// UintWidthScope. Conversions also work with limbs of base 10^19. There the limbs of a BigUint are
// called words.
//
// Overflow never wraps: a result that does not fit is 0 and notes CalcErrorOverflow.
//
// Rules for all operations: the destination comes first. It may be an operand, but may not overlap
// one in part, unless the operation says so. The caller owns the memory of all arrays. Operations
// read the width in force. None of them clears a code that was noted before.
#pragma once

#include <cstdint>

#include "core/contract.h"
#include "core/number_context.h"

namespace tallymere {

/// Bits of a limb of a BigUint.
inline constexpr int64_t BitsPerUintLimb = 64;

/// True when the width in force is one that a BigUint can have. That is all there is to check,
/// because every pattern of bits is a value.
bool BigUintWidthIsWellFormed();

/// True when a and b are the same array, or do not overlap, at the width in force.
bool BigUintsAreSameOrApart(const uint64_t* a, const uint64_t* b);

void BigUintClear(uint64_t* dest);
void BigUintCopy(uint64_t* dest, const uint64_t* src);

/// Marks a failed result: dest = 0, and notes the code unless one is noted already.
void BigUintSetFailed(uint64_t* dest, CalcError code);

/// dest = k.
void BigUintFromUnsigned(uint64_t* dest, uint64_t k);

/// How many limbs a has up to its highest that is not 0; 0 for a = 0.
int64_t BigUintLength(const uint64_t* a);

/// The index of the highest set bit, plus 1; 0 for a = 0.
int64_t BigUintBitLength(const uint64_t* a);

/// Bit `index` of a, 0 or 1, for 0 <= index < 64 times the limbs of a. The width in force plays no
/// part.
inline uint64_t BigUintBit(const uint64_t* a, int64_t index) {
    TALLYMERE_REQUIRE(index >= 0);
    return (a[index / BitsPerUintLimb] >> (index % BitsPerUintLimb)) & 1;
}

bool BigUintIsZero(const uint64_t* a);

/// True when a = k.
bool BigUintEqualsSmall(const uint64_t* a, uint64_t k);

/// True when a fits one limb, which is a[0].
bool BigUintFitsUnsigned(const uint64_t* a);

/// True when a < 2^63.
bool BigUintFitsSigned(const uint64_t* a);

/// -1, 0 or 1 as a is below, equal to or above b.
int BigUintCompare(const uint64_t* a, const uint64_t* b);

/// dest = a + b. 0 and CalcErrorOverflow when it does not fit.
void BigUintAdd(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = a + k. 0 and CalcErrorOverflow when it does not fit.
void BigUintAddSmall(uint64_t* dest, const uint64_t* a, uint64_t k);

/// dest = a - b. 0 and CalcErrorOverflow for a < b.
void BigUintSub(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = a - 1. 0 and CalcErrorOverflow for a = 0.
void BigUintSubOne(uint64_t* dest, const uint64_t* a);

/// Copies a value of srcLimbs limbs to destLimbs limbs. The width in force plays no part. The
/// arrays may overlap in any way. A count of 0 notes CalcErrorBadParameter and writes nothing; no
/// count is negative. When a limb other than 0 would be lost, dest is 0 and CalcErrorOverflow is
/// noted.
void BigUintResize(uint64_t* dest, int64_t destLimbs, const uint64_t* src, int64_t srcLimbs);

/// dest = a shifted right by n bits, 0 <= n <= 64. *out is the number that the n lost bits make;
/// `out` may be null. For an n above 64 both are 0, with CalcErrorUndefined. dest and a may overlap
/// in any way.
void BigUintShiftRightOut(uint64_t* dest, uint64_t* out, const uint64_t* a, uint64_t n);

/// dest = a shifted right by n bits; 0 for n of 2^31 and above. 0 and CalcErrorUndefined for a
/// negative n. dest and a may overlap in any way.
void BigUintShiftRight(uint64_t* dest, const uint64_t* a, int64_t n);

/// dest = a shifted left by n bits, 1 <= n <= 63. 0 and CalcErrorUndefined for any other n. Bits
/// that leave at the top are lost; with `check` they make the result 0 with CalcErrorOverflow.
void BigUintShiftLeft(uint64_t* dest, const uint64_t* a, int64_t n, bool check);

}  // namespace tallymere
