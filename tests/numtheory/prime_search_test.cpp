#include "numtheory/prime_search.h"

#include <algorithm>
#include <atomic>
#include <thread>

#include "prime_search_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

using Primes = std::vector<std::string>;

class PrimeSearch : public PrimeSearchTest {
protected:
    WidthScope width_{2};
};

TEST_F(PrimeSearch, FindsThePrimesOfAnInterval) {
    for (const PrimeSearchFunction search : BothSearches) {
        const FoundPrimes found = Search(search, UintBuffer("1"), 20);
        EXPECT_EQ(found.primes, (Primes{"2", "3", "5", "7", "11", "13", "17", "19"}));
        EXPECT_EQ(found.outcome, SearchOutcome::Complete);
    }
}

TEST_F(PrimeSearch, EndsWhenItsSinkWantsNoMore) {
    for (const PrimeSearchFunction search : BothSearches) {
        for (const char* start : {"1", "2"}) {
            const FoundPrimes two = Search(search, UintBuffer(start), 20, 1);
            EXPECT_EQ(two.primes, Primes{"2"});
            EXPECT_EQ(two.outcome, SearchOutcome::EndedBySink);
        }
        const FoundPrimes found = Search(search, UintBuffer("90"), MaxSearchCount, 2);
        EXPECT_EQ(found.primes, (Primes{"97", "101"}));
        EXPECT_EQ(found.outcome, SearchOutcome::EndedBySink);
    }
}

// The squares of 1093 and 3511 pass the Euler test to base 2. The others pass that to base 3 as
// well and have no factor below 1000: 1069 * 2137, 1303 * 5209, 1999 * 7993 and so on. The last one
// is 1009 * 8896609: its least factor is the first prime that nobody divides by.
TEST_F(PrimeSearch, TakesPseudoprimesWithTheProbabilisticMethodAlone) {
    for (const char* number : {"1194649", "12327121"}) {
        for (const PrimeSearchFunction search : BothSearches) {
            EXPECT_TRUE(Search(search, UintBuffer(number), 1).primes.empty()) << number;
        }
    }
    for (const char* number :
         {"2284453", "6787327", "11541307", "13694761", "15978007", "16070429", "8976678481"}) {
        EXPECT_TRUE(Search(SearchPrimesExactly, UintBuffer(number), 1).primes.empty()) << number;
        EXPECT_EQ(Search(SearchPrimesProbably, UintBuffer(number), 1).primes, Primes{number});
    }
}

