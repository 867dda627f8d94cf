#include "exact/rational_text.h"

#include <algorithm>

#include "core/contract.h"
#include "core/digit_format.h"
#include "core/number_bases.h"
#include "core/number_scanner.h"
#include "exact/big_uint.h"
#include "exact/big_uint_text.h"
#include "exact/rational_arithmetic.h"

namespace tallymere {

namespace {

bool IsSign(char16_t c) {
    return c == u'+' || c == u'-';
}

// When a code is noted, dest has no meaning. A denominator that could not be read is 0, but its own
// code was noted first and wins.
void ReadRational(RationalNumber* dest, const char16_t* text, const char16_t* end, uint32_t flags) {
    dest->sign = 0;
    if (text < end && IsSign(*text)) {
        dest->sign = *text == u'-' ? 1 : 0;
        text++;
    }
    if (text == end || IsSign(*text)) {
        SetCalcError(CalcErrorSyntax);
        return;
    }
    const char16_t* slash = std::find(text, end, u'/');
    uint64_t* denominator = RationalDenominator(dest);
    BigUintFromText(RationalNumerator(dest), text, slash - text, flags);
    if (slash == end) {
        BigUintFromUnsigned(denominator, 1);
        return;
    }
    const char16_t* behind = slash + 1;
    if (behind < end && *behind == u'+') {
        SetCalcError(CalcErrorSyntax);
        return;
    }
    BigUintFromText(denominator, behind, end - behind, flags);
    if (BigUintIsZero(denominator)) {
        SetCalcError(CalcErrorUndefined);
        return;
    }
    ReduceFraction(RationalNumerator(dest), denominator);
}

}  // namespace

void RationalFromText(RationalNumber* dest, const char16_t* text, int64_t length, uint32_t flags) {
    TALLYMERE_REQUIRE(length >= 0 || length == TextUntilZero);
    CalcErrorScope codes;
    const NumberScanner stripped = MakeNumberScanner(text, length, flags, DecimalBase);
    ReadRational(dest, stripped.text, stripped.text + stripped.length, flags);
    RationalFailOnCode(dest);
}

int64_t RationalToText(char16_t* buffer, int64_t capacity, const RationalNumber* q,
                       uint32_t flags) {
    TALLYMERE_REQUIRE(buffer == nullptr || capacity >= 0);
    if (buffer == nullptr) {
        return 2 * BigUintTextLength(flags) + 2;
    }
    TextWriter writer = {0, capacity, buffer};
    const bool showsZeroSign = (flags & TextAlwaysSign) != 0;
    WriteSign(writer, RationalSign(q) != 0 && (showsZeroSign || !RationalIsZero(q)), flags);
    const uint64_t* denominator = RationalDenominator(q);
    if (q->sign > 1 || BigUintIsZero(denominator)) {
        SetCalcError(CalcErrorMalformed);
        WriteChars(writer, u"[?]", 3);
        return FinishNumberText(writer, flags);
    }
    const uint32_t partFlags = flags & ~uint32_t{TextAlwaysSign};
    BigUintWrite(writer, RationalNumerator(q), partFlags);
    if (!RationalIsInteger(q)) {
        WriteChar(writer, u'/');
        BigUintWrite(writer, denominator, partFlags);
    }
    return FinishNumberText(writer, flags);
}

}  // namespace tallymere
