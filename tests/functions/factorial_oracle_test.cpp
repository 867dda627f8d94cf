// Factorials against the integers of GMP.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/real_integer.h"
#include "functions/factorial.h"
#include "support/gmp_oracle.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// How far results are from the exact values, over many of them.
struct Accuracy {
    int64_t results = 0;
    int64_t correctlyRounded = 0;
    double worst = 0;  // in units of the last place
};

// |x - exact| in units of the last place of x.
double UlpError(const RealNumber* x, const Integer& exact) {
    constexpr int64_t Places = 9;
    Integer difference;
    ReadMantissa(difference, x);
    const int64_t unit = RealExponent(x) - numberContext.precisionDigits + 1;
    mpz_mul(difference, difference, PowerOfTenInteger(std::max<int64_t>(unit, 0) + Places));
    Integer scaled = exact;
    mpz_mul(scaled, scaled, PowerOfTenInteger(Places + std::max<int64_t>(-unit, 0)));
    mpz_sub(difference, difference, scaled);
    mpz_tdiv_q(difference, difference, PowerOfTenInteger(std::max<int64_t>(unit, 0)));
    return std::abs(mpz_get_d(difference)) / std::pow(10.0, Places);
}

void Measure(Accuracy& accuracy, const RealNumber* x, const Integer& exact) {
    accuracy.results++;
    if (IsAllowed(x, 0, RoundExact({exact}, {}))) {
        accuracy.correctlyRounded++;
    }
    accuracy.worst = std::max(accuracy.worst, UlpError(x, exact));
}

// The numbers from `low` to `high` that p digits hold.
std::vector<uint64_t> Representable(uint64_t low, uint64_t high) {
    std::vector<uint64_t> numbers;
    for (uint64_t n = low; n <= high; n++) {
        RealBuffer x;
        uint64_t back = 0;
        RealFromUint(x, n);
        if (RealToUint(&back, x, IntegerExact) && back == n) {
            numbers.push_back(n);
        }
    }
    return numbers;
}

Accuracy MeasureFactorials(uint64_t low, uint64_t high) {
    Accuracy accuracy;
    Integer exact;
    for (const uint64_t n : Representable(low, high)) {
        RealBuffer x;
        RealFromUint(x, n);
        RealFactorialRounded(x, x);
        mpz_fac_ui(exact, n);
        Measure(accuracy, x, exact);
    }
    return accuracy;
}

// What the guard digits leave of the error of the method: thousandths of a unit in the last place.
// It grows with the digits, as the series of the exponential adds up one error for each term.
double MethodError(int64_t p) {
    return p <= 57 ? 0.0001 : p <= 100 ? 0.001 : p <= 300 ? 0.01 : 0.05;
}

void ExpectAccurate(const Accuracy& accuracy, double methodError) {
    ASSERT_GT(accuracy.results, 0);
    EXPECT_LE(accuracy.worst, 0.5 + methodError);
    const double share =
        static_cast<double>(accuracy.correctlyRounded) / static_cast<double>(accuracy.results);
    EXPECT_GE(share, 1 - 2 * methodError);
}

TEST(FactorialOracle, RoundsSmallFactorialsCorrectly) {
    for (int64_t p : {1, 2, 3, 9, 16, 18, 19, 20, 37, 38, 39, 57, 100, 1000}) {
        PrecisionScope scope(p);
        ExpectAccurate(MeasureFactorials(0, 400), 0);
    }
    PrecisionScope scope(10000);
    ExpectAccurate(MeasureFactorials(3200, 3290), 0);
}

TEST(FactorialOracle, RoundsAroundTheCutover) {
    for (int64_t p : {2, 3, 9, 16, 18, 19, 20, 37, 38, 39, 57, 100, 200, 300}) {
        PrecisionScope scope(p);
        // Numbers of 2 to 4 digits bring 8 to 10 guard digits.
        const uint64_t low = static_cast<uint64_t>(FactorialCutoverAt(p + 8));
        const uint64_t high = static_cast<uint64_t>(FactorialCutoverAt(p + 10));
        ExpectAccurate(MeasureFactorials(low - 50, high + 150), MethodError(p));
    }
}

TEST(FactorialOracle, RoundsLargeFactorials) {
    for (int64_t p : {5, 16, 19, 20, 38, 39, 57, 100, 300, 1000}) {
        PrecisionScope scope(p);
        const uint64_t n = p < 1000 ? 10'000 : 50'000;
        ExpectAccurate(MeasureFactorials(n, n + 20), MethodError(p));
    }
}

}  // namespace
}  // namespace tallymere
