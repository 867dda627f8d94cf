// What tests of the settings share: settings together with the text that they were read from, and
// the text that they are written as.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/settings_walk.h"

namespace tallymere::testing_support {

/// Settings read from a text of their own, in a block of just its length.
class ReadText {
public:
    explicit ReadText(std::u16string_view text) : text_(text.begin(), text.end()) {
        text_.push_back(0);
        text_.shrink_to_fit();
        ReadSettings(record, text_.data());
    }
    ReadText(const ReadText&) = delete;
    ReadText& operator=(const ReadText&) = delete;

    Settings record;

private:
    std::vector<char16_t> text_;
};

/// The text of the file, in a block of just the length that a sink without room tells.
inline std::u16string WrittenText(const Settings& record) {
    TextSink measure = {0, 0, nullptr};
    WriteSettings(measure, record);
    std::vector<char16_t> text(static_cast<size_t>(measure.count));
    TextSink sink = {0, measure.count, text.data()};
    WriteSettings(sink, record);
    EXPECT_EQ(sink.count, measure.count);
    return {text.begin(), text.end()};
}

using Texts = std::vector<std::pair<std::u16string, std::u16string>>;

/// The names and values of the variables.
inline Texts VariablesOf(const Settings& record) {
    Texts texts;
    for (int64_t i = 0; i < record.variableCount; i++) {
        texts.emplace_back(record.variables[i].name, record.variables[i].value);
    }
    return texts;
}

/// Every setting is the same, and every text of the variables.
inline bool SameSettings(const Settings& a, const Settings& b) {
    return a.language == b.language && a.decimalSeparator == b.decimalSeparator &&
           a.thousandsSeparator == b.thousandsSeparator && a.groupCalculator == b.groupCalculator &&
           a.groupEquations == b.groupEquations && a.groupPrimes == b.groupPrimes &&
           a.angleType == b.angleType && a.numberType == b.numberType &&
           a.decimalPrecision == b.decimalPrecision && a.outputNumberBase == b.outputNumberBase &&
           a.useLowerCaseHex == b.useLowerCaseHex && VariablesOf(a) == VariablesOf(b) &&
           a.showWelcomeHint == b.showWelcomeHint && a.settingsDirty == b.settingsDirty;
}

/// A file in which no setting has its default, in lines without their ends.
inline const std::vector<std::u16string> FullFileLines = {
    u"[options]",
    u"language = German",
    u"decimal_separator = comma",
    u"thousands_separator = space_U202F",
    u"thousands_sep_sci_calc = 1",
    u"thousands_sep_equations = 1",
    u"thousands_sep_prime_nums = 1",
    u"[scientific_calculator]",
    u"angle_type = gon",
    u"number_type = uint",
    u"decimal_precision = 1234",
    u"output_number_base = 16",
    u"use_lower_case_hex = 1",
    u"variable00 = x;1.5",
    u"variable01 = y;2*x",
    u"variable02 = \u03B1;",
    u"[hints]",
    u"show_welcome_hint = 0",
};

/// The lines of FullFileLines by their place in it.
enum FullFileLine : size_t {
    OptionsLine,
    LanguageLine,
    DecimalLine,
    ThousandsLine,
    GroupCalculatorLine,
    GroupEquationsLine,
    GroupPrimesLine,
    CalculatorLine,
    AngleLine,
    NumberTypeLine,
    PrecisionLine,
    BaseLine,
    LowerCaseLine,
    FirstVariableLine,
    SecondVariableLine,
    ThirdVariableLine,
    HintsLine,
    WelcomeLine,
};

inline std::u16string Joined(const std::vector<std::u16string>& lines,
                             const std::u16string& lineEnd = u"\r\n") {
    std::u16string text;
    for (const std::u16string& line : lines) {
        text += line + lineEnd;
    }
    return text;
}

}  // namespace tallymere::testing_support
