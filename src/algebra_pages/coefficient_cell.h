// The text of one cell in a grid of coefficients: a formula, without variables.
#pragma once

#include <cstdint>

#include "formula/formula_error.h"

namespace tallymere {

enum class CellOutcome {
    Read,
    TooLong,  ///< more than CoefficientCharacters
    Failed,   ///< no formula, or one without a value
    Stopped,
};

struct CellReading {
    CellOutcome outcome;
    FormulaError error;      ///< of CellOutcome::Failed
    uint64_t errorPosition;  ///< in the text of the cell, in characters from 1
};

/// *value = the number that a cell means, of the number type in force; 0 for one with nothing but
/// spaces and tabs. `text` ends with a 0 and may be cut behind CoefficientCharacters + 1
/// characters. `value` has room for one value and is 0 where nothing was read. Notes no CalcError;
/// needs a ScratchStack.
CellReading ReadCoefficientCell(uint64_t* value, const char16_t* text);

}  // namespace tallymere
