#include "core/real_rounding.h"

#include <gtest/gtest.h>

#include <string>

#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr Limb AllNines = LimbBase - 1;

std::string Nines(int64_t count) {
    return std::string(static_cast<size_t>(count), '9');
}

std::string Rounded(std::string_view text, Limb guard) {
    RealBuffer x(text);
    RealRound(x, guard);
    return PlainText(x);
}

TEST(RealRound, LeavesTheNumberBelowHalf) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Rounded("1", 0), "1e0");
        EXPECT_EQ(Rounded("1", HalfGuard - 1), "1e0");
    }
}

TEST(RealRound, AddsOneToTheLastDigitFromHalfOnWhateverTheSign) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        std::string last = p == 1 ? "2" : "1." + std::string(static_cast<size_t>(p - 2), '0') + "1";
        for (Limb guard : {HalfGuard, HalfGuard + 1, AllNines}) {
            EXPECT_EQ(Rounded("1", guard), last + "e0");
            EXPECT_EQ(Rounded("-1e-7", guard), "-" + last + "e-7");
        }
    }
}

TEST(RealRound, CarriesThroughAllNinesIntoTheExponent) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Rounded(Nines(p) + "e3", HalfGuard), "1e" + std::to_string(p + 3));
        EXPECT_EQ(Rounded("-" + Nines(p), HalfGuard), "-1e" + std::to_string(p));
        EXPECT_EQ(Rounded(Nines(p), HalfGuard - 1), PlainText(RealBuffer(Nines(p))));
    }
}

TEST(RealRound, StopsTheCarryAtTheFirstLimbThatIsNotFull) {
    PrecisionScope scope(57);
    EXPECT_EQ(Rounded("8" + Nines(56), HalfGuard), "9e56");
    EXPECT_EQ(Rounded("1" + std::string(18, '0') + Nines(38), HalfGuard),
              "1." + std::string(17, '0') + "1e56");
}

TEST(RealRound, MakesAnInfinityOfACarryAtTheTopOfTheExponentRange) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        RealBuffer x(Nines(p));
        x.Get()->header = MakeHeader(MaxExponent, 0);
        RealRound(x, HalfGuard);
        EXPECT_EQ(PlainText(x), "inf");
        EXPECT_EQ(TakeCode(), CalcErrorOverflow);

        RealBuffer silent("-" + Nines(p));
        silent.Get()->header = MakeHeader(MaxExponent, 1);
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        RealRound(silent, AllNines);
        EXPECT_EQ(PlainText(silent), "-inf");
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST(RealRound, LeavesSpecialValues) {
    for (int64_t p : {1, 19, 20, 57}) {
        PrecisionScope scope(p);
        for (const char* text : {"0", "-0", "inf", "-inf", "nan"}) {
            EXPECT_EQ(Rounded(text, AllNines), text);
        }
    }
}

TEST(RealRound, DoesNothingUnderNoRounding) {
    PrecisionScope scope(20);
    FieldScope<uint8_t> truncate(numberContext.noRounding, 1);
    EXPECT_EQ(Rounded(Nines(20), AllNines), PlainText(RealBuffer(Nines(20))));
}

// Rounding to digits.

// text rounded to d digits, also with dest the operand.
std::string RoundedTo(std::string_view text, int64_t d) {
    const RealBuffer x(text);
    const RealBuffer before = x;
    RealBuffer result;
    RealRoundDigits(result, x, d);
    EXPECT_EQ(x, before);
    RealBuffer inPlace = x;
    RealRoundDigits(inPlace, inPlace, d);
    EXPECT_EQ(inPlace, result);
    return PlainText(result);
}

TEST(RealRoundDigits, CopiesFromThePrecisionOn) {
    PrecisionScope scope(20);
    for (int64_t d : {20, 21, 1000}) {
        EXPECT_EQ(RoundedTo("-9.8765432109876543219e-5", d), "-9.8765432109876543219e-5");
    }
}

