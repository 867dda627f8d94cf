#include "core/digit_format.h"

#include <algorithm>

#include "core/contract.h"
#include "core/digit_text.h"
#include "core/number_bases.h"
#include "core/number_context.h"

namespace tallymere {

namespace {

constexpr int64_t GroupOfThousands = FindNumberBase(DecimalBase)->groupSize;

// What stands behind the decimal separator: zeros, then digits.
struct Fraction {
    int64_t zeros;
    const char16_t* digits;
    int64_t count;  // 0 or less: there is no fraction
};

Fraction WriteFixedInteger(TextWriter& writer, const char16_t* digits, int64_t count,
                           int64_t exponent, uint32_t flags) {
    if (exponent < 0) {
        WriteChar(writer, u'0');
        return {-exponent - 1, digits, count};
    }
    const int64_t length = exponent + 1;
    const int64_t groupSize = (flags & TextGroup) != 0 ? GroupOfThousands : 0;
    WriteInteger(writer, digits, count, length, groupSize, WrittenGroupSeparator(flags));
    return {0, digits + std::min(length, count), count - length};
}

Fraction WriteScientificInteger(TextWriter& writer, const char16_t* digits, int64_t count) {
    WriteChar(writer, digits[0]);
    return {0, digits + 1, count - 1};
}

// Removes the zeros at the end of the fraction that begins with its separator at `start`, and a
// separator that is left alone.
void StripFraction(TextWriter& writer, int64_t start) {
    while (writer.position > start + 1 && writer.buffer[writer.position - 1] == u'0') {
        writer.position--;
    }
    if (writer.position == start + 1) {
        writer.position = start;
    }
}

void WriteFraction(TextWriter& writer, const Fraction& fraction, bool strip, uint32_t flags) {
    const char16_t separator = WrittenDecimalSeparator(flags);
    const int64_t start = writer.position;
    if (fraction.count > 0) {
        WriteChar(writer, separator);
        WriteRepeated(writer, u'0', fraction.zeros);
        WriteChars(writer, fraction.digits, fraction.count);
        if (strip && !WriterOverflowed(writer)) {
            StripFraction(writer, start);
        }
    }
    if (writer.position == start && (flags & TextKeepFraction) != 0) {
        WriteChar(writer, separator);
        WriteChar(writer, u'0');
    }
}

}  // namespace

char16_t WrittenDecimalSeparator(uint32_t flags) {
    return (flags & TextPlainSeparators) != 0 ? u'.' : numberContext.decimalSeparators[0];
}

char16_t WrittenGroupSeparator(uint32_t flags) {
    return (flags & TextPlainSeparators) != 0 ? u'\'' : numberContext.groupSeparators[0];
}

void WriteSign(TextWriter& writer, bool negative, uint32_t flags) {
    if (negative) {
        WriteChar(writer, u'-');
    } else if ((flags & TextAlwaysSign) != 0) {
        WriteChar(writer, u'+');
    }
}

void WriteInteger(TextWriter& writer, const char16_t* digits, int64_t count, int64_t length,
                  int64_t groupSize, char16_t mark) {
    TALLYMERE_REQUIRE(count >= 0 && length >= 1 && groupSize >= 0);
    const int64_t marks = groupSize > 0 ? (length - 1) / groupSize : 0;
    char16_t* place = WriteReserve(writer, length + marks);
    if (place == nullptr) {
        return;
    }
    int64_t group = length - marks * groupSize;
    for (int64_t done = 0; done < length; done += group, group = groupSize) {
        if (done > 0) {
            *place++ = mark;
        }
        const int64_t given = std::min(count, group);
        place = std::copy_n(digits, given, place);
        place = std::fill_n(place, group - given, u'0');
        digits += given;
        count -= given;
    }
}

void WriteExponent(TextWriter& writer, int64_t exponent, uint32_t flags) {
    WriteChar(writer, numberContext.exponentChars[0]);
    if (exponent < 0) {
        WriteChar(writer, u'-');
    } else if ((flags & TextNoExponentPlus) == 0) {
        WriteChar(writer, u'+');
    }
    const uint64_t magnitude = IntegerMagnitude(exponent);
    const int64_t count = std::max<int64_t>(DigitCount(magnitude), 1);
    if (char16_t* place = WriteReserve(writer, count)) {
        WriteDecimalRun(place, magnitude, count);
    }
}

void FormatDigits(TextWriter& writer, const char16_t* digits, int64_t count, bool negative,
                  int64_t exponent, uint32_t flags) {
    TALLYMERE_REQUIRE(count >= 1 && IntegerMagnitude(exponent) <= uint64_t{1} << 62);
    // A negative zero shows its sign only where every number shows one.
    const bool isZero = digits[0] == u'0';
    WriteSign(writer, negative && (!isZero || (flags & TextAlwaysSign) != 0), flags);

    const bool automatic = (flags & (TextFixed | TextScientific)) == 0;
    const bool inWindow =
        numberContext.fixedExponentLow < exponent && exponent < numberContext.fixedExponentHigh;
    const bool fixed = (flags & TextFixed) != 0 || (automatic && inWindow);
    const bool strip = automatic || (flags & TextStripZeros) != 0;

    const Fraction fraction = fixed ? WriteFixedInteger(writer, digits, count, exponent, flags)
                                    : WriteScientificInteger(writer, digits, count);
    WriteFraction(writer, fraction, strip, flags);
    if (!fixed) {
        WriteExponent(writer, exponent, flags);
    }
}

}  // namespace tallymere
