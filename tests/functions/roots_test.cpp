#include "functions/roots.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "core/real_integer.h"
#include "functions/error_bounds.h"
#include "functions/function_testing.h"
#include "functions/guard_digits.h"
#include "functions/root_testing.h"
#include "support/decimal_text.h"

namespace tallymere {
namespace {

using namespace testing_support;

// What a rounded root may be off by, in hundredths of a unit in the last place.
constexpr uint64_t Hundredths(double units) {
    return static_cast<uint64_t>(100 * units + 0.5);
}
constexpr uint64_t SquareRootError = Hundredths(SqrtErrorBound.upTo100);
constexpr uint64_t CubeRootError = Hundredths(UsualErrorBound);
constexpr uint64_t RootError = Hundredths(RootErrorBound.upTo100);

Outcome SquareRoot(std::string_view x) {
    return ResultOf(RealSqrtRounded, x);
}
Outcome CubeRoot(std::string_view x) {
    return ResultOf(RealCbrtRounded, x);
}

// Checks the square root of |x| and the cube root of x by their powers.
void ExpectBothRoots(const RealBuffer& x) {
    RealBuffer magnitude = x;
    RealSetSign(magnitude, 0);
    RealBuffer root;
    RealSqrtRounded(root, magnitude);
    ExpectRootWithin(root, magnitude, 2, SquareRootError);
    RealCbrtRounded(root, x);
    EXPECT_EQ(RealSign(root), RealSign(x));
    RealSetSign(root, 0);
    ExpectRootWithin(root, magnitude, 3, CubeRootError);
}

TEST(RealSqrt, KnowsSpecialValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (const char* x : {"nan", "0", "-0", "inf"}) {
            EXPECT_EQ(SquareRoot(x), Silent(x));
        }
        EXPECT_EQ(SquareRoot("-inf"), Undefined);
        EXPECT_EQ(SquareRoot("-4"), Undefined);
        EXPECT_EQ(SquareRoot("-1e-900"), Undefined);
    }
}

TEST(RealCbrt, KnowsSpecialValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (const char* x : {"nan", "0", "-0", "inf", "-inf"}) {
            EXPECT_EQ(CubeRoot(x), Silent(x));
        }
    }
}

TEST(RealSqrt, KnowsRootsOfSmallSquaresAtEveryPrecision) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(SquareRoot("4"), Silent("2e0"));
        EXPECT_EQ(SquareRoot("1"), Silent("1e0"));
        EXPECT_EQ(SquareRoot("9e-2"), Silent("3e-1"));
        EXPECT_EQ(SquareRoot("4e-4"), Silent("2e-2"));
        EXPECT_EQ(SquareRoot("1e6"), Silent("1e3"));
        if (p > 1) {
            EXPECT_EQ(SquareRoot("0.25"), Silent("5e-1"));
            EXPECT_EQ(SquareRoot("49"), Silent("7e0"));
        }
    }
}

TEST(RealCbrt, KnowsRootsOfSmallCubesAtEveryPrecision) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(CubeRoot("8"), Silent("2e0"));
        EXPECT_EQ(CubeRoot("-8"), Silent("-2e0"));
        EXPECT_EQ(CubeRoot("1e-3"), Silent("1e-1"));
        EXPECT_EQ(CubeRoot("-1e12"), Silent("-1e4"));
        if (p > 1) {
            EXPECT_EQ(CubeRoot("-27"), Silent("-3e0"));
            EXPECT_EQ(CubeRoot("0.064"), Silent("4e-1"));
        }
    }
}

TEST(Roots, OfPerfectPowersAreExact) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        const auto root = [&](int64_t degree) {
            const int64_t digits = p / degree;
            const std::string mantissa =
                digits > 0 ? HostileDigits(random, digits, digits) : std::string("1");
            return RealBuffer((random.Below(2) != 0 ? "-" : "") + mantissa + "e" +
                              std::to_string(random.Between(-50, 50)));
        };
        for (int round = 0; round < TestRounds(p > 1000 ? 2 : 500); round++) {
            RealBuffer x;
            RealBuffer found;
            RealBuffer expected = root(2);
            RealSetSign(expected, 0);
            RaiseExactly(x, expected, 2);
            RealSqrtRounded(found, x);
            EXPECT_EQ(found, expected);
            expected = root(3);
            RaiseExactly(x, expected, 3);
            RealCbrtRounded(found, x);
            EXPECT_EQ(found, expected);
        }
    }
}

