// The numbers that a page of systems or of polynomials calculates with, as its user chooses them.
#pragma once

#include <cstdint>

#include "core/limits.h"
#include "core/number_context.h"

namespace tallymere {

/// The digits that can be asked for; DefaultDigits without a choice.
inline constexpr int32_t MinChosenDigits = 5;
inline constexpr int32_t MaxChosenDigits = 1000;

struct NumberChoice {
    NumberType type = NumberTypeReal;  ///< of those in NumberTypeRows
    int64_t digits = DefaultDigits;    ///< counts only if NumberTypeHasDigits
};

/// Whether the digits can be chosen. Fractions are exact.
constexpr bool NumberTypeHasDigits(NumberType type) {
    return type != NumberTypeRational;
}

}  // namespace tallymere
