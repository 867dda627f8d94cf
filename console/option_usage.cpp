#include "console/option_usage.h"

#include <algorithm>

#include "core/contract.h"

namespace tallymere {

std::string FillInUsage(std::string_view text, std::initializer_list<UsageValue> values) {
    std::string filled(text);
    for (const UsageValue& value : values) {
        const size_t place = filled.find(value.mark);
        TALLYMERE_REQUIRE(place != filled.npos);
        filled.replace(place, value.mark.size(), value.text);
    }
    return filled;
}

std::string UsageOfChoices(std::string_view option, const std::vector<Choice>& choices) {
    std::string text = "  " + std::string(option);
    char before = ' ';
    for (const Choice& choice : choices) {
        text += before;
        text += choice.spelling;
        before = '|';
    }
    if (text.size() < UsageColumn) {
        return text.append(UsageColumn - text.size(), ' ');
    }
    return text + "\n" + std::string(UsageColumn, ' ');
}

std::string SpellingOf(const std::vector<Choice>& choices, int32_t value) {
    const auto choice = std::ranges::find(choices, value, &Choice::value);
    return choice != choices.end() ? std::string(choice->spelling) : std::string();
}

}  // namespace tallymere
