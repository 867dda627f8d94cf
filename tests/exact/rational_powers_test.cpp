#include "exact/rational_powers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>

#include "support/rational_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// A power with a fraction as exponent is not reduced.
Outcome Power(const char* base, const char* e) {
    const bool isWhole = std::string_view(e).find('/') == std::string_view::npos;
    return Apply(RationalPower, base, e, isWhole ? Terms::Lowest : Terms::AsTheOperand);
}

Outcome PowerSmall(const char* base, int64_t e) {
    RationalBuffer dest;
    RationalPowerSmall(dest, RationalBuffer(base), e);
    return TakeOutcome(dest);
}

Outcome Root(const char* n, const char* x) {
    return Apply(RationalRoot, n, x);
}

Outcome Log(const char* base, const char* x) {
    return Apply(RationalLog, base, x);
}

const Outcome Undefined = Refused(CalcErrorUndefined);
const Outcome DividedByZero = Refused(CalcErrorExactDivisionByZero);
const Outcome Overflow = Refused(CalcErrorOverflow);

TEST(RationalPowerSmall, RaisesBothParts) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(PowerSmall("2/3", 2), Silent("4/9"));
        EXPECT_EQ(PowerSmall("2/3", 1), Silent("2/3"));
        EXPECT_EQ(PowerSmall("2/3", 0), Silent("1"));
        EXPECT_EQ(PowerSmall("2", -2), Silent("1/4"));
        EXPECT_EQ(PowerSmall("2/3", -3), Silent("27/8"));
        EXPECT_EQ(PowerSmall("-2", 3), Silent("-8"));
        EXPECT_EQ(PowerSmall("-2", 2), Silent("4"));
        EXPECT_EQ(PowerSmall("-2/3", -3), Silent("-27/8"));
        EXPECT_EQ(PowerSmall("-2/3", -2), Silent("9/4"));
        EXPECT_EQ(PowerSmall("-1", -1), Silent("-1"));
    }
}

TEST(RationalPowerSmall, TakesZeros) {
    WidthScope scope(2);
    EXPECT_EQ(PowerSmall("0", 0), Silent("1"));
    EXPECT_EQ(PowerSmall("-0", 0), Silent("1"));
    EXPECT_EQ(PowerSmall("0", 3), Silent("0"));
    EXPECT_EQ(PowerSmall("-0", 2), Silent("0"));
    EXPECT_EQ(PowerSmall("-0", 3), Silent("-0"));
    EXPECT_EQ(PowerSmall("0", -1), DividedByZero);
    EXPECT_EQ(PowerSmall("-0", -2), DividedByZero);
}

TEST(RationalPowerSmall, OverflowsInEitherPart) {
    WidthScope scope(1);
    EXPECT_EQ(PowerSmall("2", 63), Silent("9223372036854775808"));
    EXPECT_EQ(PowerSmall("2", 64), Overflow);
    EXPECT_EQ(PowerSmall("1/2", 64), Overflow);
    EXPECT_EQ(PowerSmall("-2", -64), Overflow);
}

TEST(RationalPowerSmall, TakesTheLargestExponents) {
    WidthScope scope(1);
    for (const int64_t e : {INT64_MIN, INT64_MIN + 1, INT64_MAX}) {
        EXPECT_EQ(PowerSmall("2", e), Overflow);
        EXPECT_EQ(PowerSmall("1", e), Silent("1"));
        EXPECT_EQ(PowerSmall("-1", e), Silent(e == INT64_MIN ? "1" : "-1"));
        EXPECT_EQ(PowerSmall("0", e), e < 0 ? DividedByZero : Silent("0"));
    }
}

