// The prime numbers of an interval, by both methods, beside a plain test of each number.
//
// Input: method, count, then the first number, eight bytes for each limb.
#include <gtest/gtest.h>

#include <vector>

#include "fuzz/harness_list.h"
#include "fuzz/plain_primes.h"
#include "numtheory/prime_search.h"
#include "numtheory/wide_integers.h"
#include "reference/primality_twins.h"
#include "support/real_testing.h"

namespace tallymere::fuzz {

namespace {

constexpr int64_t MostProven = 120;
// The plain twin squares and divides one limb at a time.
constexpr int64_t MostProbable = 12;

struct Found {
    std::vector<Wide> primes;
    size_t wanted = 0;  // the search is to end behind so many; 0 for all
};

bool TakePrime(void* context, const uint64_t* prime) {
    auto* const found = static_cast<Found*>(context);
    found->primes.push_back({prime[1], prime[0]});
    return found->primes.size() != found->wanted;
}

bool IsPrimeToBe(Wide n, bool isExact) {
    return isExact ? IsPlainlyPrime(ToInteger(n))
                   : reference::TwinIsCompositeNumber({n.low, n.high}) == 0;
}

}  // namespace

void FuzzPrimes(FuzzInput& input) {
    const UintWidthScope width(WideLimbs);
    const bool isExact = input.Choice(2) == 0;
    const auto count = static_cast<uint64_t>(input.Number(1, isExact ? MostProven : MostProbable));
    Found found;
    found.wanted = input.Choice(8);
    const uint64_t start[WideLimbs] = {input.Word(), input.Word()};
    if (start[0] == 0 && start[1] == 0) {
        return;
    }
    std::vector<Wide> expected;
    bool leavesWidth = false;
    Integer128 n = ToInteger({start[1], start[0]});
    for (uint64_t i = 0; i < count && !leavesWidth; i++, n++) {
        if (IsPrimeToBe(ToWide(n), isExact)) {
            expected.push_back(ToWide(n));
        }
        leavesWidth = n == ~Integer128{0} && i + 1 < count;
    }
    const bool ends = found.wanted != 0 && expected.size() >= found.wanted;
    if (ends) {
        expected.resize(found.wanted);
    }

    const PrimeSearchFunction search = isExact ? SearchPrimesExactly : SearchPrimesProbably;
    const SearchOutcome outcome = search(start, count, {TakePrime, &found});
    const CalcError code = testing_support::TakeCode();
    EXPECT_TRUE(found.primes == expected);
    EXPECT_EQ(outcome, ends          ? SearchOutcome::EndedBySink
                       : leavesWidth ? SearchOutcome::Failed
                                     : SearchOutcome::Complete);
    EXPECT_EQ(code, leavesWidth && !ends ? CalcErrorOverflow : CalcErrorNone);
}

}  // namespace tallymere::fuzz
