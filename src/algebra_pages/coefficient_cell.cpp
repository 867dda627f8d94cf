#include "algebra_pages/coefficient_cell.h"

#include <string_view>

#include "core/limits.h"
#include "core/text_flags.h"
#include "formula/formula_evaluation.h"
#include "values/value_operations.h"

namespace tallymere {

CellReading ReadCoefficientCell(uint64_t* value, const char16_t* text) {
    ValueZero(value);
    const std::u16string_view cell = text;
    if (static_cast<int64_t>(cell.size()) > CoefficientCharacters) {
        return {CellOutcome::TooLong, FormulaErrorNone, 0};
    }
    const size_t begin = cell.find_first_not_of(u" \t");
    if (begin == std::u16string_view::npos) {
        return {CellOutcome::Read, FormulaErrorNone, 0};
    }
    FormulaEvaluator evaluator{};
    evaluator.text = text + begin;
    evaluator.flags = TextGroup;
    evaluator.result = value;
    EvaluateFormula(evaluator);
    if (evaluator.error == FormulaErrorNone) {
        return {CellOutcome::Read, FormulaErrorNone, 0};
    }
    return {evaluator.error == FormulaErrorAborted ? CellOutcome::Stopped : CellOutcome::Failed,
            static_cast<FormulaError>(evaluator.error), begin + evaluator.errorPosition};
}

}  // namespace tallymere
