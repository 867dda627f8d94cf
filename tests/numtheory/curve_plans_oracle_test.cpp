#include "numtheory/curve_plans.h"

#include <gtest/gtest.h>

#include <numeric>

#include "support/gmp_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

bool IsPrime(uint64_t n) {
    return mpz_probab_prime_p(Integer(n), 30) != 0;
}

TEST(CurvePlans, MultiplyByAllNumbersUpToTheFirstBound) {
    for (const CurvePlan& plan : CurvePlans()) {
        ASSERT_TRUE(CurvePlanIsWellFormed(plan));
        Integer expected(1);
        for (uint64_t k = 2; k <= plan.firstBound; k++) {
            mpz_lcm_ui(expected, expected, k);
        }
        ASSERT_EQ(static_cast<uint64_t>(plan.multiplierBits), mpz_sizeinbase(expected, 2));
        Integer multiplier;
        const auto words = static_cast<size_t>((plan.multiplierBits + 63) / 64);
        mpz_import(multiplier, words, -1, sizeof(uint64_t), 0, 0, plan.multiplier);
        EXPECT_EQ(mpz_cmp(multiplier, expected), 0) << plan.firstBound;
    }
}

TEST(CurvePlans, CoverThePrimesBetweenTheBoundsAndNothingElse) {
    for (const CurvePlan& plan : CurvePlans()) {
        const auto wanted = [&](uint64_t n) { return n > plan.firstBound && IsPrime(n); };
        uint64_t primes = 0;
        int64_t smallCount = 0;
        for (uint64_t s = 1; s < plan.step / 2; s++) {
            if (std::gcd(s, plan.step) != 1) {
                continue;
            }
            const int64_t k = smallCount++;
            ASSERT_LT(k, plan.smallCount);
            ASSERT_EQ(plan.smallMultiples[k], s);
            for (int64_t i = 0; i < plan.largeCount; i++) {
                const uint64_t centre = (plan.firstLarge + static_cast<uint64_t>(i)) * plan.step;
                const uint64_t word = plan.covered[i * plan.coveredWords + k / 64];
                ASSERT_EQ((word >> (k % 64)) & 1,
                          wanted(centre - s) || wanted(centre + s) ? 1u : 0u);
                primes += wanted(centre - s) ? 1u : 0u;
                primes += wanted(centre + s) ? 1u : 0u;
            }
        }
        EXPECT_EQ(smallCount, plan.smallCount);
        // None is missing between the reaches of two centres.
        uint64_t expected = 0;
        for (uint64_t n = plan.firstBound + 1; n <= plan.secondBound; n++) {
            expected += IsPrime(n) ? 1u : 0u;
        }
        EXPECT_EQ(primes, expected) << plan.firstBound;
    }
}

}  // namespace
}  // namespace tallymere