TEST(RationalPowerOfTwo, TakesIntegersOnly) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Apply(RationalPowerOfTwo, "10"), Silent("1024"));
        EXPECT_EQ(Apply(RationalPowerOfTwo, "0"), Silent("1"));
        EXPECT_EQ(Apply(RationalPowerOfTwo, "-0"), Silent("1"));
        EXPECT_EQ(Apply(RationalPowerOfTwo, "-10"), Silent("1/1024"));
        EXPECT_EQ(Apply(RationalPowerOfTwo, "1/2"), Undefined);
        EXPECT_EQ(Apply(RationalPowerOfTwo, "-1/2"), Undefined);
        EXPECT_EQ(Apply(RationalPowerOfTen, "3"), Silent("1000"));
        EXPECT_EQ(Apply(RationalPowerOfTen, "0"), Silent("1"));
        EXPECT_EQ(Apply(RationalPowerOfTen, "-3"), Silent("1/1000"));
        EXPECT_EQ(Apply(RationalPowerOfTen, "1/3"), Undefined);
    }
}

TEST(RationalPowerOfTwo, Overflows) {
    WidthScope scope(2);
    EXPECT_EQ(Apply(RationalPowerOfTwo, "127"), Silent("170141183460469231731687303715884105728"));
    EXPECT_EQ(Apply(RationalPowerOfTwo, "128"), Overflow);
    EXPECT_EQ(Apply(RationalPowerOfTwo, "-128"), Overflow);
    EXPECT_EQ(Apply(RationalPowerOfTwo, "2^64"), Overflow);
    EXPECT_EQ(Apply(RationalPowerOfTen, "-38"),
              Silent("1/100000000000000000000000000000000000000"));
    EXPECT_EQ(Apply(RationalPowerOfTen, "39"), Overflow);
    EXPECT_EQ(Apply(RationalPowerOfTen, "-2^64"), Overflow);
}

TEST(RationalPower, RaisesToIntegers) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Power("2/3", "2"), Silent("4/9"));
        EXPECT_EQ(Power("-2/3", "3"), Silent("-8/27"));
        EXPECT_EQ(Power("-2/3", "2"), Silent("4/9"));
        EXPECT_EQ(Power("-2/3", "-3"), Silent("-27/8"));
        EXPECT_EQ(Power("2/3", "0"), Silent("1"));
        EXPECT_EQ(Power("0", "0"), Silent("1"));
        EXPECT_EQ(Power("-0", "3"), Silent("-0"));
        EXPECT_EQ(Power("0", "-1"), DividedByZero);
    }
}

TEST(RationalPower, RaisesToIntegersOfManyLimbs) {
    WidthScope scope(2);
    EXPECT_EQ(Power("1", "2^70"), Silent("1"));
    EXPECT_EQ(Power("-1", "2^70"), Silent("1"));
    EXPECT_EQ(Power("-1", "2^70+1"), Silent("-1"));
    EXPECT_EQ(Power("-1", "-2^70+1"), Silent("-1"));
    EXPECT_EQ(Power("0", "2^70"), Silent("0"));
    EXPECT_EQ(Power("2/3", "2^70"), Overflow);
    EXPECT_EQ(Power("1/3", "2^70"), Overflow);
    EXPECT_EQ(Power("3", "-2^70"), Overflow);
}

// The degree of the root is the base, and its radicand the denominator of the exponent.
TEST(RationalPower, TakesRootsOfTheDenominatorOfTheExponent) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Power("1", "1/2"), Silent("2/2"));
        EXPECT_EQ(Power("1", "3/2"), Silent("8/8"));
        EXPECT_EQ(Power("1", "2/3"), Silent("9/9"));
        EXPECT_EQ(Power("1", "-1/2"), Silent("2/2"));
        EXPECT_EQ(Power("4", "1/2"), Undefined);
        EXPECT_EQ(Power("4", "-1/2"), Undefined);
        EXPECT_EQ(Power("1/4", "1/2"), Undefined);
        EXPECT_EQ(Power("4", "1/16"), Silent("2/16"));
        EXPECT_EQ(Power("4", "-1/16"), Silent("16/2"));
        EXPECT_EQ(Power("2/3", "1/64"), Silent("8/4"));
        EXPECT_EQ(Power("2/3", "5/64"), Silent("32768/1024"));
    }
}

