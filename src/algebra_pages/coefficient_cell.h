// The text of one cell in a grid of coefficients: a formula, without variables.
#pragma once

#include <cstdint>

#include "algebra/magnitude.h"
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

/// As ReadCoefficientCell; but a part of a real or complex number that is only what the rounding
/// left of 0, such as that of 1/3*3-1, is 0. So that it is known, a cell is read once more with
/// NoiseDigits more digits, MaxPrecisionDigits at most: what is left of 0 is far smaller then, and
/// everything else stays as it was. A stop during that second reading leaves all as it was.
CellReading ReadCellWithoutNoise(uint64_t* value, const char16_t* text);
inline constexpr int64_t NoiseDigits = 38;

/// The digits that a cell is read with, in real and cplx.
struct CellDigits {
    int64_t checked;  ///< what fails with these is what fails
    int64_t before;   ///< more than these, and fewer than those in force
};

/// *value = the number that a cell means, with the digits in force, and *error = how far its parts
/// may be off: 0 for one that is the same decimal number with `before` digits, or twice the
/// distance of the two. Where a part is no larger than its error, the cell is read once more, with
/// 38 digits more than those in force, and the distance to that reading counts. A part that is no
/// larger than its error then is 0, such as that of 1/3*3-1; with 51 and 89 digits, 1+1e-60-1 is
/// not. When the cell can be read with `checked` digits alone, it is that number, as an exact one.
/// The result is that of reading with `checked` digits, or CellOutcome::Stopped. Exact types are
/// read once. Otherwise as ReadCoefficientCell.
CellReading ReadCellWithError(uint64_t* value, PartSizes* error, const char16_t* text,
                              const CellDigits& digits);

}  // namespace tallymere
