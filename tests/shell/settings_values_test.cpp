#include "shell/settings_values.h"

#include "shell/settings_testing.h"

namespace tallymere::testing_support {
namespace {

using Setter = void (*)(Settings&, const char16_t*);
using Getter = void (*)(const Settings&, TextSink&);
using SetterOf = std::pair<Setter, bool Settings::*>;
using GetterOf = std::pair<Getter, bool Settings::*>;

std::u16string TextOf(Getter get, const Settings& record) {
    char16_t text[40];
    TextSink sink = {0, 39, text};
    get(record, sink);
    EXPECT_FALSE(SinkOverflowed(sink));
    return {text, static_cast<size_t>(sink.count)};
}

// The value that the setting has behind a text, where it was `before`.
template <typename Value>
Value Taken(Setter set, Value Settings::*setting, const char16_t* text, Value before) {
    Settings record;
    record.*setting = before;
    set(record, text);
    EXPECT_FALSE(record.settingsDirty);
    return record.*setting;
}

template <typename Value>
struct Named {
    const char16_t* text;
    Value value;
};

// Each text means its value and the other way round; all other texts mean `otherwise`.
template <typename Value>
void ExpectNames(Setter set, Getter get, Value Settings::*setting,
                 std::initializer_list<Named<Value>> names, Value otherwise) {
    for (const Named<Value>& name : names) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(name.text)));
        Settings record;
        record.*setting = name.value;
        EXPECT_EQ(TextOf(get, record), name.text);
        for (const Named<Value>& before : names) {
            const std::u16string text = name.text;
            EXPECT_EQ(Taken(set, setting, name.text, before.value), name.value);
            // Whole texts only, and each character as it stands.
            for (const std::u16string& wrong :
                 {text + u" ", u" " + text, text + u"x", text.substr(1), text.substr(0, 1),
                  text.substr(0, text.size() - 1), std::u16string(u"?"), std::u16string(),
                  text + text, std::u16string(u"???")}) {
                EXPECT_EQ(Taken(set, setting, wrong.c_str(), before.value), otherwise)
                    << testing::PrintToString(wrong);
            }
            std::u16string otherCase = text;
            for (char16_t& c : otherCase) {
                c = (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') ? c ^ 0x20 : c;
            }
            if (otherCase != text) {
                EXPECT_EQ(Taken(set, setting, otherCase.c_str(), before.value), otherwise);
            }
        }
    }
}

TEST(SettingsValues, Languages) {
    ExpectNames<Language>(SetLanguageValue, GetLanguageValue, &Settings::language,
                          {{u"(automatic)", LanguageAutomatic},
                           {u"English", LanguageEnglish},
                           {u"German", LanguageGerman}},
                          LanguageAutomatic);
}

TEST(SettingsValues, DecimalSeparators) {
    ExpectNames<int32_t>(SetDecimalSeparatorValue, GetDecimalSeparatorValue,
                         &Settings::decimalSeparator,
                         {{u"(automatic)", -1}, {u"point", 0}, {u"comma", 1}}, -1);
    EXPECT_EQ(Taken(SetDecimalSeparatorValue, &Settings::decimalSeparator, u"apostrophe", 0), -1);
}

TEST(SettingsValues, ThousandsSeparators) {
    ExpectNames<int32_t>(SetThousandsSeparatorValue, GetThousandsSeparatorValue,
                         &Settings::thousandsSeparator,
                         {{u"(automatic)", -1},
                          {u"point", 0},
                          {u"comma", 1},
                          {u"apostrophe", 2},
                          {u"space_U202F", 3}},
                         -1);
}

TEST(SettingsValues, GroupingFlags) {
    const std::initializer_list<Named<bool>> names = {{u"1", true}, {u"0", false}};
    for (const Named<bool>& name : names) {
        for (const bool before : {false, true}) {
            for (const auto& [set, setting] :
                 {SetterOf{SetGroupCalculatorValue, &Settings::groupCalculator},
                  SetterOf{SetGroupEquationsValue, &Settings::groupEquations},
                  SetterOf{SetGroupPrimesValue, &Settings::groupPrimes}}) {
                EXPECT_EQ(Taken(set, setting, name.text, before), name.value);
                for (const char16_t* other :
                     {u"", u"10", u"01", u"2", u" 1", u"1 ", u"-1", u"true", u"yes", u"\uFF11"}) {
                    EXPECT_FALSE(Taken(set, setting, other, before));
                }
            }
        }
    }
    for (const auto& [get, setting] :
         {GetterOf{GetGroupCalculatorValue, &Settings::groupCalculator},
          GetterOf{GetGroupEquationsValue, &Settings::groupEquations},
          GetterOf{GetGroupPrimesValue, &Settings::groupPrimes}}) {
        Settings record;
        EXPECT_EQ(TextOf(get, record), u"0");
        record.*setting = true;
        EXPECT_EQ(TextOf(get, record), u"1");
    }
}

TEST(SettingsValues, AngleTypes) {
    ExpectNames<AngleType>(SetAngleTypeValue, GetAngleTypeValue, &Settings::angleType,
                           {{u"deg", AngleDegrees}, {u"rad", AngleRadians}, {u"gon", AngleGon}},
                           AngleRadians);
}

TEST(SettingsValues, NumberTypes) {
    ExpectNames<NumberType>(SetNumberTypeValue, GetNumberTypeValue, &Settings::numberType,
                            {{u"rat", NumberTypeRational},
                             {u"real", NumberTypeReal},
                             {u"cplx", NumberTypeComplex},
                             {u"uint", NumberTypeUint}},
                            NumberTypeReal);
}

