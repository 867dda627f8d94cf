#include "support/real_testing.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ostream>

#include "reference/limb_twins.h"

namespace tallymere::testing_support {

using reference::TenTo;

namespace {

// Its leading decimal digit is odd, so that a units digit read past the end shows.
constexpr uint64_t GuardWord = 0x6AFE6AFE6AFE6AFEu;
constexpr uint64_t JunkWord = 0xDEADBEEFDEADBEEFu;

// The decimal digits of the mantissa, p of them, from limbs in normal form.
std::string MantissaDigits(const Limb* limbs) {
    std::string digits;
    for (int64_t i = 0; i < numberContext.realLimbs; i++) {
        const size_t width = static_cast<size_t>(i == 0 ? numberContext.topLimbDigits : 19);
        std::string part = std::to_string(limbs[i]);
        part.insert(0, width - std::min(width, part.size()), '0');
        digits += part;
    }
    return digits;
}

// Writes p decimal digits as limbs.
void WriteDigits(Limb* limbs, const std::string& digits) {
    size_t at = 0;
    for (int64_t i = 0; i < numberContext.realLimbs; i++) {
        const size_t width = static_cast<size_t>(i == 0 ? numberContext.topLimbDigits : 19);
        limbs[i] = std::stoull(digits.substr(at, width));
        at += width;
    }
}

Limb RandomPart(RandomSource& random) {
    constexpr Limb Largest = 9'999'999'999'999'999'999u;
    switch (random.Below(8)) {
        case 0:
            return 0;
        case 1:
            return Largest;
        case 2:
            return 1;
        case 3:
            return TenTo(random.Between(0, 18));
        case 4:
            return Largest / 2 + random.Below(3);
        case 5:
            return TenTo(random.Between(1, 18)) - 1;
        default:
            return random.Below(Largest + 1);
    }
}

// A run of the digit 0 or 9 across limbs, from a random digit to a random one.
void OverlayRun(RandomSource& random, Limb* limbs, int64_t count) {
    const int64_t digits = 19 * count;
    const int64_t from = random.Between(0, digits - 1);
    const int64_t to = random.Between(from, digits - 1);
    const Limb digit = random.Below(2) == 0 ? 0 : 9;
    for (int64_t i = from / 19; i <= to / 19; i++) {
        for (int64_t place = 0; place < 19; place++) {
            const int64_t at = 19 * i + place;
            if (at >= from && at <= to) {
                const Limb unit = TenTo(18 - place);
                limbs[i] -= limbs[i] / unit % 10 * unit;
                limbs[i] += digit * unit;
            }
        }
    }
}

}  // namespace

RealBuffer::RealBuffer() : words_(static_cast<size_t>(RealWords()) + 1, JunkWord) {
    words_.back() = GuardWord;
}

RealBuffer::RealBuffer(std::string_view plainText) : RealBuffer() {
    RealFromPlainText(Get(), plainText);
}

RealBuffer::~RealBuffer() {
    EXPECT_EQ(words_.back(), GuardWord) << "an operation wrote past the end of a record";
}

void PrintTo(const RealBuffer& x, std::ostream* out) {
    *out << PlainText(x.Get());
}

void RealFromPlainText(RealNumber* dest, std::string_view text) {
    const std::string whole(text);
    const int64_t n = numberContext.realLimbs;
    const size_t p = static_cast<size_t>(numberContext.precisionDigits);
    uint64_t sign = 0;
    if (!text.empty() && text[0] == '-') {
        sign = 1;
        text.remove_prefix(1);
    }
    Limb* limbs = RealLimbs(dest);
    std::fill(limbs, limbs + n, 0);
    if (text == "inf" || text == "nan") {
        limbs[0] = text == "inf" ? 1 : 2;
        dest->header = 0x8000000000000000u | (text == "inf" ? sign : 0);
        return;
    }
    int64_t exponent = 0;
    if (const size_t e = text.find('e'); e != std::string_view::npos) {
        exponent = std::strtoll(std::string(text.substr(e + 1)).c_str(), nullptr, 10);
        text = text.substr(0, e);
    }
    const size_t point = std::min(text.find('.'), text.size());
    exponent += static_cast<int64_t>(point) - 1;
    std::string digits(text.substr(0, point));
    if (point < text.size()) {
        digits += text.substr(point + 1);
    }
    const size_t leading = digits.find_first_not_of('0');
    if (leading == std::string::npos) {
        dest->header = 0x8000000000000000u | sign;
        return;
    }
    digits.erase(0, leading);
    exponent -= static_cast<int64_t>(leading);
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.size() > p || digits.find_first_not_of("0123456789") != std::string::npos) {
        ADD_FAILURE() << "\"" << whole << "\" is no number of " << p << " digits";
        digits.resize(1);
    }
    digits.resize(p, '0');
    WriteDigits(limbs, digits);
    dest->header = (static_cast<uint64_t>(exponent) << 1) | sign;
}

