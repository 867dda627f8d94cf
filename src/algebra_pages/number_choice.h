// The numbers that the pages of algebra calculate with, as their users choose them.
#pragma once

#include <cstdint>

#include "core/limits.h"
#include "core/number_context.h"

namespace tallymere {

/// The digits that can be asked for; DefaultDigits without a choice. For equations MaxRootDigits
/// says the most.
inline constexpr int32_t MinChosenDigits = 5;
inline constexpr int32_t MaxChosenDigits = 1000;

/// Decimal digits and limbs of numerators and denominators, for systems and polynomials.
inline constexpr UintWidth FractionWidth = {500, 26};

/// What a page of systems or of polynomials is asked for.
struct NumberChoice {
    NumberType type = NumberTypeReal;  ///< of those in NumberTypeRows
    int64_t digits = DefaultDigits;    ///< counts only if NumberTypeHasDigits
};

/// Whether the digits can be chosen. Fractions are exact.
constexpr bool NumberTypeHasDigits(NumberType type) {
    return type != NumberTypeRational;
}

}  // namespace tallymere
