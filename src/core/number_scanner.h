// NumberScanner: the tokens of number texts, in any radix up to 16.
#pragma once

#include <cstdint>

#include "core/number_context.h"

namespace tallymere {

/// A length that says: the text ends at a 0 character.
inline constexpr int64_t TextUntilZero = -1;

/// Infinity as it is written; always accepted where infinity is.
inline constexpr char16_t InfinitySign = u'\u221E';

struct NumberScanner {
    const char16_t* text;
    bool allowGroups;      ///< group separators may stand between digits
    bool plainSeparators;  ///< "." and "'" instead of the context's separators
    int64_t length;        ///< characters of text, already counted
    int64_t position;      ///< 0-based index of the next character
    int64_t radix;         ///< 2 to 16
};

enum NumberTokenKind : uint32_t {
    NumberTokenEnd = 0,
    NumberTokenOther = 1,
    NumberTokenDigits = 100,     ///< integer digits
    NumberTokenFraction = 101,   ///< digits with a decimal separator among them
    NumberTokenExponent = 112,   ///< an exponent mark; sign and digits follow
    NumberTokenImaginary = 113,  ///< the imaginary unit alone
    NumberTokenPlus = 600,
    NumberTokenMinus = 601,
    NumberTokenInfinity = 701,
    NumberTokenNaN = 702,
};

struct NumberToken {
    NumberTokenKind kind;
    int64_t start;   ///< 0-based index of the first character
    int64_t length;  ///< in characters
};

/// A scanner over the text with spaces (U+0020) stripped at both ends; `length` may be
/// TextUntilZero. `flags` are TextFlags: TextGroup and TextPlainSeparators matter.
NumberScanner MakeNumberScanner(const char16_t* text, int64_t length, uint32_t flags,
                                int64_t radix);

/// Reads the token at the scanner's position and moves behind it. Never fails: what is no token is
/// NumberTokenOther, of one character or of one word of letters and digits.
///
/// A number has digits on both sides of its decimal separator, so "1." is the token "1" and then
/// NumberTokenOther. A group separator belongs to a number only between two digits.
NumberToken NextNumberToken(NumberScanner& scanner);

/// True if c is one of the context's three decimal separators, or "." where only plain separators
/// count.
inline bool IsDecimalSeparator(char16_t c, bool plainSeparators) {
    if (plainSeparators) {
        return c == u'.';
    }
    const char16_t* separators = numberContext.decimalSeparators;
    return c == separators[0] || c == separators[1] || c == separators[2];
}

/// True if c is one of the context's three group separators, or "'" where only plain separators
/// count.
inline bool IsGroupSeparator(char16_t c, bool plainSeparators) {
    if (plainSeparators) {
        return c == u'\'';
    }
    const char16_t* separators = numberContext.groupSeparators;
    return c == separators[0] || c == separators[1] || c == separators[2];
}

/// True if c is one of the context's four exponent characters.
inline bool IsExponentChar(char16_t c) {
    const char16_t* marks = numberContext.exponentChars;
    return c == marks[0] || c == marks[1] || c == marks[2] || c == marks[3];
}

/// True if c is one of the context's two imaginary units.
inline bool IsImaginaryChar(char16_t c) {
    return c == numberContext.imaginaryChars[0] || c == numberContext.imaginaryChars[1];
}

}  // namespace tallymere
