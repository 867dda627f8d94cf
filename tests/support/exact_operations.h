// Operators and functions of formulas on values of an exact type, called one by one: their value
// and the code that a formula does not show.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

#include "core/calc_error.h"
#include "support/formula_testing.h"

namespace tallymere::testing_support {

/// What an operation of an exact type leaves.
struct ExactOutcome {
    std::string text;  ///< ValueText of the result
    CalcError code = CalcErrorNone;
    bool inexact = false;  ///< a remainder was lost

    bool operator==(const ExactOutcome&) const = default;
};

void PrintTo(const ExactOutcome& outcome, std::ostream* out);

/// The outcome of an operation that lost nothing.
inline ExactOutcome Is(std::string text) {
    return {std::move(text), CalcErrorNone, false};
}

/// The outcome of an operation that lost a remainder.
inline ExactOutcome IsAbout(std::string text) {
    return {std::move(text), CalcErrorNone, true};
}

/// The outcome of an operation that has no result: 0 and a code.
inline ExactOutcome Fails(CalcError code) {
    return {"0", code, false};
}

/// Applies an operator or function to operands as ExactWords reads them, by the operations that the
/// driver calls. The destination of a function is full of `stale` words. Fails the test if an
/// operand is changed, anything is written behind a value or noted as an error of the formula, or
/// the context is not as it was.
ExactOutcome Apply(const Symbol& symbol, std::initializer_list<std::string_view> operands,
                   uint64_t stale = 0xD1D1D1D1D1D1D1D1u);

}  // namespace tallymere::testing_support
