// The rows in which the calculator hands its variables to the formula engine.
#pragma once

#include "core/scratch.h"
#include "formula/formula_evaluator.h"

namespace tallymere {

struct VariableRows {
    const VariableRow* rows;
    int64_t count;
};

/// Row 0 is `ans` with the text of the last result; the variables follow in the order of the table,
/// each with the first decimal separator in force in place of ".". The rows, and the texts that had
/// to be changed for that, are taken from `scope`; the rest stays where it is, so neither the table
/// nor the result may change while the rows are in use.
VariableRows BuildVariableRows(ScratchScope& scope);

}  // namespace tallymere
