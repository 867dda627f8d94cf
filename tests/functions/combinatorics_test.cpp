#include "functions/combinatorics.h"

#include <gtest/gtest.h>

#include <string>

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/function_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

void Gcd(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    EXPECT_EQ(RealGcd(dest, a, b), 0u);
}

void Lcm(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RealLcm(dest, a, b);
}

Outcome C(std::string_view n, std::string_view k) {
    return ResultOf(RealCombinations, n, k);
}
Outcome P(std::string_view n, std::string_view k) {
    return ResultOf(RealPermutations, n, k);
}

TEST(Combinations, CountsSubsets) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(C("5", "2"), Silent("1e1"));
        EXPECT_EQ(C("5", "3"), Silent("1e1"));
        EXPECT_EQ(C("5", "1"), Silent("5e0"));
        EXPECT_EQ(C("5", "5"), Silent("1e0"));
        EXPECT_EQ(C("2", "1"), Silent("2e0"));
        EXPECT_EQ(C("1", "1"), Silent("1e0"));
        EXPECT_EQ(C("6", "3"), Silent("2e1"));
    }
    PrecisionScope scope(20);
    EXPECT_EQ(C("49", "6"), Silent("1.3983816e7"));
    EXPECT_EQ(C("52", "5"), Silent("2.59896e6"));
    EXPECT_EQ(C("60", "30"), Silent("1.18264581564861424e17"));
}

TEST(Permutations, CountsSelections) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(P("5", "2"), Silent("2e1"));
        EXPECT_EQ(P("5", "1"), Silent("5e0"));
        EXPECT_EQ(P("2", "2"), Silent("2e0"));
        EXPECT_EQ(P("1", "1"), Silent("1e0"));
    }
    PrecisionScope scope(20);
    EXPECT_EQ(P("5", "3"), Silent("6e1"));
    EXPECT_EQ(P("5", "5"), Silent("1.2e2"));
    EXPECT_EQ(P("49", "6"), Silent("1.006834752e10"));
}

TEST(Combinatorics, RoundsHalfUpOnce) {
    PrecisionScope scope(2);
    EXPECT_EQ(C("10", "4"), Silent("2.1e2"));  // 210
    EXPECT_EQ(C("10", "5"), Silent("2.5e2"));  // 252
    EXPECT_EQ(C("11", "4"), Silent("3.3e2"));  // 330
    EXPECT_EQ(C("13", "5"), Silent("1.3e3"));  // 1287
    EXPECT_EQ(C("14", "4"), Silent("1e3"));    // 1001
    EXPECT_EQ(C("15", "2"), Silent("1.1e2"));  // 105
    EXPECT_EQ(P("15", "2"), Silent("2.1e2"));  // 210
    EXPECT_EQ(P("6", "4"), Silent("3.6e2"));   // 360
    EXPECT_EQ(P("25", "2"), Silent("6e2"));    // 600
    EXPECT_EQ(P("11", "3"), Silent("9.9e2"));  // 990
    EXPECT_EQ(P("15", "3"), Silent("2.7e3"));  // 2730
    EXPECT_EQ(P("17", "3"), Silent("4.1e3"));  // 4080
}

TEST(Combinatorics, CountsNothingAboveN) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(C("5", "7"), Silent("0"));
        EXPECT_EQ(P("5", "7"), Silent("0"));
        EXPECT_EQ(C("5", "6"), Silent("0"));
        EXPECT_EQ(P("1", "2"), Silent("0"));
        // A k that no machine integer holds is fine here.
        EXPECT_EQ(C("5", "1e30"), Silent("0"));
        EXPECT_EQ(P("5", "1e30"), Silent("0"));
    }
    PrecisionScope scope(3);
    EXPECT_EQ(C("5", "5.5"), Undefined);
    EXPECT_EQ(P("5", "7.5"), Undefined);
}

