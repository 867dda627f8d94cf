// What the functions take of CoreScratch at the longest layout of the calculator, guard digits
// included: always within its bounds, and given back.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "core/complex_arithmetic.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/angle_units.h"
#include "functions/combinatorics.h"
#include "functions/complex_modulus.h"
#include "functions/complex_powers.h"
#include "functions/complex_roots.h"
#include "functions/exponential.h"
#include "functions/factorial.h"
#include "functions/hyperbolic.h"
#include "functions/hypotenuse.h"
#include "functions/inverse_trigonometric.h"
#include "functions/logarithm.h"
#include "functions/powers.h"
#include "functions/roots.h"
#include "functions/stored_constants.h"
#include "functions/trigonometric.h"
#include "support/complex_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// 10,000 digits and the two that the calculator adds.
constexpr int64_t LongestPrecision = 10'002;

struct MeasuredFunction {
    const char* name;
    std::function<void(RealNumber* dest)> run;
};

// The value of a short text, and behind it digits up to the last one: products with limbs that are
// 0 take less.
RealBuffer WithAllDigits(const std::string& text) {
    RealBuffer x(text);
    for (int64_t i = 0; i < numberContext.realLimbs; i++) {
        x.Limbs()[i] += i < 3 ? 0 : LimbBase / 7;
    }
    return x;
}

ComplexBuffer WithAllDigits(const std::string& realPart, const std::string& imaginaryPart) {
    return ComplexBuffer(WithAllDigits(realPart), WithAllDigits(imaginaryPart));
}

MeasuredFunction Of(const char* name, RealRoundedUnary function, std::string argument) {
    return {name, [=](RealNumber* dest) { function(dest, WithAllDigits(argument)); }};
}

MeasuredFunction Of(const char* name, RealRoundedBinary function, std::string a, std::string b) {
    return {name, [=](RealNumber* dest) { function(dest, WithAllDigits(a), WithAllDigits(b)); }};
}

// For a whole number as the first argument.
MeasuredFunction OfWhole(const char* name, RealRoundedBinary function, std::string a,
                         std::string b) {
    return {name, [=](RealNumber* dest) { function(dest, RealBuffer(a), WithAllDigits(b)); }};
}

MeasuredFunction OfComplex(const char* name, std::function<void(ComplexNumber* z)> function) {
    return {name, [=](RealNumber*) {
                ComplexBuffer z = WithAllDigits("1.25e0", "-7.5e-1");
                function(z);
            }};
}

std::string LongestPi() {
    RealBuffer pi;
    RealPi(pi);
    return PlainText(pi);
}

