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

// The index behind the number that starts with the digit at `start`.
uint64_t NumberEnd(const char16_t* text, uint64_t start, uint64_t flags) {
    const bool plainSeparators = (flags & TextPlainSeparators) != 0;
    const bool groups = (flags & TextGroup) != 0;
    const NumberBase& row = NumberBaseOfPrefix(text + start);
    const bool isDecimal = row.base == DecimalBase;
    uint64_t i = start + static_cast<uint64_t>(isDecimal ? 1 : PrefixLength(row));
    while (text[i] != 0) {
        const char16_t c = text[i];
        if (IsDecimalDigit(c) || IsLetterDigit(c, row.base) ||
            IsDecimalSeparator(c, plainSeparators) ||
            (groups && IsGroupSeparator(c, plainSeparators))) {
            i++;
        } else if (isDecimal && IsExponentChar(c) &&
                   (text[i + 1] == u'+' || text[i + 1] == u'-' || IsDecimalDigit(text[i + 1]))) {
            i += 2;
        } else {
            break;
        }
    }
    return i;
}

}  // namespace

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
        token.kind = TokenEnd;
        token.length = 0;
        return;
    }
    if (IsDecimalDigit(c)) {
        token.kind = TokenValue;
        position = NumberEnd(text, start, evaluator.flags);
    } else if (IsImaginaryChar(c) && !IsNameLetter(text[start + 1]) &&
               !IsDecimalDigit(text[start + 1])) {
        token.kind = TokenImaginaryUnit;
        position++;
        return;
    } else if (IsNameLetter(c)) {
        do {
            position++;
        } while (IsNameLetter(text[position]) || IsDecimalDigit(text[position]));
        ReadName(token, text + start, position - start);
    } else {
        position += ReadSymbol(token, text + start);
    }
    token.length = position - start;
}

}  // namespace tallymere