TEST(RationalPower, RefusesOtherRoots) {
    WidthScope scope(2);
    EXPECT_EQ(Power("-4", "1/16"), Undefined);
    EXPECT_EQ(Power("-1", "1/2"), Undefined);
    EXPECT_EQ(Power("-1", "1/3"), Undefined);
    // A zero asks for a root of degree 0, with either sign.
    EXPECT_EQ(Power("0", "1/2"), Undefined);
    EXPECT_EQ(Power("-0", "1/2"), Undefined);
    EXPECT_EQ(Power("2^70", "1/2"), Undefined);
    EXPECT_EQ(Power("1", "2^70/3"), Overflow);
}

TEST(RationalSquareRoot, WantsSquares) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Apply(RationalSquareRoot, "9/16"), Silent("3/4"));
        EXPECT_EQ(Apply(RationalSquareRoot, "4"), Silent("2"));
        EXPECT_EQ(Apply(RationalSquareRoot, "1/4"), Silent("1/2"));
        EXPECT_EQ(Apply(RationalSquareRoot, "0"), Silent("0"));
        EXPECT_EQ(Apply(RationalSquareRoot, "-0"), Silent("-0"));
        EXPECT_EQ(Apply(RationalSquareRoot, "2"), Undefined);
        EXPECT_EQ(Apply(RationalSquareRoot, "4/3"), Undefined);
        EXPECT_EQ(Apply(RationalSquareRoot, "3/4"), Undefined);
        EXPECT_EQ(Apply(RationalSquareRoot, "-4"), Undefined);
    }
}

TEST(RationalCubeRoot, WantsCubesAndKeepsTheSign) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Apply(RationalCubeRoot, "27/64"), Silent("3/4"));
        EXPECT_EQ(Apply(RationalCubeRoot, "-27/64"), Silent("-3/4"));
        EXPECT_EQ(Apply(RationalCubeRoot, "-8"), Silent("-2"));
        EXPECT_EQ(Apply(RationalCubeRoot, "-0"), Silent("-0"));
        EXPECT_EQ(Apply(RationalCubeRoot, "9"), Undefined);
        EXPECT_EQ(Apply(RationalCubeRoot, "8/9"), Undefined);
        EXPECT_EQ(Apply(RationalCubeRoot, "9/8"), Undefined);
    }
}

TEST(RationalRoot, TakesRootsOfIntegerDegree) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Root("2", "9/16"), Silent("3/4"));
        EXPECT_EQ(Root("3", "27/64"), Silent("3/4"));
        EXPECT_EQ(Root("3", "-27/64"), Silent("-3/4"));
        EXPECT_EQ(Root("1", "-5/7"), Silent("-5/7"));
        EXPECT_EQ(Root("-1", "-5/7"), Silent("-7/5"));
        EXPECT_EQ(Root("-2", "9/16"), Silent("4/3"));
        EXPECT_EQ(Root("-3", "-27/64"), Silent("-4/3"));
        EXPECT_EQ(Root("2", "0"), Silent("0"));
        EXPECT_EQ(Root("2", "-0"), Silent("-0"));
        EXPECT_EQ(Root("-2", "0"), DividedByZero);
        EXPECT_EQ(Root("2", "-9/16"), Undefined);
        EXPECT_EQ(Root("-2", "-9/16"), Undefined);
        EXPECT_EQ(Root("2", "8"), Undefined);
        EXPECT_EQ(Root("2", "4/3"), Undefined);
        EXPECT_EQ(Root("0", "4"), Undefined);
        EXPECT_EQ(Root("-0", "4"), Undefined);
    }
}

TEST(RationalRoot, TakesRootsOfDegreesOfManyLimbs) {
    WidthScope scope(2);
    EXPECT_EQ(Root("2^70", "1"), Silent("1"));
    EXPECT_EQ(Root("2^70+1", "-1"), Silent("-1"));
    EXPECT_EQ(Root("2^70", "-1"), Undefined);
    EXPECT_EQ(Root("2^70", "2"), Undefined);
    EXPECT_EQ(Root("2^70", "0"), Silent("0"));
}

