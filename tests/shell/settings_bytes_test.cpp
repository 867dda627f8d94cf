#include "shell/settings_bytes.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "shell/settings_testing.h"
#include "support/random_source.h"

namespace tallymere::testing_support {
namespace {

using Bytes = std::vector<uint8_t>;

// In a block of just the length that is asked for.
std::u16string Decoded(const Bytes& bytes) {
    const auto count = static_cast<int64_t>(bytes.size());
    std::vector<char16_t> text(static_cast<size_t>(SettingsTextRoom(count)), u'#');
    DecodeSettings(text.data(), bytes.data(), count);
    return text.data();
}

Bytes Encoded(std::u16string_view text) {
    const auto count = static_cast<int64_t>(text.size());
    Bytes bytes(static_cast<size_t>(SettingsByteCount(count)), 0xD1);
    EncodeSettings(bytes.data(), text.data(), count);
    return bytes;
}

TEST(SettingsBytes, AreUtf16WithTheLowByteFirstBehindAByteOrderMark) {
    EXPECT_EQ(Encoded(u"[\u03B1\u202F"), (Bytes{0xFF, 0xFE, 0x5B, 0x00, 0xB1, 0x03, 0x2F, 0x20}));
    EXPECT_EQ(Encoded(u""), (Bytes{0xFF, 0xFE}));
    EXPECT_EQ(Decoded({0xFF, 0xFE, 0x5B, 0x00, 0xB1, 0x03, 0x2F, 0x20}), u"[\u03B1\u202F");
    EXPECT_EQ(Decoded({0xFF, 0xFE}), u"");
}

TEST(SettingsBytes, AFileWithoutByteOrderMarkCountsAsAbsent) {
    EXPECT_EQ(Decoded({}), u"");
    EXPECT_EQ(Decoded({0xFF}), u"");
    EXPECT_EQ(Decoded({0xFE, 0xFF, 0x00, 0x5B}), u"") << "high byte first";
    EXPECT_EQ(Decoded({0x5B, 0x00, 0xFF, 0xFE}), u"");
    EXPECT_EQ(Decoded({0xEF, 0xBB, 0xBF, 0x5B, 0x6F}), u"") << "UTF-8";
    EXPECT_EQ(Decoded({0xFF, 0x00, 0x5B, 0x00}), u"");
    EXPECT_EQ(Decoded({0x00, 0xFE, 0x5B, 0x00}), u"");
}

TEST(SettingsBytes, TheMarkIsTwoBytes) {
    const uint8_t bytes[] = {0xFF, 0xFE, 0x5B, 0x00};
    EXPECT_TRUE(HasByteOrderMark(bytes, 4));
    EXPECT_TRUE(HasByteOrderMark(bytes, 2));
    EXPECT_FALSE(HasByteOrderMark(bytes, 1));
    EXPECT_FALSE(HasByteOrderMark(bytes, 0));
    EXPECT_FALSE(HasByteOrderMark(bytes + 1, 2));
}

TEST(SettingsBytes, TheLargestFileOfTheProgramIsRead) {
    const std::u16string name(static_cast<size_t>(VariableNameCharacters), u'n');
    const std::u16string value(static_cast<size_t>(ProductVariableCharacters), u'7');
    Settings record;
    record.language = LanguageAutomatic;
    record.thousandsSeparator = ThousandsNarrowSpace;
    record.decimalPrecision = record.outputNumberBase = INT64_MIN;
    record.variableCount = ProductVariables;
    for (SettingsVariable& variable : record.variables) {
        variable = {name.c_str(), value.c_str()};
    }
    TextSink sink = {0, 0, nullptr};
    WriteSettings(sink, record);
    EXPECT_LT(SettingsByteCount(sink.count), MaxSettingsBytes * 2 / 3);
}

TEST(SettingsBytes, AFileWithoutByteOrderMarkIsAFirstStartWithTheHint) {
    Bytes bytes = Encoded(Joined(FullFileLines));
    EXPECT_FALSE(ReadText(Decoded(bytes)).record.showWelcomeHint);
    bytes.erase(bytes.begin(), bytes.begin() + 2);
    EXPECT_TRUE(SameSettings(ReadText(Decoded(bytes)).record, Settings()));
    EXPECT_TRUE(ReadText(Decoded(bytes)).record.showWelcomeHint);
}

TEST(SettingsBytes, HalfACharacterAtTheEndIsLeftOut) {
    EXPECT_EQ(Decoded({0xFF, 0xFE, 0x5B, 0x00, 0x5D}), u"[");
    EXPECT_EQ(Decoded({0xFF, 0xFE, 0x5B}), u"");
}

TEST(SettingsBytes, AZeroCharacterEndsTheText) {
    EXPECT_EQ(Decoded({0xFF, 0xFE, 0x5B, 0x00, 0x00, 0x00, 0x5D, 0x00}), u"[");
}

TEST(SettingsBytes, EveryCharacterComesBack) {
    std::u16string all;
    for (uint32_t c = 1; c <= 0xFFFF; c++) {
        all.push_back(static_cast<char16_t>(c));
    }
    EXPECT_EQ(Decoded(Encoded(all)), all);
}

TEST(SettingsBytes, AMegabyteOfNoiseIsRead) {
    RandomSource random;
    for (int round = 0; round < 4; round++) {
        Bytes noise(1 << 20);
        for (uint8_t& byte : noise) {
            byte = static_cast<uint8_t>(random.Word());
        }
        noise[0] = 0xFF;
        noise[1] = 0xFE;
        EXPECT_TRUE(SameSettings(ReadText(Decoded(noise)).record, Settings()));
        // Only characters that the reader knows, so that it gets further.
        for (size_t i = 2; i < noise.size(); i += 2) {
            noise[i] = static_cast<uint8_t>(u"\r\n=; []variable0"[noise[i] % 16]);
            noise[i + 1] = 0;
        }
        const ReadText read(Decoded(noise));
        EXPECT_TRUE(SameSettings(ReadText(WrittenText(read.record)).record,
                                 ReadText(Decoded(noise)).record));
    }
}

}  // namespace
}  // namespace tallymere::testing_support
