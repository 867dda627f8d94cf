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

uint64_t SizeOfNumber() {
    const uint64_t realBytes = 8 * static_cast<uint64_t>(numberContext.realLimbs + 1);
    const uint64_t uintBytes = 8 * static_cast<uint64_t>(numberContext.uintLimbs);
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return realBytes;
        case NumberTypeComplex:
            return 2 * realBytes;
        case NumberTypeUint:
            return uintBytes;
        case NumberTypeRational:
            return 2 * uintBytes + 8;
        default:
            SetCalcError(CalcErrorUnknownType);
            return 0;
    }
}

}  // namespace tallymere
