#include "exact/rational_arithmetic.h"

#include <gtest/gtest.h>

#include <string>

#include "support/rational_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

const std::string Largest = "18446744073709551615";  // of one limb

Outcome Sum(const char* a, const char* b) {
    RationalBuffer dest;
    RationalAddSub(dest, RationalBuffer(a), RationalBuffer(b), false);
    return TakeOutcome(dest);
}

Outcome Difference(const char* a, const char* b) {
    RationalBuffer dest;
    RationalAddSub(dest, RationalBuffer(a), RationalBuffer(b), true);
    return TakeOutcome(dest);
}

Outcome Product(const char* a, const char* b) {
    RationalBuffer dest;
    RationalMulDiv(dest, RationalBuffer(a), RationalBuffer(b), false);
    return TakeOutcome(dest);
}

Outcome Quotient(const char* a, const char* b) {
    RationalBuffer dest;
    RationalMulDiv(dest, RationalBuffer(a), RationalBuffer(b), true);
    return TakeOutcome(dest);
}

Outcome SmallProduct(const char* a, uint64_t k, Terms terms = Terms::Lowest) {
    RationalBuffer dest;
    RationalMulSmall(dest, RationalBuffer(a), k);
    return TakeOutcome(dest, terms);
}

Outcome SmallQuotient(const char* a, uint64_t k, Terms terms = Terms::Lowest) {
    RationalBuffer dest;
    RationalDivSmall(dest, RationalBuffer(a), k);
    return TakeOutcome(dest, terms);
}

Outcome Reduced(const char* fraction) {
    RationalBuffer q(fraction);
    ReduceFraction(RationalNumerator(q), RationalDenominator(q));
    return TakeOutcome(q);
}

TEST(ReduceFraction, DividesByTheGreatestCommonDivisor) {
    WidthScope scope(2);
    EXPECT_EQ(Reduced("6/4"), Silent("3/2"));
    EXPECT_EQ(Reduced("3/2"), Silent("3/2"));
    EXPECT_EQ(Reduced("4/4"), Silent("1"));
    EXPECT_EQ(Reduced("2^100/2^101"), Silent("1/2"));
    EXPECT_EQ(Reduced("2^127/2^64"), Silent("9223372036854775808"));
    EXPECT_EQ(Reduced("5/1"), Silent("5"));
}

TEST(ReduceFraction, GivesAZeroTheDenominatorOne) {
    WidthScope scope(2);
    EXPECT_EQ(Reduced("0/7"), Silent("0"));
    EXPECT_EQ(Reduced("0/0"), Silent("0"));
}

TEST(ReduceFraction, ReportsADenominatorOfZero) {
    WidthScope scope(2);
    RationalBuffer q("5/0");
    ReduceFraction(RationalNumerator(q), RationalDenominator(q));
    EXPECT_EQ(TakeCode(), CalcErrorExactDivisionByZero);
}

TEST(RationalAddSub, AddsAndSubtracts) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Sum("1/3", "1/6"), Silent("1/2"));
        EXPECT_EQ(Sum("1/3", "-1/6"), Silent("1/6"));
        EXPECT_EQ(Sum("-1/3", "1/6"), Silent("-1/6"));
        EXPECT_EQ(Sum("-1/3", "-1/6"), Silent("-1/2"));
        EXPECT_EQ(Difference("1/3", "1/6"), Silent("1/6"));
        EXPECT_EQ(Difference("1/6", "1/3"), Silent("-1/6"));
        EXPECT_EQ(Difference("1/6", "-1/3"), Silent("1/2"));
        EXPECT_EQ(Difference("-1/6", "-1/3"), Silent("1/6"));
        EXPECT_EQ(Sum("2", "3"), Silent("5"));
        EXPECT_EQ(Sum("1/6", "1/6"), Silent("1/3"));
        EXPECT_EQ(Sum("5/6", "1/6"), Silent("1"));
        EXPECT_EQ(Sum("2", "1/2"), Silent("5/2"));
        EXPECT_EQ(Difference("1/2", "2"), Silent("-3/2"));
    }
}

