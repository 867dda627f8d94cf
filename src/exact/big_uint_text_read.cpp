#include <algorithm>

#include "core/digit_text.h"
#include "core/digit_walk.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_text.h"
#include "exact/radix_conversion.h"

namespace tallymere {

namespace {

constexpr uint64_t MaxWrittenExponent = (uint64_t{1} << 63) - 1;

// What the text of a whole number says before its digits are converted.
struct WrittenInteger {
    NumberToken token;         // its digits
    WrittenExponent exponent;  // 0 where none is written
};

// True when the whole text is a number in the scanner's radix.
bool ReadWrittenInteger(NumberScanner& scanner, WrittenInteger* number) {
    *number = {};
    NumberToken token = NextNumberToken(scanner);
    if (token.kind == NumberTokenPlus) {
        token = NextNumberToken(scanner);
    }
    const bool isDecimal = scanner.radix == 10;
    if (token.kind != NumberTokenDigits && !(isDecimal && token.kind == NumberTokenFraction)) {
        return false;
    }
    number->token = token;
    token = NextNumberToken(scanner);
    if (isDecimal && token.kind == NumberTokenExponent) {
        if (!ReadWrittenExponent(scanner, &number->exponent) ||
            number->exponent.magnitude > MaxWrittenExponent) {
            return false;
        }
        token = NextNumberToken(scanner);
    }
    return token.kind == NumberTokenEnd;
}

// Where the decimal separator of a digit token stands, counted from its start; its length if there
// is none. A character that separates groups as well has been taken for that.
int64_t IntegerPartLength(const NumberScanner& scanner, const NumberToken& token) {
    if (token.kind == NumberTokenDigits) {
        return token.length;
    }
    const char16_t* text = scanner.text + token.start;
    int64_t length = 0;
    while (IsDecimalDigit(text[length]) ||
           (scanner.allowGroups && IsGroupSeparator(text[length], scanner.neutral))) {
        length++;
    }
    return length;
}

// x = x 10^k + the next k digits of the walk, where k is the digits left or `limit`, whichever is
// less; false when that does not fit.
bool AppendDigits(GrowingInteger& x, DigitWalk& walk, uint64_t limit, uint64_t* k) {
    constexpr int64_t limbsAtOnce = 16;
    *k = 0;
    for (;;) {
        Limb limbs[limbsAtOnce];
        int64_t count = 0;
        DigitRun run = {0, DigitsPerLimb};
        while (run.count == DigitsPerLimb && count < limbsAtOnce) {
            const uint64_t wanted = std::min<uint64_t>(limit - *k, DigitsPerLimb);
            run = TakeDigits(walk, static_cast<int64_t>(wanted));
            *k += static_cast<uint64_t>(run.count);
            if (run.count == DigitsPerLimb) {
                limbs[count++] = run.value;
            }
        }
        if (!AppendLimbs(x, limbs, count)) {
            return false;
        }
        if (run.count < DigitsPerLimb) {
            return MultiplyAdd(x, PowerOfTen(run.count), run.value);
        }
    }
}

// x = x / 10^places, where x is a BigUint; false when that is no integer.
bool DivideByPowersOfTen(uint64_t* x, uint64_t places) {
    if (BigUintIsZero(x)) {
        return true;
    }
    while (places > 0) {
        const uint64_t step = std::min<uint64_t>(places, DigitsPerLimb);
        uint64_t remainder = 0;
        BigUintDivideSmall(x, &remainder, x, PowerOfTen(static_cast<int64_t>(step)), 0);
        if (remainder != 0) {
            return false;
        }
        places -= step;
    }
    return true;
}

CalcError ReadDecimal(uint64_t* dest, const NumberScanner& scanner, const WrittenInteger& number) {
    const NumberToken& token = number.token;
    const int64_t integerLength = IntegerPartLength(scanner, token);
    const uint64_t places = number.exponent.magnitude;
    const uint64_t digitsToMove = number.exponent.negative ? 0 : places;

    GrowingInteger x = {dest, numberContext.uintLimbs, 0};
    uint64_t count = 0;
    DigitWalk integer = MakeDigitWalk(scanner, token.start, integerLength);
    if (!AppendDigits(x, integer, MaxWrittenExponent, &count)) {
        return CalcErrorOverflow;
    }
    DigitWalk fraction =
        MakeDigitWalk(scanner, token.start + integerLength, token.length - integerLength);
    if (!AppendDigits(x, fraction, digitsToMove, &count)) {
        return CalcErrorOverflow;
    }
    SkipLeadingZeros(fraction);
    if (MoveToDigit(fraction)) {
        return CalcErrorSyntax;
    }
    if (!MultiplyByPowerOfTen(x, digitsToMove - count)) {
        return CalcErrorOverflow;
    }
    std::fill(dest + x.length, dest + numberContext.uintLimbs, uint64_t{0});
    return number.exponent.negative && !DivideByPowersOfTen(dest, places) ? CalcErrorSyntax
                                                                          : CalcErrorNone;
}

// The digits of radix 2^bitsPerDigit from the last one on, each put where its bits belong.
CalcError ReadBits(uint64_t* dest, const NumberScanner& scanner, const NumberToken& token) {
    const int bitsPerDigit = BitsPerDigit(scanner.radix);
    const int64_t width = BitsPerUintLimb * numberContext.uintLimbs;
    BigUintClear(dest);
    int64_t bit = 0;
    for (int64_t i = token.length - 1; i >= 0; i--) {
        const int value = DigitValue(scanner.text[token.start + i]);
        if (value < 0 || value >= scanner.radix) {
            continue;
        }
        const uint64_t digit = static_cast<uint64_t>(value);
        if (digit != 0) {
            if (bit + HighestBit(digit) >= width) {
                return CalcErrorOverflow;
            }
            const int offset = static_cast<int>(bit % BitsPerUintLimb);
            uint64_t* limb = dest + bit / BitsPerUintLimb;
            limb[0] |= digit << offset;
            if (offset + bitsPerDigit > BitsPerUintLimb && digit >> (BitsPerUintLimb - offset)) {
                limb[1] |= digit >> (BitsPerUintLimb - offset);
            }
        }
        bit += bitsPerDigit;
    }
    return CalcErrorNone;
}

CalcError ReadInteger(uint64_t* dest, const char16_t* text, int64_t length, uint32_t flags) {
    const uint32_t base = flags & TextBaseMask;
    const int64_t radix = base == 0 ? 10 : base;
    if (radix != 10 && BitsPerDigit(radix) == 0) {
        return CalcErrorBadParameter;
    }
    NumberScanner scanner = MakeNumberScanner(text, length, flags, radix);
    WrittenInteger number;
    if (!ReadWrittenInteger(scanner, &number)) {
        return CalcErrorSyntax;
    }
    return radix == 10 ? ReadDecimal(dest, scanner, number) : ReadBits(dest, scanner, number.token);
}

}  // namespace

void BigUintFromText(uint64_t* dest, const char16_t* text, int64_t length, uint32_t flags) {
    const CalcError code = ReadInteger(dest, text, length, flags);
    if (code != CalcErrorNone) {
        BigUintClear(dest);
        SetCalcError(code);
    }
}

}  // namespace tallymere
