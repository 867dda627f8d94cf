#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "exact/rational_arithmetic.h"
#include "support/rational_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Quotient and remainder as "quotient, remainder", and the code.
Outcome DivMod(const char* a, const char* b) {
    RationalBuffer quotient;
    RationalBuffer remainder;
    RationalDivMod(quotient, remainder, RationalBuffer(a), RationalBuffer(b));
    EXPECT_TRUE(IsResult(quotient));
    EXPECT_TRUE(IsResult(remainder));
    return {RationalPlainText(quotient) + ", " + RationalPlainText(remainder), TakeCode()};
}

TEST(RationalDivMod, DividesIntegers) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(DivMod("7", "2"), Silent("3, 1"));
        EXPECT_EQ(DivMod("6", "2"), Silent("3, 0"));
        EXPECT_EQ(DivMod("2", "7"), Silent("0, 2"));
        EXPECT_EQ(DivMod("0", "7"), Silent("0, 0"));
    }
}

TEST(RationalDivMod, DividesFractions) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(DivMod("7/2", "2/3"), Silent("5, 1/6"));
        EXPECT_EQ(DivMod("7/2", "1/2"), Silent("7, 0"));
        EXPECT_EQ(DivMod("1/2", "3"), Silent("0, 1/2"));
        EXPECT_EQ(DivMod("7", "3/2"), Silent("4, 1"));
        EXPECT_EQ(DivMod("0", "3/2"), Silent("0, 0"));
        EXPECT_EQ(DivMod("5/6", "1/4"), Silent("3, 1/12"));
    }
}

// The remainder has the sign of the quotient and not that of the dividend.
TEST(RationalDivMod, GivesBothResultsTheSignOfTheQuotient) {
    WidthScope scope(2);
    EXPECT_EQ(DivMod("-7", "2"), Silent("-3, -1"));
    EXPECT_EQ(DivMod("7", "-2"), Silent("-3, -1"));
    EXPECT_EQ(DivMod("-7", "-2"), Silent("3, 1"));
    EXPECT_EQ(DivMod("-6", "2"), Silent("-3, -0"));
    EXPECT_EQ(DivMod("-2", "7"), Silent("-0, -2"));
    EXPECT_EQ(DivMod("-7/2", "2/3"), Silent("-5, -1/6"));
    EXPECT_EQ(DivMod("7/2", "-2/3"), Silent("-5, -1/6"));
    EXPECT_EQ(DivMod("-7/2", "-2/3"), Silent("5, 1/6"));
    EXPECT_EQ(DivMod("-7/2", "1/2"), Silent("-7, -0"));
    EXPECT_EQ(DivMod("-0", "1/2"), Silent("-0, -0"));
}

TEST(RationalDivMod, ReportsADivisionByZero) {
    WidthScope scope(2);
    const Outcome refused = {"0, 0", CalcErrorExactDivisionByZero};
    for (const char* zero : {"0", "-0"}) {
        for (const char* a : {"0", "5", "-5", "5/3"}) {
            EXPECT_EQ(DivMod(a, zero), refused);
        }
    }
}

