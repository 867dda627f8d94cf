#include <algorithm>

#include "core/digit_format.h"
#include "core/digit_text.h"
#include "core/number_bases.h"
#include "core/real_text.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// The p digits of the mantissa; a special value must be zero.
void StageDigits(char16_t* digits, const RealNumber* x) {
    const Limb* limbs = RealLimbs(x);
    WriteDecimalRun(digits, limbs[0], numberContext.topLimbDigits);
    digits += numberContext.topLimbDigits;
    for (int64_t i = 1; i < numberContext.realLimbs; i++) {
        WriteLimbDigits(digits, limbs[i]);
        digits += DigitsPerLimb;
    }
}

}  // namespace

void RealToText(TextWriter& writer, const RealNumber* x, uint32_t flags) {
    if (!RealIsWellFormed(x)) {
        SetCalcError(CalcErrorMalformed);
        WriteSign(writer, false, flags);
        WriteChars(writer, u"[?]", 3);
        return;
    }
    const uint32_t base = flags & TextBaseMask;
    if (base != 0 && base != DecimalBase) {
        SetCalcError(CalcErrorBadParameter);
        WriteSign(writer, false, flags);
        WriteChars(writer, u"[P]", 3);
        return;
    }
    const bool negative = RealSign(x) != 0;
    if (RealIsNaN(x)) {
        WriteSign(writer, negative, flags);
        WriteChars(writer, u"NaN", 3);
        return;
    }
    if (RealIsInfinite(x)) {
        WriteSign(writer, negative, flags);
        if (numberContext.useInfinitySign != 0) {
            WriteChar(writer, InfinitySign);
        } else {
            WriteChars(writer, u"inf", 3);
        }
        return;
    }
    const int64_t p = numberContext.precisionDigits;
    CoreScratchScope scratch;
    auto* digits =
        reinterpret_cast<char16_t*>(scratch.Take((p + CharactersPerWord - 1) / CharactersPerWord));
    StageDigits(digits, x);
    FormatDigits(writer, digits, p, negative, RealIsZero(x) ? 0 : RealExponent(x), flags);
}

int64_t RealTextCapacity(uint32_t flags) {
    const int64_t digits = std::max<int64_t>(numberContext.precisionDigits, 20);
    const int64_t groups = (flags & TextGroup) != 0 ? digits / 3 : 0;
    return digits + 24 + 19 + groups;
}

}  // namespace tallymere
