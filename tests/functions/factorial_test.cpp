#include "functions/factorial.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_layout.h"
#include "core/scratch.h"
#include "functions/function_testing.h"
#include "functions/guard_digits.h"
#include "functions/tangent_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

const Outcome Overflow = {"inf", CalcErrorOverflow};

Outcome Factorial(std::string_view x) {
    return ResultOf(RealFactorialRounded, x);
}

Outcome RawFactorial(std::string_view x) {
    RealBuffer result(x);
    RealFactorial(result, result);
    return {PlainText(result), TakeCode()};
}

TEST(FactorialCutover, IsHighestForTheLongestPrecision) {
    for (int64_t i = 1; i < FactorialCutoverCount; i++) {
        EXPECT_LT(FactorialCutover[i - 1].digits, FactorialCutover[i].digits);
        EXPECT_LT(FactorialCutover[i - 1].n, FactorialCutover[i].n);
    }
}

TEST(FactorialCutover, IsThatOfAPairAtItsPrecision) {
    for (int64_t i = 0; i < FactorialCutoverCount - 1; i++) {
        const FactorialCutoverPair pair = FactorialCutover[i];
        EXPECT_EQ(FactorialCutoverAt(pair.digits), pair.n);
    }
}

TEST(FactorialCutover, LiesOnTheLineBetweenTwoPairsAndIsRounded) {
    for (int64_t p = 10; p < 10000; p++) {
        int64_t i = 0;
        while (FactorialCutover[i + 1].digits <= p) {
            i++;
        }
        const int64_t d = FactorialCutover[i].digits;
        const int64_t n = FactorialCutover[i].n;
        const int64_t digits = FactorialCutover[i + 1].digits - d;
        const int64_t rise = FactorialCutover[i + 1].n - n;
        EXPECT_EQ(FactorialCutoverAt(p), n + (2 * (p - d) * rise + digits) / (2 * digits)) << p;
    }
}

TEST(FactorialCutover, StaysOutsideThePairs) {
    for (int64_t p = 1; p < 10; p++) {
        EXPECT_EQ(FactorialCutoverAt(p), FactorialCutover[0].n);
    }
    constexpr int64_t longest = FactorialCutoverCount - 2;
    EXPECT_EQ(FactorialCutover[longest].digits, 10'000u);
    for (int64_t p : {10'001, 10'005, 10'043, 99'999'999, 100'000'000, 200'000'000}) {
        EXPECT_EQ(FactorialCutoverAt(p), FactorialCutover[longest].n);
    }
}

TEST(Factorial, MultipliesSmallNumbers) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Factorial("0"), Silent("1e0"));
        EXPECT_EQ(Factorial("-0"), Silent("1e0"));
        EXPECT_EQ(Factorial("1"), Silent("1e0"));
        EXPECT_EQ(Factorial("2"), Silent("2e0"));
        EXPECT_EQ(Factorial("3"), Silent("6e0"));
    }
    PrecisionScope scope(20);
    EXPECT_EQ(Factorial("4"), Silent("2.4e1"));
    EXPECT_EQ(Factorial("10"), Silent("3.6288e6"));
    EXPECT_EQ(Factorial("20"), Silent("2.43290200817664e18"));
    EXPECT_EQ(Factorial("25"), Silent("1.5511210043330985984e25"));
}

TEST(Factorial, RoundsHalfUp) {
    PrecisionScope scope(2);
    EXPECT_EQ(Factorial("5"), Silent("1.2e2"));
    EXPECT_EQ(Factorial("7"), Silent("5e3"));      // 5040
    EXPECT_EQ(Factorial("9"), Silent("3.6e5"));    // 362880
    EXPECT_EQ(Factorial("13"), Silent("6.2e9"));   // 6227020800
    EXPECT_EQ(Factorial("14"), Silent("8.7e10"));  // 87178291200
    EXPECT_EQ(Factorial("69"), Silent("1.7e98"));  // 1.711...
}

TEST(Factorial, IsUndefinedForFractionsAndNegativeNumbers) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* x : {"-1", "-7", "0.5", "-0.5", "2e-9", "-2e30", "-inf"}) {
            EXPECT_EQ(Factorial(x), Undefined) << x;
            EXPECT_EQ(RawFactorial(x), Undefined) << x;
        }
    }
    PrecisionScope scope(3);
    EXPECT_EQ(Factorial("3.5"), Undefined);
    EXPECT_EQ(Factorial("99.5"), Undefined);
}

