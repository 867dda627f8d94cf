// The calculator's variables as rows for the formula engine.
#pragma once

#include "core/scratch.h"
#include "formula/formula_evaluator.h"

namespace tallymere {

struct VariableRows {
    const VariableRow* rows;
    int64_t count;
};

/// Row 0 is `ans` with the text of the last result. The variables follow in the order of the table.
/// The texts have the first decimal separator in force in place of ".".
///
/// The rows, and texts that had to be changed, are on `scope`. Other texts are not copied, so
/// neither the table nor the result may change while the rows are in use.
VariableRows BuildVariableRows(ScratchScope& scope);

}  // namespace tallymere
