#include "calculator/key_texts.h"

#include <cstddef>

#include "core/number_context.h"
#include "formula/constant_table.h"
#include "formula/function_table.h"
#include "formula/operator_table.h"
#include "shell/text_sink.h"

namespace tallymere {

namespace {

// The actions that insert a function, by the unit of angles. A function without an angle is the
// same in all units.
struct ActionFunction {
    KeyAction action;
    FunctionId inRadians;
    FunctionId inDegrees;
    FunctionId inGon;

    constexpr ActionFunction(KeyAction key, FunctionId radians, FunctionId degrees, FunctionId gon)
        : action(key), inRadians(radians), inDegrees(degrees), inGon(gon) {}
    constexpr ActionFunction(KeyAction key, FunctionId id) : ActionFunction(key, id, id, id) {}
};

using Id = FunctionId;

constexpr ActionFunction Functions[] = {
    {ActionSqrt, Id::Sqrt},
    {ActionCbrt, Id::Cbrt},
    {ActionLog2, Id::Log2},
    {ActionLn, Id::Ln},
    {ActionLog10, Id::Log10},
    {ActionLogX, Id::LogX},
    {ActionExp, Id::Exp},
    {ActionSin, Id::Sin, Id::SinDegrees, Id::SinGon},
    {ActionCos, Id::Cos, Id::CosDegrees, Id::CosGon},
    {ActionTan, Id::Tan, Id::TanDegrees, Id::TanGon},
    {ActionAsin, Id::Asin, Id::AsinDegrees, Id::AsinGon},
    {ActionAcos, Id::Acos, Id::AcosDegrees, Id::AcosGon},
    {ActionAtan, Id::Atan, Id::AtanDegrees, Id::AtanGon},
    {ActionSinh, Id::Sinh},
    {ActionCosh, Id::Cosh},
    {ActionTanh, Id::Tanh},
    {ActionAsinh, Id::Asinh},
    {ActionAcosh, Id::Acosh},
    {ActionAtanh, Id::Atanh},
    {ActionFactorial, Id::Fact},
    {ActionTrunc, Id::Trunc},
    {ActionFrac, Id::Frac},
    {ActionAbs, Id::Abs},
    {ActionArg, Id::Arg, Id::ArgDegrees, Id::ArgGon},
    {ActionRound, Id::Round},
    {ActionRealPart, Id::RealPart},
    {ActionImaginaryPart, Id::ImaginaryPart},
    {ActionCombinations, Id::Ncr},
    {ActionPermutations, Id::Npr},
    {ActionRoot, Id::Root},
    {ActionComplexSqrt, Id::ComplexSqrt},
    {ActionComplexCbrt, Id::ComplexCbrt},
    {ActionComplexRoot, Id::ComplexRoot},
    {ActionGcd, Id::Gcd},
    {ActionLcm, Id::Lcm},
    {ActionPowerMod, Id::PowMod},
};

struct ActionOperator {
    KeyAction action;
    OperatorId id;
};

constexpr ActionOperator Operators[] = {
    {ActionAdd, OperatorId::Add},           {ActionSubtract, OperatorId::Subtract},
    {ActionMultiply, OperatorId::Multiply}, {ActionDivide, OperatorId::Divide},
    {ActionPower, OperatorId::Power},       {ActionMod, OperatorId::Mod},
};

// What has no row in the tables of formulas.
struct ActionText {
    KeyAction action;
    const char16_t* text;
};

constexpr ActionText FixedTexts[] = {
    {ActionReciprocal, u"1/"}, {ActionOpen, u"("},
    {ActionClose, u")"},       {ActionArgumentSeparator, u"; "},
    {ActionAns, u"ans"},       {ActionBinary, u"0y"},
    {ActionOctal, u"0t"},      {ActionHexadecimal, u"0x"},
};

// The row whose action it is, or null.
template <typename Row, size_t RowCount>
const Row* FindAction(const Row (&rows)[RowCount], KeyAction action) {
    for (const Row& row : rows) {
        if (row.action == action) {
            return &row;
        }
    }
    return nullptr;
}

// The one character of an action that inserts one of a run or one of the context's; 0 for others.
char16_t CharacterForAction(KeyAction action, bool lowerCaseHex) {
    if (action >= ActionDigit0 && action <= ActionDigit9) {
        return static_cast<char16_t>(u'0' + (action - ActionDigit0));
    }
    if (IsLetterAction(action)) {
        return static_cast<char16_t>((lowerCaseHex ? u'a' : u'A') + (action - ActionLetterA));
    }
    if (action == ActionDecimalSeparator) {
        return numberContext.decimalSeparators[0];
    }
    if (action == ActionExponent) {
        return numberContext.exponentChars[0];
    }
    return action == ActionImaginaryUnit ? numberContext.imaginaryChars[0] : u'\0';
}

FunctionId InUnit(const ActionFunction& function, AngleType angle) {
    switch (angle) {
        case AngleDegrees:
            return function.inDegrees;
        case AngleRadians:
            return function.inRadians;
        case AngleGon:
            return function.inGon;
    }
    return function.inRadians;
}

void WriteName(TextSink& sink, KeyAction action, const KeypadStyle& style) {
    if (const ActionFunction* function = FindAction(Functions, action)) {
        SinkText(sink, FunctionOf(InUnit(*function, style.angleType)).name);
    } else if (const ActionOperator* operation = FindAction(Operators, action)) {
        const OperatorRow& row = OperatorOf(operation->id);
        const char16_t* blank = IsWordOperator(row) ? u" " : u"";
        SinkText(sink, blank);
        SinkText(sink, row.spelling);
        SinkText(sink, blank);
    } else if (const ActionText* fixed = FindAction(FixedTexts, action)) {
        SinkText(sink, fixed->text);
    } else if (action == ActionPi) {
        SinkText(sink, ConstantOf(ConstantId::Pi).name);
    } else if (const char16_t c = CharacterForAction(action, style.lowerCaseHex); c != 0) {
        SinkChar(sink, c);
    }
}

KeyText WriteKeyText(KeyAction action, const KeypadStyle& style, bool withParenthesis) {
    KeyText key;
    TextSink sink = {0, KeyTextCharacters, key.text};
    WriteName(sink, action, style);
    if (withParenthesis && sink.count != 0) {
        SinkChar(sink, u'(');
    }
    EndSinkText(sink);
    return key;
}

}  // namespace

bool HasAngleUnit(KeyAction action) {
    const ActionFunction* function = FindAction(Functions, action);
    return function != nullptr && function->inRadians != function->inDegrees;
}

KeypadStyle StyleOfKeypad(const Settings& record, uint32_t osVersionCode) {
    return {record.numberType, record.angleType, record.useLowerCaseHex, osVersionCode};
}

KeyText NameForAction(KeyAction action, const KeypadStyle& style) {
    return WriteKeyText(action, style, false);
}

KeyText TextForAction(KeyAction action, const KeypadStyle& style) {
    return WriteKeyText(action, style, InsertsFunction(action));
}

}  // namespace tallymere
