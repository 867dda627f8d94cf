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

/// The roots of one equation with memory for MaxEquationDegree of them, in the layout in force at
/// its making. The test fails where a text is written beyond its end.
class SolutionBuffer {
public:
    /// No roots, and junk for texts.
    SolutionBuffer();
    /// Roots with these values, in the form of ComplexBuffer, and without texts.
    explicit SolutionBuffer(const std::vector<std::string>& values);
    ~SolutionBuffer();
    SolutionBuffer(const SolutionBuffer&) = delete;
    SolutionBuffer& operator=(const SolutionBuffer&) = delete;

    operator SolutionSet&() { return set_; }
    SolutionSet& Set() { return set_; }
    int64_t Count() const { return set_.count; }
    int64_t Multiplicity(int64_t i) const { return set_.multiplicities[i]; }
    const ComplexNumber* Value(int64_t i) const { return set_.values[i]; }

    /// The exact text, as plain text.
    std::string Text(int64_t i) const;

    /// "-1e0 0" for each root, with " [2]" behind it where the multiplicity is not 1. Fails the
    /// test on a malformed record.
    std::vector<std::string> Texts() const;

    /// The same with the exact text in front: "-1 = -1e0 0".
    std::vector<std::string> Lines() const;

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
