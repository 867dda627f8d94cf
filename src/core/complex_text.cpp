#include "core/complex_text.h"

#include <algorithm>

#include "core/digit_text.h"
#include "core/number_bases.h"
#include "core/real_rounding.h"
#include "core/real_text.h"

namespace tallymere {

namespace {

void ReadRounded(RealNumber* dest, const char16_t* text, int64_t length, uint32_t flags) {
    RealRound(dest, RealFromText(dest, text, length, flags));
}

constexpr bool IsSign(char16_t c) {
    return c == u'+' || c == u'-';
}

bool EndsInImaginaryUnit(const char16_t* text, int64_t length) {
    return length > 0 && IsImaginaryChar(text[length - 1]) &&
           (length == 1 || !IsLetter(text[length - 2]));
}

// The index of the last sign that does not belong to an exponent, or -1.
int64_t FindSplit(const char16_t* text, int64_t length) {
    int64_t i = length - 1;
    while (i >= 0 && !(IsSign(text[i]) && (i == 0 || !IsExponentChar(text[i - 1])))) {
        i--;
    }
    return i;
}

// Reads what stands between the sign of the imaginary part and the unit.
void ReadImaginaryPart(RealNumber* dest, const char16_t* text, int64_t length, uint64_t sign,
                       uint32_t flags) {
    if (length == 0) {
        RealSetOne(dest);
    } else if (length >= 2 && text[0] == u'(' && text[length - 1] == u')') {
        ReadRounded(dest, text + 1, length - 2, flags);
    } else {
        ReadRounded(dest, text, length, flags);
    }
    if (!RealIsNaN(dest)) {
        RealSetSign(dest, sign);
    }
}

bool NeedsParentheses(const char16_t* text, const char16_t* end) {
    return std::any_of(text, end,
                       [](char16_t c) { return IsLetter(c) || IsSign(c) || c == InfinitySign; });
}

// Makes of the number that the writer holds from `start` on, a sign with it or not, the imaginary
// part: the unit behind it, and its magnitude without a lone 1 or in parentheses.
void TurnIntoImaginaryPart(TextWriter& writer, int64_t start) {
    if (WriterOverflowed(writer)) {
        return;
    }
    char16_t* magnitude = writer.buffer + start;
    const char16_t* end = writer.buffer + writer.position;
    if (magnitude < end && IsSign(*magnitude)) {
        magnitude++;
    }
    if (end - magnitude == 1 && *magnitude == u'1') {
        writer.position--;
    } else if (NeedsParentheses(magnitude, end)) {
        const int64_t length = end - magnitude;
        if (WriteReserve(writer, 2) == nullptr) {
            return;
        }
        std::copy_backward(magnitude, magnitude + length, magnitude + length + 1);
        magnitude[0] = u'(';
        magnitude[length + 1] = u')';
    }
    WriteChar(writer, numberContext.imaginaryChars[0]);
}

}  // namespace

void ComplexFromText(ComplexNumber* dest, const char16_t* text, int64_t length, uint32_t flags) {
    const NumberScanner stripped = MakeNumberScanner(text, length, flags, DecimalBase);
    if (!EndsInImaginaryUnit(stripped.text, stripped.length)) {
        ReadRounded(RealPart(dest), stripped.text, stripped.length, flags);
        ComplexClearImaginaryPart(dest);
        return;
    }
    const int64_t unit = stripped.length - 1;
    const int64_t split = FindSplit(stripped.text, unit);
    if (split > 0) {
        ReadRounded(RealPart(dest), stripped.text, split, flags);
    } else {
        RealSetZero(RealPart(dest), 0);
    }
    const uint64_t sign = split >= 0 && stripped.text[split] == u'-' ? 1 : 0;
    ReadImaginaryPart(ImaginaryPart(dest), stripped.text + split + 1, unit - split - 1, sign,
                      flags);
}

int64_t ComplexToText(char16_t* buffer, int64_t capacity, const ComplexNumber* z, uint32_t flags) {
    if (buffer == nullptr) {
        return 2 * RealTextCapacity(flags) + 1;
    }
    TextWriter writer = {0, capacity, buffer};
    if (ComplexIsReal(z)) {
        RealToText(writer, RealPart(z), flags);
        return FinishNumberText(writer, flags);
    }
    uint32_t imaginaryFlags = flags;
    if (!RealIsZero(RealPart(z))) {
        RealToText(writer, RealPart(z), flags);
        imaginaryFlags |= TextAlwaysSign;
    }
    const int64_t start = writer.position;
    RealToText(writer, ImaginaryPart(z), imaginaryFlags);
    TurnIntoImaginaryPart(writer, start);
    return FinishNumberText(writer, flags);
}

}  // namespace tallymere
