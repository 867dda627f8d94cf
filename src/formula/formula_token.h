// FormulaToken: what the lexer delivers and what stands on the stack of the formula driver.
#pragma once

#include <cstdint>

#include "formula/operation_ids.h"

namespace tallymere {

enum TokenKind : uint8_t {
    TokenNone,     ///< no entry: what is found below the bottom of the stack
    TokenEnd,      ///< the end of the text
    TokenInvalid,  ///< a character that starts no token
    TokenValue,    ///< a number; also every stack entry that holds a computed value
    TokenLeftParen,
    TokenRightParen,
    TokenSeparator,  ///< `;`
    TokenImaginaryUnit,
    TokenFunction,
    TokenOperator,
    TokenConstant,
    TokenIdentifier,  ///< a name that is in no table of formulas
};

/// True for the tokens behind which the lexer finds nothing more.
constexpr bool EndsFormula(TokenKind kind) {
    return kind == TokenEnd || kind == TokenInvalid;
}

struct FormulaToken {
    TokenKind kind;
    FunctionId function;   ///< of TokenFunction; means nothing in other kinds
    OperatorId operation;  ///< of TokenOperator; means nothing in other kinds
    ConstantId constant;   ///< of TokenConstant; means nothing in other kinds
    uint64_t position;     ///< 0-based index of the first character in the text
    uint64_t length;       ///< in characters
    uint64_t* value;       ///< the value slot of a stack entry; null in a token of the lexer
};

}  // namespace tallymere
