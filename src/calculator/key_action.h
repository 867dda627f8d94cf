// What the keys of the calculator do.
#pragma once

#include <cstdint>

namespace tallymere {

/// The values are fixed and have gaps. An action below FirstCommandAction changes the formula. From
/// there on it is a command of the page. Actions from FirstFunctionAction to below
/// FirstSymbolAction insert a function with its "(".
enum KeyAction : int32_t {
    ActionNone = 0,

    ActionAdd = 1000,
    ActionSubtract = 1001,
    ActionMultiply = 1002,
    ActionDivide = 1003,
    ActionPower = 1004,
    ActionMod = 1008,
    ActionReciprocal = 1018,

    ActionSqrt = 1100,
    ActionCbrt = 1101,
    ActionLog2 = 1104,
    ActionLn = 1105,
    ActionLog10 = 1106,
    ActionLogX = 1107,
    ActionExp = 1108,
    ActionSin = 1110,
    ActionCos = 1111,
    ActionTan = 1112,
    ActionAsin = 1113,
    ActionAcos = 1114,
    ActionAtan = 1115,
    ActionSinh = 1116,
    ActionCosh = 1117,
    ActionTanh = 1118,
    ActionAsinh = 1119,
    ActionAcosh = 1120,
    ActionAtanh = 1121,
    ActionFactorial = 1122,
    ActionTrunc = 1125,
    ActionFrac = 1126,
    ActionAbs = 1127,
    ActionArg = 1128,
    ActionRound = 1129,
    ActionRealPart = 1133,
    ActionImaginaryPart = 1134,
    ActionCombinations = 1135,
    ActionPermutations = 1136,
    ActionRoot = 1137,
    ActionComplexSqrt = 1138,
    ActionComplexCbrt = 1139,
    ActionComplexRoot = 1140,
    ActionGcd = 1141,
    ActionLcm = 1142,
    ActionPowerMod = 1144,

    ActionDigit0 = 1300,  ///< the other digits follow in their order
    ActionDigit9 = 1309,
    ActionLetterA = 1310,  ///< the other letters follow in their order
    ActionLetterF = 1315,
    ActionDecimalSeparator = 1318,
    ActionExponent = 1319,
    ActionPi = 1320,
    ActionImaginaryUnit = 1323,
    ActionBackspace = 1324,
    ActionClearAll = 1325,
    ActionOpen = 1326,
    ActionClose = 1327,
    ActionArgumentSeparator = 1328,
    ActionAns = 1329,
    ActionBracketFormula = 1331,
    ActionClearFormula = 1332,
    ActionBinary = 1333,
    ActionOctal = 1334,
    ActionHexadecimal = 1335,

    ActionEvaluate = 1400,
    ActionSwitchNotation = 1402,  ///< the key F↔S
    ActionSwitchMixed = 1403,     ///< the key R↔M
    ActionShowVariables = 1404,
};

inline constexpr int32_t FirstFormulaAction = 1000;
inline constexpr int32_t FirstFunctionAction = 1100;
inline constexpr int32_t FirstSymbolAction = 1300;
inline constexpr int32_t FirstCommandAction = 1400;

constexpr bool EditsFormula(KeyAction action) {
    return action >= FirstFormulaAction && action < FirstCommandAction;
}

constexpr bool InsertsFunction(KeyAction action) {
    return action >= FirstFunctionAction && action < FirstSymbolAction;
}

/// Whether the key has another caption and text with another case of letters.
constexpr bool IsLetterAction(KeyAction action) {
    return action >= ActionLetterA && action <= ActionLetterF;
}

}  // namespace tallymere
