#include "values/exact_conversions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/real_rounding.h"
#include "reference/conversion_twins.h"
#include "support/complex_testing.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Real numbers from integers.

struct RawReal {
    std::string text;
    Limb guard;
    bool operator==(const RawReal&) const = default;
};

void PrintTo(const RawReal& raw, std::ostream* out) {
    *out << raw.text << " with guard limb " << raw.guard;
}

RawReal FromUint(std::string_view integer) {
    const UintBuffer a(integer);
    RealBuffer x;
    const Limb guard = RealFromBigUint(x, a, a.LimbCount());
    return {PlainText(x), guard};
}

// The digits of an integer cut to the precision, and the digit of base 10^19 below. Where the first
// limb has more digits than the integer's, that digit is filled up with zeros.
RawReal CutToPrecision(const std::string& digits) {
    const auto p = static_cast<size_t>(numberContext.precisionDigits);
    RealBuffer x(digits.substr(0, p) + "e" +
                 std::to_string(digits.size() - std::min(p, digits.size())));
    std::string below = digits.size() > p ? digits.substr(p) : "";
    const int64_t leading = static_cast<int64_t>(digits.size() - 1) % 19 + 1;
    const int64_t up = std::max<int64_t>(numberContext.topLimbDigits - leading, 0);
    below.resize(static_cast<size_t>(19 - up), '0');
    below.resize(19, '0');
    return {PlainText(x), std::stoull(below)};
}

TEST(RealFromBigUint, ZeroIsPositiveWhateverItsLength) {
    PrecisionScope scope(20);
    RealBuffer x;
    const uint64_t zeros[3] = {0, 0, 0};
    for (const int64_t m : {0, 1, 3}) {
        EXPECT_EQ(RealFromBigUint(x, zeros, m), 0u);
        EXPECT_EQ(PlainText(x), "0");
    }
}

TEST(RealFromBigUint, KnownValues) {
    WidthScope width(2);
    for (const int64_t p : {5, 19, 20, 38, 57}) {
        PrecisionScope scope(p);
        EXPECT_EQ(FromUint("1"), (RawReal{"1e0", 0}));
        EXPECT_EQ(FromUint("10000000000000000000"), (RawReal{"1e19", 0}));
    }
    PrecisionScope scope(5);
    EXPECT_EQ(FromUint("2^64"), (RawReal{"1.8446e19", 7'440'737'095'516'160'000u}));
    // The first limb has fewer digits than the integer's: those behind come from it and the next.
    EXPECT_EQ(FromUint("12345678901234567890123456"),
              (RawReal{"1.2345e25", 6'789'012'345'678'901'234u}));
    EXPECT_EQ(FromUint("99999999999"), (RawReal{"9.9999e10", 9'999'990'000'000'000'000u}));
}

TEST(RealFromBigUint, CutsTheDigitsAndLeavesTheNextAsGuard) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        WidthScope width(limbs);
        for (int round = 0; round < TestRounds(limbs <= 65 ? 40 : 3); round++) {
            UintBuffer a;
            FillUint(random, a);
            const std::string digits = a.Text();
            if (digits == "0") {
                continue;
            }
            for (const int64_t p : AllPrecisions) {
                if (p > 100 && round % 8 != 0) {
                    continue;
                }
                PrecisionScope scope(p);
                RealBuffer x;
                const Limb guard = RealFromBigUint(x, a, limbs);
                ASSERT_EQ((RawReal{PlainText(x), guard}), CutToPrecision(digits)) << digits;
            }
        }
    }
}