TEST(Combinatorics, TakesRealN) {
    for (int64_t p : {3, 9, 16, 19, 20, 38, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(C("0.5", "2"), Silent("-1.25e-1"));
        EXPECT_EQ(P("0.5", "2"), Silent("-2.5e-1"));
        EXPECT_EQ(C("-1", "3"), Silent("-1e0"));
        EXPECT_EQ(C("-2", "4"), Silent("5e0"));
        EXPECT_EQ(P("-1", "3"), Silent("-6e0"));
        EXPECT_EQ(P("-1", "4"), Silent("2.4e1"));
        // C(-n, k) is not turned round: the larger count is worked out.
        EXPECT_EQ(C("-1", "100"), Silent("1e0"));
        EXPECT_EQ(C("2.5", "1"), Silent("2.5e0"));
        EXPECT_EQ(C("2.5", "4"), Silent(p == 3 ? "-3.91e-2" : "-3.90625e-2"));
    }
}

TEST(Combinatorics, RefusesKThatIsNoCount) {
    for (int64_t p : {2, 16, 19, 20, 39}) {
        PrecisionScope scope(p);
        for (const char* n : {"5", "-5", "0.5", "-0.5", "0", "-0"}) {
            for (const char* k : {"-1", "-3", "0.5", "-0.5", "1.5", "2.5"}) {
                EXPECT_EQ(C(n, k), Undefined) << n << " " << k;
                EXPECT_EQ(P(n, k), Undefined) << n << " " << k;
            }
        }
        // Without a smaller count k has to fit 64 bits.
        for (const char* n : {"0.5", "-5"}) {
            EXPECT_EQ(C(n, "1e20"), Undefined);
            EXPECT_EQ(P(n, "1e20"), Undefined);
        }
        EXPECT_EQ(P("1e20", "1e20"), Undefined);
        EXPECT_EQ(C("4e20", "2e20"), Undefined);
        EXPECT_EQ(C("5e20", "2e20"), Undefined);
    }
}

TEST(Combinatorics, TakesTheShorterWay) {
    // The same two steps from either side; more than 10^20 of them from the other one.
    PrecisionScope scope(40);
    EXPECT_EQ(C("100000000000000000002", "2"), C("100000000000000000002", "100000000000000000000"));
    EXPECT_EQ(C("100000000000000000002", "100000000000000000000"),
              Silent("5.000000000000000000150000000000000000001e39"));
    EXPECT_EQ(C("1e30", "1e30"), Silent("1e0"));
}

TEST(Combinatorics, FollowsTheRulesOfZeros) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (RealRoundedBinary operation : {RealCombinations, RealPermutations}) {
            for (const char* n : {"0", "-0", "1", "-1", "5", "2e-3", "-2e-3", "3e40"}) {
                EXPECT_EQ(ResultOf(operation, n, "0"), Silent("1e0"));
                EXPECT_EQ(ResultOf(operation, n, "-0"), Silent("1e0"));
            }
            EXPECT_EQ(ResultOf(operation, "0", "3"), Silent("0"));
            EXPECT_EQ(ResultOf(operation, "0", "4"), Silent("0"));
            EXPECT_EQ(ResultOf(operation, "-0", "3"), Silent("-0"));
            EXPECT_EQ(ResultOf(operation, "-0", "4"), Silent("0"));
            EXPECT_EQ(ResultOf(operation, "-0", "1e30"), Silent("0"));
        }
    }
}

TEST(Combinatorics, FollowsTheRulesOfInfinitiesAndNaN) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (RealRoundedBinary operation : {RealCombinations, RealPermutations}) {
            for (const char* other : {"nan", "0", "-0", "3", "-3", "inf", "-inf"}) {
                EXPECT_EQ(ResultOf(operation, "nan", other), Silent("nan"));
                EXPECT_EQ(ResultOf(operation, other, "nan"), Silent("nan"));
            }
            for (const char* infinity : {"inf", "-inf"}) {
                for (const char* other : {"0", "-0", "3", "-3", "2e-1", "inf", "-inf"}) {
                    EXPECT_EQ(ResultOf(operation, infinity, other), Undefined) << other;
                    EXPECT_EQ(ResultOf(operation, other, infinity), Undefined) << other;
                }
            }
        }
    }
}

// The steps from n - k up, each factor a number like any other.
template <bool Divides>
Limb PlainSteps(RealNumber* dest, const RealNumber* n, const RealNumber* k) {
    uint64_t count = 0;
    RealToUint(&count, k, IntegerExact);
    const RealBuffer one("1");
    RealBuffer factor;
    RealAddRaw(factor, n, k, true);
    RealSetOne(dest);
    for (uint64_t i = 1; i <= count; i++) {
        RealAddRaw(factor, factor, one, false);
        RealMulRaw(dest, dest, factor);
        if (Divides) {
            RealDivUint(dest, dest, i);
        }
    }
    return 0;
}

