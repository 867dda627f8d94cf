// Random and hostile texts in both directions against arithmetic on strings.
#include <gtest/gtest.h>

#include <string>

#include "core/real_rounding.h"
#include "core/real_text.h"
#include "support/decimal_text.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr uint32_t AcceptSpecial = TextAcceptInfinity | TextAcceptNaN;

// So many numbers of so many digits, spread over these precisions.
struct Batch {
    int rounds;  // for each precision
    int64_t mostDigits;
    std::vector<int64_t> precisions;
};

const Batch Batches[] = {
    {20'000, 100, {1, 2, 3, 9, 16, 18, 19, 20, 37, 38, 39, 57, 100}},
    {500, 100, {1000, 10000, 10005}},
    {2'000, 1'000, {1, 19, 20, 100, 1000, 10005}},
    {100, 10'020, {1, 19, 1000, 10000, 10005}},
};

template <typename Test>
void RunBatches(Test test) {
    RandomSource random;
    for (const Batch& batch : Batches) {
        for (int64_t p : batch.precisions) {
            PrecisionScope scope(p);
            for (int round = TestRounds(batch.rounds); round > 0; round--) {
                test(random, batch.mostDigits, p);
                if (::testing::Test::HasFailure()) {
                    return;
                }
            }
        }
    }
}

// Digits with a separator somewhere among them, or none, and group separators at random places.
std::u16string DressDigits(RandomSource& random, const std::string& digits, bool groups) {
    std::u16string text;
    const size_t separator = random.Below(2) == 0 ? 0 : random.Below(digits.size());
    const uint64_t density = groups && random.Below(2) == 0 ? random.Between(2, 30) : 0;
    for (size_t i = 0; i < digits.size(); i++) {
        if (i > 0 && i == separator) {
            text += u'.';
        } else if (i > 0 && density > 0 && random.Below(density) == 0) {
            text += u'\'';
        }
        text += static_cast<char16_t>(digits[i]);
    }
    return text;
}

std::string WrittenExponent(RandomSource& random) {
    constexpr int64_t Limit = 4'611'686'018'427'387'903;
    std::string sign = random.Below(2) == 0 ? "-" : random.Below(2) == 0 ? "+" : "";
    switch (random.Below(8)) {
        case 0:
            return sign + std::to_string(Limit + random.Between(-3, 3));
        case 1:
            return sign + std::to_string(Limit + random.Between(-200, 200));
        case 2:
            return sign + std::to_string(random.Word());
        case 3:
            return sign + std::to_string(random.Word()) + std::to_string(random.Below(100));
        case 4:
            return sign + std::string(random.Below(50), '0') + std::to_string(random.Below(1000));
        default:
            return sign + std::to_string(random.Below(100));
    }
}

std::u16string NumberText(RandomSource& random, int64_t mostDigits, int64_t p, bool groups) {
    std::u16string text(random.Below(10) == 0 ? random.Below(4) : 0, u' ');
    text += random.Below(3) == 0 ? u"-" : random.Below(3) == 0 ? u"+" : u"";
    std::string digits = HostileDigits(random, mostDigits, p);
    if (random.Below(500) == 0) {
        digits.insert(random.Below(2) == 0 ? 0 : digits.size(), random.Below(3'000), '0');
    }
    text += DressDigits(random, digits, groups);
    if (random.Below(2) == 0) {
        text += random.Below(2) == 0 ? u'e' : u'E';
        text += WideText(WrittenExponent(random));
    }
    text.append(random.Below(10) == 0 ? random.Below(4) : 0, u' ');
    return text;
}

ReadResult ReadRounded(std::u16string_view text, uint32_t flags) {
    RealBuffer x;
    RealRound(x, RealFromText(x, text.data(), static_cast<int64_t>(text.size()), flags));
    const CalcError code = TakeCode();
    return {PlainText(x), code};
}

void ExpectReadAsByStrings(std::u16string_view text, int64_t p, bool groups) {
    const uint32_t flags = AcceptSpecial | TextPlainSeparators | (groups ? uint32_t{TextGroup} : 0);
    const ReadResult expected = ReadDecimal(text, p, u'.', groups ? u'\'' : u'\0');
    const ReadResult result = ReadRounded(text, flags);
    EXPECT_EQ(result.plain, expected.plain) << NarrowText(text);
    EXPECT_EQ(result.code, expected.code) << NarrowText(text);
}

TEST(RealTextRandom, NumbersAreReadAsByArithmeticOnStrings) {
    RunBatches([](RandomSource& random, int64_t mostDigits, int64_t p) {
        const bool groups = random.Below(2) == 0;
        const std::u16string text = NumberText(random, mostDigits, p, groups);
        ASSERT_EQ(ReadDecimal(text, p, u'.', groups ? u'\'' : u'\0').code == CalcErrorSyntax, false)
            << NarrowText(text);
        ExpectReadAsByStrings(text, p, groups);
    });
}

TEST(RealTextRandom, MangledTextsAreToldFromNumbers) {
    RandomSource random;
    constexpr std::u16string_view Alphabet = u"00112345678999...'''eeEE+--  inNafx\u221Ei,_\uFFFF";
    int numbers = 0;
    int refused = 0;
    for (int64_t p : {1, 19, 20, 57}) {
        PrecisionScope scope(p);
        for (int round = TestRounds(30'000); round > 0 && !HasFailure(); round--) {
            std::u16string text = random.Below(8) == 0 ? u"" : NumberText(random, 40, p, true);
            if (random.Below(8) == 0) {
                text = std::u16string(random.Below(2) == 0 ? u"-inf" : u"NaN");
            }
            for (uint64_t changes = random.Below(4); changes > 0; changes--) {
                const size_t at = random.Below(text.size() + 1);
                const char16_t junk = Alphabet[random.Below(Alphabet.size())];
                switch (random.Below(4)) {
                    case 0:
                        text.insert(at, 1, junk);
                        break;
                    case 1:
                        text.erase(at, 1);
                        break;
                    case 2:
                        text.replace(at, 1, 1, junk);
                        break;
                    default:
                        text.erase(at);
                        break;
                }
            }
            const bool groups = random.Below(4) != 0;
            ExpectReadAsByStrings(text, p, groups);
            const bool isNumber =
                ReadDecimal(text, p, u'.', groups ? u'\'' : u'\0').code != CalcErrorSyntax;
            (isNumber ? numbers : refused)++;
        }
    }
    EXPECT_GT(numbers, 1'000);
    EXPECT_GT(refused, 1'000);
}

uint32_t FlagsOf(const WriteStyle& style) {
    uint32_t flags = style.exponentPlus ? 0u : uint32_t{TextNoExponentPlus};
    flags |= style.notation == Notation::Fixed        ? uint32_t{TextFixed}
             : style.notation == Notation::Scientific ? uint32_t{TextScientific}
                                                      : 0u;
    flags |= style.strip ? uint32_t{TextStripZeros} : 0u;
    flags |= style.keepFraction ? uint32_t{TextKeepFraction} : 0u;
    flags |= style.alwaysSign ? uint32_t{TextAlwaysSign} : 0u;
    flags |= style.mark.empty() ? 0u : uint32_t{TextGroup};
    flags |= style.point == "." ? uint32_t{TextPlainSeparators} : 0u;
    return flags;
}

WriteStyle RandomStyle(RandomSource& random) {
    const bool plain = random.Below(2) == 0;
    WriteStyle style;
    style.notation = static_cast<Notation>(random.Below(3));
    style.strip = random.Below(2) == 0;
    style.keepFraction = random.Below(4) == 0;
    style.alwaysSign = random.Below(4) == 0;
    style.exponentPlus = random.Below(2) == 0;
    style.point = plain ? "." : ",";
    style.mark = random.Below(2) == 0 ? "" : plain ? "'" : "_";
    return style;
}

// p digits: a hostile run, cut or filled up with zeros, in normal form.
std::string MantissaOf(RandomSource& random, int64_t mostDigits, int64_t p) {
    std::string digits = HostileDigits(random, mostDigits, p);
    digits.resize(static_cast<size_t>(p), '0');
    if (digits[0] == '0' && random.Below(20) != 0) {
        digits[0] = static_cast<char>('1' + random.Below(9));
    } else if (digits[0] == '0') {
        digits.assign(static_cast<size_t>(p), '0');
    }
    return digits;
}

// A number of those digits: -0 or 0 if they are zero.
RealBuffer NumberOf(const std::string& digits, bool negative, int64_t exponent) {
    RealBuffer x(digits);
    if (digits[0] != '0') {
        x.Get()->header = MakeHeader(exponent, 0);
    }
    RealSetSign(x, negative ? 1 : 0);
    return x;
}

std::string Write(const RealBuffer& x, uint32_t flags, int64_t capacity) {
    std::u16string buffer(static_cast<size_t>(capacity) + 1, u'#');
    TextWriter writer = {0, capacity, buffer.data()};
    RealToText(writer, x, flags);
    EXPECT_EQ(buffer.back(), u'#');
    return WriterOverflowed(writer)
               ? "overflow"
               : NarrowText({buffer.data(), static_cast<size_t>(writer.position)});
}

TEST(RealTextRandom, NumbersAreWrittenAsByArithmeticOnStrings) {
    FieldScope point(numberContext.decimalSeparators[0], u',');
    FieldScope mark(numberContext.groupSeparators[0], u'_');
    int overflows = 0;
    RunBatches([&overflows](RandomSource& random, int64_t mostDigits, int64_t p) {
        const std::string digits = MantissaOf(random, mostDigits, p);
        const bool negative = random.Below(2) == 0;
        const int64_t range = random.Below(3) == 0 ? p + 30 : 15;
        const int64_t exponent = digits[0] == '0' ? 0 : random.Between(-range, range);
        const WriteStyle style = RandomStyle(random);
        const int64_t longest = 2 * p + range + 60;
        const int64_t capacity = random.Below(4) == 0 ? random.Between(0, longest) : longest;
        const std::string expected = WriteDecimal(digits, negative, exponent, style, capacity);
        const RealBuffer x = NumberOf(digits, negative, exponent);
        overflows += expected == "overflow" ? 1 : 0;
        ASSERT_EQ(Write(x, FlagsOf(style), capacity), expected)
            << digits << " e" << exponent << " capacity " << capacity;
    });
    EXPECT_GT(overflows, 1'000);
}

TEST(RealTextRandom, WhatIsWrittenWithAllDigitsIsReadBackAsItWas) {
    RunBatches([](RandomSource& random, int64_t mostDigits, int64_t p) {
        const std::string digits = MantissaOf(random, mostDigits, p);
        constexpr int64_t Limit = 4'611'686'018'427'387'903;
        WriteStyle style = RandomStyle(random);
        int64_t exponent = random.Between(-p - 20, p + 20);
        if (style.notation != Notation::Fixed && random.Below(2) == 0) {
            exponent = random.Below(2) == 0 ? Limit : -Limit;
            exponent -= exponent / Limit * random.Between(0, 200);
        }
        // A negative zero shows its sign only where all numbers do.
        style.alwaysSign = style.alwaysSign || digits[0] == '0';
        const uint32_t flags = FlagsOf(style);
        const RealBuffer x = NumberOf(digits, random.Below(2) == 0, exponent);
        std::u16string text(static_cast<size_t>(4 * p + 100), u'#');
        TextWriter writer = {0, static_cast<int64_t>(text.size()), text.data()};
        RealToText(writer, x, flags);
        ASSERT_FALSE(WriterOverflowed(writer));
        RealBuffer back;
        const Limb guard = RealFromText(back, text.data(), writer.position, flags);
        ASSERT_EQ(guard, 0u);
        ASSERT_EQ(back, x) << NarrowText(text.substr(0, static_cast<size_t>(writer.position)));
    });
}

}  // namespace
}  // namespace tallymere
