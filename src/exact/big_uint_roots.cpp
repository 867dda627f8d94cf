#include "exact/big_uint_roots.h"

#include <algorithm>

#include "core/contract.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_logarithms.h"
#include "exact/big_uint_multiply.h"
#include "exact/big_uint_powers.h"
#include "exact/limb_division.h"

namespace tallymere {

namespace {

// The logarithm alone gives roots of up to this many bits.
constexpr int64_t BitsFromLogarithm = 40;

// dest = dest * 2^bits. It must fit.
void ShiftLeftFar(uint64_t* dest, int64_t bits) {
    const int64_t limbs = bits / BitsPerUintLimb;
    const int64_t moved = numberContext.uintLimbs - limbs;
    UintLimbsShiftLeft(dest + limbs, dest, moved, static_cast<int>(bits % BitsPerUintLimb));
    std::fill_n(dest, limbs, uint64_t{0});
}

// The smallest integer of up to `bits` bits whose BinaryLogSmall is above `log`. So it is above
// 2^log, where log is taken in the units of a BinaryLog.
uint64_t WordAboveLog(uint64_t log, int64_t bits) {
    uint64_t word = 0;
    for (uint64_t step = uint64_t{1} << (bits - 1); step != 0; step >>= 1) {
        if (BinaryLogSmall(word + step) <= log) {
            word += step;
        }
    }
    return word + 1;
}

// One step of Newton's method: s = floor(((n - 1) s + x / s^(n - 1)) / n) + 1. The new s is above
// the n-th root of x for every s, because the arithmetic mean of n numbers with the product x is at
// least their geometric mean.
void StepAboveRoot(uint64_t* s, int64_t n, const uint64_t* x) {
    CoreScratchScope scratch;
    uint64_t* quotient = scratch.Take(numberContext.uintLimbs);
    BigUintPowerIfFits(quotient, s, n - 1);
    BigUintDivide(quotient, nullptr, x, quotient);
    BigUintMulSmall(s, s, static_cast<uint64_t>(n - 1));
    BigUintAdd(s, s, quotient);
    BigUintDivideSmall(s, nullptr, s, static_cast<uint64_t>(n), 0);
    BigUintAddSmall(s, s, 1);
}

// s = a whole number above r and below r + 2, where r is the n-th root of x / 2^(n drop). r has
// `bits` bits before the point.
//
// The recursion finds the `leading` bits of s, and one step of Newton's method the others. Let
// s = r (1 + e) before the step. Afterwards the error is at most r (n - 1) e^2 / 2. `leading` is
// half the bits of r and a few more because of n. That gives e < 2^(2 - leading) and an error below
// 1/2 after the step. The step then adds 1, which keeps s above r.
//
// The recursion works with a shortened x. A whole number above the root of the shortened x stays
// above the root when both get their bits back.
void RootFromAbove(uint64_t* s, int64_t n, const uint64_t* x, int64_t drop, int64_t bits) {
    if (bits <= BitsFromLogarithm) {
        const uint64_t log = (BinaryLog(x) + BinaryLogErrorUnits) / static_cast<uint64_t>(n) + 1;
        BigUintFromUnsigned(
            s, WordAboveLog(log - (static_cast<uint64_t>(drop) << BinaryLogPlaces), bits));
        return;
    }
    const int64_t leading = (bits + HighestBit(static_cast<uint64_t>(n)) + 6) / 2;
    RootFromAbove(s, n, x, drop + bits - leading, leading);
    ShiftLeftFar(s, bits - leading);
    CoreScratchScope scratch;
    uint64_t* shortened = scratch.Take(numberContext.uintLimbs);
    BigUintShiftRight(shortened, x, n * drop);
    StepAboveRoot(s, n, shortened);
}

// n >= 2, x >= 1.
bool RootOfDegree(uint64_t* dest, int64_t n, const uint64_t* x) {
    const int64_t bits = BigUintBitLength(x);
    if (n >= bits) {
        const bool exact = bits == 1;
        BigUintFromUnsigned(dest, 1);
        return exact;
    }
    CoreScratchScope scratch;
    uint64_t* root = scratch.Take(numberContext.uintLimbs);
    uint64_t* power = scratch.Take(numberContext.uintLimbs);
    RootFromAbove(root, n, x, 0, (bits - 1) / n + 1);
    // `root` is above the true root by less than 2. If the true root is whole, it is 1 less.
    BigUintSubOne(root, root);
    const int order = BigUintPowerIfFits(power, root, n) ? BigUintCompare(power, x) : 1;
    if (order > 0) {
        BigUintSubOne(root, root);
    }
    BigUintCopy(dest, root);
    return order == 0;
}

}  // namespace

bool BigUintSquareRoot(uint64_t* dest, const uint64_t* x) {
    return BigUintRootSmall(dest, 2, x);
}

bool BigUintRoot(uint64_t* dest, const uint64_t* n, const uint64_t* x) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, n));
    // All degrees from 2^63 - 1 up give the same root.
    return BigUintRootSmall(dest, BigUintFitsSigned(n) ? static_cast<int64_t>(n[0]) : INT64_MAX, x);
}

bool BigUintRootSmall(uint64_t* dest, int64_t n, const uint64_t* x) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, x));
    if (n == 0) {
        BigUintSetFailed(dest, CalcErrorUndefined);
        return false;
    }
    if (n == 1 || BigUintIsZero(x)) {
        BigUintCopy(dest, x);
        return true;
    }
    return RootOfDegree(dest, n < 0 ? INT64_MAX : n, x);
}

}  // namespace tallymere
