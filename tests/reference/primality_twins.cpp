#include "reference/primality_twins.h"

#include <cstddef>
#include <numeric>

#include "reference/big_uint_division_twins.h"

namespace tallymere::reference {

namespace {

constexpr uint64_t LargestTableNumber = 1'008;
constexpr uint64_t LargestTablePrime = 997;

bool IsSmallPrime(uint64_t n) {
    for (uint64_t d = 2; d < n; d++) {
        if (n % d == 0) {
            return false;
        }
    }
    return n >= 2 && n <= LargestTablePrime;
}

bool FitsWord(const TwinLimbs& a) {
    for (size_t i = 1; i < a.size(); i++) {
        if (a[i] != 0) {
            return false;
        }
    }
    return true;
}

bool EqualsWord(const TwinLimbs& a, uint64_t k) {
    return a[0] == k && FitsWord(a);
}

void SubtractOne(TwinLimbs& a) {
    for (uint64_t& limb : a) {
        limb--;
        if (limb != ~uint64_t{0}) {
            return;
        }
    }
}

void ShiftRightByOne(TwinLimbs& a) {
    for (size_t i = 0; i < a.size(); i++) {
        a[i] = a[i] >> 1 | (i + 1 < a.size() ? a[i + 1] << 63 : 0);
    }
}

void ShiftLeftByOne(TwinLimbs& a) {
    for (size_t i = a.size(); i-- > 0;) {
        a[i] = a[i] << 1 | (i > 0 ? a[i - 1] >> 63 : 0);
    }
}

bool Bit(const TwinLimbs& a, size_t i) {
    return ((a[i / 64] >> (i % 64)) & 1) != 0;
}

TwinLimbs Widened(TwinLimbs a, size_t width) {
    a.resize(width, 0);
    return a;
}

// True when the power is the symbol modulo n.
bool IsSymbol(const TwinLimbs& power, int32_t symbol, TwinLimbs n) {
    if (symbol == 1) {
        return EqualsWord(power, 1);
    }
    SubtractOne(n);
    return power == n;
}

}  // namespace

int TwinIsCompositeNumber(const TwinLimbs& n) {
    if (FitsWord(n) && n[0] <= LargestTableNumber) {
        return IsSmallPrime(n[0]) ? 0 : 1;
    }
    if (n[0] % 2 == 0) {
        return 1;
    }
    for (uint64_t d = 3; d <= LargestTablePrime; d += 2) {
        if (IsSmallPrime(d) && TwinDivideSmall(n, d).remainder == 0) {
            return 1;
        }
    }
    return TwinEulerTestBase2(n) && TwinEulerTestBase3(n) ? 0 : 1;
}

bool TwinEulerTestBase2(const TwinLimbs& n) {
    const size_t width = 2 * n.size();
    const TwinLimbs modulus = Widened(n, width);
    TwinLimbs exponent = modulus;
    ShiftRightByOne(exponent);
    size_t top = 64 * width - 1;
    while (!Bit(exponent, top)) {
        top--;
    }
    TwinLimbs power = Widened({2}, width);
    for (size_t i = top; i-- > 0;) {
        const TwinLimbs half(power.begin(), power.begin() + static_cast<std::ptrdiff_t>(n.size()));
        power = TwinDivide(TwinMulFull(half, half), modulus).remainder;
        if (Bit(exponent, i)) {
            ShiftLeftByOne(power);
            power = TwinDivide(power, modulus).remainder;
        }
    }
    TwinLimbs square = TwinMulFull(n, n);
    square[0]--;
    return IsSymbol(power, Bit(square, 3) ? -1 : 1, modulus);
}

bool TwinEulerTestBase3(const TwinLimbs& n) {
    if (n[0] % 2 == 0) {
        return false;
    }
    const TwinLimbs three = Widened({3}, n.size());
    TwinLimbs exponent = n;
    ShiftRightByOne(exponent);
    return IsSymbol(TwinModPower(three, exponent, n).limbs, TwinJacobiSymbol(three, n), n);
}

int32_t TwinJacobiSymbol(const TwinLimbs& a, const TwinLimbs& b) {
    TwinLimbs upper = a;
    TwinLimbs lower = b;
    int32_t symbol = 1;
    while (!EqualsWord(upper, 0) && !EqualsWord(upper, 1)) {
        if (upper[0] % 2 != 0) {
            TwinLimbs upperLessOne = upper;
            TwinLimbs lowerLessOne = lower;
            SubtractOne(upperLessOne);
            SubtractOne(lowerLessOne);
            if (Bit(TwinMulFull(upperLessOne, lowerLessOne), 2)) {
                symbol = -symbol;
            }
            const TwinLimbs rest = TwinDivide(lower, upper).remainder;
            lower = upper;
            upper = rest;
        } else {
            TwinLimbs square = TwinMulFull(lower, lower);
            square[0]--;
            if (Bit(square, 3)) {
                symbol = -symbol;
            }
            ShiftRightByOne(upper);
        }
    }
    return symbol;
}

bool TwinIsPrimeByWalk(uint64_t n) {
    for (uint64_t d = 2; d <= n / d; d++) {
        const bool isOnWheel = d <= 13 || std::gcd(d, uint64_t{30030}) == 1;
        if (isOnWheel && n % d == 0) {
            return false;
        }
    }
    return true;
}

}  // namespace tallymere::reference
