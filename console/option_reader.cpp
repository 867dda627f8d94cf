#include "console/option_reader.h"

#include <algorithm>

#include "console/utf8.h"
#include "core/text_writer.h"

namespace tallymere {

namespace {

std::string AllowedValues(const Option& option) {
    if (option.choices.empty()) {
        return option.allowed;
    }
    return JoinByCommas(option.choices, [](const Choice& choice) { return choice.spelling; });
}

std::string Concatenate(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text += part;
    }
    return text;
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
    return ValueNotAllowed(option.name, value, problem, AllowedValues(option));
}

std::string UnknownOption(const std::vector<Option>& options, std::string_view name,
                          const OptionRules& rules) {
    return Concatenate({"there is no option ", Quoted(name), "; allowed: ",
                        JoinByCommas(options, [](const Option& option) { return option.name; }),
                        rules.afterUnknown});
}

bool IsOption(std::string_view argument) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    return argument.size() >= 2 && argument[0] == '-' &&
           (argument[1] == '-' || isLetter(argument[1]));
}

// Takes over the value of an option; the result is what is wrong with it.
std::string ApplyOption(const Option& option, std::string_view value) {
    int32_t chosen = 0;
    if (!option.choices.empty()) {
        const auto choice = std::ranges::find(option.choices, value, &Choice::spelling);
        if (choice == option.choices.end()) {
            return NotAllowed(option, value, NotAllowedValue);
        }
        chosen = choice->value;
    }
    const std::string problem = option.set(value, chosen);
    return problem.empty() ? problem : NotAllowed(option, value, problem);
}

// Reads the option at arguments[index] and moves index to the last argument that belongs to it.
// The result is what is wrong with it.
std::string ReadOption(const std::vector<Option>& options,
                       const std::vector<std::string>& arguments, const OptionRules& rules,
                       size_t& index, bool& isLast) {
    const std::string_view argument = arguments[index];
    const size_t equals = argument.find('=');
    const std::string_view name = argument.substr(0, equals);
    const auto option = std::ranges::find(options, name, &Option::name);
    if (option == options.end()) {
        return UnknownOption(options, name, rules);
    }
    isLast = option->isLast;
    if (equals != argument.npos) {
        const std::string_view value = argument.substr(equals + 1);
        return option->takesValue ? ApplyOption(*option, value)
                                  : NotAllowed(*option, value, NotAllowedValue);
    }
    if (!option->takesValue) {
        return ApplyOption(*option, {});
    }
    if (index + 1 == arguments.size()) {
        return Concatenate({name, ": the value is missing; allowed: ", AllowedValues(*option)});
    }
    return ApplyOption(*option, arguments[++index]);
}

}  // namespace

OptionReading ReadOptions(const std::vector<Option>& options,
                          const std::vector<std::string>& arguments, const OptionRules& rules) {
    OptionReading reading;
    bool optionsEnded = false;
    bool isLast = false;
    for (size_t i = 0; i < arguments.size() && !isLast && reading.error.empty(); i++) {
        if (optionsEnded || !IsOption(arguments[i])) {
            reading.operands.push_back(arguments[i]);
            optionsEnded = optionsEnded || rules.places == OptionPlaces::BeforeOperand;
        } else if (arguments[i] == "--") {
            optionsEnded = true;
        } else {
            reading.error = ReadOption(options, arguments, rules, i, isLast);
        }
    }
    return reading;
}

Option NumberOption(std::string_view name, int64_t lowest, int64_t highest, int64_t& field) {
    const auto read = [=, &field](std::string_view value, int32_t) -> std::string {
        int64_t number = 0;
        for (const char c : value) {
            if (c < '0' || c > '9' || number > highest) {
                return std::string(NotAllowedValue);
            }
            number = number * 10 + (c - '0');
        }
        if (value.empty() || number < lowest || number > highest) {
            return std::string(NotAllowedValue);
        }
        field = number;
        return {};
    };
    return {.name = name,
            .allowed = std::to_string(lowest) + " to " + std::to_string(highest),
            .set = read};
}

std::string ValueNotAllowed(std::string_view option, std::string_view value,
                            std::string_view problem, std::string_view allowed) {
    return Concatenate({option, ": ", Quoted(value), " ", problem, "; allowed: ", allowed});
}

}  // namespace tallymere