TEST(RealFromBigUint, IsItsTwin) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        WidthScope width(limbs);
        for (int round = 0; round < TestRounds(limbs <= 65 ? 200 : 4); round++) {
            UintBuffer a;
            FillUint(random, a);
            const std::vector<uint64_t> words(a.Get(), a.Get() + limbs);
            if (a.Text() == "0") {
                continue;
            }
            PrecisionScope scope(random.Between(1, std::min(40 * limbs, MaxPrecisionDigits)));
            RealBuffer x;
            const Limb guard = RealFromBigUint(x, a, limbs);
            const reference::LimbResult twin = reference::TwinRealFromWords(words);
            ASSERT_TRUE(std::equal(twin.limbs.begin(), twin.limbs.end(), x.Limbs()));
            ASSERT_EQ(guard, twin.guard);
            ASSERT_EQ(x.Get()->header, static_cast<uint64_t>(twin.count) << 1);
        }
    }
}

TEST(RealFromBigUint, LooksAtItsOwnLengthAndNotAtTheWidth) {
    WidthScope width(1);
    PrecisionScope scope(57);
    const uint64_t words[3] = {5, 1, 0};
    RealBuffer x;
    EXPECT_EQ(RealFromBigUint(x, words, 3), 0u);
    EXPECT_EQ(PlainText(x), "1.8446744073709551621e19");
    EXPECT_EQ(RealFromBigUint(x, words, 1), 0u);
    EXPECT_EQ(PlainText(x), "5e0");
}

// Integers from real numbers.

Outcome ToUint(std::string_view text, int64_t m) {
    const RealBuffer x(text);
    UintBuffer out = UintBuffer::OfLimbs(m);
    BigUintFromReal(out, m, x);
    return TakeOutcome(out);
}

TEST(BigUintFromReal, DropsTheFractionAndTheSign) {
    for (const int64_t p : {9, 19, 20, 38, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(ToUint("0", 2), Silent("0"));
        EXPECT_EQ(ToUint("-0", 2), Silent("0"));
        EXPECT_EQ(ToUint("0.999", 2), Silent("0"));
        EXPECT_EQ(ToUint("-0.5", 2), Silent("0"));
        EXPECT_EQ(ToUint("1e-4611686018427387903", 2), Silent("0"));
        EXPECT_EQ(ToUint("1", 2), Silent("1"));
        EXPECT_EQ(ToUint("1.999", 2), Silent("1"));
        EXPECT_EQ(ToUint("-123.75", 2), Silent("123"));
        EXPECT_EQ(ToUint("123456789", 2), Silent("123456789"));
    }
}

TEST(BigUintFromReal, FillsUpWhatThePrecisionDoesNotHave) {
    PrecisionScope scope(3);
    EXPECT_EQ(ToUint("1e20", 2), Silent("100000000000000000000"));
    EXPECT_EQ(ToUint("12", 2), Silent("12"));
    EXPECT_EQ(ToUint("123", 2), Silent("123"));
    EXPECT_EQ(ToUint("1230", 2), Silent("1230"));
    EXPECT_EQ(ToUint("-9.87e37", 2), Silent("987" + std::string(35, '0')));
}

TEST(BigUintFromReal, WhatDoesNotFitOverflows) {
    const Outcome overflow = Refused(CalcErrorOverflow);
    PrecisionScope scope(39);
    EXPECT_EQ(ToUint("18446744073709551615", 1), Silent("18446744073709551615"));
    EXPECT_EQ(ToUint("18446744073709551615.75", 1), Silent("18446744073709551615"));
    EXPECT_EQ(ToUint("18446744073709551616", 1), overflow);
    EXPECT_EQ(ToUint("340282366920938463463374607431768211455", 2),
              Silent("340282366920938463463374607431768211455"));
    EXPECT_EQ(ToUint("340282366920938463463374607431768211456", 2), overflow);
    EXPECT_EQ(ToUint("-1e39", 2), overflow);
    // Exponents around 2^31 and the largest there are.
    EXPECT_EQ(ToUint("1e2147483647", 65), overflow);
    EXPECT_EQ(ToUint("1e2147483648", 65), overflow);
    EXPECT_EQ(ToUint("1e4611686018427387903", 65), overflow);
    EXPECT_EQ(ToUint("inf", 2), overflow);
    EXPECT_EQ(ToUint("-inf", 2), overflow);
    EXPECT_EQ(ToUint("nan", 2), Refused(CalcErrorUndefined));
}

TEST(BigUintFromReal, KeepsACodeThatWasNoted) {
    PrecisionScope scope(9);
    SetCalcError(CalcErrorCancelled);
    EXPECT_EQ(ToUint("1e99", 1), Refused(CalcErrorCancelled));
    SetCalcError(CalcErrorCancelled);
    EXPECT_EQ(ToUint("7", 1), (Outcome{"7", CalcErrorCancelled}));
}

TEST(BigUintFromReal, TurnsRealFromBigUintAround) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        WidthScope width(limbs);
        for (int round = 0; round < TestRounds(limbs <= 65 ? 60 : 3); round++) {
            UintBuffer a;
            FillUint(random, a);
            const auto digits = static_cast<int64_t>(a.Text().size());
            if (digits > MaxPrecisionDigits) {
                continue;
            }
            PrecisionScope scope(random.Between(digits, std::min(2 * digits, MaxPrecisionDigits)));
            RealBuffer x;
            EXPECT_EQ(RealFromBigUint(x, a, limbs), 0u);
            UintBuffer back;
            BigUintFromReal(back, limbs, x);
            ASSERT_EQ(back, a);
        }
    }
}

