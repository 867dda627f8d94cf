// Plain twins of the conversions between integers of 64-bit words and decimal numbers: a division
// by 10^19 for each limb.
#pragma once

#include <cstdint>
#include <vector>

#include "reference/limb_twins.h"

namespace tallymere::reference {

/// The integer in words, least significant first, as limbs, most significant first and not 0.
Limbs TwinDecimalLimbs(std::vector<uint64_t> words);

/// The mantissa in the current layout of an integer that is not 0, with the digit below it as guard
/// and the decimal exponent as count.
LimbResult TwinRealFromWords(const std::vector<uint64_t>& words);

}  // namespace tallymere::reference
