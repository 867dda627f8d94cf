// The word factor: prime factors and divisors.
#pragma once

#include <string>
#include <vector>

namespace tallymere {

/// Runs the word on the arguments behind it and returns the exit status.
int RunFactorWord(const std::vector<std::string>& arguments);

}  // namespace tallymere
