#include "core/number_scanner.h"

#include "core/contract.h"
#include "core/digit_text.h"
#include "core/number_bases.h"
#include "core/text_flags.h"

namespace tallymere {

namespace {

constexpr bool IsDigitOfRadix(char16_t c, int64_t radix) {
    const int value = DigitValue(c);
    return value >= 0 && value < radix;
}

bool DigitAt(const NumberScanner& scanner, int64_t position) {
    return position < scanner.length && IsDigitOfRadix(scanner.text[position], scanner.radix);
}

void SkipDigits(NumberScanner& scanner) {
    if (scanner.radix == 10) {
        scanner.position +=
            DecimalRunLength(scanner.text + scanner.position, scanner.length - scanner.position);
        return;
    }
    while (DigitAt(scanner, scanner.position)) {
        scanner.position++;
    }
}

NumberTokenKind ScanDigits(NumberScanner& scanner) {
    NumberTokenKind kind = NumberTokenDigits;
    for (;;) {
        SkipDigits(scanner);
        if (!DigitAt(scanner, scanner.position + 1)) {
            return kind;
        }
        const char16_t c = scanner.text[scanner.position];
        if (scanner.allowGroups && IsGroupSeparator(c, scanner.plainSeparators)) {
            scanner.position++;
        } else if (kind == NumberTokenDigits && IsDecimalSeparator(c, scanner.plainSeparators)) {
            kind = NumberTokenFraction;
            scanner.position++;
        } else {
            return kind;
        }
    }
}

// True if `name` begins with the word. The comparison ends with the word and not with the name, so
// "in" stands for "inf", and "N" and "Na" stand for "NaN": texts that were stored so stay
// readable.
bool IsBeginningOf(const char16_t* name, int64_t nameLength, const char16_t* word, int64_t length) {
    if (length > nameLength) {
        return false;
    }
    for (int64_t i = 0; i < length; i++) {
        if (word[i] != name[i]) {
            return false;
        }
    }
    return true;
}

NumberTokenKind ScanWord(NumberScanner& scanner) {
    const char16_t* word = scanner.text + scanner.position;
    int64_t length = 0;
    do {
        length++;
    } while (scanner.position + length < scanner.length &&
             (IsLetter(word[length]) || IsDecimalDigit(word[length])));
    scanner.position += length;
    if (length == 1 && IsImaginaryChar(word[0])) {
        return NumberTokenImaginary;
    }
    if (IsBeginningOf(u"inf", 3, word, length)) {
        return NumberTokenInfinity;
    }
    return IsBeginningOf(u"NaN", 3, word, length) ? NumberTokenNaN : NumberTokenOther;
}

// True if an exponent mark stands at the scanner's position, with a sign or a digit behind it.
bool IsAtExponentMark(const NumberScanner& scanner) {
    const int64_t next = scanner.position + 1;
    if (next >= scanner.length || !IsExponentChar(scanner.text[scanner.position])) {
        return false;
    }
    const char16_t following = scanner.text[next];
    return following == u'+' || following == u'-' || IsDecimalDigit(following);
}

NumberTokenKind ScanToken(NumberScanner& scanner) {
    if (scanner.position >= scanner.length) {
        return NumberTokenEnd;
    }
    const char16_t c = scanner.text[scanner.position];
    if (IsDigitOfRadix(c, scanner.radix)) {
        return ScanDigits(scanner);
    }
    NumberTokenKind kind = NumberTokenOther;
    if (c == u'+') {
        kind = NumberTokenPlus;
    } else if (c == u'-') {
        kind = NumberTokenMinus;
    } else if (c == InfinitySign) {
        kind = NumberTokenInfinity;
    } else if (IsAtExponentMark(scanner)) {
        kind = NumberTokenExponent;
    } else if (IsLetter(c)) {
        return ScanWord(scanner);
    }
    scanner.position++;
    return kind;
}

}  // namespace

NumberScanner MakeNumberScanner(const char16_t* text, int64_t length, uint32_t flags,
                                int64_t radix) {
    TALLYMERE_REQUIRE(length >= 0 || length == TextUntilZero);
    TALLYMERE_REQUIRE(radix >= 2 && radix <= HighestBase);
    if (length == TextUntilZero) {
        length = 0;
        while (text[length] != u'\0') {
            length++;
        }
    }
    while (length > 0 && text[length - 1] == u' ') {
        length--;
    }
    while (length > 0 && text[0] == u' ') {
        text++;
        length--;
    }
    return {text, (flags & TextGroup) != 0, (flags & TextPlainSeparators) != 0, length, 0, radix};
}

NumberToken NextNumberToken(NumberScanner& scanner) {
    const int64_t start = scanner.position;
    const NumberTokenKind kind = ScanToken(scanner);
    return {kind, start, scanner.position - start};
}

}  // namespace tallymere