TEST(BigUintFromReal, IsTheIntegerPartAtEveryExponent) {
    RandomSource random;
    for (const int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(200); round++) {
            RealBuffer x;
            FillMantissa(random, x.Limbs());
            const int64_t exponent = random.Between(-3, p + 60);
            x.Get()->header = (static_cast<uint64_t>(exponent) << 1) | random.Below(2);
            // The first exponent + 1 digits of the mantissa, filled up with zeros.
            std::string digits = PlainText(x);
            digits.erase(digits.find('e'));
            std::erase_if(digits, [](char c) { return c == '-' || c == '.'; });
            digits.resize(static_cast<size_t>(std::max<int64_t>(exponent + 1, 0)), '0');
            const std::string expected = digits.empty() ? "0" : digits;
            UintBuffer out = UintBuffer::OfLimbs(10);
            BigUintFromReal(out, 10, x);
            ASSERT_EQ(TakeOutcome(out), Silent(expected)) << PlainText(x);
        }
    }
}

// Stored values at a precision and a width of their own.

// Whatever is in force when a conversion is called.
struct ForeignContext {
    PrecisionScope precision{23};
    WidthScope width{3};
};

Outcome ConvertToUint(std::string_view text, int64_t limbs, int64_t digits) {
    UintBuffer out = UintBuffer::OfLimbs(limbs);
    {
        PrecisionScope source(digits);
        const RealBuffer x(text);
        ForeignContext foreign;
        ConvertRealToUint(out, limbs, x, digits);
        const CalcError code = TakeCode();
        return {out.Text(), code};
    }
}

TEST(ConvertRealToUint, TakesIntegersThatAreNotNegative) {
    for (const int64_t digits : {3, 19, 20, 40, 10005}) {
        for (const int64_t limbs : {1, 2, 26, 2000}) {
            EXPECT_EQ(ConvertToUint("0", limbs, digits), Silent("0"));
            EXPECT_EQ(ConvertToUint("-0", limbs, digits), Silent("0"));
            EXPECT_EQ(ConvertToUint("1", limbs, digits), Silent("1"));
            EXPECT_EQ(ConvertToUint("1e18", limbs, digits), Silent("1" + std::string(18, '0')));
        }
    }
    EXPECT_EQ(ConvertToUint("1e20000", 1039, 5), Silent("1" + std::string(20000, '0')));
}

TEST(ConvertRealToUint, RefusesEverythingElse) {
    const Outcome refused = Refused(CalcErrorUndefined);
    for (const int64_t digits : {3, 20, 40}) {
        for (const char* text : {"2.5", "-3", "-2.5", "0.001", "inf", "-inf", "nan"}) {
            EXPECT_EQ(ConvertToUint(text, 2, digits), refused) << text;
        }
    }
    EXPECT_EQ(ConvertToUint("1e20", 1, 3), Refused(CalcErrorOverflow));
}

