// Greatest common divisors and inverses of residues: the steps of a search that find a divisor.
#pragma once

#include <bit>
#include <cstdint>
#include <utility>

#include "core/contract.h"
#include "core/wide_arithmetic.h"
#include "numtheory/montgomery.h"

namespace tallymere {

constexpr bool IsZero(uint64_t a) {
    return a == 0;
}
constexpr bool IsZero(Wide a) {
    return (a.high | a.low) == 0;
}

/// 1 as a number, not as a residue.
constexpr uint64_t NumberOne(uint64_t /*kind*/) {
    return 1;
}
constexpr Wide NumberOne(Wide /*kind*/) {
    return {0, 1};
}

constexpr bool IsOdd(uint64_t a) {
    return (a & 1) != 0;
}
constexpr bool IsOdd(Wide a) {
    return (a.low & 1) != 0;
}

constexpr bool IsBelow(uint64_t a, uint64_t b) {
    return a < b;
}
constexpr bool IsBelow(Wide a, Wide b) {
    return !AtLeast(a, b);
}

constexpr uint64_t Difference(uint64_t a, uint64_t b) {
    return a - b;
}
constexpr Wide Difference(Wide a, Wide b) {
    return wide::Subtract(a, b);
}

/// a / 2, rounded down.
constexpr uint64_t Half(uint64_t a) {
    return a >> 1;
}
constexpr Wide Half(Wide a) {
    return {a.high >> 1, (a.high << 63) | (a.low >> 1)};
}

/// a without its factors 2, for a > 0.
constexpr uint64_t OddPart(uint64_t a) {
    TALLYMERE_REQUIRE(a != 0);
    return a >> std::countr_zero(a);
}
constexpr Wide OddPart(Wide a) {
    TALLYMERE_REQUIRE(!IsZero(a));
    if (a.low == 0) {
        return {0, OddPart(a.high)};
    }
    const int zeros = std::countr_zero(a.low);
    return {a.high >> zeros, ((a.high << 1) << (63 - zeros)) | (a.low >> zeros)};
}

/// The greatest common divisor of a and an odd n; n for a = 0.
/// Method: the binary algorithm of Stein.
template <typename Number>
constexpr Number CommonDivisor(Number a, Number n) {
    TALLYMERE_REQUIRE(IsOdd(n));
    if (IsZero(a)) {
        return n;
    }
    a = OddPart(a);
    while (!(a == n)) {
        if (IsBelow(a, n)) {
            std::swap(a, n);
        }
        a = OddPart(Difference(a, n));
    }
    return n;
}

/// Inverts the residue a in place and returns 1. Where there is no inverse, a has no meaning then
/// and the result is the greatest common divisor of a and n, which is n for a = 0.
/// Method: the binary extended algorithm, Knuth, "The Art of Computer Programming" 2, 4.5.2.
template <typename Modulus>
constexpr typename Modulus::Residue InvertResidue(const Modulus& modulus,
                                                  typename Modulus::Residue& a) {
    using Residue = typename Modulus::Residue;
    const Residue one = NumberOne(Residue{});
    // (n + 1) / 2, which is 1 / 2.
    const Residue half = ResidueAdd(modulus, Half(modulus.n), one);
    // R^2 x = s a and R^2 y = t a modulo n, for the a of the beginning: when x is 1 and a stands
    // for b, as b R, then s is the form of 1 / b.
    Residue x = a;
    Residue y = modulus.n;
    Residue s = modulus.square;
    Residue t = {};
    if (IsZero(x)) {
        return y;
    }
    for (;;) {
        while (!IsOdd(x)) {
            x = Half(x);
            s = IsOdd(s) ? ResidueAdd(modulus, Half(s), half) : Half(s);
        }
        if (x == y) {
            break;
        }
        if (IsBelow(x, y)) {
            std::swap(x, y);
            std::swap(s, t);
        }
        x = Difference(x, y);
        s = ResidueSubtract(modulus, s, t);
    }
    a = s;
    return x;
}

}  // namespace tallymere
