#include "core/number_context.h"

namespace tallymere {

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