Outcome ShowFraction(const UintBuffer& words, int64_t limbs) {
    const uint64_t* all = words;
    const CalcError code = TakeCode();
    EXPECT_LE(all[0], 1u);
    return {(all[0] != 0 ? "-" : "") + UintText(all + 1, limbs) + "/" +
                UintText(all + 1 + limbs, limbs),
            code};
}

Outcome ConvertToRational(std::string_view text, int64_t limbs, int64_t digits) {
    UintBuffer out = UintBuffer::OfLimbs(2 * limbs + 1);
    PrecisionScope source(digits);
    const RealBuffer x(text);
    ForeignContext foreign;
    ConvertRealToRational(RationalAt(out.Get()), limbs, x, digits);
    return ShowFraction(out, limbs);
}

TEST(ConvertRealToRational, TakesIntegersWithTheirSign) {
    for (const int64_t digits : {3, 19, 20, 40, 10005}) {
        for (const int64_t limbs : {1, 2, 26, 2000}) {
            EXPECT_EQ(ConvertToRational("0", limbs, digits), Silent("0/1"));
            EXPECT_EQ(ConvertToRational("-0", limbs, digits), Silent("-0/1"));
            EXPECT_EQ(ConvertToRational("12", limbs, digits), Silent("12/1"));
            EXPECT_EQ(ConvertToRational("-345", limbs, digits), Silent("-345/1"));
        }
    }
}

TEST(ConvertRealToRational, RefusesEverythingElse) {
    for (const int64_t digits : {3, 20, 40}) {
        for (const char* text : {"2.5", "-0.5", "inf", "-inf", "nan"}) {
            EXPECT_EQ(ConvertToRational(text, 2, digits), (Outcome{"0/1", CalcErrorUndefined}))
                << text;
        }
        EXPECT_EQ(ConvertToRational("-1e20", 1, digits), (Outcome{"0/1", CalcErrorOverflow}));
    }
}

TEST(ConvertFromReal, ACodeThatWasNotedIsNoObstacleAndStays) {
    PrecisionScope scope(5);
    const RealBuffer five("5");
    const RealBuffer half("0.5");
    UintBuffer out = UintBuffer::OfLimbs(1);
    SetCalcError(CalcErrorCancelled);
    ConvertRealToUint(out, 1, five, 5);
    EXPECT_EQ(out.Text(), "5");
    ConvertRealToUint(out, 1, half, 5);
    EXPECT_EQ(TakeOutcome(out), Refused(CalcErrorCancelled));
    UintBuffer fraction = UintBuffer::OfLimbs(3);
    SetCalcError(CalcErrorCancelled);
    ConvertRealToRational(RationalAt(fraction.Get()), 1, five, 5);
    EXPECT_EQ(ShowFraction(fraction, 1), (Outcome{"5/1", CalcErrorCancelled}));
    SetCalcError(CalcErrorCancelled);
    ConvertRealToRational(RationalAt(fraction.Get()), 1, half, 5);
    EXPECT_EQ(ShowFraction(fraction, 1), (Outcome{"0/1", CalcErrorCancelled}));
}

// Fractions as real numbers.

// A fraction of the width in force, from "[-]numerator/denominator" or an integer, not reduced.
UintBuffer Fraction(std::string_view text) {
    UintBuffer words = UintBuffer::OfLimbs(RationalWords());
    RationalNumber* q = RationalAt(words.Get());
    q->sign = text.starts_with('-') ? 1 : 0;
    text.remove_prefix(q->sign);
    const size_t slash = std::min(text.find('/'), text.size());
    UintFromPlainText(RationalNumerator(q), text.substr(0, slash));
    UintFromPlainText(RationalDenominator(q), slash < text.size() ? text.substr(slash + 1) : "1");
    return words;
}