TEST(Combinatorics, AreWordForWordTheStepsOfNumbers) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int round = TestRounds(p <= 100 ? 300 : p <= 1000 ? 50 : 3); round > 0; round--) {
            RealBuffer n;
            RealBuffer k;
            RealFromUint(n, random.Word() >> random.Below(56));
            RealFromUint(k, 1 + random.Below(100));
            if (RealCompareUint(n, 200) < 0) {
                continue;
            }
            RealBuffer expected;
            RealBuffer result;
            RealRound(expected, WithGuardDigitsBinary(expected, n, k, 19, PlainSteps<false>));
            RealPermutations(result, n, k);
            ASSERT_EQ(result, expected);
            RealRound(expected, WithGuardDigitsBinary(expected, n, k, 19, PlainSteps<true>));
            RealCombinations(result, n, k);
            ASSERT_EQ(result, expected);
        }
    }
}

// Somewhere among the factors a 65th bit is needed.
TEST(Combinatorics, CountBeyondMachineIntegers) {
    for (int64_t p : {20, 38, 39, 57}) {
        PrecisionScope scope(p);
        for (const char* text : {"18446744073709551614", "18446744073709551615",
                                 "18446744073709551616", "18446744073709551620"}) {
            const RealBuffer n(text);
            const RealBuffer k("7");
            RealBuffer expected;
            RealBuffer result;
            RealRound(expected, WithGuardDigitsBinary(expected, n, k, 19, PlainSteps<false>));
            RealPermutations(result, n, k);
            EXPECT_EQ(result, expected) << text;
            RealRound(expected, WithGuardDigitsBinary(expected, n, k, 19, PlainSteps<true>));
            RealCombinations(result, n, k);
            EXPECT_EQ(result, expected) << text;
        }
    }
}

TEST(Combinatorics, LosesWhatNMinusKLoses) {
    PrecisionScope scope(16);
    // 1e-35 - 1 has 35 digits and fits; of 1e-36 - 1 the last digit is cut, of 1e-60 - 1 nothing is
    // left but -1, and the zero factor ends the product.
    EXPECT_EQ(P("1e-35", "1"), Silent("1e-35"));
    EXPECT_EQ(P("1e-36", "1"), Silent("1e-35"));
    EXPECT_EQ(P("1e-60", "1"), Silent("-0"));
    EXPECT_EQ(C("1e-60", "5"), Silent("-0"));
}

TEST(Combinatorics, EndsAtTheEdgesOfTheRange) {
    PrecisionScope scope(20);
    const Outcome overflow = {"inf", CalcErrorOverflow};
    // Of 10^18 factors only the first few are worked out.
    EXPECT_EQ(P("1e4611686018427387902", "1e18"), overflow);
    EXPECT_EQ(C("1e4611686018427387902", "1e18"), overflow);
    EXPECT_EQ(P("-1e4611686018427387902", "3").code, CalcErrorOverflow);
    FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
    EXPECT_EQ(P("1e4611686018427387902", "1e18"), Silent("inf"));
}

TEST(Combinatorics, StopsAtTheByteThatAsksForIt) {
    PrecisionScope scope(20);
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(C("5", "2"), Cancelled);
    EXPECT_EQ(P("5", "2"), Cancelled);
    EXPECT_EQ(P("0.5", "1"), Cancelled);
    // Where there is no step the byte is not looked at.
    EXPECT_EQ(C("5", "5"), Silent("1e0"));
    EXPECT_EQ(C("5", "0"), Silent("1e0"));
    EXPECT_EQ(P("5", "7"), Silent("0"));
    EXPECT_EQ(P("5", "1.5"), Undefined);

    SetCalcError(CalcErrorOverflow);
    RealBuffer x("7");
    RealPermutations(x, x, RealBuffer("2"));
    EXPECT_EQ(PlainText(x), "nan");
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

TEST(Combinatorics, LooksAtTheByteBeforeEveryStep) {
    PrecisionScope scope(20);
    // The byte lies in the first block that the operation takes, its result at work: it is the low
    // end of its header and no longer 0 when the product reaches 10.
    FieldScope<uint8_t*> flag(numberContext.abortFlag,
                              reinterpret_cast<uint8_t*>(numberContext.scratchTop));
    EXPECT_EQ(P("4", "2"), Silent("1.2e1"));
    EXPECT_EQ(P("5", "3"), Cancelled);  // 3, 12 and no more
    EXPECT_EQ(C("5", "2"), Silent("1e1"));
    EXPECT_EQ(C("6", "3"), Cancelled);  // 4, 10 and no more
}

TEST(Gcd, DividesBoth) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(Gcd, "6", "4"), Silent("2e0"));
        EXPECT_EQ(ResultOf(Gcd, "4", "6"), Silent("2e0"));
        EXPECT_EQ(ResultOf(Gcd, "7", "7"), Silent("7e0"));
        EXPECT_EQ(ResultOf(Gcd, "1", "9"), Silent("1e0"));
        EXPECT_EQ(ResultOf(Gcd, "9", "1"), Silent("1e0"));
        EXPECT_EQ(ResultOf(Gcd, "1e40", "4e0"), Silent("4e0"));
        EXPECT_EQ(ResultOf(Gcd, "4e0", "1e40"), Silent("4e0"));
        EXPECT_EQ(ResultOf(Gcd, "2e40", "3e30"), Silent("1e30"));
    }
    PrecisionScope scope(20);
    EXPECT_EQ(ResultOf(Gcd, "12", "18"), Silent("6e0"));
    EXPECT_EQ(ResultOf(Gcd, "1071", "462"), Silent("2.1e1"));
    // Neighbours in Fibonacci's sequence: the most steps.
    EXPECT_EQ(ResultOf(Gcd, "12200160415121876738", "7540113804746346429"), Silent("1e0"));
}

