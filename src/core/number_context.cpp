#include "core/number_context.h"

#include <algorithm>

#include "core/scratch.h"

namespace tallymere {

namespace {

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
    return RealLayoutIsConsistent(CurrentRealLayout()) &&
           UintWidthIsConsistent(CurrentUintWidth()) && scratchIsInPlace &&
           AllAreSet(context.decimalSeparators) && AllAreSet(context.groupSeparators) &&
           AllAreSet(context.exponentChars) && AllAreSet(context.imaginaryChars);
}

bool SetRealPrecision(int64_t p) {
    if (!IsPrecision(p)) {
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