TEST(RealRoundDigits, RoundsHalfUpInMagnitudeAtEveryDigit) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (int64_t d = 1; d < p; d++) {
            SCOPED_TRACE(d);
            const std::string kept = "1" + std::string(static_cast<size_t>(d - 1), '3');
            std::string up = kept;
            up.back()++;
            const auto shown = [](const std::string& digits) {
                return PlainText(RealBuffer(digits));
            };
            const auto at = [&](const std::string& digits) {
                return digits + std::string(static_cast<size_t>(p) - digits.size(), '0');
            };
            EXPECT_EQ(RoundedTo(at(kept + "5"), d), shown(at(up)));
            EXPECT_EQ(RoundedTo("-" + at(kept + "5"), d), "-" + shown(at(up)));
            EXPECT_EQ(RoundedTo(kept + "4" + Nines(p - d - 1), d), shown(at(kept)));
            EXPECT_EQ(RoundedTo(kept + Nines(p - d), d), shown(at(up)));
            EXPECT_EQ(RoundedTo(Nines(p), d), "1e" + std::to_string(p));
        }
    }
}

TEST(RealRoundDigits, CarriesThroughNinesIntoTheDigitBeforeThem) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (int64_t front = 1; front < p; front++) {
            const std::string kept = "1" + std::string(static_cast<size_t>(front - 1), '3');
            std::string up = kept;
            up.back()++;
            const std::string rest = "e" + std::to_string(p - front);
            for (int64_t d = front; d < p; d++) {
                EXPECT_EQ(RoundedTo(kept + Nines(p - front), d), PlainText(RealBuffer(up + rest)))
                    << kept << " and nines to " << d << " digits";
            }
        }
    }
}

TEST(RealRoundDigits, TruncatesUnderNoRounding) {
    PrecisionScope scope(38);
    FieldScope<uint8_t> truncate(numberContext.noRounding, 1);
    EXPECT_EQ(RoundedTo(Nines(38), 3), "9.99e37");
    EXPECT_EQ(RoundedTo(Nines(38), 19), "9." + Nines(18) + "e37");
}

TEST(RealRoundDigits, MakesAnInfinityAboveTheExponentRange) {
    PrecisionScope scope(20);
    RealBuffer x("-" + Nines(20));
    x.Get()->header = MakeHeader(MaxExponent, 1);
    RealBuffer result;
    RealRoundDigits(result, x, 4);
    EXPECT_EQ(PlainText(result), "-inf");
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
    RealRoundDigits(result, x, 1);
    EXPECT_EQ(PlainText(result), "-inf");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

// Tests for integers.

bool IsInteger(std::string_view text) {
    return RealIsInteger(RealBuffer(text));
}

TEST(RealIsInteger, KnowsSpecialValuesAndFractions) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_TRUE(IsInteger("0"));
        EXPECT_TRUE(IsInteger("-0"));
        EXPECT_FALSE(IsInteger("inf"));
        EXPECT_FALSE(IsInteger("-inf"));
        EXPECT_FALSE(IsInteger("nan"));
        EXPECT_FALSE(IsInteger("0.5"));
        EXPECT_FALSE(IsInteger("-9e-1"));
        EXPECT_TRUE(IsInteger("1"));
        EXPECT_TRUE(IsInteger("-7e300"));
    }
}

TEST(RealIsInteger, TestsEveryDigitBehindTheUnits) {
    for (int64_t p : {2, 3, 18, 19, 20, 38, 39, 57}) {
        PrecisionScope scope(p);
        for (int64_t digit = 1; digit < p; digit++) {
            SCOPED_TRACE(digit);
            // 1 and one more digit 1 behind it, at every exponent around that digit.
            const std::string digits =
                "1." + std::string(static_cast<size_t>(digit - 1), '0') + "1";
            for (int64_t exponent = 0; exponent < p + 2; exponent++) {
                EXPECT_EQ(IsInteger(digits + "e" + std::to_string(exponent)), exponent >= digit);
            }
        }
    }
}

TEST(RealIsInteger, TakesAFullMantissaBeforeThePointWithoutALookAtIt) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_TRUE(IsInteger(Nines(p)));
        EXPECT_EQ(IsInteger(Nines(p) + "e-1"), false);
    }
}