// What cancels takes the sign of the second operand, as it is added.
TEST(RationalAddSub, GivesAZeroTheSignOfTheSecondOperand) {
    WidthScope scope(2);
    EXPECT_EQ(Difference("3", "3"), Silent("-0"));
    EXPECT_EQ(Difference("-3", "-3"), Silent("0"));
    EXPECT_EQ(Sum("-3", "3"), Silent("0"));
    EXPECT_EQ(Sum("3", "-3"), Silent("-0"));
    EXPECT_EQ(Difference("1/2", "1/2"), Silent("-0"));
    EXPECT_EQ(Sum("-1/2", "1/2"), Silent("0"));
    // By the cross products, which different denominators ask for even when the values are equal.
    EXPECT_EQ(Difference("1/2", "2/4"), Silent("-0"));
    EXPECT_EQ(Sum("-1/2", "2/4"), Silent("0"));
    EXPECT_EQ(Sum("0", "-0"), Silent("-0"));
    EXPECT_EQ(Sum("-0", "0"), Silent("0"));
    EXPECT_EQ(Difference("0", "0"), Silent("-0"));
    EXPECT_EQ(Sum("-0", "-0"), Silent("-0"));
    EXPECT_EQ(Sum("0", "0"), Silent("0"));
    EXPECT_EQ(Difference("-0", "0"), Silent("-0"));
}

TEST(RationalAddSub, AddsZerosOfEitherSign) {
    WidthScope scope(2);
    for (const char* zero : {"0", "-0"}) {
        for (const char* q : {"3/4", "-3/4", "5", "-5"}) {
            EXPECT_EQ(Sum(q, zero), Silent(q));
            EXPECT_EQ(Sum(zero, q), Silent(q));
            EXPECT_EQ(Difference(q, zero), Silent(q));
        }
    }
}

TEST(RationalAddSub, FitsWhenTheReducedSumFits) {
    WidthScope scope(1);
    // All of the cross products need two limbs.
    EXPECT_EQ(Sum("1/12884901888", "1/8589934592"), Silent("5/25769803776"));
    EXPECT_EQ(Sum("1/4611686018427387904", "1/9223372036854775808"),
              Silent("3/9223372036854775808"));
    EXPECT_EQ(Difference("18446744073709551615/2", "18446744073709551609/4"),
              Refused(CalcErrorOverflow));
}

