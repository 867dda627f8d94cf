// Arithmetic modulo an odd number of up to 64 or up to 128 bits, without divisions.
//
// A residue a stands in Montgomery form, as a R modulo n, with R = 2^64 for a WordModulus and
// R = 2^128 for a WideModulus. All residues are below n. The functions are the same for both kinds
// of modulus, so that a method can be written once, as a template of the modulus. The type of a
// residue is Modulus::Residue; Residue{} is 0, in the form too.
//
// No carry is ever lost, also for an n with its highest bit set: a product is reduced by
// subtraction, so that all that is in between stays between -n and n.
//
// Source: Montgomery, "Modular multiplication without trial division", Mathematics of Computation
// 44 (1985).
#pragma once

#include <cstdint>

#include "core/contract.h"
#include "core/wide_arithmetic.h"
#include "core/word_division.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

/// An odd modulus of one word, 3 or more.
struct WordModulus {
    using Residue = uint64_t;
    uint64_t n;
    uint64_t inverse;  ///< n * inverse = 1 modulo 2^64
    uint64_t one;      ///< 1 in the form
    uint64_t square;   ///< R in the form; takes numbers into it
};

/// An odd modulus of two words, 3 or more. The high word may be 0.
struct WideModulus {
    using Residue = Wide;
    Wide n;
    uint64_t inverse;  ///< n.low * inverse = 1 modulo 2^64
    Wide one;          ///< 1 in the form
    Wide square;       ///< R in the form; takes numbers into it
};

/// a + b. a and b are residues.
constexpr uint64_t ResidueAdd(const WordModulus& modulus, uint64_t a, uint64_t b) {
    TALLYMERE_REQUIRE(a < modulus.n && b < modulus.n);
    const uint64_t rest = modulus.n - b;
    return a - rest + (a < rest ? modulus.n : 0);
}
constexpr Wide ResidueAdd(const WideModulus& modulus, Wide a, Wide b) {
    TALLYMERE_REQUIRE(!AtLeast(a, modulus.n) && !AtLeast(b, modulus.n));
    return wide::SubtractModulo(a, wide::Subtract(modulus.n, b), modulus.n);
}

/// a - b. a and b are residues.
constexpr uint64_t ResidueSubtract(const WordModulus& modulus, uint64_t a, uint64_t b) {
    TALLYMERE_REQUIRE(a < modulus.n && b < modulus.n);
    return a - b + (a < b ? modulus.n : 0);
}
constexpr Wide ResidueSubtract(const WideModulus& modulus, Wide a, Wide b) {
    TALLYMERE_REQUIRE(!AtLeast(a, modulus.n) && !AtLeast(b, modulus.n));
    return wide::SubtractModulo(a, b, modulus.n);
}

/// (high, low) / R modulo n, for high < n.
constexpr uint64_t ReduceProduct(const WordModulus& modulus, uint64_t high, uint64_t low) {
    TALLYMERE_REQUIRE(high < modulus.n);
    // The multiple of n that has the same low word.
    const uint64_t multiple = MultiplyHigh(low * modulus.inverse, modulus.n);
    return high - multiple + (high < multiple ? modulus.n : 0);
}
constexpr Wide ReduceProduct(const WideModulus& modulus, Wide high, Wide low) {
    TALLYMERE_REQUIRE(!AtLeast(high, modulus.n));
    const Wide n = modulus.n;
    // The multiple q n that has the same low half, its words q0 and q1 one after the other. `first`
    // is what q0 n has above its lowest word, `multiple` what q n has above its low half.
    const uint64_t q0 = low.low * modulus.inverse;
    const Wide first = wide::MultiplyAdd(q0, n.high, MultiplyHigh(q0, n.low), 0);
    const uint64_t q1 = (low.high - first.low) * modulus.inverse;
    // first.high is below 2^64 - 1, so the carry fits it.
    const uint64_t carry = first.high + (low.high < first.low ? 1 : 0);
    const Wide multiple = wide::MultiplyAdd(q1, n.high, MultiplyHigh(q1, n.low), carry);
    return wide::SubtractModulo(high, multiple, n);
}

