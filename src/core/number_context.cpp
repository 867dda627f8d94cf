#include "core/number_context.h"

#include <algorithm>

#include "core/scratch.h"

namespace tallymere {

namespace {

bool IsNumberType(NumberType type) {
    switch (type) {
        case NumberTypeNone:
        case NumberTypeReal:
        case NumberTypeComplex:
        case NumberTypeUint:
        case NumberTypeRational:
            return true;
    }
    return false;
}

template <size_t Count>
bool AllAreSet(const char16_t (&marks)[Count]) {
    return std::ranges::none_of(marks, [](char16_t mark) { return mark == u'\0'; });
}

}  // namespace

bool NumberContextIsConsistent() {
    const NumberContext& context = numberContext;
    const bool scratchIsInPlace = context.scratchBase == coreScratch.base &&
                                  context.scratchTop >= coreScratch.base &&
                                  context.scratchTop <= coreScratch.end;
    const bool flagsAreFlags = context.noRounding <= 1 && context.reportUnderflow <= 1 &&
                               context.reportOverflow <= 1 && context.useInfinitySign <= 1;
    return RealLayoutIsConsistent(CurrentRealLayout()) &&
           UintWidthIsConsistent(CurrentUintWidth()) && scratchIsInPlace && flagsAreFlags &&
           IsNumberType(context.numberType) && AllAreSet(context.decimalSeparators) &&
           AllAreSet(context.groupSeparators) && AllAreSet(context.exponentChars) &&
           AllAreSet(context.imaginaryChars);
}

bool SetRealPrecision(int64_t p) {
    if (p < 1 || p > MaxPrecisionDigits) {
        SetCalcError(CalcErrorBadParameter);
        return false;
    }
    InstallRealLayout(LayoutForDigits(p));
    return true;
}

bool SetUintDigits(int64_t digits) {
    const int64_t limbs = UintLimbsForDigits(digits);
    if (limbs > MaxUintLimbs) {
        SetCalcError(CalcErrorBadParameter);
        return false;
    }
    InstallUintWidth({digits, limbs});
    return true;
}

}  // namespace tallymere
