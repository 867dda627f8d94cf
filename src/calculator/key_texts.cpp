#include "calculator/key_texts.h"

#include "core/number_context.h"
#include "shell/text_sink.h"

namespace tallymere {

namespace {

struct ActionText {
    KeyAction action;
    const char16_t* text;
};

constexpr ActionText FixedTexts[] = {
    {ActionAdd, u"+"},
    {ActionSubtract, u"-"},
    {ActionMultiply, u"*"},
    {ActionDivide, u"/"},
    {ActionPower, u"^"},
    {ActionMod, u" mod "},
    {ActionReciprocal, u"1/"},
    {ActionSqrt, u"sqrt"},
    {ActionCbrt, u"cbrt"},
    {ActionLog2, u"log2"},
    {ActionLn, u"ln"},
    {ActionLog10, u"log10"},
    {ActionLogX, u"logx"},
    {ActionExp, u"exp"},
    {ActionSin, u"sin"},
    {ActionCos, u"cos"},
    {ActionTan, u"tan"},
    {ActionAsin, u"asin"},
    {ActionAcos, u"acos"},
    {ActionAtan, u"atan"},
    {ActionSinh, u"sinh"},
    {ActionCosh, u"cosh"},
    {ActionTanh, u"tanh"},
    {ActionAsinh, u"asinh"},
    {ActionAcosh, u"acosh"},
    {ActionAtanh, u"atanh"},
    {ActionFactorial, u"fact"},
    {ActionTrunc, u"trunc"},
    {ActionFrac, u"frac"},
    {ActionAbs, u"abs"},
    {ActionArg, u"arg"},
    {ActionRound, u"round"},
    {ActionRealPart, u"realp"},
    {ActionImaginaryPart, u"imagp"},
    {ActionCombinations, u"ncr"},
    {ActionPermutations, u"npr"},
    {ActionRoot, u"root"},
    {ActionComplexSqrt, u"sqrtc"},
    {ActionComplexCbrt, u"cbrtc"},
    {ActionComplexRoot, u"rootc"},
    {ActionGcd, u"gcd"},
    {ActionLcm, u"lcm"},
    {ActionPowerMod, u"powmod"},
    {ActionPi, u"\u03C0"},
    {ActionOpen, u"("},
    {ActionClose, u")"},
    {ActionArgumentSeparator, u"; "},
    {ActionAns, u"ans"},
    {ActionBinary, u"0y"},
    {ActionOctal, u"0t"},
    {ActionHexadecimal, u"0x"},
};

// The one character of an action that inserts one of a run or one of the context's; 0 for others.
char16_t CharacterForAction(KeyAction action, bool lowerCaseHex) {
    if (action >= ActionDigit0 && action <= ActionDigit9) {
        return static_cast<char16_t>(u'0' + (action - ActionDigit0));
    }
    if (IsLetterAction(action)) {
        return static_cast<char16_t>((lowerCaseHex ? u'a' : u'A') + (action - ActionLetterA));
    }
    switch (action) {
        case ActionDecimalSeparator:
            return numberContext.decimalSeparators[0];
        case ActionExponent:
            return numberContext.exponentChars[0];
        case ActionImaginaryUnit:
            return numberContext.imaginaryChars[0];
        default:
            return 0;
    }
}

// What stands behind the name of a function; radians have no letter.
const char16_t* UnitLetter(AngleType angle) {
    return angle == AngleDegrees ? u"d" : angle == AngleGon ? u"g" : u"";
}

void WriteName(TextSink& sink, KeyAction action, const KeypadStyle& style) {
    if (const char16_t c = CharacterForAction(action, style.lowerCaseHex); c != 0) {
        SinkChar(sink, c);
        return;
    }
    for (const ActionText& fixed : FixedTexts) {
        if (fixed.action == action) {
            SinkText(sink, fixed.text);
            break;
        }
    }
    if (HasAngleUnit(action)) {
        SinkText(sink, UnitLetter(style.angleType));
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
