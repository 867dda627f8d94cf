// The strong test of primality, for moduli of one and of two words.
#pragma once

#include <bit>
#include <cstdint>

#include "numtheory/montgomery.h"

namespace tallymere {

constexpr int CountTrailingZeros(uint64_t a) {
    return std::countr_zero(a);
}
constexpr int CountTrailingZeros(Wide a) {
    return a.low != 0 ? std::countr_zero(a.low) : 64 + std::countr_zero(a.high);
}

constexpr int CountLeadingZeros(uint64_t a) {
    return std::countl_zero(a);
}
constexpr int CountLeadingZeros(Wide a) {
    return a.high != 0 ? std::countl_zero(a.high) : 64 + std::countl_zero(a.low);
}

constexpr bool BitOf(uint64_t a, int i) {
    return ((a >> i) & 1) != 0;
}
constexpr bool BitOf(Wide a, int i) {
    return BitOf(i >= 64 ? a.high : a.low, i % 64);
}

/// True when n passes: with n - 1 = d 2^s and an odd d, when base^d is 1 or one of base^(d 2^r) is
/// -1, for r from 0 to s - 1. Every odd prime that does not divide the base passes. timesBase(x)
/// is base x, for residues.
/// Sources: Miller, "Riemann's hypothesis and tests for primality"; Rabin, "Probabilistic algorithm
/// for testing primality".
template <typename Modulus, typename TimesBase>
constexpr bool PassesStrongTest(const Modulus& modulus, TimesBase timesBase) {
    const auto one = modulus.one;
    const auto minusOne = ResidueSubtract(modulus, {}, one);
    auto nLessOne = modulus.n;
    if constexpr (sizeof(nLessOne) == sizeof(uint64_t)) {
        nLessOne--;
    } else {
        nLessOne.low--;
    }
    const int s = CountTrailingZeros(nLessOne);
    const int top = 8 * static_cast<int>(sizeof(nLessOne)) - 1 - CountLeadingZeros(nLessOne);
    auto power = timesBase(one);
    for (int i = top - 1; i >= s; i--) {
        power = ResidueSquare(modulus, power);
        if (BitOf(nLessOne, i)) {
            power = timesBase(power);
        }
    }
    if (power == one || power == minusOne) {
        return true;
    }
    for (int r = 1; r < s; r++) {
        power = ResidueSquare(modulus, power);
        if (power == minusOne) {
            return true;
        }
    }
    return false;
}

/// The test to base 2, which needs no products.
template <typename Modulus>
constexpr bool PassesStrongTestBase2(const Modulus& modulus) {
    return PassesStrongTest(modulus, [&](auto x) { return ResidueDouble(modulus, x); });
}

}  // namespace tallymere
