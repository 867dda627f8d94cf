#include "console/options.h"

#include <algorithm>
#include <array>
#include <span>
#include <type_traits>

#include "calculator/variable_table.h"
#include "console/utf8.h"
#include "core/limits.h"
#include "core/number_bases.h"
#include "shell/languages.h"
#include "shell/text_sink.h"

namespace tallymere {

namespace {

constexpr std::string_view NotAllowedValue = "is not allowed";

struct Choice {
    std::string_view word;
    int32_t value;
};

// What a value may be that is none of some choices.
std::string DigitsForm() {
    return "1 to " + std::to_string(MaxDigits);
}
std::string VariableForm() {
    return "NAME=TEXT, the name 1 to " + std::to_string(VariableNameCharacters) +
           " letters, _ and digits, no digit first, and not e, i, \u03C0, pi or ans";
}
std::string NoValue() {
    return "no value";
}

// The choices that a table of the program has. `word` gives the word of a row, a text that lives as
// long as the process; `value` its value.
template <size_t Count>
std::array<Choice, Count> ChoicesOf(const auto(&rows)[Count], auto word, auto value) {
    std::array<Choice, Count> choices = {};
    for (size_t i = 0; i < Count; i++) {
        choices[i] = {word(rows[i]), value(rows[i])};
    }
    return choices;
}

// The digits of a base.
std::string_view BaseWord(const NumberBase& row) {
    static std::array<std::string, HighestBase + 1> words;
    std::string& word = words[static_cast<size_t>(row.base)];
    word = std::to_string(row.base);
    return word;
}

constexpr Choice Types[] = {{"real", NumberTypeReal},
                            {"cplx", NumberTypeComplex},
                            {"uint", NumberTypeUint},
                            {"rat", NumberTypeRational}};
const auto Bases = ChoicesOf(NumberBases, BaseWord, [](const NumberBase& row) { return row.base; });
constexpr Choice Forms[] = {{"auto", ResultAutomatic},
                            {"fixed", ResultFixed},
                            {"scientific", ResultScientific},
                            {"mixed", ResultMixed}};
constexpr Choice Decimals[] = {{"point", DecimalPoint}, {"comma", DecimalComma}};
constexpr Choice Thousands[] = {{"point", ThousandsPoint},
                                {"comma", ThousandsComma},
                                {"apostrophe", ThousandsApostrophe},
                                {"narrow-space", ThousandsNarrowSpace}};
const auto LanguageWords = ChoicesOf(
    Languages, [](const LanguageRow& row) { return row.code; },
    [](const LanguageRow& row) { return int32_t{row.language}; });

// An option; `set` takes over a value that is one of the choices, or any value where there are no
// choices, and returns what is wrong with it, or nothing.
struct Option {
    std::string_view name;
    std::span<const Choice> choices;
    std::string (*allowed)();  // what a value may be where there are no choices
    bool takesValue;
    std::string (*set)(ConsoleOptions& options, std::string_view value, int32_t choice);
};

std::string SetDigits(ConsoleOptions& options, std::string_view value, int32_t) {
    int64_t digits = 0;
    for (const char c : value) {
        if (c < '0' || c > '9' || digits > MaxDigits) {
            return std::string(NotAllowedValue);
        }
        digits = digits * 10 + (c - '0');
    }
    if (digits < 1 || digits > MaxDigits) {
        return std::string(NotAllowedValue);
    }
    options.digits = digits;
    return {};
}

std::string SetVariable(ConsoleOptions& options, std::string_view value, int32_t) {
    const DecodedText decoded = DecodeUtf8(value);
    if (decoded.firstInvalid != DecodedText::NoPosition) {
        return "is not valid UTF-8";
    }
    const size_t equals = decoded.text.find(u'=');
    if (equals == decoded.text.npos) {
        return "has no =";
    }
    ConsoleVariable variable = {decoded.text.substr(0, equals), decoded.text.substr(equals + 1)};
    if (variable.name.empty() ||
        variable.name.size() > static_cast<size_t>(VariableNameCharacters) ||
        !IsValidVariableName(variable.name.c_str())) {
        return "has no valid name";
    }
    if (variable.text.size() > static_cast<size_t>(VariableValueCharacters)) {
        return "has more than " + std::to_string(VariableValueCharacters) + " characters";
    }
    const auto same =
        std::find_if(options.variables.begin(), options.variables.end(),
                     [&](const ConsoleVariable& v) { return v.name == variable.name; });
    if (same != options.variables.end()) {
        *same = std::move(variable);
    } else if (options.variables.size() == static_cast<size_t>(MaxVariables)) {
        return "is one variable too many, at most " + std::to_string(MaxVariables) +
               " are possible";
    } else {
        options.variables.push_back(std::move(variable));
    }
    return {};
}

// Puts a choice into a field of the options.
template <auto Field>
std::string SetChoice(ConsoleOptions& options, std::string_view, int32_t choice) {
    auto& field = options.*Field;
    field = static_cast<std::remove_reference_t<decltype(field)>>(choice);
    return {};
}

// Puts what an option without a value stands for into a field of the options.
template <auto Field, auto Value>
std::string SetTo(ConsoleOptions& options, std::string_view, int32_t) {
    options.*Field = Value;
    return {};
}

const Option Options[] = {
    {"--type", Types, {}, true, SetChoice<&ConsoleOptions::type>},
    {"--digits", {}, DigitsForm, true, SetDigits},
    {"--base", Bases, {}, true, SetChoice<&ConsoleOptions::base>},
    {"--lower-hex", {}, NoValue, false, SetTo<&ConsoleOptions::lowerHex, true>},
    {"--form", Forms, {}, true, SetChoice<&ConsoleOptions::form>},
    {"--group", {}, NoValue, false, SetTo<&ConsoleOptions::groupDigits, true>},
    {"--decimal", Decimals, {}, true, SetChoice<&ConsoleOptions::decimal>},
    {"--thousands", Thousands, {}, true, SetChoice<&ConsoleOptions::thousands>},
    {"--language", LanguageWords, {}, true, SetChoice<&ConsoleOptions::language>},
    {"--var", {}, VariableForm, true, SetVariable},
    {"--help", {}, NoValue, false, SetTo<&ConsoleOptions::action, PrintHelp>},
    {"--version", {}, NoValue, false, SetTo<&ConsoleOptions::action, PrintVersion>},
};

std::string Concatenate(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text += part;
    }
    return text;
}

// The words of a list, separated by commas.
std::string ListWords(const auto& items, auto word) {
    std::string list;
    for (const auto& item : items) {
        list += list.empty() ? "" : ", ";
        list += word(item);
    }
    return list;
}

std::string AllowedValues(const Option& option) {
    if (option.choices.empty()) {
        return option.allowed();
    }
    return ListWords(option.choices, [](const Choice& choice) { return choice.word; });
}

// An argument as part of a message of one line.
std::string Quoted(std::string_view argument) {
    std::u16string text = DecodeUtf8(argument).text;
    BlankControlCharacters(text);
    constexpr size_t shown = 60;
    if (text.size() > shown) {
        text.resize(shown - 1);
        text += Ellipsis;
    }
    return Concatenate({"\"", EncodeUtf8(text), "\""});
}

std::string NotAllowed(const Option& option, std::string_view value, std::string_view problem) {
    return Concatenate(
        {option.name, ": ", Quoted(value), " ", problem, "; allowed: ", AllowedValues(option)});
}

std::string UnknownOption(std::string_view name) {
    return Concatenate({"there is no option ", Quoted(name), "; allowed: ",
                        ListWords(Options, [](const Option& option) { return option.name; }),
                        ", and -- before formulas that begin like an option"});
}

bool IsOption(std::string_view argument) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    return argument.size() >= 2 && argument[0] == '-' &&
           (argument[1] == '-' || isLetter(argument[1]));
}

