#include "numtheory/baillie_psw.h"

#include <gtest/gtest.h>

#include <vector>

#include "numtheory/prime_proof.h"
#include "prime_testing.h"
#include "reference/primality_twins.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

void ExpectWord(uint64_t n, bool isPrime) {
    ASSERT_EQ(IsPrimeWord(n), isPrime) << n;
    if (n >= 3 && n % 2 != 0) {
        ASSERT_EQ(IsPrimeOddWord(n), isPrime) << n;
    }
    ASSERT_EQ(ProvePrimality({0, n}), isPrime ? Primality::Prime : Primality::Composite) << n;
}

TEST(IsPrimeWord, AgreesWithASieve) {
    constexpr uint64_t End = 3'000'000;
    const std::vector<bool> isPrime = SieveNumbers(End);
    uint64_t count = 0;
    for (uint64_t n = 0; n < End; n++) {
        ASSERT_NO_FATAL_FAILURE(ExpectWord(n, isPrime[n]));
        count += isPrime[n] ? 1 : 0;
    }
    EXPECT_EQ(count, 216'816u);
}

TEST(IsPrimeWord, AgreesWithTheWalk) {
    RandomSource random;
    for (int round = 0; round < TestRounds(1'000); round++) {
        const uint64_t n = (random.Word() >> random.Between(30, 50)) | 1;
        if (n >= 2) {
            ASSERT_NO_FATAL_FAILURE(ExpectWord(n, reference::TwinIsPrimeByWalk(n)));
        }
    }
}

// The ten largest primes of 64 bits, and all numbers between them.
TEST(IsPrimeWord, KnowsTheLargestWords) {
    const std::vector<uint64_t> distances = {59, 83, 95, 179, 189, 257, 279, 323, 353, 363};
    size_t next = 0;
    for (uint64_t distance = 1; distance <= 363; distance++) {
        const bool isPrime = distances[next] == distance;
        ASSERT_NO_FATAL_FAILURE(ExpectWord(0 - distance, isPrime));
        next += isPrime ? 1 : 0;
    }
    EXPECT_EQ(next, distances.size());
}

// Strong pseudoprimes to base 2 with factors above 1000, among them the least ones to the first 1,
// 2, 3, ... 11 primes as bases, and pseudoprimes with a Jacobi symbol of 1 and of -1.
TEST(IsPrimeWord, RejectsStrongPseudoprimes) {
    for (const uint64_t n :
         {uint64_t{2'047}, uint64_t{1'373'653}, uint64_t{25'326'001}, uint64_t{3'215'031'751},
          uint64_t{2'152'302'898'747}, uint64_t{3'474'749'660'383}, uint64_t{341'550'071'728'321},
          uint64_t{3'825'123'056'546'413'051}}) {
        ASSERT_NO_FATAL_FAILURE(ExpectWord(n, false));
    }
    for (const uint64_t n : {2'284'453, 3'363'121, 5'044'033, 6'787'327, 9'863'461, 10'084'177}) {
        ASSERT_NO_FATAL_FAILURE(ExpectWord(n, false));
    }
}

// Strong Lucas pseudoprimes, which only the test to base 2 rejects.
TEST(IsPrimeWord, RejectsStrongLucasPseudoprimes) {
    for (const uint64_t n : {5'459, 5'777, 10'877, 16'109, 18'971, 22'499, 24'569, 25'199, 40'309,
                             58'519, 75'077, 97'439, 100'127, 113'573, 115'639, 130'139}) {
        ASSERT_NO_FATAL_FAILURE(ExpectWord(n, false));
    }
}

// No D has the symbol -1 for a square. Those of 1093 and 3511 pass to base 2.
TEST(IsPrimeWord, RejectsSquares) {
    for (const uint64_t root :
         {uint64_t{1'093}, uint64_t{3'511}, uint64_t{1'093 * 3'511}, uint64_t{65'537},
          uint64_t{4'294'967'291}, uint64_t{4'294'967'295}}) {
        ASSERT_NO_FATAL_FAILURE(ExpectWord(root * root, false));
    }
    RandomSource random;
    for (int round = 0; round < TestRounds(10'000); round++) {
        const uint64_t root = (random.Word() >> random.Between(32, 60)) | 1;
        if (root > 1) {
            ASSERT_NO_FATAL_FAILURE(ExpectWord(root * root, false));
        }
    }
}

// p (k (p - 1) + 1) for primes p and small k, the form of most pseudoprimes to many bases.
TEST(IsPrimeWord, RejectsProductsOfPrimesWithCommonOrders) {
    RandomSource random;
    int products = 0;
    for (int round = 0; round < TestRounds(300'000); round++) {
        const uint64_t k = random.Between(2, 7);
        const uint64_t p = (random.Word() >> random.Between(34, 52)) | 1;
        const uint64_t q = k * (p - 1) + 1;
        if (p > 2 && IsPrimeWord(p) && IsPrimeWord(q)) {
            ASSERT_NO_FATAL_FAILURE(ExpectWord(p * q, false));
            products++;
        }
    }
    EXPECT_GT(products, 100);
}

TEST(IsPrimeWord, RejectsCarmichaelNumbers) {
    for (const uint64_t n : {uint64_t{561}, uint64_t{1'105}, uint64_t{1'729}, uint64_t{2'465},
                             uint64_t{6'601}, uint64_t{56'052'361}, uint64_t{118'901'521},
                             uint64_t{172'947'529}, uint64_t{9'746'347'772'161}}) {
        ASSERT_NO_FATAL_FAILURE(ExpectWord(n, false));
    }
    int count = 0;
    for (uint64_t k = 240'000; k < 242'000; k++) {
        const ChernickFactors factors(k);
        if (IsPrimeWord(factors.p) && IsPrimeWord(factors.q) && IsPrimeWord(factors.r)) {
            ASSERT_NO_FATAL_FAILURE(ExpectWord(factors.p * factors.q * factors.r, false));
            count++;
        }
    }
    EXPECT_GT(count, 3);
}

}  // namespace
}  // namespace tallymere
