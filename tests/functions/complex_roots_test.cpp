#include "functions/complex_roots.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstdlib>
#include <numbers>
#include <string>

#include "core/complex_arithmetic.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_integer.h"
#include "functions/complex_powers.h"
#include "functions/hypotenuse.h"
#include "support/complex_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

const Outcome Undefined = {"nan 0", CalcErrorUndefined};

// Branch k of the n-th root, the same whichever operand lies in the destination.
Outcome Branch(const RealBuffer& n, const ComplexBuffer& z, const RealBuffer& k) {
    const auto root = [&](ComplexNumber* dest, const ComplexNumber* x) {
        ComplexRootBranch(dest, n, x, k);
    };
    const Outcome outcome = UnaryOutcome(root, z);
    ComplexBuffer degree(n, RealBuffer("0"));
    ComplexRootBranch(degree, RealPart(degree.Get()), z, k);
    EXPECT_EQ(OutcomeOf(degree), outcome) << "in the degree";
    ComplexBuffer branch(k, RealBuffer("0"));
    ComplexRootBranch(branch, n, z, RealPart(branch.Get()));
    EXPECT_EQ(OutcomeOf(branch), outcome) << "in the branch";
    return outcome;
}
Outcome Branch(std::string_view n, std::string_view z, std::string_view k) {
    return Branch(RealBuffer(n), ComplexBuffer(z), RealBuffer(k));
}

Outcome SquareRoot(const ComplexBuffer& z, const RealBuffer& k) {
    const auto root = [&](ComplexNumber* dest, const ComplexNumber* x) {
        ComplexSqrtBranch(dest, x, k);
    };
    return UnaryOutcome(root, z);
}
Outcome SquareRoot(std::string_view z, std::string_view k) {
    return SquareRoot(ComplexBuffer(z), RealBuffer(k));
}

Outcome CubeRoot(const ComplexBuffer& z, const RealBuffer& k) {
    const auto root = [&](ComplexNumber* dest, const ComplexNumber* x) {
        ComplexCbrtBranch(dest, x, k);
    };
    return UnaryOutcome(root, z);
}
Outcome CubeRoot(std::string_view z, std::string_view k) {
    return CubeRoot(ComplexBuffer(z), RealBuffer(k));
}

TEST(ComplexSqrtBranch, IsExactOnTheAxes) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(SquareRoot("-1 0", "0"), Silent("0 1e0"));
        EXPECT_EQ(SquareRoot("-1 0", "1"), Silent("-0 -1e0"));
        EXPECT_EQ(SquareRoot("-4 0", "0"), Silent("0 2e0"));
        EXPECT_EQ(SquareRoot("4 0", "0"), Silent("2e0 0"));
        EXPECT_EQ(SquareRoot("4 0", "1"), Silent("-2e0 -0"));
        EXPECT_EQ(SquareRoot("9e20 -0", "0"), Silent("3e10 -0"));
    }
}

TEST(ComplexSqrtBranch, CountsANegativeImaginaryZeroAsNotBelowTheAxis) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(SquareRoot("-1 -0", "0").text, "-0 1e0");
        EXPECT_EQ(SquareRoot("-1 -0", "1").text, "0 -1e0");
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST(ComplexSqrtBranch, HasTheKnownDigits) {
    PrecisionScope scope(50);
    const std::string half = "7.0710678118654752440084436210484903928483593768847e-1";
    EXPECT_EQ(SquareRoot("0 1", "0"), Silent(half + " " + half));
    EXPECT_EQ(SquareRoot("0 1", "1"), Silent("-" + half + " -" + half));
    EXPECT_EQ(SquareRoot("0 -1", "0"), Silent(half + " -" + half));
    EXPECT_EQ(SquareRoot("0 -1", "1"), Silent("-" + half + " " + half));
    EXPECT_EQ(SquareRoot("3 4", "0"), Silent("2e0 1e0"));
    EXPECT_EQ(SquareRoot("3 -4", "0"), Silent("2e0 -1e0"));
    EXPECT_EQ(SquareRoot("-3 4", "0"), Silent("1e0 2e0"));
    EXPECT_EQ(SquareRoot("-3 -4", "0"), Silent("1e0 -2e0"));
    EXPECT_EQ(SquareRoot("-3 -4", "1"), Silent("-1e0 2e0"));
    // The principal root has a real part that is never negative, on both sides of the cut.
    EXPECT_EQ(SquareRoot("-1 1e-60", "0"), Silent("5e-61 1e0"));
    EXPECT_EQ(SquareRoot("-1 -1e-60", "0"), Silent("5e-61 -1e0"));
}

