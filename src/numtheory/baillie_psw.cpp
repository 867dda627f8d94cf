#include "numtheory/baillie_psw.h"

#include <bit>

#include "core/contract.h"
#include "numtheory/montgomery.h"
#include "numtheory/small_primes.h"
#include "numtheory/strong_test.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

namespace {

// The Jacobi symbol (a / n) for an odd n; 0 where there is a common factor.
// Method: quadratic reciprocity; Cohen, "A Course in Computational Algebraic Number Theory",
// algorithm 1.4.10.
int JacobiSymbolOfWords(uint64_t a, uint64_t n) {
    int symbol = 1;
    while (a != 0) {
        const int zeros = std::countr_zero(a);
        a >>= zeros;
        if (zeros % 2 != 0 && (n % 8 == 3 || n % 8 == 5)) {
            symbol = -symbol;
        }
        // Both are 3 modulo 4.
        if ((a & n & 2) != 0) {
            symbol = -symbol;
        }
        const uint64_t rest = n % a;
        n = a;
        a = rest;
    }
    return n == 1 ? symbol : 0;
}

// Selfridge's D: a number of 5, -7, 9, -11, ...
struct Discriminant {
    uint64_t magnitude;  // 0 where there is none
    bool isNegative;
};

// The first D with (D / n) = -1; none where a D before it has a factor of n. n is odd, from
// FirstLargePrime on.
//
// The search ends at the least prime factor of n at the latest. It gets that far for squares alone,
// and the only ones that pass the strong test to base 2 are those of products of 1093 and 3511. For
// a prime n it ends long before D reaches n.
Discriminant FindDiscriminant(uint64_t n) {
    bool isNegative = false;
    for (uint64_t magnitude = 5;; magnitude += 2, isNegative = !isNegative) {
        // (D / n) by reciprocity, since D is 1 modulo 4.
        const int symbol = JacobiSymbolOfWords(n % magnitude, magnitude);
        if (symbol == -1) {
            return {magnitude, isNegative};
        }
        if (symbol == 0) {
            TALLYMERE_REQUIRE(magnitude < n);
            return {0, false};
        }
    }
}

// Q = (1 - D) / 4, as a residue.
uint64_t LucasQ(const WordModulus& modulus, Discriminant d) {
    if (d.isNegative) {
        return ToResidue(modulus, (d.magnitude + 1) / 4);
    }
    return ResidueSubtract(modulus, 0, ToResidue(modulus, (d.magnitude - 1) / 4));
}

// Terms of the Lucas sequence V for P = 1, as residues.
struct LucasTerms {
    uint64_t v;      // V(k)
    uint64_t next;   // V(k + 1)
    uint64_t power;  // Q^k
};

// V(2 k), from V(k) and Q^k.
uint64_t DoubledTerm(const WordModulus& modulus, uint64_t v, uint64_t power) {
    return ResidueSubtract(modulus, ResidueSquare(modulus, v), ResidueDouble(modulus, power));
}

// The terms for k = d, the odd part of n + 1. k takes on the bits of d, from the highest down.
LucasTerms LucasTermsOfOddPart(const WordModulus& modulus, uint64_t q) {
    const uint64_t d = OddPart(modulus.n + 1);
    // k = 1.
    uint64_t v = modulus.one;
    uint64_t next = ResidueSubtract(modulus, modulus.one, ResidueDouble(modulus, q));
    uint64_t power = q;
    for (int i = BitLength(d) - 2; i >= 0; i--) {
        // V(2 k + 1) = V(k) V(k + 1) - P Q^k.
        const uint64_t between = ResidueSubtract(modulus, ResidueMultiply(modulus, v, next), power);
        if (BitOf(d, i)) {
            const uint64_t nextPower = ResidueMultiply(modulus, power, q);
            next = DoubledTerm(modulus, next, nextPower);
            v = between;
            power = ResidueMultiply(modulus, power, nextPower);
        } else {
            next = between;
            v = DoubledTerm(modulus, v, power);
            power = ResidueSquare(modulus, power);
        }
    }
    return {v, next, power};
}

// The strong Lucas test with Selfridge's parameters: D as above, P = 1 and Q = (1 - D) / 4. With
// n + 1 = d 2^s and an odd d, n passes when it divides U(d) or one of V(d 2^r), for r from 0 to
// s - 1. n is odd, from FirstLargePrime on and below 2^64 - 1.
//
// U is not computed: D U(k) = 2 V(k + 1) - P V(k), and D has an inverse modulo n.
// Source: Baillie and Wagstaff, "Lucas pseudoprimes", Math. Comp. 35 (1980), method A.
bool PassesStrongLucasTest(const WordModulus& modulus) {
    const Discriminant d = FindDiscriminant(modulus.n);
    if (d.magnitude == 0) {
        return false;
    }
    LucasTerms terms = LucasTermsOfOddPart(modulus, LucasQ(modulus, d));
    if (ResidueDouble(modulus, terms.next) == terms.v || terms.v == 0) {
        return true;
    }
    const int s = CountTrailingZeros(modulus.n + 1);
    for (int r = 1; r < s; r++) {
        terms.v = DoubledTerm(modulus, terms.v, terms.power);
        terms.power = ResidueSquare(modulus, terms.power);
        if (terms.v == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool IsPrimeOddWord(uint64_t n) {
    TALLYMERE_REQUIRE(IsOdd(n) && n >= 3);
    if (n < FirstLargePrime) {
        return IsSmallPrime(n);
    }
    const WordModulus modulus = PrepareModulus(n);
    // 2^64 - 1 does not come to the second test: 2 has the order 64 modulo it.
    return PassesStrongTestBase2(modulus) && PassesStrongLucasTest(modulus);
}

bool IsPrimeWord(uint64_t n) {
    if (n < FirstLargePrime) {
        return IsSmallPrime(n);
    }
    return IsOdd(n) && !HasSmallOddPrime(&n, 1) && IsPrimeOddWord(n);
}

}  // namespace tallymere
