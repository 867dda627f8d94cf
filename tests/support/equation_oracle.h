// PARI as the judge of equations. Native only.
//
// A polynomial is a formula in x, exact, such as "(x - 1/3)^5 * (x^2 + I)". Its parts without a
// square are taken apart first, so that its roots have all the digits that are asked for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tallymere::testing_support {

/// The coefficients, the constant first, each part rounded to so many digits: "1e0 -2.5e-3", or the
/// text that RootsOf takes.
std::vector<std::string> CoefficientsByPari(const std::string& polynomial, int64_t digits);

/// The polynomial with such coefficients.
std::string PolynomialText(const std::vector<std::string>& coefficients);

/// The roots, each as often as its multiplicity says, both parts rounded to so many digits, in the
/// form of SolutionBuffer::Texts and in the order of texts. PARI works with `working` digits, and
/// what is smaller than 10^(20 - working) beside the other part is 0.
std::vector<std::string> RootsByPari(const std::string& polynomial, int64_t digits,
                                     int64_t working);

}  // namespace tallymere::testing_support
