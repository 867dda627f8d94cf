#include "numtheory/curve_plans.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>

#include "core/contract.h"
#include "core/wide_arithmetic.h"
#include "numtheory/small_primes.h"

namespace tallymere {

namespace {

// By division by all numbers up to the square root.
bool IsPrime(uint64_t n) {
    for (uint64_t d = 2; d * d <= n; d++) {
        if (n % d == 0) {
            return false;
        }
    }
    return n >= 2;
}

// The primes between centre - Radius and centre + Radius: entry i is for centre - Radius + i.
template <uint64_t Radius>
std::array<bool, 2 * Radius + 1> SievePrimes(uint64_t centre) {
    std::array<bool, 2 * Radius + 1> isPrime;
    isPrime.fill(true);
    const uint64_t first = centre - Radius;
    for (const uint64_t prime : SmallPrimeTable) {
        const uint64_t multiple = std::max((first + prime - 1) / prime, prime) * prime;
        for (uint64_t i = multiple - first; i < isPrime.size(); i += prime) {
            isPrime[i] = false;
        }
    }
    return isPrime;
}

// The tables of a CurvePlan.
template <uint64_t FirstBound, uint64_t Step, uint64_t LargeCount>
struct PlanTables {
    static constexpr uint64_t FirstLarge = (FirstBound + Step / 2) / Step;
    static constexpr uint64_t SecondBound = (FirstLarge + LargeCount - 1) * Step + Step / 2;
    static constexpr uint64_t SmallCount = [] {
        uint64_t count = 0;
        for (uint64_t s = 1; s < Step / 2; s++) {
            count += std::gcd(s, Step) == 1 ? 1u : 0u;
        }
        return count;
    }();
    static constexpr uint64_t CoveredWords = (SmallCount + 63) / 64;
    // The least common multiple of 1 to n is below 3^n.
    static constexpr uint64_t MultiplierWords = FirstBound * 8 / 5 / 64 + 1;
    static_assert(FirstLarge >= 1 && Step % 6 == 0 &&
                  SecondBound < HighestSmallPrime * HighestSmallPrime);
    static_assert(SmallCount <= MaxSmallMultiples && LargeCount <= MaxLargeMultiples);

    std::array<uint64_t, MultiplierWords> multiplier{};
    std::array<uint16_t, SmallCount> smallMultiples{};
    std::array<uint64_t, LargeCount * CoveredWords> covered{};
    int64_t multiplierBits = 0;

    PlanTables() {
        FillMultiplier();
        FillSmallMultiples();
        for (uint64_t i = 0; i < LargeCount; i++) {
            FillCovered(i);
        }
    }

    void MultiplyBy(uint64_t k) {
        uint64_t carry = 0;
        for (uint64_t& word : multiplier) {
            const Wide product = wide::MultiplyAdd(word, k, carry, 0);
            word = product.low;
            carry = product.high;
        }
    }

    // The product of the highest power of each prime up to FirstBound.
    void FillMultiplier() {
        multiplier[0] = std::bit_floor(FirstBound);
        for (uint64_t p = 3; p <= FirstBound; p += 2) {
            if (IsPrime(p)) {
                for (uint64_t power = p; power <= FirstBound; power *= p) {
                    MultiplyBy(p);
                }
            }
        }
        for (uint64_t i = 0; i < MultiplierWords; i++) {
            if (multiplier[i] != 0) {
                multiplierBits = static_cast<int64_t>(64 * i + 1) + HighestBit(multiplier[i]);
            }
        }
    }

    void FillSmallMultiples() {
        uint64_t k = 0;
        for (uint64_t s = 1; s < Step / 2; s++) {
            if (std::gcd(s, Step) == 1) {
                smallMultiples[k++] = static_cast<uint16_t>(s);
            }
        }
    }

    // The words of the i-th large multiple.
    void FillCovered(uint64_t i) {
        const uint64_t centre = (FirstLarge + i) * Step;
        const auto isPrime = SievePrimes<Step / 2>(centre);
        const auto wanted = [&](uint64_t number) {
            return number > FirstBound && isPrime[number - (centre - Step / 2)];
        };
        for (uint64_t k = 0; k < SmallCount; k++) {
            const uint64_t s = smallMultiples[k];
            if (wanted(centre - s) || wanted(centre + s)) {
                covered[i * CoveredWords + k / 64] |= uint64_t{1} << (k % 64);
            }
        }
    }
};

template <uint64_t FirstBound, uint64_t Step, uint64_t LargeCount>
CurvePlan MakePlan() {
    using Tables = PlanTables<FirstBound, Step, LargeCount>;
    static const Tables tables;
    return {.firstBound = FirstBound,
            .secondBound = Tables::SecondBound,
            .multiplier = tables.multiplier.data(),
            .multiplierBits = tables.multiplierBits,
            .step = Step,
            .smallMultiples = tables.smallMultiples.data(),
            .smallCount = Tables::SmallCount,
            .firstLarge = Tables::FirstLarge,
            .largeCount = LargeCount,
            .covered = tables.covered.data(),
            .coveredWords = Tables::CoveredWords};
}

}  // namespace

bool CurvePlanIsWellFormed(const CurvePlan& plan) {
    return plan.step % 6 == 0 && plan.firstLarge >= 1 && plan.largeCount >= 2 &&
           plan.largeCount <= MaxLargeMultiples && plan.smallCount >= 1 &&
           plan.smallCount <= MaxSmallMultiples && plan.multiplierBits >= 2 &&
           plan.coveredWords * 64 >= plan.smallCount;
}

std::span<const CurvePlan, CurvePlanCount> CurvePlans() {
    static const CurvePlan plans[CurvePlanCount] = {
        MakePlan<47, 60, 20>(),    MakePlan<105, 210, 16>(),   MakePlan<205, 210, 40>(),
        MakePlan<600, 1050, 40>(), MakePlan<1800, 2310, 60>(), MakePlan<4000, 2310, 120>(),
    };
    return plans;
}

}  // namespace tallymere
