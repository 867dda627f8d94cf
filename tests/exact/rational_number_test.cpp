#include "exact/rational_number.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/rational_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(RationalNumber, IsASignWordAndTwoIntegers) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(RationalWords(), 2 * limbs + 1);
        RationalBuffer q("-2^60/3");
        const uint64_t* words = reinterpret_cast<const uint64_t*>(q.Get());
        EXPECT_EQ(words[0], 1u);
        EXPECT_EQ(RationalNumerator(q), words + 1);
        EXPECT_EQ(words[1], uint64_t{1} << 60);
        EXPECT_EQ(RationalDenominator(q), words + 1 + limbs);
        EXPECT_EQ(words[1 + limbs], 3u);
    }
}

TEST(RationalNumber, IsMadeOfWords) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        RationalBuffer q;
        RationalFromUnsigned(q, 7, 0);
        EXPECT_EQ(q, RationalBuffer("7/1"));
        RationalFromUnsigned(q, ~uint64_t{0}, 1);
        EXPECT_EQ(q, RationalBuffer("-18446744073709551615/1"));
        RationalSetZero(q);
        EXPECT_EQ(q, RationalBuffer("0/1"));
    }
}

TEST(RationalNumber, StandsAtZeroWithACodeAfterAFailure) {
    WidthScope scope(2);
    RationalBuffer q("-3/4");
    RationalFailOnCode(q);
    EXPECT_EQ(TakeOutcome(q), Silent("-3/4"));
    RationalSetFailed(q);
    EXPECT_EQ(TakeOutcome(q), Refused(CalcErrorUndefined));
    q = RationalBuffer("-3/4");
    SetCalcError(CalcErrorOverflow);
    RationalFailOnCode(q);
    EXPECT_EQ(TakeOutcome(q), Refused(CalcErrorOverflow));
    SetCalcError(CalcErrorCancelled);
    RationalSetFailed(q);
    EXPECT_EQ(TakeOutcome(q), Refused(CalcErrorCancelled));
}

TEST(RationalNumber, CopiesEveryWord) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        RandomSource random;
        RationalBuffer source;
        RationalBuffer dest;
        FillRational(random, source, limbs);
        source->sign = 6;
        RationalCopy(dest, source);
        EXPECT_EQ(dest, source);
        RationalCopy(dest, dest);
        EXPECT_EQ(dest, source);
    }
}

TEST(RationalNumber, NegatesZeroToo) {
    WidthScope scope(2);
    RationalBuffer q("3/4");
    RationalNegate(q);
    EXPECT_EQ(TakeOutcome(q), Silent("-3/4"));
    RationalNegate(q);
    EXPECT_EQ(TakeOutcome(q), Silent("3/4"));
    RationalSetZero(q);
    RationalNegate(q);
    EXPECT_EQ(TakeOutcome(q), Silent("-0"));
}

TEST(RationalNumber, KnowsZerosAndIntegers) {
    WidthScope scope(2);
    EXPECT_TRUE(RationalIsZero(RationalBuffer("0")));
    EXPECT_TRUE(RationalIsZero(RationalBuffer("-0")));
    EXPECT_FALSE(RationalIsZero(RationalBuffer("2^64")));
    EXPECT_TRUE(RationalIsInteger(RationalBuffer("-0")));
    EXPECT_TRUE(RationalIsInteger(RationalBuffer("-2^64")));
    EXPECT_FALSE(RationalIsInteger(RationalBuffer("1/2")));
    EXPECT_FALSE(RationalIsInteger(RationalBuffer("1/2^64+1")));
}

TEST(RationalNumber, IsWellFormedWithASignAndADenominator) {
    WidthScope scope(2);
    for (const char* text : {"0", "-0", "3/4", "-3/4", "6/8", "0/7", "2^127/2^64+1"}) {
        EXPECT_TRUE(RationalIsWellFormed(RationalBuffer(text))) << text;
        EXPECT_TRUE(RationalHasValue(RationalBuffer(text))) << text;
    }
    for (const char* text : {"0/0", "3/0", "-2^127/0"}) {
        EXPECT_FALSE(RationalIsWellFormed(RationalBuffer(text))) << text;
        EXPECT_FALSE(RationalHasValue(RationalBuffer(text))) << text;
    }
    RationalBuffer q("3/4");
    for (const uint64_t word : {2ull, 3ull, 1ull << 63}) {
        q->sign = word;
        EXPECT_FALSE(RationalIsWellFormed(q)) << word;
    }
}

TEST(RationalNumber, IsInLowestTermsWithoutACommonFactor) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const char* text : {"0", "-0", "1", "-7", "3/4", "1/18446744073709551615"}) {
            EXPECT_TRUE(RationalIsInLowestTerms(RationalBuffer(text))) << text;
        }
        for (const char* text : {"0/2", "2/2", "-6/8", "5/0"}) {
            EXPECT_FALSE(RationalIsInLowestTerms(RationalBuffer(text))) << text;
        }
    }
}

TEST(RationalNumber, IsTheSameAsAnotherOrApartFromIt) {
    WidthScope scope(2);
    std::vector<uint64_t> words(static_cast<size_t>(2 * RationalWords()));
    const RationalNumber* q = RationalAt(words.data());
    EXPECT_TRUE(RationalsAreSameOrApart(q, q));
    EXPECT_TRUE(RationalsAreSameOrApart(q, RationalAt(words.data() + RationalWords())));
    EXPECT_FALSE(RationalsAreSameOrApart(q, RationalAt(words.data() + 1)));
    EXPECT_FALSE(RationalsAreSameOrApart(RationalAt(words.data() + RationalWords() - 1), q));
}

TEST(RationalNumber, LooksAtOneBitOfTheSignWord) {
    WidthScope scope(1);
    RationalBuffer q("5");
    for (const uint64_t word : {0ull, 1ull, 2ull, 3ull, ~1ull, ~0ull}) {
        q->sign = word;
        EXPECT_EQ(RationalSign(q), word & 1);
    }
}

}  // namespace
}  // namespace tallymere
