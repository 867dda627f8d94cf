#include "exact/limb_division.h"

namespace tallymere {

namespace {

// r += b over n limbs, the carry out of them being of no interest.
void AddBack(uint64_t* r, const uint64_t* b, int64_t n) {
    uint64_t carry = 0;
    for (int64_t i = 0; i < n; i++) {
        const Wide sum = wide::Add(wide::Add({0, r[i]}, {0, b[i]}), {0, carry});
        r[i] = sum.low;
        carry = sum.high;
    }
}

}  // namespace

uint64_t LimbsMoveLeft(uint64_t* dest, const uint64_t* src, int64_t n, int shift) {
    if (shift == 0) {
        for (int64_t i = n - 1; i >= 0; i--) {
            dest[i] = src[i];
        }
        return 0;
    }
    uint64_t limb = n == 0 ? 0 : src[n - 1];
    const uint64_t out = limb >> (64 - shift);
    for (int64_t i = n - 1; i > 0; i--) {
        const uint64_t below = src[i - 1];
        dest[i] = (limb << shift) | (below >> (64 - shift));
        limb = below;
    }
    if (n != 0) {
        dest[0] = limb << shift;
    }
    return out;
}

void LimbsMoveRight(uint64_t* dest, const uint64_t* src, int64_t n, int shift, uint64_t above) {
    if (shift == 0) {
        for (int64_t i = 0; i < n; i++) {
            dest[i] = src[i];
        }
        return;
    }
    for (int64_t i = 0; i < n; i++) {
        const uint64_t next = i + 1 < n ? src[i + 1] : above;
        dest[i] = (src[i] >> shift) | (next << (64 - shift));
    }
}

uint64_t LimbsSubtractProduct(uint64_t* r, const uint64_t* b, int64_t n, uint64_t k) {
    uint64_t borrow = 0;
    for (int64_t i = 0; i < n; i++) {
        const Wide product = wide::Add(wide::Multiply(b[i], k), {0, borrow});
        borrow = product.high + (r[i] < product.low ? 1 : 0);
        r[i] -= product.low;
    }
    return borrow;
}

LimbDivisor PrepareDivisor(uint64_t* store, const uint64_t* b, int64_t n) {
    const int shift = 63 - HighestBit(b[n - 1]);
    LimbsMoveLeft(store, b, n, shift);
    return {store, n, shift, WideReciprocal({store[n - 1], store[n - 2]})};
}

void LimbsDivide(uint64_t* quotient, uint64_t* r, int64_t m, const LimbDivisor& divisor) {
    const int64_t n = divisor.count;
    const uint64_t* b = divisor.limbs;
    const Wide top = {b[n - 1], b[n - 2]};
    for (int64_t j = m - 1; j >= 0; j--) {
        uint64_t* part = r + j;
        const Wide high = {part[n], part[n - 1]};
        uint64_t digit = ~uint64_t{0};
        if (AtLeast(high, top)) [[unlikely]] {
            LimbsSubtractProduct(part, b, n, digit);
        } else {
            const WideQuotient estimate = DivideByWide(high, part[n - 2], top, divisor.reciprocal);
            digit = estimate.quotient;
            const uint64_t borrow = LimbsSubtractProduct(part, b, n - 2, digit);
            const Wide rest = wide::Subtract(estimate.remainder, {0, borrow});
            part[n - 2] = rest.low;
            part[n - 1] = rest.high;
            if (!AtLeast(estimate.remainder, {0, borrow})) [[unlikely]] {
                AddBack(part, b, n);
                digit--;
            }
        }
        if (quotient != nullptr) {
            quotient[j] = digit;
        }
    }
}

}  // namespace tallymere
