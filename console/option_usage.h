// How the help explains options: what the program's tables and limits say gets into its texts.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "console/option_reader.h"

namespace tallymere {

/// The column in which the explanation of an option begins, from 0.
inline constexpr size_t UsageColumn = 32;

/// What stands in a text in place of a mark.
struct UsageValue {
    std::string_view mark;  ///< such as "{digits}"
    std::string text;
};

/// A text with its marks replaced, each in one place.
std::string FillInUsage(std::string_view text, std::initializer_list<UsageValue> values);

/// An option with the values that it may have, up to UsageColumn.
std::string UsageOfChoices(std::string_view option, const std::vector<Choice>& choices);

/// How a value is written; empty when it is none of the choices.
std::string SpellingOf(const std::vector<Choice>& choices, int32_t value);

}  // namespace tallymere
