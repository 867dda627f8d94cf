// What a solver of equations finds: the roots of one equation, each with its exact text and its
// multiplicity.
//
// The memory of values and texts is the caller's, and it outlives the solver. Solvers swap the
// pointers and never copy numbers when they bring roots into order.
#pragma once

#include <cstdint>

#include "core/complex_number.h"

namespace tallymere {

/// The highest degree of an equation.
inline constexpr int64_t MaxEquationDegree = 10;

/// Characters of the exact text of a root, without the ending 0. The caller gives each text
/// ExactTextCapacity + 1 characters at least.
inline constexpr int64_t ExactTextCapacity = 228;

/// A polynomial: sum of coefficients[i] * x^i. Its numbers are in the layout in force.
struct CoefficientList {
    int64_t degree;                                            ///< 0 to MaxEquationDegree
    const ComplexNumber* coefficients[MaxEquationDegree + 1];  ///< index 0 the constant
};

/// The roots of one equation. All pointers are set by the caller, and each is one of its own.
struct SolutionSet {
    int64_t count;                             ///< of entries in use; -1 after a failure
    ComplexNumber* values[MaxEquationDegree];  ///< in the layout in force
    char16_t* exactTexts[MaxEquationDegree];   ///< ends with 0; empty where there is none
    int64_t multiplicities[MaxEquationDegree];
};

/// What is asked of a solver; flags are added.
enum EquationFlags : uint32_t {
    KeepEqualRoots = 1,     ///< equal roots keep their entries, each of multiplicity 1
    KeepRealRootsOnly = 2,  ///< roots that are not real are left out
    ExactCoefficients = 4,  ///< no coefficient is taken as a rounded number
};

/// How a solver ends.
enum class RootOutcome {
    Found,
    NotConverged,  ///< coefficients that are no finite numbers, or too far apart in size
    Stopped,       ///< the stop request ended it
    Internal,      ///< the request was one that no caller should make
    TextOverflow,  ///< an exact text was too long and has been cut
};

/// True when the count is -1 to MaxEquationDegree, the entries in use are well-formed in the layout
/// in force, their texts end in time and their multiplicities are at least 1.
bool SolutionSetIsWellFormed(const SolutionSet& solutions);

/// Brings the entries into order: real roots first, ascending; then the others by real part, by
/// magnitude of the imaginary part, and the negative imaginary part first.
void SortRoots(SolutionSet& solutions);

/// Makes one entry of neighbours with the same value, down to the last digit, and the same text,
/// and adds their multiplicities: roots with different texts are different, even if they are too
/// close to be told apart by their values. The entries must be in order.
void MergeEqualRoots(SolutionSet& solutions);

/// Drops the entries at the end whose imaginary part is not exactly 0. The entries must be in
/// order.
void DropNonRealRoots(SolutionSet& solutions);

/// What every solver ends with: the count becomes -1, unless the outcome is Found; then the entries
/// are brought into order, and merged and left out as the flags say.
void FinishSolutions(SolutionSet& solutions, RootOutcome outcome, uint32_t flags);

}  // namespace tallymere
