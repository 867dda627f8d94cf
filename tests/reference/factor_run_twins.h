// Plain twin of the run of the Prime Factors page, for small numbers: every number is a candidate
// for a divisor. It writes in English and knows no stop and no error.
#pragma once

#include <cstdint>
#include <string>

namespace tallymere::reference {

/// The lines of `interval` numbers from `first` on, all of them below 2^32. Base 10 or 16; groups
/// have a "," between them.
std::u16string TwinFactorLines(uint64_t first, int64_t interval, int base, bool grouped);
std::u16string TwinDivisorLines(uint64_t first, int64_t interval, int base, bool grouped,
                                bool showCount);

}  // namespace tallymere::reference
