#include "numtheory/prime_proof.h"

#include <array>
#include <cstddef>

#include "core/contract.h"
#include "core/stop_request.h"
#include "numtheory/baillie_psw.h"
#include "numtheory/factor_search.h"
#include "numtheory/montgomery.h"
#include "numtheory/predecessor_criterion.h"
#include "numtheory/residue_inverse.h"
#include "numtheory/small_primes.h"
#include "numtheory/strong_test.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

namespace {

// 3,317,044,064,679,887,385,961,981, the least composite number that passes the strong test to the
// first 13 primes as bases.
constexpr Wide FirstStrongPseudoprime = {0x2BE69, 0x51AD'C5B2'2410'A5FD};
constexpr size_t StrongTestBases = 13;

constexpr Wide One = {0, 1};

// n - 1 = F R while its prime factors are searched. F and R have no common factor.
struct Predecessor {
    Wide value;                                       // n - 1
    Wide factoredPart = One;                          // F
    std::array<Wide, MaxDistinctPrimes> primes = {};  // the prime factors of F, proven
    size_t primeCount = 0;
    // Numbers above 1 whose product is R, without prime factors of SmallPrimeTable once that was
    // gone through.
    std::array<Wide, MaxLargeFactors> parts = {};
    size_t partCount = 0;
};

bool PassesStrongTests(const WideModulus& modulus) {
    if (!PassesStrongTestBase2(modulus)) {
        return false;
    }
    for (size_t i = 1; i < StrongTestBases; i++) {
        const Wide base = ToResidue(modulus, Wide{0, SmallPrimeTable[i]});
        const auto timesBase = [&](Wide x) { return ResidueMultiply(modulus, x, base); };
        if (!PassesStrongTest(modulus, timesBase)) {
            return false;
        }
    }
    return true;
}

// The quotient of a number by a prime p; 0 where p does not divide it.
Wide DividedByPrime(Wide number, Wide p) {
    if (p.high != 0) {
        return number == p ? One : Wide{};
    }
    return RemainderByWord(number, p.low) == 0 ? QuotientByWord(number, p.low) : Wide{};
}

// Moves a prime factor p of R to F, as often as it divides R. A p of two words is one of the parts
// and divides no other one.
void TakePrime(Predecessor& predecessor, Wide p) {
    predecessor.primes[predecessor.primeCount++] = p;
    size_t kept = 0;
    for (size_t i = 0; i < predecessor.partCount; i++) {
        Wide part = predecessor.parts[i];
        for (Wide quotient = DividedByPrime(part, p); !IsZero(quotient);
             quotient = DividedByPrime(part, p)) {
            part = quotient;
            predecessor.factoredPart = MultiplyLow(predecessor.factoredPart, p);
        }
        if (part != One) {
            predecessor.parts[kept++] = part;
        }
    }
    predecessor.partCount = kept;
}

// R.
Wide RestOf(const Predecessor& predecessor) {
    Wide rest = One;
    for (size_t i = 0; i < predecessor.partCount; i++) {
        rest = MultiplyLow(rest, predecessor.parts[i]);
    }
    return rest;
}

// The number of the least part: small numbers are proven and divided soonest.
size_t LeastPart(const Predecessor& predecessor) {
    size_t least = 0;
    for (size_t i = 1; i < predecessor.partCount; i++) {
        if (IsBelow(predecessor.parts[i], predecessor.parts[least])) {
            least = i;
        }
    }
    return least;
}

// Finds prime factors of n - 1 until F is large enough. False when a stop is requested.
bool FactorEnough(Predecessor& predecessor) {
    predecessor.parts[predecessor.partCount++] = predecessor.value;
    for (const uint64_t prime : SmallPrimeTable) {
        if (predecessor.partCount > 0 && RemainderByWord(predecessor.parts[0], prime) == 0) {
            TakePrime(predecessor, {0, prime});
        }
    }
    while (!IsFactoredPartLargeEnough(predecessor.factoredPart, RestOf(predecessor))) {
        const size_t least = LeastPart(predecessor);
        const Wide part = predecessor.parts[least];
        const Primality primality = StopRequested() ? Primality::Unknown : ProvePrimality(part);
        if (primality == Primality::Prime) {
            TakePrime(predecessor, part);
            continue;
        }
        const Wide divisor = primality == Primality::Composite ? FindDivisor(part) : Wide{};
        if (IsZero(divisor)) {
            return false;
        }
        predecessor.parts[least] = divisor;
        predecessor.parts[predecessor.partCount++] = DivideExactly(part, divisor);
    }
    return true;
}

enum class WitnessOutcome {
    Found,
    IsComposite,  // a power shows that n is not prime
    NoneInTable,  // no prime of SmallPrimeTable is a witness
};

// Looks for a witness of the prime factor q of n - 1: a number whose power n - 1 is 1 modulo n, and
// whose power (n - 1) / q less 1 has no common factor with n. With it, p - 1 for each prime factor
// p of n has all the factors q of n - 1. Source: Pocklington's theorem, as in Brillhart, Lehmer and
// Selfridge, theorem 4.
WitnessOutcome FindWitness(const WideModulus& modulus, Wide predecessor, Wide q) {
    const Wide exponent =
        q.high == 0 ? QuotientByWord(predecessor, q.low) : DivideExactly(predecessor, q);
    for (const uint64_t prime : SmallPrimeTable) {
        const Wide base = ToResidue(modulus, Wide{0, prime});
        const Wide power = ResiduePower(modulus, base, exponent);
        if (ResiduePower(modulus, power, q) != modulus.one) {
            return WitnessOutcome::IsComposite;
        }
        if (power != modulus.one) {
            const Wide less = ResidueSubtract(modulus, power, modulus.one);
            return CommonDivisor(less, modulus.n) == One ? WitnessOutcome::Found
                                                         : WitnessOutcome::IsComposite;
        }
    }
    return WitnessOutcome::NoneInTable;
}

}  // namespace

Primality ProvePrimality(Wide n) {
    if (n.high == 0) {
        return IsPrimeWord(n.low) ? Primality::Prime : Primality::Composite;
    }
    const uint64_t limbs[WideLimbs] = {n.low, n.high};
    if (!IsOdd(n) || HasSmallOddPrime(limbs, WideLimbs)) {
        return Primality::Composite;
    }
    if (!PassesStrongTests(PrepareModulus(n))) {
        return Primality::Composite;
    }
    return IsBelow(n, FirstStrongPseudoprime) ? Primality::Prime : ProveByPredecessor(n);
}

Primality ProveByPredecessor(Wide n) {
    TALLYMERE_REQUIRE(IsOdd(n) && n != One);
    const WideModulus modulus = PrepareModulus(n);
    Predecessor predecessor = {wide::Subtract(n, One)};
    if (!FactorEnough(predecessor)) {
        return Primality::Unknown;
    }
    for (size_t i = 0; i < predecessor.primeCount; i++) {
        switch (FindWitness(modulus, predecessor.value, predecessor.primes[i])) {
            case WitnessOutcome::Found:
                break;
            case WitnessOutcome::IsComposite:
                return Primality::Composite;
            case WitnessOutcome::NoneInTable:
                return ProveByWalk(n);
        }
    }
    return IsProductOfTwoFactors(predecessor.factoredPart, RestOf(predecessor))
               ? Primality::Composite
               : Primality::Prime;
}

Primality ProveByWalk(Wide n) {
    const Wide divisor = FindDivisorByWalk(n);
    if (IsZero(divisor)) {
        return Primality::Unknown;
    }
    return divisor == n ? Primality::Prime : Primality::Composite;
}

}  // namespace tallymere
