// Integers of up to 128 bits: what the searches need of them beyond sums and products of words.
#pragma once

#include <cstdint>

#include "core/contract.h"
#include "core/wide_arithmetic.h"
#include "numtheory/montgomery.h"

namespace tallymere {

/// a b modulo 2^128.
constexpr Wide MultiplyLow(Wide a, Wide b) {
    Wide product = wide::Multiply(a.low, b.low);
    product.high += a.high * b.low + a.low * b.high;
    return product;
}

/// The remainder of n by d, for d >= 1.
constexpr uint64_t RemainderByWord(Wide n, uint64_t d) {
    TALLYMERE_REQUIRE(d >= 1);
    if (n.high == 0) {
        return n.low % d;
    }
    const uint64_t high = n.high % d;
    return n.low - wide::Divide({high, n.low}, d) * d;
}

/// The quotient of n by d, rounded down, for d >= 1.
constexpr Wide DivideByWord(Wide n, uint64_t d) {
    TALLYMERE_REQUIRE(d >= 1);
    const uint64_t high = n.high / d;
    return {high, wide::Divide({n.high - high * d, n.low}, d)};
}

/// The quotient of n by an odd d that divides it.
/// Method: the product with the inverse of d modulo 2^128, by one more step of Newton's iteration.
constexpr Wide DivideExactly(Wide n, Wide d) {
    const Wide inverse = {0, InverseModuloWord(d.low)};
    const Wide error = wide::Subtract({0, 2}, MultiplyLow(d, inverse));
    return MultiplyLow(n, MultiplyLow(inverse, error));
}

/// The square root of n, rounded down.
constexpr uint64_t SquareRootOf(Wide n) {
    uint64_t root = 0;
    for (uint64_t bit = uint64_t{1} << 63; bit != 0; bit >>= 1) {
        if (AtLeast(n, wide::Multiply(root | bit, root | bit))) {
            root |= bit;
        }
    }
    return root;
}

}  // namespace tallymere
