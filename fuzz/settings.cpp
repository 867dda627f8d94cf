// The settings file without the file: what is read from any bytes is what the plain twin finds, and
// comes back after writing.
//
// Input: "a" and a text, or "b" and the bytes of a file.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fuzz/harness_list.h"
#include "reference/settings_twins.h"
#include "shell/settings_bytes.h"
#include "shell/settings_testing.h"

namespace tallymere::fuzz {

using namespace testing_support;

namespace {

std::vector<uint8_t> Encoded(const std::u16string& text) {
    const auto count = static_cast<int64_t>(text.size());
    std::vector<uint8_t> bytes(static_cast<size_t>(SettingsByteCount(count)));
    EncodeSettings(bytes.data(), text.data(), count);
    return bytes;
}

std::u16string Decoded(const std::vector<uint8_t>& bytes) {
    const auto count = static_cast<int64_t>(bytes.size());
    std::vector<char16_t> text(static_cast<size_t>(SettingsTextRoom(count)));
    DecodeSettings(text.data(), bytes.data(), count);
    return text.data();
}

// The variables are numbered from 00 on.
void ExpectNumberedVariables(const std::u16string& written, int64_t count) {
    for (int64_t i = 0; i < MaxVariables; i++) {
        const std::u16string key = {static_cast<char16_t>(u'0' + i / 10),
                                    static_cast<char16_t>(u'0' + i % 10)};
        const bool isThere = written.find(u"\r\nvariable" + key + u" = ") != std::u16string::npos;
        EXPECT_EQ(isThere, i < count) << i;
    }
}

}  // namespace

void FuzzSettings(FuzzInput& input) {
    std::vector<uint8_t> bytes;
    if (input.Choice(2) == 0) {
        bytes = Encoded(input.Text());
    } else {
        const auto raw = input.Bytes();
        bytes.assign(raw.begin(), raw.end());
    }
    const std::u16string text = Decoded(bytes);
    const ReadText read(text);
    EXPECT_EQ(VariablesOf(read.record), reference::TwinReadSettings(text).variables);
    EXPECT_FALSE(read.record.settingsDirty);

    const std::u16string written = WrittenText(read.record);
    ExpectNumberedVariables(written, read.record.variableCount);
    const std::u16string stored = Decoded(Encoded(written));
    EXPECT_EQ(stored, written);
    EXPECT_EQ(reference::TwinReadSettings(written).variables, VariablesOf(read.record));
    const ReadText again(written);
    EXPECT_TRUE(SameSettings(again.record, read.record));
    EXPECT_EQ(WrittenText(again.record), written);
}

}  // namespace tallymere::fuzz
