// Settings files with random faults: what is read is what the plain twin finds, and a file that
// is written after reading gives the same settings and is written the same again.

#include <algorithm>
#include <iterator>

#include "reference/settings_twins.h"
#include "shell/settings_bytes.h"
#include "shell/settings_testing.h"
#include "shell/settings_values.h"
#include "support/random_source.h"

namespace tallymere::testing_support {
namespace {

constexpr int Files = 1'000'000;

// In the order of the file.
constexpr void (*Setters[])(Settings&, const char16_t*) = {
    SetLanguageValue,         SetDecimalSeparatorValue, SetThousandsSeparatorValue,
    SetGroupCalculatorValue,  SetGroupEquationsValue,   SetGroupPrimesValue,
    SetAngleTypeValue,        SetNumberTypeValue,       SetDecimalPrecisionValue,
    SetOutputNumberBaseValue, SetUseLowerCaseHexValue,  SetShowWelcomeHintValue,
};

// The settings that the plain twin finds; they point into `twin`.
Settings SettingsOf(const reference::TwinSettings& twin) {
    Settings record;
    for (size_t i = 0; i < twin.values.size(); i++) {
        Setters[i](record, twin.values[i].c_str());
    }
    for (const auto& [name, value] : twin.variables) {
        record.variables[record.variableCount++] = {name.c_str(), value.c_str()};
    }
    return record;
}

char16_t RandomCharacter(RandomSource& random) {
    using namespace std::string_view_literals;
    static constexpr std::u16string_view Telling = u"\r\n=; []01v\0\t\u202Fx-"sv;
    return random.Below(4) != 0 ? Telling[random.Below(Telling.size())]
                                : static_cast<char16_t>(random.Word());
}

std::u16string RandomValue(RandomSource& random) {
    static const std::u16string Values[] = {
        u"(automatic)", u"English",     u"German", u"point", u"comma", u"apostrophe",
        u"space_U202F", u"0",           u"1",      u"deg",   u"gon",   u"rat",
        u"cplx",        u"uint",        u"2",      u"8",     u"16",    u"10000",
        u"-5",          u"99999999999", u"",       u" ",     u"7x",    u"\t12"};
    return Values[random.Below(std::size(Values))];
}

// The lines of a file without faults, of which some have another value.
std::vector<std::u16string> RandomLines(RandomSource& random) {
    std::vector<std::u16string> lines = FullFileLines;
    for (std::u16string& line : lines) {
        const size_t equals = line.find(u'=');
        if (equals != line.npos && random.Below(2) == 0) {
            line.resize(equals + 1);
            line += RandomValue(random);
        }
    }
    const uint64_t more = random.Below(16) == 0 ? 90 + random.Below(20) : random.Below(3);
    lines.insert(lines.begin() + HintsLine, more, u"variable10 = z;3");
    return lines;
}

void SpoilLines(RandomSource& random, std::vector<std::u16string>& lines) {
    const auto any = [&] {
        return lines.begin() + static_cast<ptrdiff_t>(random.Below(lines.size()));
    };
    switch (random.Below(6)) {
        case 0:
            std::iter_swap(any(), any());
            break;
        case 1:
            lines.erase(any());
            break;
        case 2: {
            const std::u16string copy = *any();
            lines.insert(any(), copy);
            break;
        }
        case 3:
            *any() = RandomValue(random);
            break;
        default:
            break;
    }
}

void SpoilText(RandomSource& random, std::u16string& text) {
    const size_t at = random.Below(text.size() + 1);
    switch (random.Below(6)) {
        case 0:
            text.insert(at, 1 + random.Below(3), RandomCharacter(random));
            break;
        case 1:
            text.erase(at, 1 + random.Below(random.Below(4) == 0 ? 100 : 3));
            break;
        case 2:
            if (at < text.size()) {
                text[at] = RandomCharacter(random);
            }
            break;
        case 3:
            if (random.Below(4) == 0) {
                text.resize(at);
            }
            break;
        default:
            break;
    }
}

// Through the bytes of a file, of which one in eight has a fault there too.
std::u16string ThroughBytes(RandomSource& random, const std::u16string& text) {
    const auto count = static_cast<int64_t>(text.size());
    std::vector<uint8_t> bytes(static_cast<size_t>(SettingsByteCount(count)));
    EncodeSettings(bytes.data(), text.data(), count);
    if (random.Below(8) == 0) {
        const auto at = bytes.begin() + static_cast<ptrdiff_t>(random.Below(bytes.size()));
        if (random.Below(2) == 0) {
            bytes.erase(at);
        } else {
            *at = static_cast<uint8_t>(random.Word());
        }
    }
    const auto left = static_cast<int64_t>(bytes.size());
    std::vector<char16_t> decoded(static_cast<size_t>(SettingsTextRoom(left)));
    DecodeSettings(decoded.data(), bytes.data(), left);
    return {decoded.data()};
}

std::u16string RandomFile(RandomSource& random) {
    static const std::u16string LineEnds[] = {u"\r\n", u"\r\n", u"\r\n", u"\n", u"\r", u"\r\r\n"};
    std::vector<std::u16string> lines = RandomLines(random);
    for (uint64_t faults = random.Below(4); faults > 0; faults--) {
        SpoilLines(random, lines);
    }
    std::u16string text = Joined(lines, LineEnds[random.Below(std::size(LineEnds))]);
    for (uint64_t faults = random.Below(4); faults > 0; faults--) {
        SpoilText(random, text);
    }
    return ThroughBytes(random, text);
}

TEST(SettingsFuzz, FaultyFilesAreReadAsThePlainTwinDoesAndComeBackAfterWriting) {
    RandomSource random;
    int64_t withVariables = 0;
    int64_t withHint = 0;
    const int rounds = TestRounds(Files);
    for (int round = 0; round < rounds; round++) {
        const std::u16string file = RandomFile(random);
        const ReadText read(file);
        const reference::TwinSettings twin = reference::TwinReadSettings(file);
        ASSERT_TRUE(SameSettings(read.record, SettingsOf(twin))) << testing::PrintToString(file);
        const std::u16string written = WrittenText(read.record);
        const ReadText again(written);
        ASSERT_TRUE(SameSettings(again.record, read.record)) << testing::PrintToString(file);
        ASSERT_EQ(WrittenText(again.record), written) << testing::PrintToString(file);
        withVariables += read.record.variableCount > 0;
        withHint += !read.record.showWelcomeHint;
    }
    // Faults must not be so many that nothing is read behind them.
    EXPECT_GT(withVariables, rounds / 8);
    EXPECT_GT(withHint, rounds / 16);
}

}  // namespace
}  // namespace tallymere::testing_support
