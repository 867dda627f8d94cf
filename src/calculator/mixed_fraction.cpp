#include "calculator/mixed_fraction.h"

#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_text.h"
#include "shell/scratch_text.h"
#include "shell/text_format.h"

namespace tallymere {

namespace {

const char16_t* IntegerText(ScratchScope& scope, const uint64_t* a, uint32_t flags) {
    const int64_t capacity = BigUintTextLength(flags);
    char16_t* text = TakeText(scope, capacity);
    BigUintToText(text, capacity, a, flags);
    return text;
}

}  // namespace

void MixedFractionToText(char16_t* buffer, int64_t capacity, const RationalNumber* q,
                         uint32_t flags) {
    ScratchStackScope scope;
    uint64_t* whole = scope.Take(numberContext.uintLimbs);
    uint64_t* rest = scope.Take(numberContext.uintLimbs);
    BigUintDivide(whole, rest, RationalNumerator(q), RationalDenominator(q));
    const bool negative = RationalSign(q) != 0 && !RationalIsZero(q);
    FormatBounded(buffer, capacity, u"%s%s%c%s/%s",
                  {negative && !BigUintIsZero(whole) ? u"-" : u"", IntegerText(scope, whole, flags),
                   negative ? u'-' : u'+', IntegerText(scope, rest, flags),
                   IntegerText(scope, RationalDenominator(q), flags)});
}

}  // namespace tallymere
