// FormulaEvaluator: the record of one evaluation of a formula, and the rows of its variables.
//
// Values are of the current number type and lie in slots of SizeOfNumber() bytes. The type and the
// precision must not change during an evaluation. All memory is taken from the ScratchStack of the
// calling thread.
#pragma once

#include <cstdint>

#include "core/limits.h"
#include "core/number_context.h"
#include "formula/formula_error.h"
#include "formula/formula_token.h"

namespace tallymere {

/// A variable that a formula may use. It is the text of another formula. Each evaluation that uses
/// the variable evaluates this text again.
struct VariableRow {
    const char16_t* name;       ///< NUL-terminated
    const char16_t* valueText;  ///< NUL-terminated
    uint64_t* value;            ///< normally null; else the value, and the text is not looked at
};

/// A variable that occurs in the formula at hand.
struct UsedVariable {
    const char16_t* name;
    const char16_t* valueText;
    uint64_t* value;    ///< null until computed
    uint64_t position;  ///< of the first use, 0-based
    uint64_t length;    ///< of the name, in characters
};

/// Whoever starts an evaluation clears the record and fills the first five fields.
struct FormulaEvaluator {
    const char16_t* text;   ///< the formula, NUL-terminated
    uint64_t flags;         ///< TextGroup and TextPlainSeparators matter; pages pass TextGroup
    int64_t variableCount;  ///< rows of `variables`; 0 for none
    const VariableRow* variables;
    uint64_t* result;  ///< receives the value; one value slot

    bool inexactResult;           ///< an integer operation dropped a remainder
    FormulaToken* stack;          ///< FormulaStackEntries entries while a formula runs
    int64_t top;                  ///< index of the top entry, -1 for an empty stack
    int64_t slotMark;             ///< highest index that has a value slot, -1 for none
    uint64_t elementSize;         ///< bytes of one value
    uint32_t error;               ///< a FormulaError; the first one ends the evaluation
    uint64_t errorPosition;       ///< 1-based character position of the offending text
    uint64_t errorLength;         ///< its length in characters
    int64_t usedCount;            ///< rows of `usedVariables`
    UsedVariable* usedVariables;  ///< room for variableCount rows while a formula runs
};

/// Notes an error at a 0-based position.
inline void SetFormulaError(FormulaEvaluator& evaluator, FormulaError error, uint64_t position,
                            uint64_t length) {
    evaluator.error = error;
    evaluator.errorPosition = position + 1;
    evaluator.errorLength = length;
}

/// Notes an error at the text of a token or stack entry.
inline void SetFormulaError(FormulaEvaluator& evaluator, FormulaError error,
                            const FormulaToken& token) {
    SetFormulaError(evaluator, error, token.position, token.length);
}

/// Notes a dropped remainder unless the integer operation was exact. An operation that failed has
/// dropped none.
inline void NoteExactness(FormulaEvaluator& evaluator, bool exact) {
    if (!exact && numberContext.calcError == CalcErrorNone) {
        evaluator.inexactResult = true;
    }
}

/// Notes that the user stopped the calculation. This error has no place in the text: position 1,
/// length 0.
inline void SetFormulaAborted(FormulaEvaluator& evaluator) {
    SetFormulaError(evaluator, FormulaErrorAborted, 0, 0);
}

}  // namespace tallymere
