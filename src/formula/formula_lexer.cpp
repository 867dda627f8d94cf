#include "formula/formula_lexer.h"

#include "core/digit_text.h"
#include "core/number_scanner.h"
#include "core/text_flags.h"
#include "formula/formula_keywords.h"

namespace tallymere {

namespace {

bool IsWhiteSpace(char16_t c) {
    return c == 0x0A || c == 0x0D || c == 0x20;
}

bool IsHexLetter(char16_t c) {
    return (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
}

uint32_t SymbolId(char16_t c) {
    switch (c) {
        case u'+':
            return OperatorAdd;
        case u'-':
            return OperatorSubtract;
        case u'*':
            return OperatorMultiply;
        case u'/':
            return OperatorDivide;
        case u'^':
            return OperatorPower;
        case u'(':
            return TokenLeftParen;
        case u')':
            return TokenRightParen;
        case u';':
            return TokenSeparator;
        default:
            return TokenInvalid;
    }
}

// The index behind the number that starts with the digit at `start`.
uint64_t NumberEnd(const char16_t* text, uint64_t start, uint64_t flags) {
    const bool neutral = (flags & TextNeutral) != 0;
    const bool groups = (flags & TextGroup) != 0;
    const uint32_t base = NumberBase(text + start);
    uint64_t i = start + (base == 10 ? 1 : 2);
    while (text[i] != 0) {
        const char16_t c = text[i];
        if (IsDecimalDigit(c) || (base == 16 && IsHexLetter(c)) || IsDecimalSeparator(c, neutral) ||
            (groups && IsGroupSeparator(c, neutral))) {
            i++;
        } else if (base == 10 && IsExponentChar(c) &&
                   (text[i + 1] == u'+' || text[i + 1] == u'-' || IsDecimalDigit(text[i + 1]))) {
            i += 2;
        } else {
            break;
        }
    }
    return i;
}

}  // namespace

bool IsNameLetter(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_' ||
           (c >= 0x03B1 && c <= 0x03C9) || (c >= 0x0391 && c <= 0x03A9);
}

uint32_t NumberBase(const char16_t* text) {
    if (text[0] != u'0') {
        return 10;
    }
    switch (text[1]) {
        case u'x':
        case u'X':
            return 16;
        case u'y':
        case u'Y':
            return 2;
        case u't':
        case u'T':
            return 8;
        default:
            return 10;
    }
}

void NextFormulaToken(const FormulaEvaluator& evaluator, FormulaToken& token, uint64_t& position) {
    const char16_t* text = evaluator.text;
    while (IsWhiteSpace(text[position])) {
        position++;
    }
    const uint64_t start = position;
    const char16_t c = text[start];
    token.position = start;
    token.value = nullptr;
    if (c == 0) {
        token.id = TokenEnd;
        token.length = 0;
        return;
    }
    if (IsDecimalDigit(c)) {
        token.id = TokenValue;
        position = NumberEnd(text, start, evaluator.flags);
    } else if (IsImaginaryChar(c) && !IsNameLetter(text[start + 1]) &&
               !IsDecimalDigit(text[start + 1])) {
        token.id = TokenImaginaryUnit;
        position++;
        return;
    } else if (IsNameLetter(c)) {
        do {
            position++;
        } while (IsNameLetter(text[position]) || IsDecimalDigit(text[position]));
        const FormulaKeyword* keyword = FindKeyword(text + start, position - start);
        token.id = keyword != nullptr ? keyword->id : uint32_t{TokenIdentifier};
    } else {
        token.id = SymbolId(c);
        if (token.id != TokenInvalid) {
            position++;
        }
    }
    token.length = position - start;
}

}  // namespace tallymere
