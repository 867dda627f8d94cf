// Products of arrays of any length, for both kinds of digits: 64-bit words, least significant
// first, and limbs of base 10^19, most significant first. Short arrays are multiplied digit by
// digit. Long ones are split in halves (Karatsuba), so that the time grows with the power 1.585 of
// the length instead of its square.
//
// The digits are those of the exact product at every length. Short products take no memory. Longer
// ones take it from CoreScratch: 2 n + 2 log2(n) words for n words by as many, 12 n for limbs and 9
// n for the upper part of their product. Arrays of different lengths take 2 n or 6 n more, n being
// the shorter one's.
//
// Source: Karatsuba and Ofman, "Multiplication of multidigit numbers on automata", in the form that
// multiplies differences; for the upper part Mulders, "On short multiplications and divisions".
#pragma once

#include <cstdint>

#include "core/limb.h"

namespace tallymere {

/// From which number of digits on a product is made of shorter ones; each is at least 4.
struct ProductCutovers {
    int64_t words;        ///< the product of two arrays of words
    int64_t wordSquares;  ///< the square of an array of words
    int64_t limbs;        ///< the product of two arrays of limbs
    int64_t upperLimbs;   ///< LimbsMultiplyUpper
};

/// As `tallymere-bench --cutovers` measures them; docs/performance.md says on what machine.
inline constexpr ProductCutovers MeasuredCutovers = {48, 56, 64, 280};

/// dest = a * b for words, countA, countB >= 1. dest gets countA + countB words and overlaps no
/// operand. Where a and b are one array of one length, its square is made, which takes less time.
void MultiplyWordArrays(uint64_t* dest, const uint64_t* a, int64_t countA, const uint64_t* b,
                        int64_t countB, const ProductCutovers& cutovers = MeasuredCutovers);

/// The same for limbs.
void LimbsMultiplyArrays(Limb* dest, const Limb* a, int64_t countA, const Limb* b, int64_t countB,
                         const ProductCutovers& cutovers = MeasuredCutovers);

/// The upper part of a product of n limbs by n limbs, n >= 1: the exact sum of all products a[i] *
/// b[j] with i + j <= n, in n + 2 limbs. The last limb is that of i + j = n. dest overlaps no
/// operand. Runs of zero limbs in an operand make no products.
void LimbsMultiplyUpper(Limb* dest, const Limb* a, const Limb* b, int64_t n,
                        const ProductCutovers& cutovers = MeasuredCutovers);

}  // namespace tallymere