TEST(Factorial, KeepsInfinityAndNaNToItself) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Factorial("inf"), Silent("inf"));
        EXPECT_EQ(Factorial("nan"), Silent("nan"));
    }
}

TEST(Factorial, OverflowsBeyondMachineIntegers) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Factorial("1e30"), Overflow);
        EXPECT_EQ(Factorial("2e19"), Overflow);
        EXPECT_EQ(Factorial("1e4611686018427387903"), Overflow);
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        EXPECT_EQ(Factorial("1e30"), Silent("inf"));
    }
    PrecisionScope scope(20);
    EXPECT_EQ(Factorial("9223372036854775808"), Overflow);
    EXPECT_EQ(Factorial("18446744073709551615"), Overflow);
    EXPECT_EQ(Factorial("18446744073709551616"), Overflow);
}

TEST(ProductFactorial, TruncatesAfterEveryFactor) {
    PrecisionScope scope(2);
    RealBuffer result;
    // From 720 on: 50|40, 40|0, 36|0, 36|0, 39|6, 46|8, 59|8.
    const auto raw = [&result](int64_t n) {
        const Limb guard = RealProductFactorial(result, n);
        return PlainText(result) + " " + std::to_string(guard);
    };
    EXPECT_EQ(raw(0), "1e0 0");
    EXPECT_EQ(raw(1), "1e0 0");
    EXPECT_EQ(raw(6), "7.2e2 0");
    EXPECT_EQ(raw(7), "5e3 4000000000000000000");
    EXPECT_EQ(raw(8), "4e4 0");
    EXPECT_EQ(raw(13), "5.9e9 8000000000000000000");
}

TEST(ProductFactorial, StopsAtTheByteThatAsksForIt) {
    PrecisionScope scope(20);
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(Factorial("2"), Cancelled);
    EXPECT_EQ(Factorial("69"), Cancelled);
    // Where there is no factor the byte is not looked at.
    EXPECT_EQ(Factorial("0"), Silent("1e0"));
    EXPECT_EQ(Factorial("1"), Silent("1e0"));
    EXPECT_EQ(Factorial("1.5"), Undefined);

    SetCalcError(CalcErrorOverflow);
    EXPECT_EQ(RawFactorial("5"), (Outcome{"nan", CalcErrorOverflow}));
}

TEST(ProductFactorial, LooksAtTheByteAfterEveryFactor) {
    PrecisionScope scope(20);
    RealBuffer result("2");
    // The byte is the low end of the result's header and no longer 0 when the product reaches 10.
    FieldScope<uint8_t*> flag(numberContext.abortFlag,
                              reinterpret_cast<uint8_t*>(&result.Get()->header));
    RealProductFactorial(result, 3);
    EXPECT_EQ(PlainText(result), "6e0");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    RealProductFactorial(result, 4);
    EXPECT_EQ(PlainText(result), "nan");
    EXPECT_EQ(TakeCode(), CalcErrorCancelled);
}

Outcome Stirling(int64_t n) {
    RealBuffer result;
    RealStirlingFactorial(result, n);
    return {PlainText(result), TakeCode()};
}

// |a - b| in units of the last place of a; both have the same exponent or a next one.
int64_t UlpsBetween(const RealNumber* a, const RealNumber* b) {
    RealBuffer difference;
    RealAddRaw(difference, a, b, true);
    if (RealIsZero(difference)) {
        return 0;
    }
    const int64_t lastPlace = RealExponent(a) - numberContext.precisionDigits + 1;
    const std::string text = PlainText(difference);
    const double leading = std::abs(std::stod(text.substr(0, text.find('e'))));
    const int64_t shift = RealExponent(difference) - lastPlace;
    return shift > 17 ? INT64_MAX
                      : std::llround(leading * std::pow(10.0, static_cast<double>(shift)));
}

