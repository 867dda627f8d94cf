#include <gtest/gtest.h>

#include <string>

#include "exact/rational_arithmetic.h"
#include "support/rational_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

int Compare(const char* a, const char* b) {
    return RationalCompare(RationalBuffer(a), RationalBuffer(b), false);
}

int CompareMagnitudes(const char* a, const char* b) {
    return RationalCompare(RationalBuffer(a), RationalBuffer(b), true);
}

int CompareSmall(const char* a, uint64_t k, bool negative) {
    return RationalCompareSmall(RationalBuffer(a), k, negative);
}

// The value where it is one, "none" where the conversion fails and leaves 0.
std::string Unsigned(const char* a, uint32_t flags) {
    uint64_t out = 99;
    if (RationalToUnsigned(&out, RationalBuffer(a), flags)) {
        return std::to_string(out);
    }
    EXPECT_EQ(out, 0u);
    return "none";
}

TEST(RationalCompare, OrdersNumbers) {
    const char* const ascending[] = {"-2^60",  "-3",  "-5/2", "-2", "-1/2", "-1/3", "0",
                                     "1/2^60", "1/3", "1/2",  "2",  "7/3",  "5/2",  "2^60"};
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        int i = 0;
        for (const char* a : ascending) {
            int j = 0;
            for (const char* b : ascending) {
                EXPECT_EQ(Compare(a, b), (i > j) - (i < j)) << a << " and " << b;
                j++;
            }
            i++;
        }
    }
}

TEST(RationalCompare, TellsNeighboursApart) {
    for (const int64_t limbs : {1, 2, 26, 520}) {
        WidthScope scope(limbs);
        const std::string power = TwoTo(64 * limbs - 1);
        const std::string a = power + "+1/" + power;
        const std::string b = power + "/" + power + "-1";
        EXPECT_EQ(Compare(a.c_str(), b.c_str()), -1);
        EXPECT_EQ(Compare(b.c_str(), a.c_str()), 1);
        EXPECT_EQ(Compare(("-" + a).c_str(), ("-" + b).c_str()), 1);
    }
}

TEST(RationalCompare, TakesZerosOfEitherSignAsEqual) {
    WidthScope scope(2);
    EXPECT_EQ(Compare("0", "-0"), 0);
    EXPECT_EQ(Compare("-0", "0"), 0);
    EXPECT_EQ(Compare("-0", "-0"), 0);
    EXPECT_EQ(Compare("-0", "1/2"), -1);
    EXPECT_EQ(Compare("-0", "-1/2"), 1);
    EXPECT_EQ(Compare("1/2", "-0"), 1);
    EXPECT_EQ(Compare("-1/2", "-0"), -1);
    EXPECT_EQ(Compare("-1/2", "0"), -1);
    EXPECT_EQ(Compare("0", "-1/2"), 1);
}

TEST(RationalCompare, IgnoresSignsWhereAsked) {
    WidthScope scope(2);
    EXPECT_EQ(CompareMagnitudes("-1/2", "1/2"), 0);
    EXPECT_EQ(CompareMagnitudes("-2", "1"), 1);
    EXPECT_EQ(CompareMagnitudes("-2/3", "-1/2"), 1);
    EXPECT_EQ(CompareMagnitudes("1/3", "-1/2"), -1);
    EXPECT_EQ(CompareMagnitudes("-0", "0"), 0);
    EXPECT_EQ(CompareMagnitudes("-1", "0"), 1);
}

TEST(RationalCompare, ComparesValuesOutOfLowestTerms) {
    WidthScope scope(1);
    EXPECT_EQ(Compare("2/2", "1"), 0);
    EXPECT_EQ(Compare("2/4", "3/6"), 0);
    EXPECT_EQ(Compare("2/4", "3/5"), -1);
}

TEST(RationalCompare, ReadsOneBitOfTheSignWord) {
    WidthScope scope(2);
    RationalBuffer a("1/2");
    RationalBuffer b("1/2");
    a->sign = 2;
    EXPECT_EQ(RationalCompare(a, b, false), 0);
    a->sign = 3;
    EXPECT_EQ(RationalCompare(a, b, false), -1);
    b->sign = 1;
    EXPECT_EQ(RationalCompare(a, b, false), 0);
}

TEST(RationalCompareSmall, ComparesWithAWord) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(CompareSmall("7", 7, false), 0);
        EXPECT_EQ(CompareSmall("7", 8, false), -1);
        EXPECT_EQ(CompareSmall("7", 6, false), 1);
        EXPECT_EQ(CompareSmall("15/2", 7, false), 1);
        EXPECT_EQ(CompareSmall("15/2", 8, false), -1);
        EXPECT_EQ(CompareSmall("-15/2", 7, true), -1);
        EXPECT_EQ(CompareSmall("-15/2", 8, true), 1);
        EXPECT_EQ(CompareSmall("-7", 7, true), 0);
        EXPECT_EQ(CompareSmall("-7", 7, false), -1);
        EXPECT_EQ(CompareSmall("7", 7, true), 1);
        EXPECT_EQ(CompareSmall("0", 0, true), 0);
        EXPECT_EQ(CompareSmall("-0", 0, false), 0);
        EXPECT_EQ(CompareSmall("-1/2", 0, false), -1);
        EXPECT_EQ(CompareSmall("1/2", 0, true), 1);
        EXPECT_EQ(CompareSmall("18446744073709551615", ~uint64_t{0}, false), 0);
        // The product with the denominator is a limb longer than either.
        EXPECT_EQ(CompareSmall("18446744073709551615/18446744073709551614", ~uint64_t{0}, false),
                  -1);
    }
}

TEST(RationalToUnsigned, WantsAnIntegerUnlessItTruncates) {
    WidthScope scope(2);
    EXPECT_EQ(Unsigned("7", IntegerExact), "7");
    EXPECT_EQ(Unsigned("0", IntegerExact), "0");
    EXPECT_EQ(Unsigned("15/2", IntegerExact), "none");
    EXPECT_EQ(Unsigned("15/2", AllowFraction), "7");
    EXPECT_EQ(Unsigned("1/2", AllowFraction), "0");
    EXPECT_EQ(Unsigned("7", AllowFraction), "7");
    EXPECT_EQ(Unsigned("15/2", AllowNegative), "none");
}

TEST(RationalToUnsigned, WantsNoSignUnlessItIgnoresIt) {
    WidthScope scope(2);
    EXPECT_EQ(Unsigned("-7", IntegerExact), "none");
    EXPECT_EQ(Unsigned("-7", AllowNegative), "7");
    EXPECT_EQ(Unsigned("-15/2", AllowFraction), "none");
    EXPECT_EQ(Unsigned("-15/2", AllowFraction | AllowNegative), "7");
    // The sign is judged by what is left of the number.
    EXPECT_EQ(Unsigned("-0", IntegerExact), "0");
    EXPECT_EQ(Unsigned("-1/2", AllowFraction), "0");
}

TEST(RationalToUnsigned, WantsOneLimb) {
    WidthScope scope(2);
    EXPECT_EQ(Unsigned("18446744073709551615", IntegerExact), "18446744073709551615");
    EXPECT_EQ(Unsigned("2^64", IntegerExact), "none");
    EXPECT_EQ(Unsigned("2^65-1/2", AllowFraction), "18446744073709551615");
    EXPECT_EQ(Unsigned("2^65+1/2", AllowFraction), "none");
    EXPECT_EQ(Unsigned("-2^64", AllowNegative), "none");
}

}  // namespace
}  // namespace tallymere
