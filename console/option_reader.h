// Reading of options: a list says which there are, and one reader serves all lists.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tallymere {

/// One of the values that an option may have.
struct Choice {
    std::string_view spelling;
    int32_t value;
};

struct Option {
    std::string_view name = {};
    std::vector<Choice> choices = {};
    std::string allowed = {};  ///< what a value may be where there are no choices
    bool takesValue = true;
    bool isLast = false;  ///< what follows is not read
    /// Takes over a value: any one where there are no choices. Returns what is wrong with it, or
    /// nothing.
    std::function<std::string(std::string_view value, int32_t choice)> set = {};
};

/// What is wrong with a value that is none of those allowed.
inline constexpr std::string_view NotAllowedValue = "is not allowed";

/// An option whose value, one of the choices, goes into `field`.
template <typename Field>
Option ChoiceOption(std::string_view name, std::vector<Choice> choices, Field& field) {
    return {.name = name,
            .choices = std::move(choices),
            .set = [&field](std::string_view, int32_t choice) {
                field = static_cast<Field>(choice);
                return std::string();
            }};
}

/// An option without a value, which puts what it stands for into `field`.
template <typename Field>
Option FlagOption(std::string_view name, Field& field, std::type_identity_t<Field> meaning) {
    return {.name = name,
            .allowed = "no value",
            .takesValue = false,
            .set = [&field, meaning](std::string_view, int32_t) {
                field = meaning;
                return std::string();
            }};
}

/// An option whose value is a number from `lowest` to `highest`, not negative, in decimal digits.
Option NumberOption(std::string_view name, int64_t lowest, int64_t highest, int64_t& field);

/// An option behind which nothing is read, such as --help.
inline Option LastOption(Option option) {
    option.isLast = true;
    return option;
}

/// Where options may stand.
enum class OptionPlaces {
    BeforeEnd,      ///< anywhere before "--"
    BeforeOperand,  ///< before the first operand, and before "--"
};

struct OptionRules {
    OptionPlaces places = OptionPlaces::BeforeEnd;
    std::string_view afterUnknown;  ///< what the message of an unknown option ends with
};

struct OptionReading {
    std::vector<std::string> operands;  ///< what is no option, as given
    std::string error;                  ///< one line without its end, empty when all is well
};

/// Reads arguments. An option stands there as `--name value` or `--name=value`, and the last of
/// several counts. What begins with "-" and a letter or another "-" is an option, everything else
/// an operand, so -2^2 is one. The first error ends the reading.
OptionReading ReadOptions(const std::vector<Option>& options,
                          const std::vector<std::string>& arguments, const OptionRules& rules);

/// The message of a value that an option cannot have, for what only shows when all options are
/// known. `allowed` says which it can have.
std::string ValueNotAllowed(std::string_view option, std::string_view value,
                            std::string_view problem, std::string_view allowed);

/// What `textOf` says of each item, separated by commas.
std::string JoinByCommas(const auto& items, auto textOf) {
    std::string list;
    for (const auto& item : items) {
        list += list.empty() ? "" : ", ";
        list += textOf(item);
    }
    return list;
}

}  // namespace tallymere
