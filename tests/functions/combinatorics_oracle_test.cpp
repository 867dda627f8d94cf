// Combinations, permutations, gcd and lcm against the integers of GMP, at random operands.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/real_rounding.h"
#include "functions/combinatorics.h"
#include "support/gmp_oracle.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// n (n - 1) ... (n - k + 1) for n = `units` * 10^-places.
ExactValue FallingProduct(int64_t units, int64_t places, uint64_t k, uint64_t& sign) {
    ExactValue exact;
    exact.numerator = Integer(1);
    exact.exponent = -places * static_cast<int64_t>(k);
    Integer step;
    Integer factor;
    mpz_set_si(factor, units);
    for (uint64_t i = 0; i < k; i++) {
        mpz_mul(exact.numerator, exact.numerator, factor);
        mpz_sub(factor, factor, PowerOfTenInteger(places));
    }
    sign = exact.numerator.Sign() < 0 ? 1 : 0;
    mpz_abs(exact.numerator, exact.numerator);
    return exact;
}

void CheckCounts(int64_t units, int64_t places, uint64_t k) {
    SCOPED_TRACE(std::to_string(units) + "e-" + std::to_string(places) + ", " + std::to_string(k));
    const RealBuffer n(std::to_string(units) + "e-" + std::to_string(places));
    const RealBuffer steps(std::to_string(k));
    uint64_t sign = 0;
    ExactValue exact = FallingProduct(units, places, k, sign);
    for (RealRoundedBinary operation : {RealPermutations, RealCombinations}) {
        RealBuffer result;
        operation(result, n, steps);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
        if (exact.numerator.Sign() == 0) {
            EXPECT_EQ(PlainText(result), "0");
        } else {
            // Two steps for each factor lose less than 10 units of the 19th guard digit each.
            const uint64_t lost = 200 * (k + 1);
            EXPECT_TRUE(IsAllowed(result, sign, RoundExact(exact, {lost, lost})));
        }
        mpz_fac_ui(exact.denominator, k);
    }
}

TEST(CombinatoricsOracle, RoundsCountsOfIntegers) {
    RandomSource random;
    for (int64_t p : {4, 9, 16, 18, 19, 20, 37, 38, 39, 57, 100, 1000}) {
        PrecisionScope scope(p);
        for (int round = TestRounds(200); round > 0; round--) {
            const int64_t n = random.Between(1, 400);
            CheckCounts(n, 0, static_cast<uint64_t>(random.Between(1, n)));
        }
        CheckCounts(5, 0, 7);
        CheckCounts(9999, 0, 5000);
    }
    PrecisionScope scope(10000);
    CheckCounts(30000, 0, 15000);
}

TEST(CombinatoricsOracle, RoundsCountsOfRealNumbers) {
    RandomSource random;
    for (int64_t p : {9, 16, 18, 19, 20, 37, 38, 39, 57, 100, 1000}) {
        PrecisionScope scope(p);
        for (int round = TestRounds(200); round > 0; round--) {
            const int64_t places = random.Between(1, 7);
            const int64_t units = random.Between(1, 99'999'999);
            CheckCounts(random.Below(2) == 0 ? units : -units, places, random.Below(300) + 1);
        }
    }
}

// A random integer of up to `digits` digits, above 0.
Integer RandomInteger(RandomSource& random, int64_t digits) {
    const int64_t length = random.Between(1, digits);
    Integer value(random.Between(1, 9));
    for (int64_t i = 1; i < length; i++) {
        mpz_mul_ui(value, value, 10);
        mpz_add_ui(value, value, random.Below(10));
    }
    return value;
}

void SetInteger(RealBuffer& dest, const Integer& value) {
    std::vector<char> digits(mpz_sizeinbase(value, 10) + 2);
    RealFromPlainText(dest, mpz_get_str(digits.data(), 10, value));
}

// gcd and lcm of two random multiples of a random integer.
void CheckDivisors(RandomSource& random, int64_t digits) {
    const Integer common = RandomInteger(random, std::max<int64_t>(digits / 2, 1));
    Integer a = RandomInteger(random, std::max<int64_t>(digits / 2, 1));
    Integer b = RandomInteger(random, std::max<int64_t>(digits / 2, 1));
    if (digits >= 2) {
        mpz_mul(a, a, common);
        mpz_mul(b, b, common);
    }
    RealBuffer x;
    RealBuffer y;
    RealBuffer result;
    SetInteger(x, a);
    SetInteger(y, b);
    Integer exact;
    mpz_gcd(exact, a, b);
    EXPECT_EQ(RealGcd(result, x, y), 0u);
    EXPECT_TRUE(IsExactly(result, 0, exact, 0));
    mpz_lcm(exact, a, b);
    const Limb guard = RealLcm(result, x, y);
    // The one product that is not exact is short of its columns below the guard limb.
    EXPECT_TRUE(IsRawWithin(result, guard, {exact}, 10 * static_cast<uint64_t>(RealWords()), 0));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(DivisorsOracle, GcdIsExactAndLcmOneProduct) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int round = TestRounds(p <= 100 ? 300 : p <= 1000 ? 20 : 1); round > 0; round--) {
            CheckDivisors(random, p);
        }
    }
}

}  // namespace
}  // namespace tallymere