void ExpectWellFormed(const RealNumber* x) {
    EXPECT_TRUE(RealIsWellFormed(x));
    EXPECT_FALSE(RealIsNaN(x) && RealSign(x) != 0) << "a NaN has a sign";
}

std::string PlainText(const RealNumber* x) {
    ExpectWellFormed(x);
    const Limb* limbs = RealLimbs(x);
    const int64_t n = numberContext.realLimbs;
    const int64_t t = numberContext.topLimbDigits;
    const std::string sign = (x->header & 1) != 0 ? "-" : "";
    const bool restZero = std::all_of(limbs + 1, limbs + n, [](Limb v) { return v == 0; });
    const bool restLimbs =
        std::all_of(limbs + 1, limbs + n, [](Limb v) { return v <= TenTo(19) - 1; });
    const int64_t exponent = static_cast<int64_t>(x->header) >> 1;
    if (x->header >> 1 == uint64_t{1} << 62) {
        if (restZero && limbs[0] == 0) {
            return sign + "0";
        }
        if (restZero && limbs[0] == 1) {
            return sign + "inf";
        }
        if (restZero && limbs[0] == 2 && sign.empty()) {
            return "nan";
        }
    } else if (restLimbs && limbs[0] >= TenTo(t - 1) && limbs[0] <= TenTo(t) - 1) {
        std::string digits = MantissaDigits(limbs);
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.size() > 1) {
            digits.insert(1, ".");
        }
        return sign + digits + "e" + std::to_string(exponent);
    }
    std::string words = "malformed: header " + std::to_string(exponent) + sign;
    for (int64_t i = 0; i < n; i++) {
        words += " " + std::to_string(limbs[i]);
    }
    return words;
}

CalcError TakeCode() {
    const CalcError code = numberContext.calcError;
    numberContext.calcError = CalcErrorNone;
    return code;
}

std::string CodeName(CalcError code) {
    switch (code) {
        case CalcErrorNone:
            return "CalcErrorNone";
        case CalcErrorBadParameter:
            return "CalcErrorBadParameter";
        case CalcErrorUnknownType:
            return "CalcErrorUnknownType";
        case CalcErrorOverflow:
            return "CalcErrorOverflow";
        case CalcErrorUnderflow:
            return "CalcErrorUnderflow";
        case CalcErrorExactDivisionByZero:
            return "CalcErrorExactDivisionByZero";
        case CalcErrorUndefined:
            return "CalcErrorUndefined";
        case CalcErrorMalformed:
            return "CalcErrorMalformed";
        case CalcErrorComplexNotAllowed:
            return "CalcErrorComplexNotAllowed";
        case CalcErrorCancelled:
            return "CalcErrorCancelled";
        case CalcErrorTextTooLong:
            return "CalcErrorTextTooLong";
        case CalcErrorSyntax:
            return "CalcErrorSyntax";
        case CalcErrorCapacity:
            return "CalcErrorCapacity";
    }
    return "unknown code " + std::to_string(code);
}

std::string PlainText(const Outcome& outcome) {
    return outcome.code == CalcErrorNone ? outcome.text
                                         : outcome.text + " " + CodeName(outcome.code);
}

void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << PlainText(outcome);
}

ContextCheck::ContextCheck() : before_(numberContext) {}

ContextCheck::~ContextCheck() {
    EXPECT_TRUE(NumberContextIsConsistent());
    EXPECT_EQ(TakeCode(), CalcErrorNone) << "a code was noted and not taken";
    EXPECT_EQ(numberContext.precisionDigits, before_.precisionDigits);
    EXPECT_EQ(numberContext.realLimbs, before_.realLimbs);
    EXPECT_EQ(numberContext.topLimbDigits, before_.topLimbDigits);
    EXPECT_EQ(numberContext.uintDigits, before_.uintDigits);
    EXPECT_EQ(numberContext.uintLimbs, before_.uintLimbs);
    EXPECT_EQ(numberContext.numberType, before_.numberType);
    EXPECT_EQ(numberContext.fixedExponentLow, before_.fixedExponentLow);
    EXPECT_EQ(numberContext.fixedExponentHigh, before_.fixedExponentHigh);
    EXPECT_EQ(numberContext.noRounding, before_.noRounding);
    EXPECT_EQ(numberContext.reportUnderflow, before_.reportUnderflow);
    EXPECT_EQ(numberContext.reportOverflow, before_.reportOverflow);
    EXPECT_EQ(numberContext.useInfinitySign, before_.useInfinitySign);
    EXPECT_TRUE(std::ranges::equal(numberContext.decimalSeparators, before_.decimalSeparators));
    EXPECT_TRUE(std::ranges::equal(numberContext.groupSeparators, before_.groupSeparators));
    EXPECT_TRUE(std::ranges::equal(numberContext.exponentChars, before_.exponentChars));
    EXPECT_TRUE(std::ranges::equal(numberContext.imaginaryChars, before_.imaginaryChars));
    EXPECT_EQ(numberContext.abortFlag, before_.abortFlag);
    EXPECT_EQ(numberContext.scratchBase, before_.scratchBase);
    EXPECT_EQ(numberContext.scratchTop, before_.scratchTop) << "CoreScratch was not given back";
}

