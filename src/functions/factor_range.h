// The product of a number with a run of machine integers, several of them at a time.
#pragma once

#include <cstdint>

#include "core/real_number.h"

namespace tallymere {

/// dest = dest * from * (from + 1) * ... * to, nothing if from > to; needs from >= 1 and to below
/// 2^64 - 1. Raw, and word for word what RealMulUint gives factor by factor, each of which
/// truncates. Polls the stop request after every factor: NaN and CalcErrorCancelled.
Limb RealMulRange(RealNumber* dest, uint64_t from, uint64_t to);

}  // namespace tallymere
