#include <algorithm>

#include "core/contract.h"
#include "core/digit_text.h"
#include "core/digit_walk.h"
#include "core/number_bases.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_text.h"
#include "exact/radix_conversion.h"
#include "exact/radix_digits.h"

namespace tallymere {

namespace {

constexpr uint64_t MaxWrittenExponent = (uint64_t{1} << 63) - 1;

// The parts of the text of an integer, before its digits are converted.
struct WrittenInteger {
    NumberToken token;         // the digits
    WrittenExponent exponent;  // 0 when the text has none
};

// True when the whole text is a number in the scanner's radix.
bool ReadWrittenInteger(NumberScanner& scanner, WrittenInteger* number) {
    *number = {};
    NumberToken token = NextNumberToken(scanner);
    if (token.kind == NumberTokenPlus) {
        token = NextNumberToken(scanner);
    }
    const bool isDecimal = scanner.radix == DecimalBase;
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

// The characters of a digit token in front of its decimal separator; all of them if it has none. A
// character that is both a group separator and a decimal separator counts as the former.
int64_t IntegerPartLength(const NumberScanner& scanner, const NumberToken& token) {
    if (token.kind == NumberTokenDigits) {
        return token.length;
    }
    const char16_t* text = scanner.text + token.start;
    int64_t length = 0;
    while (IsDecimalDigit(text[length]) ||
           (scanner.allowGroups && IsGroupSeparator(text[length], scanner.plainSeparators))) {
        length++;
    }
    return length;
}

// x = x 10^k + the next k digits of the walk. k is the number of digits that are left, or *limit if
// that is less. *limit decreases by k. False when x does not fit.
bool AppendDigits(GrowingInteger& x, DigitWalk& walk, uint64_t* limit) {
    constexpr int64_t limbsAtOnce = 16;
    for (;;) {
        Limb limbs[limbsAtOnce];
        int64_t count = 0;
        DigitRun run = {0, DigitsPerLimb};
        while (run.count == DigitsPerLimb && count < limbsAtOnce) {
            const uint64_t wanted = std::min<uint64_t>(*limit, DigitsPerLimb);
            run = TakeDigits(walk, static_cast<int64_t>(wanted));
            *limit -= static_cast<uint64_t>(run.count);
            if (run.count == DigitsPerLimb) {
                limbs[count++] = run.value;
            }
        }
        if (!AppendDecimalLimbs(x, limbs, count)) {
            return false;
        }
        if (run.count < DigitsPerLimb) {
            return MultiplyAdd(x, PowerOfTen(run.count), run.value);
        }
    }
}

// x = x / 10^places for a BigUint x. False when that is no integer.
bool DivideByPowerOfTen(uint64_t* x, uint64_t places) {
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
    const WrittenExponent& exponent = number.exponent;
    const int64_t integerLength = IntegerPartLength(scanner, token);
    DigitWalk integer = MakeDigitWalk(scanner, token.start, integerLength);
    DigitWalk fraction =
        MakeDigitWalk(scanner, token.start + integerLength, token.length - integerLength);

    GrowingInteger x = {dest, numberContext.uintLimbs, 0};
    uint64_t noLimit = ~uint64_t{0};
    uint64_t places = exponent.negative ? 0 : exponent.magnitude;
    if (!AppendDigits(x, integer, &noLimit) || !AppendDigits(x, fraction, &places)) {
        return CalcErrorOverflow;
    }
    SkipLeadingZeros(fraction);
    if (MoveToDigit(fraction)) {
        return CalcErrorSyntax;
    }
    if (!MultiplyByPowerOfTen(x, places)) {
        return CalcErrorOverflow;
    }
    std::fill(dest + x.length, dest + numberContext.uintLimbs, uint64_t{0});
    if (exponent.negative && !DivideByPowerOfTen(dest, exponent.magnitude)) {
        return CalcErrorSyntax;
    }
    return CalcErrorNone;
}

// Where a digit is a whole number of bits: puts the bits of each digit into their place, from the
// last digit to the first. Characters that are no digits are group separators.
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

// In every other base.
CalcError ReadByProducts(uint64_t* dest, const NumberScanner& scanner, const NumberToken& token) {
    GrowingInteger x = {dest, numberContext.uintLimbs, 0};
    if (!AppendDigitsOfRadix(x, scanner.text + token.start, token.length, scanner.radix)) {
        return CalcErrorOverflow;
    }
    std::fill(dest + x.length, dest + numberContext.uintLimbs, uint64_t{0});
    return CalcErrorNone;
}

CalcError ReadInteger(uint64_t* dest, const char16_t* text, int64_t length, uint32_t flags) {
    const uint32_t base = flags & TextBaseMask;
    const int64_t radix = base == 0 ? DecimalBase : base;
    if (FindNumberBase(radix) == nullptr) {
        return CalcErrorBadParameter;
    }
    NumberScanner scanner = MakeNumberScanner(text, length, flags, radix);
    WrittenInteger number;
    if (!ReadWrittenInteger(scanner, &number)) {
        return CalcErrorSyntax;
    }
    if (radix == DecimalBase) {
        return ReadDecimal(dest, scanner, number);
    }
    return BitsPerDigit(radix) != 0 ? ReadBits(dest, scanner, number.token)
                                    : ReadByProducts(dest, scanner, number.token);
}

}  // namespace

void BigUintFromText(uint64_t* dest, const char16_t* text, int64_t length, uint32_t flags) {
    TALLYMERE_REQUIRE(length >= 0 || length == TextUntilZero);
    const CalcError code = ReadInteger(dest, text, length, flags);
    if (code != CalcErrorNone) {
        BigUintSetFailed(dest, code);
    }
}

}  // namespace tallymere
