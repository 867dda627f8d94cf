// What functions have to do with each other and with themselves at other precisions: no oracle, so
// it runs everywhere. Precisions are random.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/complex_arithmetic.h"
#include "core/real_add.h"
#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "functions/complex_powers.h"
#include "functions/complex_roots.h"
#include "functions/exponential.h"
#include "functions/hyperbolic.h"
#include "functions/inverse_trigonometric.h"
#include "functions/logarithm.h"
#include "functions/powers.h"
#include "functions/roots.h"
#include "functions/trigonometric.h"
#include "support/complex_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int64_t MostDigits = 120;

int64_t RandomPrecision(RandomSource& random) {
    return random.Between(1, MostDigits);
}

// |a - b| in units of 10^(exponent - p + 1).
double UnitsApart(const RealNumber* a, const RealNumber* b, int64_t exponent) {
    RealBuffer difference;
    RealSub(difference, a, b);
    if (RealIsZero(difference)) {
        return 0;
    }
    const double leading = static_cast<double>(RealLeadingDigits(difference.Limbs(), 19)) / 1e18;
    const int64_t unit = exponent - numberContext.precisionDigits + 1;
    return leading * std::pow(10.0, static_cast<double>(RealExponent(difference) - unit));
}

double UlpsApart(const RealNumber* a, const RealNumber* b) {
    return UnitsApart(a, b, RealExponent(a));
}

// A number from 10^low to 10^(high + 1).
RealBuffer RandomNumber(RandomSource& random, int64_t low, int64_t high, bool negative) {
    RealBuffer x;
    FillReal(random, x, 0);
    x.Get()->header = MakeHeader(random.Between(low, high), negative ? random.Below(2) : 0);
    return x;
}

struct Function {
    const char* name;
    RealRoundedUnary run;
    int64_t leastExponent;
    int64_t greatestExponent;
    bool negative;
};

// Where no digits cancel.
const Function Functions[] = {
    {"exp", RealExpRounded, -9, 3, true},      {"2^x", RealExp2Rounded, -9, 3, true},
    {"10^x", RealExp10Rounded, -9, 3, true},   {"ln", RealLnRounded, -99, 99, false},
    {"log2", RealLog2Rounded, -99, 99, false}, {"log10", RealLog10Rounded, -99, 99, false},
    {"sqrt", RealSqrtRounded, -99, 99, false}, {"cbrt", RealCbrtRounded, -99, 99, true},
    {"sin", RealSinRounded, -9, -1, true},     {"cos", RealCosRounded, -9, -1, true},
    {"tan", RealTanRounded, -9, -1, true},     {"asin", RealAsinRounded, -9, -1, true},
    {"acos", RealAcosRounded, -9, -1, true},   {"atan", RealAtanRounded, -9, 9, true},
    {"sinh", RealSinhRounded, -9, 3, true},    {"cosh", RealCoshRounded, -9, 3, true},
    {"asinh", RealAsinhRounded, -9, 9, true},  {"atanh", RealAtanhRounded, -9, -1, true},
};

// A result at p digits and one at p + k digits, rounded to p, lie a unit of the last place apart at
// most where both are within half a unit, and one more where the exponential's own error of up to
// 1.3 units at these precisions is in it.
TEST(FunctionIdentities, MoreDigitsGiveTheSameLeadingOnes) {
    RandomSource random;
    for (const Function& function : Functions) {
        SCOPED_TRACE(function.name);
        for (int round = 0; round < TestRounds(400); round++) {
            const int64_t p = RandomPrecision(random);
            const int64_t more = p + random.Between(1, 60);
            const PrecisionScope scope(p);
            const RealBuffer x = RandomNumber(random, function.leastExponent,
                                              function.greatestExponent, function.negative);
            RealBuffer result;
            function.run(result, x);
            RealBuffer narrowed;
            {
                const RealLayout narrow = CurrentRealLayout();
                const PrecisionScope wide(more);
                RealBuffer wideX;
                RealConvertLayout(wideX, x, narrow);
                function.run(wideX, wideX);
                RealConvertPrecision(narrowed, p, wideX, more);
            }
            ASSERT_LE(UlpsApart(result, narrowed), 2)
                << PlainText(x) << " gives " << PlainText(result) << ", with " << more << " digits "
                << PlainText(narrowed);
        }
    }
}

// The logarithm's rounding, half a unit of its last place, is relative in the exponential: half of
// 10^(digits before its point) ulps of a result that begins with 9.
TEST(FunctionIdentities, ExponentialUndoesTheLogarithm) {
    RandomSource random;
    for (int round = 0; round < TestRounds(2000); round++) {
        const PrecisionScope scope(random.Between(5, MostDigits));
        const RealBuffer x = RandomNumber(random, -30, 30, false);
        RealBuffer result;
        RealLnRounded(result, x);
        const int64_t places = RealIsZero(result) ? 0 : RealExponent(result) + 1;
        RealExpRounded(result, result);
        const double bound = 3 + 0.6 * std::pow(10.0, static_cast<double>(places));
        ASSERT_LE(UlpsApart(x, result), bound) << PlainText(x) << ": " << PlainText(result);
    }
}

