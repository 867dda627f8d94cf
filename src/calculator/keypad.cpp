#include "calculator/keypad.h"

#include "shell/text_sink.h"

namespace tallymere {

namespace {

// The first version of Windows that shows subscript digits in captions.
constexpr uint32_t SubscriptVersion = 0x0600;

enum KeyTypes : uint32_t {
    InUint = 1,
    InRat = 2,
    InReal = 4,
    InCplx = 8,
    InDecimal = InReal | InCplx,
    NotInUint = InRat | InReal | InCplx,
    InAll = InUint | NotInUint,
};

KeyTypes TypesOf(NumberType type) {
    switch (type) {
        case NumberTypeUint:
            return InUint;
        case NumberTypeRational:
            return InRat;
        case NumberTypeReal:
            return InReal;
        case NumberTypeComplex:
            return InCplx;
        case NumberTypeNone:
            break;
    }
    return {};
}

// A key of the pad as some number types have it. Brackets say that the result is cut to an integer.
struct KeyRow {
    int32_t index;
    KeyTypes types;
    const char16_t* caption;  // null for the name that the key inserts
    KeyAction action;
    KeyClass colourClass;
    const char16_t* plainCaption = nullptr;  // where there are no subscripts, if another
};

constexpr auto Digit = KeyClassDigit;
constexpr auto Operator = KeyClassOperator;
constexpr auto Clear = KeyClassClear;
constexpr auto Function = KeyClassFunction;
constexpr auto Structure = KeyClassStructure;
constexpr auto Complex = KeyClassComplex;

constexpr KeyAction DigitAction(int32_t digit) {
    return static_cast<KeyAction>(ActionDigit0 + digit);
}
constexpr KeyAction LetterAction(int32_t letter) {
    return static_cast<KeyAction>(ActionLetterA + letter);
}

// In the order of the keys; at most one row holds for a key and a number type. The captions of the
// decimal separator, of "-" as an en dash and of the imaginary unit are fixed, whatever the keys
// insert.
constexpr KeyRow Rows[] = {
    {0, InAll, u"CA", ActionClearAll, Clear},
    {1, InAll, u"←", ActionBackspace, Clear},
    {2, InAll, nullptr, DigitAction(7), Digit},
    {3, InAll, nullptr, DigitAction(8), Digit},
    {4, InAll, nullptr, DigitAction(9), Digit},
    {5, InUint, u"[lg₁₀]", ActionLog10, Function, u"[lg10]"},
    {5, NotInUint, u"log₁₀", ActionLog10, Function, u"log10"},
    {6, InUint, u"[log₂]", ActionLog2, Function, u"[log2]"},
    {6, NotInUint, u"log₂", ActionLog2, Function, u"log2"},
    {7, InUint, u"[logx]", ActionLogX, Function},
    {7, NotInUint, u"logx", ActionLogX, Function},
    {8, InRat, u"R↔M", ActionSwitchMixed, Structure},
    {8, InCplx, u"i", ActionImaginaryUnit, Complex},
    {9, InAll, u"CF", ActionClearFormula, Clear},
    {10, InAll, u"var", ActionShowVariables, Structure},
    {11, InAll, nullptr, DigitAction(4), Digit},
    {12, InAll, nullptr, DigitAction(5), Digit},
    {13, InAll, nullptr, DigitAction(6), Digit},
    {14, InAll, u"x^y", ActionPower, Function},
    {15, InDecimal, u"e^x", ActionExp, Function},
    {16, InDecimal, u"ln", ActionLn, Function},
    {17, InCplx, nullptr, ActionArg, Complex},
    {18, InAll, u"(", ActionOpen, Structure},
    {19, InAll, u")", ActionClose, Structure},
    {20, InAll, nullptr, DigitAction(1), Digit},
    {21, InAll, nullptr, DigitAction(2), Digit},
    {22, InAll, nullptr, DigitAction(3), Digit},
    {23, InUint, u"[²√x]", ActionSqrt, Function},
    {23, NotInUint, u"²√x", ActionSqrt, Function},
    {24, InUint, u"[³√x]", ActionCbrt, Function},
    {24, NotInUint, u"³√x", ActionCbrt, Function},
    {25, InUint, u"[x√y]", ActionRoot, Function},
    {25, NotInUint, u"x√y", ActionRoot, Function},
    {26, InCplx, u"²√z", ActionComplexSqrt, Complex},
    {27, InAll, u"(..)", ActionBracketFormula, Structure},
    {28, InAll, u";", ActionArgumentSeparator, Structure},
    {29, InAll, nullptr, DigitAction(0), Digit},
    {30, InAll, u"=", ActionEvaluate, Operator},
    {31, InAll, u"ans", ActionAns, Operator},
    {32, InDecimal, nullptr, ActionSin, Function},
    {32, InUint, nullptr, LetterAction(0), Operator},
    {33, InDecimal, nullptr, ActionCos, Function},
    {33, InUint, nullptr, LetterAction(1), Operator},
    {34, InDecimal, nullptr, ActionTan, Function},
    {34, InUint, nullptr, LetterAction(2), Operator},
    {35, InCplx, u"³√z", ActionComplexCbrt, Complex},
    {36, InAll, u"x!", ActionFactorial, Function},
    {37, InAll, u".", ActionDecimalSeparator, Operator},
    {38, InAll, u"+", ActionAdd, Operator},
    {39, InAll, u"–", ActionSubtract, Operator},
    {40, InAll, u"*", ActionMultiply, Operator},
    {41, InDecimal, nullptr, ActionAsin, Function},
    {41, InUint, nullptr, LetterAction(3), Operator},
    {42, InDecimal, nullptr, ActionAcos, Function},
    {42, InUint, nullptr, LetterAction(4), Operator},
    {43, InDecimal, nullptr, ActionAtan, Function},
    {43, InUint, nullptr, LetterAction(5), Operator},
    {44, InCplx, u"x√z", ActionComplexRoot, Complex},
    {45, InAll, u"ncr", ActionCombinations, Function},
    {46, InAll, u"npr", ActionPermutations, Function},
    {47, InUint, u"[/]", ActionDivide, Operator},
    {47, NotInUint, u"/", ActionDivide, Operator},
    {48, InAll, u"mod", ActionMod, Operator},
    {49, InUint, u"^mod", ActionPowerMod, Function},
    {49, NotInUint, u"1/x", ActionReciprocal, Operator},
    {50, InDecimal, u"sinh", ActionSinh, Function},
    {50, InUint, u"bin", ActionBinary, Structure},
    {51, InDecimal, u"cosh", ActionCosh, Function},
    {51, InUint, u"oct", ActionOctal, Structure},
    {52, InDecimal, u"tanh", ActionTanh, Function},
    {52, InUint, u"hex", ActionHexadecimal, Structure},
    {53, InCplx, u"realp", ActionRealPart, Complex},
    {54, InAll, u"gcd", ActionGcd, Function},
    {55, InAll, u"lcm", ActionLcm, Function},
    {56, InAll, u"F↔S", ActionSwitchNotation, Structure},
    {57, InAll, u"e±", ActionExponent, Structure},
    {58, NotInUint, u"|x|", ActionAbs, Operator},
    {59, InDecimal, u"asinh", ActionAsinh, Function},
    {60, InDecimal, u"acosh", ActionAcosh, Function},
    {61, InDecimal, u"atanh", ActionAtanh, Function},
    {62, InCplx, u"imagp", ActionImaginaryPart, Complex},
    {63, NotInUint, u"trunc", ActionTrunc, Function},
    {64, NotInUint, u"frac", ActionFrac, Function},
    {65, NotInUint, u"round", ActionRound, Function},
    {66, InDecimal, u"π", ActionPi, Function},
};

const KeyRow* FindRow(int32_t index, NumberType type) {
    for (const KeyRow& row : Rows) {
        if (row.index == index && (row.types & TypesOf(type)) != 0) {
            return &row;
        }
    }
    return nullptr;
}

// In the plain font the arrow is small, and the Greek letter looks like a Latin one. The longest
// name of a complex function needs the narrow font.
KeyFont FontOfKey(int32_t index) {
    switch (index) {
        case 1:
            return KeyFontArrow;
        case 62:
            return KeyFontNarrow;
        case 66:
            return KeyFontPi;
        default:
            return KeyFontPlain;
    }
}

}  // namespace

KeyInfo KeypadEntry(int32_t index, const KeypadStyle& style) {
    KeyInfo key;
    key.font = FontOfKey(index);
    const KeyRow* row = FindRow(index, style.numberType);
    if (row == nullptr) {
        return key;
    }
    const char16_t* caption = row->caption;
    if (row->plainCaption != nullptr && style.osVersionCode < SubscriptVersion) {
        caption = row->plainCaption;
    }
    CopyBounded(key.caption, KeyCaptionCharacters,
                caption != nullptr ? caption : NameForAction(row->action, style).text);
    key.action = row->action;
    key.colourClass = row->colourClass;
    return key;
}

int32_t KeyOfAction(KeyAction action, NumberType type) {
    for (const KeyRow& row : Rows) {
        if (row.action == action && (row.types & TypesOf(type)) != 0) {
            return row.index;
        }
    }
    return -1;
}

}  // namespace tallymere
