#include "functions/series.h"

#include <gtest/gtest.h>

#include <string>

#include "core/real_layout.h"
#include "core/real_rounding.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(SeriesEnds, WhenTheTermLiesAllDigitsButOneBelowTheSum) {
    PrecisionScope scope(20);
    const RealBuffer sum("5e7");
    EXPECT_FALSE(SeriesEnds(sum, RealBuffer("5e7")));
    EXPECT_FALSE(SeriesEnds(sum, RealBuffer("9e9")));
    EXPECT_FALSE(SeriesEnds(sum, RealBuffer("-1e-11")));
    EXPECT_TRUE(SeriesEnds(sum, RealBuffer("9.99e-12")));
    EXPECT_TRUE(
        SeriesEnds(RealBuffer("9e4611686018427387903"), RealBuffer("1e-4611686018427387903")));
    EXPECT_FALSE(
        SeriesEnds(RealBuffer("1e-4611686018427387903"), RealBuffer("9e4611686018427387903")));
}

TEST(SeriesEnds, AtOnceAtOneDigit) {
    PrecisionScope scope(1);
    EXPECT_TRUE(SeriesEnds(RealBuffer("1"), RealBuffer("9")));
    EXPECT_FALSE(SeriesEnds(RealBuffer("1"), RealBuffer("10")));
}

TEST(SeriesEnds, OnASpecialValueOnEitherSide) {
    PrecisionScope scope(20);
    for (const char* text : {"0", "-0", "inf", "-inf", "nan"}) {
        EXPECT_TRUE(SeriesEnds(RealBuffer(text), RealBuffer("1")));
        EXPECT_TRUE(SeriesEnds(RealBuffer("1"), RealBuffer(text)));
    }
}

// Artanh of 10^-4: each term has 8 more digits than the one before. Its terms reach 19 digits below
// the sum with the third, x^7 / 7.
TEST(SeriesAtanh, CountsTheTermsThatItAdds) {
    {
        PrecisionScope scope(20);
        RealBuffer dest;
        EXPECT_EQ(SeriesAtanh(dest, RealBuffer("1e-4")), 3);
        EXPECT_EQ(PlainText(dest), "1.0000000033333333533e-4");
    }
    {
        PrecisionScope scope(9);
        RealBuffer dest;
        EXPECT_EQ(SeriesAtanh(dest, RealBuffer("1e-4")), 1);
    }
    {
        PrecisionScope scope(10);
        RealBuffer dest;
        EXPECT_EQ(SeriesAtanh(dest, RealBuffer("1e-4")), 1);
    }
    {
        PrecisionScope scope(11);
        RealBuffer dest;
        EXPECT_EQ(SeriesAtanh(dest, RealBuffer("1e-4")), 2);
    }
}

TEST(SeriesAtanh, EndsOnAZeroAfterItsFirstTerm) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer dest;
        EXPECT_EQ(SeriesAtanh(dest, RealBuffer("0")), 1);
        EXPECT_EQ(PlainText(dest), "0");
    }
}

TEST(Series, OfZeroAreExact) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        const RealBuffer zero("0");
        RealBuffer a;
        RealBuffer b;
        SeriesCos(a, zero);
        EXPECT_EQ(PlainText(a), "1e0");
        SeriesSinCos(a, b, zero);
        EXPECT_EQ(PlainText(a), "0");
        EXPECT_EQ(PlainText(b), "1e0");
        SeriesSinhCosh(a, b, zero);
        EXPECT_EQ(PlainText(a), "0");
        EXPECT_EQ(PlainText(b), "1e0");
    }
}

// The term that ends the series is a zero of the other sign, and 0 + (-0) is -0.
TEST(SeriesSin, FlipsTheSignOfZero) {
    PrecisionScope scope(20);
    RealBuffer dest;
    SeriesSin(dest, RealBuffer("0"));
    EXPECT_EQ(PlainText(dest), "-0");
    SeriesSin(dest, RealBuffer("-0"));
    EXPECT_EQ(PlainText(dest), "0");
}

// A series at 60 digits, shown rounded to 50.
template <typename Function>
std::string At50Digits(Function function) {
    PrecisionScope scope(60);
    RealBuffer x("0.01");
    function(x.Get());
    RealRoundDigits(x, x, 50);
    return PlainText(x);
}

constexpr const char* Sine = "9.9998333341666646825424382690997290389643853601692e-3";
constexpr const char* Cosine = "9.9995000041666527778025793375220667321247058398028e-1";
constexpr const char* HyperbolicSine = "1.0000166667500001984129739861411738017641560135228e-2";
constexpr const char* HyperbolicCosine = "1.0000500004166680555580357170414482957897206413891e0";

TEST(Series, HaveTheDigitsOfTheirFunctions) {
    EXPECT_EQ(At50Digits([](RealNumber* x) { SeriesAtanh(x, x); }),
              "1.0000333353334762015882107551404223887097308807344e-2");
    EXPECT_EQ(At50Digits([](RealNumber* x) { SeriesSin(x, x); }), Sine);
    EXPECT_EQ(At50Digits([](RealNumber* x) { SeriesCos(x, x); }), Cosine);
}

// Either destination may be the argument.
TEST(Series, OfPairsHaveTheDigitsOfTheirFunctions) {
    EXPECT_EQ(At50Digits([](RealNumber* x) { SeriesSinCos(x, RealBuffer(), x); }), Sine);
    EXPECT_EQ(At50Digits([](RealNumber* x) { SeriesSinCos(RealBuffer(), x, x); }), Cosine);
    EXPECT_EQ(At50Digits([](RealNumber* x) { SeriesSinhCosh(x, RealBuffer(), x); }),
              HyperbolicSine);
    EXPECT_EQ(At50Digits([](RealNumber* x) { SeriesSinhCosh(RealBuffer(), x, x); }),
              HyperbolicCosine);
}

// The last term of e^x is x^3 / 6 = 3.136127287077337039... 10^-19, and the digits behind the first
// are those of the guard limb.
TEST(SeriesExp, ReturnsTheGuardLimbOfItsLastAddition) {
    PrecisionScope scope(20);
    RealBuffer dest;
    const Limb guard = SeriesExp(dest, RealBuffer("1.2345678901e-6"));
    EXPECT_EQ(guard / PowerOfTen(5), 1'361'272'870'773'370'390u / PowerOfTen(5));
}

TEST(Series, KeepTheSignOfAnOddFunction) {
    PrecisionScope scope(20);
    const RealBuffer minus("-0.01");
    RealBuffer dest;
    RealBuffer other;
    SeriesAtanh(dest, minus);
    EXPECT_EQ(PlainText(dest).substr(0, 9), "-1.000033");
    SeriesSin(dest, minus);
    EXPECT_EQ(PlainText(dest).substr(0, 9), "-9.999833");
    SeriesSinCos(dest, other, minus);
    EXPECT_EQ(PlainText(dest).substr(0, 9), "-9.999833");
    EXPECT_EQ(PlainText(other).substr(0, 8), "9.999500");
    SeriesSinhCosh(dest, other, minus);
    EXPECT_EQ(PlainText(dest).substr(0, 9), "-1.000016");
    EXPECT_EQ(PlainText(other).substr(0, 8), "1.000050");
}

}  // namespace
}  // namespace tallymere
