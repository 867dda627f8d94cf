// The Baillie-PSW test: the strong test to base 2, then the strong Lucas test.
#include <bit>

#include "core/contract.h"
#include "numtheory/montgomery.h"
#include "numtheory/prime_proof.h"
#include "numtheory/small_primes.h"
#include "numtheory/strong_test.h"

namespace tallymere {

namespace {

// The Jacobi symbol (a / n) for an odd n; 0 where there is a common factor.
int JacobiSymbolOfWords(uint64_t a, uint64_t n) {
    int symbol = 1;
    while (a != 0) {
        const int zeros = std::countr_zero(a);
        a >>= zeros;
        if (zeros % 2 != 0 && (n % 8 == 3 || n % 8 == 5)) {
            symbol = -symbol;
        }
        if ((a & n & 2) != 0) {
            symbol = -symbol;
        }
        const uint64_t rest = n % a;
        n = a;
        a = rest;
    }
    return n == 1 ? symbol : 0;
}

// The strong Lucas test with Selfridge's parameters: D is the first of 5, -7, 9, -11, ... with
// (D / n) = -1, P = 1 and Q = (1 - D) / 4. With n + 1 = d 2^s and an odd d, n passes when it
// divides U(d) or one of V(d 2^r), for r from 0 to s - 1. n is odd, from FirstLargePrime on and
// below 2^64 - 1.
//
// The search for D ends at the least prime factor of n at the latest. Only squares get so far, and
// the only ones that pass to base 2 are those of products of 1093 and 3511. For a prime n it ends
// long before D reaches n.
//
// U is not computed: D U(k) = 2 V(k + 1) - P V(k), and D has an inverse.
// Source: Baillie and Wagstaff, "Lucas pseudoprimes", Math. Comp. 35 (1980), method A.
bool PassesStrongLucasTest(const WordModulus& modulus) {
    const uint64_t n = modulus.n;
    uint64_t d = 5;
    bool isNegative = false;
    for (;; d += 2, isNegative = !isNegative) {
        // By reciprocity, since D is 1 modulo 4.
        const int symbol = JacobiSymbolOfWords(n % d, d);
        if (symbol == 0) {
            TALLYMERE_REQUIRE(d < n);
            return false;
        }
        if (symbol == -1) {
            break;
        }
    }
    const uint64_t magnitudeOfQ = ToResidue(modulus, isNegative ? (d + 1) / 4 : (d - 1) / 4);
    const uint64_t q = isNegative ? magnitudeOfQ : ResidueSubtract(modulus, 0, magnitudeOfQ);
    // v = V(k), next = V(k + 1) and power = Q^k, while k takes on the bits of n + 1.
    uint64_t power = q;
    uint64_t v = modulus.one;
    uint64_t next = ResidueSubtract(modulus, modulus.one, ResidueDouble(modulus, q));
    const auto doubled = [&](uint64_t value, uint64_t powerOfQ) {
        return ResidueSubtract(modulus, ResidueSquare(modulus, value),
                               ResidueDouble(modulus, powerOfQ));
    };
    const int s = std::countr_zero(n + 1);
    for (int i = HighestBit(n + 1) - 1; i >= s; i--) {
        const uint64_t between = ResidueSubtract(modulus, ResidueMultiply(modulus, v, next), power);
        if (BitOf(n + 1, i)) {
            const uint64_t nextPower = ResidueMultiply(modulus, power, q);
            next = doubled(next, nextPower);
            v = between;
            power = ResidueMultiply(modulus, power, nextPower);
        } else {
            next = between;
            v = doubled(v, power);
            power = ResidueSquare(modulus, power);
        }
    }
    if (ResidueDouble(modulus, next) == v || v == 0) {
        return true;
    }
    for (int r = 1; r < s; r++) {
        v = doubled(v, power);
        power = ResidueSquare(modulus, power);
        if (v == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool IsPrimeOddWord(uint64_t n) {
    TALLYMERE_REQUIRE((n & 1) != 0 && n >= 3);
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
    return (n & 1) != 0 && !HasSmallOddPrime(&n, 1) && IsPrimeOddWord(n);
}

}  // namespace tallymere
