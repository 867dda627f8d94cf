// Plain twins of the series: every term a number of p digits, from products and quotients of whole
// numbers, added to the sum as a number.
#pragma once

#include <cstdint>

#include "core/real_number.h"

namespace tallymere::reference {

/// The end of a series, after `term` was added to `sum`.
bool SeriesIsOver(const RealNumber* sum, const RealNumber* term);

void SeriesExp(RealNumber* dest, const RealNumber* x);
int64_t SeriesAtanh(RealNumber* dest, const RealNumber* x);
void SeriesAtan(RealNumber* dest, const RealNumber* x);
void SeriesSin(RealNumber* dest, const RealNumber* x);
void SeriesCos(RealNumber* dest, const RealNumber* x);
void SeriesSinh(RealNumber* dest, const RealNumber* x);
void SeriesSinCos(RealNumber* sine, RealNumber* cosine, const RealNumber* x);
void SeriesSinhCosh(RealNumber* sinh, RealNumber* cosh, const RealNumber* x);

}  // namespace tallymere::reference
