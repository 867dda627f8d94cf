// What tests of formulas share: the setting of one evaluation, and its outcome in a form that can
// be compared and printed.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/number_context.h"
#include "core/text_flags.h"
#include "formula/formula_evaluator.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {

/// The number type and precision of some evaluations and the ScratchStack that they need, for its
/// life. At its end context and ScratchStack must be as they were found.
class FormulaScope {
public:
    explicit FormulaScope(int64_t precision = 20, NumberType type = NumberTypeReal);
    /// For exact types: at 20 digits, and so many limbs.
    FormulaScope(NumberType type, int64_t limbs);
    ~FormulaScope();
    FormulaScope(const FormulaScope&) = delete;
    FormulaScope& operator=(const FormulaScope&) = delete;

private:
    ContextCheck check_;
    FieldScope<NumberType> type_;
    RealLayoutScope layout_;
    UintWidthScope width_;
    bool ownsScratchStack_;
};

/// The value of the current number type in `words`: PlainText of a real number; those of both parts
/// of a complex one, with a comma between; an integer in decimal; a fraction as "-3/4", or "-3"
/// with a denominator of 1.
std::string ValueText(const uint64_t* words);

/// The words of a value of an exact type, of a text as ValueText writes it; its numbers are those
/// of UintFromPlainText. Shares no code with the program.
std::vector<uint64_t> ExactWords(std::string_view text);

/// What became of a formula: an error with its place, or a value.
struct FormulaOutcome {
    uint32_t error = FormulaErrorNone;
    uint64_t position = 0;
    uint64_t length = 0;
    /// ValueText of the result.
    std::string value;
    bool inexact = false;

    bool operator==(const FormulaOutcome&) const = default;
};

void PrintTo(const FormulaOutcome& outcome, std::ostream* out);

/// The success of a formula in the type real; `value` is what RealFromPlainText reads.
FormulaOutcome Value(std::string_view value);

/// The success of a formula in the type cplx, by the parts of its value.
FormulaOutcome Value(std::string_view realPart, std::string_view imaginaryPart);

/// The success of a formula in an exact type; `value` is as ValueText writes it.
FormulaOutcome Exactly(std::string_view value);

/// The same, and a remainder was lost.
FormulaOutcome Rounded(std::string_view value);

/// The outcome of failure.
FormulaOutcome Failure(uint32_t error, uint64_t position, uint64_t length);

/// What a token is, in one word: a kind or an id.
struct Symbol {
    TokenKind kind;
    FunctionId function = {};
    OperatorId operation = {};
    ConstantId constant = {};

    Symbol(TokenKind ofKind) : kind(ofKind) {}
    Symbol(FunctionId id) : kind(TokenFunction), function(id) {}
    Symbol(OperatorId id) : kind(TokenOperator), operation(id) {}
    Symbol(ConstantId id) : kind(TokenConstant), constant(id) {}
    explicit Symbol(const FormulaToken& token);

    bool operator==(const Symbol&) const = default;
};

void PrintTo(const Symbol& symbol, std::ostream* out);

/// A token of the lexer.
FormulaToken Token(const Symbol& symbol, uint64_t position, uint64_t length);

using Variables = std::vector<std::pair<std::u16string, std::u16string>>;

/// Evaluates a formula through EvaluateFormula. Fails the test if anything in the context or the
/// ScratchStack is not as it was, if anything is written behind the result, or if the result of a
/// failure is not 0.
FormulaOutcome Evaluate(std::u16string_view text, const Variables& variables = {},
                        uint64_t flags = TextGroup);

/// The same through AcceptFormulaToken alone, without variables. It asks for no stop between
/// tokens, so that only operations can hear of one.
FormulaOutcome EvaluateTokenByToken(std::u16string_view text);

/// Calls a function by its id with one, two or three arguments, which are values of the number type
/// in force. Fails the test if there are not as many as its row says.
void CallFunction(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                  const std::vector<const uint64_t*>& arguments);

/// A formula such as "ln(1)" for each function of one argument that exact types do not have.
std::vector<std::u16string> FormulasOfRealFunctions();

/// A formula such as "arg(1)" for each function that cplx alone has.
std::vector<std::u16string> FormulasOfComplexFunctions();

/// Readable form of a formula for failure messages.
std::string Printable(std::u16string_view text);

}  // namespace tallymere::testing_support