TEST(StirlingFactorial, ReturnsTheGuardLimbOfItsLastProduct) {
    for (int64_t p : {16, 19, 20, 57}) {
        PrecisionScope scope(p);
        const RealBuffer x("300");
        RealBuffer result;
        const Limb guard = RealStirlingFactorial(result, 300);
        EXPECT_NE(guard, 0u);
        EXPECT_EQ(RealFactorial(result, x),
                  FactorialCutoverAt(p) <= 300 ? guard : RealProductFactorial(result, 300));
    }
}

TEST(StirlingFactorial, TakesOverAtTheCutover) {
    TangentMemoryWatch watch;
    const auto tables = [&](int64_t n) {
        RealBuffer x;
        EXPECT_EQ(RealFromUint(x, static_cast<uint64_t>(n)), 0u);
        const int before = watch.BlocksTaken();
        RealBuffer result;
        RealFactorial(result, x);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
        EXPECT_EQ(watch.BlocksHeld(), 0);
        return watch.BlocksTaken() - before;
    };
    for (int64_t p : {10, 16, 20, 35, 100, 200}) {
        PrecisionScope scope(p);
        const int64_t cutover = FactorialCutoverAt(p);
        EXPECT_EQ(tables(cutover - 1), 0);
        EXPECT_EQ(tables(cutover), 1);
        EXPECT_EQ(tables(cutover + 1), 1);
    }
    PrecisionScope scope(16);
    EXPECT_EQ(tables(1'000'000'000'000'000), 1);
}

TEST(StirlingFactorial, IsNeverUsedBelowSeventy) {
    TangentMemoryWatch watch;
    for (int64_t p : AllPrecisions) {
        if (p >= 2) {
            PrecisionScope scope(p);
            RealBuffer result;
            RealFactorial(result, RealBuffer("69"));
            EXPECT_EQ(watch.BlocksTaken(), 0);
        }
    }
    PrecisionScope scope(2);
    RealBuffer result;
    RealFactorial(result, RealBuffer("70"));
    EXPECT_EQ(watch.BlocksTaken(), 1);
}

TEST(StirlingFactorial, CountsGuardDigitsForTheCutover) {
    constexpr int64_t digits = 9;
    const int64_t cutover = FactorialCutoverAt(digits + FactorialGuardDigits(RealBuffer("1e2")));
    ASSERT_GE(cutover, FactorialCutoverAt(digits) + 2);
    TangentMemoryWatch watch;
    PrecisionScope scope(digits);
    EXPECT_EQ(Factorial(std::to_string(cutover - 1)).code, CalcErrorNone);
    EXPECT_EQ(watch.BlocksTaken(), 0);
    EXPECT_EQ(Factorial(std::to_string(cutover)).code, CalcErrorNone);
    EXPECT_EQ(watch.BlocksTaken(), 2);  // one for each of the two runs of Factorial
}

TEST(StirlingFactorial, AgreesWithTheProductAroundTheCutover) {
    for (int64_t p : {10, 16, 19, 20, 37, 38, 39, 57, 100, 300}) {
        PrecisionScope scope(p);
        const int64_t cutover = FactorialCutoverAt(p);
        for (int64_t n = cutover - 3; n <= cutover + 3; n++) {
            RealBuffer product;
            RealBuffer series;
            RealProductFactorial(product, n);
            RealStirlingFactorial(series, n);
            EXPECT_EQ(TakeCode(), CalcErrorNone);
            // A tenth of what the guard digits of the rounded factorial leave room for.
            const double room = std::pow(10.0, std::floor(std::log10(n)) + 6);
            EXPECT_LE(static_cast<double>(UlpsBetween(product, series)), room) << n;
        }
    }
}

TEST(StirlingFactorial, GivesKnownDigits) {
    {
        PrecisionScope scope(30);
        EXPECT_EQ(Factorial("1000"), Silent("4.02387260077093773543702433923e2567"));
        EXPECT_EQ(Factorial("1000000"), Silent("8.26393168833124006237664610317e5565708"));
    }
    PrecisionScope scope(10);
    EXPECT_EQ(Factorial("100"), Silent("9.332621544e157"));
    EXPECT_EQ(Factorial("1000000000"), Silent("9.904626579e8565705522"));
}

TEST(StirlingFactorial, GrowsByItsFactorAtLongPrecisions) {
    for (int64_t p : {1000, 10000}) {
        PrecisionScope scope(p);
        RealBuffer larger("1000000000000000");
        RealBuffer smaller("999999999999999");
        const RealBuffer factor = larger;
        RealFactorialRounded(larger, larger);
        RealFactorialRounded(smaller, smaller);
        RealDiv(larger, larger, smaller);
        EXPECT_LE(UlpsBetween(factor, larger), 10);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

// How many terms are added until one lies p - 1 digits below the first, from n at p digits on: each
// is about (2k - 1) 2k / (2 pi n)^2 times the one before it. 0 if they grow before that.
int64_t TermsOfSeries(int64_t n, int64_t p) {
    const double turn = 2 * std::acos(-1.0) * static_cast<double>(n);
    double digits = 0;
    for (int64_t k = 1; static_cast<double>(2 * k) < turn; k++) {
        if (digits < static_cast<double>(1 - p)) {
            return k;
        }
        digits += std::log10(static_cast<double>(2 * k - 1)) +
                  std::log10(static_cast<double>(2 * k)) - 2 * std::log10(turn);
    }
    return 0;
}

TEST(StirlingFactorial, EndsWithinTheTableAtEveryPrecision) {
    for (int64_t p = 1; p <= MaxPrecisionDigits + MaxGuardDigits; p++) {
        const int64_t terms = TermsOfSeries(FactorialCutoverAt(p), p);
        ASSERT_GT(terms, 0) << p;
        ASSERT_LE(terms, 1100) << p;  // of the 1,500 that fit
    }
    // And where the terms grow first the table is full.
    PrecisionScope scope(100);
    EXPECT_EQ(TermsOfSeries(3, 100), 0);
    EXPECT_EQ(Stirling(3).code, CalcErrorCapacity);
}

TEST(StirlingFactorial, OverflowsAboveTheRange) {
    for (int64_t p : {1, 2, 16, 19, 20, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(Factorial("9e18"), Overflow);
        EXPECT_EQ(Factorial("3e17"), Overflow);
        EXPECT_EQ(Factorial("2e17").code, CalcErrorNone);
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        EXPECT_EQ(Factorial("9e18"), Silent("inf"));
    }
    PrecisionScope scope(19);
    EXPECT_EQ(Factorial("9223372036854775807"), Overflow);
}

TEST(StirlingFactorial, StopsAtTheByteThatAsksForIt) {
    TangentMemoryWatch watch;
    PrecisionScope scope(20);
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(Factorial("1000"), Cancelled);
    EXPECT_EQ(Stirling(1), Cancelled);
    EXPECT_EQ(watch.BlocksTaken(), 3);
    EXPECT_EQ(watch.BlocksHeld(), 0);
}

TEST(StirlingFactorial, LooksAtTheByteAfterEveryTerm) {
    TangentMemoryWatch watch;
    PrecisionScope scope(10);
    FieldScope<uint8_t*> flag(numberContext.abortFlag, nullptr);
    // Of 10^5! two terms are enough, of 1000! three are needed.
    watch.StopAtTheThirdNumber();
    EXPECT_EQ(Stirling(100'000).code, CalcErrorNone);
    EXPECT_EQ(Stirling(100), Cancelled);
    EXPECT_EQ(watch.BlocksTaken(), 2);
    EXPECT_EQ(watch.BlocksHeld(), 0);
}

TEST(StirlingFactorial, SaysThatTheTableIsFull) {
    const Outcome full = {"nan", CalcErrorCapacity};
    TangentMemoryWatch watch;
    PrecisionScope scope(10);
    EXPECT_EQ(Stirling(1), full);
    EXPECT_EQ(watch.BlocksTaken(), 1);
    EXPECT_EQ(watch.BlocksHeld(), 0);
}

TEST(StirlingFactorial, SaysThatThereIsNoMemory) {
    const Outcome full = {"nan", CalcErrorCapacity};
    TangentMemoryWatch watch;
    watch.Refuse();
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Factorial("9e3"), full);
    }
    PrecisionScope scope(20);
    SetCalcError(CalcErrorOverflow);
    EXPECT_EQ(Stirling(100), (Outcome{"nan", CalcErrorOverflow}));
    EXPECT_EQ(watch.BlocksHeld(), 0);
}

}  // namespace
}  // namespace tallymere
