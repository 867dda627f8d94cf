#include "numtheory/prime_search.h"

#include <algorithm>

#include "core/number_context.h"
#include "core/scratch.h"
#include "core/stop_request.h"
#include "exact/big_uint.h"
#include "numtheory/baillie_psw.h"
#include "numtheory/block_sieve.h"
#include "numtheory/primality_tests.h"
#include "numtheory/prime_proof.h"
#include "numtheory/small_primes.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

namespace {

// Blocks grow by this factor from the first one on: where the next prime alone is wanted, or few
// numbers, a long sieve would take more time than it saves.
constexpr int64_t FirstBlock = 512;
constexpr int64_t BlockGrowth = 8;

// The bound of the sieving primes grows with the length of the block, in odd numbers.
constexpr int64_t BoundPerNumber = 4;

enum class Verdict { Composite, Prime, Unknown };

// How a search ends that a stop or a code interrupted.
SearchOutcome InterruptedOutcome() {
    const CalcError code = numberContext.calcError;
    return code == CalcErrorNone || code == CalcErrorCancelled ? SearchOutcome::Stopped
                                                               : SearchOutcome::Failed;
}

// True when the limbs of n above the lowest have their highest value.
bool IsInHighestWord(const uint64_t* n) {
    return std::all_of(n + 1, n + numberContext.uintLimbs,
                       [](uint64_t limb) { return limb == ~uint64_t{0}; });
}

// What the two methods differ in.
struct SearchMethod {
    uint32_t highestBound;  // of the sieving primes
    // Judges an odd number without a factor up to the bound of the sieve. Unknown: a stop request
    // or a CalcError came between.
    Verdict (*judge)(const uint64_t* n);
};

Verdict JudgeExactly(const uint64_t* n) {
    if (n[1] == 0) {
        return IsPrimeOddWord(n[0]) ? Verdict::Prime : Verdict::Composite;
    }
    switch (ProvePrimality(WideFromLimbs(n))) {
        case Primality::Composite:
            return Verdict::Composite;
        case Primality::Prime:
            return Verdict::Prime;
        case Primality::Unknown:
            break;
    }
    return Verdict::Unknown;
}

Verdict JudgeProbably(const uint64_t* n) {
    const bool isComposite = IsCompositeNumber(n) != 0;
    if (numberContext.calcError != CalcErrorNone) {
        return Verdict::Unknown;
    }
    return isComposite ? Verdict::Composite : Verdict::Prime;
}

constexpr SearchMethod ExactSearch = {MaxSieveBound, JudgeExactly};
// By more primes than IsCompositeNumber divides by, the sieve would strike pseudoprimes.
constexpr SearchMethod ProbableSearch = {HighestSmallPrime, JudgeProbably};

// A search among odd numbers.
struct OddSearch {
    const SearchMethod* method;
    PrimeSink sink;
    BlockSieve sieve;
    uint64_t* first;      // of the current block
    uint64_t* candidate;  // room for one of its numbers
    uint64_t visited;     // numbers of the interval before the block
};

// The number itself, or one above all squares of bounds.
uint64_t ValueForBound(const uint64_t* n) {
    return BigUintFitsUnsigned(n) ? n[0] : ~uint64_t{0};
}

// The odd number `index` of the block.
const uint64_t* NumberOfBlock(const OddSearch& search, int64_t index) {
    BigUintAddSmall(search.candidate, search.first, 2 * static_cast<uint64_t>(index));
    return search.candidate;
}

// The bound of the sieving primes for a block of `count` odd numbers from search.first on. Where
// these are more than one block: no block of them has a higher bound.
uint32_t BoundOfBlock(const OddSearch& search, int64_t count) {
    const int64_t highest = std::min<int64_t>(
        search.method->highestBound, BoundPerNumber * std::clamp(count, FirstBlock, MaxSieveBlock));
    return SieveBoundFor(ValueForBound(NumberOfBlock(search, count - 1)),
                         static_cast<uint32_t>(highest));
}

// Searches a block: `count` odd numbers from search.first on.
SearchOutcome SearchBlock(OddSearch& search, int64_t count) {
    RaiseSieveBound(search.sieve, BoundOfBlock(search, count), search.first,
                    numberContext.uintLimbs);
    SieveNextBlock(search.sieve, count);
    const uint64_t behindBound = uint64_t{search.sieve.bound} + 1;
    const uint64_t proven = behindBound * behindBound;
    for (int64_t i = NextUnstruck(search.sieve, 0, count); i < count;
         i = NextUnstruck(search.sieve, i + 1, count)) {
        if (StopRequested()) {
            return SearchOutcome::Stopped;
        }
        if (search.sink.visit != nullptr) {
            search.sink.visit(search.sink.context, search.visited + 2 * static_cast<uint64_t>(i));
        }
        const uint64_t* n = NumberOfBlock(search, i);
        const Verdict verdict =
            ValueForBound(n) < proven ? Verdict::Prime : search.method->judge(n);
        if (verdict == Verdict::Unknown) {
            return InterruptedOutcome();
        }
        if (verdict == Verdict::Prime && !search.sink.take(search.sink.context, n)) {
            return SearchOutcome::EndedBySink;
        }
    }
    return SearchOutcome::Complete;
}

// Searches `count` odd numbers, 0 or more, from search.first on.
SearchOutcome SearchOddNumbers(OddSearch& search, int64_t count) {
    int64_t blockSize = FirstBlock;
    while (count > 0) {
        const int64_t size = std::min(blockSize, count);
        const SearchOutcome outcome = SearchBlock(search, size);
        if (outcome != SearchOutcome::Complete) {
            return outcome;
        }
        count -= size;
        search.visited += 2 * static_cast<uint64_t>(size);
        if (count > 0) {
            BigUintAddSmall(search.first, search.first, 2 * static_cast<uint64_t>(size));
        }
        blockSize = std::min(blockSize * BlockGrowth, MaxSieveBlock);
    }
    return SearchOutcome::Complete;
}

// How many odd numbers from n on, which is odd, fit the width; at most `most`.
int64_t OddNumbersThatFit(const uint64_t* n, int64_t most) {
    if (!IsInHighestWord(n)) {
        return most;
    }
    return static_cast<int64_t>(std::min(~n[0] / 2 + 1, static_cast<uint64_t>(most)));
}

bool LeavesWidth(const uint64_t* start, uint64_t count) {
    return IsInHighestWord(start) && count - 1 > ~start[0];
}

// Hands 2 to the sink.
SearchOutcome TakeTwo(OddSearch& search) {
    if (StopRequested()) {
        return SearchOutcome::Stopped;
    }
    BigUintFromUnsigned(search.candidate, 2);
    return search.sink.take(search.sink.context, search.candidate) ? SearchOutcome::Complete
                                                                   : SearchOutcome::EndedBySink;
}

// Visits the numbers before the first odd number above 2, and sets search.first to that one.
// `left` is how many numbers there are, and then how many are left: 0 or less when none is.
SearchOutcome VisitUpToFirstOdd(OddSearch& search, const uint64_t* start, int64_t& left) {
    if (BigUintFitsUnsigned(start) && start[0] <= 2) {
        left -= static_cast<int64_t>(3 - start[0]);
        BigUintFromUnsigned(search.first, 3);
        return left >= 0 ? TakeTwo(search) : SearchOutcome::Complete;
    }
    BigUintCopy(search.first, start);
    if (start[0] % 2 == 0) {
        left--;
        search.first[0]++;
    }
    return SearchOutcome::Complete;
}

// Both searches, but for the check of the width.
SearchOutcome SearchInterval(const SearchMethod& method, const uint64_t* start, uint64_t count,
                             PrimeSink sink) {
    TALLYMERE_REQUIRE(!BigUintIsZero(start) && count >= 1 && count <= MaxSearchCount);
    if (numberContext.calcError != CalcErrorNone) {
        return InterruptedOutcome();
    }
    ScratchStackScope scope;
    const int64_t limbs = numberContext.uintLimbs;
    OddSearch search = {&method, sink, {}, scope.Take(limbs), scope.Take(limbs), 0};
    auto left = static_cast<int64_t>(count);
    SearchOutcome outcome = VisitUpToFirstOdd(search, start, left);
    if (outcome == SearchOutcome::Complete && left >= 1) {
        search.visited = count - static_cast<uint64_t>(left);
        const int64_t odd = OddNumbersThatFit(search.first, (left + 1) / 2);
        search.sieve =
            MakeBlockSieve(scope, BoundOfBlock(search, odd), std::min(odd, MaxSieveBlock));
        outcome = SearchOddNumbers(search, odd);
    }
    if (outcome == SearchOutcome::Complete && LeavesWidth(start, count)) {
        SetCalcError(CalcErrorOverflow);
        return SearchOutcome::Failed;
    }
    return outcome;
}

}  // namespace

SearchOutcome SearchPrimesExactly(const uint64_t* start, uint64_t count, PrimeSink sink) {
    TALLYMERE_REQUIRE(numberContext.uintLimbs == WideLimbs);
    return SearchInterval(ExactSearch, start, count, sink);
}

SearchOutcome SearchPrimesProbably(const uint64_t* start, uint64_t count, PrimeSink sink) {
    return SearchInterval(ProbableSearch, start, count, sink);
}

}  // namespace tallymere