const Option* FindOption(std::string_view name) {
    const auto option = std::find_if(std::begin(Options), std::end(Options),
                                     [&](const Option& known) { return known.name == name; });
    return option != std::end(Options) ? option : nullptr;
}

// Takes over the value of an option; the result is what is wrong with it.
std::string ApplyOption(ConsoleOptions& options, const Option& option, std::string_view value) {
    int32_t chosen = 0;
    if (!option.choices.empty()) {
        const auto choice = std::find_if(option.choices.begin(), option.choices.end(),
                                         [&](const Choice& known) { return known.word == value; });
        if (choice == option.choices.end()) {
            return NotAllowed(option, value, NotAllowedValue);
        }
        chosen = choice->value;
    }
    const std::string problem = option.set(options, value, chosen);
    return problem.empty() ? problem : NotAllowed(option, value, problem);
}

// Reads the option at arguments[index] and moves index to the last argument that belongs to it.
std::string ReadOption(ConsoleOptions& options, const std::vector<std::string>& arguments,
                       size_t& index) {
    const std::string_view argument = arguments[index];
    const size_t equals = argument.find('=');
    const std::string_view name = argument.substr(0, equals);
    const Option* option = FindOption(name);
    if (option == nullptr) {
        return UnknownOption(name);
    }
    if (equals != argument.npos) {
        const std::string_view value = argument.substr(equals + 1);
        return option->takesValue ? ApplyOption(options, *option, value)
                                  : NotAllowed(*option, value, NotAllowedValue);
    }
    if (!option->takesValue) {
        return ApplyOption(options, *option, {});
    }
    if (index + 1 == arguments.size()) {
        return Concatenate({name, ": the value is missing; allowed: ", AllowedValues(*option)});
    }
    return ApplyOption(options, *option, arguments[++index]);
}

// What can only be seen when all options are known.
std::string CheckSeparators(const ConsoleOptions& options) {
    const std::string_view taken = Decimals[options.decimal].word;
    if (Thousands[options.thousands].word != taken) {
        return {};
    }
    std::vector<std::string_view> left;
    for (const Choice& choice : Thousands) {
        if (choice.word != taken) {
            left.push_back(choice.word);
        }
    }
    return Concatenate({"--thousands: ", Quoted(taken), " is the decimal separator; allowed: ",
                        ListWords(left, [](std::string_view word) { return word; })});
}

}  // namespace

ParsedArguments ParseArguments(const std::vector<std::string>& arguments) {
    ParsedArguments parsed;
    ConsoleOptions& options = parsed.options;
    bool optionsEnded = false;
    for (size_t i = 0; i < arguments.size(); i++) {
        if (optionsEnded || !IsOption(arguments[i])) {
            options.formulas.push_back(arguments[i]);
        } else if (arguments[i] == "--") {
            optionsEnded = true;
        } else {
            parsed.error = ReadOption(options, arguments, i);
            if (!parsed.error.empty() || options.action != EvaluateFormulas) {
                return parsed;
            }
        }
    }
    parsed.error = CheckSeparators(options);
    return parsed;
}

}  // namespace tallymere
