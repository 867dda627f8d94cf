// A plain twin of the reader of the settings file: by searching, on a text that stays as it is.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallymere::reference {

struct TwinSettings {
    /// The values of the keys without the variables, in the order of the file; empty when the key
    /// was not found.
    std::vector<std::u16string> values;
    /// Names and values.
    std::vector<std::pair<std::u16string, std::u16string>> variables;
};

TwinSettings TwinReadSettings(std::u16string_view text);

}  // namespace tallymere::reference
