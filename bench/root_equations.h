// The equations whose roots bench/compare measures, for programs of their own.
#pragma once

namespace tallymere::bench {

/// Prints the integer coefficients of the equation of a work such as "roots-random", the constant
/// first, one a line. Returns the exit status: 2 for an unknown work.
int PrintEquation(const char* workName);

}  // namespace tallymere::bench
