// The texts of a solution with parameters, such as "2-r+(3/4)*s".
#pragma once

#include "algebra/linear_system.h"
#include "core/text_writer.h"

namespace tallymere {

/// Characters of the list of parameters, the longest one.
inline constexpr int64_t ParameterListCharacters = 31;

/// The name of a parameter by its position, 1 to MaxUnknowns: r, s, t, u, v1, v2 and so on. The
/// parameter that was made last has position 1.
struct ParameterName {
    char16_t text[4];
};
ParameterName NameOfParameter(int64_t position);

/// Characters that suffice for the text of any unknown of the solution.
int64_t UnknownTextCapacity(const LinearSolution& solution, uint32_t printFlags);

/// Appends the value of an unknown, from index 0. `printFlags` are bits of TextFlags; TextGroup is
/// the one that is meant. The layout of the solution is in force, and the thread has a
/// ScratchStack.
void PrintUnknown(TextWriter& text, const LinearSolution& solution, int64_t index,
                  uint32_t printFlags);

/// Appends the names of all parameters, r first. Of more than 6 those from the sixth to the last
/// but one are left out: "r, s, t, u, v1, …, v7".
void ListParameters(TextWriter& text, const LinearSolution& solution);

}  // namespace tallymere
