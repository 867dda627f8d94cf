#include "core/word_division.h"

#include <gtest/gtest.h>

#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

// floor(2^(64 + floor(log2 d)) / d) by long division in binary, for any d >= 2.
uint64_t ReciprocalByRule(uint64_t d) {
    int shift = 0;
    while (shift < 63 && (d >> (shift + 1)) != 0) {
        shift++;
    }
    // The dividend's leading one, then 64 + shift zeros.
    uint64_t remainder = 1;
    uint64_t quotient = 0;
    if (remainder >= d) {
        remainder -= d;
    }
    for (int bit = 0; bit < 64 + shift; bit++) {
        const bool overflows = (remainder >> 63) != 0;
        remainder *= 2;
        quotient *= 2;
        if (overflows || remainder >= d) {
            remainder -= d;
            quotient++;
        }
    }
    return quotient;
}

TEST(DivisorReciprocal, FollowsItsRuleForEveryTableEntryAndBeyond) {
    EXPECT_EQ(DivisorReciprocal(0), 0u);
    EXPECT_EQ(DivisorReciprocal(3), 0xAAAAAAAAAAAAAAAAu);
    EXPECT_EQ(DivisorReciprocal(5), 0xCCCCCCCCCCCCCCCCu);
    RandomSource random;
    const auto check = [](uint64_t d) {
        SCOPED_TRACE(d);
        EXPECT_EQ(DivisorReciprocal(d),
                  (d & (d - 1)) == 0 ? PowerOfTwoReciprocal : ReciprocalByRule(d));
    };
    for (uint64_t d = 1; d <= 2100; d++) {
        check(d);
    }
    for (int bit = 0; bit < 64; bit++) {
        check(uint64_t{1} << bit);
        check((uint64_t{1} << bit) | 1);
        check(~uint64_t{0} >> bit);
    }
    for (int round = 0; round < TestRounds(20000); round++) {
        check((random.Word() >> random.Below(64)) | 1);
    }
}

TEST(Divide128, GivesTheExactQuotientAndRemainder) {
    RandomSource random;
    for (int round = 0; round < TestRounds(200000); round++) {
        uint64_t d = random.Word() >> random.Below(64);
        switch (random.Below(4)) {
            case 0:
                d = uint64_t{1} << random.Below(64);
                break;
            case 1:
                d = ~uint64_t{0} - random.Below(3);
                break;
            default:
                d = d == 0 ? 1 : d;
        }
        const uint64_t high = random.Below(3) == 0 ? d - 1 : random.Below(d);
        const uint64_t low = random.Below(3) == 0 ? ~random.Below(2) : random.Word();
        uint64_t remainder = 0;
        const uint64_t quotient = Divide128(&remainder, high, low, d, DivisorReciprocal(d));
        ASSERT_LT(remainder, d);
        const Wide back = wide_portable::Add(wide_portable::Multiply(quotient, d), {0, remainder});
        ASSERT_EQ(back.high, high) << d;
        ASSERT_EQ(back.low, low) << d;
    }
}

// The reciprocal of 2^64 - 1, rounded down, has the bits that mark a power of two.
TEST(Divide128, DoesNotTakeTheLargestWordForAPowerOfTwo) {
    EXPECT_EQ(DivisorReciprocal(~uint64_t{0}), PowerOfTwoReciprocal);
    uint64_t remainder = 0;
    EXPECT_EQ(Divide128(&remainder, 2, 5, ~uint64_t{0}, PowerOfTwoReciprocal), 2u);
    EXPECT_EQ(remainder, 7u);
}

}  // namespace
}  // namespace tallymere
