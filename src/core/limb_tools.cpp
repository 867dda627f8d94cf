#include "core/limb_tools.h"

#include <cstring>

#include "core/contract.h"
#include "core/number_context.h"

namespace tallymere {

void LimbsClear(Limb* dest, int64_t n) {
    TALLYMERE_REQUIRE(n >= 0);
    std::memset(dest, 0, static_cast<size_t>(n) * sizeof(Limb));
}

void LimbsCopy(Limb* dest, const Limb* src, int64_t n) {
    TALLYMERE_REQUIRE(n >= 0);
    std::memmove(dest, src, static_cast<size_t>(n) * sizeof(Limb));
}

bool LimbsAreZero(const Limb* limbs, int64_t n) {
    TALLYMERE_REQUIRE(n >= 0);
    for (int64_t i = 0; i < n; i++) {
        if (limbs[i] != 0) {
            return false;
        }
    }
    return true;
}

int LimbsCompare(const Limb* a, const Limb* b, int64_t n) {
    TALLYMERE_REQUIRE(n >= 0);
    for (int64_t i = 0; i < n; i++) {
        if (a[i] != b[i]) {
            return a[i] < b[i] ? -1 : 1;
        }
    }
    return 0;
}

Limb LimbsShiftRightDigits(Limb* dest, const Limb* src, int64_t m, int64_t k, Limb guard) {
    TALLYMERE_REQUIRE(m >= 1 && k >= 0 && k <= DigitsPerLimb && guard < LimbBase);
    TALLYMERE_REQUIRE(SameOrApart(dest, src, m));
    if (k == 0) {
        LimbsCopy(dest, src, m);
        return guard;
    }
    const Limb scale = PowerOfTen(DigitsPerLimb - k);
    Limb fallen = 0;
    for (int64_t i = 0; i < m; i++) {
        const LimbQuotient parts = DivideByPowerOfTen(src[i], k);
        dest[i] = fallen * scale + parts.quotient;
        fallen = parts.remainder;
    }
    return fallen * scale + DivideByPowerOfTen(guard, k).quotient;
}

Limb LimbsShiftLeftDigits(Limb* dest, const Limb* src, int64_t m, int64_t k, Limb guard) {
    TALLYMERE_REQUIRE(m >= 1 && k >= 0 && k <= DigitsPerLimb && guard < LimbBase);
    TALLYMERE_REQUIRE(SameOrApart(dest, src, m));
    if (k == 0) {
        LimbsCopy(dest, src, m);
        return guard;
    }
    const Limb scale = PowerOfTen(k);
    const int64_t kept = DigitsPerLimb - k;
    Limb upper = DivideByPowerOfTen(src[0], kept).remainder;
    for (int64_t i = 0; i < m; i++) {
        const LimbQuotient next = DivideByPowerOfTen(i + 1 < m ? src[i + 1] : guard, kept);
        dest[i] = upper * scale + next.quotient;
        upper = next.remainder;
    }
    return upper * scale;
}

Limb LimbsShiftRightFar(Limb* dest, const Limb* src, int64_t m, int64_t k) {
    TALLYMERE_REQUIRE(m >= 1 && k >= 0);
    TALLYMERE_REQUIRE(SameOrApart(dest, src, m));
    const int64_t whole = k / DigitsPerLimb;
    if (whole > m) {
        LimbsClear(dest, m);
        return 0;
    }
    const Limb guard = whole > 0 ? src[m - whole] : 0;
    LimbsCopy(dest + whole, src, m - whole);
    LimbsClear(dest, whole);
    return LimbsShiftRightDigits(dest, dest, m, k % DigitsPerLimb, guard);
}

Limb LimbsShiftLeftFar(Limb* dest, const Limb* src, int64_t m, int64_t k, Limb guard) {
    TALLYMERE_REQUIRE(m >= 1 && k >= 0 && guard < LimbBase);
    TALLYMERE_REQUIRE(SameOrApart(dest, src, m));
    const int64_t whole = k / DigitsPerLimb;
    if (whole == 0) {
        return LimbsShiftLeftDigits(dest, src, m, k, guard);
    }
    if (whole > m) {
        LimbsClear(dest, m);
        return 0;
    }
    LimbsCopy(dest, src + whole, m - whole);
    dest[m - whole] = guard;
    LimbsClear(dest + (m - whole) + 1, whole - 1);
    return LimbsShiftLeftDigits(dest, dest, m, k % DigitsPerLimb, 0);
}

// One step divides v = remainder * LimbBase + limb. With value = remainder * part + limb this is
// d (remainder * whole) + value, so a limb of the quotient is remainder * whole + value / d.
// The reciprocal makes value / d too small by one at most. The remainder is then below 2 d and goes
// on as it is: the next value still fits 64 bits. The quotient is put right apart from the chain
// from limb to limb, which takes the time: one high product, one low product and a difference.
uint64_t LimbsDivideUint(Limb* dest, const Limb* src, int64_t m, int64_t zeros, uint64_t d,
                         uint64_t remainder) {
    TALLYMERE_REQUIRE(m >= 0 && zeros >= 0);
    TALLYMERE_REQUIRE(d >= 1 && d < UintDivisorLimit && remainder < d);
    TALLYMERE_REQUIRE(!std::less<>()(src, dest) || SameOrApart(dest, src, m));
    const uint64_t whole = LimbBase / d;
    const uint64_t part = LimbBase % d;
    const uint64_t reciprocal = ~uint64_t{0} / d;
    const uint64_t step = part * d;
    const int64_t count = m + zeros;
    uint64_t value = remainder * part + (m > 0 ? src[0] : 0);
    uint64_t excess = 0;  // by which the remainder in `value` is too large, in units of d
    for (int64_t i = 0; i < count; i++) {
        const Limb below = i + 1 < m ? src[i + 1] : 0;
        const uint64_t quotient = MultiplyHigh(value, reciprocal);
        const uint64_t rest = value - quotient * d;
        value = value * part + below - quotient * step;  // rest * part + below, modulo 2^64
        const uint64_t tooSmall = rest >= d ? 1 : 0;
        dest[i] = remainder * whole + quotient + tooSmall - excess * part;
        remainder = rest - (d & (0 - tooSmall));
        excess = tooSmall;
    }
    return remainder;
}

Limb LimbsNormalise(Limb* dest, const Limb* src, int64_t m, int64_t* count, Limb guard) {
    TALLYMERE_REQUIRE(m >= 1 && guard < LimbBase);
    TALLYMERE_REQUIRE(SameOrApart(dest, src, m));
    int64_t first = 0;
    while (first < m && src[first] == 0) {
        first++;
    }
    const Limb leading = first < m ? src[first] : guard;
    if (leading == 0) {
        LimbsClear(dest, m);
        *count = 0;
        return 0;
    }
    const int64_t shift = DigitsPerLimb * first + numberContext.topLimbDigits - DigitCount(leading);
    *count = shift;
    if (shift < 0) {
        return LimbsShiftRightDigits(dest, src, m, -shift, guard);
    }
    return LimbsShiftLeftFar(dest, src, m, shift, guard);
}

Limb LimbsAdd(Limb* dest, const Limb* a, const Limb* b, int64_t n) {
    TALLYMERE_REQUIRE(n >= 1);
    TALLYMERE_REQUIRE(SameOrApart(dest, a, n) && SameOrApart(dest, b, n));
    Limb carry = 0;
    for (int64_t i = n - 1; i >= 0; i--) {
        dest[i] = AddLimbs(a[i], b[i], carry);
    }
    return carry;
}

Limb LimbsSubtract(Limb* dest, const Limb* a, const Limb* b, int64_t n, Limb guard) {
    TALLYMERE_REQUIRE(n >= 1 && guard < LimbBase);
    TALLYMERE_REQUIRE(SameOrApart(dest, a, n) && SameOrApart(dest, b, n));
    Limb borrow = guard != 0 ? 1 : 0;
    for (int64_t i = n - 1; i >= 0; i--) {
        dest[i] = SubtractLimbs(a[i], b[i], borrow);
    }
    TALLYMERE_REQUIRE(borrow == 0);  // a >= b + (guard != 0)
    return guard != 0 ? LimbBase - guard : 0;
}

}  // namespace tallymere
