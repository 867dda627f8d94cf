// What tests of equations share: coefficients and roots as plain text.
#pragma once

#include <string>
#include <vector>

#include "algebra/polynomial_roots.h"
#include "support/complex_testing.h"

namespace tallymere::testing_support {

/// A ScratchStack of the test's own.
class ScratchStackOwner {
public:
    ScratchStackOwner();
    ~ScratchStackOwner();
    ScratchStackOwner(const ScratchStackOwner&) = delete;
    ScratchStackOwner& operator=(const ScratchStackOwner&) = delete;
};

/// Room for the roots of one equation, in the layout in force at its making.
class SolutionRoom {
public:
    SolutionRoom();
    SolutionSet& Set() { return set_; }

    /// "-1e0 0" for each entry, with " [2]" behind it where the multiplicity is not 1. Fails the
    /// test on a malformed record.
    std::vector<std::string> Texts() const;

private:
    std::vector<ComplexBuffer> values_;
    std::vector<std::u16string> texts_;
    SolutionSet set_;
};

/// The roots, as Texts, of the polynomial with these coefficients, the constant first: each a text
/// such as "-1" or "3 -0.5". They are read with RootInputDigits, which must suffice. A single
/// text names the code that was noted, or the outcome where it is not Found: "Stopped".
std::vector<std::string> RootsOf(const std::vector<std::string>& coefficients, int64_t digits,
                                 uint32_t flags = 0);

/// The same by another solver with the interface of SolvePolynomial.
using PolynomialSolver = RootOutcome (*)(SolutionSet& solutions, const CoefficientList& list,
                                         int64_t digits, uint32_t flags);
std::vector<std::string> RootsBy(PolynomialSolver solver,
                                 const std::vector<std::string>& coefficients, int64_t digits,
                                 uint32_t flags);

/// "Stopped" for RootOutcome::Stopped, and so on.
std::string OutcomeName(RootOutcome outcome);

}  // namespace tallymere::testing_support
