#include <algorithm>

#include "core/digit_text.h"
#include "core/real_text.h"

namespace tallymere {

namespace {

// A walk over the characters of a number that knows where its separator stands.
struct DigitWalk {
    const char16_t* next;
    const char16_t* end;
    bool neutral;
    int64_t seen = 0;  // digits passed from the first non-zero one on
    bool separatorSeen = false;
    int64_t exponent = 0;  // of the first non-zero digit, once the separator was seen
};

// Moves to the next digit; false at the end.
bool MoveToDigit(DigitWalk& walk) {
    for (; walk.next < walk.end; walk.next++) {
        if (IsDecimalDigit(*walk.next)) {
            return true;
        }
        if (IsDecimalSeparator(*walk.next, walk.neutral)) {
            walk.separatorSeen = true;
            walk.exponent = walk.seen - 1;
        }
    }
    return false;
}

// Passes the digits that stand at the walk's position, `limit` at most, and returns their number.
int64_t PassRun(DigitWalk& walk, int64_t limit) {
    const int64_t length =
        DecimalRunLength(walk.next, std::min<int64_t>(limit, walk.end - walk.next));
    walk.next += length;
    walk.seen += length;
    return length;
}

void SkipLeadingZeros(DigitWalk& walk) {
    while (MoveToDigit(walk) && *walk.next == u'0') {
        walk.next++;
        if (walk.separatorSeen) {
            walk.exponent--;
        }
    }
}

struct DigitRun {
    uint64_t value;
    int64_t count;
};

// The next digits as an integer: `limit` of them, at most 19, or as many as there are.
DigitRun TakeDigits(DigitWalk& walk, int64_t limit) {
    DigitRun taken = {0, 0};
    while (taken.count < limit && MoveToDigit(walk)) {
        const char16_t* digits = walk.next;
        const int64_t length = PassRun(walk, limit - taken.count);
        taken.value = taken.value * PowerOfTen(length) + DecimalRunValue(digits, length);
        taken.count += length;
    }
    return taken;
}

// Stands for every exponent that is out of range wherever the first digit stands; a sum with the
// position of a digit stays inside 64 bits.
constexpr uint64_t HugeExponent = uint64_t{3} << 61;

// Reads the sign and the digits behind an exponent mark; false if that is no integer.
bool ReadExponent(NumberScanner& scanner, int64_t* exponent) {
    NumberToken token = NextNumberToken(scanner);
    const bool negative = token.kind == NumberTokenMinus;
    if (negative || token.kind == NumberTokenPlus) {
        token = NextNumberToken(scanner);
    }
    if (token.kind != NumberTokenDigits) {
        return false;
    }
    const char16_t* digits = scanner.text + token.start;
    DigitWalk walk = {digits, digits + token.length, scanner.neutral};
    SkipLeadingZeros(walk);
    const uint64_t value = TakeDigits(walk, DigitsPerLimb).value;
    const uint64_t magnitude = MoveToDigit(walk) ? HugeExponent : std::min(value, HugeExponent);
    *exponent = negative ? -static_cast<int64_t>(magnitude) : static_cast<int64_t>(magnitude);
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
        default:
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
                   bool neutral) {
    DigitWalk walk = {text, text + length, neutral};
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
    NumberScanner scanner = MakeNumberScanner(text, length, flags, 10);
    const uint32_t base = flags & TextBaseMask;
    if (scanner.length != 0 && base != 0 && base != 10) {
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
                                     number.token.length, scanner.neutral);
    if (RealLimbs(dest)[0] == 0) {
        RealSetZero(dest, number.sign);
        return 0;
    }
    const bool inRange = RealSetExponentAndSign(dest, exponent + number.exponent, number.sign);
    return inRange ? guard : 0;
}

}  // namespace tallymere