TEST(ComplexCbrtBranch, HasTheKnownDigits) {
    PrecisionScope scope(50);
    const std::string root = "1.7320508075688772935274463415058723669428052538104e0";
    EXPECT_EQ(CubeRoot("8 0", "0"), Silent("2e0 0"));
    EXPECT_EQ(CubeRoot("8 0", "1"), Silent("-1e0 " + root));
    EXPECT_EQ(CubeRoot("8 0", "2"), Silent("-1e0 -" + root));
    EXPECT_EQ(CubeRoot("-8 0", "0"), Silent("1e0 " + root));
    EXPECT_EQ(CubeRoot("-8 0", "1"), Silent("-2e0 0"));
    EXPECT_EQ(CubeRoot("-8 0", "2"), Silent("1e0 -" + root));
    EXPECT_EQ(CubeRoot("0 8", "2"), Silent("-0 -2e0"));
    EXPECT_EQ(CubeRoot("0 -8", "1"), Silent("-0 2e0"));
    EXPECT_EQ(CubeRoot("-2 2", "0"), Silent("1e0 1e0"));
}

TEST(ComplexRootBranch, RefusesADegreeOutOfBounds) {
    for (int64_t p : {1, 16, 19, 20, 57}) {
        PrecisionScope scope(p);
        for (const char* degree :
             {"0", "-0", "-1", "-2", "5e-1", "inf", "-inf", "nan", "3e18", "1e19", "1e100"}) {
            EXPECT_EQ(Branch(degree, "1 1", "0"), Undefined) << degree;
        }
    }
    PrecisionScope scope(19);
    EXPECT_EQ(Branch("2305843009213693952", "1 1", "0"), Undefined);
    EXPECT_EQ(Branch("2305843009213693951", "1 1", "0").code, CalcErrorNone);
    EXPECT_EQ(Branch("2.5", "1 1", "0"), Undefined);
    EXPECT_EQ(Branch("2.5", "0 0", "0"), Undefined);
}

TEST(ComplexRootBranch, RefusesABranchOutOfBounds) {
    for (int64_t p : {1, 16, 19, 20, 57}) {
        PrecisionScope scope(p);
        for (const char* branch : {"-1", "5e-1", "inf", "-inf", "nan", "1e19", "5"}) {
            EXPECT_EQ(Branch("5", "1 1", branch), Undefined) << branch;
            EXPECT_EQ(Branch("5", "0 0", branch), Undefined) << branch;
            EXPECT_EQ(SquareRoot("1 1", branch), Undefined) << branch;
            EXPECT_EQ(CubeRoot("1 1", branch), Undefined) << branch;
        }
        EXPECT_EQ(SquareRoot("1 1", "2"), Undefined);
        EXPECT_EQ(CubeRoot("1 1", "3"), Undefined);
        EXPECT_EQ(SquareRoot("1 1", "1").code, CalcErrorNone);
        EXPECT_EQ(CubeRoot("1 1", "2").code, CalcErrorNone);
        EXPECT_EQ(Branch("5", "1 1", "4").code, CalcErrorNone);
        EXPECT_EQ(Branch("5", "1 1", "-0"), Branch("5", "1 1", "0"));
    }
    PrecisionScope scope(19);
    EXPECT_EQ(Branch("2305843009213693951", "1 1", "2305843009213693951"), Undefined);
    EXPECT_EQ(Branch("2305843009213693951", "1 1", "2305843009213693950").code, CalcErrorNone);
}