// The second block has 604 odd numbers, so that the primes up to 2416 sieve it. 2417 is the next.
TEST_F(PrimeSearch, JudgesTheSquareOfTheFirstPrimeBehindTheSieve) {
    const uint64_t square = 2'417 * 2'417;
    const UintBuffer start(std::to_string(square - 1'600));
    const Primes primes = Search(SearchPrimesExactly, start, 2 * (512 + 604) - 1).primes;
    EXPECT_EQ(std::count(primes.begin(), primes.end(), std::to_string(square)), 0);
    EXPECT_EQ(std::count(primes.begin(), primes.end(), "5841907"), 1);
}

TEST_F(PrimeSearch, FailsAtTheEndOfTheWidth) {
    const std::string lastPrime = UintTextOf(TwoTo(128, "-159"));
    for (const PrimeSearchFunction search : BothSearches) {
        FoundPrimes found = Search(search, UintBuffer("2^128-160"), 161);
        EXPECT_EQ(found.primes, Primes{lastPrime});
        EXPECT_EQ(found.outcome, SearchOutcome::Failed);
        EXPECT_EQ(TakeCode(), CalcErrorOverflow);

        found = Search(search, UintBuffer("2^128-160"), 160);
        EXPECT_EQ(found.primes, Primes{lastPrime});
        EXPECT_EQ(found.outcome, SearchOutcome::Complete);

        found = Search(search, UintBuffer("2^128-1"), MaxSearchCount);
        EXPECT_TRUE(found.primes.empty());
        EXPECT_EQ(found.outcome, SearchOutcome::Failed);
        EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    }
}

TEST_F(PrimeSearch, VisitsNothingBehindACodeThatWasNoted) {
    for (const PrimeSearchFunction search : BothSearches) {
        for (const char* start : {"2", "100"}) {
            numberContext.calcError = CalcErrorOverflow;
            const FoundPrimes found = Search(search, UintBuffer(start), 20);
            EXPECT_TRUE(found.primes.empty());
            EXPECT_EQ(found.outcome, SearchOutcome::Failed);
            EXPECT_EQ(TakeCode(), CalcErrorOverflow);

            numberContext.calcError = CalcErrorCancelled;
            EXPECT_EQ(Search(search, UintBuffer(start), 20).outcome, SearchOutcome::Stopped);
            EXPECT_EQ(TakeCode(), CalcErrorCancelled);
        }
    }
}

TEST_F(PrimeSearch, StopsWhenItIsAskedTo) {
    for (const PrimeSearchFunction search : BothSearches) {
        for (const char* start : {"1", "2", "100", "2^100"}) {
            RequestStop();
            const FoundPrimes found = Search(search, UintBuffer(start), MaxSearchCount);
            EXPECT_TRUE(found.primes.empty());
            EXPECT_EQ(found.outcome, SearchOutcome::Stopped);
            ClearStopRequest();
            numberContext.calcError = CalcErrorNone;
        }
    }
}

// The request comes behind the last poll of the search, while the only number is judged.
TEST_F(PrimeSearch, StopsWithinTheJudgementOfItsLastNumber) {
    const PrimeSink sink = {[](void*, const uint64_t*) {
                                ADD_FAILURE() << "a number that was not judged to the end";
                                return true;
                            },
                            nullptr, [](void*, uint64_t) { RequestStop(); }};
    for (const PrimeSearchFunction search : BothSearches) {
        EXPECT_EQ(search(UintBuffer("2^128-159"), 1, sink), SearchOutcome::Stopped);
        ClearStopRequest();
        numberContext.calcError = CalcErrorNone;
    }
}

// Nobody else ends this search: 2^62 numbers take years.
TEST_F(PrimeSearch, StopsWhenAnotherThreadAsksForIt) {
    for (const PrimeSearchFunction search : BothSearches) {
        std::atomic<int> found = 0;
        std::thread stopping([&] {
            while (found < 1'000) {
                std::this_thread::yield();
            }
            RequestStop();
        });
        const PrimeSink sink = {[](void* context, const uint64_t*) {
                                    ++*static_cast<std::atomic<int>*>(context);
                                    return true;
                                },
                                &found};
        EXPECT_EQ(search(UintBuffer("1000000000000"), MaxSearchCount, sink),
                  SearchOutcome::Stopped);
        stopping.join();
        ClearStopRequest();
        numberContext.calcError = CalcErrorNone;
    }
}

TEST_F(PrimeSearch, TellsHowManyNumbersLieBeforeTheOneThatItJudges) {
    struct Told {
        uint64_t start;
        uint64_t visited;
        int primes;
    };
    for (const PrimeSearchFunction search : BothSearches) {
        for (const uint64_t start : {3, 1'000'000}) {
            Told told = {start, 0, 0};
            const PrimeSink sink = {[](void* context, const uint64_t* prime) {
                                        Told& before = *static_cast<Told*>(context);
                                        EXPECT_EQ(before.start + before.visited, prime[0]);
                                        before.primes++;
                                        return true;
                                    },
                                    &told,
                                    [](void* context, uint64_t visited) {
                                        Told& before = *static_cast<Told*>(context);
                                        EXPECT_TRUE(visited > before.visited || visited == 0);
                                        before.visited = visited;
                                    }};
            EXPECT_EQ(search(UintBuffer(std::to_string(start)), 20'000, sink),
                      SearchOutcome::Complete);
            EXPECT_GT(told.primes, 1'000);
            EXPECT_LT(told.visited, 20'000u);
        }
    }
}

// The header of the sieve says how much that is.
TEST_F(PrimeSearch, KeepsNothingThatGrowsWithTheInterval) {
    ScratchArea& stack = CurrentScratchStack();
    const int64_t usual = stack.highWaterWords;
    stack.highWaterWords = 0;
    EXPECT_EQ(Search(SearchPrimesExactly, UintBuffer("1"), uint64_t{1} << 62, 500'000).outcome,
              SearchOutcome::EndedBySink);
    EXPECT_LE(stack.highWaterWords * BytesPerWord, 1'200'000);
    stack.highWaterWords = std::max(usual, stack.highWaterWords);
}

}  // namespace
}  // namespace tallymere
