#include "reference/big_uint_text_twins.h"

#include <vector>

#include "core/number_context.h"
#include "core/number_scanner.h"
#include "core/text_flags.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"

namespace tallymere::reference {

namespace {

// A number of 16-bit characters that has been taken apart.
struct Parts {
    std::u16string_view mantissa;
    bool hasFractionOrExponent;
    bool negativeExponent;
    uint64_t exponent;
};

// 0 to 15 for a digit of the base, else -1.
int DigitOf(char16_t c, int64_t base) {
    int value = -1;
    if (c >= u'0' && c <= u'9') {
        value = c - u'0';
    } else if (c >= u'a' && c <= u'f') {
        value = c - u'a' + 10;
    } else if (c >= u'A' && c <= u'F') {
        value = c - u'A' + 10;
    }
    return value < base ? value : -1;
}

// False for an exponent above 2^63 - 1.
bool AccumulateExponent(std::u16string_view digits, uint64_t* exponent) {
    *exponent = 0;
    for (char16_t c : digits) {
        const int digit = DigitOf(c, 10);
        if (digit < 0) {
            continue;
        }
        if (*exponent > 0x1999999999999999 || (*exponent == 0x1999999999999999 && digit > 5)) {
            return false;
        }
        *exponent = *exponent * 10 + static_cast<uint64_t>(digit);
    }
    return *exponent >> 63 == 0;
}

bool TakeApart(NumberScanner& scanner, Parts* parts) {
    *parts = {};
    const auto characters = [&](const NumberToken& token) {
        return std::u16string_view(scanner.text + token.start, static_cast<size_t>(token.length));
    };
    NumberToken token = NextNumberToken(scanner);
    if (token.kind == NumberTokenPlus) {
        token = NextNumberToken(scanner);
    }
    if (token.kind != NumberTokenDigits && token.kind != NumberTokenFraction) {
        return false;
    }
    parts->mantissa = characters(token);
    parts->hasFractionOrExponent = token.kind == NumberTokenFraction;
    token = NextNumberToken(scanner);
    if (token.kind == NumberTokenExponent) {
        parts->hasFractionOrExponent = true;
        token = NextNumberToken(scanner);
        parts->negativeExponent = token.kind == NumberTokenMinus;
        if (token.kind == NumberTokenMinus || token.kind == NumberTokenPlus) {
            token = NextNumberToken(scanner);
        }
        if (token.kind != NumberTokenDigits ||
            !AccumulateExponent(characters(token), &parts->exponent)) {
            return false;
        }
        token = NextNumberToken(scanner);
    }
    return token.kind == NumberTokenEnd && (scanner.radix == 10 || !parts->hasFractionOrExponent);
}

void AppendDigit(uint64_t* dest, int64_t base, int digit) {
    BigUintMulSmall(dest, dest, static_cast<uint64_t>(base));
    if (numberContext.calcError == CalcErrorNone) {
        BigUintAddSmall(dest, dest, static_cast<uint64_t>(digit));
    }
}

void ConvertDigits(uint64_t* dest, const NumberScanner& scanner, std::u16string_view digits) {
    for (char16_t c : digits) {
        if (numberContext.calcError != CalcErrorNone) {
            return;
        }
        const int digit = DigitOf(c, scanner.radix);
        if (digit >= 0) {
            AppendDigit(dest, scanner.radix, digit);
        } else if (!IsGroupSeparator(c, scanner.plainSeparators)) {
            SetCalcError(CalcErrorSyntax);
        }
    }
}

void ConvertMantissa(uint64_t* dest, const NumberScanner& scanner, const Parts& parts) {
    uint64_t exponent = parts.exponent;
    bool inFraction = false;
    for (char16_t c : parts.mantissa) {
        if (numberContext.calcError != CalcErrorNone) {
            return;
        }
        const int digit = DigitOf(c, 10);
        if (digit < 0) {
            const bool group = scanner.allowGroups && IsGroupSeparator(c, scanner.plainSeparators);
            inFraction = inFraction || !group;
        } else if (!inFraction) {
            AppendDigit(dest, 10, digit);
        } else if (exponent > 0 && !parts.negativeExponent) {
            AppendDigit(dest, 10, digit);
            exponent--;
        } else if (digit != 0) {
            SetCalcError(CalcErrorSyntax);
        }
    }
    if (BigUintIsZero(dest)) {
        return;
    }
    for (; exponent > 0 && numberContext.calcError == CalcErrorNone; exponent--) {
        if (parts.negativeExponent) {
            uint64_t remainder = 0;
            BigUintDivideSmall(dest, &remainder, dest, 10, 0);
            if (remainder != 0) {
                SetCalcError(CalcErrorSyntax);
            }
        } else {
            BigUintMulSmall(dest, dest, 10);
        }
    }
}

std::u16string Digits(const uint64_t* a, uint32_t base, bool lowerCase) {
    constexpr uint64_t TenTo19 = 10'000'000'000'000'000'000u;
    const char16_t* table = u"0123456789ABCDEF0123456789abcdefinf" + (lowerCase ? 16 : 0);
    const uint64_t bitsPerDigit = base == 2 ? 1 : base == 8 ? 3 : 4;
    const auto limbs = static_cast<size_t>(numberContext.uintLimbs);
    std::vector<uint64_t> copy(a, a + limbs);
    std::u16string digits(64 * limbs + 20, u'0');
    size_t first = digits.size();
    do {
        if (base == 10) {
            uint64_t remainder = 0;
            BigUintDivideSmall(copy.data(), &remainder, copy.data(), TenTo19,
                               DivisorReciprocal(TenTo19));
            for (int k = 0; k < 19; k++) {
                digits[--first] = table[remainder % 10];
                remainder /= 10;
            }
        } else {
            uint64_t digit = 0;
            BigUintShiftRightOut(copy.data(), &digit, copy.data(), bitsPerDigit);
            digits[--first] = table[digit];
        }
    } while (!BigUintIsZero(copy.data()));
    while (first + 1 < digits.size() && digits[first] == u'0') {
        first++;
    }
    return digits.substr(first);
}

std::u16string Grouped(const std::u16string& digits, size_t groupSize, char16_t mark) {
    std::u16string text;
    for (size_t i = 0; i < digits.size(); i++) {
        if (i > 0 && (digits.size() - i) % groupSize == 0) {
            text += mark;
        }
        text += digits[i];
    }
    return text;
}

std::u16string Scientific(std::u16string digits, uint32_t flags) {
    const std::string exponent = std::to_string(digits.size() - 1);
    while ((flags & TextStripZeros) != 0 && digits.size() > 1 && digits.back() == u'0') {
        digits.pop_back();
    }
    std::u16string text = digits.substr(0, 1);
    if (digits.size() > 1) {
        text += (flags & TextPlainSeparators) != 0 ? u'.' : numberContext.decimalSeparators[0];
        text += digits.substr(1);
    }
    text += numberContext.exponentChars[0];
    if ((flags & TextNoExponentPlus) == 0) {
        text += u'+';
    }
    return text + std::u16string(exponent.begin(), exponent.end());
}

}  // namespace

void TwinUintFromText(uint64_t* dest, std::u16string_view text, uint32_t flags) {
    CalcErrorScope codes;
    BigUintClear(dest);
    const uint32_t base = (flags & TextBaseMask) == 0 ? 10 : flags & TextBaseMask;
    if (base != 2 && base != 8 && base != 10 && base != 16) {
        SetCalcError(CalcErrorBadParameter);
        return;
    }
    NumberScanner scanner =
        MakeNumberScanner(text.data(), static_cast<int64_t>(text.size()), flags, base);
    Parts parts;
    if (!TakeApart(scanner, &parts)) {
        SetCalcError(CalcErrorSyntax);
    } else if (parts.hasFractionOrExponent) {
        ConvertMantissa(dest, scanner, parts);
    } else {
        ConvertDigits(dest, scanner, parts.mantissa);
    }
    if (numberContext.calcError != CalcErrorNone) {
        BigUintClear(dest);
    }
}

std::u16string TwinUintText(const uint64_t* a, uint32_t flags) {
    const std::u16string sign = (flags & TextAlwaysSign) != 0 ? u"+" : u"";
    const uint32_t base = (flags & TextBaseMask) == 0 ? 10 : flags & TextBaseMask;
    const bool scientific = (flags & TextScientific) != 0;
    const bool binary = base == 2 || base == 8 || base == 16;
    if (base != 10 && (!binary || scientific)) {
        SetCalcError(CalcErrorBadParameter);
        return sign + u"[P]";
    }
    const std::u16string digits = Digits(a, base, (flags & TextLowerHex) != 0);
    if (scientific) {
        return sign + Scientific(digits, flags);
    }
    if ((flags & TextGroup) == 0) {
        return sign + digits;
    }
    const char16_t mark =
        (flags & TextPlainSeparators) != 0 ? u'\'' : numberContext.groupSeparators[0];
    return sign + Grouped(digits, binary ? 4 : 3, mark);
}

}  // namespace tallymere::reference