TEST(RealIsEven, ReadsTheUnitsDigit) {
    for (int64_t p : {1, 2, 18, 19, 20, 38, 39, 57}) {
        PrecisionScope scope(p);
        for (int64_t units = 0; units < p; units++) {
            for (char digit = '0'; digit <= '9'; digit++) {
                // `units` digits 7, then the units digit, then 3s behind the point.
                std::string digits = std::string(static_cast<size_t>(units), '7') + digit;
                if (digits == "0") {
                    continue;
                }
                digits.append(static_cast<size_t>(p) - digits.size(), '3');
                RealBuffer x(digits);
                x.Get()->header = MakeHeader(units, digit % 2 == 0 ? 1 : 0);
                EXPECT_EQ(RealIsEven(x), (digit - '0') % 2 == 0) << PlainText(x);
            }
        }
    }
}

TEST(RealIsEven, KnowsSpecialValuesAndValuesWithoutAUnitsDigit) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_TRUE(RealIsEven(RealBuffer("0")));
        EXPECT_TRUE(RealIsEven(RealBuffer("-0")));
        EXPECT_FALSE(RealIsEven(RealBuffer("inf")));
        EXPECT_FALSE(RealIsEven(RealBuffer("-inf")));
        EXPECT_FALSE(RealIsEven(RealBuffer("nan")));
        EXPECT_TRUE(RealIsEven(RealBuffer("0.7")));
        RealBuffer large(Nines(p));
        EXPECT_FALSE(RealIsEven(large));
        large.Get()->header = MakeHeader(p, 0);
        EXPECT_TRUE(RealIsEven(large));
    }
}

// Integer and fraction part.

std::string IntegerPart(std::string_view text) {
    RealBuffer x(text);
    RealBuffer result;
    RealIntegerPart(result, x);
    RealIntegerPart(x, x);
    EXPECT_EQ(x, result);
    return PlainText(result);
}

std::string FractionPart(std::string_view text) {
    RealBuffer x(text);
    RealBuffer result;
    RealFractionPart(result, x);
    RealFractionPart(x, x);
    EXPECT_EQ(x, result);
    return PlainText(result);
}

TEST(RealIntegerPart, CopiesSpecialValuesAndClearsMagnitudesBelowOne) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* text : {"0", "-0", "inf", "-inf", "nan"}) {
            EXPECT_EQ(IntegerPart(text), text);
        }
        EXPECT_EQ(IntegerPart("0.9"), "0");
        EXPECT_EQ(IntegerPart("-9e-30"), "-0");
        EXPECT_EQ(IntegerPart(Nines(p)), PlainText(RealBuffer(Nines(p))));
        EXPECT_EQ(IntegerPart("-" + Nines(p) + "e40"),
                  PlainText(RealBuffer("-" + Nines(p) + "e40")));
    }
}

RealBuffer ToInteger(std::string_view text) {
    const RealBuffer x(text);
    RealBuffer dest;
    RealRoundToInteger(dest, x);
    RealBuffer same = x;
    RealRoundToInteger(same, same);
    EXPECT_EQ(same, dest) << "in place";
    return dest;
}

