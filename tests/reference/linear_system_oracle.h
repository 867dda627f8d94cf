// A plain twin of the elimination over exact complex fractions, of GMP, and of the texts of its
// unknowns. Native only.
//
// It takes the same steps in the same order, so that it agrees on parameters, on contradictions and
// on what is taken for 0, and it rounds nothing but the unknowns that it shows.
#pragma once

#include <gmpxx.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tallymere::reference {

struct ExactNumber {
    mpq_class re;
    mpq_class im;
};

/// The rows, each with its right side at the end.
using ExactSystem = std::vector<std::vector<ExactNumber>>;

struct ExactSolution {
    bool isSolvable = false;
    size_t parameters = 0;
    /// Of each unknown the constant, then the coefficients of the parameters.
    std::vector<std::vector<ExactNumber>> unknowns;
};

/// With digits above 0, what is below 10^-digits in a part is 0.
ExactSolution TwinSolveLinearSystem(ExactSystem rows, int64_t digits);

/// A fraction as decimal number in automatic notation, rounded half away from zero: "-1.5e+20".
std::string TwinNumberText(const mpq_class& value, int64_t digits);

/// An unknown as it is shown, without group separators: "2-r+(3/4)*s". With digits above 0, numbers
/// are rounded to them, and else they are fractions.
std::string TwinUnknownText(const ExactSolution& solution, size_t index, int64_t digits);

/// r, s, t, u, v1, v2 and so on, for a position from 1.
std::string TwinParameterName(size_t position);

/// The list of all parameters.
std::string TwinParameterList(size_t parameters);

}  // namespace tallymere::reference