TEST(ComplexRootBranch, TurnsAlmostAllTheWayAtTheLargestDegree) {
    PrecisionScope scope(38);
    const char* degree = "2305843009213693951";
    // -1 = exp(i pi), so its branches have the angles (2 k + 1) pi / n.
    EXPECT_EQ(
        Branch(degree, "-1 0", "0").text,
        "9.9999999999999999999999999999999999907e-1 1.3624486320346218363249463850573661367e-18");
    const Outcome last = Branch(degree, "-1 0", "2305843009213693950");
    EXPECT_EQ(last.text.substr(0, 65),
              "9.9999999999999999999999999999999999907e-1 -1.3624486320346218363");
    const Outcome middle = Branch(degree, "-1 0", "1152921504606846975");
    EXPECT_EQ(middle, Silent("-1e0 0"));
}

TEST(ComplexRootBranch, GivesAZeroForZero) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (const char* degree : {"1", "2", "3", "7"}) {
            EXPECT_EQ(Branch(degree, "0 -0", "0"), Silent("0 0"));
            EXPECT_EQ(Branch(degree, "-0 0", "0"), Silent("-0 0"));
        }
        EXPECT_EQ(SquareRoot("-0 -0", "1"), Silent("-0 0"));
        EXPECT_EQ(CubeRoot("0 0", "2"), Silent("0 0"));
    }
}

TEST(ComplexRootBranch, PassesNaNOnAndFollowsTheRulesOfInfinity) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* degree : {"1", "2", "3", "7"}) {
            for (const char* z : {"nan 0", "nan -1", "1 nan", "-1 nan", "nan nan", "nan inf"}) {
                EXPECT_EQ(Branch(degree, z, "0"), Silent("nan nan")) << z;
            }
            // The angle is exactly 0, and 0 times infinity has no value.
            EXPECT_EQ(Branch(degree, "inf 1", "0"), (Outcome{"inf nan", CalcErrorUndefined}));
            EXPECT_EQ(Branch(degree, "inf inf", "0"), (Outcome{"nan nan", CalcErrorUndefined}));
        }
    }
}

TEST(ComplexRootBranch, TurnsTheInfinityOfTheModulusByTheAngleOfTheParts) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Branch("2", "1 inf", "0"), Silent("inf inf"));
        EXPECT_EQ(Branch("2", "1 -inf", "0"), Silent("inf -inf"));
        EXPECT_EQ(Branch("2", "1 -inf", "1"), Silent("-inf inf"));
        EXPECT_EQ(Branch("3", "-inf -0", "0"), Silent("inf inf"));
        EXPECT_EQ(Branch("3", "-inf -1", "0"), Silent("inf -inf"));
        EXPECT_EQ(Branch("4", "0 inf", "1"), Silent("-inf inf"));
        EXPECT_EQ(Branch("2", "-inf 1", "0"), (Outcome{"nan inf", CalcErrorUndefined}));
        EXPECT_EQ(Branch("2", "-inf -1", "0"), (Outcome{"nan -inf", CalcErrorUndefined}));
        EXPECT_EQ(Branch("1", "-inf 1", "0"), (Outcome{"-inf nan", CalcErrorUndefined}));
        EXPECT_EQ(Branch("1", "1 -inf", "0"), (Outcome{"nan -inf", CalcErrorUndefined}));
        EXPECT_EQ(Branch("3", "-inf inf", "0"), (Outcome{"nan nan", CalcErrorUndefined}));
    }
}

TEST(ComplexRootBranch, ReachesTheEndsOfTheExponentRange) {
    PrecisionScope scope(20);
    EXPECT_EQ(SquareRoot("0 2e4611686018427387902", "0"),
              Silent("1e2305843009213693951 1e2305843009213693951"));
    EXPECT_EQ(CubeRoot("-8e-4611686018427387903 0", "1"), Silent("-2e-1537228672809129301 0"));
    EXPECT_EQ(SquareRoot("1e-4611686018427387903 -0", "1"),
              Silent("-3.162277660168379332e-2305843009213693952 0"));
    EXPECT_EQ(Branch("3", "0 -1e-4611686018427387903", "1").code, CalcErrorNone);
}

