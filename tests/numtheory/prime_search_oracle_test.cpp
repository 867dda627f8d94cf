// The searches for primes against GMP.
#include <algorithm>

#include "numtheory/primality_tests.h"
#include "prime_search_testing.h"
#include "support/exact_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

class PrimeSearchOracle : public PrimeSearchTest {
protected:
    // As numbers.
    static bool IsLess(const std::string& a, const std::string& b) {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    }

    static std::vector<std::string> PrimesOfGmp(const uint64_t* start, uint64_t count) {
        std::vector<std::string> primes;
        Integer end;
        mpz_add_ui(end, LimbsView(start), count);
        Integer prime;
        mpz_sub_ui(prime, LimbsView(start), 1);
        while (true) {
            mpz_nextprime(prime, prime);
            if (mpz_cmp(prime, end) >= 0) {
                return primes;
            }
            primes.push_back(IntegerText(prime));
        }
    }

    // The probabilistic search may find more: what IsCompositeNumber takes for prime.
    static void Compare(PrimeSearchFunction search, const uint64_t* start, uint64_t count) {
        FoundPrimes found = Search(search, start, count);
        ASSERT_EQ(found.outcome, SearchOutcome::Complete);
        const std::vector<std::string> primes = PrimesOfGmp(start, count);
        if (search == SearchPrimesProbably) {
            std::erase_if(found.primes, [&](const std::string& n) {
                return !std::binary_search(primes.begin(), primes.end(), n, IsLess) &&
                       IsCompositeNumber(UintBuffer(n)) == 0;
            });
        }
        ASSERT_EQ(found.primes, primes) << count << " numbers from " << UintText(start);
    }
};

TEST_F(PrimeSearchOracle, AgreesAtEverySize) {
    RandomSource random;
    for (const PrimeSearchFunction search : BothSearches) {
        const WidthScope width(2);
        for (int i = TestRounds(500); i > 0; i--) {
            UintBuffer start;
            FillUint(random, start);
            BigUintShiftRight(start, start, random.Between(0, 127));
            start[0] |= random.Below(2);
            start[0] -= start[1] == ~uint64_t{0} && start[0] > ~uint64_t{0} - 4'000 ? 4'000 : 0;
            if (!BigUintIsZero(start)) {
                Compare(search, start, 1 + random.Below(uint64_t{1} << random.Between(0, 11)));
            }
            if (HasFatalFailure()) {
                return;
            }
        }
    }
}

// Where a limb or a bound of the sieve ends.
TEST_F(PrimeSearchOracle, AgreesAtTheEdges) {
    const WidthScope width(2);
    for (const PrimeSearchFunction search : BothSearches) {
        for (const char* start :
             {"2^32-500", "2^63-500", "2^64-500", "2^64-1", "2^64", "2^65-500", "2^127-500",
              "2^128-1500", "1018081", "1036488922561", "1000006000000"}) {
            Compare(search, UintBuffer(start), 1'000);
            Compare(search, UintBuffer(start), 1'001);
        }
    }
}

// 3317044064679887385961981 is a strong pseudoprime to the first 13 primes.
TEST_F(PrimeSearchOracle, TellsPseudoprimesByTheExactMethodAlone) {
    const WidthScope width(2);
    const UintBuffer start("3317044064679887385961481");
    Compare(SearchPrimesExactly, start, 1'000);
    EXPECT_EQ(Search(SearchPrimesProbably, start, 1'000).primes.size(),
              PrimesOfGmp(start, 1'000).size() + 1);
}

// Through all lengths of blocks, with proofs by the sieve alone and beyond.
TEST_F(PrimeSearchOracle, AgreesOnLongIntervals) {
    const WidthScope width(2);
    const auto count = static_cast<uint64_t>(TestRounds(700'000));
    for (const char* start : {"1", "1036487900000", "1000000000000000000", "2^64-200000"}) {
        Compare(SearchPrimesExactly, UintBuffer(start), count);
    }
    Compare(SearchPrimesProbably, UintBuffer("1036487900000"), count);
}

TEST_F(PrimeSearchOracle, AgreesOnLongNumbers) {
    RandomSource random;
    const WidthScope width(65);
    for (const int bits : {129, 500, 1'000}) {
        for (int i = TestRounds(5); i > 0; i--) {
            UintBuffer start;
            FillUint(random, start);
            BigUintShiftRight(start, start, UintBits() - bits);
            start[0] |= 1;
            Compare(SearchPrimesProbably, start, 1'000);
        }
    }
}

}  // namespace
}  // namespace tallymere
