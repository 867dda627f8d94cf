// What tests of the searches for primes share: a search that keeps what it finds.
#pragma once

#include <string>
#include <vector>

#include "core/scratch.h"
#include "core/stop_request.h"
#include "numtheory/prime_search.h"
#include "support/exact_testing.h"

namespace tallymere::testing_support {

inline constexpr PrimeSearchFunction BothSearches[] = {SearchPrimesExactly, SearchPrimesProbably};

struct FoundPrimes {
    std::vector<std::string> primes;  ///< in decimal
    SearchOutcome outcome;
};

class PrimeSearchTest : public ::testing::Test {
protected:
    void SetUp() override {
        ClearStopRequest();
        CreateScratchStack();
    }
    void TearDown() override {
        EXPECT_EQ(*CurrentScratchStack().top, CurrentScratchStack().base);
        DestroyScratchStack();
        ClearStopRequest();
    }

    /// Takes at most so many primes.
    static FoundPrimes Search(PrimeSearchFunction search, const uint64_t* start, uint64_t count,
                              size_t most = ~size_t{0}) {
        struct Context {
            std::vector<std::string> primes;
            size_t most;
        };
        Context context = {{}, most};
        const PrimeSink sink = {[](void* kept, const uint64_t* prime) {
                                    auto* found = static_cast<Context*>(kept);
                                    found->primes.push_back(UintText(prime));
                                    return found->primes.size() < found->most;
                                },
                                &context};
        const SearchOutcome outcome = search(start, count, sink);
        return {context.primes, outcome};
    }
};

}  // namespace tallymere::testing_support
