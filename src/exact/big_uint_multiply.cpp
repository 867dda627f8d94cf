#include "exact/big_uint_multiply.h"

#include <algorithm>

#include "core/scratch.h"
#include "core/wide_arithmetic.h"
#include "exact/big_uint.h"

namespace tallymere {

namespace {

// a[0 .. la) * b[0 .. lb) in la + lb limbs at dest, which overlaps neither.
void MultiplyLimbs(uint64_t* dest, const uint64_t* a, int64_t la, const uint64_t* b, int64_t lb) {
    std::fill_n(dest, la + lb, uint64_t{0});
    for (int64_t i = 0; i < la; i++) {
        uint64_t carry = 0;
        for (int64_t j = 0; j < lb; j++) {
            const Wide term = wide::Add(wide::Multiply(a[i], b[j]), {0, dest[i + j]});
            const Wide sum = wide::Add(term, {0, carry});
            dest[i + j] = sum.low;
            carry = sum.high;
        }
        dest[i + lb] = carry;
    }
}

void Overflow(uint64_t* dest) {
    BigUintClear(dest);
    SetCalcError(CalcErrorOverflow);
}

}  // namespace

void BigUintMulSmall(uint64_t* dest, const uint64_t* a, uint64_t k) {
    uint64_t carry = 0;
    for (int64_t i = 0; i < numberContext.uintLimbs; i++) {
        const Wide sum = wide::Add(wide::Multiply(a[i], k), {0, carry});
        dest[i] = sum.low;
        carry = sum.high;
    }
    if (carry != 0) {
        Overflow(dest);
    }
}

void BigUintMul(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    const int64_t width = numberContext.uintLimbs;
    const int64_t la = BigUintLength(a);
    const int64_t lb = BigUintLength(b);
    if (la == 0 || lb == 0) {
        BigUintClear(dest);
        return;
    }
    if (la + lb > width + 1) {
        Overflow(dest);
        return;
    }
    CoreScratchScope scratch;
    uint64_t* product = scratch.Take(la + lb);
    MultiplyLimbs(product, a, la, b, lb);
    const int64_t kept = std::min(la + lb, width);
    if (la + lb > width && product[width] != 0) {
        Overflow(dest);
        return;
    }
    std::copy_n(product, kept, dest);
    std::fill_n(dest + kept, width - kept, uint64_t{0});
}

void BigUintMulFull(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    const int64_t width = numberContext.uintLimbs;
    const int64_t la = BigUintLength(a);
    const int64_t lb = BigUintLength(b);
    if (la == 0 || lb == 0) {
        std::fill_n(dest, 2 * width, uint64_t{0});
        return;
    }
    MultiplyLimbs(dest, a, la, b, lb);
    std::fill_n(dest + la + lb, 2 * width - la - lb, uint64_t{0});
}

}  // namespace tallymere