namespace {

std::string InstallPrecision(int64_t p) {
    EXPECT_EQ(TakeCode(), CalcErrorNone) << "a code of an earlier operation was not taken";
    EXPECT_TRUE(SetRealPrecision(p));
    return "at " + std::to_string(p) + " digits";
}

}  // namespace

PrecisionScope::PrecisionScope(int64_t p) : trace_(__FILE__, __LINE__, InstallPrecision(p)) {}

void FillLimbs(RandomSource& random, Limb* limbs, int64_t count) {
    const uint64_t kind = random.Below(8);
    for (int64_t i = 0; i < count; i++) {
        switch (kind) {
            case 0:
                limbs[i] = 0;
                break;
            case 1:
                limbs[i] = TenTo(19) - 1;
                break;
            case 2:
            case 3:
                limbs[i] = RandomPart(random);
                break;
            default:
                limbs[i] = random.Below(TenTo(19));
        }
    }
    if (kind == 0 || kind == 1) {
        limbs[random.Below(static_cast<uint64_t>(count))] = RandomPart(random);
    }
    if (kind == 4) {
        OverlayRun(random, limbs, count);
    }
}

void FillMantissa(RandomSource& random, Limb* limbs) {
    const int64_t n = numberContext.realLimbs;
    const int64_t t = numberContext.topLimbDigits;
    const Limb least = TenTo(t - 1);
    const Limb most = TenTo(t) - 1;
    FillLimbs(random, limbs, n);
    limbs[0] = least + limbs[0] % (most - least + 1);
    switch (random.Below(10)) {
        case 0:
            limbs[0] = least;
            break;
        case 1:
            limbs[0] = most;
            break;
        case 2:
            limbs[0] = least;
            std::fill(limbs + 1, limbs + n, 0);
            break;
        case 3:
            limbs[0] = most;
            std::fill(limbs + 1, limbs + n, TenTo(19) - 1);
            break;
        case 4: {
            const int64_t kept = random.Between(1, t);
            limbs[0] -= limbs[0] % TenTo(t - kept);
            std::fill(limbs + 1, limbs + n, 0);
            break;
        }
        case 5:
            std::fill(limbs + random.Between(1, n), limbs + n, 0);
            break;
        default:
            break;
    }
}

void FillReal(RandomSource& random, RealNumber* dest, int64_t exponentRange) {
    FillMantissa(random, RealLimbs(dest));
    dest->header = (static_cast<uint64_t>(random.Between(-exponentRange, exponentRange)) << 1) |
                   random.Below(2);
}

void FillPartner(RandomSource& random, RealNumber* dest, const RealNumber* x,
                 int64_t exponentRange) {
    const int64_t n = numberContext.realLimbs;
    const int64_t p = numberContext.precisionDigits;
    FillReal(random, dest, exponentRange);
    Limb* limbs = RealLimbs(dest);
    const int64_t exponent = static_cast<int64_t>(x->header) >> 1;
    int64_t gap = static_cast<int64_t>(dest->header) >> 1;
    gap -= exponent;
    switch (random.Below(8)) {
        case 0:  // The same number, or one that differs from some limb on.
            std::copy(RealLimbs(x), RealLimbs(x) + random.Between(1, n), limbs);
            gap = 0;
            break;
        case 1: {  // A neighbour in the last digits.
            std::string digits = MantissaDigits(RealLimbs(x));
            char& last = digits[digits.size() -
                                static_cast<size_t>(random.Between(1, std::min<int64_t>(p, 3)))];
            last = static_cast<char>('1' + random.Below(9));
            WriteDigits(limbs, digits);
            gap = 0;
            break;
        }
        case 2:  // Just above and just below a power of ten: almost everything cancels.
            limbs[0] = TenTo(numberContext.topLimbDigits) - 1;
            std::fill(limbs + 1, limbs + n, TenTo(19) - 1);
            limbs[n - 1] -= random.Below(std::min<Limb>(9, limbs[n - 1]));
            gap = random.Between(-1, 1);
            break;
        case 3:
            gap = random.Between(-2, 2);
            break;
        case 4:  // The digits of the two just meet, or the guard limb just does.
            gap = random.Between(p - 2, p + 22);
            break;
        case 5:
            gap = -random.Between(p - 2, p + 22);
            break;
        case 6:
            gap = random.Between(-20, 20);
            break;
        default:
            break;
    }
    dest->header = (static_cast<uint64_t>(exponent + gap) << 1) | (dest->header & 1);
}

}  // namespace tallymere::testing_support
