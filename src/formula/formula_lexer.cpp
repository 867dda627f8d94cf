#include "formula/formula_lexer.h"

#include "core/digit_text.h"
#include "core/number_bases.h"
#include "core/number_scanner.h"
#include "core/text_flags.h"
#include "formula/constant_table.h"
#include "formula/formula_names.h"
#include "formula/function_table.h"
#include "formula/operator_table.h"

namespace tallymere {

namespace {

bool IsWhiteSpace(char16_t c) {
    return c == 0x0A || c == 0x0D || c == 0x20;
}

// True for a letter that is a digit of the base.
bool IsLetterDigit(char16_t c, int32_t base) {
    return IsLetter(c) && DigitValue(c) < base;
}

// Sets the kind and the id of a run of letters and digits.
void ReadName(FormulaToken& token, const char16_t* text, uint64_t length) {
    if (const FunctionRow* function = FindFunction(text, length); function != nullptr) {
        token.kind = TokenFunction;
        token.function = function->id;
    } else if (const ConstantRow* constant = FindConstant(text, length); constant != nullptr) {
        token.kind = TokenConstant;
        token.constant = constant->id;
    } else if (const OperatorRow* word = FindWordOperator(text, length); word != nullptr) {
        token.kind = TokenOperator;
        token.operation = word->id;
    } else {
        token.kind = TokenIdentifier;
    }
}

// Sets the kind and the id of the symbol that the text begins with, and returns its length.
uint64_t ReadSymbol(FormulaToken& token, const char16_t* text) {
    switch (text[0]) {
        case u'(':
            token.kind = TokenLeftParen;
            return 1;
        case u')':
            token.kind = TokenRightParen;
            return 1;
        case u';':
            token.kind = TokenSeparator;
            return 1;
    }
    uint64_t length = 0;
    if (const OperatorRow* row = FindSymbolOperator(text, &length); row != nullptr) {
        token.kind = TokenOperator;
        token.operation = row->id;
    } else {
        token.kind = TokenInvalid;
    }
    return length;
}

// The length of the number that the text begins with.
uint64_t NumberLength(const char16_t* text, uint64_t flags) {
    const bool plainSeparators = (flags & TextPlainSeparators) != 0;
    const bool groups = (flags & TextGroup) != 0;
    const NumberBase& row = NumberBaseOfPrefix(text);
    const bool isDecimal = row.base == DecimalBase;
    auto length = static_cast<uint64_t>(isDecimal ? 1 : PrefixLength(row));
    while (text[length] != 0) {
        const char16_t c = text[length];
        if (IsDecimalDigit(c) || IsLetterDigit(c, row.base) ||
            IsDecimalSeparator(c, plainSeparators) ||
            (groups && IsGroupSeparator(c, plainSeparators))) {
            length++;
        } else if (isDecimal && IsExponentChar(c) &&
                   (text[length + 1] == u'+' || text[length + 1] == u'-' ||
                    IsDecimalDigit(text[length + 1]))) {
            length += 2;
        } else {
            break;
        }
    }
    return length;
}

// The length of the name that the text begins with.
uint64_t NameLength(const char16_t* text) {
    uint64_t length = 1;
    while (IsNameLetter(text[length]) || IsDecimalDigit(text[length])) {
        length++;
    }
    return length;
}

}  // namespace

void NextFormulaToken(const FormulaEvaluator& evaluator, FormulaToken& token, uint64_t& position) {
    while (IsWhiteSpace(evaluator.text[position])) {
        position++;
    }
    const char16_t* text = evaluator.text + position;
    token.position = position;
    token.value = nullptr;
    if (text[0] == 0) {
        token.kind = TokenEnd;
        token.length = 0;
        return;
    }
    if (IsDecimalDigit(text[0])) {
        token.kind = TokenValue;
        token.length = NumberLength(text, evaluator.flags);
    } else if (IsImaginaryChar(text[0]) && !IsNameLetter(text[1]) && !IsDecimalDigit(text[1])) {
        token.kind = TokenImaginaryUnit;
        position++;
        return;
    } else if (IsNameLetter(text[0])) {
        token.length = NameLength(text);
        ReadName(token, text, token.length);
    } else {
        token.length = ReadSymbol(token, text);
    }
    position += token.length;
}

}  // namespace tallymere
