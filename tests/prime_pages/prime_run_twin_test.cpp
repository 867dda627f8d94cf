// The runs of the Prime Numbers page against their plain twins: the same text and the same error.
#include "prime_run_testing.h"
#include "reference/prime_run_twins.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

class PrimeRunTwins : public PrimeRunTest {
protected:
    // Runs both at a width that the probabilistic method does not have on the page, so that its
    // small numbers take no time.
    static void Compare(PrimeMethod method, PrimeMode mode, const uint64_t* number, uint64_t count,
                        uint32_t printFlags = 0) {
        const PrimeRequest request = {method, mode, number, count, printFlags, 0};
        const RunResult result = ResultOf([&] { PrimeWorker(request, KeepPiece); });
        const reference::TwinRun twin = reference::TwinPrimeRun(request);
        ASSERT_EQ(result, (RunResult{twin.text, twin.error, u""}))
            << "method " << method << ", mode " << mode << ", number " << UintText(number)
            << ", count " << count;
    }

    static void CompareWord(PrimeMethod method, PrimeMode mode, uint64_t number, uint64_t count,
                            uint32_t printFlags = 0) {
        const uint64_t limbs[] = {number, 0};
        Compare(method, mode, limbs, count, printFlags);
    }

    UintWidthScope width_{2};
};

constexpr PrimeMethod BothMethods[] = {ExactMethod, ProbabilisticMethod};

TEST_F(PrimeRunTwins, AgreeOnSmallIntervals) {
    for (const PrimeMethod method : BothMethods) {
        for (uint64_t start = 1; start <= 300; start++) {
            for (uint64_t count = 1; count <= 200; count++) {
                CompareWord(method, IntervalMode, start, count);
                if (HasFatalFailure()) {
                    return;
                }
            }
        }
    }
}

TEST_F(PrimeRunTwins, AgreeOnTheNextPrimeAndOnTests) {
    for (const PrimeMethod method : BothMethods) {
        for (uint64_t start = 1; start <= 5'000; start++) {
            CompareWord(method, NextPrimeMode, start, MaxPrimeInterval);
            CompareWord(method, TestMode, start, MaxPrimeInterval);
            if (HasFatalFailure()) {
                return;
            }
        }
    }
}

// The squares of primes, where a bound that moves too late would show; the first numbers that the
// sieve alone does not prove; the first that the probabilistic method does not divide out.
TEST_F(PrimeRunTwins, AgreeAroundSquares) {
    for (const uint64_t root :
         {3,     5,     31,    97,    509,   511,   512,   513,   991,    997,    998,    1'009,
          1'013, 1'021, 1'024, 2'039, 2'048, 2'053, 4'093, 4'099, 16'381, 65'521, 65'536, 65'537}) {
        const uint64_t square = root * root;
        for (const PrimeMethod method : BothMethods) {
            for (const uint64_t start : {square - 3, square - 2, square - 1, square, square + 1}) {
                for (const uint64_t count : {1, 2, 3, 50, 1'030}) {
                    CompareWord(method, IntervalMode, start, count);
                }
                CompareWord(method, NextPrimeMode, start, MaxPrimeInterval);
                CompareWord(method, TestMode, start, MaxPrimeInterval);
            }
        }
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST_F(PrimeRunTwins, AgreeOnRandomIntervals) {
    RandomSource random;
    for (int i = TestRounds(400); i > 0; i--) {
        const uint64_t start = 1 + random.Below(uint64_t{1} << random.Between(1, 34));
        const uint64_t count = 1 + random.Below(uint64_t{1} << random.Between(1, 12));
        const uint32_t base = random.Below(2) == 0 ? 10 : 16;
        const uint32_t flags = PrimePrintFlags(static_cast<int32_t>(base), random.Below(2) == 0);
        for (const PrimeMethod method : BothMethods) {
            CompareWord(method, IntervalMode, start, count, flags);
            CompareWord(method, NextPrimeMode, start, MaxPrimeInterval, flags);
            CompareWord(method, TestMode, start, MaxPrimeInterval, flags);
        }
        if (HasFatalFailure()) {
            return;
        }
    }
}

// Several blocks of the sieve.
TEST_F(PrimeRunTwins, AgreeOnALongInterval) {
    CompareWord(ExactMethod, IntervalMode, 1, 700'000);
    CompareWord(ExactMethod, IntervalMode, (uint64_t{1} << 32) - 40'000, 80'000);
    CompareWord(ProbabilisticMethod, IntervalMode, 999, 100'000);
}

// Where no number near the end is prime the twin does not walk far.
TEST_F(PrimeRunTwins, AgreeAtTheEndOfTheWidth) {
    for (const PrimeMethod method : BothMethods) {
        for (const char* text : {"2^128-1", "2^128-2", "2^128-3", "2^128-4", "2^128-6"}) {
            const UintBuffer start(text);
            for (uint64_t count = 1; count <= 8; count++) {
                Compare(method, IntervalMode, start, count);
            }
        }
    }
    const UintBuffer start("2^128-4");
    Compare(ProbabilisticMethod, NextPrimeMode, start, MaxPrimeInterval);
    Compare(ProbabilisticMethod, IntervalMode, UintBuffer("2^128-400"), 400);
    Compare(ProbabilisticMethod, IntervalMode, UintBuffer("2^128-400"), 401);
    Compare(ProbabilisticMethod, IntervalMode, UintBuffer("2^64-400"), 800);
}

}  // namespace
}  // namespace tallymere
