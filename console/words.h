// The words of the console: each is a page without its window. A word is the first argument.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "console/exit_status.h"

namespace tallymere {

struct Word {
    std::string_view name;
    std::string_view purpose;  ///< for the help of the console
    /// Runs it on the arguments behind the word and returns the exit status.
    ExitStatus (*run)(const std::vector<std::string>& arguments);
};

/// The word of an argument, null for none.
const Word* FindWord(std::string_view argument);

/// How the help of the console explains the words, a line for each.
std::string WordUsage();

}  // namespace tallymere
