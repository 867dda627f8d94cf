#include "numtheory/small_primes.h"

#include <algorithm>
#include <cstddef>

#include "core/limb.h"
#include "core/word_division.h"

namespace tallymere {

namespace {

constexpr uint64_t WheelPrimes[] = {2, 3, 5, 7, 11, 13};
constexpr uint64_t FirstRepeatedCandidate = 17;

constexpr bool IsOnWheel(uint64_t candidate) {
    for (const uint64_t prime : WheelPrimes) {
        if (candidate % prime == 0) {
            return false;
        }
    }
    return true;
}

constexpr std::array<uint16_t, SmallPrimeCount> MakeSmallPrimes() {
    std::array<uint16_t, SmallPrimeCount> primes{};
    size_t count = 0;
    for (uint16_t candidate = 2; count < primes.size(); candidate++) {
        size_t i = 0;
        while (i < count && candidate % primes[i] != 0) {
            i++;
        }
        if (i == count) {
            primes[count++] = candidate;
        }
    }
    return primes;
}

constexpr std::array<uint8_t, PrimeGapWheelSize> MakeWheel() {
    std::array<uint8_t, PrimeGapWheelSize> steps{};
    size_t count = 0;
    uint64_t last = 1;
    const auto stepTo = [&](uint64_t candidate) {
        steps[count++] = static_cast<uint8_t>(candidate - last);
        last = candidate;
    };
    for (const uint64_t prime : WheelPrimes) {
        stepTo(prime);
    }
    stepTo(FirstRepeatedCandidate);
    while (count < steps.size()) {
        uint64_t candidate = last + 2;
        while (!IsOnWheel(candidate)) {
            candidate += 2;
        }
        stepTo(candidate);
    }
    return steps;
}

}  // namespace

constexpr std::array<uint16_t, SmallPrimeCount> SmallPrimeTable = MakeSmallPrimes();
static_assert(SmallPrimeTable.back() == HighestSmallPrime);

constexpr std::array<uint8_t, PrimeGapWheelSize> PrimeGapWheel = MakeWheel();

namespace {

// How an odd prime p shows that it divides a word x: exactly when x / p modulo 2^64 is at most
// `limit`, which is floor((2^64 - 1) / p).
// Method: Granlund and Montgomery, "Division by invariant integers using multiplication", 9.
struct DivisibilityTest {
    uint64_t inverse;
    uint64_t limit;
};

constexpr auto DivisibilityTests = [] {
    std::array<DivisibilityTest, SmallPrimeCount> tests{};
    for (size_t i = 1; i < tests.size(); i++) {
        tests[i] = {InverseModuloWord(SmallPrimeTable[i]), ~uint64_t{0} / SmallPrimeTable[i]};
    }
    return tests;
}();

// Some primes in a row, whose product is below 2^64, so that one division of a long number serves
// all of them. The divisor is the product, shifted left until its highest bit is set.
struct PrimeGroup {
    uint64_t divisor;
    uint64_t reciprocal;  ///< WordReciprocal(divisor)
    size_t end;           ///< behind the last of its primes in SmallPrimeTable
};

// The group of primes from number `begin` on.
constexpr PrimeGroup MakeGroup(size_t begin) {
    uint64_t product = 1;
    size_t end = begin;
    while (end < SmallPrimeTable.size() && MultiplyHigh(product, SmallPrimeTable[end]) == 0) {
        product *= SmallPrimeTable[end++];
    }
    product <<= 63 - HighestBit(product);
    return {product, WordReciprocal(product), end};
}

constexpr size_t GroupCount = [] {
    size_t count = 0;
    for (size_t begin = 1; begin < SmallPrimeTable.size(); begin = MakeGroup(begin).end) {
        count++;
    }
    return count;
}();

constexpr auto PrimeGroups = [] {
    std::array<PrimeGroup, GroupCount> groups{};
    size_t begin = 1;
    for (PrimeGroup& group : groups) {
        group = MakeGroup(begin);
        begin = group.end;
    }
    return groups;
}();

}  // namespace

bool IsSmallPrime(uint64_t n) {
    return std::binary_search(SmallPrimeTable.begin(), SmallPrimeTable.end(), n);
}

bool HasSmallOddPrime(const uint64_t* n, int64_t limbs) {
    TALLYMERE_REQUIRE(limbs >= 1);
    size_t i = 1;
    for (const PrimeGroup& group : PrimeGroups) {
        uint64_t rest = n[limbs - 1];
        if (limbs > 1) {
            rest -= rest >= group.divisor ? group.divisor : 0;
            for (int64_t k = limbs - 2; k >= 0; k--) {
                rest = DivideByWord({rest, n[k]}, group.divisor, group.reciprocal).remainder;
            }
        }
        for (; i < group.end; i++) {
            if (rest * DivisibilityTests[i].inverse <= DivisibilityTests[i].limit) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace tallymere
