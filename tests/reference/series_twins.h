// Plain twins of the series: every term a number of p digits, from products and quotients of whole
// numbers, added to the sum as a number.
#pragma once

#include <cstdint>

#include "core/real_number.h"

namespace tallymere::reference {

void SeriesExp(RealNumber* dest, const RealNumber* x);
int64_t SeriesAtanh(RealNumber* dest, const RealNumber* x);

}  // namespace tallymere::reference
