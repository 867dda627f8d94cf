#include "reference/big_uint_multiply_twins.h"

#include <cstddef>

namespace tallymere::reference {

namespace {

// x * y + c + w in two words, by halves.
struct TwoWords {
    uint64_t high;
    uint64_t low;
};

TwoWords MultiplyAdd(uint64_t x, uint64_t y, uint64_t c, uint64_t w) {
    constexpr uint64_t half = 0xFFFFFFFFu;
    const uint64_t a = (x & half) * (y & half) + (c & half) + (w & half);
    const uint64_t b = (x >> 32) * (y & half) + (a >> 32) + (c >> 32);
    const uint64_t d = (x & half) * (y >> 32) + (b & half) + (w >> 32);
    return {(x >> 32) * (y >> 32) + (b >> 32) + (d >> 32), d << 32 | (a & half)};
}

size_t Length(const TwinLimbs& a) {
    size_t length = a.size();
    while (length > 0 && a[length - 1] == 0) {
        length--;
    }
    return length;
}

TwinLimbs Product(const TwinLimbs& a, size_t la, const TwinLimbs& b, size_t lb) {
    TwinLimbs product(la + lb, 0);
    for (size_t i = 0; i < la; i++) {
        uint64_t carry = 0;
        for (size_t j = 0; j < lb; j++) {
            const TwoWords sum = MultiplyAdd(a[i], b[j], product[i + j], carry);
            product[i + j] = sum.low;
            carry = sum.high;
        }
        product[i + lb] = carry;
    }
    return product;
}

}  // namespace

TwinUint TwinMul(const TwinLimbs& a, const TwinLimbs& b) {
    const size_t width = a.size();
    const TwinUint zero = {TwinLimbs(width, 0)};
    const size_t la = Length(a);
    const size_t lb = Length(b);
    if (la == 0 || lb == 0) {
        return zero;
    }
    if (la + lb > width + 1) {
        return {zero.limbs, CalcErrorOverflow};
    }
    TwinLimbs product = Product(a, la, b, lb);
    if (la + lb == width + 1 && product[width] != 0) {
        return {zero.limbs, CalcErrorOverflow};
    }
    product.resize(width, 0);
    return {product};
}

TwinLimbs TwinMulFull(const TwinLimbs& a, const TwinLimbs& b) {
    return Product(a, a.size(), b, b.size());
}

}  // namespace tallymere::reference
