#include "numtheory/small_primes.h"

#include <cstddef>

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
static_assert(SmallPrimeTable.back() == 997);

constexpr std::array<uint8_t, PrimeGapWheelSize> PrimeGapWheel = MakeWheel();

}  // namespace tallymere