TEST(RationalAddSub, OverflowsWhenTheReducedSumDoesNotFit) {
    WidthScope scope(1);
    EXPECT_EQ(Sum("18446744073709551615", "1"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Difference("-18446744073709551615", "1"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Sum("18446744073709551615", "1/2"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Sum("1/18446744073709551615", "1/18446744073709551614"), Refused(CalcErrorOverflow));
}

// Equal denominators are not multiplied, and so their numerators have no more room than a result.
TEST(RationalAddSub, OverflowsWhenNumeratorsOverEqualDenominatorsDo) {
    WidthScope scope(1);
    EXPECT_EQ(Sum("18446744073709551615/2", "1/2"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Difference("18446744073709551615/2", "1/2"), Silent("9223372036854775807"));
    EXPECT_EQ(Sum("18446744073709551613/2", "1/2"), Silent("9223372036854775807"));
}

// The same at twice the width: 23/12 would fit, the sum of the cross products does not.
TEST(RationalAddSub, OverflowsWhenTheSumOfTheCrossProductsDoes) {
    const char* const a = "18446744073709551608/13835058055282163541";
    const char* const b = "10760600709663904683/18446744073709551388";
    {
        WidthScope scope(1);
        EXPECT_EQ(Sum(a, b), Refused(CalcErrorOverflow));
    }
    WidthScope scope(2);
    EXPECT_EQ(Sum(a, b), Silent("23/12"));
}

TEST(RationalAddSub, ReducesOperandsOutOfLowestTerms) {
    WidthScope scope(2);
    EXPECT_EQ(Sum("2/2", "1"), Silent("2"));
    EXPECT_EQ(Sum("2/2", "2/2"), Silent("2"));
    EXPECT_EQ(Sum("2/2", "0"), Silent("1"));
    EXPECT_EQ(Difference("1/3", "2/2"), Silent("-2/3"));
}

TEST(RationalMulDiv, MultipliesAndDivides) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Product("2/3", "3/4"), Silent("1/2"));
        EXPECT_EQ(Product("-2/3", "3/4"), Silent("-1/2"));
        EXPECT_EQ(Product("2/3", "-3/4"), Silent("-1/2"));
        EXPECT_EQ(Product("-2/3", "-3/4"), Silent("1/2"));
        EXPECT_EQ(Product("2/3", "3/2"), Silent("1"));
        EXPECT_EQ(Product("7", "6"), Silent("42"));
        EXPECT_EQ(Quotient("2/3", "4/3"), Silent("1/2"));
        EXPECT_EQ(Quotient("-2/3", "4/3"), Silent("-1/2"));
        EXPECT_EQ(Quotient("2/3", "-4/3"), Silent("-1/2"));
        EXPECT_EQ(Quotient("-2/3", "-4/3"), Silent("1/2"));
        EXPECT_EQ(Quotient("6", "4"), Silent("3/2"));
    }
}

TEST(RationalMulDiv, GivesAZeroTheSignOfTheProduct) {
    WidthScope scope(2);
    EXPECT_EQ(Product("0", "3/4"), Silent("0"));
    EXPECT_EQ(Product("0", "-3/4"), Silent("-0"));
    EXPECT_EQ(Product("-0", "-3/4"), Silent("0"));
    EXPECT_EQ(Product("0", "0"), Silent("0"));
    EXPECT_EQ(Quotient("0", "-3/4"), Silent("-0"));
    EXPECT_EQ(Quotient("0", "3/4"), Silent("0"));
}

TEST(RationalMulDiv, ReportsADivisionByZero) {
    WidthScope scope(2);
    for (const char* zero : {"0", "-0"}) {
        for (const char* q : {"3/4", "-5", "0", "-0"}) {
            EXPECT_EQ(Quotient(q, zero), Refused(CalcErrorExactDivisionByZero));
        }
    }
}

TEST(RationalMulDiv, OverflowsOnlyWhenTheReducedResultDoesNotFit) {
    WidthScope scope(1);
    EXPECT_EQ(Product("18446744073709551615/2", "2/18446744073709551615"), Silent("1"));
    EXPECT_EQ(Quotient("18446744073709551614/3", "18446744073709551612/3"),
              Silent("9223372036854775807/9223372036854775806"));
    EXPECT_EQ(Product("4294967296", "4294967296"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Product("4294967296", "4294967295"), Silent("18446744069414584320"));
    EXPECT_EQ(Product("1/4294967296", "1/4294967296"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Quotient("1/4294967296", "4294967296"), Refused(CalcErrorOverflow));
}

TEST(RationalMulDiv, ReducesOperandsOutOfLowestTerms) {
    WidthScope scope(2);
    EXPECT_EQ(Product("2/2", "3"), Silent("3"));
    EXPECT_EQ(Product("2/2", "1/3"), Silent("1/3"));
    EXPECT_EQ(Quotient("2/2", "6/2"), Silent("1/3"));
}

TEST(RationalMulSmall, MultipliesByAWord) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(SmallProduct("3", 4), Silent("12"));
        EXPECT_EQ(SmallProduct("-3/8", 4), Silent("-3/2"));
        EXPECT_EQ(SmallProduct("3/8", 8), Silent("3"));
        EXPECT_EQ(SmallProduct("3/8", 9), Silent("27/8"));
        EXPECT_EQ(SmallProduct("3/8", 1), Silent("3/8"));
        EXPECT_EQ(SmallProduct("1/18446744073709551615", ~uint64_t{0}), Silent("1"));
        EXPECT_EQ(SmallProduct("3/8", 0), Silent("0"));
        EXPECT_EQ(SmallProduct("-3/8", 0), Silent("-0"));
        EXPECT_EQ(SmallProduct("-3", 0), Silent("-0"));
        EXPECT_EQ(SmallProduct("-0", 7), Silent("-0"));
    }
}

TEST(RationalMulSmall, OverflowsOnlyWhenTheReducedResultDoesNotFit) {
    WidthScope scope(1);
    EXPECT_EQ(SmallProduct("18446744073709551615/2", 2), Silent(Largest));
    EXPECT_EQ(SmallProduct("18446744073709551615/2", 4), Refused(CalcErrorOverflow));
    EXPECT_EQ(SmallProduct("-9223372036854775808", 2), Refused(CalcErrorOverflow));
}

TEST(RationalDivSmall, DividesByAWord) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(SmallQuotient("12", 4), Silent("3"));
        EXPECT_EQ(SmallQuotient("-6", 4), Silent("-3/2"));
        EXPECT_EQ(SmallQuotient("6/5", 4), Silent("3/10"));
        EXPECT_EQ(SmallQuotient("6/5", 1), Silent("6/5"));
        EXPECT_EQ(SmallQuotient("1", ~uint64_t{0}), Silent("1/" + Largest));
        EXPECT_EQ(SmallQuotient("18446744073709551615/2", ~uint64_t{0}), Silent("1/2"));
        EXPECT_EQ(SmallQuotient("-0", 7), Silent("-0"));
    }
}