// Arguments take the longest way through a function and as many guard digits as it ever adds.
std::vector<MeasuredFunction> MeasuredFunctions() {
    return {
        {"RealPi", RealPi},
        Of("RealExpRounded", RealExpRounded, "1.7e18"),
        Of("RealExp2Rounded", RealExp2Rounded, "1.7e18"),
        Of("RealExp10Rounded", RealExp10Rounded, "1.0000000000000000017e18"),
        Of("RealLnRounded", RealLnRounded, "1.7e18"),
        Of("RealLog2Rounded", RealLog2Rounded, "1.7e18"),
        Of("RealLog10Rounded", RealLog10Rounded, "1.7e18"),
        Of("RealLogRounded", RealLogRounded, "7e0", "1.7e18"),
        Of("RealSqrtRounded", RealSqrtRounded, "1.7e0"),
        Of("RealCbrtRounded", RealCbrtRounded, "1.7e0"),
        OfWhole("RealRootRounded", RealRootRounded, "7e0", "-1.7e0"),
        Of("RealHypotRounded", RealHypotRounded, "1.7e0", "1.3e0"),
        {"RealPowerIntRounded",
         [](RealNumber* dest) {
             RealPowerIntRounded(dest, WithAllDigits("1.000000000000000001e0"),
                                 -9'007'199'254'740'993);
         }},
        {"RealPowerOfTwoRounded",
         [](RealNumber* dest) { RealPowerOfTwoRounded(dest, -1'125'899'906'842'623); }},
        Of("RealPowerRounded", RealPowerRounded, "1.000000000000000000000000000000001e0", "1.7e35"),
        Of("RealSinRounded", RealSinRounded, "1.1e19"),
        Of("RealCosRounded", RealCosRounded, "1.1e19"),
        Of("RealTanRounded", RealTanRounded, "1.1e19"),
        {"RealSinRounded, near its zeros",
         [](RealNumber* dest) { RealSinRounded(dest, RealBuffer(LongestPi())); }},
        {"RealTanRounded, near its zeros",
         [](RealNumber* dest) { RealTanRounded(dest, RealBuffer(LongestPi())); }},
        Of("RealSinDegreesRounded", RealSinDegreesRounded, "1.1e19"),
        Of("RealTanDegreesRounded", RealTanDegreesRounded, "1.1e19"),
        Of("RealTanGonRounded", RealTanGonRounded, "1.7e0"),
        Of("RealAtanDegreesRounded", RealAtanDegreesRounded, "1.7e0"),
        Of("RealAsinGonRounded", RealAsinGonRounded, "7e-1"),
        Of("RealAtan2DegreesRounded", RealAtan2DegreesRounded, "1.7e0", "-1.3e0"),
        Of("RealAsinRounded", RealAsinRounded, "7e-1"),
        Of("RealAcosRounded", RealAcosRounded, "7e-1"),
        Of("RealAtanRounded", RealAtanRounded, "1.7e0"),
        Of("RealAtan2Rounded", RealAtan2Rounded, "1.7e0", "-1.3e0"),
        Of("RealSinhRounded", RealSinhRounded, "1.7e18"),
        Of("RealCoshRounded", RealCoshRounded, "1.7e18"),
        Of("RealTanhRounded", RealTanhRounded, "1.7e0"),
        Of("RealTanhRounded, small", RealTanhRounded, "1.7e-2"),
        Of("RealAsinhRounded", RealAsinhRounded, "1.7e0"),
        Of("RealAcoshRounded", RealAcoshRounded, "1.7e0"),
        Of("RealAcoshRounded, near 1", RealAcoshRounded, "1.03e0"),
        Of("RealAtanhRounded", RealAtanhRounded, "7e-1"),
        Of("RealDegToRad", RealDegToRad, "1.7e0"),
        Of("RealRadToDeg", RealRadToDeg, "1.7e0"),
        Of("RealGonToRad", RealGonToRad, "1.7e0"),
        Of("RealRadToGon", RealRadToGon, "1.7e0"),
        {"RealFactorialRounded",
         [](RealNumber* dest) { RealFactorialRounded(dest, RealBuffer("7.1e2")); }},
        {"RealFactorialRounded, Stirling",
         [](RealNumber* dest) { RealFactorialRounded(dest, RealBuffer("1.7e17")); }},
        {"RealCombinations",
         [](RealNumber* dest) {
             RealCombinations(dest, WithAllDigits("7.5e-1"), RealBuffer("9e0"));
         }},
        {"RealPermutations",
         [](RealNumber* dest) {
             RealPermutations(dest, WithAllDigits("7.5e-1"), RealBuffer("9e0"));
         }},
        {"RealGcd",
         [](RealNumber* dest) { RealGcd(dest, RealBuffer("1.8e1"), RealBuffer("1.2e1")); }},
        {"RealLcm",
         [](RealNumber* dest) { RealLcm(dest, RealBuffer("1.8e1"), RealBuffer("1.2e1")); }},
        OfComplex("ComplexMul", [](ComplexNumber* z) { ComplexMul(z, z, z); }),
        OfComplex("ComplexDiv",
                  [](ComplexNumber* z) { ComplexDiv(z, z, WithAllDigits("7e-1", "1.3e0")); }),
        OfComplex("ComplexReciprocal", [](ComplexNumber* z) { ComplexReciprocal(z, z); }),
        OfComplex("ComplexAbs", [](ComplexNumber* z) { ComplexAbs(z, z); }),
        OfComplex("ComplexPowerInt", [](ComplexNumber* z) { ComplexPowerInt(z, z, -13); }),
        OfComplex("ComplexPower",
                  [](ComplexNumber* z) { ComplexPower(z, z, ComplexBuffer("-13 0")); }),
        OfComplex("ComplexSqrtBranch",
                  [](ComplexNumber* z) { ComplexSqrtBranch(z, z, RealBuffer("1e0")); }),
        OfComplex("ComplexCbrtBranch",
                  [](ComplexNumber* z) { ComplexCbrtBranch(z, z, RealBuffer("1e0")); }),
        OfComplex("ComplexRootBranch",
                  [](ComplexNumber* z) {
                      ComplexRootBranch(z, RealBuffer("7e0"), z, RealBuffer("5e0"));
                  }),
    };
}

// The figures stand in the log of the run and in docs/architecture.md.
TEST(FunctionMemory, StaysWithinCoreScratchAtTheLongestLayout) {
    const PrecisionScope scope(LongestPrecision);
    const int64_t usual = coreScratch.highWaterWords;
    for (const MeasuredFunction& function : MeasuredFunctions()) {
        RealBuffer dest;
        coreScratch.highWaterWords = 0;
        function.run(dest);
        const int64_t bytes = coreScratch.highWaterWords * BytesPerWord;
        EXPECT_EQ(TakeCode(), CalcErrorNone) << function.name;
        EXPECT_LT(bytes, CoreScratchBytes) << function.name;
        EXPECT_EQ(numberContext.scratchTop, numberContext.scratchBase) << function.name;
        std::printf("CoreScratch: %-32s %7d bytes, %4.1f records\n", function.name,
                    static_cast<int>(bytes),
                    static_cast<double>(bytes) / static_cast<double>(BytesPerWord * RealWords()));
    }
    coreScratch.highWaterWords = std::max(usual, coreScratch.highWaterWords);
}

}  // namespace
}  // namespace tallymere
