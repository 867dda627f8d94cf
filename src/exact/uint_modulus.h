// Residues modulo a number m of any length, for powers: the modulus is prepared once, and then no
// product of residues is divided by m in full.
//
// Let n be the number of limbs of m. What stands for a number x is called its residue:
// - For an odd m of two or more limbs it is x 2^(64 n) mod m. Products are reduced by Montgomery's
//   method, which needs no quotients.
// - For any other m it is a number below M that equals x modulo m. M is m shifted left until its
//   highest bit is set, which is a multiple of m. Products are divided by M.
//
// All residues have n limbs, and n is the width in force while these functions run. dest may be an
// operand, but may not overlap one in part.
//
// Source: Montgomery, "Modular multiplication without trial division", Mathematics of Computation
// 44 (1985).
#pragma once

#include <cstdint>

#include "exact/limb_division.h"

namespace tallymere {

/// The limbs that a modulus of n limbs needs beside its own.
constexpr int64_t UintModulusRoom(int64_t n) {
    return 3 * n;
}

/// A prepared modulus m.
struct UintModulus {
    const uint64_t* limbs;     ///< m, in n limbs, the highest of which is not 0
    UintLimbDivisor divisor;   ///< M; its count is n
    uint64_t negativeInverse;  ///< -1 / m modulo 2^64 for Montgomery's reduction, else 0
    uint64_t* product;         ///< room for a product: 2 n limbs
};

/// Prepares the modulus m of n limbs, n >= 1. Its highest limb is not 0. The n limbs at m and the
/// UintModulusRoom(n) limbs at `room` must live as long as the result. The width in force does not
/// matter here.
UintModulus PrepareUintModulus(uint64_t* room, const uint64_t* m, int64_t n);

/// dest = the residue of an a of `length` limbs, length >= 0. It takes n + length + 1 limbs of
/// CoreScratch at the most.
void UintResidueFrom(uint64_t* dest, const uint64_t* a, int64_t length, const UintModulus& modulus);

/// dest = the number below m that the residue x stands for. It takes n + 1 limbs of CoreScratch at
/// the most.
void UintResidueTo(uint64_t* dest, const uint64_t* x, const UintModulus& modulus);

/// dest = x + y, for residues x and y.
void UintResidueAdd(uint64_t* dest, const uint64_t* x, const uint64_t* y,
                    const UintModulus& modulus);

/// dest = x y, for residues x and y.
void UintResidueMultiply(uint64_t* dest, const uint64_t* x, const uint64_t* y,
                         const UintModulus& modulus);

/// dest = x^2, for a residue x.
void UintResidueSquare(uint64_t* dest, const uint64_t* x, const UintModulus& modulus);

}  // namespace tallymere
