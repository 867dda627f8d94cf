#include "numtheory/predecessor_criterion.h"

#include <gtest/gtest.h>

#include <numeric>

#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

// n = (a F + 1) (b F + 1) for an a and a b of at least 1, by a search.
bool IsProduct(uint64_t n, uint64_t f) {
    for (uint64_t first = f + 1; first * first <= n; first += f) {
        if (n % first == 0 && n / first % f == 1) {
            return true;
        }
    }
    return false;
}

// The condition, in words that are wide enough for these numbers.
bool IsLargeEnough(uint64_t f, uint64_t rest) {
    const uint64_t r = rest % (2 * f);
    return f * rest + 1 < (f + 1) * (2 * f * f + (r - 1) * f + 1);
}

// Of all small F and R; among those that are just not large enough, the criterion could err.
TEST(PredecessorCriterion, TellsProductsWhereTheFactorIsLargeEnough) {
    int products = 0;
    int others = 0;
    for (uint64_t f = 2; f <= 60; f += 2) {
        for (uint64_t rest = 1; rest < 6 * f * f + 50; rest += 2) {
            ASSERT_EQ(IsFactoredPartLargeEnough({0, f}, {0, rest}), IsLargeEnough(f, rest))
                << f << " " << rest;
            if (IsLargeEnough(f, rest)) {
                const bool isProduct = IsProduct(f * rest + 1, f);
                ASSERT_EQ(IsProductOfTwoFactors({0, f}, {0, rest}), isProduct) << f << " " << rest;
                (isProduct ? products : others)++;
            }
        }
    }
    EXPECT_GT(products, 100);
    EXPECT_GT(others, 10'000);
}

// (F + 1) (2 F^2 + (r - 1) F + 1) is such a product itself, so the condition cannot be weaker.
TEST(PredecessorCriterion, RefusesAFactorThatIsJustTooSmall) {
    for (const uint64_t f : {uint64_t{2}, uint64_t{10}, uint64_t{210}, uint64_t{30'030},
                             uint64_t{1} << 20, uint64_t{1} << 41, uint64_t{1} << 42}) {
        for (const uint64_t r : {1, 3}) {
            // a = 1 and b = 2 F + r - 1.
            const uint64_t b = 2 * f + r - 1;
            const Wide rest = wide::MultiplyAdd(b, f, b, 1);
            const Wide less = wide::Subtract(rest, {0, 2 * f});
            EXPECT_FALSE(IsFactoredPartLargeEnough({0, f}, rest)) << f;
            EXPECT_TRUE(IsFactoredPartLargeEnough({0, f}, less)) << f;
        }
    }
}

// Products of two factors of one to 126 bits together, and F of any size below the smaller one.
TEST(PredecessorCriterion, KnowsLongProducts) {
    RandomSource random;
    int products = 0;
    for (int round = 0; round < TestRounds(200'000); round++) {
        const uint64_t f = ((random.Word() >> random.Between(1, 50)) | 1) * 2;
        const uint64_t most = (~uint64_t{0} - 1) / f;
        const uint64_t a = random.Word() % (random.Below(2) == 0 ? 4 : most) + 1;
        const uint64_t b = random.Word() % (random.Below(2) == 0 ? 4 : most) + 1;
        if (a > most || b > most || (a + b) % 2 == 0) {
            continue;
        }
        // (a F + 1) (b F + 1) = F R + 1 with R = a b F + a + b.
        const Wide multiple = wide::Multiply(a * f, b);
        const Wide rest = wide::Add(multiple, wide::Add({0, a}, {0, b}));
        if (rest.high != 0 && rest.high >= ~uint64_t{0} / f) {
            continue;
        }
        if (IsFactoredPartLargeEnough({0, f}, rest)) {
            ASSERT_TRUE(IsProductOfTwoFactors({0, f}, rest)) << f << " " << a << " " << b;
            products++;
        }
    }
    EXPECT_GT(products, 1'000);
}

// F^2 above n, which no product reaches.
TEST(PredecessorCriterion, KnowsThatALargerFactorLeavesNoProduct) {
    for (const uint64_t rest : {1, 3, 5, 1001}) {
        for (const Wide factored : {Wide{0, 1 << 20}, Wide{0, ~uint64_t{0} - 1}, Wide{1, 0},
                                    Wide{uint64_t{1} << 50, 2}}) {
            EXPECT_TRUE(IsFactoredPartLargeEnough(factored, {0, rest}));
            EXPECT_FALSE(IsProductOfTwoFactors(factored, {0, rest}));
        }
    }
}

}  // namespace
}  // namespace tallymere
