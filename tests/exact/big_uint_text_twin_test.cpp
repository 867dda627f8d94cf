// Random and hostile texts and values in both directions, against the plain twins and against
// arithmetic on strings.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "exact/big_uint_text.h"
#include "reference/big_uint_text_twins.h"
#include "support/decimal_text.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr uint32_t Bases[] = {2, 8, 10, 16};

// So many rounds at these widths.
struct Batch {
    int rounds;
    std::vector<int64_t> widths;
};

template <typename Test>
void RunBatches(std::initializer_list<Batch> batches, Test test) {
    RandomSource random;
    for (const Batch& batch : batches) {
        for (int64_t width : batch.widths) {
            WidthScope scope(width);
            for (int round = TestRounds(batch.rounds); round > 0; round--) {
                test(random);
                if (::testing::Test::HasFailure()) {
                    return;
                }
            }
        }
    }
}

template <typename Test>
void RunAtRandomWidths(int rounds, Test test) {
    RandomSource random;
    for (int round = TestRounds(rounds); round > 0; round--) {
        const int64_t width =
            std::min(random.Between(1, 1039), random.Between(1, random.Between(1, 1039)));
        WidthScope scope(width);
        test(random);
        if (::testing::Test::HasFailure()) {
            return;
        }
    }
}

struct WrittenText {
    std::u16string text;
    CalcError code;
    bool operator==(const WrittenText&) const = default;
};

void PrintTo(const WrittenText& written, std::ostream* out) {
    *out << NarrowText(written.text) << " with code " << written.code;
}

WrittenText Write(const UintBuffer& a, uint32_t flags) {
    std::u16string buffer(static_cast<size_t>(BigUintTextLength(flags)), u'?');
    const int64_t length = BigUintToText(buffer.data(), static_cast<int64_t>(buffer.size()), a,
                                         flags | TextNoTerminator);
    buffer.resize(static_cast<size_t>(length));
    return {buffer, TakeCode()};
}

WrittenText TwinWrite(const UintBuffer& a, uint32_t flags) {
    const std::u16string text = reference::TwinUintText(a, flags);
    return {text, TakeCode()};
}

void ReadInto(UintBuffer& dest, std::u16string_view text, uint32_t flags) {
    BigUintFromText(dest, text.data(), static_cast<int64_t>(text.size()), flags);
}

// Both give the same value and code.
void ExpectTwinReads(std::u16string_view text, uint32_t flags) {
    UintBuffer dest;
    UintBuffer twin;
    ReadInto(dest, text, flags);
    const CalcError code = TakeCode();
    reference::TwinUintFromText(twin, text, flags);
    EXPECT_EQ(code, TakeCode()) << NarrowText(text) << " flags " << flags;
    EXPECT_EQ(dest, twin) << NarrowText(text) << " flags " << flags;
}

uint32_t RandomForm(RandomSource& random) {
    uint32_t flags = 0;
    for (uint32_t bit : {0u | TextGroup, 0u | TextPlainSeparators, 0u | TextAlwaysSign,
                         0u | TextNoExponentPlus, 0u | TextScientific, 0u | TextLowerHex,
                         0u | TextStripZeros, 0u | TextFixed, 0u | TextKeepFraction}) {
        flags |= random.Below(3) == 0 ? bit : 0;
    }
    return flags;
}

