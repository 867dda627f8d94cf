// The columns of a product of limb arrays: each is summed in full and split by 10^19 once.
#pragma once

#include "core/contract.h"
#include "core/limb.h"

namespace tallymere {

/// A column sum of limb products: 192 bits, which up to 2^64 products and a carry cannot fill.
struct ColumnSum {
    uint64_t overflow = 0;
    Wide sum = {0, 0};
};

/// Splits a column sum by LimbBase: returns the limb and leaves the carry, which may exceed 64
/// bits, as the sum of the next column.
inline Limb TakeLimb(ColumnSum& column) {
    LimbQuotient upper;
    if (column.overflow == 0) {
        const bool fits = column.sum.high < LimbBase;
        upper = {fits ? 0u : 1u, column.sum.high - (fits ? 0 : LimbBase)};
    } else {
        upper = DivideByLimbBase({column.overflow, column.sum.high});
    }
    const LimbQuotient lower = DivideByLimbBase({upper.remainder, column.sum.low});
    column = {0, {upper.quotient, lower.quotient}};
    return lower.remainder;
}

/// That many products of limbs add up within 128 bits: 3 (10^19 - 1)^2 < 2^128.
inline constexpr int64_t ProductsPerGroup = 3;

/// Adds a[i] * b[-i] for 0 <= i < count.
inline void AddProducts(ColumnSum& column, const Limb* a, const Limb* b, int64_t count) {
    TALLYMERE_REQUIRE(count >= 0);
    uint64_t overflow = column.overflow;
    Wide sum = column.sum;
    int64_t i = 0;
    for (; i + ProductsPerGroup <= count; i += ProductsPerGroup) {
        const Wide two =
            wide::Add(wide::Multiply(a[i], b[-i]), wide::Multiply(a[i + 1], b[-i - 1]));
        wide::Accumulate(overflow, sum, wide::Add(two, wide::Multiply(a[i + 2], b[-i - 2])));
    }
    for (; i < count; i++) {
        wide::Accumulate(overflow, sum, wide::Multiply(a[i], b[-i]));
    }
    column = {overflow, sum};
}

}  // namespace tallymere
