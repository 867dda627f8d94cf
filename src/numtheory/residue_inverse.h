// Greatest common divisors and inverses of residues: the steps of a search that find a divisor.
#pragma once

#include <utility>

#include "core/contract.h"
#include "numtheory/montgomery.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

/// The greatest common divisor of a and an odd n; n for a = 0.
/// Source: Stein's binary algorithm, "Computational problems associated with Racah algebra",
/// Journal of Computational Physics 1 (1967).
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

/// Inverts the residue a in place and returns 1. Where a has no inverse, the result is the greatest
/// common divisor of a and n, which is n for a = 0; a means nothing then.
/// Method: the binary extended algorithm, Knuth, "The Art of Computer Programming" 2, 4.5.2.
template <typename Modulus>
constexpr typename Modulus::Residue InvertResidue(const Modulus& modulus,
                                                  typename Modulus::Residue& a) {
    using Residue = typename Modulus::Residue;
    const Residue one = NumberOf<Residue>(1);
    // (n + 1) / 2, which is 1 / 2 modulo n.
    const Residue half = ResidueAdd(modulus, Half(modulus.n), one);
    // R^2 x = s a and R^2 y = t a modulo n all the time, for the a of the beginning. That a is b R
    // where it stands for b. So when x is 1, s is R / b, which stands for 1 / b.
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
            a = s;
            return x;
        }
        if (IsBelow(x, y)) {
            std::swap(x, y);
            std::swap(s, t);
        }
        x = Difference(x, y);
        s = ResidueSubtract(modulus, s, t);
    }
}

}  // namespace tallymere
