#include "shell/settings_walk.h"

#include <algorithm>
#include <string_view>

#include "core/digit_text.h"
#include "shell/new_block.h"
#include "shell/settings_bytes.h"
#include "shell/settings_values.h"

namespace tallymere {

namespace {

constexpr std::u16string_view VariableKey = u"variable";
static_assert(ProductVariables <= 100, "two digits behind the key number the variables");

using Setter = void (*)(Settings& record, const char16_t* value);
using Getter = void (*)(const Settings& record, TextSink& sink);

// The walk in its two directions.
struct SettingsReader {
    Settings& record;
    char16_t* position;  // at most at the 0 that ends the text
};
struct SettingsWriter {
    const Settings& record;
    TextSink& sink;
};

constexpr bool IsLineEnd(char16_t c) {
    return c == u'\r' || c == u'\n';
}

char16_t* SkipBlanks(char16_t* text) {
    while (*text == u' ') {
        text++;
    }
    return text;
}

// The position behind `expected`; null if the text does not begin with it.
char16_t* SkipText(char16_t* text, std::u16string_view expected) {
    for (const char16_t c : expected) {
        if (*text++ != c) {
            return nullptr;
        }
    }
    return text;
}

char16_t* SkipThroughLineFeed(char16_t* text) {
    while (*text != 0) {
        if (*text++ == u'\n') {
            break;
        }
    }
    return text;
}

// Returns the rest of the line, ended with a 0, and moves to the next line.
char16_t* TakeRestOfLine(char16_t*& position) {
    char16_t* start = position;
    while (*position != 0 && !IsLineEnd(*position)) {
        position++;
    }
    const char16_t end = *position;
    if (end == 0) {
        return start;
    }
    *position++ = 0;
    // Any character behind a carriage return counts as the line feed.
    if (end == u'\r' && *position != 0) {
        position++;
    }
    return start;
}

void WalkSection(SettingsReader& reader, std::u16string_view name) {
    char16_t* text = SkipText(SkipBlanks(reader.position), u"[");
    if (text != nullptr) {
        text = SkipText(text, name);
    }
    if (text != nullptr) {
        text = SkipText(text, u"]");
    }
    if (text != nullptr) {
        reader.position = SkipThroughLineFeed(text);
    }
}

void WalkKey(SettingsReader& reader, std::u16string_view name, Setter set, Getter) {
    char16_t* text = SkipText(SkipBlanks(reader.position), name);
    if (text != nullptr) {
        text = SkipText(SkipBlanks(text), u"=");
    }
    if (text == nullptr) {
        set(reader.record, u"");
        return;
    }
    reader.position = SkipBlanks(text);
    set(reader.record, TakeRestOfLine(reader.position));
}

void KeepVariable(Settings& record, char16_t* text) {
    if (*text == 0 || record.variableCount == MaxVariables) {
        return;
    }
    char16_t* value = text;
    while (*value != 0 && *value != u';') {
        value++;
    }
    if (*value == u';') {
        *value++ = 0;
    }
    record.variables[record.variableCount++] = {text, value};
}

void WalkVariables(SettingsReader& reader) {
    reader.record.variableCount = 0;
    for (;;) {
        char16_t* text = SkipText(SkipBlanks(reader.position), VariableKey);
        if (text == nullptr || !IsDecimalDigit(*text)) {
            return;
        }
        while (*text != 0 && *text != u'=' && !IsLineEnd(*text)) {
            text++;
        }
        if (*text == u'=') {
            reader.position = SkipBlanks(text + 1);
            KeepVariable(reader.record, TakeRestOfLine(reader.position));
        } else {
            reader.position = SkipThroughLineFeed(text);
        }
    }
}

void WriteText(TextSink& sink, std::u16string_view text) {
    for (const char16_t c : text) {
        SinkChar(sink, c);
    }
}

void WriteLineEnd(TextSink& sink) {
    WriteText(sink, u"\r\n");
}

// Appends a text in which each line end becomes a blank.
void WriteVariableText(TextSink& sink, const char16_t* text) {
    for (; *text != 0; text++) {
        SinkChar(sink, IsLineEnd(*text) ? u' ' : *text);
    }
}

void WalkSection(SettingsWriter& writer, std::u16string_view name) {
    SinkChar(writer.sink, u'[');
    WriteText(writer.sink, name);
    SinkChar(writer.sink, u']');
    WriteLineEnd(writer.sink);
}

void WalkKey(SettingsWriter& writer, std::u16string_view name, Setter, Getter get) {
    WriteText(writer.sink, name);
    WriteText(writer.sink, u" = ");
    get(writer.record, writer.sink);
    WriteLineEnd(writer.sink);
}

void WalkVariables(SettingsWriter& writer) {
    TextSink& sink = writer.sink;
    for (int64_t i = 0; i < writer.record.variableCount; i++) {
        WriteText(sink, VariableKey);
        SinkChar(sink, static_cast<char16_t>(u'0' + i / 10));
        SinkChar(sink, static_cast<char16_t>(u'0' + i % 10));
        WriteText(sink, u" = ");
        WriteVariableText(sink, writer.record.variables[i].name);
        SinkChar(sink, u';');
        WriteVariableText(sink, writer.record.variables[i].value);
        WriteLineEnd(sink);
    }
}

template <typename Walk>
void WalkSettings(Walk walk) {
    WalkSection(walk, u"options");
    WalkKey(walk, u"language", SetLanguageValue, GetLanguageValue);
    WalkKey(walk, u"decimal_separator", SetDecimalSeparatorValue, GetDecimalSeparatorValue);
    WalkKey(walk, u"thousands_separator", SetThousandsSeparatorValue, GetThousandsSeparatorValue);
    WalkKey(walk, u"thousands_sep_sci_calc", SetGroupCalculatorValue, GetGroupCalculatorValue);
    WalkKey(walk, u"thousands_sep_equations", SetGroupEquationsValue, GetGroupEquationsValue);
    WalkKey(walk, u"thousands_sep_prime_nums", SetGroupPrimesValue, GetGroupPrimesValue);
    WalkSection(walk, u"scientific_calculator");
    WalkKey(walk, u"angle_type", SetAngleTypeValue, GetAngleTypeValue);
    WalkKey(walk, u"number_type", SetNumberTypeValue, GetNumberTypeValue);
    WalkKey(walk, u"decimal_precision", SetDecimalPrecisionValue, GetDecimalPrecisionValue);
    WalkKey(walk, u"output_number_base", SetOutputNumberBaseValue, GetOutputNumberBaseValue);
    WalkKey(walk, u"use_lower_case_hex", SetUseLowerCaseHexValue, GetUseLowerCaseHexValue);
    WalkVariables(walk);
    WalkSection(walk, u"hints");
    WalkKey(walk, u"show_welcome_hint", SetShowWelcomeHintValue, GetShowWelcomeHintValue);
}

}  // namespace

void ReadSettings(Settings& record, char16_t* text) {
    record.settingsDirty = false;
    WalkSettings(SettingsReader{record, text});
}

void WriteSettings(TextSink& sink, const Settings& record) {
    WalkSettings(SettingsWriter{record, sink});
}

bool SettingsKeepName(std::u16string_view name) {
    return name.find_first_of(u";\r\n") == name.npos && !name.starts_with(u' ') &&
           !name.ends_with(u' ');
}

bool IsWholeSettingsFile(const uint8_t* bytes, int64_t byteCount) {
    const int64_t room = SettingsTextRoom(byteCount);
    const auto read = NewBlock<char16_t>(room);
    const auto written = NewBlock<char16_t>(room);
    const auto again = NewBlock<uint8_t>(byteCount);
    if (read == nullptr || written == nullptr || again == nullptr) {
        return false;
    }
    DecodeSettings(read.get(), bytes, byteCount);
    Settings record;
    ReadSettings(record, read.get());
    TextSink sink = {0, room, written.get()};
    WriteSettings(sink, record);
    if (SettingsByteCount(sink.count) != byteCount) {
        return false;
    }
    EncodeSettings(again.get(), written.get(), sink.count);
    return std::equal(bytes, bytes + byteCount, again.get());
}

}  // namespace tallymere
