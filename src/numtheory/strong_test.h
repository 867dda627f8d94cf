// The strong test of primality, for moduli of one and of two words.
#pragma once

#include "numtheory/montgomery.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

/// True when n passes: with n - 1 = d 2^s and an odd d, when base^d is 1 or one of base^(d 2^r) is
/// -1, for r from 0 to s - 1. Every odd prime that does not divide the base passes. timesBase(x)
/// is base x, for residues.
/// Sources: Miller, "Riemann's hypothesis and tests for primality"; Rabin, "Probabilistic algorithm
/// for testing primality".
template <typename Modulus, typename TimesBase>
constexpr bool PassesStrongTest(const Modulus& modulus, TimesBase timesBase) {
    using Number = typename Modulus::Residue;
    const Number one = modulus.one;
    const Number minusOne = ResidueSubtract(modulus, {}, one);
    const Number nLessOne = Difference(modulus.n, NumberOf<Number>(1));
    const int s = CountTrailingZeros(nLessOne);
    Number power = timesBase(one);
    for (int i = BitLength(nLessOne) - 2; i >= s; i--) {
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

/// The test to base 2, which needs no products with the base.
template <typename Modulus>
constexpr bool PassesStrongTestBase2(const Modulus& modulus) {
    return PassesStrongTest(modulus, [&](auto x) { return ResidueDouble(modulus, x); });
}

}  // namespace tallymere
