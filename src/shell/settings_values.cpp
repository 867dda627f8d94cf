#include "shell/settings_values.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <string_view>

#include "core/digit_text.h"
#include "core/number_bases.h"
#include "shell/languages.h"

namespace tallymere {

namespace {

template <typename Value>
struct ValueName {
    Value value;
    std::u16string_view name;
};

// The first is what a text means that is not in the table.
constexpr auto LanguageNames = [] {
    std::array<ValueName<Language>, LanguageCount + 1> names = {};
    names[0] = {LanguageAutomatic, u"(automatic)"};
    for (size_t i = 0; i < LanguageCount; i++) {
        names[i + 1] = {Languages[i].language, Languages[i].settingsName};
    }
    return names;
}();
constexpr ValueName<int32_t> DecimalNames[] = {
    {DecimalAutomatic, u"(automatic)"},
    {DecimalPoint, u"point"},
    {DecimalComma, u"comma"},
};
constexpr ValueName<int32_t> ThousandsNames[] = {
    {ThousandsAutomatic, u"(automatic)"},
    {ThousandsPoint, u"point"},
    {ThousandsComma, u"comma"},
    {ThousandsApostrophe, u"apostrophe"},
    {ThousandsNarrowSpace, u"space_U202F"},
};
constexpr ValueName<AngleType> AngleNames[] = {
    {AngleRadians, u"rad"},
    {AngleDegrees, u"deg"},
    {AngleGon, u"gon"},
};
constexpr ValueName<NumberType> NumberTypeNames[] = {
    {NumberTypeReal, u"real"},
    {NumberTypeComplex, u"cplx"},
    {NumberTypeUint, u"uint"},
    {NumberTypeRational, u"rat"},
};

auto ValueOf(const auto& names, std::u16string_view text) {
    const auto found = std::find_if(std::begin(names), std::end(names),
                                    [text](const auto& entry) { return entry.name == text; });
    return found != std::end(names) ? found->value : names[0].value;
}

void WriteName(TextSink& sink, const auto& names, auto value) {
    const auto found = std::find_if(std::begin(names), std::end(names),
                                    [value](const auto& entry) { return entry.value == value; });
    SinkText(sink, found != std::end(names) ? found->name.data() : u"???");
}

constexpr bool IsOne(std::u16string_view text) {
    return text == u"1";
}

void WriteFlag(TextSink& sink, bool flag) {
    SinkChar(sink, flag ? u'1' : u'0');
}

constexpr bool IsWhiteSpace(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

int64_t NumberOf(const char16_t* text) {
    constexpr int64_t highest = std::numeric_limits<int32_t>::max();
    while (IsWhiteSpace(*text)) {
        text++;
    }
    const bool negative = *text == u'-';
    if (negative || *text == u'+') {
        text++;
    }
    int64_t magnitude = 0;
    for (; IsDecimalDigit(*text); text++) {
        magnitude = std::min(magnitude * 10 + (*text - u'0'), highest + 1);
    }
    return negative ? -magnitude : std::min(magnitude, highest);
}

void WriteNumber(TextSink& sink, int64_t number) {
    char16_t digits[19];
    int64_t count = 0;
    uint64_t magnitude = static_cast<uint64_t>(number);
    if (number < 0) {
        SinkChar(sink, u'-');
        magnitude = 0 - magnitude;
    }
    do {
        digits[count++] = static_cast<char16_t>(u'0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    while (count > 0) {
        SinkChar(sink, digits[--count]);
    }
}

}  // namespace

void SetLanguageValue(Settings& record, const char16_t* value) {
    record.language = ValueOf(LanguageNames, value);
}
void GetLanguageValue(const Settings& record, TextSink& sink) {
    WriteName(sink, LanguageNames, record.language);
}

void SetDecimalSeparatorValue(Settings& record, const char16_t* value) {
    record.decimalSeparator = ValueOf(DecimalNames, value);
}
void GetDecimalSeparatorValue(const Settings& record, TextSink& sink) {
    WriteName(sink, DecimalNames, record.decimalSeparator);
}

void SetThousandsSeparatorValue(Settings& record, const char16_t* value) {
    record.thousandsSeparator = ValueOf(ThousandsNames, value);
}
void GetThousandsSeparatorValue(const Settings& record, TextSink& sink) {
    WriteName(sink, ThousandsNames, record.thousandsSeparator);
}

void SetGroupCalculatorValue(Settings& record, const char16_t* value) {
    record.groupCalculator = IsOne(value);
}
void GetGroupCalculatorValue(const Settings& record, TextSink& sink) {
    WriteFlag(sink, record.groupCalculator);
}

void SetGroupEquationsValue(Settings& record, const char16_t* value) {
    record.groupEquations = IsOne(value);
}
void GetGroupEquationsValue(const Settings& record, TextSink& sink) {
    WriteFlag(sink, record.groupEquations);
}

void SetGroupPrimesValue(Settings& record, const char16_t* value) {
    record.groupPrimes = IsOne(value);
}
void GetGroupPrimesValue(const Settings& record, TextSink& sink) {
    WriteFlag(sink, record.groupPrimes);
}

void SetAngleTypeValue(Settings& record, const char16_t* value) {
    record.angleType = ValueOf(AngleNames, value);
}
void GetAngleTypeValue(const Settings& record, TextSink& sink) {
    WriteName(sink, AngleNames, record.angleType);
}

void SetNumberTypeValue(Settings& record, const char16_t* value) {
    record.numberType = ValueOf(NumberTypeNames, value);
}
void GetNumberTypeValue(const Settings& record, TextSink& sink) {
    WriteName(sink, NumberTypeNames, record.numberType);
}

void SetDecimalPrecisionValue(Settings& record, const char16_t* value) {
    record.decimalPrecision = NumberOf(value);
}
void GetDecimalPrecisionValue(const Settings& record, TextSink& sink) {
    WriteNumber(sink, record.decimalPrecision);
}

void SetOutputNumberBaseValue(Settings& record, const char16_t* value) {
    const int64_t base = NumberOf(value);
    record.outputNumberBase = base != 0 ? base : DecimalBase;
}
void GetOutputNumberBaseValue(const Settings& record, TextSink& sink) {
    WriteNumber(sink, record.outputNumberBase);
}

void SetUseLowerCaseHexValue(Settings& record, const char16_t* value) {
    record.useLowerCaseHex = value[0] == u'1';
}
void GetUseLowerCaseHexValue(const Settings& record, TextSink& sink) {
    WriteFlag(sink, record.useLowerCaseHex);
}

void SetShowWelcomeHintValue(Settings& record, const char16_t* value) {
    record.showWelcomeHint = std::u16string_view(value) != u"0";
}
void GetShowWelcomeHintValue(const Settings& record, TextSink& sink) {
    WriteFlag(sink, record.showWelcomeHint);
}

}  // namespace tallymere
