#include "core/digit_walk.h"

#include <algorithm>

#include "core/contract.h"
#include "core/digit_text.h"

namespace tallymere {

DigitWalk MakeDigitWalk(const NumberScanner& scanner, int64_t start, int64_t length) {
    TALLYMERE_REQUIRE(start >= 0 && length >= 0 && start + length <= scanner.length);
    const char16_t* digits = scanner.text + start;
    return {digits, digits + length, scanner.plainSeparators};
}

bool MoveToDigit(DigitWalk& walk) {
    for (; walk.next < walk.end; walk.next++) {
        if (IsDecimalDigit(*walk.next)) {
            return true;
        }
        if (IsDecimalSeparator(*walk.next, walk.plainSeparators)) {
            walk.separatorSeen = true;
            walk.exponent = walk.seen - 1;
        }
    }
    return false;
}

int64_t PassRun(DigitWalk& walk, int64_t limit) {
    TALLYMERE_REQUIRE(limit >= 0);
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

DigitRun TakeDigits(DigitWalk& walk, int64_t limit) {
    TALLYMERE_REQUIRE(limit >= 0 && limit <= DigitsPerLimb);
    DigitRun taken = {0, 0};
    while (taken.count < limit && MoveToDigit(walk)) {
        const char16_t* digits = walk.next;
        const int64_t length = PassRun(walk, limit - taken.count);
        taken.value = taken.value * PowerOfTen(length) + DecimalRunValue(digits, length);
        taken.count += length;
    }
    return taken;
}

bool ReadWrittenExponent(NumberScanner& scanner, WrittenExponent* exponent) {
    NumberToken token = NextNumberToken(scanner);
    exponent->negative = token.kind == NumberTokenMinus;
    if (token.kind == NumberTokenMinus || token.kind == NumberTokenPlus) {
        token = NextNumberToken(scanner);
    }
    if (token.kind != NumberTokenDigits) {
        return false;
    }
    DigitWalk walk = MakeDigitWalk(scanner, token.start, token.length);
    SkipLeadingZeros(walk);
    exponent->magnitude = TakeDigits(walk, DigitsPerLimb).value;
    if (MoveToDigit(walk)) {
        exponent->magnitude = ~uint64_t{0};
    }
    return true;
}

}  // namespace tallymere
