// Every function against MPFR and MPC: the largest error over its domain stays below a bound.
// docs/accuracy.md has what many more arguments give, and why some bounds are what they are.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>
#include <string>

#include "support/function_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Guard digits leave at most two hundredths of a unit beside the half of the rounding, in ulps of
// the larger part of a complex result.
constexpr double UsualBound = 0.52;

// Where they leave more: up to 100 digits and at 1,000.
struct WiderBound {
    double upTo100;
    double at1000;
};
const std::map<std::string, WiderBound> WiderBounds = {
    {"exp", {2, 12}},
    {"10^x", {2, 12}},
    {"2^x", {2, 12}},
    {"ln", {0.75, 0.6}},
    {"log2", {0.65, 0.6}},
    {"log10", {0.95, 0.7}},
    {"sqrt", {0.56, 0.52}},
    {"x^y", {0.75, 2}},
    {"x^n", {1.5, 1.5}},
    {"2^n", {0.55, 0.52}},
    {"root", {0.75, 2}},
    {"sin", {0.65, 0.65}},
    {"cos", {0.65, 0.65}},
    {"tan", {6, 6}},
    {"degrees to radians", {0.6, 0.6}},
    {"radians to degrees", {0.7, 0.7}},
    {"radians to gon", {0.7, 0.7}},
    {"sinh", {2.5, 12}},
    {"cosh", {2, 12}},
    {"tanh", {90, 600}},
    {"asinh", {0.75, 0.9}},
    {"acosh", {0.55, 1.5}},
    {"atanh", {0.65, 0.75}},
    {"z * w", {12, 12}},
    {"z / w", {25, 25}},
    {"1 / z", {20, 20}},
    {"z^n", {200, 200}},
    {"rootc", {2.5, 15}},
};

// What may be lost beside a result that is small, or beyond the digits before the point of a
// logarithm.
double BoundOf(const std::string& name, const FunctionDeviation& deviation) {
    const auto size = static_cast<double>(std::llabs(deviation.exponent));
    if (name == "sin, near its zeros" || name == "cos, near its zeros") {
        return UsualBound + 5 * std::pow(10.0, size - 2);
    }
    if (name == "tan, near zeros and poles") {
        return UsualBound + 20 * std::pow(10.0, size - 2);
    }
    if (name == "acosh, near 1") {
        return UsualBound + std::pow(10.0, 2 * size - 2);
    }
    if (name == "x^y, very large or small x" || name == "root, very large or small x") {
        return 2 + size / 100;
    }
    const auto wider = WiderBounds.find(name);
    if (wider == WiderBounds.end()) {
        return UsualBound;
    }
    return numberContext.precisionDigits <= 100 ? wider->second.upTo100 : wider->second.at1000;
}

// Functions for which one in so many results may be worse, without a bound: those of a fractional n
// next to an integer.
bool MayFail(const std::string& name) {
    return name == "ncr, fractional n" || name == "npr, fractional n";
}
constexpr int FailuresOneIn = 10;

// Below this precision an exponent of a very large power has more digits than the result.
constexpr int64_t LeastPrecisionForFarBases = 16;

int RoundsAt(int64_t p) {
    return TestRounds(p <= 20 ? 400 : p <= 100 ? 150 : 5);
}

class FunctionAccuracy : public ::testing::TestWithParam<size_t> {};

TEST_P(FunctionAccuracy, StaysBelowItsBound) {
    const TestedFunction& function = TestedFunctions()[GetParam()];
    const bool farBases = function.name.find("very large") != std::string::npos;
    SCOPED_TRACE(function.name);
    RandomSource random;
    int tried = 0;
    int failed = 0;
    for (int64_t p : {1, 2, 5, 16, 19, 20, 30, 38, 57, 100, 1000}) {
        if (farBases && p < LeastPrecisionForFarBases) {
            continue;
        }
        const PrecisionScope scope(p);
        for (int round = 0; round < RoundsAt(p); round++) {
            const FunctionArguments x = DrawArguments(function, random);
            const FunctionDeviation deviation = CompareFunction(function, x);
            if (!deviation.inDomain) {
                continue;
            }
            tried++;
            const double bound = BoundOf(function.name, deviation);
            if (MayFail(function.name)) {
                failed += deviation.ulps > bound ? 1 : 0;
            } else {
                ASSERT_LE(deviation.ulps, bound) << ArgumentsText(function, x);
            }
        }
    }
    EXPECT_GE(tried, TestRounds(100));
    EXPECT_LE(failed * FailuresOneIn, tried);
}

INSTANTIATE_TEST_SUITE_P(All, FunctionAccuracy,
                         ::testing::Range(size_t{0}, TestedFunctions().size()));

}  // namespace
}  // namespace tallymere
