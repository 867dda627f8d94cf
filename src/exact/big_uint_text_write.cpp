#include <algorithm>

#include "core/digit_format.h"
#include "core/digit_text.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_text.h"
#include "exact/radix_conversion.h"

namespace tallymere {

namespace {

constexpr int64_t DecimalGroup = 3;
constexpr int64_t BinaryGroup = 4;
constexpr int64_t ExponentCharacters = 13;

// Bits `bit` to bit + count - 1 of a number of `length` limbs.
uint64_t BitsAt(const uint64_t* a, int64_t length, int64_t bit, int count) {
    const int64_t limb = bit / BitsPerUintLimb;
    const int offset = static_cast<int>(bit % BitsPerUintLimb);
    uint64_t bits = a[limb] >> offset;
    if (offset + count > BitsPerUintLimb && limb + 1 < length) {
        bits |= a[limb + 1] << (BitsPerUintLimb - offset);
    }
    return bits & ((uint64_t{1} << count) - 1);
}

void WriteBits(TextWriter& writer, const uint64_t* a, int bitsPerDigit, uint32_t flags) {
    const char16_t* alphabet =
        (flags & TextLowerHex) != 0 ? u"0123456789abcdef" : u"0123456789ABCDEF";
    const bool grouped = (flags & TextGroup) != 0;
    const char16_t mark = WrittenGroupSeparator(flags);
    const int64_t bits = std::max<int64_t>(BigUintBitLength(a), 1);
    const int64_t count = (bits + bitsPerDigit - 1) / bitsPerDigit;
    char16_t* place = WriteReserve(writer, count + (grouped ? (count - 1) / BinaryGroup : 0));
    if (place == nullptr) {
        return;
    }
    for (int64_t left = count; left > 0; left--) {
        if (grouped && left < count && left % BinaryGroup == 0) {
            *place++ = mark;
        }
        *place++ =
            alphabet[BitsAt(a, numberContext.uintLimbs, (left - 1) * bitsPerDigit, bitsPerDigit)];
    }
}

void WriteDecimal(TextWriter& writer, const uint64_t* a, uint32_t flags) {
    const int64_t length = std::max<int64_t>(BigUintLength(a), 1);
    const int64_t area = MaxDecimalLimbs(length);
    CoreScratchScope scratch;
    Limb* end = scratch.Take(area) + area;
    const int64_t limbs = std::max<int64_t>(WordsToDecimalLimbs(end, a, length), 1);
    const int64_t characters = DigitsPerLimb * limbs;
    auto* staged = reinterpret_cast<char16_t*>(
        scratch.Take((characters + CharactersPerWord - 1) / CharactersPerWord));
    for (int64_t i = 0; i < limbs; i++) {
        WriteLimbDigits(staged + DigitsPerLimb * i, end[i - limbs]);
    }
    const int64_t leadingZeros = DigitsPerLimb - std::max<int64_t>(DigitCount(end[-limbs]), 1);
    const char16_t* digits = staged + leadingZeros;
    const int64_t count = characters - leadingZeros;
    if ((flags & TextScientific) == 0) {
        WriteInteger(writer, digits, count, count, (flags & TextGroup) != 0 ? DecimalGroup : 0,
                     WrittenGroupSeparator(flags));
        return;
    }
    int64_t kept = count;
    if ((flags & TextStripZeros) != 0) {
        while (kept > 1 && digits[kept - 1] == u'0') {
            kept--;
        }
    }
    FormatDigits(writer, digits, kept, false, count - 1,
                 flags & (TextScientific | TextNeutral | TextNoExponentPlus));
}

}  // namespace

void BigUintWrite(TextWriter& writer, const uint64_t* a, uint32_t flags) {
    WriteSign(writer, false, flags);
    const uint32_t base = flags & TextBaseMask;
    const int bitsPerDigit = BitsPerDigit(base);
    if (base == 0 || base == 10) {
        WriteDecimal(writer, a, flags);
    } else if (bitsPerDigit != 0 && (flags & TextScientific) == 0) {
        WriteBits(writer, a, bitsPerDigit, flags);
    } else {
        SetCalcError(CalcErrorBadParameter);
        WriteChars(writer, u"[P]", 3);
    }
}

int64_t BigUintToText(char16_t* buffer, int64_t capacity, const uint64_t* a, uint32_t flags) {
    if (buffer == nullptr) {
        return BigUintTextLength(flags);
    }
    TextWriter writer = {0, capacity, buffer};
    BigUintWrite(writer, a, flags);
    return FinishNumberText(writer, flags);
}

int64_t BigUintTextLength(uint32_t flags) {
    const int64_t limbs = numberContext.uintLimbs;
    const bool grouped = (flags & TextGroup) != 0;
    int64_t length = 0;
    switch (flags & TextBaseMask) {
        case 2:
            length = BitsPerUintLimb * limbs + 2;
            break;
        case 8:
            length = ((BitsPerUintLimb * limbs) | 2) / 3 + 2;
            break;
        case 16:
            length = BitsPerUintLimb / 4 * limbs + 2;
            break;
        default: {
            const int64_t digits = UintWidthForLimbs(limbs).digits + 1;
            return digits + 2 + (grouped ? digits / 3 : 0) +
                   ((flags & TextScientific) != 0 ? ExponentCharacters : 0);
        }
    }
    return grouped ? length + length / 4 : length;
}

}  // namespace tallymere
