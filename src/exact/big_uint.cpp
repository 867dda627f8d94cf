#include "exact/big_uint.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/wide_arithmetic.h"

namespace tallymere {

namespace {

// dest = a shifted right by limbShift limbs and `bits` bits, 0 <= limbShift <= width, 0 <= bits <
// 64. The arrays may overlap in any way.
void ShiftRight(uint64_t* dest, const uint64_t* a, int64_t limbShift, int bits) {
    const int64_t kept = numberContext.uintLimbs - limbShift;
    const uint64_t* source = a + limbShift;
    const auto limbAt = [=](int64_t i) {
        const uint64_t above = i + 1 < kept ? source[i + 1] : 0;
        // Two shifts, since one shift by 64 is undefined.
        return (source[i] >> bits) | (above << 1 << (63 - bits));
    };
    if (dest <= source) {
        for (int64_t i = 0; i < kept; i++) {
            dest[i] = limbAt(i);
        }
        std::fill_n(dest + kept, limbShift, uint64_t{0});
    } else {
        std::fill_n(dest + kept, limbShift, uint64_t{0});
        for (int64_t i = kept - 1; i >= 0; i--) {
            dest[i] = limbAt(i);
        }
    }
}

}  // namespace

void BigUintClear(uint64_t* dest) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    std::fill_n(dest, numberContext.uintLimbs, uint64_t{0});
}

void BigUintCopy(uint64_t* dest, const uint64_t* src) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, src));
    if (dest != src) {
        std::copy_n(src, numberContext.uintLimbs, dest);
    }
}

void BigUintSetFailed(uint64_t* dest, CalcError code) {
    BigUintClear(dest);
    SetCalcError(code);
}

void BigUintFromUnsigned(uint64_t* dest, uint64_t k) {
    BigUintClear(dest);
    dest[0] = k;
}

int64_t BigUintLength(const uint64_t* a) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    int64_t length = numberContext.uintLimbs;
    while (length > 0 && a[length - 1] == 0) {
        length--;
    }
    return length;
}

int64_t BigUintBitLength(const uint64_t* a) {
    const int64_t length = BigUintLength(a);
    return length == 0 ? 0 : BitsPerUintLimb * length - std::countl_zero(a[length - 1]);
}

bool BigUintWidthIsWellFormed() {
    return UintWidthIsConsistent(CurrentUintWidth());
}

bool BigUintsAreSameOrApart(const uint64_t* a, const uint64_t* b) {
    return SameOrApart(a, b, numberContext.uintLimbs);
}

bool BigUintIsZero(const uint64_t* a) {
    return BigUintLength(a) == 0;
}

bool BigUintEqualsSmall(const uint64_t* a, uint64_t k) {
    return a[0] == k && BigUintFitsUnsigned(a);
}

bool BigUintFitsUnsigned(const uint64_t* a) {
    return BigUintLength(a) <= 1;
}

bool BigUintFitsSigned(const uint64_t* a) {
    return BigUintFitsUnsigned(a) && a[0] >> 63 == 0;
}

int BigUintCompare(const uint64_t* a, const uint64_t* b) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    for (int64_t i = numberContext.uintLimbs - 1; i >= 0; i--) {
        if (a[i] != b[i]) {
            return a[i] < b[i] ? -1 : 1;
        }
    }
    return 0;
}

void BigUintAdd(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, a) && BigUintsAreSameOrApart(dest, b));
    uint64_t carry = 0;
    for (int64_t i = 0; i < numberContext.uintLimbs; i++) {
        const Wide sum = wide::Add(wide::Add({0, a[i]}, {0, b[i]}), {0, carry});
        dest[i] = sum.low;
        carry = sum.high;
    }
    if (carry != 0) {
        BigUintSetFailed(dest, CalcErrorOverflow);
    }
}

