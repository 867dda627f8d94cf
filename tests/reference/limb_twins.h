// Plain twins of the limb operations, one limb product and one 128-bit division at a time.
//
// They share nothing with the program but the names of its types and the layout in the context, and
// are held as close to the textbook steps as they can be: the program's own ways must give the same
// limbs and the same guard limb for every operand. Arrays hold the most significant limb first.
#pragma once

#include <cstdint>
#include <vector>

namespace tallymere::reference {

using Limbs = std::vector<uint64_t>;

/// The limbs of a result and the base-10^19 digit below them.
struct LimbResult {
    Limbs limbs;
    uint64_t guard = 0;
    int64_t count = 0;  ///< Normalise: digits moved left; Multiply: 1 if moved up one digit
};

uint64_t TenTo(int64_t k);
int64_t CountDigits(uint64_t v);

LimbResult ShiftRightDigits(const Limbs& src, int64_t k, uint64_t guard);
LimbResult ShiftLeftDigits(const Limbs& src, int64_t k, uint64_t guard);
LimbResult ShiftRightFar(const Limbs& src, int64_t k);
LimbResult ShiftLeftFar(const Limbs& src, int64_t k, uint64_t guard);
LimbResult Normalise(const Limbs& src, uint64_t guard);

/// The quotient by d of `remainder` < d and src behind it, whose remainder replaces the first.
Limbs Divide(const Limbs& src, uint64_t d, uint64_t& remainder);

/// The short product of two mantissas, row by row with one reduction for each limb product.
LimbResult Multiply(const Limbs& a, const Limbs& b);

}  // namespace tallymere::reference
