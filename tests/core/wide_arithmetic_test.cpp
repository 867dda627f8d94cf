#include "core/wide_arithmetic.h"

#include <gtest/gtest.h>

#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Words at which carries happen or just do not.
uint64_t RandomWord(RandomSource& random) {
    switch (random.Below(6)) {
        case 0:
            return random.Below(3);
        case 1:
            return ~random.Below(3);
        case 2:
            return uint64_t{1} << random.Below(64);
        case 3:
            return (uint64_t{1} << random.Below(64)) - 1;
        default:
            return random.Word();
    }
}

TEST(WideArithmetic, PortableProductsAreExact) {
    const Wide square = wide_portable::Multiply(~uint64_t{0}, ~uint64_t{0});
    EXPECT_EQ(square.high, ~uint64_t{0} - 1);
    EXPECT_EQ(square.low, 1u);
    const Wide shifted = wide_portable::Multiply(uint64_t{1} << 63, uint64_t{1} << 63);
    EXPECT_EQ(shifted.high, uint64_t{1} << 62);
    EXPECT_EQ(shifted.low, 0u);
    // (x + 1) * y = x * y + y.
    RandomSource random;
    for (int round = 0; round < TestRounds(100000); round++) {
        const uint64_t x = RandomWord(random) >> 1;
        const uint64_t y = RandomWord(random);
        const Wide next = wide_portable::Multiply(x + 1, y);
        const Wide sum = wide_portable::Add(wide_portable::Multiply(x, y), {0, y});
        ASSERT_EQ(next.high, sum.high) << x << " " << y;
        ASSERT_EQ(next.low, sum.low) << x << " " << y;
    }
}

TEST(WideArithmetic, PortableProductsWithTwoSummandsAreExact) {
    const uint64_t most = ~uint64_t{0};
    EXPECT_EQ(wide_portable::MultiplyAdd(most, most, most, most), (Wide{most, most}));
    EXPECT_EQ(wide_portable::MultiplyAdd(most, 2, 1, 0), (Wide{1, most}));
    EXPECT_EQ(wide_portable::MultiplyAdd(most, 2, 0, 2), (Wide{2, 0}));
    EXPECT_EQ(wide_portable::MultiplyAdd(most, 1, 1, most), (Wide{1, most}));
    RandomSource random;
    for (int round = 0; round < TestRounds(100000); round++) {
        const uint64_t x = RandomWord(random);
        const uint64_t y = RandomWord(random);
        const uint64_t a = RandomWord(random);
        const uint64_t b = RandomWord(random);
        const Wide sum =
            wide_portable::Add(wide_portable::Add(wide_portable::Multiply(x, y), {0, a}), {0, b});
        ASSERT_EQ(wide_portable::MultiplyAdd(x, y, a, b), sum) << x << " " << y;
    }
}

TEST(WideArithmetic, PortableDifferencesComeBackAboveZero) {
    const uint64_t most = ~uint64_t{0};
    const Wide n = {most, most - 4};
    EXPECT_EQ(wide_portable::SubtractModulo({5, 1}, {3, 2}, n), (Wide{1, most}));
    EXPECT_EQ(wide_portable::SubtractModulo({3, 2}, {3, 2}, n), (Wide{0, 0}));
    EXPECT_EQ(wide_portable::SubtractModulo({3, 1}, {3, 2}, n), (Wide{most, most - 5}));
    EXPECT_EQ(wide_portable::SubtractModulo({2, 9}, {3, 2}, n), (Wide{most, 2}));
    EXPECT_EQ(wide_portable::SubtractModulo({7, 1}, n, n), (Wide{7, 1}));
}

#ifdef __SIZEOF_INT128__
TEST(WideArithmetic, PortableAndNativeAgree) {
    RandomSource random;
    for (int round = 0; round < TestRounds(300000); round++) {
        const uint64_t x = RandomWord(random);
        const uint64_t y = RandomWord(random);
        const Wide a = {RandomWord(random), RandomWord(random)};
        const Wide b = {RandomWord(random), RandomWord(random)};
        const auto expectSame = [&](Wide portable, Wide native, const char* what) {
            ASSERT_EQ(portable.high, native.high) << what;
            ASSERT_EQ(portable.low, native.low) << what;
        };
        expectSame(wide_portable::Multiply(x, y), wide_native::Multiply(x, y), "product");
        expectSame(wide_portable::Add(a, b), wide_native::Add(a, b), "sum");
        expectSame(wide_portable::Subtract(a, b), wide_native::Subtract(a, b), "difference");
        const uint64_t z = RandomWord(random);
        const uint64_t w = RandomWord(random);
        expectSame(wide_portable::MultiplyAdd(x, y, z, w), wide_native::MultiplyAdd(x, y, z, w),
                   "product and sum");
        const Wide n = AtLeast(a, b) ? a : b;
        expectSame(wide_portable::SubtractModulo(a, b, n), wide_native::SubtractModulo(a, b, n),
                   "difference modulo n");
        uint64_t overflow = random.Below(1000);
        uint64_t nativeOverflow = overflow;
        Wide sum = a;
        Wide nativeSum = a;
        wide_portable::Accumulate(overflow, sum, b);
        wide_native::Accumulate(nativeOverflow, nativeSum, b);
        expectSame(sum, nativeSum, "accumulated");
        ASSERT_EQ(overflow, nativeOverflow);
        const uint64_t divisor = x | 1;
        const Wide dividend = {a.high % divisor, a.low};
        ASSERT_EQ(wide_portable::Divide(dividend, divisor), wide_native::Divide(dividend, divisor));
    }
}
#endif

TEST(WideArithmetic, EqualsOnlyInBothWords) {
    const Wide a = {1, 2};
    EXPECT_TRUE((a == Wide{1, 2}));
    EXPECT_FALSE((a == Wide{2, 2}));
    EXPECT_FALSE((a == Wide{1, 1}));
}

TEST(WideArithmetic, AccumulateCountsEveryCarry) {
    uint64_t overflow = 0;
    Wide sum = {0, 0};
    const Wide most = {~uint64_t{0}, ~uint64_t{0}};
    for (int i = 0; i < 1000; i++) {
        wide_portable::Accumulate(overflow, sum, most);
    }
    EXPECT_EQ(overflow, 999u);
    EXPECT_EQ(sum.high, ~uint64_t{0});
    EXPECT_EQ(sum.low, ~uint64_t{0} - 999);
}

TEST(WideArithmetic, ComparesAndFindsTheHighestBit) {
    EXPECT_TRUE(AtLeast({1, 0}, {0, ~uint64_t{0}}));
    EXPECT_FALSE(AtLeast({0, ~uint64_t{0}}, {1, 0}));
    EXPECT_TRUE(AtLeast({1, 5}, {1, 5}));
    EXPECT_FALSE(AtLeast({1, 4}, {1, 5}));
    for (int bit = 0; bit < 64; bit++) {
        EXPECT_EQ(HighestBit(uint64_t{1} << bit), bit);
        EXPECT_EQ(HighestBit(~uint64_t{0} >> (63 - bit)), bit);
    }
}

}  // namespace
}  // namespace tallymere
