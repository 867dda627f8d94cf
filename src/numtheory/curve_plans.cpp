#include "numtheory/curve_plans.h"

#include <array>
#include <bit>
#include <numeric>

#include "core/contract.h"
#include "core/wide_arithmetic.h"

namespace tallymere {

namespace {

// The odd primes below Bound: entry i is for 2 i + 1.
template <uint64_t Bound>
constexpr auto SieveOddPrimes() {
    std::array<bool, Bound / 2> isPrime{};
    for (uint64_t i = 1; i < isPrime.size(); i++) {
        isPrime[i] = true;
    }
    for (uint64_t i = 1; 2 * i * (i + 1) < isPrime.size(); i++) {
        if (isPrime[i]) {
            for (uint64_t k = 2 * i * (i + 1); k < isPrime.size(); k += 2 * i + 1) {
                isPrime[k] = false;
            }
        }
    }
    return isPrime;
}

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
    static_assert(FirstLarge >= 1 && Step % 6 == 0);
    static_assert(SmallCount <= MaxSmallMultiples && LargeCount <= MaxLargeMultiples);

    std::array<uint64_t, MultiplierWords> multiplier{};
    std::array<uint16_t, SmallCount> smallMultiples{};
    std::array<uint64_t, LargeCount * CoveredWords> covered{};
    int64_t multiplierBits = 0;

    constexpr void MultiplyBy(uint64_t k) {
        uint64_t carry = 0;
        for (uint64_t& word : multiplier) {
            const Wide product = wide::MultiplyAdd(word, k, carry, 0);
            word = product.low;
            carry = product.high;
        }
    }

    constexpr PlanTables() {
        constexpr auto isPrime = SieveOddPrimes<SecondBound + 2>();
        multiplier[0] = std::bit_floor(FirstBound);
        for (uint64_t p = 3; p <= FirstBound; p += 2) {
            if (isPrime[p / 2]) {
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
        uint64_t k = 0;
        for (uint64_t s = 1; s < Step / 2; s++) {
            if (std::gcd(s, Step) == 1) {
                smallMultiples[k++] = static_cast<uint16_t>(s);
            }
        }
        const auto wanted = [&](uint64_t number) {
            return number > FirstBound && isPrime[number / 2];
        };
        for (uint64_t i = 0; i < LargeCount; i++) {
            const uint64_t centre = (FirstLarge + i) * Step;
            for (k = 0; k < SmallCount; k++) {
                const uint64_t s = smallMultiples[k];
                if (wanted(centre - s) || wanted(centre + s)) {
                    covered[i * CoveredWords + k / 64] |= uint64_t{1} << (k % 64);
                }
            }
        }
    }
};

template <uint64_t FirstBound, uint64_t Step, uint64_t LargeCount>
constexpr PlanTables<FirstBound, Step, LargeCount> planTables;

template <uint64_t FirstBound, uint64_t Step, uint64_t LargeCount>
constexpr CurvePlan MakePlan() {
    using Tables = PlanTables<FirstBound, Step, LargeCount>;
    const Tables& tables = planTables<FirstBound, Step, LargeCount>;
    return {
        FirstBound, Tables::SecondBound,          tables.multiplier.data(), tables.multiplierBits,
        Step,       tables.smallMultiples.data(), Tables::SmallCount,       Tables::FirstLarge,
        LargeCount, tables.covered.data(),        Tables::CoveredWords};
}

}  // namespace

bool CurvePlanIsWellFormed(const CurvePlan& plan) {
    return plan.step % 6 == 0 && plan.firstLarge >= 1 && plan.largeCount >= 2 &&
           plan.largeCount <= MaxLargeMultiples && plan.smallCount >= 1 &&
           plan.smallCount <= MaxSmallMultiples && plan.multiplierBits >= 2 &&
           plan.coveredWords * 64 >= plan.smallCount;
}

constinit const CurvePlan curvePlans[CurvePlanCount] = {
    MakePlan<47, 60, 20>(),    MakePlan<105, 210, 16>(),   MakePlan<205, 210, 40>(),
    MakePlan<600, 1050, 40>(), MakePlan<1800, 2310, 60>(), MakePlan<4000, 2310, 120>(),
};

}  // namespace tallymere