TEST(Roots, HaveTheKnownDigits) {
    PrecisionScope scope(100);
    EXPECT_EQ(
        SquareRoot("2"),
        Silent("1.4142135623730950488016887242096980785696718753769480731766797379907324784621"
               "07038850387534327641573e0"));
    EXPECT_EQ(
        CubeRoot("-2"),
        Silent("-1.259921049894873164767210607278228350570251464701507980081975112155299676513"
               "959483729396562436255094e0"));
}

// At all the digits by which the argument is scaled, and just below the next ones.
TEST(Roots, AreRightOnBothSidesOfEveryScaling) {
    for (int64_t p : {3, 9, 16, 19, 20, 38, 57, 100}) {
        PrecisionScope scope(p);
        for (int exponent = -4; exponent <= 4; exponent++) {
            for (int leading :
                 {100, 159, 160, 249, 250, 399, 400, 511, 512, 639, 640, 799, 800, 999}) {
                std::string digits = std::to_string(leading);
                for (char rest : {'0', '9'}) {
                    digits.resize(static_cast<size_t>(p), rest);
                    ExpectBothRoots(RealBuffer(digits + "e" + std::to_string(exponent - (p - 1))));
                    digits.resize(3);
                }
            }
        }
    }
}

TEST(Roots, AreRightForRandomNumbers) {
    RandomSource random;
    for (int64_t p = 1; p <= 150; p++) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(150); round++) {
            RealBuffer x;
            FillReal(random, x, 60);
            ExpectBothRoots(x);
        }
    }
    for (int64_t p : {253, 254, 510, 1000, 1022, 2045, 8189, 8190, 10000, 10005}) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(p > 2000 ? 2 : 20); round++) {
            RealBuffer x;
            FillReal(random, x, 60);
            ExpectBothRoots(x);
        }
    }
}

// Where the seed is worst, and the passes just suffice or just do not.
TEST(Roots, AreRightWhereTheSeedIsWorst) {
    for (int64_t p : {19,  28,  29,   51,   60,   61,   124,  125,  250,  253,  508,
                      510, 999, 1000, 1003, 1021, 2007, 4017, 8036, 8037, 8189, 8190}) {
        PrecisionScope scope(p);
        for (const char* x : {"1.040264379816255169", "1.06", "1.04", "2"}) {
            ExpectBothRoots(RealBuffer(x));
        }
    }
}

TEST(Roots, ReachTheEndsOfTheExponentRange) {
    PrecisionScope scope(9);
    EXPECT_EQ(SquareRoot("1e4611686018427387903"), Silent("3.16227766e2305843009213693951"));
    EXPECT_EQ(SquareRoot("1e-4611686018427387903"), Silent("3.16227766e-2305843009213693952"));
    EXPECT_EQ(SquareRoot("9e4611686018427387903"), Silent("9.48683298e2305843009213693951"));
    EXPECT_EQ(CubeRoot("1e4611686018427387903"), Silent("1e1537228672809129301"));
    EXPECT_EQ(CubeRoot("-1e-4611686018427387903"), Silent("-1e-1537228672809129301"));
    EXPECT_EQ(CubeRoot("8e-4611686018427387902"), Silent("4.30886938e-1537228672809129301"));
}

// The inner forms work at the layout in force; the last factor multiplies their error.
TEST(Roots, StayWithinTheirBoundInTheirInnerForm) {
    constexpr uint64_t bound = 100 * RawRootErrorBound;
    RandomSource random;
    for (int64_t p : {9, 16, 18, 19, 20, 37, 38, 39, 57, 100}) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(200); round++) {
            RealBuffer x;
            FillReal(random, x, 30);
            RealSetSign(x, 0);
            RealBuffer root;
            RealSqrt(root, x);
            ExpectRootWithin(root, x, 2, bound);
            RealCbrt(root, x);
            ExpectRootWithin(root, x, 3, bound);
        }
    }
}

// Roots of any degree.

Outcome Root(std::string_view n, std::string_view x) {
    return ResultOf(RealRootRounded, n, x);
}

void RootIntRounded(RealNumber* dest, int64_t n, const RealNumber* x) {
    const int64_t limbs = numberContext.realLimbs;
    RoundedResult(dest, 5, [&](RealNumber* wide) {
        RealWiden(wide, x, 5, limbs, numberContext.realLimbs - limbs);
        RealRootInt(wide, n, wide);
    });
}

Outcome RootInt(int64_t n, std::string_view x) {
    return ResultOf([n](RealNumber* dest, const RealNumber* a) { RootIntRounded(dest, n, a); }, x);
}