Outcome FromFraction(std::string_view text) {
    const UintBuffer words = Fraction(text);
    RealBuffer x;
    RealFromRational(x, RationalAt(words.Get()));
    return {PlainText(x), TakeCode()};
}

TEST(RealFromRational, KnownValues) {
    for (const int64_t limbs : SmallUintWidths) {
        WidthScope width(limbs);
        PrecisionScope scope(16);
        EXPECT_EQ(FromFraction("1/3"), Silent("3.333333333333333e-1"));
        EXPECT_EQ(FromFraction("-2/3"), Silent("-6.666666666666667e-1"));
        EXPECT_EQ(FromFraction("7"), Silent("7e0"));
        EXPECT_EQ(FromFraction("-7/1"), Silent("-7e0"));
        EXPECT_EQ(FromFraction("0"), Silent("0"));
        EXPECT_EQ(FromFraction("-0"), Silent("-0"));
        EXPECT_EQ(FromFraction("1/18446744073709551615"), Silent("5.421010862427522e-20"));
        EXPECT_EQ(FromFraction("18446744073709551615"), Silent("1.844674407370955e19"));
    }
    WidthScope width(2);
    PrecisionScope scope(16);
    EXPECT_EQ(FromFraction("1/2^64"), Silent("5.421010862427522e-20"));
    EXPECT_EQ(FromFraction("2^127/2^65"), Silent("4.611686018427388e18"));
    EXPECT_EQ(FromFraction("-1/30000000000000000000000000000000"),
              Silent("-3.333333333333333e-32"));
    EXPECT_EQ(FromFraction("0/2^100"), Silent("0"));
}

TEST(RealFromRational, RoundsHalfUpInMagnitude) {
    WidthScope width(2);
    PrecisionScope scope(2);
    EXPECT_EQ(FromFraction("1/8"), Silent("1.3e-1"));
    EXPECT_EQ(FromFraction("-1/8"), Silent("-1.3e-1"));
    EXPECT_EQ(FromFraction("1249/10000"), Silent("1.2e-1"));
    EXPECT_EQ(FromFraction("995"), Silent("1e3"));
    EXPECT_EQ(FromFraction("-994"), Silent("-9.9e2"));
    EXPECT_EQ(FromFraction("199/2"), Silent("1e2"));
}

// The digits of a / b for b below 2^62, rounded half up to p digits, by division on paper.
std::string DivideOnPaper(uint64_t a, uint64_t b, int64_t p) {
    int64_t exponent = 0;
    __extension__ typedef unsigned __int128 Wide128;
    Wide128 rest = a;
    Wide128 divisor = b;
    for (; rest >= 10 * divisor; exponent++) {
        divisor *= 10;
    }
    for (; rest < divisor; exponent--) {
        rest *= 10;
    }
    std::string digits;
    for (int64_t i = 0; i < p; i++) {
        digits += static_cast<char>('0' + static_cast<int>(rest / divisor));
        rest = rest % divisor * 10;
    }
    if (rest >= 5 * divisor) {
        size_t last = digits.find_last_not_of('9');
        if (last == std::string::npos) {
            digits = "1" + std::string(digits.size() - 1, '0');
            exponent++;
        } else {
            digits[last]++;
            std::fill(digits.begin() + static_cast<int64_t>(last) + 1, digits.end(), '0');
        }
    }
    return PlainText(
        RealBuffer(digits.substr(0, 1) + "." + digits.substr(1) + "e" + std::to_string(exponent)));
}

TEST(RealFromRational, IsTheQuotientToTheLastDigitForShortNumerators) {
    RandomSource random;
    for (const int64_t limbs : SmallUintWidths) {
        WidthScope width(limbs);
        for (const int64_t p : SmallPrecisions) {
            PrecisionScope scope(p);
            for (int round = 0; round < TestRounds(60); round++) {
                const uint64_t digits = static_cast<uint64_t>(std::min<int64_t>(p + 2, 18));
                const uint64_t a =
                    random.Below(std::stoull("1" + std::string(digits, '0')) - 1) + 1;
                const uint64_t b = random.Word() >> random.Between(2, 62) | 1;
                ASSERT_EQ(FromFraction(std::to_string(a) + "/" + std::to_string(b)),
                          Silent(DivideOnPaper(a, b, p)));
            }
        }
    }
}

