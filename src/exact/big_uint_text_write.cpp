#include <algorithm>

#include "core/contract.h"
#include "core/digit_format.h"
#include "core/digit_text.h"
#include "core/number_bases.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_text.h"
#include "exact/radix_conversion.h"
#include "exact/radix_digits.h"

namespace tallymere {

namespace {

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

const char16_t* DigitAlphabet(uint32_t flags) {
    return (flags & TextLowerHex) != 0 ? u"0123456789abcdef" : u"0123456789ABCDEF";
}

int64_t WrittenGroupSize(const NumberBase& base, uint32_t flags) {
    return (flags & TextGroup) != 0 ? base.groupSize : 0;
}

// Where a digit is a whole number of bits.
void WriteBits(TextWriter& writer, const uint64_t* a, const NumberBase& base, uint32_t flags) {
    const int bitsPerDigit = BitsPerDigit(base.base);
    const char16_t* alphabet = DigitAlphabet(flags);
    const bool grouped = (flags & TextGroup) != 0;
    const char16_t mark = WrittenGroupSeparator(flags);
    const int64_t bits = std::max<int64_t>(BigUintBitLength(a), 1);
    const int64_t count = (bits + bitsPerDigit - 1) / bitsPerDigit;
    char16_t* place = WriteReserve(writer, count + (grouped ? (count - 1) / base.groupSize : 0));
    if (place == nullptr) {
        return;
    }
    for (int64_t left = count; left > 0; left--) {
        if (grouped && left < count && left % base.groupSize == 0) {
            *place++ = mark;
        }
        *place++ =
            alphabet[BitsAt(a, numberContext.uintLimbs, (left - 1) * bitsPerDigit, bitsPerDigit)];
    }
}

// In every base.
void WriteByQuotients(TextWriter& writer, const uint64_t* a, const NumberBase& base,
                      uint32_t flags) {
    const int64_t room = MostDigitsOfRadix(std::max<int64_t>(BigUintLength(a), 1), base.base);
    CoreScratchScope scratch;
    uint64_t* rest = scratch.Take(numberContext.uintLimbs);
    BigUintCopy(rest, a);
    auto* digits = reinterpret_cast<char16_t*>(
        scratch.Take((room + CharactersPerWord - 1) / CharactersPerWord));
    const int64_t count = TakeDigitsOfRadix(digits + room, rest, base.base, DigitAlphabet(flags));
    WriteInteger(writer, digits + room - count, count, count, WrittenGroupSize(base, flags),
                 WrittenGroupSeparator(flags));
}

void WriteDecimal(TextWriter& writer, const uint64_t* a, const NumberBase& base, uint32_t flags) {
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
        WriteInteger(writer, digits, count, count, WrittenGroupSize(base, flags),
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
                 flags & (TextScientific | TextPlainSeparators | TextNoExponentPlus));
}

// The row of the base that the flags name, null for a base that is not in the table.
const NumberBase* WrittenBase(uint32_t flags) {
    const uint32_t base = flags & TextBaseMask;
    return FindNumberBase(base == 0 ? DecimalBase : int64_t{base});
}

}  // namespace

void BigUintWrite(TextWriter& writer, const uint64_t* a, uint32_t flags) {
    WriteSign(writer, false, flags);
    const NumberBase* base = WrittenBase(flags);
    const bool isDecimal = base != nullptr && base->base == DecimalBase;
    if (base == nullptr || (!isDecimal && (flags & TextScientific) != 0)) {
        SetCalcError(CalcErrorBadParameter);
        WriteChars(writer, u"[P]", 3);
    } else if (isDecimal) {
        WriteDecimal(writer, a, *base, flags);
    } else if (BitsPerDigit(base->base) != 0) {
        WriteBits(writer, a, *base, flags);
    } else {
        WriteByQuotients(writer, a, *base, flags);
    }
}

int64_t BigUintToText(char16_t* buffer, int64_t capacity, const uint64_t* a, uint32_t flags) {
    TALLYMERE_REQUIRE(buffer == nullptr || capacity >= 0);
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
    const NumberBase* base = WrittenBase(flags);
    if (base == nullptr || base->base == DecimalBase) {
        const int64_t digits = UintWidthForLimbs(limbs).digits + 1;
        const int64_t groupSize = FindNumberBase(DecimalBase)->groupSize;
        return digits + 2 + (grouped ? digits / groupSize : 0) +
               ((flags & TextScientific) != 0 ? ExponentCharacters : 0);
    }
    const int64_t length = MostDigitsOfRadix(limbs, base->base) + 2;
    return grouped ? length + length / base->groupSize : length;
}

}  // namespace tallymere