TEST(RationalDivSmall, OverflowsOnlyWhenTheReducedResultDoesNotFit) {
    WidthScope scope(1);
    EXPECT_EQ(SmallQuotient("2/18446744073709551615", 2), Silent("1/" + Largest));
    EXPECT_EQ(SmallQuotient("2/18446744073709551615", 4), Refused(CalcErrorOverflow));
}

TEST(RationalDivSmall, TakesZeroDividedByZeroAsZero) {
    WidthScope scope(2);
    EXPECT_EQ(SmallQuotient("0", 0), Silent("0"));
    EXPECT_EQ(SmallQuotient("-0", 0), Silent("-0"));
    EXPECT_EQ(SmallQuotient("5", 0), Refused(CalcErrorExactDivisionByZero));
    EXPECT_EQ(SmallQuotient("-5/3", 0), Refused(CalcErrorExactDivisionByZero));
}

// A factor of one word is only held against the part that it can share a divisor with.
TEST(RationalMulSmall, LeavesOperandsOutOfLowestTermsAsTheyAre) {
    WidthScope scope(2);
    EXPECT_EQ(SmallProduct("2/2", 3, Terms::AsTheOperand), Silent("6/2"));
    EXPECT_EQ(SmallProduct("2/2", 2), Silent("2"));
    EXPECT_EQ(SmallQuotient("2/2", 3, Terms::AsTheOperand), Silent("2/6"));
    EXPECT_EQ(SmallQuotient("2/2", 2), Silent("1/2"));
}

TEST(RationalScaleSmall, MultipliesAndDividesInOneGo) {
    WidthScope scope(1);
    RationalBuffer dest;
    RationalScaleSmall(dest, RationalBuffer("-9/10"), 4, 3);
    EXPECT_EQ(TakeOutcome(dest), Silent("-6/5"));
    RationalScaleSmall(dest, RationalBuffer("18446744073709551615/2"), 4, 5);
    EXPECT_EQ(TakeOutcome(dest), Silent("7378697629483820646"));
    RationalScaleSmall(dest, RationalBuffer("0"), 4, 3);
    EXPECT_EQ(TakeOutcome(dest), Silent("0"));
    RationalScaleSmall(dest, RationalBuffer("18446744073709551615"), 4, 7);
    EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorOverflow));
    RationalScaleSmall(dest, RationalBuffer("7"), 1, 0);
    EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorExactDivisionByZero));
}

// Only the lowest bit of the sign word is a sign, and results carry no other.
TEST(RationalArithmetic, ReadsOneBitOfTheSignWord) {
    WidthScope scope(2);
    RationalBuffer minus("3/4");
    RationalBuffer plus("1/4");
    RationalBuffer dest;
    minus->sign = 7;
    plus->sign = 2;
    RationalAddSub(dest, minus, plus, false);
    EXPECT_EQ(TakeOutcome(dest), Silent("-1/2"));
    RationalAddSub(dest, minus, plus, true);
    EXPECT_EQ(TakeOutcome(dest), Silent("-1"));
    RationalMulDiv(dest, minus, plus, true);
    EXPECT_EQ(TakeOutcome(dest), Silent("-3"));
    RationalMulSmall(dest, minus, 4);
    EXPECT_EQ(TakeOutcome(dest), Silent("-3"));
    RationalDivSmall(dest, plus, 2);
    EXPECT_EQ(TakeOutcome(dest), Silent("1/8"));
}

// The longest operands of the calculator's fractions.
TEST(RationalArithmetic, WorksWithFullWidthOperands) {
    WidthScope scope(520);
    RationalBuffer a("2^33280-1/2^33280-3");
    RationalBuffer b("2^33280-3/2^33280-5");
    RationalBuffer dest;
    RationalMulDiv(dest, a, b, false);
    EXPECT_EQ(dest, RationalBuffer("2^33280-1/2^33280-5"));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    RationalMulDiv(dest, dest, b, true);
    EXPECT_EQ(dest, a);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    RationalMulDiv(dest, a, b, true);
    EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorOverflow));
    RationalAddSub(dest, a, b, false);
    EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorOverflow));
    RationalAddSub(dest, a, a, true);
    EXPECT_EQ(TakeOutcome(dest), Silent("-0"));
}

}  // namespace
}  // namespace tallymere