void BigUintAddSmall(uint64_t* dest, const uint64_t* a, uint64_t k) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, a));
    uint64_t carry = k;
    for (int64_t i = 0; i < numberContext.uintLimbs; i++) {
        dest[i] = a[i] + carry;
        carry = dest[i] < carry ? 1 : 0;
    }
    if (carry != 0) {
        BigUintSetFailed(dest, CalcErrorOverflow);
    }
}

void BigUintSub(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, a) && BigUintsAreSameOrApart(dest, b));
    uint64_t borrow = 0;
    for (int64_t i = 0; i < numberContext.uintLimbs; i++) {
        const Wide difference = wide::Subtract(wide::Subtract({0, a[i]}, {0, b[i]}), {0, borrow});
        dest[i] = difference.low;
        borrow = difference.high & 1;
    }
    if (borrow != 0) {
        BigUintSetFailed(dest, CalcErrorOverflow);
    }
}

void BigUintSubOne(uint64_t* dest, const uint64_t* a) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, a));
    uint64_t borrow = 1;
    for (int64_t i = 0; i < numberContext.uintLimbs; i++) {
        const uint64_t limb = a[i];
        dest[i] = limb - borrow;
        borrow = limb < borrow ? 1 : 0;
    }
    if (borrow != 0) {
        BigUintSetFailed(dest, CalcErrorOverflow);
    }
}

void BigUintResize(uint64_t* dest, int64_t destLimbs, const uint64_t* src, int64_t srcLimbs) {
    TALLYMERE_REQUIRE(destLimbs >= 0 && srcLimbs >= 0);
    if (destLimbs == 0 || srcLimbs == 0) {
        SetCalcError(CalcErrorBadParameter);
        return;
    }
    const int64_t common = std::min(destLimbs, srcLimbs);
    if (std::any_of(src + common, src + srcLimbs, [](uint64_t limb) { return limb != 0; })) {
        std::fill_n(dest, destLimbs, uint64_t{0});
        SetCalcError(CalcErrorOverflow);
        return;
    }
    std::memmove(dest, src, static_cast<size_t>(common) * sizeof(uint64_t));
    std::fill_n(dest + common, destLimbs - common, uint64_t{0});
}

void BigUintShiftRightOut(uint64_t* dest, uint64_t* out, const uint64_t* a, uint64_t n) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    if (n > BitsPerUintLimb) {
        BigUintSetFailed(dest, CalcErrorUndefined);
        if (out != nullptr) {
            *out = 0;
        }
        return;
    }
    const int64_t limbShift = n == BitsPerUintLimb ? 1 : 0;
    const int bits = static_cast<int>(n % BitsPerUintLimb);
    const uint64_t fallen = limbShift != 0 ? a[0] : a[0] & ((uint64_t{1} << bits) - 1);
    ShiftRight(dest, a, limbShift, bits);
    if (out != nullptr) {
        *out = fallen;
    }
}

void BigUintShiftRight(uint64_t* dest, const uint64_t* a, int64_t n) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    if (n < 0) {
        BigUintSetFailed(dest, CalcErrorUndefined);
        return;
    }
    const int64_t limbShift = n / BitsPerUintLimb;
    if (limbShift >= numberContext.uintLimbs) {
        BigUintClear(dest);
        return;
    }
    ShiftRight(dest, a, limbShift, static_cast<int>(n % BitsPerUintLimb));
}

void BigUintShiftLeft(uint64_t* dest, const uint64_t* a, int64_t n, bool check) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, a));
    if (n < 1 || n >= BitsPerUintLimb) {
        BigUintSetFailed(dest, CalcErrorUndefined);
        return;
    }
    const int bits = static_cast<int>(n);
    const int64_t top = numberContext.uintLimbs - 1;
    if (check && a[top] >> (BitsPerUintLimb - bits) != 0) {
        BigUintSetFailed(dest, CalcErrorOverflow);
        return;
    }
    for (int64_t i = top; i > 0; i--) {
        dest[i] = (a[i] << bits) | (a[i - 1] >> (BitsPerUintLimb - bits));
    }
    dest[0] = a[0] << bits;
}

}  // namespace tallymere
