// The codes by which a formula reports to the user what is wrong with it.
#pragma once

#include <cstdint>

namespace tallymere {

/// FormulaEvaluator::error. The user sees the number beside the message.
enum FormulaError : uint32_t {
    FormulaErrorNone = 0,
    FormulaErrorSyntax = 10200,
    FormulaErrorLeftParenMissing = 10201,  ///< `)` without its `(`
    FormulaErrorUnexpectedEnd = 10202,     ///< the text ends in the middle of an expression
    FormulaErrorOperationFailed = 10203,   ///< an operation failed, for whatever reason
    FormulaErrorTooComplicated = 10204,    ///< more than FormulaStackEntries entries
    FormulaErrorInternal = 10205,          ///< a state that no text leads to
    FormulaErrorArgumentCount = 10206,     ///< a function with too many or too few arguments
    FormulaErrorNeedsComplex = 10207,      ///< only the type cplx has this function or `i`
    FormulaErrorBadNumber = 10208,         ///< a number that cannot be converted
    FormulaErrorNotAvailable = 10209,      ///< a function that the number type does not have
    FormulaErrorAborted = 10210,           ///< the user stopped the calculation
    FormulaErrorUndefinedName = 10211,     ///< neither keyword nor variable
    FormulaErrorVariableFailed = 10212,    ///< the text of a variable has an error of its own
};

}  // namespace tallymere
