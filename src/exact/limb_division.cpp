#include "exact/limb_division.h"

#include <functional>

#include "core/contract.h"
#include "core/word_products.h"

namespace tallymere {

namespace {

// Rows of fewer limbs are multiplied in line, since a call would cost more than it saves.
constexpr int64_t LongRow = 6;

void Complement(uint64_t* limbs, int64_t n) {
    for (int64_t i = 0; i < n; i++) {
        limbs[i] = ~limbs[i];
    }
}

void DivideByOneLimb(uint64_t* quotient, uint64_t* r, int64_t m, const UintLimbDivisor& divisor) {
    uint64_t remainder = r[m];
    for (int64_t j = m - 1; j >= 0; j--) {
        const LimbQuotient parts =
            DivideByWord({remainder, r[j]}, divisor.limbs[0], divisor.reciprocal);
        remainder = parts.remainder;
        if (quotient != nullptr) {
            quotient[j] = parts.quotient;
        }
    }
    r[0] = remainder;
}

// For a divisor of at least two limbs.
//
// `high` holds the two highest limbs of the remainder. r holds the complements of the limbs below
// them: since ~x = -1 - x, a product is subtracted from x by adding it to ~x, and the loop that
// adds is the faster one.
//
// Method: Knuth, "The Art of Computer Programming" 2, 4.3.1, algorithm D. The estimate of a
// quotient limb divides three limbs by two, so it is too large by at most 1.
void DivideByRows(uint64_t* quotient, uint64_t* r, int64_t m, const UintLimbDivisor& divisor) {
    const int64_t lower = divisor.count - 2;
    const uint64_t* b = divisor.limbs;
    const Wide top = {b[lower + 1], b[lower]};
    Wide high = {r[m + lower + 1], r[m + lower]};
    Complement(r, m + lower);
    for (int64_t j = m - 1; j >= 0; j--) {
        uint64_t* row = r + j;
        const uint64_t limb = ~row[lower];
        uint64_t digit = ~uint64_t{0};
        if (AtLeast(high, top)) [[unlikely]] {
            const uint64_t borrow = UintLimbsAddProduct(row, b, lower, digit);
            high = wide::Subtract(wide::Add(top, {0, limb}), {0, borrow});
        } else {
            const WideQuotient estimate = DivideByWide(high, limb, top, divisor.reciprocal);
            digit = estimate.quotient;
            const Wide borrow = {0, UintLimbsAddProduct(row, b, lower, digit)};
            high = wide::Subtract(estimate.remainder, borrow);
            if (!AtLeast(estimate.remainder, borrow)) [[unlikely]] {
                digit--;
                high = wide::Add(wide::Add(high, top), {0, UintLimbsSubtract(row, b, lower)});
            }
        }
        if (quotient != nullptr) {
            quotient[j] = digit;
        }
    }
    Complement(r, lower);
    r[lower] = high.low;
    r[lower + 1] = high.high;
}

// True when the divisor's count of limbs at `limbs` is below the divisor.
bool IsBelow(const uint64_t* limbs, const UintLimbDivisor& divisor) {
    for (int64_t i = divisor.count - 1; i >= 0; i--) {
        if (limbs[i] != divisor.limbs[i]) {
            return limbs[i] < divisor.limbs[i];
        }
    }
    return false;
}

}  // namespace

bool UintLimbsAreApart(const uint64_t* a, int64_t aCount, const uint64_t* b, int64_t bCount) {
    TALLYMERE_REQUIRE(aCount >= 0 && bCount >= 0);
    // std::less_equal orders the addresses of different arrays too.
    return std::less_equal<>{}(a + aCount, b) || std::less_equal<>{}(b + bCount, a);
}

bool UintLimbDivisorIsWellFormed(const UintLimbDivisor& divisor) {
    const int64_t n = divisor.count;
    if (n < 1 || divisor.shift < 0 || divisor.shift > 63 || divisor.limbs[n - 1] >> 63 == 0) {
        return false;
    }
    return divisor.reciprocal ==
           (n == 1 ? WordReciprocal(divisor.limbs[0])
                   : WideReciprocal({divisor.limbs[n - 1], divisor.limbs[n - 2]}));
}

uint64_t UintLimbsShiftLeft(uint64_t* dest, const uint64_t* src, int64_t n, int shift) {
    TALLYMERE_REQUIRE(n >= 1 && shift >= 0 && shift <= 63);
    TALLYMERE_REQUIRE(!std::less<>{}(dest, src) || UintLimbsAreApart(dest, n, src, n));
    // Two shifts, since one shift by 64 is undefined.
    const auto fromBelow = [shift](uint64_t limb) { return (limb >> 1) >> (63 - shift); };
    const uint64_t out = fromBelow(src[n - 1]);
    for (int64_t i = n - 1; i > 0; i--) {
        dest[i] = (src[i] << shift) | fromBelow(src[i - 1]);
    }
    dest[0] = src[0] << shift;
    return out;
}

void UintLimbsShiftRight(uint64_t* dest, const uint64_t* src, int64_t n, int shift) {
    TALLYMERE_REQUIRE(n >= 1 && shift >= 0 && shift <= 63);
    TALLYMERE_REQUIRE(!std::less<>{}(src, dest) || UintLimbsAreApart(dest, n, src, n));
    const auto fromAbove = [shift](uint64_t limb) { return (limb << 1) << (63 - shift); };
    for (int64_t i = 0; i + 1 < n; i++) {
        dest[i] = (src[i] >> shift) | fromAbove(src[i + 1]);
    }
    dest[n - 1] = src[n - 1] >> shift;
}

uint64_t UintLimbsAddProduct(uint64_t* r, const uint64_t* b, int64_t n, uint64_t k) {
    TALLYMERE_REQUIRE(n >= 0);
    if (n >= LongRow) {
        return MultiplyAddWords(r, b, n, k);
    }
    return words_portable::MultiplyAdd(r, b, n, k);
}

uint64_t UintLimbsSubtract(uint64_t* r, const uint64_t* b, int64_t n) {
    TALLYMERE_REQUIRE(n >= 0);
    uint64_t borrow = 0;
    for (int64_t i = 0; i < n; i++) {
        const Wide difference = wide::Subtract(wide::Subtract({0, r[i]}, {0, b[i]}), {0, borrow});
        r[i] = difference.low;
        borrow = difference.high & 1;
    }
    return borrow;
}

UintLimbDivisor PrepareDivisor(uint64_t* store, const uint64_t* b, int64_t n) {
    TALLYMERE_REQUIRE(n >= 1 && b[n - 1] != 0);
    const int shift = 63 - HighestBit(b[n - 1]);
    UintLimbsShiftLeft(store, b, n, shift);
    const uint64_t reciprocal =
        n == 1 ? WordReciprocal(store[0]) : WideReciprocal({store[n - 1], store[n - 2]});
    return {store, n, shift, reciprocal};
}

void UintLimbsDivide(uint64_t* quotient, uint64_t* r, int64_t m, const UintLimbDivisor& divisor) {
    TALLYMERE_REQUIRE(UintLimbDivisorIsWellFormed(divisor));
    TALLYMERE_REQUIRE(m >= 0 && IsBelow(r + m, divisor));
    TALLYMERE_REQUIRE(UintLimbsAreApart(r, m + divisor.count, divisor.limbs, divisor.count));
    TALLYMERE_REQUIRE(quotient == nullptr ||
                      (UintLimbsAreApart(quotient, m, r, m + divisor.count) &&
                       UintLimbsAreApart(quotient, m, divisor.limbs, divisor.count)));
    if (divisor.count == 1) {
        DivideByOneLimb(quotient, r, m, divisor);
    } else {
        DivideByRows(quotient, r, m, divisor);
    }
}

}  // namespace tallymere