// Both parts are cut to the widened precision before they are divided.
TEST(RealFromRational, LongerPartsMayMoveTheLastDigit) {
    WidthScope width(2);
    PrecisionScope scope(2);
    // 645 is half way, 644.93... is not.
    EXPECT_EQ(FromFraction("49665/77"), Silent("6.4e2"));
    EXPECT_EQ(FromFraction("4966/77"), Silent("6.4e1"));
    EXPECT_EQ(FromFraction("496650000000000000000000000000/77"), Silent("6.4e27"));
    PrecisionScope more(3);
    EXPECT_EQ(FromFraction("49665/77"), Silent("6.45e2"));
}

TEST(RealFromRational, LongDenominatorsGiveExactQuotientsExactly) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        if (limbs == 1) {
            continue;
        }
        WidthScope width(limbs);
        for (const int64_t p : {3, 19, 20, 57, 1000, 10000}) {
            PrecisionScope scope(p);
            // (k * 2^(64 m)) / 2^(64 m), and the same with bits below.
            const uint64_t k = random.Between(1, 999);
            const int64_t shift = random.Between(1, limbs - 1);
            UintBuffer words = UintBuffer::OfLimbs(RationalWords());
            std::fill_n(words.Get(), RationalWords(), 0);
            RationalNumber* q = RationalAt(words.Get());
            q->sign = 1;
            RationalNumerator(q)[shift] = k;
            RationalDenominator(q)[shift] = 1;
            RealBuffer x;
            RealFromRational(x, q);
            EXPECT_EQ(PlainText(x), PlainText(RealBuffer("-" + std::to_string(k))));
            RationalNumerator(q)[0] = k;
            RationalDenominator(q)[0] = 1;
            RealFromRational(x, q);
            EXPECT_EQ(PlainText(x), PlainText(RealBuffer("-" + std::to_string(k))));
        }
    }
}

TEST(RealFromRational, ADenominatorOfZeroIsADivisionByZero) {
    WidthScope width(2);
    PrecisionScope scope(9);
    EXPECT_EQ(FromFraction("1/0"), (Outcome{"inf", CalcErrorOverflow}));
    EXPECT_EQ(FromFraction("-1/0"), (Outcome{"-inf", CalcErrorOverflow}));
    EXPECT_EQ(FromFraction("-0/0"), (Outcome{"nan", CalcErrorUndefined}));
}

TEST(RealFromRational, HonoursTruncation) {
    WidthScope width(1);
    PrecisionScope scope(3);
    FieldScope truncates(numberContext.noRounding, uint8_t{1});
    EXPECT_EQ(FromFraction("2/3"), Silent("6.66e-1"));
}

TEST(ConvertRational, ReadsAndWritesAtTheLayoutsGiven) {
    for (const int64_t digits : {1, 16, 19, 20, 10005}) {
        for (const int64_t limbs : {1, 2, 520, 2000}) {
            SCOPED_TRACE(testing::Message() << digits << " digits, " << limbs << " limbs");
            const UintBuffer third = [&] {
                WidthScope width(limbs);
                return Fraction("-1/3");
            }();
            const std::string expected =
                digits == 1 ? "-3e-1"
                            : "-3." + std::string(static_cast<size_t>(digits - 1), '3') + "e-1";
            PrecisionScope target(digits);
            RealBuffer x;
            ComplexBuffer z;
            {
                ForeignContext foreign;
                ConvertRationalToReal(x, digits, RationalAt(third.Get()), limbs);
                ConvertRationalToComplex(z, digits, RationalAt(third.Get()), limbs);
            }
            EXPECT_EQ(PlainText(x), expected);
            EXPECT_EQ(PlainText(RealPart(z.Get())), expected);
            EXPECT_EQ(PlainText(ImaginaryPart(z.Get())), "0");
        }
    }
}

