#include "exact/rational_combinatorics.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "support/rational_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

Outcome Gcd(const char* a, const char* b) {
    return Apply(RationalGcd, a, b);
}

Outcome Lcm(const char* a, const char* b) {
    return Apply(RationalLcm, a, b);
}

Outcome Factorial(const char* n) {
    RationalBuffer dest;
    RationalFactorial(dest, RationalBuffer(n));
    return TakeOutcome(dest);
}

Outcome Ncr(const char* n, const char* k) {
    RationalBuffer dest;
    RationalBinomial(dest, RationalBuffer(n), RationalBuffer(k), false);
    return TakeOutcome(dest);
}

Outcome Npr(const char* n, const char* k) {
    RationalBuffer dest;
    RationalBinomial(dest, RationalBuffer(n), RationalBuffer(k), true);
    return TakeOutcome(dest);
}

const Outcome Undefined = Refused(CalcErrorUndefined);
const Outcome Overflow = Refused(CalcErrorOverflow);

TEST(RationalFactorial, TakesPositiveIntegers) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Factorial("0"), Silent("1"));
        EXPECT_EQ(Factorial("1"), Silent("1"));
        EXPECT_EQ(Factorial("20"), Silent("2432902008176640000"));
        EXPECT_EQ(Factorial("1/2"), Undefined);
        EXPECT_EQ(Factorial("-1"), Undefined);
    }
}

// 3 - 3 leaves a zero with a sign, and its factorial is refused like that of any number with one.
TEST(RationalFactorial, RefusesAZeroWithASign) {
    WidthScope scope(2);
    EXPECT_EQ(Factorial("-0"), Undefined);
}

TEST(RationalFactorial, Overflows) {
    {
        WidthScope scope(1);
        EXPECT_EQ(Factorial("21"), Overflow);
    }
    WidthScope scope(2);
    EXPECT_EQ(Factorial("34"), Silent("295232799039604140847618609643520000000"));
    EXPECT_EQ(Factorial("35"), Overflow);
    EXPECT_EQ(Factorial("2^64"), Overflow);
    EXPECT_EQ(Factorial("2^64-1"), Overflow);
}

TEST(RationalBinomial, CountsNaturalNumbers) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Ncr("7", "5"), Silent("21"));
        EXPECT_EQ(Npr("7", "5"), Silent("2520"));
        EXPECT_EQ(Ncr("5", "7"), Silent("0"));
        EXPECT_EQ(Npr("5", "7"), Silent("0"));
        EXPECT_EQ(Ncr("5", "0"), Silent("1"));
        EXPECT_EQ(Npr("5", "0"), Silent("1"));
        EXPECT_EQ(Ncr("0", "0"), Silent("1"));
    }
}

// A zero is no negative number, whatever its sign.
TEST(RationalBinomial, TakesZerosOfEitherSign) {
    WidthScope scope(2);
    for (const char* zero : {"0", "-0"}) {
        EXPECT_EQ(Ncr("5", zero), Silent("1"));
        EXPECT_EQ(Npr("5", zero), Silent("1"));
        for (const char* count : {"2", "3", "2^64"}) {
            EXPECT_EQ(Ncr(zero, count), Silent("0"));
            EXPECT_EQ(Npr(zero, count), Silent("0"));
        }
        EXPECT_EQ(Ncr(zero, zero), Silent("1"));
        EXPECT_EQ(Ncr("1/2", zero), Silent("1"));
        EXPECT_EQ(Npr("-7/3", zero), Silent("1"));
    }
}

TEST(RationalBinomial, CountsFromAnyNumber) {
    WidthScope scope(2);
    EXPECT_EQ(Ncr("1/2", "1"), Silent("1/2"));
    EXPECT_EQ(Ncr("1/2", "2"), Silent("-1/8"));
    EXPECT_EQ(Ncr("1/2", "3"), Silent("1/16"));
    EXPECT_EQ(Npr("1/2", "3"), Silent("3/8"));
    EXPECT_EQ(Ncr("-1/2", "3"), Silent("-5/16"));
    EXPECT_EQ(Ncr("-1", "5"), Silent("-1"));
    EXPECT_EQ(Ncr("-1", "6"), Silent("1"));
    EXPECT_EQ(Npr("-1", "5"), Silent("-120"));
    EXPECT_EQ(Ncr("-3", "2"), Silent("6"));
    EXPECT_EQ(Ncr("7/3", "2"), Silent("14/9"));
    EXPECT_EQ(Npr("7/3", "2"), Silent("28/9"));
}

