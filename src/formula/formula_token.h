// FormulaToken: what the lexer delivers and what stands on the stack of the formula driver.
#pragma once

#include <cstdint>

namespace tallymere {

/// Token ids. The driver tests them by ranges: functions are 200 to 499, operators 600 to 699,
/// constants 700 to 799, and what is below 100 ends a formula.
enum FormulaTokenId : uint32_t {
    TokenNone = 0,  ///< no entry: what is found below the bottom of the stack
    TokenEnd = 1,
    TokenInvalid = 2,  ///< a character that starts no token

    TokenValue = 100,  ///< a number; also every stack entry that holds a computed value
    TokenLeftParen = 110,
    TokenRightParen = 111,
    TokenImaginaryUnit = 112,

    FunctionSqrt = 200,
    FunctionCbrt = 201,
    FunctionLn = 202,
    FunctionLog2 = 203,
    FunctionLog10 = 204,
    FunctionExp = 205,
    FunctionAbs = 206,
    FunctionSin = 207,
    FunctionCos = 208,
    FunctionTan = 209,
    FunctionAsin = 210,
    FunctionAcos = 211,
    FunctionAtan = 212,
    FunctionSinDegrees = 213,
    FunctionCosDegrees = 214,
    FunctionTanDegrees = 215,
    FunctionAsinDegrees = 216,
    FunctionAcosDegrees = 217,
    FunctionAtanDegrees = 218,
    FunctionSinGon = 219,
    FunctionCosGon = 220,
    FunctionTanGon = 221,
    FunctionAsinGon = 222,
    FunctionAcosGon = 223,
    FunctionAtanGon = 224,
    FunctionSinh = 225,
    FunctionCosh = 226,
    FunctionTanh = 227,
    FunctionAsinh = 228,
    FunctionAcosh = 229,
    FunctionAtanh = 230,
    FunctionFact = 231,
    FunctionRoot = 232,
    FunctionComplexSqrt = 300,
    FunctionComplexCbrt = 301,
    FunctionComplexRoot = 302,
    FunctionArg = 303,
    FunctionArgDegrees = 304,
    FunctionArgGon = 305,
    FunctionRealPart = 306,
    FunctionImaginaryPart = 307,
    FunctionTrunc = 308,
    FunctionFrac = 309,
    FunctionNcr = 310,
    FunctionNpr = 311,
    FunctionLogX = 312,
    FunctionGcd = 313,
    FunctionLcm = 314,
    FunctionPowMod = 316,
    FunctionRound = 317,

    OperatorAdd = 600,
    OperatorSubtract = 601,
    OperatorMultiply = 602,
    OperatorDivide = 603,
    OperatorPower = 604,
    OperatorMod = 605,

    ConstantPi = 700,

    TokenSeparator = 800,   ///< `;`
    TokenIdentifier = 801,  ///< a name that is no keyword
};

constexpr bool IsFunctionId(uint32_t id) {
    return id >= 200 && id <= 499;
}
constexpr bool IsOperatorId(uint32_t id) {
    return id >= 600 && id <= 699;
}
constexpr bool IsConstantId(uint32_t id) {
    return id >= 700 && id <= 799;
}
constexpr bool IsSignId(uint32_t id) {
    return id == OperatorAdd || id == OperatorSubtract;
}
constexpr bool EndsFormula(uint32_t id) {
    return id < 100;
}

struct FormulaToken {
    uint32_t id;        ///< a FormulaTokenId
    uint64_t position;  ///< 0-based index of the first character in the text
    uint64_t length;    ///< in characters
    uint64_t* value;    ///< the value slot of a stack entry; null in a token of the lexer
};

}  // namespace tallymere
