// The codes by which arithmetic reports a failure.
#pragma once

#include <cstdint>

namespace tallymere {

/// Noted in NumberContext::calcError. The first failure of a chain of operations wins; the results
/// stay well-formed, so the chain runs on and is polled at its end.
enum CalcError : uint32_t {
    CalcErrorNone = 0,
    CalcErrorBadParameter = 100,  ///< precision, integer width or number base out of range
    CalcErrorUnknownType = 102,   ///< no such number type, or no such operation for the type
    CalcErrorOverflow = 200,      ///< above the range, a finite value divided by zero
    CalcErrorUnderflow = 201,     ///< below the range, where that is to be reported
    CalcErrorExactDivisionByZero = 202,
    CalcErrorUndefined = 203,  ///< no value: infinity - infinity, 0 / 0, a domain error
    CalcErrorMalformed = 204,  ///< text output found a record outside the normal form
    CalcErrorComplexNotAllowed = 205,
    CalcErrorCancelled = 207,  ///< a check point found a request to stop
    CalcErrorTextTooLong = 300,
    CalcErrorSyntax = 301,    ///< number text not understood
    CalcErrorCapacity = 400,  ///< an internal table or buffer is too small
};

}  // namespace tallymere