TEST(RealRoundToInteger, TakesHalvesAwayFromZero) {
    for (const int64_t p : {6, 9, 16, 19, 20, 38, 39, 57, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(ToInteger("2.5"), RealBuffer("3"));
        EXPECT_EQ(ToInteger("-2.5"), RealBuffer("-3"));
        EXPECT_EQ(ToInteger("2.4999"), RealBuffer("2"));
        EXPECT_EQ(ToInteger("9.5"), RealBuffer("10"));
        EXPECT_EQ(ToInteger("99999.5"), RealBuffer("100000"));
        EXPECT_EQ(ToInteger("-1.49"), RealBuffer("-1"));
        EXPECT_EQ(ToInteger("7"), RealBuffer("7"));
        EXPECT_EQ(ToInteger("-1.25e99"), RealBuffer("-1.25e99"));
    }
}

TEST(RealRoundToInteger, BelowOneGoesByTheFirstDecimal) {
    for (const int64_t p : {1, 2, 18, 19, 20, 57}) {
        PrecisionScope scope(p);
        EXPECT_EQ(ToInteger("0.5"), RealBuffer("1"));
        EXPECT_EQ(ToInteger("-0.5"), RealBuffer("-1"));
        EXPECT_EQ(ToInteger("0.9"), RealBuffer("1"));
        EXPECT_EQ(ToInteger("0.4"), RealBuffer("0"));
        EXPECT_EQ(ToInteger("-0.4"), RealBuffer("-0"));
        EXPECT_EQ(ToInteger("-0.04"), RealBuffer("-0"));
        EXPECT_EQ(ToInteger("0.09"), RealBuffer("0"));
        EXPECT_EQ(ToInteger("9e-100"), RealBuffer("0"));
    }
    PrecisionScope scope(20);
    EXPECT_EQ(ToInteger("0.49999999999999999999"), RealBuffer("0"));
}

TEST(RealRoundToInteger, CopiesSpecialValues) {
    PrecisionScope scope(20);
    EXPECT_EQ(ToInteger("-0"), RealBuffer("-0"));
    EXPECT_EQ(ToInteger("0"), RealBuffer("0"));
    EXPECT_EQ(ToInteger("-inf"), RealBuffer("-inf"));
    EXPECT_EQ(ToInteger("nan"), RealBuffer("nan"));
}

TEST(RealRoundToInteger, LeavesHugeNumbersAlone) {
    PrecisionScope scope(20);
    EXPECT_EQ(ToInteger("1.5e2147483646"), RealBuffer("1.5e2147483646"));
    EXPECT_EQ(ToInteger("1.5e2147483648"), RealBuffer("1.5e2147483648"));
    EXPECT_EQ(ToInteger("1.5e4611686018427387903"), RealBuffer("1.5e4611686018427387903"));
}

TEST(RealFractionPart, GivesSignedZeroForZeroInfinityAndIntegers) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(FractionPart("0"), "0");
        EXPECT_EQ(FractionPart("-0"), "-0");
        EXPECT_EQ(FractionPart("inf"), "0");
        EXPECT_EQ(FractionPart("-inf"), "-0");
        EXPECT_EQ(FractionPart("nan"), "nan");
        EXPECT_EQ(FractionPart("-7"), "-0");
        EXPECT_EQ(FractionPart("7e99"), "0");
        EXPECT_EQ(FractionPart(Nines(p)), "0");
        EXPECT_EQ(FractionPart("-0.5"), "-5e-1");
        EXPECT_EQ(FractionPart("1e-70"), "1e-70");
    }
}

TEST(RealIntegerAndFractionPart, CutTheNumberAtEveryDigit) {
    for (int64_t p : {2, 3, 16, 18, 19, 20, 37, 38, 39, 57}) {
        PrecisionScope scope(p);
        std::string digits;
        for (int64_t i = 0; i < p; i++) {
            digits += static_cast<char>('1' + i % 9);
        }
        for (int64_t whole = 1; whole < p; whole++) {
            const std::string front = digits.substr(0, static_cast<size_t>(whole));
            const std::string back = digits.substr(static_cast<size_t>(whole));
            const std::string text = "-" + front + "." + back;
            EXPECT_EQ(IntegerPart(text), PlainText(RealBuffer("-" + front)));
            EXPECT_EQ(FractionPart(text), PlainText(RealBuffer("-0." + back)));
        }
    }
}

TEST(RealFractionPart, MovesTheFirstNonZeroDigitToTheFront) {
    for (int64_t p : {3, 20, 39, 57, 100}) {
        PrecisionScope scope(p);
        for (int64_t zeros = 0; zeros + 2 <= p; zeros++) {
            const std::string text = "4." + std::string(static_cast<size_t>(zeros), '0') + "8";
            EXPECT_EQ(FractionPart(text), "8e" + std::to_string(-zeros - 1));
        }
    }
}

}  // namespace
}  // namespace tallymere
