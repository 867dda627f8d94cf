// The lines that show the roots of an equation.
#pragma once

#include <cstdint>

#include "algebra/solution_set.h"

namespace tallymere {

/// Takes the next characters of a text, which ends with a 0 and is there during the call alone.
using TakeLine = void (*)(const char16_t* line);

/// Hands over one line for each root, which ends with "\r\n", or without any the sentence that
/// there is none, which does not. `exactWanted` says that exact values were asked for, so that an
/// equals sign stands before those alone. EquationNumberSetup of the run is in force. A line that
/// does not fit ends with an ellipsis and raises UiErrorTextOverflow.
void ShowEquationRoots(const SolutionSet& solutions, bool exactWanted, bool showMultiplicity,
                       TakeLine take);

}  // namespace tallymere
