// The word primes: prime numbers of an interval, the next one, the test of a number.
#pragma once

#include <string>
#include <vector>

#include "console/exit_status.h"

namespace tallymere {

/// Runs the word on the arguments behind it and returns the exit status.
ExitStatus RunPrimesWord(const std::vector<std::string>& arguments);

}  // namespace tallymere
