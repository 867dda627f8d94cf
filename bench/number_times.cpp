#include "bench/number_times.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string_view>

#include "bench/operands.h"
#include "bench/pari_peer.h"
#include "bench/processor_clock.h"
#include "bench/random_wide.h"
#include "core/number_context.h"
#include "numtheory/factorize_number.h"
#include "numtheory/prime_proof.h"

namespace tallymere::bench {

namespace {

// One kind of work: so many numbers, how each is made, and what either side does with it. A side
// returns false when its answer is not the one that the kind of number calls for.
struct NumberWork {
    const char* name;
    int64_t count;
    Wide (*makeNumber)(std::mt19937_64& random, int64_t bits);
    bool (*ours)(Wide n);
    bool (*pari)(Wide n);
};

// Of two primes, each of half the bits.
Wide RandomProduct(std::mt19937_64& random, int64_t bits) {
    const Wide first = RandomWidePrime(random, bits / 2);
    const Wide second = RandomWidePrime(random, bits / 2);
    return wide::Multiply(first.low, second.low);
}

// How many distinct primes there are; -1 without an answer.
int64_t OurFactors(Wide n) {
    FactorList list;
    const uint64_t limbs[FactorLimbs] = {n.low, n.high};
    return FactorizeNumber(&list, limbs) == FactorOutcome::Complete ? list.count : -1;
}

constexpr NumberWork NumberWorks[] = {
    {.name = "factor-random",
     .count = 50,
     .makeNumber = RandomWide,
     .ours = [](Wide n) { return OurFactors(n) > 0; },
     .pari = [](Wide n) { return PariFactor(n) > 0; }},
    {.name = "factor-two-primes",
     .count = 20,
     .makeNumber = RandomProduct,
     .ours = [](Wide n) { return OurFactors(n) == 2; },
     .pari = [](Wide n) { return PariFactor(n) == 2; }},
    {.name = "prime-proof",
     .count = 50,
     .makeNumber = RandomWidePrime,
     .ours = [](Wide n) { return ProvePrimality(n) == Primality::Prime; },
     .pari = PariIsPrime},
};

// Null, after a line that says so, when there is no such work or it has no numbers of that length.
const NumberWork* FindNumberWork(std::string_view name, int64_t bits) {
    const NumberWork* work =
        std::find_if(std::begin(NumberWorks), std::end(NumberWorks),
                     [&](const NumberWork& each) { return each.name == name; });
    if (work == std::end(NumberWorks) || bits < 66 || bits > 128 || bits % 2 != 0) {
        std::fprintf(stderr, "no such work, or not an even number of bits from 66 to 128\n");
        return nullptr;
    }
    return work;
}

}  // namespace

int PrintNumbers(const char* workName, const char* bitsText) {
    const int64_t bits = std::atoll(bitsText);
    const NumberWork* work = FindNumberWork(workName, bits);
    if (work == nullptr) {
        return 2;
    }
    std::mt19937_64 random(Seed);
    for (int64_t i = 0; i < work->count; i++) {
        std::printf("%s\n", WideText(work->makeNumber(random, bits)).c_str());
    }
    return 0;
}

int PrintNumberTimes(const char* workName, const char* side, const char* bitsText) {
    const int64_t bits = std::atoll(bitsText);
    const NumberWork* work = FindNumberWork(workName, bits);
    const bool isOurs = std::string_view(side) == "ours";
    if (work == nullptr) {
        return 2;
    }
    if (!isOurs && std::string_view(side) != "pari") {
        std::fprintf(stderr, "the sides are ours and pari\n");
        return 2;
    }
    InstallUintWidth(UintWidthForLimbs(FactorLimbs));
    PreparePari();
    std::mt19937_64 random(Seed);
    for (int64_t i = 0; i < work->count; i++) {
        const Wide n = work->makeNumber(random, bits);
        const int64_t start = ThreadNanoseconds();
        const bool isRight = isOurs ? work->ours(n) : work->pari(n);
        std::printf("%lld\n", static_cast<long long>(ThreadNanoseconds() - start));
        if (!isRight) {
            std::fprintf(stderr, "a wrong answer for %s\n", WideText(n).c_str());
            return 1;
        }
    }
    return 0;
}

}  // namespace tallymere::bench