// There the reciprocal of the larger part, by which the smaller is divided, is below the range, and
// a quotient by such a number is zero.
TEST(ComplexRootBranch, TakesTheSmallerPartForZeroAtTheTopOfTheExponentRange) {
    PrecisionScope scope(20);
    EXPECT_EQ(SquareRoot("4e4611686018427387903 3e4611686018427387903", "0"),
              Silent("7.071067811865475244e2305843009213693951 0"));
    EXPECT_EQ(SquareRoot("4e4611686018427387902 3e4611686018427387902", "0"),
              Silent("2.1213203435596425732e2305843009213693951 "
                     "7.071067811865475244e2305843009213693950"));
    EXPECT_EQ(SquareRoot("9e4611686018427387903 9e4611686018427387903", "0"),
              (Outcome{"inf nan", CalcErrorOverflow}));
    EXPECT_EQ(CubeRoot("9e4611686018427387903 9e4611686018427387903", "1"),
              (Outcome{"-inf inf", CalcErrorOverflow}));
}

// exp(ln r / n) is not as exact as a square or cube root: its tenth powers cost digits, and those
// of a large exponent of r are lost to its reduction.
TEST(ComplexRootBranch, OfOtherDegreesMayBeOffInTheLastDigits) {
    {
        PrecisionScope scope(57);
        // The exact digits go on as ...8221635 and ...7127097.
        EXPECT_EQ(Branch("4", "0 -1e-1", "0"),
                  Silent("5.19535640628637191305315110206842008821783794864558548221e-1 "
                         "-2.15198708484575905410808009312880642287844236692271274271e-1"));
    }
    PrecisionScope scope(16);
    EXPECT_EQ(Branch("1", "1e10 0", "0"), Silent("1e10 0"));
    EXPECT_EQ(Branch("1", "1e100000 0", "0"), Silent("9.999999999999954e99999 0"));
    EXPECT_EQ(Branch("4", "1e1000000000004 0", "0"), Silent("9.999999539482992e250000000000 0"));
    EXPECT_EQ(Branch("2", "1e1000000000004 0", "0"), Silent("1e500000000002 0"));
}

std::complex<double> ToDouble(const ComplexNumber* z) {
    return {std::strtod(PlainText(RealPart(z)).c_str(), nullptr),
            std::strtod(PlainText(ImaginaryPart(z)).c_str(), nullptr)};
}

// |a - b| / |b| as a decimal exponent.
int64_t ErrorExponent(const ComplexBuffer& a, const ComplexBuffer& b) {
    ComplexBuffer difference;
    ComplexSub(difference, a, b);
    RealBuffer size;
    RealHypotRounded(size, RealPart(difference.Get()), ImaginaryPart(difference.Get()));
    RealBuffer whole;
    RealHypotRounded(whole, RealPart(b.Get()), ImaginaryPart(b.Get()));
    return RealIsZero(size) ? INT64_MIN : RealExponent(size) - RealExponent(whole);
}

// i^turns times 10^exponent.
ComplexBuffer OnAnAxis(int64_t turns, int64_t exponent) {
    const char* units[] = {"1e# 0", "0 1e#", "-1e# 0", "0 -1e#"};
    std::string text = units[turns & 3];
    return ComplexBuffer(text.replace(text.find('#'), 1, std::to_string(exponent)));
}

// Square and cube roots come out exact; others, from logarithms, within `error`.
void ExpectRootsOnTheAxes(int64_t n, int64_t error) {
    // Below the real axis the principal angle is negative.
    for (int64_t quarter = -1; quarter < 3; quarter++) {
        for (int64_t k = 0; k < n; k++) {
            const int64_t turns = quarter + 4 * k;
            if (turns % n != 0) {
                continue;
            }
            ComplexBuffer root;
            ComplexRootBranch(root, RealBuffer(std::to_string(n)), OnAnAxis(quarter, 3 * n),
                              RealBuffer(std::to_string(k)));
            SCOPED_TRACE(PlainText(root.Get()).substr(0, 300));
            const ComplexBuffer expected = OnAnAxis(turns / n, 3);
            EXPECT_EQ(RealIsZero(RealPart(root.Get())), RealIsZero(RealPart(expected.Get())));
            EXPECT_EQ(ComplexIsReal(root), ComplexIsReal(expected));
            EXPECT_LE(ErrorExponent(root, expected), n == 2 || n == 3 ? INT64_MIN : error);
        }
    }
}

