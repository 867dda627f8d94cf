#include "core/word_division.h"

#include <array>

#include "core/contract.h"

namespace tallymere {

namespace {

constexpr uint64_t LargestTableDivisor = 2000;

// DivisorReciprocal for the divisors that formulas are full of; entry 0 is unused.
constexpr auto SmallReciprocal = [] {
    std::array<uint64_t, LargestTableDivisor + 1> table{};
    for (uint64_t d = 1; d < table.size(); d++) {
        table[d] = ComputeDivisorReciprocal(d);
    }
    return table;
}();

}  // namespace

uint64_t DivisorReciprocal(uint64_t d) {
    return d <= LargestTableDivisor ? SmallReciprocal[d] : ComputeDivisorReciprocal(d);
}

uint64_t Divide128(uint64_t* remainder, uint64_t high, uint64_t low, uint64_t d,
                   uint64_t reciprocal) {
    TALLYMERE_REQUIRE(d >= 1 && high < d && reciprocal == DivisorReciprocal(d));
    const int shift = HighestBit(d);
    // By d itself: the reciprocal of 2^64 - 1 rounds down to PowerOfTwoReciprocal too.
    if ((d & (d - 1)) == 0) {
        *remainder = low & (d - 1);
        return shift == 0 ? low : (high << (64 - shift)) | (low >> shift);
    }
    const Wide estimate =
        wide::Add(wide::Multiply(reciprocal, high), {0, MultiplyHigh(reciprocal, low)});
    uint64_t quotient = (estimate.high << (64 - shift)) | (estimate.low >> shift);
    Wide rest = wide::Subtract({high, low}, wide::Multiply(quotient, d));
    while (AtLeast(rest, {0, d})) {
        rest = wide::Subtract(rest, {0, d});
        quotient++;
    }
    *remainder = rest.low;
    return quotient;
}

}  // namespace tallymere
