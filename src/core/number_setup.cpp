#include "core/number_setup.h"

namespace tallymere {

namespace {

// Changes hands with NumberContext, from the thread that starts a run to the one that runs it.
int32_t scopeCount = 0;

bool IsFixedExponent(int64_t exponent) {
    return exponent >= -MaxFixedExponent && exponent <= MaxFixedExponent;
}

bool SetUintWidth(UintWidth width) {
    if (width.limbs < 1 || width.limbs > MaxUintLimbs) {
        SetCalcError(CalcErrorBadParameter);
        return false;
    }
    InstallUintWidth(width);
    return true;
}

}  // namespace

NumberSetup CurrentNumberSetup() {
    return {numberContext.numberType,
            numberContext.precisionDigits,
            CurrentUintWidth(),
            {numberContext.fixedExponentLow, numberContext.fixedExponentHigh}};
}

bool SetNotationWindow(NotationWindow window) {
    if (!IsFixedExponent(window.low) || !IsFixedExponent(window.high)) {
        SetCalcError(CalcErrorBadParameter);
        return false;
    }
    numberContext.fixedExponentLow = window.low;
    numberContext.fixedExponentHigh = window.high;
    return true;
}

bool InstallNumberSetup(const NumberSetup& setup) {
    numberContext.numberType = setup.type;
    const bool hasDigits = SetRealPrecision(setup.digits);
    const bool hasWidth = SetUintWidth(setup.width);
    const bool hasWindow = SetNotationWindow(setup.window);
    return hasDigits && hasWidth && hasWindow;
}

void PutNumberSetupBack(const NumberSetup& saved) {
    numberContext.numberType = saved.type;
    InstallRealLayout(LayoutForDigits(saved.digits));
    InstallUintWidth(saved.width);
    numberContext.fixedExponentLow = saved.window.low;
    numberContext.fixedExponentHigh = saved.window.high;
}

NumberSetupScope::NumberSetupScope() : saved_(CurrentNumberSetup()) {
    scopeCount++;
}

NumberSetupScope::NumberSetupScope(const NumberSetup& setup) : NumberSetupScope() {
    InstallNumberSetup(setup);
}

NumberSetupScope::~NumberSetupScope() {
    scopeCount--;
    PutNumberSetupBack(saved_);
}

int32_t NumberSetupScopeCount() {
    return scopeCount;
}

}  // namespace tallymere