TEST(RationalRoot, TakesRootsOfFractionDegree) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Root("1/2", "2/3"), Silent("4/9"));
        EXPECT_EQ(Root("2/3", "4/9"), Silent("8/27"));
        EXPECT_EQ(Root("-2/3", "4/9"), Silent("27/8"));
        EXPECT_EQ(Root("3/2", "8"), Silent("4"));
        EXPECT_EQ(Root("2/3", "2"), Undefined);
        EXPECT_EQ(Root("2/3", "-4"), Undefined);
        EXPECT_EQ(Root("3/2", "-8"), Undefined);
        EXPECT_EQ(Root("3/2", "0"), Silent("0"));
        EXPECT_EQ(Root("-3/2", "0"), DividedByZero);
    }
}

TEST(RationalRoot, OverflowsInThePower) {
    WidthScope scope(1);
    EXPECT_EQ(Root("1/64", "2"), Overflow);
    EXPECT_EQ(Root("1/63", "1/2"), Silent("1/9223372036854775808"));
    EXPECT_EQ(Root("-1/64", "1/2"), Overflow);
}

TEST(RationalLog, FindsExactPowers) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Log("2", "8"), Silent("3"));
        EXPECT_EQ(Log("2", "1/8"), Silent("-3"));
        EXPECT_EQ(Log("10", "1000"), Silent("3"));
        EXPECT_EQ(Log("10", "1/1000"), Silent("-3"));
        EXPECT_EQ(Log("7", "7"), Silent("1"));
        EXPECT_EQ(Log("7", "1/7"), Silent("-1"));
        EXPECT_EQ(Log("7", "1"), Silent("0"));
        EXPECT_EQ(Log("9", "1/81"), Silent("-2"));
    }
}

TEST(RationalLog, RefusesWhatIsNoExactPower) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Log("2", "3"), Undefined);
        EXPECT_EQ(Log("2", "1/3"), Undefined);
        EXPECT_EQ(Log("4", "8"), Undefined);
        EXPECT_EQ(Log("9", "3"), Undefined);
        EXPECT_EQ(Log("2", "4/8"), Undefined);
        EXPECT_EQ(Log("2", "8/9"), Undefined);
        EXPECT_EQ(Log("2", "9/8"), Undefined);
        EXPECT_EQ(Log("2", "0"), Undefined);
        EXPECT_EQ(Log("2", "-0"), Undefined);
        EXPECT_EQ(Log("2", "-8"), Undefined);
        EXPECT_EQ(Log("2", "-1/8"), Undefined);
    }
}

TEST(RationalLog, WantsAnIntegerBaseOfAtLeastTwo) {
    WidthScope scope(2);
    for (const char* base : {"0", "-0", "1", "-1", "-2", "1/2", "5/2"}) {
        EXPECT_EQ(Log(base, "8"), Undefined) << base;
        EXPECT_EQ(Log(base, "1"), Undefined) << base;
    }
}

TEST(RationalPowers, GoToFullWidth) {
    WidthScope scope(520);
    EXPECT_EQ(Apply(RationalSquareRoot, "2^33278/1"),
              Outcome(Silent(UintBuffer("2^16639").Text())));
    RationalBuffer power;
    RationalPowerSmall(power, RationalBuffer("-1/2"), 33279);
    EXPECT_EQ(power, RationalBuffer("-1/2^33279"));
    RationalBuffer log;
    RationalNegate(power);
    RationalLog(log, RationalBuffer("2"), power);
    EXPECT_EQ(TakeOutcome(log), Silent("-33279"));
    RationalRoot(power, RationalBuffer("33279"), power);
    EXPECT_EQ(TakeOutcome(power), Silent("1/2"));
}

}  // namespace
}  // namespace tallymere