TEST(RationalBinomial, CountsFromNumbersOutOfLowestTerms) {
    WidthScope scope(2);
    EXPECT_EQ(Ncr("2/2", "1"), Silent("1"));
    EXPECT_EQ(Npr("6/2", "2"), Silent("6"));
    EXPECT_EQ(Npr("2/2", "3"), Silent("-0"));
}

TEST(RationalBinomial, WantsACountOfOneLimb) {
    WidthScope scope(2);
    EXPECT_EQ(Ncr("5", "-1"), Undefined);
    EXPECT_EQ(Ncr("5", "1/2"), Undefined);
    EXPECT_EQ(Ncr("1/2", "1/2"), Undefined);
    EXPECT_EQ(Ncr("1/2", "-1"), Undefined);
    EXPECT_EQ(Ncr("1/2", "2^64"), Undefined);
    EXPECT_EQ(Npr("-1", "2^64"), Undefined);
    // The first factors fit no longer than this width, so that the largest count ends soon.
    EXPECT_EQ(Npr("1/2", "2^64-1"), Overflow);
    EXPECT_EQ(Ncr("-1/2", "2^64-1"), Overflow);
}

// A factor is divided before it is multiplied, and nothing in between is longer than what stands.
TEST(RationalBinomial, FitsAsLongAsEachProductFits) {
    WidthScope scope(1);
    EXPECT_EQ(Ncr("-9223372036854775807", "1"), Silent("-9223372036854775807"));
    EXPECT_EQ(Ncr("-6074000999", "2"), Silent("18446744070963499500"));
    EXPECT_EQ(Ncr("-6074001000", "2"), Overflow);
    EXPECT_EQ(Npr("-4294967295", "2"), Silent("18446744069414584320"));
    EXPECT_EQ(Npr("-4294967296", "2"), Overflow);
}

TEST(RationalBinomial, StopsWhenAsked) {
    WidthScope scope(2);
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    const Outcome cancelled = Refused(CalcErrorCancelled);
    EXPECT_EQ(Ncr("1/2", "3"), cancelled);
    EXPECT_EQ(Npr("1/2", "3"), cancelled);
    EXPECT_EQ(Ncr("-4", "1"), cancelled);
    EXPECT_EQ(Npr("-4", "1"), cancelled);
    EXPECT_EQ(Ncr("7", "3"), cancelled);
    EXPECT_EQ(Npr("7", "3"), cancelled);
    // Without a factor there is nothing to stop.
    EXPECT_EQ(Ncr("1/2", "0"), Silent("1"));
    stop = 0;
    EXPECT_EQ(Ncr("1/2", "3"), Silent("1/16"));
}

// The byte that asks for a stop lies in the product itself, whose numerators are 1, 9, 63, 315: the
// fourth of the factors is not reached.
TEST(RationalBinomial, PollsBeforeEachFactor) {
    WidthScope scope(1);
    for (const int byte : {1, 2}) {
        RationalBuffer dest;
        FieldScope<uint8_t*> flag(numberContext.abortFlag,
                                  reinterpret_cast<uint8_t*>(RationalNumerator(dest)) + byte);
        RationalBinomial(dest, RationalBuffer("1/2"), RationalBuffer("6"), true);
        EXPECT_EQ(TakeOutcome(dest), byte == 1 ? Refused(CalcErrorCancelled) : Silent("-945/64"));
    }
}

TEST(RationalGcd, TakesPositiveIntegers) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Gcd("4", "6"), Silent("2"));
        EXPECT_EQ(Lcm("4", "6"), Silent("12"));
        EXPECT_EQ(Gcd("7", "7"), Silent("7"));
        EXPECT_EQ(Lcm("7", "7"), Silent("7"));
        EXPECT_EQ(Gcd("1", "2^60"), Silent("1"));
        for (const char* other : {"0", "-0", "-4", "1/2", "-1/2", "2/2"}) {
            EXPECT_EQ(Gcd(other, "6"), Undefined) << other;
            EXPECT_EQ(Gcd("6", other), Undefined) << other;
            EXPECT_EQ(Lcm(other, "6"), Undefined) << other;
            EXPECT_EQ(Lcm("6", other), Undefined) << other;
        }
    }
}

TEST(RationalLcm, Overflows) {
    WidthScope scope(1);
    EXPECT_EQ(Lcm("4294967296", "4294967295"), Silent("18446744069414584320"));
    EXPECT_EQ(Lcm("4294967296", "4294967297"), Overflow);
}

}  // namespace
}  // namespace tallymere
