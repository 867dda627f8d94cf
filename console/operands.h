// What a run of the console works on: its operands, or without any the lines of standard input.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "console/exit_status.h"

namespace tallymere {

/// Answers one operand after the other until Ctrl+C. `answer` gathers its output, which is written
/// behind each operand, and returns whether it succeeded. `kind` is what a person at a terminal is
/// asked for, such as "a formula".
ExitStatus AnswerOperands(const std::vector<std::string>& operands, const char* kind,
                          const std::function<bool(const std::string& operand)>& answer);

}  // namespace tallymere
