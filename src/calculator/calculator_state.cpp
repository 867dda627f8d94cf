#include "calculator/calculator_state.h"

namespace tallymere {

namespace {

int64_t IntegerDigits(NumberType type) {
    switch (type) {
        case NumberTypeUint:
            return CalcUintDigits;
        case NumberTypeRational:
            return CalcRationalDigits;
        case NumberTypeReal:
        case NumberTypeComplex:
        case NumberTypeNone:
            break;
    }
    return 1;
}

}  // namespace

CalculatorState calculator;

void MarkResultStale() {
    calculator.resultValid = false;
}

void ApplyPrecision(int64_t precision) {
    calculator.calcPrecision = precision;
    calculator.calcWorkingDigits = precision + 2;
    RestoreCalcContext();
    MarkResultStale();
}

void InstallNumberType(NumberType type, int64_t base) {
    calculator.calcOutputBase = type == NumberTypeUint ? base : DecimalBase;
    calculator.calcResultType = type;
    calculator.calcIntegerDigits = IntegerDigits(type);
    RestoreCalcContext();
}

void ApplyNumberType(NumberType type, int64_t base) {
    InstallNumberType(type, base);
    MarkResultStale();
}

NumberSetup CalcNumberSetup() {
    return {.type = calculator.calcResultType,
            .digits = calculator.calcWorkingDigits,
            .width = UintWidthForDigits(calculator.calcIntegerDigits)};
}

void RestoreCalcContext() {
    InstallNumberSetup(CalcNumberSetup());
}

void BeginEvaluation() {
    MarkResultStale();
    calculator.resultForm = ResultAutomatic;
}

void ResetCalculator() {
    MarkResultStale();
    calculator.resultBracket = false;
    calculator.resultForm = ResultAutomatic;
    calculator.ansAvailable = false;
    calculator.calcResultText[0] = 0;
    calculator.formulaTouched = false;
}

}  // namespace tallymere
