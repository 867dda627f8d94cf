#include "formula/formula_keywords.h"

namespace tallymere {

const FormulaKeyword FormulaKeywordTable[FormulaKeywordCount] = {
    {u"sqrt", FunctionSqrt, 1},
    {u"cbrt", FunctionCbrt, 1},
    {u"ln", FunctionLn, 1},
    {u"log2", FunctionLog2, 1},
    {u"log10", FunctionLog10, 1},
    {u"exp", FunctionExp, 1},
    {u"abs", FunctionAbs, 1},
    {u"sin", FunctionSin, 1},
    {u"cos", FunctionCos, 1},
    {u"tan", FunctionTan, 1},
    {u"asin", FunctionAsin, 1},
    {u"acos", FunctionAcos, 1},
    {u"atan", FunctionAtan, 1},
    {u"sind", FunctionSinDegrees, 1},
    {u"cosd", FunctionCosDegrees, 1},
    {u"tand", FunctionTanDegrees, 1},
    {u"asind", FunctionAsinDegrees, 1},
    {u"acosd", FunctionAcosDegrees, 1},
    {u"atand", FunctionAtanDegrees, 1},
    {u"sing", FunctionSinGon, 1},
    {u"cosg", FunctionCosGon, 1},
    {u"tang", FunctionTanGon, 1},
    {u"asing", FunctionAsinGon, 1},
    {u"acosg", FunctionAcosGon, 1},
    {u"atang", FunctionAtanGon, 1},
    {u"sinh", FunctionSinh, 1},
    {u"cosh", FunctionCosh, 1},
    {u"tanh", FunctionTanh, 1},
    {u"asinh", FunctionAsinh, 1},
    {u"acosh", FunctionAcosh, 1},
    {u"atanh", FunctionAtanh, 1},
    {u"fact", FunctionFact, 1},
    {u"root", FunctionRoot, 2},
    {u"sqrtc", FunctionComplexSqrt, 2},
    {u"cbrtc", FunctionComplexCbrt, 2},
    {u"rootc", FunctionComplexRoot, 3},
    {u"arg", FunctionArg, 1},
    {u"argd", FunctionArgDegrees, 1},
    {u"argg", FunctionArgGon, 1},
    {u"realp", FunctionRealPart, 1},
    {u"imagp", FunctionImaginaryPart, 1},
    {u"\u03C0", ConstantPi, 0},
    {u"pi", ConstantPi, 0},
    {u"trunc", FunctionTrunc, 1},
    {u"frac", FunctionFrac, 1},
    {u"ncr", FunctionNcr, 2},
    {u"npr", FunctionNpr, 2},
    {u"mod", OperatorMod, -1},
    {u"logx", FunctionLogX, 2},
    {u"gcd", FunctionGcd, 2},
    {u"lcm", FunctionLcm, 2},
    {u"powmod", FunctionPowMod, 3},
    {u"round", FunctionRound, 1},
};

const FormulaKeyword* FindKeyword(const char16_t* text, uint64_t length) {
    for (const FormulaKeyword& keyword : FormulaKeywordTable) {
        if (NameEquals(keyword.text, text, length)) {
            return &keyword;
        }
    }
    return nullptr;
}

const FormulaKeyword* FindKeywordById(uint32_t id) {
    for (const FormulaKeyword& keyword : FormulaKeywordTable) {
        if (keyword.id == id) {
            return &keyword;
        }
    }
    return nullptr;
}

bool NameEquals(const char16_t* name, const char16_t* text, uint64_t length) {
    for (uint64_t i = 0; i < length; i++) {
        if (name[i] == 0 || name[i] != text[i]) {
            return false;
        }
    }
    return name[length] == 0;
}

}  // namespace tallymere