TEST(FunctionIdentities, SquaresOfSineAndCosineMakeOne) {
    RandomSource random;
    for (int round = 0; round < TestRounds(2000); round++) {
        const PrecisionScope scope(RandomPrecision(random));
        const RealBuffer x = RandomNumber(random, -9, 18, true);
        RealBuffer sine;
        RealBuffer cosine;
        const RealBuffer one("1e0");
        RealSinRounded(sine, x);
        RealCosRounded(cosine, x);
        RealMul(sine, sine, sine);
        RealMul(cosine, cosine, cosine);
        RealAdd(sine, sine, cosine);
        // 2 s ds + 2 c dc, s and c being below 1 and their units a tenth of that of 1, and the
        // rounding of squares and sum.
        ASSERT_LE(UlpsApart(one, sine), 1.0) << PlainText(x) << ": " << PlainText(sine);
    }
}

TEST(FunctionIdentities, PowersUndoRoots) {
    RandomSource random;
    for (int round = 0; round < TestRounds(2000); round++) {
        const PrecisionScope scope(RandomPrecision(random));
        const RealBuffer x = RandomNumber(random, -40, 40, false);
        RealBuffer square;
        RealBuffer cube;
        RealSqrtRounded(square, x);
        RealMul(square, square, square);
        RealCbrtRounded(cube, x);
        RealPowerIntRounded(cube, cube, 3);
        // Half a unit of a root that begins with 1 is ten times as much of a power that begins
        // with 9, times the degree.
        EXPECT_LE(UlpsApart(x, square), 11) << PlainText(x);
        ASSERT_LE(UlpsApart(x, cube), 16) << PlainText(x);
    }
}

TEST(FunctionIdentities, TangentUndoesItsInverse) {
    RandomSource random;
    for (int round = 0; round < TestRounds(2000); round++) {
        const PrecisionScope scope(RandomPrecision(random));
        const RealBuffer x = RandomNumber(random, -9, -1, true);
        RealBuffer result;
        RealAtanRounded(result, x);
        RealTanRounded(result, result);
        ASSERT_LE(UlpsApart(x, result), 11) << PlainText(x) << ": " << PlainText(result);
    }
}

TEST(FunctionIdentities, PowersOfTwoAgreeByAllThreeRoads) {
    RandomSource random;
    for (int round = 0; round < TestRounds(500); round++) {
        const PrecisionScope scope(random.Between(4, MostDigits));
        const int64_t n = random.Between(-999, 999);
        RealBuffer exponent;
        RealFromInt(exponent, n);
        const RealBuffer two("2e0");
        RealBuffer byPower;
        RealBuffer bySquaring;
        RealBuffer byExponential;
        RealPowerOfTwoRounded(byPower, n);
        RealPowerIntRounded(bySquaring, two, n);
        RealExp2Rounded(byExponential, exponent);
        EXPECT_LE(UlpsApart(byPower, bySquaring), 1) << n;
        ASSERT_LE(UlpsApart(byPower, byExponential), 2) << n;
    }
}

int64_t LargerExponent(const ComplexNumber* z) {
    const RealNumber* real = RealPart(z);
    const RealNumber* imaginary = ImaginaryPart(z);
    return RealIsZero(imaginary) ||
                   (!RealIsZero(real) && RealExponent(real) > RealExponent(imaginary))
               ? RealExponent(real)
               : RealExponent(imaginary);
}

// Each branch is another root of z, and they add up to 0.
TEST(FunctionIdentities, AllBranchesOfARootAreRoots) {
    RandomSource random;
    for (int round = 0; round < TestRounds(300); round++) {
        const PrecisionScope scope(random.Between(5, MostDigits));
        const int64_t n = random.Between(1, 12);
        RealBuffer degree;
        RealFromInt(degree, n);
        ComplexBuffer z;
        FillReal(random, RealPart(z.Get()), 3);
        FillPartner(random, ImaginaryPart(z.Get()), RealPart(z.Get()), 3);
        const int64_t exponent = LargerExponent(z);
        ComplexBuffer sum;
        ComplexSetZero(sum, 0);
        int64_t rootExponent = 0;
        for (int64_t k = 0; k < n; k++) {
            RealBuffer branch;
            RealFromInt(branch, k);
            ComplexBuffer root;
            ComplexRootBranch(root, degree, z, branch);
            rootExponent =
                k == 0 ? LargerExponent(root) : std::max(rootExponent, LargerExponent(root));
            ComplexAdd(sum, sum, root);
            ComplexPowerInt(root, root, n);
            // A unit of the root counts n times in its power, ten times as much where the root
            // begins with 1 and the power with 9; the rounded products double theirs.
            const double bound = 30.0 * static_cast<double>(n);
            EXPECT_LE(UnitsApart(RealPart(root.Get()), RealPart(z.Get()), exponent), bound);
            ASSERT_LE(UnitsApart(ImaginaryPart(root.Get()), ImaginaryPart(z.Get()), exponent),
                      bound)
                << "branch " << k << " of " << n << " of " << PlainText(z);
        }
        if (n > 1) {
            // Each sum on the way may have one digit more than the roots, and rounds it off.
            const RealBuffer zero("0");
            const double bound = 6.0 * static_cast<double>(n);
            EXPECT_LE(UnitsApart(RealPart(sum.Get()), zero, rootExponent), bound);
            ASSERT_LE(UnitsApart(ImaginaryPart(sum.Get()), zero, rootExponent), bound);
        }
    }
}

}  // namespace
}  // namespace tallymere