TEST(ComplexRootBranch, HasExactZerosInEveryRootOnAnAxis) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        ExpectRootsOnTheAxes(2, -p);
        ExpectRootsOnTheAxes(3, -p);
        if (p < 1000) {
            for (int64_t n : {1, 4, 5, 6, 7, 8, 9}) {
                ExpectRootsOnTheAxes(n, -p);
            }
        }
    }
    // The thousands of terms that so many digits take add up to more than the guard digits.
    PrecisionScope scope(10'000);
    ExpectRootsOnTheAxes(1, 2 - 10'000);
}

// Values in all directions: in every octant, next to the axes and the diagonals, and on them.
ComplexBuffer ValueInDirection(RandomSource& random, int64_t step) {
    const int64_t large = random.Between(1, 99);
    const int64_t small = step % 4 == 0 ? 0 : step % 4 == 3 ? large : random.Between(1, large);
    const bool steep = step & 4;
    const std::string x = std::to_string(steep ? small : large);
    const std::string y = std::to_string(steep ? large : small);
    return ComplexBuffer((step & 8 ? "-" : "") + x + (step & 16 ? " -" : " ") + y);
}

TEST(ComplexRootBranch, CountsCounterClockwiseFromThePrincipalRoot) {
    RandomSource random;
    for (int64_t p : {16, 18, 19, 20, 38, 57, 100}) {
        PrecisionScope scope(p);
        for (int64_t step = 0; step < 64; step++) {
            const ComplexBuffer z = ValueInDirection(random, step);
            const int64_t n = random.Between(1, 9);
            const std::complex<double> value = ToDouble(z);
            // An imaginary -0 does not count as below the axis.
            const double angle =
                value.imag() == 0 && value.real() < 0 ? std::numbers::pi : std::arg(value);
            for (int64_t k = 0; k < n; k++) {
                SCOPED_TRACE(PlainText(z.Get()) + " " + std::to_string(n) + " " +
                             std::to_string(k));
                ComplexBuffer root;
                ComplexRootBranch(root, RealBuffer(std::to_string(n)), z,
                                  RealBuffer(std::to_string(k)));
                const std::complex<double> expected =
                    std::polar(std::pow(std::abs(value), 1.0 / static_cast<double>(n)),
                               (angle + 2 * std::numbers::pi * static_cast<double>(k)) /
                                   static_cast<double>(n));
                ASSERT_LT(std::abs(ToDouble(root) - expected), 1e-12 * std::abs(expected));
                ComplexBuffer power;
                ComplexPowerInt(power, root, n);
                ASSERT_LE(ErrorExponent(power, z), 2 - p);
            }
        }
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(ComplexRootBranch, GivesTheNumberBackWhenRaisedAtEveryPrecision) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int round = TestRounds(p > 1'000 ? 1 : 100); round > 0 && !HasFailure(); round--) {
            ComplexBuffer z;
            FillReal(random, RealPart(z.Get()), 5);
            FillReal(random, ImaginaryPart(z.Get()), 5);
            const int64_t n = random.Between(2, p > 1'000 ? 3 : 9);
            ComplexBuffer root;
            ComplexRootBranch(root, RealBuffer(std::to_string(n)), z,
                              RealBuffer(std::to_string(random.Between(0, n - 1))));
            ComplexBuffer power;
            ComplexPowerInt(power, root, n);
            ASSERT_LE(ErrorExponent(power, z), 2 - p) << PlainText(z.Get()).substr(0, 300);
        }
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(ComplexRootBranch, OfDegreeTwoAndThreeIsTheSquareAndTheCubeRoot) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int round = TestRounds(p > 100 ? 1 : 100); round > 0 && !HasFailure(); round--) {
            const ComplexBuffer z = RandomComplex(random, 100);
            SCOPED_TRACE(PlainText(z.Get()).substr(0, 300));
            const int64_t n = random.Between(2, 3);
            const RealBuffer k(std::to_string(random.Between(0, n - 1)));
            ComplexBuffer expected;
            ComplexRootBranch(expected, RealBuffer(std::to_string(n)), z, k);
            const CalcError code = TakeCode();
            ComplexBuffer root;
            (n == 2 ? ComplexSqrtBranch : ComplexCbrtBranch)(root, z, k);
            EXPECT_EQ(TakeCode(), code);
            EXPECT_EQ(root, expected);
        }
    }
}

}  // namespace
}  // namespace tallymere
