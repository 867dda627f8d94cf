// DigitWalk: from the characters of a number, separators among them, to the values of its digits.
#pragma once

#include <cstdint>

#include "core/number_scanner.h"

namespace tallymere {

/// A walk over the characters of a number token that knows where its decimal separator stands.
/// Characters that are neither decimal digits nor decimal separators are passed over.
struct DigitWalk {
    const char16_t* next;
    const char16_t* end;
    bool plainSeparators;  ///< "." separates instead of the context's decimal separators
    int64_t seen = 0;      ///< digits passed from the first non-zero one on
    bool separatorSeen = false;
    int64_t exponent = 0;  ///< of the first non-zero digit, once the separator was seen
};

/// A walk over a digit token, or some characters of it, that has not begun.
DigitWalk MakeDigitWalk(const NumberScanner& scanner, int64_t start, int64_t length);

/// Moves to the next digit; false at the end.
bool MoveToDigit(DigitWalk& walk);

/// Passes the digits that stand at the walk's position, `limit` at most, and returns their number.
int64_t PassRun(DigitWalk& walk, int64_t limit);

/// Moves to the first digit that is not 0, or to the end. To be called first: what counts digits
/// starts at that one.
void SkipLeadingZeros(DigitWalk& walk);

struct DigitRun {
    uint64_t value;
    int64_t count;
};

/// The next digits as an integer: `limit` of them, at most 19, or as many as there are.
DigitRun TakeDigits(DigitWalk& walk, int64_t limit);

/// What stands behind an exponent mark.
struct WrittenExponent {
    bool negative;
    uint64_t magnitude;  ///< 2^64 - 1 for all from 10^19 up
};

/// Reads an optional sign and the digits behind an exponent mark; false if those are no integer.
bool ReadWrittenExponent(NumberScanner& scanner, WrittenExponent* exponent);

}  // namespace tallymere
