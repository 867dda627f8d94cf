// The word primes: prime numbers of an interval, the next one, the test of a number.
#pragma once

#include <string>
#include <vector>

namespace tallymere {

/// Runs the word on the arguments behind it and returns the exit status.
int RunPrimesWord(const std::vector<std::string>& arguments);

}  // namespace tallymere
