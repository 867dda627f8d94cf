// Proofs of primality from 2^64 to 2^128.
#include "numtheory/prime_proof.h"

#include <gtest/gtest.h>

#include <thread>

#include "core/number_context.h"
#include "numtheory/baillie_psw.h"
#include "numtheory/montgomery.h"
#include "numtheory/small_primes.h"
#include "numtheory/strong_test.h"
#include "numtheory/wide_integers.h"
#include "prime_testing.h"
#include "reference/primality_twins.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

Wide WideOf(std::string_view text) {
    WidthScope scope(2);
    const UintBuffer value(text);
    return {value.Get()[1], value.Get()[0]};
}

Primality Prove(std::string_view text) {
    return ProvePrimality(WideOf(text));
}

TEST(ProvePrimality, CountsZeroAndOneAsComposite) {
    EXPECT_EQ(Prove("0"), Primality::Composite);
    EXPECT_EQ(Prove("1"), Primality::Composite);
    EXPECT_EQ(Prove("2"), Primality::Prime);
    EXPECT_EQ(Prove("3"), Primality::Prime);
    EXPECT_EQ(Prove("4"), Primality::Composite);
}

TEST(ProvePrimality, KnowsTheNeighboursOf64Bits) {
    EXPECT_EQ(Prove("2^64-59"), Primality::Prime);
    EXPECT_EQ(Prove("2^64+13"), Primality::Prime);
    for (int above = 0; above < 13; above++) {
        EXPECT_EQ(ProvePrimality({1, static_cast<uint64_t>(above)}), Primality::Composite);
    }
}

// 2^127 - 1, 2^89 - 1 and 2^107 - 1, the prime factor of 2^128 + 1, and (10^23 - 1) / 9.
TEST(ProvePrimality, KnowsFamousPrimes) {
    for (const char* prime :
         {"2^89-1", "2^107-1", "2^127-1", "5704689200685129054721", "11111111111111111111111",
          "2^128-159", "2^128-173", "2^128-233", "170141183460469231731687303715884105757",
          "99999999999999999999999999999999999941"}) {
        EXPECT_EQ(Prove(prime), Primality::Prime) << prime;
    }
}

// The largest prime is 2^128 - 159. Each number above it has a small factor or fails a strong test.
TEST(ProvePrimality, RejectsAllNumbersAbove2To128Less159) {
    for (uint64_t distance = 1; distance < 159; distance++) {
        ASSERT_EQ(ProvePrimality({~uint64_t{0}, 0 - distance}), Primality::Composite) << distance;
    }
}

// The least numbers that pass the strong test to the first 12 and the first 13 primes as bases. The
// last one is the first number that these bases do not settle: its predecessor does.
TEST(ProvePrimality, RejectsTheLeastStrongPseudoprimes) {
    EXPECT_EQ(Prove("318665857834031151167461"), Primality::Composite);
    EXPECT_EQ(Prove("3317044064679887385961981"), Primality::Composite);
    EXPECT_EQ(Prove("1287836182261"), Primality::Prime);
    EXPECT_EQ(Prove("2575672364521"), Primality::Prime);
    // The primes next to it.
    EXPECT_EQ(Prove("3317044064679887385961813"), Primality::Prime);
    EXPECT_EQ(Prove("3317044064679887385962123"), Primality::Prime);
}

// p (3 p - 2) for primes p and 3 p - 2 that are chosen so that the products pass the strong test to
// the first 13 primes as bases: nothing but their predecessors tells that they are composite.
TEST(ProvePrimality, RejectsLongNumbersThatPassAllItsStrongTests) {
    for (const uint64_t p :
         {uint64_t{2'020'218'192'986'468'053}, uint64_t{3'340'981'611'310'617'853},
          uint64_t{3'384'070'806'601'668'853}, uint64_t{3'447'344'593'750'040'653}}) {
        const Wide n = wide::Multiply(p, 3 * p - 2);
        const WideModulus modulus = PrepareModulus(n);
        for (int i = 0; i < 13; i++) {
            const Wide base = ToResidue(modulus, Wide{0, SmallPrimeTable[i]});
            ASSERT_TRUE(PassesStrongTest(modulus,
                                         [&](Wide x) { return ResidueMultiply(modulus, x, base); }))
                << p << " " << SmallPrimeTable[i];
        }
        EXPECT_EQ(ProvePrimality(n), Primality::Composite) << p;
    }
}