TEST(SettingsValues, NumbersAreReadAsFarAsTheyGo) {
    struct Case {
        const char16_t* text;
        int64_t value;
    };
    for (const Case& test : {Case{u"0", 0},
                             Case{u"1", 1},
                             Case{u"10000", 10'000},
                             Case{u"0012", 12},
                             Case{u"+7", 7},
                             Case{u"-7", -7},
                             Case{u"- 7", 0},
                             Case{u"+-7", 0},
                             Case{u"12abc", 12},
                             Case{u"12 34", 12},
                             Case{u"12.9", 12},
                             Case{u"1e3", 1},
                             Case{u"0x10", 0},
                             Case{u"\t\n\v\f\r 5", 5},
                             Case{u"\u00A05", 0},
                             Case{u"\u0665", 0},
                             Case{u"abc", 0},
                             Case{u"", 0},
                             Case{u"-", 0},
                             Case{u"2147483646", 2'147'483'646},
                             Case{u"2147483647", 2'147'483'647},
                             Case{u"2147483648", 2'147'483'647},
                             Case{u"4294967297", 2'147'483'647},
                             Case{u"99999999999999999999999999", 2'147'483'647},
                             Case{u"-2147483647", -2'147'483'647},
                             Case{u"-2147483648", -2'147'483'648},
                             Case{u"-2147483649", -2'147'483'648},
                             Case{u"-99999999999999999999999999", -2'147'483'648}}) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(test.text)));
        EXPECT_EQ(
            Taken<int64_t>(SetDecimalPrecisionValue, &Settings::decimalPrecision, test.text, 99),
            test.value);
        EXPECT_EQ(
            Taken<int64_t>(SetOutputNumberBaseValue, &Settings::outputNumberBase, test.text, 99),
            test.value != 0 ? test.value : 10);
    }
}

TEST(SettingsValues, NumbersAreWrittenInDecimal) {
    struct Case {
        int64_t value;
        const char16_t* text;
    };
    for (const Case& test :
         {Case{0, u"0"}, Case{7, u"7"}, Case{-7, u"-7"}, Case{10'000, u"10000"},
          Case{2'147'483'647, u"2147483647"}, Case{-2'147'483'648, u"-2147483648"},
          Case{INT64_MAX, u"9223372036854775807"}, Case{INT64_MIN, u"-9223372036854775808"}}) {
        Settings record;
        record.decimalPrecision = test.value;
        EXPECT_EQ(TextOf(GetDecimalPrecisionValue, record), test.text);
        record.outputNumberBase = test.value;
        EXPECT_EQ(TextOf(GetOutputNumberBaseValue, record), test.text);
    }
}

TEST(SettingsValues, AnyBaseIsKeptButZero) {
    Settings record;
    SetOutputNumberBaseValue(record, u"7");
    EXPECT_EQ(record.outputNumberBase, 7);
    EXPECT_EQ(InstalledOutputBase(record), 10);
    EXPECT_EQ(TextOf(GetOutputNumberBaseValue, record), u"7");
    SetOutputNumberBaseValue(record, u"0");
    EXPECT_EQ(record.outputNumberBase, 10);
}

TEST(SettingsValues, OnlyTheFirstCharacterOfLowerCaseCounts) {
    for (const bool before : {false, true}) {
        for (const char16_t* text : {u"1", u"10", u"1 ", u"1x", u"11"}) {
            EXPECT_TRUE(Taken(SetUseLowerCaseHexValue, &Settings::useLowerCaseHex, text, before));
        }
        for (const char16_t* text : {u"0", u"", u" 1", u"01", u"2", u"x1"}) {
            EXPECT_FALSE(Taken(SetUseLowerCaseHexValue, &Settings::useLowerCaseHex, text, before));
        }
    }
    Settings record;
    EXPECT_EQ(TextOf(GetUseLowerCaseHexValue, record), u"0");
    record.useLowerCaseHex = true;
    EXPECT_EQ(TextOf(GetUseLowerCaseHexValue, record), u"1");
}

TEST(SettingsValues, TheWelcomeHintIsOnUnlessItIsExactlyZero) {
    for (const bool before : {false, true}) {
        EXPECT_FALSE(Taken(SetShowWelcomeHintValue, &Settings::showWelcomeHint, u"0", before));
        for (const char16_t* text : {u"1", u"", u"00", u"0 ", u" 0", u"2", u"no", u"01"}) {
            EXPECT_TRUE(Taken(SetShowWelcomeHintValue, &Settings::showWelcomeHint, text, before));
        }
    }
    Settings record;
    EXPECT_EQ(TextOf(GetShowWelcomeHintValue, record), u"1");
    record.showWelcomeHint = false;
    EXPECT_EQ(TextOf(GetShowWelcomeHintValue, record), u"0");
}

TEST(SettingsValues, AValueWithoutNameIsWrittenAsQuestionMarks) {
    Settings record;
    record.language = static_cast<Language>(0);
    record.decimalSeparator = 2;
    record.thousandsSeparator = 4;
    record.angleType = static_cast<AngleType>(0);
    record.numberType = NumberTypeNone;
    for (const Getter get : {GetLanguageValue, GetDecimalSeparatorValue, GetThousandsSeparatorValue,
                             GetAngleTypeValue, GetNumberTypeValue}) {
        EXPECT_EQ(TextOf(get, record), u"???");
    }
    EXPECT_NE(WrittenText(record).find(u"number_type = ???\r\n"), std::u16string::npos);
}

}  // namespace
}  // namespace tallymere::testing_support
