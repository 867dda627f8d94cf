// From the formula of the calculator to its result: what "=" starts.
#pragma once

#include <cstdint>

#include "calculator/calculator_state.h"
#include "formula/formula_error.h"

namespace tallymere {

/// How many ")" the formula lacks, which "=" appends; 0 when there are as many as "(" or more.
int64_t CountMissingParentheses(const char16_t* formula);

struct CalcEvaluation {
    FormulaError error;      ///< of the last attempt
    uint64_t errorPosition;  ///< 1-based character position
    bool inexactResult;      ///< an exact type lost a remainder
    bool fellToReal;         ///< no fraction, so the number type is real from now on
};

/// Evaluates with the settings of the calculator, which must be in force, and its variables, and
/// writes one value of the type then in force to `result`, CalcResultWords words.
///
/// What fails in the type rat is tried in real with the same digits; if that succeeds, real becomes
/// the number type of the calculator. Else the error of the second attempt counts.
///
/// An error is raised as UiErrorFormula with its text, a request to stop as UiErrorStopped.
/// Afterwards no CalcError is noted, and the ScratchStack is as it was found.
CalcEvaluation EvaluateCalcFormula(const char16_t* formula, uint64_t* result);

/// The work of the calculating thread: evaluates and, if that raises no error, keeps the result in
/// the calculator, real and complex numbers rounded to the precision setting. With a UiError
/// pending it does nothing. The thread needs a ScratchStack.
CalcEvaluation CalculateResult(const char16_t* formula);

}  // namespace tallymere