TEST(ProvePrimality, RejectsSquaresAndProducts) {
    for (const uint64_t p : {uint64_t{4'294'967'311}, uint64_t{1'000'000'000'039},
                             uint64_t{9'223'372'036'854'775'783}, 0 - uint64_t{59}}) {
        ASSERT_TRUE(IsPrimeWord(p));
        EXPECT_EQ(ProvePrimality(wide::Multiply(p, p)), Primality::Composite) << p;
        EXPECT_EQ(ProvePrimality(wide::Multiply(p, 0 - uint64_t{83})), Primality::Composite) << p;
    }
}

// p (k (p - 1) + 1) for primes p and small k, the form of most pseudoprimes to many bases.
TEST(ProvePrimality, RejectsProductsOfPrimesWithCommonOrders) {
    RandomSource random;
    int products = 0;
    for (int round = 0; round < TestRounds(200'000); round++) {
        const uint64_t k = random.Between(2, 5);
        const uint64_t p = (random.Word() >> random.Between(3, 26)) | 1;
        const uint64_t q = k * (p - 1) + 1;
        if (IsPrimeWord(p) && IsPrimeWord(q)) {
            ASSERT_EQ(ProvePrimality(wide::Multiply(p, q)), Primality::Composite) << p << " " << q;
            products++;
        }
    }
    EXPECT_GT(products, 20);
}

TEST(ProvePrimality, RejectsCarmichaelNumbers) {
    int count = 0;
    for (uint64_t k = 430'000'000'000; k < 430'000'100'000; k++) {
        const ChernickFactors factors(k);
        if (IsPrimeWord(factors.p) && IsPrimeWord(factors.q) && IsPrimeWord(factors.r)) {
            const Wide product = MultiplyLow(wide::Multiply(factors.p, factors.q), {0, factors.r});
            ASSERT_EQ(ProvePrimality(product), Primality::Composite) << k;
            count++;
        }
    }
    EXPECT_GT(count, 5);
}

// Primes p whose p - 1 has only long prime factors: 2 q, in a chain of three whose proofs stand
// on one another, 2 q r, 4 q^2, 2 q^3 and 2 q r s, with factors that are equally long.
TEST(ProvePrimality, ProvesPrimesWhosePredecessorsHaveOnlyLongFactors) {
    for (const char* prime :
         {"340282366920938463463374607431768196007", "42535295865117307932921825928970884409",
          "85070591730234615865843651857941768819", "170141183460469231731687303715883537639",
          "170141183460469278365056322053630735919", "85070591730234654936047599974776861477",
          "85070591730234746948407039638066331397", "170141183492616987128904268994216238683",
          "170141183562870084358358993822052501923"}) {
        EXPECT_EQ(Prove(prime), Primality::Prime) << prime;
    }
}

TEST(ProveByPredecessor, AgreesWithTheWalkOnAllOddNumbers) {
    for (uint64_t n = 3; n < 100'000; n += 2) {
        ASSERT_EQ(ProveByPredecessor({0, n}),
                  reference::TwinIsPrimeByWalk(n) ? Primality::Prime : Primality::Composite)
            << n;
    }
}

// Composite numbers (a F + 1) (b F + 1) that have all the witnesses which a prime has: only the
// square tells.
TEST(ProveByPredecessor, RejectsProductsThatHaveAllWitnesses) {
    const uint64_t forms[][3] = {{1'618, 1, 12}, {2'054, 3, 8},  {2'142, 3, 8},   {2'444, 2, 3},
                                 {2'676, 1, 6},  {3'940, 4, 9},  {4'636, 1, 6},   {7'284, 4, 9},
                                 {9'180, 1, 10}, {10'444, 4, 9}, {10'458, 1, 12}, {12'404, 2, 9}};
    for (const auto& [f, a, b] : forms) {
        EXPECT_EQ(ProveByPredecessor(wide::Multiply(a * f + 1, b * f + 1)), Primality::Composite)
            << f;
    }
}

// Of a Carmichael number n all powers n - 1 are 1. For an odd k every power (n - 1) / 2 is 1 too,
// so that there is no witness for the factor 2, and only the walk is left. For an even k that power
// is 1 modulo two of the factors alone, so that it has, less 1, a common factor with n.
TEST(ProveByPredecessor, RejectsCarmichaelNumbers) {
    int odd = 0;
    int even = 0;
    for (uint64_t k = 169; k < 4'000; k++) {
        const ChernickFactors factors(k);
        if (IsPrimeWord(factors.p) && IsPrimeWord(factors.q) && IsPrimeWord(factors.r)) {
            const uint64_t n = factors.p * factors.q * factors.r;
            ASSERT_EQ(ProveByPredecessor({0, n}), Primality::Composite) << n;
            (k % 2 != 0 ? odd : even)++;
        }
    }
    EXPECT_GT(odd, 3);
    EXPECT_GT(even, 8);
}

TEST(ProveByWalk, AgreesWithItsTwin) {
    for (uint64_t n = 3; n < 40'000; n += 2) {
        ASSERT_EQ(ProveByWalk({0, n}),
                  reference::TwinIsPrimeByWalk(n) ? Primality::Prime : Primality::Composite)
            << n;
    }
    EXPECT_EQ(ProveByWalk(wide::Multiply(1'000'003, 0 - uint64_t{59})), Primality::Composite);
    EXPECT_EQ(ProveByWalk({0, 1'000'000'000'039}), Primality::Prime);
}

TEST(ProvePrimality, IsUnknownAfterAStop) {
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(ProveByWalk(WideOf("2^127-1")), Primality::Unknown);
    // This one is twice a prime and one. What is found without its factors is known.
    EXPECT_EQ(Prove("340282366920938463463374607431768196007"), Primality::Unknown);
    EXPECT_EQ(Prove("340282366920938463463374607431768196009"), Primality::Composite);
    // So is this one, and nothing but its certificate looks for a stop: the prime is below the
    // numbers that need a certificate.
    EXPECT_EQ(Prove("3317044064679887385962123"), Primality::Unknown);
    EXPECT_EQ(Prove("2^64+13"), Primality::Prime);
    EXPECT_EQ(Prove("2^64-59"), Primality::Prime);
}

// What calls a number prime is the end of the walk, not that no stop is requested behind it.
TEST(ProveByWalk, KnowsWhatAWalkHasProvenBeforeItHearsOfAStop) {
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(ProveByWalk({0, 997}), Primality::Prime);
    EXPECT_EQ(ProveByWalk({0, 997 * 997}), Primality::Composite);
}

// The walk to the square root of 2^127 - 1 takes thousands of years.
TEST(ProveByWalk, StopsInTheMiddle) {
    uint8_t stop = 0;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    std::thread asking([&] { SetStopByte(&stop, 1); });
    EXPECT_EQ(ProveByWalk(WideOf("2^127-1")), Primality::Unknown);
    asking.join();
}

}  // namespace
}  // namespace tallymere