TEST(BigUintTextTwin, WritesAsTheTwinInEveryForm) {
    RunBatches({{2'000, {1, 2, 3}}, {200, {26, 65}}, {2, {520, 1039}}}, [](RandomSource& random) {
        UintBuffer a;
        FillUint(random, a);
        for (uint32_t base : Bases) {
            const uint32_t flags = base | RandomForm(random);
            EXPECT_EQ(Write(a, flags), TwinWrite(a, flags)) << flags;
        }
    });
}

TEST(BigUintTextTwin, WritesTheDigitsOfStringArithmetic) {
    RunBatches({{500, {1, 2, 3, 26}}, {20, {65}}, {1, {520, 1039}}}, [](RandomSource& random) {
        UintBuffer a;
        FillUint(random, a);
        EXPECT_EQ(NarrowText(Write(a, 10).text), UintText(a));
    });
}

// Powers of ten and their neighbours lie where limbs and halves of a conversion meet.
TEST(BigUintTextTwin, WritesAndReadsEveryPowerOfTen) {
    for (int64_t width : {26, 65}) {
        WidthScope scope(width);
        const size_t most = static_cast<size_t>(numberContext.uintDigits);
        for (size_t zeros = 1; zeros <= most; zeros++) {
            UintBuffer power;
            for (const std::u16string& text :
                 {u"1" + std::u16string(zeros, u'0'), u"1" + std::u16string(zeros - 1, u'0') + u"1",
                  std::u16string(zeros, u'9')}) {
                ReadInto(power, text, 0);
                EXPECT_EQ(Write(power, 0), (WrittenText{text, CalcErrorNone}));
            }
        }
    }
}

TEST(BigUintTextTwin, ReadsBackWhatItWrites) {
    RunAtRandomWidths(600, [](RandomSource& random) {
        UintBuffer a;
        FillUint(random, a);
        for (uint32_t base : Bases) {
            for (uint32_t form : {0u, 0u | TextGroup, TextGroup | TextPlainSeparators,
                                  TextLowerHex | TextAlwaysSign}) {
                UintBuffer back;
                ReadInto(back, Write(a, base | form).text, base | form);
                EXPECT_EQ(back, a) << "base " << base << " form " << form;
            }
        }
        for (uint32_t form : {0u | TextScientific, TextScientific | TextStripZeros,
                              TextScientific | TextPlainSeparators | TextNoExponentPlus}) {
            UintBuffer back;
            ReadInto(back, Write(a, form).text, form);
            EXPECT_EQ(back, a) << "form " << form;
        }
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    });
}

// Digits of a base, sometimes with group separators, sometimes too many for the width, sometimes
// many zeros at either end.
std::u16string RandomDigits(RandomSource& random, uint32_t base, int64_t most) {
    std::u16string text;
    const int64_t count = random.Between(1, most);
    const bool uniform = random.Below(4) == 0;
    const bool grouped = random.Below(3) == 0;
    const uint64_t zeroShare = random.Below(4) == 0 ? 90 : 0;
    for (int64_t i = 0; i < count; i++) {
        const uint64_t digit = uniform                         ? base - 1
                               : random.Below(100) < zeroShare ? 0
                                                               : random.Below(base);
        text += u"0123456789abcdef"[digit];
        if (grouped && i + 1 < count && random.Below(5) == 0) {
            text += u'\'';
        }
    }
    if (random.Below(4) == 0) {
        text.insert(0, static_cast<size_t>(random.Below(40)), u'0');
    }
    if (random.Below(4) == 0) {
        text.append(static_cast<size_t>(random.Below(40)), u'0');
    }
    return text;
}

std::u16string Decimal(int64_t value) {
    return WideText(std::to_string(value));
}

// A decimal number with or without fraction and exponent, near what is an integer and near what
// fits.
std::u16string RandomNumber(RandomSource& random, int64_t most) {
    std::u16string text = RandomDigits(random, 10, most);
    int64_t places = 0;
    if (random.Below(2) == 0) {
        const std::u16string fraction = random.Below(3) == 0
                                            ? std::u16string(1 + random.Below(30), u'0')
                                            : RandomDigits(random, 10, std::min<int64_t>(most, 40));
        text += u'.' + fraction;
        places =
            std::count_if(fraction.begin(), fraction.end(), [](char16_t c) { return c != u'\''; });
    }
    switch (random.Below(4)) {
        case 0:
            break;
        case 1:
            text += u'e' + Decimal(places + random.Between(-2, 2));
            break;
        case 2:
            text += u"e-" + Decimal(random.Between(0, 45));
            break;
        default:
            text += u"E+" + Decimal(random.Between(0, most));
            break;
    }
    return text;
}

TEST(BigUintTextTwin, ReadsNumbersAsTheTwin) {
    RunBatches({{20'000, {1, 2}}, {2'000, {26, 65}}}, [](RandomSource& random) {
        const auto most = numberContext.uintDigits + 3;
        ExpectTwinReads(RandomNumber(random, most), random.Below(2) == 0 ? TextGroup : 0);
        for (uint32_t base : {2u, 8u, 16u}) {
            const int64_t bits = base == 2 ? 1 : base == 8 ? 3 : 4;
            const int64_t digits = 64 * numberContext.uintLimbs / bits + 2;
            ExpectTwinReads(RandomDigits(random, base, digits), base | TextGroup);
        }
    });
}

TEST(BigUintTextTwin, ReadsLongNumbersAsTheTwin) {
    RunBatches({{4, {520, 1039}}}, [](RandomSource& random) {
        ExpectTwinReads(RandomNumber(random, numberContext.uintDigits + 3), TextGroup);
    });
    WidthScope scope(1039);
    const std::u16string digits = WideText(UintText(UintBuffer("2^66496-1")));
    ExpectTwinReads(digits, 0);
    ExpectTwinReads(digits + u"0", 0);
    ExpectTwinReads(digits + u".5", 0);
    ExpectTwinReads(u"1" + std::u16string(20'000, u'0') + u"e-20000", 0);
    ExpectTwinReads(u"1" + std::u16string(20'000, u'0') + u"e-20001", 0);
    ExpectTwinReads(u"1e20015", 0);
    ExpectTwinReads(u"1e20016", 0);
    ExpectTwinReads(u"1.5e9223372036854775807", 0);
}

// A number in which some characters are taken away, put in or exchanged.
TEST(BigUintTextTwin, ReadsDamagedNumbersAsTheTwin) {
    constexpr std::u16string_view Characters = u"0019aFgx.,'_ +-eE/\u221E";
    RunBatches({{100'000, {1}}, {20'000, {2}}}, [&](RandomSource& random) {
        std::u16string text = RandomNumber(random, 25);
        for (uint64_t changes = random.Between(1, 3); changes > 0; changes--) {
            const char16_t c = Characters[random.Below(Characters.size())];
            const size_t place = random.Below(text.size() + 1);
            switch (random.Below(3)) {
                case 0:
                    text.insert(place, 1, c);
                    break;
                case 1:
                    text.erase(std::min(place, text.size()), 1);
                    break;
                default:
                    text.replace(std::min(place, text.size()), 1, 1, c);
                    break;
            }
        }
        const uint32_t base = Bases[random.Below(4)];
        ExpectTwinReads(text, (random.Below(2) == 0 ? 10 : base) | (RandomForm(random) & 0xF00));
    });
}

}  // namespace
}  // namespace tallymere
