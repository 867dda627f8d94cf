// The word polynomial: arithmetic of polynomials.
#pragma once

#include <string>
#include <vector>

#include "console/exit_status.h"

namespace tallymere {

/// Runs the word on the arguments behind it and returns the exit status.
ExitStatus RunPolynomialWord(const std::vector<std::string>& arguments);

}  // namespace tallymere
