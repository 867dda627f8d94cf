#include <algorithm>

#include "core/digit_walk.h"
#include "core/number_bases.h"
#include "core/real_text.h"

namespace tallymere {

namespace {

// Stands for every exponent that is out of range wherever the first digit stands; a sum with the
// position of a digit stays inside 64 bits.
constexpr uint64_t HugeExponent = uint64_t{3} << 61;

// Reads the sign and the digits behind an exponent mark; false if that is no integer.
bool ReadExponent(NumberScanner& scanner, int64_t* exponent) {
    WrittenExponent written;
    if (!ReadWrittenExponent(scanner, &written)) {
        return false;
    }
    const int64_t magnitude = static_cast<int64_t>(std::min(written.magnitude, HugeExponent));
    *exponent = written.negative ? -magnitude : magnitude;
    return true;
}

// What a text says before its digits are converted.
struct WrittenNumber {
    uint64_t sign;
    NumberToken token;  // digits, infinity or NaN
    int64_t exponent;   // as written, or 0
};

// True when the whole text is a number that `flags` allow.
bool ReadNumber(NumberScanner& scanner, uint32_t flags, WrittenNumber* number) {
    NumberToken token = NextNumberToken(scanner);
    number->sign = token.kind == NumberTokenMinus ? 1 : 0;
    if (token.kind == NumberTokenMinus || token.kind == NumberTokenPlus) {
        token = NextNumberToken(scanner);
    }
    number->token = token;
    number->exponent = 0;
    switch (token.kind) {
        case NumberTokenDigits:
        case NumberTokenFraction:
            break;
        case NumberTokenInfinity:
            return (flags & TextAcceptInfinity) != 0 &&
                   NextNumberToken(scanner).kind == NumberTokenEnd;
        case NumberTokenNaN:
            return (flags & TextAcceptNaN) != 0 && NextNumberToken(scanner).kind == NumberTokenEnd;
        case NumberTokenEnd:
        case NumberTokenOther:
        case NumberTokenExponent:
        case NumberTokenImaginary:
        case NumberTokenPlus:
        case NumberTokenMinus:
            return false;
    }
    token = NextNumberToken(scanner);
    if (token.kind == NumberTokenExponent) {
        if (!ReadExponent(scanner, &number->exponent)) {
            return false;
        }
        token = NextNumberToken(scanner);
    }
    return token.kind == NumberTokenEnd;
}

}  // namespace

Limb DigitsToLimbs(Limb* limbs, int64_t* exponent, const char16_t* text, int64_t length,
                   bool plainSeparators) {
    DigitWalk walk = {text, text + length, plainSeparators};
    SkipLeadingZeros(walk);
    int64_t wanted = numberContext.topLimbDigits;
    for (int64_t i = 0; i < numberContext.realLimbs; i++) {
        const DigitRun digits = TakeDigits(walk, wanted);
        limbs[i] = digits.value * PowerOfTen(wanted - digits.count);
        wanted = DigitsPerLimb;
    }
    const Limb guard = TakeDigits(walk, 1).value * PowerOfTen(DigitsPerLimb - 1);
    while (MoveToDigit(walk)) {
        PassRun(walk, walk.end - walk.next);
    }
    *exponent = walk.separatorSeen ? walk.exponent : walk.seen - 1;
    return guard;
}

Limb RealFromText(RealNumber* dest, const char16_t* text, int64_t length, uint32_t flags) {
    NumberScanner scanner = MakeNumberScanner(text, length, flags, DecimalBase);
    const uint32_t base = flags & TextBaseMask;
    if (scanner.length != 0 && base != 0 && base != DecimalBase) {
        RealSetNaN(dest, CalcErrorBadParameter);
        return 0;
    }
    WrittenNumber number;
    if (!ReadNumber(scanner, flags, &number)) {
        RealSetNaN(dest, CalcErrorSyntax);
        return 0;
    }
    if (number.token.kind == NumberTokenNaN) {
        RealSetNaN(dest);
        return 0;
    }
    if (number.token.kind == NumberTokenInfinity) {
        RealSetInfinity(dest, number.sign);
        return 0;
    }
    int64_t exponent = 0;
    const Limb guard = DigitsToLimbs(RealLimbs(dest), &exponent, scanner.text + number.token.start,
                                     number.token.length, scanner.plainSeparators);
    if (RealLimbs(dest)[0] == 0) {
        RealSetZero(dest, number.sign);
        return 0;
    }
    const bool inRange = RealSetExponentAndSign(dest, exponent + number.exponent, number.sign);
    return inRange ? guard : 0;
}

}  // namespace tallymere
