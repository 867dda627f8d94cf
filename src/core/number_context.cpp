#include "core/number_context.h"

#include <atomic>

namespace tallymere {

bool AbortRequested() {
    uint8_t* flag = numberContext.abortFlag;
    return flag != nullptr && std::atomic_ref<uint8_t>(*flag).load(std::memory_order_relaxed) != 0;
}

void SetAbortByte(uint8_t* flag, uint8_t value) {
    std::atomic_ref<uint8_t>(*flag).store(value, std::memory_order_relaxed);
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
