// What the Algebraic Equations page calculates: the roots of an equation whose coefficients are
// formulas. The page and the console run it.
#pragma once

#include <cstdint>

#include "algebra/solution_set.h"
#include "algebra_pages/number_choice.h"
#include "core/number_setup.h"
#include "core/scratch.h"

namespace tallymere {

/// What the page begins with.
inline constexpr int32_t InitialEquationDegree = 2;

/// The fewest digits of the roots. MaxRootDigits says the most.
inline constexpr int32_t MinEquationDigits = MinChosenDigits;

enum class EquationMode : int32_t {
    Real,     ///< real coefficients, and real roots alone
    Complex,  ///< both complex
};

struct EquationRequest {
    int64_t degree;  ///< 1 to MaxEquationDegree
    EquationMode mode;
    bool exact;      ///< fractions for coefficients, and exact values of the roots
    int64_t digits;  ///< MinEquationDigits to MaxRootDigits of the degree
    /// The formulas, see ReadCellWithoutNoise; index 0 is that of the constant. They are there
    /// during the run.
    const char16_t* coefficients[MaxEquationDegree + 1];
};

/// What a run is calculated with: RootInputDigits of the degree, and 2 limbs.
NumberSetup EquationNumberSetup(const EquationRequest& request);

/// The name of the coefficient that belongs to a power of x, such as "a2".
struct CoefficientLabel {
    char16_t text[4];
};
CoefficientLabel LabelOfCoefficient(int64_t index);

/// Takes the records of the roots, for the number setup in force, from the area.
SolutionSet TakeSolutionSet(ScratchArea& area);

/// Reads the coefficients, from that of the highest power on, and finds the roots.
/// EquationNumberSetup is in force, and the thread has a ScratchStack. What fails is pending as a
/// UiError, and the count of roots is -1 then: UiErrorCoefficientTooLong, UiErrorCoefficient,
/// UiErrorCoefficientNotReal, UiErrorCoefficientNotRational and UiErrorHighestCoefficientZero with
/// the label of the coefficient; UiErrorNotConverged, UiErrorTextOverflow, UiErrorInternal, and
/// UiErrorStopped after a stop. A root beyond the range of numbers is infinite and leaves
/// CalcErrorOverflow noted: it is shown before that is reported.
void EquationWorker(SolutionSet& solutions, const EquationRequest& request);

}  // namespace tallymere
