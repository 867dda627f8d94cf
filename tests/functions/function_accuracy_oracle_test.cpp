// Every function against MPFR and MPC: the largest error over its domain stays below a bound.
// docs/accuracy.md has what many more arguments give, and why some bounds are what they are.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>
#include <string>

#include "functions/error_bounds.h"
#include "support/function_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The bounds of those that are not within UsualErrorBound.
const std::map<std::string, ErrorBound> WiderBounds = {
    {"exp", ExpErrorBound},
    {"10^x", ExpErrorBound},
    {"2^x", ExpErrorBound},
    {"ln", LnErrorBound},
    {"log2", Log2ErrorBound},
    {"log10", Log10ErrorBound},
    {"sqrt", SqrtErrorBound},
    {"x^y", PowerErrorBound},
    {"x^n", PowerIntErrorBound},
    {"2^n", PowerOfTwoErrorBound},
    {"root", RootErrorBound},
    {"sin", CircularErrorBound},
    {"cos", CircularErrorBound},
    {"tan", CircularErrorBound},
    {"sind", CircularErrorBound},
    {"cosd", CircularErrorBound},
    {"tand", CircularErrorBound},
    {"sing", CircularErrorBound},
    {"cosg", CircularErrorBound},
    {"tang", CircularErrorBound},
    {"sin, near its zeros", CircularErrorBound},
    {"cos, near its zeros", CircularErrorBound},
    {"tan, near zeros and poles", CircularErrorBound},
    {"asind", ArcInUnitsErrorBound},
    {"acosd", ArcInUnitsErrorBound},
    {"atand", ArcInUnitsErrorBound},
    {"argd", ArcInUnitsErrorBound},
    {"asing", ArcInUnitsErrorBound},
    {"acosg", ArcInUnitsErrorBound},
    {"atang", ArcInUnitsErrorBound},
    {"argg", ArcInUnitsErrorBound},
    {"degrees to radians", DegToRadErrorBound},
    {"radians to degrees", RadToDegErrorBound},
    {"radians to gon", RadToGonErrorBound},
    {"sinh", SinhErrorBound},
    {"cosh", CoshErrorBound},
    {"tanh", TanhErrorBound},
    {"asinh", AsinhErrorBound},
    {"acosh", AcoshErrorBound},
    {"atanh", AtanhErrorBound},
    {"z * w", ComplexMulErrorBound},
    {"z / w", ComplexDivErrorBound},
    {"1 / z", ComplexReciprocalErrorBound},
    {"z^n", ComplexPowerIntErrorBound},
    {"rootc", ComplexRootErrorBound},
};

// What may be lost beside a result that is small, or beyond the digits before the point of a
// logarithm.
double BoundOf(const std::string& name, const FunctionDeviation& deviation) {
    const auto size = static_cast<double>(std::llabs(deviation.exponent));
    if (name == "acosh, near 1") {
        return UsualErrorBound + AcoshNearOneFactor * std::pow(10.0, 2 * size - 2);
    }
    if (name == "x^y, very large or small x" || name == "root, very large or small x") {
        return FarBaseErrorBound + size / FarBaseExponentPerUlp;
    }
    const auto wider = WiderBounds.find(name);
    if (wider == WiderBounds.end()) {
        return UsualErrorBound;
    }
    return numberContext.precisionDigits <= 100 ? wider->second.upTo100 : wider->second.upTo1000;
}

// Functions for which one in so many results may be worse, without a bound: those of a fractional n
// next to an integer.
bool MayFail(const std::string& name) {
    return name == "ncr, fractional n" || name == "npr, fractional n";
}
constexpr int FailuresOneIn = 10;

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
        if (farBases && p < FarBaseLeastPrecision) {
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
