#include "calculator/calculator_settings.h"

#include "core/number_bases.h"

namespace tallymere {

ResultStyle StyleOfResult(const Settings& record) {
    return {record.groupCalculator, record.useLowerCaseHex};
}

void StartCalculator(Settings& record) {
    RepairPrecision(record);
    ResetCalculator();
    ApplyPrecision(record.decimalPrecision);
    ApplyNumberType(record.numberType, InstalledOutputBase(record));
}

void ChoosePrecision(Settings& record, int32_t precision) {
    ChangeSetting(record, &Settings::decimalPrecision, precision);
    ApplyPrecision(precision);
}

bool ChooseNumberType(Settings& record, NumberType type, int64_t base) {
    if (!ChangeSetting(record, &Settings::numberType, type)) {
        return false;
    }
    ApplyNumberType(type, base);
    return true;
}

bool ChooseAngle(Settings& record, AngleType angle) {
    return ChangeSetting(record, &Settings::angleType, angle);
}

bool ChooseOutputBase(Settings& record, int64_t base) {
    if (calculator.calcOutputBase != base) {
        ChangeSetting(record, &Settings::outputNumberBase, base);
        calculator.calcOutputBase = base;
    }
    return calculator.resultValid;
}

bool SwitchLetterCase(Settings& record) {
    ChangeSetting(record, &Settings::useLowerCaseHex, !record.useLowerCaseHex);
    const NumberBase* base = FindNumberBase(calculator.calcOutputBase);
    return calculator.resultValid && base != nullptr && HasLetterDigits(*base);
}

void FollowFallToReal(Settings& record) {
    ChangeSetting(record, &Settings::numberType, NumberTypeReal);
}

}  // namespace tallymere
