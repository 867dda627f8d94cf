// The words of the console: each is a page without its window. A word is the first argument.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallymere {

struct Word {
    std::string_view name;
    std::string_view purpose;  ///< for the help of the console
    /// Runs it on the arguments behind the word and returns the exit status.
    int (*run)(const std::vector<std::string>& arguments);
};

/// The word of an argument, null for none.
const Word* FindWord(std::string_view argument);

/// A line for each word, for the help of the console.
std::string WordList();

}  // namespace tallymere