/// a b. One of them is a residue; the other one may be any number below R.
constexpr uint64_t ResidueMultiply(const WordModulus& modulus, uint64_t a, uint64_t b) {
    const Wide product = wide::Multiply(a, b);
    return ReduceProduct(modulus, product.high, product.low);
}
constexpr Wide ResidueMultiply(const WideModulus& modulus, Wide a, Wide b) {
    const Wide lowest = wide::Multiply(a.low, b.low);
    const Wide cross = wide::MultiplyAdd(a.high, b.low, lowest.high, 0);
    const Wide middle = wide::MultiplyAdd(a.low, b.high, cross.low, 0);
    const Wide highest = wide::MultiplyAdd(a.high, b.high, cross.high, middle.high);
    return ReduceProduct(modulus, highest, {middle.low, lowest.low});
}

/// a^2. a is a residue.
constexpr uint64_t ResidueSquare(const WordModulus& modulus, uint64_t a) {
    return ResidueMultiply(modulus, a, a);
}
constexpr Wide ResidueSquare(const WideModulus& modulus, Wide a) {
    return ResidueMultiply(modulus, a, a);
}

/// 2 a. a is a residue.
template <typename Modulus>
constexpr auto ResidueDouble(const Modulus& modulus, typename Modulus::Residue a) {
    return ResidueAdd(modulus, a, a);
}

/// The form of a number below R, which need not be below n.
template <typename Modulus>
constexpr auto ToResidue(const Modulus& modulus, typename Modulus::Residue number) {
    return ResidueMultiply(modulus, number, modulus.square);
}

/// The number below n that a residue stands for.
constexpr uint64_t FromResidue(const WordModulus& modulus, uint64_t a) {
    return ReduceProduct(modulus, 0, a);
}
constexpr Wide FromResidue(const WideModulus& modulus, Wide a) {
    return ReduceProduct(modulus, {0, 0}, a);
}

/// Fills in `square` of a modulus that has everything else.
template <typename Modulus>
constexpr void PrepareSquare(Modulus& modulus) {
    // The form of 2, squared until it is that of R.
    modulus.square = ResidueDouble(modulus, modulus.one);
    for (uint64_t bits = 1; bits < 8 * sizeof(modulus.n); bits *= 2) {
        modulus.square = ResidueSquare(modulus, modulus.square);
    }
}

/// The modulus n, odd and 3 or more.
constexpr WordModulus PrepareModulus(uint64_t n) {
    TALLYMERE_REQUIRE(IsOdd(n) && n >= 3);
    WordModulus modulus = {n, InverseModuloWord(n), (0 - n) % n, 0};
    PrepareSquare(modulus);
    return modulus;
}
constexpr WideModulus PrepareModulus(Wide n) {
    TALLYMERE_REQUIRE(IsOdd(n) && AtLeast(n, {0, 3}));
    // 2^bits is the first power of two above n, so 2^bits - n is below n.
    const int bits = BitLength(n);
    const Wide power = bits == 128  ? Wide{0, 0}
                       : bits >= 64 ? Wide{uint64_t{1} << (bits - 64), 0}
                                    : Wide{0, uint64_t{1} << bits};
    WideModulus modulus = {n, InverseModuloWord(n.low), wide::Subtract(power, n), {0, 0}};
    for (int i = bits; i < 128; i++) {
        modulus.one = ResidueDouble(modulus, modulus.one);
    }
    PrepareSquare(modulus);
    return modulus;
}

/// base^exponent, where base is a residue; 1 for an exponent of 0. It takes microseconds at most,
/// so it does not poll the stop request.
template <typename Modulus>
constexpr auto ResiduePower(const Modulus& modulus, typename Modulus::Residue base, Wide exponent) {
    typename Modulus::Residue power = modulus.one;
    for (int i = 127; i >= 0; i--) {
        power = ResidueSquare(modulus, power);
        if (BitOf(exponent, i)) {
            power = ResidueMultiply(modulus, power, base);
        }
    }
    return power;
}

}  // namespace tallymere