TEST(RationalDivMod, GivesOneResultAlone) {
    WidthScope scope(2);
    RationalBuffer result;
    RationalDivMod(result, nullptr, RationalBuffer("7/2"), RationalBuffer("2/3"));
    EXPECT_EQ(TakeOutcome(result), Silent("5"));
    RationalDivMod(nullptr, result, RationalBuffer("7/2"), RationalBuffer("2/3"));
    EXPECT_EQ(TakeOutcome(result), Silent("1/6"));
    RationalDivMod(result, nullptr, RationalBuffer("-7"), RationalBuffer("2"));
    EXPECT_EQ(TakeOutcome(result), Silent("-3"));
    RationalDivMod(nullptr, result, RationalBuffer("-7"), RationalBuffer("2"));
    EXPECT_EQ(TakeOutcome(result), Silent("-1"));
    RationalDivMod(nullptr, result, RationalBuffer("-7"), RationalBuffer("0"));
    EXPECT_EQ(TakeOutcome(result), Refused(CalcErrorExactDivisionByZero));
    RationalDivMod(nullptr, nullptr, RationalBuffer("7/3"), RationalBuffer("2"));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

// One that is not asked for is not narrowed.
TEST(RationalDivMod, OverflowsWhenAResultThatIsAskedForDoesNotFit) {
    WidthScope scope(1);
    EXPECT_EQ(DivMod("18446744073709551615/2", "2/3"), Silent("13835058055282163711, 1/6"));
    const Outcome refused = {"0, 0", CalcErrorOverflow};
    RationalBuffer result;
    const RationalBuffer largest("18446744073709551615");
    EXPECT_EQ(DivMod("18446744073709551615", "2/3"), refused);
    RationalDivMod(result, nullptr, largest, RationalBuffer("2/3"));
    EXPECT_EQ(TakeOutcome(result), Refused(CalcErrorOverflow));
    RationalDivMod(nullptr, result, largest, RationalBuffer("2/3"));
    EXPECT_EQ(TakeOutcome(result), Silent("1/3"));

    const RationalBuffer a("1/1099511627689");
    const RationalBuffer b("1/1099511627776");
    EXPECT_EQ(DivMod("1/1099511627689", "1/1099511627776"), refused);
    RationalDivMod(nullptr, result, a, b);
    EXPECT_EQ(TakeOutcome(result), Refused(CalcErrorOverflow));
    RationalDivMod(result, nullptr, a, b);
    EXPECT_EQ(TakeOutcome(result), Silent("1"));
}

TEST(RationalDivMod, WritesOverItsOperands) {
    for (const char* text : {"7", "7/2", "-45/4"}) {
        for (const char* other : {"2", "2/3", "-5/6", "0"}) {
            WidthScope scope(2);
            const Outcome expected = DivMod(text, other);
            for (int places = 0; places < 2; places++) {
                RationalBuffer a(text);
                RationalBuffer b(other);
                RationalBuffer& quotient = places == 0 ? a : b;
                RationalBuffer& remainder = places == 0 ? b : a;
                RationalDivMod(quotient, remainder, a, b);
                EXPECT_EQ(
                    (Outcome{RationalPlainText(quotient) + ", " + RationalPlainText(remainder),
                             TakeCode()}),
                    expected)
                    << text << " by " << other << ", order " << places;
            }
            for (const bool inFirst : {true, false}) {
                RationalBuffer a(text);
                RationalBuffer b(other);
                RationalBuffer own;
                RationalDivMod(inFirst ? a : b, own, a, b);
                EXPECT_EQ(
                    (Outcome{RationalPlainText(inFirst ? a : b) + ", " + RationalPlainText(own),
                             TakeCode()}),
                    expected);
                a = RationalBuffer(text);
                b = RationalBuffer(other);
                RationalDivMod(own, inFirst ? a : b, a, b);
                EXPECT_EQ(
                    (Outcome{RationalPlainText(own) + ", " + RationalPlainText(inFirst ? a : b),
                             TakeCode()}),
                    expected);
            }
        }
    }
}

TEST(RationalDivMod, DividesANumberByItself) {
    WidthScope scope(2);
    for (const char* text : {"7", "7/2", "-45/4"}) {
        RationalBuffer a(text);
        RationalBuffer remainder;
        RationalDivMod(a, remainder, a, a);
        EXPECT_EQ(TakeOutcome(a), Silent("1"));
        EXPECT_EQ(TakeOutcome(remainder), Silent("0"));
    }
}

// a = quotient b + remainder in magnitude, with 0 <= remainder < |b|.
TEST(RationalDivMod, PutsItsPartsTogetherAgain) {
    RandomSource random;
    for (const int64_t limbs : {4, 26, 520}) {
        WidthScope scope(limbs);
        for (int round = TestRounds(limbs < 100 ? 2000 : 20); round > 0; round--) {
            RationalBuffer a;
            RationalBuffer b;
            // Short enough for every result to fit.
            FillRational(random, a, limbs / 4);
            FillRational(random, b, limbs / 4);
            if (RationalIsZero(b)) {
                continue;
            }
            RationalBuffer quotient;
            RationalBuffer remainder;
            RationalDivMod(quotient, remainder, a, b);
            const uint64_t sign = RationalSign(a) ^ RationalSign(b);
            EXPECT_EQ(quotient->sign, sign);
            EXPECT_EQ(remainder->sign, sign);
            EXPECT_TRUE(RationalIsInteger(quotient));
            EXPECT_EQ(RationalCompare(remainder, b, true), -1);
            RationalBuffer sum;
            RationalMulDiv(sum, quotient, b, false);
            sum->sign = 0;
            remainder->sign = 0;
            RationalAddSub(sum, sum, remainder, false);
            a->sign = 0;
            EXPECT_EQ(sum, a);
            EXPECT_EQ(TakeCode(), CalcErrorNone);
        }
    }
}

TEST(RationalReciprocal, ExchangesThePartsAndKeepsTheSign) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Apply(RationalReciprocal, "3/4"), Silent("4/3"));
        EXPECT_EQ(Apply(RationalReciprocal, "-3/4"), Silent("-4/3"));
        EXPECT_EQ(Apply(RationalReciprocal, "5"), Silent("1/5"));
        EXPECT_EQ(Apply(RationalReciprocal, "-1/5"), Silent("-5"));
        EXPECT_EQ(Apply(RationalReciprocal, "0"), Refused(CalcErrorExactDivisionByZero));
        EXPECT_EQ(Apply(RationalReciprocal, "-0"), Refused(CalcErrorExactDivisionByZero));
        RationalBuffer q("-3/4");
        RationalReciprocal(q, q);
        EXPECT_EQ(TakeOutcome(q), Silent("-4/3"));
    }
}

