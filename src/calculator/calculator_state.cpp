#include "calculator/calculator_state.h"

namespace tallymere {

namespace {

// Wider integers are refused.
constexpr int64_t MaxUintLimbs = 2'000;

int64_t IntegerDigits(NumberType type) {
    switch (type) {
        case NumberTypeUint:
            return CalcUintDigits;
        case NumberTypeRational:
            return CalcRationalDigits;
        default:
            return 1;
    }
}

void InstallIntegerWidth() {
    const int64_t limbs = UintLimbsForDigits(calculator.calcIntegerDigits);
    if (limbs > MaxUintLimbs) {
        SetCalcError(CalcErrorBadParameter);
        return;
    }
    numberContext.uintDigits = calculator.calcIntegerDigits;
    numberContext.uintLimbs = limbs;
}

}  // namespace

CalculatorState calculator;

void MarkResultStale() {
    calculator.resultValid = false;
}

void ApplyPrecision(int64_t precision) {
    calculator.calcPrecision = precision;
    calculator.calcWorkingDigits = precision + 2;
    SetRealPrecision(calculator.calcWorkingDigits);
    MarkResultStale();
}

void ApplyNumberType(NumberType type, int64_t base) {
    calculator.calcOutputBase = type == NumberTypeUint ? base : 10;
    calculator.calcResultType = type;
    numberContext.numberType = type;
    calculator.calcIntegerDigits = IntegerDigits(type);
    InstallIntegerWidth();
    MarkResultStale();
}

void RestoreCalcContext() {
    numberContext.numberType = calculator.calcResultType;
    SetRealPrecision(calculator.calcWorkingDigits);
    InstallIntegerWidth();
}

}  // namespace tallymere