// Code 100 for digits and widths out of range; nothing else happens.

TEST(ExactConversions, LayoutsOutOfRangeAreRefusedAndWriteNothing) {
    const struct {
        int64_t digits, limbs;
    } cases[] = {{0, 1},         {-1, 1},        {10'006, 1},    {5, 0},
                 {5, -1},        {5, 2'001},     {INT64_MAX, 1}, {INT64_MIN, 1},
                 {5, INT64_MAX}, {5, INT64_MIN}, {0, 0}};
    ForeignContext foreign;
    const RealBuffer x("7");
    const UintBuffer q = Fraction("7/1");
    for (const auto& bad : cases) {
        SCOPED_TRACE(testing::Message() << bad.digits << " digits, " << bad.limbs << " limbs");
        UintBuffer uint;
        UintBuffer fraction = UintBuffer::OfLimbs(RationalWords());
        RealBuffer real;
        ComplexBuffer complex;
        const UintBuffer uintBefore = uint;
        const UintBuffer fractionBefore = fraction;
        const RealBuffer realBefore = real;
        const ComplexBuffer complexBefore = complex;
        ConvertRealToUint(uint, bad.limbs, x, bad.digits);
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        ConvertRealToRational(RationalAt(fraction.Get()), bad.limbs, x, bad.digits);
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        ConvertRationalToReal(real, bad.digits, RationalAt(q.Get()), bad.limbs);
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        ConvertRationalToComplex(complex, bad.digits, RationalAt(q.Get()), bad.limbs);
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        EXPECT_EQ(uint, uintBefore);
        EXPECT_EQ(fraction, fractionBefore);
        EXPECT_EQ(real, realBefore);
        EXPECT_EQ(complex, complexBefore);
        SetCalcError(CalcErrorCancelled);
        ConvertRealToUint(uint, bad.limbs, x, bad.digits);
        EXPECT_EQ(TakeCode(), CalcErrorCancelled);
    }
}

TEST(ExactConversions, AcceptTheWidestLayouts) {
    UintBuffer out = UintBuffer::OfLimbs(MaxUintLimbs);
    PrecisionScope scope(MaxPrecisionDigits);
    const RealBuffer x("1e38531");
    ConvertRealToUint(out, MaxUintLimbs, x, MaxPrecisionDigits);
    EXPECT_EQ(TakeOutcome(out), Silent("1" + std::string(38'531, '0')));
    const RealBuffer tooLarge("1e38532");
    ConvertRealToUint(out, MaxUintLimbs, tooLarge, MaxPrecisionDigits);
    EXPECT_EQ(TakeOutcome(out), Refused(CalcErrorOverflow));
}

#ifdef TALLYMERE_CHECK_CONTRACTS

TEST(ExactConversionsContract, ADestinationOverlapsNoOperand) {
    PrecisionScope precision(20);
    WidthScope width(2);
    std::vector<uint64_t> words(32, 0);
    RealNumber* real = RealAt(words.data() + 4);
    RationalNumber* rational = RationalAt(words.data() + 6);
    EXPECT_DEATH(RealFromBigUint(real, words.data(), 5), "Apart");
    EXPECT_DEATH(BigUintFromReal(words.data(), 5, real), "Apart");
    EXPECT_DEATH(RealFromRational(real, rational), "Apart");
    EXPECT_DEATH(ConvertRealToUint(words.data(), 5, real, 20), "Apart");
    EXPECT_DEATH(ConvertRealToRational(rational, 2, real, 20), "Apart");
    EXPECT_DEATH(ConvertRationalToReal(real, 20, rational, 2), "Apart");
    EXPECT_DEATH(ConvertRationalToComplex(ComplexAt(words.data() + 1), 20, rational, 2), "Apart");
}

#endif

}  // namespace
}  // namespace tallymere