TEST(RationalTrunc, DropsTheFraction) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Apply(RationalTrunc, "7/3"), Silent("2"));
        EXPECT_EQ(Apply(RationalTrunc, "-7/3"), Silent("-2"));
        EXPECT_EQ(Apply(RationalTrunc, "1/3"), Silent("0"));
        EXPECT_EQ(Apply(RationalTrunc, "-1/3"), Silent("-0"));
        EXPECT_EQ(Apply(RationalTrunc, "-5"), Silent("-5"));
        EXPECT_EQ(Apply(RationalTrunc, "0"), Silent("0"));
        EXPECT_EQ(Apply(RationalTrunc, "2/2"), Silent("1"));
        RationalBuffer q("-7/3");
        RationalTrunc(q, q);
        EXPECT_EQ(TakeOutcome(q), Silent("-2"));
    }
}

TEST(RationalFraction, KeepsWhatTruncationDrops) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Apply(RationalFraction, "7/3"), Silent("1/3"));
        EXPECT_EQ(Apply(RationalFraction, "-7/3"), Silent("-1/3"));
        EXPECT_EQ(Apply(RationalFraction, "1/3"), Silent("1/3"));
        EXPECT_EQ(Apply(RationalFraction, "5"), Silent("0"));
        EXPECT_EQ(Apply(RationalFraction, "-5"), Silent("-0"));
        RationalBuffer q("-7/3");
        RationalFraction(q, q);
        EXPECT_EQ(TakeOutcome(q), Silent("-1/3"));
    }
}

// The denominator stays, so a number out of lowest terms leaves a zero that is too.
TEST(RationalFraction, KeepsTheDenominatorOfANumberOutOfLowestTerms) {
    WidthScope scope(2);
    EXPECT_EQ(Apply(RationalFraction, "2/2", Terms::AsTheOperand), Silent("0/2"));
    EXPECT_EQ(Apply(RationalFraction, "6/4", Terms::AsTheOperand), Silent("2/4"));
}

TEST(RationalDivision, ReadsOneBitOfTheSignWord) {
    WidthScope scope(2);
    RationalBuffer minus("7/3");
    RationalBuffer plus("2");
    minus->sign = 5;
    plus->sign = 4;
    RationalBuffer dest;
    RationalBuffer remainder;
    RationalDivMod(dest, remainder, minus, plus);
    EXPECT_EQ(TakeOutcome(dest), Silent("-1"));
    EXPECT_EQ(TakeOutcome(remainder), Silent("-1/3"));
    for (const auto& [operation, text] :
         {std::pair<RationalUnary, const char*>{RationalReciprocal, "-3/7"},
          {RationalTrunc, "-2"},
          {RationalFraction, "-1/3"}}) {
        operation(dest, minus);
        EXPECT_EQ(TakeOutcome(dest), Silent(text));
    }
}

}  // namespace
}  // namespace tallymere