TEST(RealRoot, WantsADegreeThatIsAPositiveInteger) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* x : {"nan", "0", "-0", "inf", "-inf", "2", "-2"}) {
            EXPECT_EQ(Root("nan", x), Silent("nan")) << x;
            for (const char* n : {"0", "-0", "inf", "-inf", "-1", "-3", "0.5", "-0.2"}) {
                EXPECT_EQ(Root(n, x), Undefined) << n << " " << x;
            }
            if (p > 1) {
                EXPECT_EQ(Root("2.5", x), Undefined) << x;
            }
            for (int64_t n :
                 {int64_t{0}, int64_t{-1}, int64_t{-2}, std::numeric_limits<int64_t>::min()}) {
                EXPECT_EQ(RootInt(n, x), Undefined) << n << " " << x;
            }
        }
    }
}

TEST(RealRoot, KnowsSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (int n : {1, 2, 3, 4, 7}) {
            const std::string degree = std::to_string(n);
            const bool odd = n % 2 != 0;
            for (const char* x : {"nan", "0", "-0", "inf"}) {
                EXPECT_EQ(Root(degree, x), Silent(x)) << n;
                EXPECT_EQ(RootInt(n, x), Silent(x)) << n;
            }
            EXPECT_EQ(Root(degree, "-inf"), odd ? Silent("-inf") : Undefined) << n;
            EXPECT_EQ(RootInt(n, "-inf"), odd ? Silent("-inf") : Undefined) << n;
            if (!odd) {
                EXPECT_EQ(Root(degree, "-8"), Undefined) << n;
                EXPECT_EQ(RootInt(n, "-8"), Undefined) << n;
            }
        }
    }
}

TEST(RealRoot, KeepsExactRootsExact) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const auto expect = [](int64_t n, const char* x, const char* root) {
            EXPECT_EQ(Root(std::to_string(n), x), Silent(root));
            EXPECT_EQ(RootInt(n, x), Silent(root));
        };
        expect(3, "8", "2e0");
        expect(3, "-8", "-2e0");
        expect(1, "-7", "-7e0");
        expect(2, "9", "3e0");
        expect(5, "1e50", "1e10");
        expect(7, "-1e-700", "-1e-100");
        if (p > 1) {
            expect(4, "81", "3e0");
            expect(6, "64", "2e0");
        }
    }
}

TEST(Roots, WorkWithGuardDigits) {
    ExpectGuardDigits(
        RealSqrtRounded, RealSqrt, [](const RealNumber*) { return int64_t{2}; }, -3, 3, true);
    ExpectGuardDigits(
        RealCbrtRounded, RealCbrt, [](const RealNumber*) { return int64_t{3}; }, -3, 3);
    ExpectBinaryGuardDigits(
        RealRootRounded, RealRoot, [](const RealNumber*, const RealNumber*) { return int64_t{5}; },
        [](RandomSource& random, RealNumber* n, RealNumber* x) {
            RealFromUint(n, 1 + random.Below(9));
            FillPositive(random, x, -3, 3);
        });
}

TEST(RealRoot, TakesHugeDegrees) {
    PrecisionScope scope(20);
    const int64_t largest = std::numeric_limits<int64_t>::max();
    EXPECT_EQ(RootInt(largest, "1e40"), Silent("1.00000000000000001e0"));
    EXPECT_EQ(Root("1e30", "7"), Silent("1e0"));
    EXPECT_EQ(Root("1e30", "-7"), Undefined);
    EXPECT_EQ(Root("99999999999999999999", "-7"), Silent("-1e0"));
}

TEST(RealRoot, HasTheKnownDigits) {
    PrecisionScope scope(57);
    const Outcome root = Silent("1.25849895064182673499278717117771389481868048150671819671e0");
    EXPECT_EQ(Root("7", "5"), root);
    EXPECT_EQ(RootInt(7, "5"), root);
}

TEST(RealRoot, IsRightForRandomNumbers) {
    RandomSource random;
    for (int round = 0; round < TestRounds(1000); round++) {
        PrecisionScope scope(random.Between(1, 80));
        const int64_t n = random.Between(1, 9);
        RealBuffer x;
        FillReal(random, x, 40);
        RealSetSign(x, 0);
        RealBuffer root;
        RootIntRounded(root, n, x);
        ExpectRootWithin(root, x, n, RootError);
        RealBuffer degree(std::to_string(n));
        RealRootRounded(root, degree, x);
        ExpectRootWithin(root, x, n, RootError);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

}  // namespace
}  // namespace tallymere