TEST(Lcm, IsAMultipleOfBoth) {
    for (int64_t p : AllPrecisions) {
        if (p >= 2) {
            PrecisionScope scope(p);
            EXPECT_EQ(ResultOf(Lcm, "4", "6"), Silent("1.2e1"));
            EXPECT_EQ(ResultOf(Lcm, "6", "4"), Silent("1.2e1"));
            EXPECT_EQ(ResultOf(Lcm, "7", "7"), Silent("7e0"));
            EXPECT_EQ(ResultOf(Lcm, "1", "9"), Silent("9e0"));
        }
    }
    PrecisionScope scope(9);
    EXPECT_EQ(ResultOf(Lcm, "123456789", "1000"), Silent("1.23456789e11"));
}

TEST(Lcm, CutsWhatDoesNotFit) {
    PrecisionScope scope(3);
    // 997 * 991 = 988027: cut to 988, with 027 left in the guard limb.
    RealBuffer result;
    EXPECT_EQ(RealLcm(result, RealBuffer("997"), RealBuffer("991")), 270'000'000'000'000'000u);
    EXPECT_EQ(PlainText(result), "9.88e5");
    // 10^30 / 256 has more than three digits, of which three are left: 3.90 * 256.
    EXPECT_EQ(ResultOf(Lcm, "1e30", "256"), Silent("9.98e29"));
}

TEST(GcdAndLcm, TakePositiveIntegersOnly) {
    for (int64_t p : {2, 16, 19, 20, 38, 39}) {
        PrecisionScope scope(p);
        for (RealRoundedBinary operation : {Gcd, Lcm}) {
            for (const char* wrong : {"0", "-0", "-3", "1.5", "0.3", "-1.5", "inf", "-inf"}) {
                EXPECT_EQ(ResultOf(operation, wrong, "5"), Undefined) << wrong;
                EXPECT_EQ(ResultOf(operation, "5", wrong), Undefined) << wrong;
                EXPECT_EQ(ResultOf(operation, wrong, wrong), Undefined) << wrong;
                EXPECT_EQ(ResultOf(operation, "nan", wrong), Silent("nan"));
                EXPECT_EQ(ResultOf(operation, wrong, "nan"), Silent("nan"));
            }
            EXPECT_EQ(ResultOf(operation, "nan", "nan"), Silent("nan"));
            EXPECT_EQ(ResultOf(operation, "nan", "3"), Silent("nan"));
            EXPECT_EQ(ResultOf(operation, "3", "nan"), Silent("nan"));
        }
    }
}

TEST(GcdAndLcm, StopAtTheByteThatAsksForIt) {
    PrecisionScope scope(20);
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (RealRoundedBinary operation : {Gcd, Lcm}) {
        EXPECT_EQ(ResultOf(operation, "12", "18"), Cancelled);
        EXPECT_EQ(ResultOf(operation, "18", "12"), Cancelled);
        EXPECT_EQ(ResultOf(operation, "1e4611686018427387902", "3"), Cancelled);
        EXPECT_EQ(ResultOf(operation, "0", "3"), Undefined);
    }
    SetCalcError(CalcErrorOverflow);
    RealBuffer x("18");
    RealGcd(x, x, RealBuffer("12"));
    EXPECT_EQ(PlainText(x), "nan");
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

}  // namespace
}  // namespace tallymere
